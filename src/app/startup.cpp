// SPDX-License-Identifier: MIT
#include "app/startup.h"

#include "base/log_header.h"
#include "base/program_paths.h"
#include "base/settings_file.h"
#include "base/text.h"
#include "base/user_folders.h"
#include "base/words.h"
#include "base/workspace_root.h"
#include "fonts/installed_fonts.h"

#include <QDir>

#include <unistd.h>

namespace fennel {

namespace {

const QString firstLanguage = QStringLiteral("0409");

// A shorter code is filled up, of a longer one the end counts.
QString fourDigits(const QString& language)
{
    return (QStringLiteral("0000") + language).right(4);
}

// The hexadecimal number at the start of a text; blanks within it are skipped. Of more than eight
// digits the last eight count.
quint32 hexNumber(const QString& text)
{
    quint32 number = 0;
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t')
            continue;
        bool isDigit = false;
        const uint digit = QString(c).toUInt(&isDigit, 16);
        if (!isDigit)
            break;
        number = number * 16 + digit;
    }
    return number;
}

// A failure that a later step tells the user of.
void note(const Shell& shell, const Result<void>& result)
{
    if (!result)
        shell.logFailure(result.failure());
}

void startLog(const Shell& shell, const StartInput& input)
{
    RunState& run = shell.run;
    const bool LoggingOn = wantsLog(input.words);
    run.BuildTime = input.buildTime;
    if (!LoggingOn)
        return;
    // Before anything else is done, so that the log can tell of all that fails.
    shell.log.start(run.LogPath + QStringLiteral("/FENNEL-GFX.log"));
    const QStringList header = logHeader(systemFacts(), run.BuildTime);
    for (const QString& line : header)
        shell.WriteLog(line);
}

// The language of the settings file wins over the stored one. A file without the key gains it, as
// the hexadecimal form of the code read as a decimal number: "0409" gives "199".
void languageFromSettings(const Shell& shell)
{
    RunState& run = shell.run;
    const QString key = languageSetting;
    // A home that cannot be written to has no settings, and that is no failure.
    if (run.Installed && !FileExists(settingsFile(run)))
        return;
    const QString language = IniRead(shell, key);
    if (!language.isEmpty()) {
        run.CurrentLang = language;
        return;
    }
    const auto decimal = static_cast<qint64>(leadingNumber(run.CurrentLang));
    note(shell,
         IniAppendLine(shell, settingsFile(run), key + QLatin1Char('=') + upperHex(decimal)));
}

void setLanguage(const Shell& shell, UserStore& store, const StartInput& input)
{
    RunState& run = shell.run;
    if (!FileExists(settingsFile(run))) {
        // Listing the fonts takes long, so a later start does without.
        const QString font = firstRunFontName(input.fontList ? input.fontList() : QString());
        // A program folder that is write-protected shows here; settingsFileThere() ends the run
        // over it later.
        note(shell, createSettingsFile(shell, font, fourDigits(run.CurrentLang)));
    }
    languageFromSettings(shell);
    run.CurrentLang = fourDigits(run.CurrentLang);
    // The file's language becomes the stored one, so both agree from now on.
    store.save(langsSection, languageKey, run.CurrentLang);
}

// Only the folder is asked for. A "No" leaves it empty and the run goes on: each tool is missed by
// name where it is needed, and everything else works.
NextStep needTools(const Shell& shell)
{
    if (FolderExists(shell.run.ToolsPath))
        return NextStep::GoOn;
    note(shell, shell.files.makeFolder(shell.run.ToolsPath));
    const Answer answer = shell.prompts.ShowMessage(
        Words::tr("Download a Set of Tools for the FENNEL-GFX?"), MessageType::YesNo,
        Words::tr("ERROR. No necessary tools for the program!"));
    if (answer != Answer::Yes)
        return NextStep::GoOn;
    shell.prompts.ShowMessage(Words::tr("Planned..."));
    return NextStep::EndProcess;
}

} // namespace

bool wantsLog(const QStringList& words)
{
    const QString commandLine = words.join(QLatin1Char(' ')).trimmed();
    // Only the first word counts, any other is passed over without a message.
    return commandLine.section(QLatin1Char(' '), 0, 0).trimmed().toLower() ==
           QLatin1String("-logfile");
}

// The language of the system has no say: catalogues exist for a few languages, and English is the
// one that is always there.
QString storedLanguage(UserStore& store)
{
    const quint32 number = hexNumber(store.get(langsSection, languageKey).trimmed());
    if (number != 0)
        return upperHex(number);
    store.save(langsSection, languageKey, firstLanguage);
    return firstLanguage;
}

NextStep Form_Initialize(const Shell& shell, UserStore& store, const StartInput& input)
{
    RunState& run = shell.run;
    // Everything below is found relative to it.
    run.AppPath = shortForm(input.executableFolder);
    setUserFolders(run);
    if (run.Installed) {
        note(shell, shell.files.makeFolder(run.SettingsPath));
        note(shell, shell.files.makeFolder(run.LogPath));
    }
    startLog(shell, input);
    run.CurrentLang = storedLanguage(store);
    shell.WriteLog({});
    shell.WriteLog(QStringLiteral("Start Logging from Form_Initialize..."));
    setLanguage(shell, store, input);
    if (input.languageKnown)
        input.languageKnown();
    setToolPaths(run);
    if (needTools(shell) == NextStep::EndProcess)
        return NextStep::EndProcess;
    // For people's own notes; nothing is written into it.
    const QString LogsPath = run.LogPath + QStringLiteral("/LOGs/");
    note(shell, shell.files.makeFolder(LogsPath));
    shell.WriteLog(QStringLiteral("Form_Initialize End"));
    return NextStep::GoOn;
}

// The panels' widths are left alone, they belong to the window.
void resetRun(RunState& run)
{
    run.GfxOpened = false;
    run.GfxHasCfg = false;
    run.GfxHasZuk = false;
    run.GfxIsGz = false;
    run.CurrentFlashChar = noFlash;
    run.PreviewScale = 1.0;
}

QString fileToOpen(const QStringList& words, const QString& folder)
{
    const qsizetype end = words.indexOf(QStringLiteral("--"));
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (i != end && (!words[i].startsWith(QLatin1Char('-')) || (end >= 0 && i > end)))
            return QDir::cleanPath(QDir(folder).absoluteFilePath(words[i]));
    }
    return {};
}

QStringList workspaceRootNames()
{
    const QString name = temporaryFolder() + programTitle();
    // For a machine where another user's copy holds the first name; the rest for further copies of
    // this user's, which a session without a runtime folder can start.
    const QString numbered = name + QLatin1Char('-') + QString::number(::geteuid());
    constexpr int mostCopies = 9;
    QStringList names{name + QLatin1Char('/'), numbered + QLatin1Char('/')};
    for (int copy = 2; copy <= mostCopies; ++copy)
        names.append(numbered + QStringLiteral("-%1/").arg(copy));
    return names;
}

// What an existing root holds stays: after a crash the user finds the extracted members there.
NextStep makeWorkspaceRoot(const Shell& shell)
{
    shell.run.rootLock.reset();
    Result<void> made;
    const QStringList names = workspaceRootNames();
    for (const QString& name : names) {
        // The root is removed at the end, and the program must not go with it.
        if (withSeparator(shell.run.AppPath).startsWith(name))
            continue;
        Result<std::shared_ptr<Descriptor>> taken = takeRoot(shell.files, name);
        if (taken) {
            shell.run.WorkspaceRoot = name;
            shell.run.rootLock = *taken;
            return NextStep::GoOn;
        }
        made = taken.failure();
        // Another name would not help against a full disk.
        if (taken.failure().kind != FailureKind::NoPermission)
            break;
    }
    shell.told(made);
    return NextStep::EndProcess;
}

void Form_Unload(const Shell& shell)
{
    const QString appFolder = withSeparator(shell.run.AppPath);
    note(shell, removeRoot(shell.files, shell.run.WorkspaceRoot, shell.run.rootLock));
    shell.run.rootLock.reset();
    // Roots that an earlier crash left go as well, whatever the variable "Temp" says: one that
    // another copy holds, that is not ours or that holds the program stays.
    const QStringList names = workspaceRootNames();
    for (const QString& name : names) {
        if (!isLeftRoot(name) || appFolder.startsWith(name))
            continue;
        if (Result<std::shared_ptr<Descriptor>> taken = takeRoot(shell.files, name))
            note(shell, removeRoot(shell.files, name, *taken));
    }
    shell.WriteLog(QStringLiteral("End logging"));
}

} // namespace fennel
