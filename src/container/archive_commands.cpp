// SPDX-License-Identifier: MIT
#include "container/archive_commands.h"

#include "base/file_names.h"
#include "base/file_steps.h"
#include "base/posix_file.h"
#include "base/words.h"
#include "container/archive_tools.h"
#include "container/gfx_save.h"
#include "container/gzip.h"
#include "container/member_list.h"
#include "container/member_name.h"
#include "container/member_table.h"
#include "container/staging.h"

#include <QDir>

#include <algorithm>
#include <sys/stat.h>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString ask(const Shell& shell, const QString& title, const QString& filter, const QString& folder)
{
    FileQuestion question;
    question.folder = folder;
    question.title = title;
    question.filter = filter;
    return shell.prompts.openFile(question);
}

// All files of the staging folder go over those of the target, or none does.
Result<void> deliver(const Shell& shell, const QString& staging, const QString& target)
{
    const QString from = withSeparator(staging);
    const QString to = withSeparator(target);
    FileSteps steps(shell);
    for (const QByteArray& bytes : plainFiles(staging)) {
        const QString name = pathOfBytes(bytes);
        if (Result<void> put = steps.replace(from + name, to + name); !put)
            return put;
    }
    steps.keep();
    return {};
}

Failure wouldReplaceItself(const QString& archive)
{
    return {FailureKind::Unsupported, shownPath(archive).toStdString() +
                                          " holds a file of its own name and would be replaced by "
                                          "it. Choose another folder."};
}

bool holds(const QString& staging, const QString& target, const QString& archive)
{
    return shortForm(withSeparator(target) + namePart(archive)) == shortForm(archive) &&
           FileExists(withSeparator(staging) + namePart(archive));
}

// One question for all files of the folder that would be replaced.
bool mayReplaceFiles(const Shell& shell, const QString& staging, const QString& folder)
{
    const QByteArray place = bytesOfPath(withSeparator(folder));
    QStringList there;
    for (const QByteArray& name : plainFiles(staging)) {
        if (struct stat facts{}; ::lstat((place + name).constData(), &facts) == 0)
            there.append(memberName(name).text);
    }
    if (there.isEmpty())
        return true;
    constexpr qsizetype shown = 10;
    const qsizetype more = there.size() - shown;
    std::sort(there.begin(), there.end());
    return shell.prompts.ShowMessage(
               Words::tr("These files exist already in %1:\n%2%3\nDo you want to replace them?")
                   .arg(shownPath(folder), there.mid(0, shown).join(u'\n'),
                        more > 0 ? Words::tr("\n... and %1 more").arg(more) : QString()),
               MessageType::YesNo, Words::tr("Extract")) == Answer::Yes;
}

Result<void> extractTo(const Shell& shell, const QString& archive, const QString& folder)
{
    const Staging staging(shell, u"#extract"_s);
    if (Result<void> made = staging.made(); !made)
        return made;
    if (Result<void> extracted = CpioInfoExtract(shell, archive, staging.path()); !extracted)
        return extracted;
    if (holds(staging.path(), folder, archive))
        return wouldReplaceItself(archive);
    return mayReplaceFiles(shell, staging.path(), folder) ? deliver(shell, staging.path(), folder)
                                                          : Result<void>();
}

// "#.lst" of all files but the bridges' own, in the order of an archive that is saved.
Result<void> makeList(const Shell& shell, const QString& folder)
{
    QByteArray names;
    std::vector<std::pair<std::size_t, QByteArray>> members;
    for (const QByteArray& name : plainFiles(folder)) {
        if (!isWorkingFile(name.toStdString()))
            members.emplace_back(memberPlace(memberName(name).text), name);
    }
    std::ranges::sort(members);
    for (const auto& [place, name] : members)
        names += name + "\r\n";
    if (names.isEmpty())
        return Failure{FailureKind::NotFound, folder.toStdString() + " holds no files."};
    const QString fresh = shell.run.WorkspaceRoot + memberListName;
    if (Result<void> written = shell.files.write(fresh, names); !written)
        return written;
    return shell.files.rename(fresh, withSeparator(folder) + memberListName);
}

void tellCpioError(const Shell& shell, const Failure& failure)
{
    (void)shell.tell(failure, [&](const QString& reason) {
        const QString error = Words::tr("CPIO Error");
        shell.prompts.ShowMessage(reason == error ? error : error + u"\n\n"_s + reason);
    });
}

void saveAssembled(const Shell& shell, const QString& made, const QString& folder)
{
    const QString proposed = folder + u"mess"_s;
    const QString chosen = SaveDialog(
        shell, folderPart(folder), Words::tr("Save assembled gfxboot as..."), namePart(proposed));
    if (chosen.isEmpty())
        return;
    if (chosen.compare(proposed, Qt::CaseInsensitive) == 0) {
        shell.prompts.ShowMessage(
            Words::tr(
                "The assembled gfxboot is kept until the program ends as\n%1\nChoose another name "
                "to save it.")
                .arg(made));
        return;
    }
    if (shell.told(shell.files.replaceWhole(made, chosen)))
        (void)shell.files.remove(made);
}

// One run of the streaming tool, which replaces `target`. What it ignored is told.
void streamTo(const Shell& shell, const QString& verb, const QString& file, const QString& target)
{
    const Result<void> ran =
        shell.tools.RunToolAndWait({shell.run.Tool7Zip, verb, file, target, u",0"_s});
    const QString said = shell.tools.lastErrorOutput();
    if (!ran || !FileExists(target))
        removeUnfinished(bytesOfPath(target).toStdString());
    if (!ran || said.startsWith("7zip_bridge: "_L1))
        (void)shell.tell(ran ? Failure{FailureKind::ToolFailed, said.toStdString()}
                             : ran.failure());
    else if (!said.isEmpty())
        shell.prompts.ShowMessage(said);
}

void unwrapBeside(const Shell& shell, const QString& file)
{
    constexpr qsizetype most = 128LL * 1024; // as many bytes as any header has
    const Result<QByteArray> start = readFront(file, most);
    if (!start) {
        (void)shell.told(start.failure());
        return;
    }
    const auto bytes = spanOf(*start);
    if (!isGzip(bytes)) {
        (void)shell.tell(
            {FailureKind::Malformed, shownPath(file).toStdString() + " is no gZip archive."});
        return;
    }
    const std::string stored = gzipStoredName(bytes);
    const std::string inner = gzipInnerName(stored, bytesOfPath(namePart(file)).toStdString());
    const QString target = folderPart(file) + pathOfBytes(QByteArray::fromStdString(inner));
    if (shortForm(target) == shortForm(file)) {
        (void)shell.tell(wouldReplaceItself(file));
        return;
    }
    if (!stored.empty() && gzipInnerName(stored, {}) != inner)
        shell.prompts.ShowMessage(
            Words::tr("The name inside, %1, cannot be used.\nThe contents are saved as "
                      "%2.")
                .arg(QString::fromStdString(printableName(stored)), shownPath(namePart(target))));
    if (mayReplace(shell, target, {}, Words::tr("Extract")))
        streamTo(shell, u"UNPK"_s, file, target);
}

} // namespace

void mnuEdit_Extract(const Shell& shell)
{
    const QString start = shell.run.GfxOpened ? folderPart(shell.run.GfxPath) : QDir::homePath();
    const QString archive =
        ask(shell, Words::tr("File open...."), Words::tr("All Files (*.*)|*.*|"), start);
    if (archive.isEmpty())
        return;
    const QString folder =
        shell.prompts.ChooseFolder(Words::tr("Specify the folder for gfxboot extracting"));
    if (folder.isEmpty())
        return;
    (void)shell.told(extractTo(shell, shortForm(archive), shortForm(folder)));
}

void mnuEdit_Assemble(const Shell& shell)
{
    if (!shell.toolThere(shell.run.ToolCpio))
        return;
    const QString chosen =
        shell.prompts.ChooseFolder(Words::tr("Specify the folder with gfxboot components"));
    if (chosen.isEmpty())
        return;
    const QString folder = shortForm(chosen);
    const QString list = withSeparator(folder) + memberListName;
    const bool listed = FileExists(list);
    if (!listed) {
        shell.prompts.ShowMessage(Words::tr("Additional Gfxboot info-file is absent.\n"
                                            "Will be assembled all the files from the folder\n"
                                            "Specified folder: ") +
                                  chosen);
        if (!shell.told(makeList(shell, folder)))
            return;
    }
    const QString made = shell.run.WorkspaceRoot + assembledName;
    const Result<void> assembled = CpioAssemble(shell, made, folder);
    if (assembled)
        return saveAssembled(shell, made, folder);
    if (!listed && assembled.failure().kind == FailureKind::Canceled)
        (void)shell.files.remove(list);
    tellCpioError(shell, assembled.failure());
}

void mnuT_GZip_Extract(const Shell& shell)
{
    const QString file =
        ask(shell, Words::tr("File open...."),
            Words::tr("gZip-files (*.gz)|*.gz|All files (*.*)|*.*|"), QDir::homePath());
    if (file.isEmpty() || !shell.toolThere(shell.run.Tool7Zip))
        return;
    unwrapBeside(shell, shortForm(file));
}

void mnuT_GZip_Pack(const Shell& shell)
{
    const QString file = ask(shell, Words::tr("File to compress...."),
                             Words::tr("All files (*.*)|*.*|"), QDir::homePath());
    if (file.isEmpty())
        return;
    const QString target = file + u".gz"_s;
    if (FileExists(target)) {
        shell.prompts.ShowMessage(Words::tr("File ") + file + Words::tr(".gz is already exist."));
        return;
    }
    if (shell.toolThere(shell.run.Tool7Zip))
        streamTo(shell, u"PACK"_s, shortForm(file), target);
}

} // namespace fennel
