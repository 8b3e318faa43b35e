// SPDX-License-Identifier: MIT
#include "document/opening.h"

#include "base/failure_words.h"
#include "base/words.h"
#include "container/archive_tools.h"
#include "container/engine_info.h"
#include "container/gfx_save.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "container/picture_size.h"
#include "container/staging.h"
#include "container/template.h"

namespace fennel {

namespace {

// People know the file that they chose, not what was unwrapped from it.
Failure aboutFile(const Failure& failure, const QString& archive, const QString& path)
{
    QString text = failureWords(failure);
    return {failure.kind, text.replace(archive, path).toStdString(), failure.told};
}

// Unwraps and extracts `path` into an empty folder. True if it was wrapped.
Result<bool> extract(const Shell& shell, const QString& path, const QString& folder)
{
    // The archive lies apart from its members: whatever it is called, it is none of them.
    const Staging unwrapped(shell, QStringLiteral("#unwrap"));
    if (Result<void> made = unwrapped.made(); !made)
        return made.failure();
    const Result<QString> inner = SevenZipExtract(shell, path, unwrapped.path());
    if (!inner && inner.failure().kind == FailureKind::Canceled)
        return inner.failure();
    const bool wrapped = inner && !inner->isEmpty();
    const QString archive = wrapped ? withSeparator(unwrapped.path()) + *inner : path;
    // Tried also if the unwrapping failed: a plain archive needs no 7-Zip.
    const Result<void> extracted = CpioInfoExtract(shell, archive, folder);
    if (!extracted && extracted.failure().kind == FailureKind::Canceled)
        return extracted.failure();
    // Why a file cannot be unwrapped says more than that it is no archive.
    if (!extracted && !inner)
        return inner.failure();
    // A tool that is missing was told; what an earlier run left in the folder may still serve.
    if (!extracted && !extracted.failure().told)
        return aboutFile(extracted.failure(), archive, path);
    return wrapped;
}

// The new members take the place of those of an earlier open under this name: what the new file
// lacks must be neither shown nor saved with it.
Result<void> takePlace(const Shell& shell, const QString& staging, const QString& folder)
{
    if (!FolderExists(folder))
        return shell.files.rename(staging, folder);
    const Staging before(shell, QStringLiteral("#before"));
    const QString aside = withSeparator(before.path()) + QStringLiteral("members");
    Result<void> moved = before.made();
    if (moved)
        moved = shell.files.rename(folder, aside);
    if (!moved)
        return moved;
    moved = shell.files.rename(staging, folder);
    if (!moved)
        (void)shell.told(shell.files.rename(aside, folder));
    return moved;
}

// Everything is extracted beside the Workspace first, so that a broken file spoils nothing.
Result<bool> fillFolder(const Shell& shell, const QString& path, const QString& folder)
{
    const Staging staging(shell, QStringLiteral("#open"));
    if (Result<void> made = staging.made(); !made)
        return made.failure();
    Result<bool> wrapped = extract(shell, path, staging.path());
    // Nothing there: a tool is missing.
    if (!wrapped || plainFiles(staging.path()).isEmpty())
        return wrapped;
    // It is what every generation has: an archive without it is no boot screen.
    if (!FileExists(withSeparator(staging.path()) + mainBackName))
        return Failure{FailureKind::Unsupported, {}};
    if (Result<void> delivered = takePlace(shell, staging.path(), folder); !delivered)
        return delivered.failure();
    return wrapped;
}

void showFailure(const Shell& shell, const QString& reason)
{
    QString text = Words::tr(
        "ERROR. File back.jpg not found!\n"
        "              This is really a \"gfxboot message\"-file?\n"
        "\n"
        "\"Gfxboot message\" is a cpio-archive, but additionally it can be compressed with gZip.\n"
        "You can specify only those variants!");
    if (!reason.isEmpty())
        text += QStringLiteral("\n\n") + reason;
    shell.prompts.ShowMessage(text);
}

// Whether the gfxboot has that member: what another file of the same name left in the folder is
// none.
bool holds(const QString& folder, const QString& name)
{
    return FileExists(folder + name) &&
           (!FileExists(folder + memberListName) || isListed(folder, name));
}

// Only after the members are in place: until then the run still shows the gfxboot before.
void setRunState(const Shell& shell, const QString& path, const QString& folder, bool wrapped)
{
    RunState& run = shell.run;
    run.GfxIsGz = wrapped;
    run.GfxPath = path;
    run.Workspace = folder;
    run.GfxMark = markOf(path);
    run.GfxFileName = namePart(path);
    run.GfxOpened = true;
    run.BackFile = folder + mainBackName;
    run.GfxHasCfg = holds(folder, cfgMemberName);
    run.GfxHasZuk = holds(folder, QStringLiteral("ZUK0000.CFG"));
    // The newest sign wins: a generation 3 file may still hold the cfg of generation 2.
    run.gfxboot_var = run.GfxHasZuk ? 3 : run.GfxHasCfg ? 2 : 1;
    run.ObjectCount = run.GfxHasZuk ? 40 : 4;
}

class Opening {
public:
    Opening(const OpenTarget& target, OpenListener& listener)
        : m_target(target), m_shell(target.shell), m_document(target.document), m_listener(listener)
    {
    }
    void readAll();

private:
    void measureBack();
    void read(OpenStep step);
    void readLevels();
    void scanFonts();
    void listValues();
    [[nodiscard]] EngineInfo bootEngine() const;
    [[nodiscard]] bool ignoresLevels(const EngineInfo& engine) const;
    [[nodiscard]] bool mayUpgrade() const;
    void upgradeEngine();

    const OpenTarget& m_target;
    const Shell& m_shell;
    Document& m_document;
    OpenListener& m_listener;
};

void Opening::measureBack()
{
    if (measureBackground(m_shell))
        return;
    m_shell.prompts.ShowMessage(Words::tr("%1 is not a picture that can be shown.\n"
                                          "The screen counts as %2x%3 until it is changed.")
                                    .arg(namePart(m_shell.run.BackFile))
                                    .arg(fallbackBackWidth)
                                    .arg(fallbackBackHeight));
    m_listener.backgroundRefused();
}

// The level files say which background is shown.
void Opening::readLevels()
{
    m_document.readLevels();
    const auto number =
        m_document.state().ZUKarr.GetLevelValue(0, backgroundParam, LayerCfg).value_or(0);
    m_shell.run.BackFile = backgroundFile(m_shell.run.Workspace, number);
}

void Opening::scanFonts()
{
    ScanFonts(m_target.fonts, m_shell.run, m_target.fontSettings, QStringLiteral("?"),
              keepInspection);
}

EngineInfo Opening::bootEngine() const
{
    const Result<QByteArray> init = readBytes(m_shell.run.Workspace + QStringLiteral("init"));
    return engineOf(init ? *init : QByteArray());
}

// An engine that knows nothing of level files shows none of the objects; then the user is told.
bool Opening::ignoresLevels(const EngineInfo& engine) const
{
    if (!m_shell.run.GfxHasZuk || !engine.there || engine.readsLevels)
        return false;
    m_shell.prompts.ShowMessage(
        Words::tr("The engine of the \"%1\", %2, does not read the level files ZUK????.CFG.\n"
                  "On the boot screen it shows the background and a menu of its own, and no "
                  "other object.")
            .arg(m_shell.run.GfxFileName, engine.kind == BootEngine::Sections
                                              ? Words::tr("Debian's")
                                              : Words::tr("an unknown one")));
    return true;
}

bool Opening::mayUpgrade() const
{
    return m_shell.prompts.ShowMessage(
               Words::tr("WARNING!\n\n"
                         "  Gfxboot kernel version of the \"%1\" is obsolete!\n"
                         "  FENNEL-GFX (GUI) can upgrade file \"init\" to the current version.\n\n"
                         "  To do this?")
                   .arg(m_shell.run.GfxFileName),
               MessageType::YesNo, Words::tr("Upgrade")) == Answer::Yes;
}

void Opening::upgradeEngine()
{
    m_shell.WriteLog(QStringLiteral("         ==> Update INIT and 16x16.fnt"));
    if (!WriteResource(m_shell, m_shell.run.Workspace, QStringLiteral("init")) ||
        !WriteResource(m_shell, m_shell.run.Workspace, mainFontName))
        return;
    // The older one may have lacked them.
    (void)RebuildMemberList(m_shell, QStringLiteral("init"));
    (void)RebuildMemberList(m_shell, mainFontName);
    scanFonts();
    m_listener.engineUpgraded();
}

// Asked once for each gfxboot: the answer holds for all its objects. Of our engine there is nothing
// to ask: what a level file lacks it takes from the catalogue.
void Opening::listValues()
{
    const EngineInfo engine = bootEngine();
    if (engine.kind == BootEngine::Own) {
        m_document.listValues(true);
        return;
    }
    const bool upgrade = m_target.upgrade
                             ? *m_target.upgrade && m_document.needsUpgrade()
                             : (ignoresLevels(engine) || m_document.needsUpgrade()) && mayUpgrade();
    if (upgrade && !m_target.upgrade)
        upgradeEngine();
    m_document.listValues(upgrade);
}

void Opening::read(OpenStep step)
{
    if (step == OpenStep::Levels)
        readLevels();
    else if (step == OpenStep::Config)
        m_document.readConfigLines();
    else if (step == OpenStep::Fonts)
        scanFonts();
    else if (step == OpenStep::Generation)
        m_document.buildObjects();
    else if (step == OpenStep::Tabs)
        listValues();
    m_listener.reached(step);
}

void Opening::readAll()
{
    // Objects of the gfxboot before must not flash up over the new background.
    m_listener.extracted();
    measureBack();
    for (int number = 0; number <= static_cast<int>(OpenStep::Show); ++number) {
        const auto step = static_cast<OpenStep>(number);
        const bool levels = step == OpenStep::Levels || step == OpenStep::Logos;
        if (!levels || m_shell.run.GfxHasZuk)
            read(step);
    }
    m_document.beginHistory();
}

} // namespace

bool measureBackground(const Shell& shell)
{
    RunState& run = shell.run;
    const Result<QSize> back = pictureSize(shell, run.Workspace + mainBackName);
    const QSize size = back ? *back : QSize();
    constexpr int limit = 32767; // places on the screen are kept in 16 bits
    const bool readable = size.isValid() && size.width() <= limit && size.height() <= limit;
    run.BackWidth = readable ? size.width() : fallbackBackWidth;
    run.BackHeight = readable ? size.height() : fallbackBackHeight;
    return readable;
}

bool gfxboot_open(const OpenTarget& target, const QString& path, OpenListener& listener)
{
    const Shell& shell = target.shell;
    shell.WriteLog(QStringLiteral("gfxboot_open -----v\n"));
    listener.openBegins();
    const QString folder = workspaceOf(shell.run, namePart(path));
    const Result<bool> wrapped = fillFolder(shell, path, folder);
    const bool opened = wrapped && FileExists(folder + mainBackName);
    if (opened) {
        setRunState(shell, path, folder, *wrapped);
        Opening(target, listener).readAll();
        shell.WriteLog(QStringLiteral("gfxboot_open -----^"));
    } else {
        const Failure failure = wrapped ? Failure{FailureKind::Unsupported, {}} : wrapped.failure();
        (void)shell.tell(failure, [&](const QString& reason) { showFailure(shell, reason); });
        if (failure.kind == FailureKind::Canceled)
            listener.openCanceled();
    }
    listener.openEnds(opened);
    return opened;
}

QString newGfxboot(const Shell& shell)
{
    const QString folder = shell.run.WorkspaceRoot + QStringLiteral("~tmp/");
    const bool made = shell.told(shell.files.removeFolder(folder)) &&
                      shell.told(shell.files.makeFolder(folder)) &&
                      WriteResource(shell, folder, QStringLiteral("GFX.GZ"));
    return made ? shortForm(folder + unsavedGfxName) : QString();
}

} // namespace fennel
