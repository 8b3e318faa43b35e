// SPDX-License-Identifier: MIT
#include "container/archive_commands.h"

#include "base/file_steps.h"
#include "container/archive_tools.h"
#include "container/gfx_save.h"
#include "container/member_list.h"
#include "container/member_name.h"
#include "container/staging.h"

#include <QDir>
#include <QFile>

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
        const QString name = QFile::decodeName(bytes);
        if (QFile::encodeName(name) != bytes)
            continue;
        if (Result<void> put = steps.replace(from + name, to + name); !put)
            return put;
    }
    // What is left has names in an unknown code page. It goes last, as there is no way back for it.
    Result<void> moved = shell.files.moveFiles(staging, target);
    if (moved)
        steps.keep();
    return moved;
}

Failure wouldReplaceItself(const QString& archive)
{
    return {FailureKind::Unsupported, archive.toStdString() +
                                          " holds a file of its own name and would be replaced by "
                                          "it. Choose another folder."};
}

bool holds(const QString& staging, const QString& target, const QString& archive)
{
    return shortForm(withSeparator(target) + namePart(archive)) == shortForm(archive) &&
           FileExists(withSeparator(staging) + namePart(archive));
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
    return deliver(shell, staging.path(), folder);
}

// "#.lst" of all files but the bridges' own.
Result<void> makeList(const Shell& shell, const QString& folder)
{
    QByteArray names;
    for (const QByteArray& name : plainFiles(folder)) {
        if (!isWorkingFile(name.toStdString()))
            names += name + "\r\n";
    }
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
        const QString error = u"CPIO Error"_s;
        shell.prompts.ShowMessage(reason == error ? error : error + u"\n\n"_s + reason);
    });
}

void saveAssembled(const Shell& shell, const QString& made, const QString& folder)
{
    const QString proposed = folder + u"mess"_s;
    const QString chosen = SaveDialog(shell, folderPart(folder), u"Save assembled gfxboot as..."_s,
                                      namePart(proposed));
    if (chosen.isEmpty())
        return;
    if (chosen.compare(proposed, Qt::CaseInsensitive) == 0) {
        shell.prompts.ShowMessage(
            u"The assembled gfxboot is kept until the program ends as\n%1\nChoose another name "
            "to save it."_s.arg(made));
        return;
    }
    if (shell.told(shell.files.replaceWhole(made, chosen)))
        (void)shell.files.remove(made);
}

Result<void> unwrapBeside(const Shell& shell, const QString& file)
{
    const Staging staging(shell, u"#unwrap"_s);
    if (Result<void> made = staging.made(); !made)
        return made;
    const Result<QString> name = SevenZipExtract(shell, file, staging.path());
    if (!name)
        return name.failure();
    if (name->isEmpty())
        return Failure{FailureKind::Malformed, file.toStdString() + " is no gZip archive."};
    const QString folder = folderPart(file);
    for (const QByteArray& bytes : plainFiles(staging.path())) {
        const QString made = QFile::decodeName(bytes);
        if (made != *name && made.startsWith(u'#')) {
            // A tool's report that stayed would go to the user's folder with the contents.
            if (Result<void> gone = shell.files.remove(withSeparator(staging.path()) + made); !gone)
                return gone;
        } else if (shortForm(folder + made) == shortForm(file)) {
            return wouldReplaceItself(file);
        } else if (!mayReplace(shell, folder + made, {}, u"Extract"_s)) {
            return {};
        }
    }
    return deliver(shell, staging.path(), folder);
}

} // namespace

void mnuEdit_Extract(const Shell& shell)
{
    const QString start = shell.run.GfxOpened ? folderPart(shell.run.GfxPath) : QDir::homePath();
    const QString archive = ask(shell, u"File open...."_s, u"All Files (*.*)|*.*|"_s, start);
    if (archive.isEmpty())
        return;
    const QString folder =
        shell.prompts.ChooseFolder(u"Specify the folder for gfxboot extracting"_s);
    if (folder.isEmpty())
        return;
    (void)shell.told(extractTo(shell, shortForm(archive), shortForm(folder)));
}

void mnuEdit_Assemble(const Shell& shell)
{
    if (!shell.toolThere(shell.run.ToolCpio))
        return;
    const QString chosen =
        shell.prompts.ChooseFolder(u"Specify the folder with gfxboot components"_s);
    if (chosen.isEmpty())
        return;
    const QString folder = shortForm(chosen);
    const QString list = withSeparator(folder) + memberListName;
    const bool listed = FileExists(list);
    if (!listed) {
        shell.prompts.ShowMessage(u"Additional Gfxboot info-file is absent.\n"
                                  "Will be assembled all the files from the folder\n"
                                  "Specified folder: "_s +
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
    const QString file = ask(shell, u"File open...."_s,
                             u"gZip-files (*.gz)|*.gz|All files (*.*)|*.*|"_s, QDir::homePath());
    if (file.isEmpty() || !shell.toolThere(shell.run.Tool7Zip))
        return;
    (void)shell.told(unwrapBeside(shell, shortForm(file)));
}

void mnuT_GZip_Pack(const Shell& shell)
{
    const QString file =
        ask(shell, u"File to compress...."_s, u"All files (*.*)|*.*|"_s, QDir::homePath());
    if (file.isEmpty())
        return;
    const QString target = file + u".gz"_s;
    if (FileExists(target)) {
        shell.prompts.ShowMessage(u"File "_s + file + u".gz is already exist."_s);
        return;
    }
    const Result<QString> packed =
        SevenZipPack(shell, shortForm(file), shell.run.WorkspaceRoot, {});
    if (!packed) {
        (void)shell.tell(packed.failure());
        return;
    }
    (void)shell.told(shell.files.replaceWhole(*packed, target));
    (void)shell.files.remove(*packed);
}

} // namespace fennel
