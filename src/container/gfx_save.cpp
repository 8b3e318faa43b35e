// SPDX-License-Identifier: MIT
#include "container/gfx_save.h"

#include "base/words.h"
#include "container/archive_tools.h"
#include "container/member_list.h"
#include "container/member_table.h"

#include <QDir>

#include <libdeflate.h>

namespace fennel {

namespace {

QString canceled()
{
    return Words::tr("Canceled by user");
}
const QString archiveName = QStringLiteral("#message");

QString targetOf(const RunState& run)
{
    return folderPart(run.GfxPath) + run.GfxFileName;
}

// The file to deliver, built in the Workspace.
Result<QString> buildMessage(const Shell& shell)
{
    const QString& folder = shell.run.Workspace;
    const QString archive = folder + archiveName;
    if (Result<void> assembled = CpioAssemble(shell, archive, folder); !assembled)
        return assembled.failure();
    if (!shell.run.GfxIsGz)
        return archive;
    Result<QString> packed = SevenZipPack(shell, archive, folder, {});
    if (!packed)
        (void)shell.files.remove(archive);
    return packed;
}

// Puts the built file in its place. It stays in the Workspace if that fails.
Result<void> deliver(const Shell& shell)
{
    const Result<QString> built = buildMessage(shell);
    if (!built)
        return built.failure();
    const QString target = targetOf(shell.run);
    // The user's file is touched only here, when the new one is complete.
    if (Result<void> moved = shell.files.replaceWhole(*built, target); !moved)
        return moved;
    (void)shell.files.remove(*built);
    return {};
}

// By what it holds: times and numbers of a stick's file change without a hand laid on it.
bool mayReplaceChanged(const Shell& shell)
{
    const FileMark& was = shell.run.GfxMark;
    const QString target = targetOf(shell.run);
    const FileMark now = was.path == target ? markOf(target) : FileMark();
    if (now.path.isEmpty() || (now.size == was.size && now.checksum == was.checksum))
        return true;
    return shell.prompts.ShowMessage(
               Words::tr("%1 was changed by another program since it was opened here.\n"
                         "Do you want to replace it with your version?")
                   .arg(target),
               MessageType::YesNo, Words::tr("Gfxboot Save")) == Answer::Yes;
}

void tellNotSaved(const Shell& shell, const Failure& failure)
{
    (void)shell.tell(failure, [&](const QString& reason) {
        shell.prompts.ShowMessage(Words::tr("%1 was not saved. The old file is as it was.\n\n%2")
                                      .arg(shell.run.GfxFileName, reason),
                                  MessageType::Stop, Words::tr("ERROR"));
    });
}

struct SaveTarget {
    QString folder; // ends in "/"
    QString name;
    bool compress = false;
};

std::optional<SaveTarget> askTarget(const Shell& shell)
{
    const RunState& run = shell.run;
    const bool hasFile = run.GfxFileName != unsavedGfxName && FileExists(run.GfxPath);
    const QString start = hasFile ? folderPart(run.GfxPath) : QDir::homePath();
    const QString path = SaveDialog(shell, start, {}, proposedCopyName(run.GfxFileName));
    if (path.isEmpty())
        return std::nullopt;
    const Answer answer =
        shell.prompts.ShowMessage(Words::tr("FENNEL-GFX is able to compress the resulting \n"
                                            "file in a gZip archive.\n"
                                            "\n"
                                            "To do this?"),
                                  MessageType::YesNoCancel, Words::tr("Saving As..."));
    if (answer == Answer::Cancel)
        return std::nullopt;
    const bool compress = answer == Answer::Yes;
    const SaveTarget target{folderPart(path), savedName(namePart(path), compress), compress};
    return mayReplace(shell, target.folder + target.name, path, Words::tr("Saving As..."))
               ? std::optional(target)
               : std::nullopt;
}

// Makes the run state and a copy of the Workspace that belong to the target.
// The copy comes first: if it fails, the run state still describes the old Workspace.
bool adoptTarget(const Shell& shell, const SaveTarget& target, const QString& workspace)
{
    RunState& run = shell.run;
    if (workspace != run.Workspace && !shell.told(shell.files.copyFolder(run.Workspace, workspace)))
        return false;
    run.GfxIsGz = target.compress;
    run.GfxFileName = target.name;
    run.GfxPath = target.folder + target.name;
    run.Workspace = workspace;
    run.BackFile = workspace + mainBackName;
    return true;
}

} // namespace

FileMark markOf(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    if (!bytes)
        return {};
    return {path, bytes->size(),
            libdeflate_crc32(0, bytes->constData(), static_cast<std::size_t>(bytes->size()))};
}

QString proposedCopyName(const QString& name)
{
    // Up to the first point, so "message.gz" and "message" both propose "messageNew".
    const qsizetype point = name.indexOf(QLatin1Char('.'));
    return (point < 0 ? name : name.left(point)) + QStringLiteral("New");
}

QString savedName(const QString& chosen, bool compress)
{
    QString name = chosen;
    // The name goes into the command lines of tools, whose parts are separated by blanks.
    name.replace(QLatin1Char(' '), QLatin1Char('_'));
    if (compress)
        name += QStringLiteral(".gz");
    // Whoever typed ".gz" and said yes to compressing gets one ending.
    return name.replace(QStringLiteral(".gz.gz"), QStringLiteral(".gz"));
}

QString SaveDialog(const Shell& shell, const QString& folder, const QString& title,
                   const QString& proposedName)
{
    FileQuestion question;
    question.folder = folder.isEmpty() ? shell.run.AppPath : folder;
    question.title = title.isEmpty() ? Words::tr("Save gfxboot As...") : title;
    question.filter = Words::tr("All Files (*.*)|*.*|");
    question.proposedName = proposedName;
    QString path = shell.prompts.saveFile(question);
    // Told, so that nobody takes a closed dialog for a save.
    if (path.isEmpty())
        shell.prompts.ShowMessage(canceled());
    return path;
}

bool mayReplace(const Shell& shell, const QString& path, const QString& chosen,
                const QString& title)
{
    return path == chosen || !FileExists(path) ||
           shell.prompts.ShowMessage(
               Words::tr("File %1 already exists.\nDo you want to replace it?").arg(path),
               MessageType::YesNo, title) == Answer::Yes;
}

// Tools and list are looked for before the parameters are written, so a save that cannot work
// changes no member.
bool GfxSave(const Shell& shell, const WriteParameters& writeParameters)
{
    if (!shell.toolThere(shell.run.ToolCpio))
        return false;
    // With nothing open there is no Workspace, and the current folder may have such a list.
    if (shell.run.Workspace.isEmpty() || !FileExists(shell.run.Workspace + memberListName)) {
        shell.prompts.ShowMessage(Words::tr("Gfxboot info is lost!"));
        return false;
    }
    if (!mayReplaceChanged(shell) || !writeParameters())
        return false;
    const Result<void> done = deliver(shell);
    if (done)
        shell.run.GfxMark = markOf(targetOf(shell.run));
    else
        tellNotSaved(shell, done.failure());
    return done.ok();
}

bool GfxSaveAs(const Shell& shell, const WriteParameters& writeParameters)
{
    const std::optional<SaveTarget> target = askTarget(shell);
    if (!target)
        return false;
    RunState& run = shell.run;
    const RunState before = run;
    const QString workspace = workspaceOf(run, target->name);
    // What was once opened under this name must not mix with the copy.
    const bool known = workspace != run.Workspace && FolderExists(workspace);
    const QString aside = run.WorkspaceRoot + QStringLiteral("~undo_folder");
    if (known && (!shell.told(shell.files.removeFolder(aside)) ||
                  !shell.told(shell.files.rename(workspace, aside))))
        return false;
    if (adoptTarget(shell, *target, workspace) && GfxSave(shell, writeParameters)) {
        if (known)
            (void)shell.files.removeFolder(aside);
        return true;
    }
    // A save that fails leaves the run on its old file. The rest stays: a stick may have gone while
    // the message was shown.
    run.GfxIsGz = before.GfxIsGz;
    run.GfxFileName = before.GfxFileName;
    run.GfxPath = before.GfxPath;
    run.Workspace = before.Workspace;
    run.BackFile = before.BackFile;
    if (workspace != run.Workspace)
        (void)shell.files.removeFolder(workspace);
    if (known)
        (void)shell.told(shell.files.rename(aside, workspace));
    return false;
}

// Asked only here: edits are not tracked, and closing asks nothing.
bool mayReOpen(const Shell& shell)
{
    const QString& path = shell.run.GfxPath;
    if (!FileExists(path)) {
        shell.prompts.ShowMessage(Words::tr("File %1 is lost!\nMaybe your drive %2 was unplugged.")
                                      .arg(path, path.left(2)));
        return false;
    }
    const Answer answer =
        shell.prompts.ShowMessage(Words::tr("Your changes will be lost.\nContinue?"),
                                  MessageType::YesNo, Words::tr("Gfxboot ReOpen"));
    if (answer != Answer::Yes)
        shell.prompts.ShowMessage(canceled());
    return answer == Answer::Yes;
}

} // namespace fennel
