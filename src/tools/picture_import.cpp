// SPDX-License-Identifier: MIT
#include "tools/picture_import.h"

#include "base/text.h"
#include "base/words.h"
#include "container/picture_size.h"
#include "tools/image_tool.h"

#include <QStandardPaths>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

QString picturesFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return FolderExists(pictures) ? pictures : QString();
}

QString askForPicture(const Shell& shell, const QString& filter)
{
    FileQuestion question;
    question.folder = picturesFolder();
    question.title = Words::tr("File open....");
    question.filter = filter;
    question.picture = true;
    return shell.prompts.openFile(question);
}

bool importPicture(const Shell& shell, FileSteps& steps, const QString& source, QSize size,
                   const QString& target, const QStringList& more)
{
    // Beside the Workspace, so that a half-made picture is never a member.
    const QString made = shell.run.WorkspaceRoot + namePart(target);
    if (!ResizeJpg(shell, size.width(), size.height(), source, made, more))
        return false;
    if (shell.told(steps.replace(made, target)))
        return true;
    (void)shell.files.remove(made);
    return false;
}

std::optional<QSize> knownSize(const Shell& shell, const QString& path)
{
    const Result<QSize> size = pictureSize(shell, path);
    if (size)
        return *size;
    (void)shell.told(size.failure());
    return std::nullopt;
}

bool resizeAll(const Shell& shell, const QString& pattern, QSize size, const QStringList& more)
{
    const QString& folder = shell.run.Workspace;
    const QString& side = shell.run.WorkspaceRoot;
    const QStringList names = filesLike(folder, pattern);
    // All are made before the first member changes: a broken one among them stops the command here.
    bool good = std::all_of(names.begin(), names.end(), [&](const QString& name) {
        return ResizeJpg(shell, size.width(), size.height(), folder + name, side + name, more).ok();
    });
    FileSteps steps(shell);
    good = good && std::all_of(names.begin(), names.end(), [&](const QString& name) {
               return shell.told(steps.replace(side + name, folder + name));
           });
    if (good)
        steps.keep();
    else
        for (const QString& name : names)
            (void)shell.files.remove(side + name);
    return good;
}

QString nextNumber(const Shell& shell, const QStringList& rows, const QString& pattern,
                   const QString& apart, int first)
{
    constexpr qsizetype numberAndEnding = 6; // "07.jpg"
    int number = first;
    for (const QString& row : rows) {
        if (row.compare(apart, Qt::CaseInsensitive) == 0 || !fitsPattern(row, pattern))
            continue;
        const int taken = roundToEven(leadingNumber(row.right(numberAndEnding)));
        // Counted from 100, so that the last two digits are the number with its leading zero.
        number = std::max(number, taken + 100) + 1;
    }
    if (number <= 100 + lastMemberNumber)
        return QString::number(number).right(2);
    shell.prompts.ShowMessage(Words::tr("There is no free number left for a new file ") + pattern);
    return {};
}

} // namespace fennel
