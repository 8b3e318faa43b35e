// SPDX-License-Identifier: MIT
#include "tools/image_commands.h"

#include "base/text.h"
#include "base/words.h"
#include "container/gfx_save.h"
#include "tools/picture_import.h"
#include "tools/picture_shape.h"

#include <QDir>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString canceledMessage()
{
    return Words::tr("Canceled by user");
}

// On Windows the name has a blank at its end, which the file system there drops.
const QString resizedName = u"tmp.jpg"_s;

QString pictureOrMessage(const Shell& shell, const QString& filter)
{
    QString file = askForPicture(shell, filter);
    if (file.isEmpty())
        shell.prompts.ShowMessage(canceledMessage());
    return file;
}

// A length in pixels, a signed 16-bit number. No answer counts as `none`.
int askForLength(const Shell& shell, const QString& text, const QString& proposed, int none)
{
    constexpr double least = -32768;
    constexpr double most = 32767;
    const std::optional<QString> answer = shell.prompts.input(text, {}, proposed);
    // Clamped before it is rounded, as any number may be typed.
    return answer ? roundToEven(std::clamp(leadingNumber(*answer), least, most)) : none;
}

QString resizedMessage()
{
    return Words::tr("The resulting image is placed in the Clipboard\n"
                     "You can:\n"
                     "1. Save the clipboard as jpg-file\n"
                     "   Tools/NConvert/Save Clipboard as jpg...\n"
                     "2. Or set it as background \n"
                     "   Edit/Set Clipboard as background");
}

int numberOf(const QString& text)
{
    constexpr double most = 32767;
    return roundToEven(std::clamp(leadingNumber(text), 0.0, most));
}

// From the file and not from memory, so the clipboard has what the tool made of it.
void toClipboard(const Shell& shell, PictureClipboard& clipboard, const QString& output)
{
    const Result<FilePicture> picture = shell.readPicture({output});
    if (!picture) {
        shell.prompts.ShowMessage(namePart(output) + Words::tr(" cannot be loaded."));
        return;
    }
    clipboard.setPicture(picture->image);
    shell.prompts.ShowMessage(resizedMessage());
    // The commands that use the clipboard's picture look for it under this name.
    shell.told(shell.files.rename(output, shell.run.WorkspaceRoot + clipboardJpgName));
}

} // namespace

void mnuT_NConvert_Clipboard(const Shell& shell, const PictureClipboard& clipboard)
{
    QString chosen = SaveDialog(shell, QDir::homePath(), Words::tr("Save Clipboard image as..."),
                                clipboardJpgName);
    if (chosen.isEmpty())
        return;
    // The dialog does not add the ending by itself on every desktop.
    const QString answer = chosen;
    if (!chosen.endsWith(u".jpg"_s, Qt::CaseInsensitive))
        chosen += u".jpg"_s;
    if (!shell.toolThere(shell.run.ToolNConvert) ||
        !mayReplace(shell, chosen, answer, Words::tr("Save Clipboard image as...")))
        return;
    const QString output = shell.run.WorkspaceRoot + clipboardJpgName;
    // Other than PictureFromClipboard() on purpose: a little smaller.
    const Result<void> made =
        runClipboardTool(shell,
                         {u"-out"_s, u"jpeg"_s, u"-overwrite"_s, u"-clipboard"_s, u"-q"_s, u"80"_s,
                          u"-dpi"_s, u"72"_s, u"-rexifthumb"_s, u"-o"_s, output},
                         clipboard);
    // Over a work file, so a file of the user's is only replaced by a whole picture.
    if (toldTool(shell, emptyClipboardMessage(), made) &&
        shell.told(shell.files.replaceWhole(output, chosen)))
        shell.told(shell.files.remove(output));
}

void mnuT_NConvert_Convert(const Shell& shell)
{
    const QString file = pictureOrMessage(
        shell, Words::tr("NonJPG Files |*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;*.jpeg;*.ico|"));
    if (!file.isEmpty())
        CreateJpg(shell, file);
}

void mnuT_NConvert_Crop(const Shell& shell, PictureClipboard& clipboard)
{
    const QString file = pictureOrMessage(shell, Words::tr("jpg-files (*.jpg)|*.jpg|"));
    if (file.isEmpty())
        return;
    const std::optional<QSize> size = uprightSize(shell, file);
    const std::optional<QString> typed = shell.prompts.input(
        Words::tr("Left, top, width and height of the part to keep, in pixels:"),
        Words::tr("Crop picture"),
        size ? u"0 0 %1 %2"_s.arg(size->width()).arg(size->height()) : u"0 0 800 600"_s);
    const QStringList numbers =
        typed.value_or(QString()).replace(u',', u' ').simplified().split(u' ', Qt::SkipEmptyParts);
    constexpr qsizetype needed = 4;
    const int width = numberOf(numbers.value(2));
    const int height = numberOf(numbers.value(3));
    if (numbers.size() != needed || width < 1 || height < 1) {
        shell.prompts.ShowMessage(canceledMessage());
        return;
    }
    const QString output = shell.run.WorkspaceRoot + resizedName;
    if (ResizeJpg(shell, width, height, file, output, QStringList(u"-crop"_s) + numbers))
        toClipboard(shell, clipboard, output);
}

void mnuT_NConvert_Resize(const Shell& shell, PictureClipboard& clipboard)
{
    const QString file = pictureOrMessage(shell, Words::tr("jpg-files (*.jpg)|*.jpg|"));
    if (file.isEmpty())
        return;
    const int width = askForLength(shell, Words::tr("Enter new width (0=Cancel)"), u"800"_s, 0);
    // Not asked if the width was cancelled.
    const int height =
        width < 1 ? -1
                  : askForLength(shell, Words::tr("Enter new height (0=Cancel)"), u"600"_s, -1);
    // A height of 0 goes on: it follows from the width.
    if (width < 1 || height < 0) {
        shell.prompts.ShowMessage(canceledMessage());
        return;
    }
    const QString output = shell.run.WorkspaceRoot + resizedName;
    if (!ResizeJpg(shell, width, height, file, output))
        return;
    toClipboard(shell, clipboard, output);
}

} // namespace fennel
