// SPDX-License-Identifier: MIT
#include "tools/image_tool.h"

#include "base/tool_output.h"
#include "base/words.h"
#include "container/picture_limits.h"

#include <QBuffer>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString toolErrorMessage()
{
    return Words::tr("Perhaps nconvert error...");
}

// Of every picture that goes into a gfxboot; what is made for other uses says its own.
const QString jpegQuality = u"85"_s;

// The name with another ending; a name without one gets it.
QString withEnding(const QString& path, const QString& ending)
{
    // A dot in a folder's name is no ending.
    const qsizetype dot = path.lastIndexOf(u'.');
    const bool inName = dot > path.lastIndexOf(u'/');
    return (inName ? path.left(dot) : path) + ending;
}

// By canonical paths: a link to a file is that file.
bool isSameFile(const QString& one, const QString& other)
{
    return FileExists(one) && shortForm(one) == shortForm(other);
}

// Uncompressed, since it is read once and then removed.
Result<void> handOver(const Shell& shell, const QImage& picture)
{
    constexpr int noCompression = 100;
    if (Result<void> fits = checkPictureSize("The picture", picture.width(), picture.height());
        !fits)
        return fits;
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    if (!picture.save(&device, "png", noCompression))
        return Failure{FailureKind::Io, "The picture of the clipboard cannot be stored."};
    return shell.files.write(shell.run.WorkspaceRoot + clipboardHandoverName, bytes);
}

} // namespace

// The output is removed first: whether it is there afterwards is how the tool's work is judged.
Result<void> runPictureTool(const Shell& shell, const QStringList& arguments, const QString& output)
{
    if (Result<void> removed = shell.files.remove(output); !removed)
        return removed;
    Result<void> run = shell.tools.RunToolAndWait(QStringList{shell.run.ToolNConvert} + arguments +
                                                  QStringList{u",0"_s});
    if (!run) {
        dropOutput(shell.files, output);
        return run;
    }
    if (FileExists(output))
        return {};
    return Failure{FailureKind::ToolFailed, shell.tools.lastErrorOutput().toStdString()};
}

Result<void> runClipboardTool(const Shell& shell, const QStringList& arguments,
                              const PictureClipboard& clipboard)
{
    const QString output = shell.run.WorkspaceRoot + clipboardJpgName;
    const QImage picture = clipboard.picture();
    // An old output must not pass for the clipboard's picture.
    if (picture.isNull()) {
        Result<void> removed = shell.files.remove(output);
        return removed ? Failure{FailureKind::NotFound, {}} : removed;
    }
    Result<void> made = handOver(shell, picture);
    if (made)
        made = runPictureTool(shell, arguments, output);
    else
        (void)shell.files.remove(output);
    // It may be what the user copied in private; it does not stay on disk.
    (void)shell.files.remove(shell.run.WorkspaceRoot + clipboardHandoverName);
    return made;
}

Result<void> toldTool(const Shell& shell, const QString& text, const Result<void>& made)
{
    if (made)
        return made;
    return shell.tell(made.failure(), [&](const QString& reason) {
        shell.prompts.ShowMessage(reason.isEmpty() ? text : text + u'\n' + reason);
    });
}

bool BackToXpm(const Shell& shell)
{
    if (!FileExists(shell.run.BackFile))
        return false;
    // The tool's name is misspelled in all these lines; logs are searched by it.
    shell.WriteLog(u"      ncovert.back_2_XPM"_s);
    if (!shell.toolThere(shell.run.ToolNConvert))
        return false;
    const QString output = shell.run.WorkspaceRoot + splashXpmName;
    // 640 by 480 in 14 colours is all that a boot loader's splash picture can be; blurred, the few
    // colours look less coarse.
    const Result<void> made = runPictureTool(
        shell,
        {u"-overwrite"_s, u"-blur"_s, u"25"_s, u"-colors"_s, u"14"_s, u"-out"_s, u"xpm"_s,
         u"-resize"_s, u"640"_s, u"480"_s, u"-dpi"_s, u"72"_s, u"-o"_s, output, shell.run.BackFile},
        output);
    return toldTool(shell, toolErrorMessage(), made).ok();
}

bool XpmToGif(const Shell& shell)
{
    shell.WriteLog(u"      ncovert.XPM_2_JPG"_s);
    if (!shell.toolThere(shell.run.ToolNConvert))
        return false;
    const QString output = shell.run.WorkspaceRoot + splashGifName;
    const Result<void> made = runPictureTool(shell,
                                             {u"-overwrite"_s, u"-out"_s, u"gif"_s, u"-o"_s, output,
                                              shell.run.WorkspaceRoot + splashXpmName},
                                             output);
    return toldTool(shell, toolErrorMessage(), made).ok();
}

bool CreateJpg(const Shell& shell, const QString& file)
{
    shell.WriteLog(u"      ncovert.create_jpg: "_s + file);
    const QString target = withEnding(file, u".jpg"_s);
    // Never over a picture of the user's: it stands outside the Workspace.
    if (FileExists(target)) {
        shell.prompts.ShowMessage(Words::tr("Jpg file already exist!\n") + target);
        return false;
    }
    if (!shell.toolThere(shell.run.ToolNConvert))
        return false;
    const QString output = shell.run.WorkspaceRoot + convertedJpgName;
    const Result<void> made =
        runPictureTool(shell,
                       {u"-out"_s, u"jpeg"_s, u"-truecolors"_s, u"-q"_s, jpegQuality, u"-dpi"_s,
                        u"72"_s, u"-rexifthumb"_s, u"-rmeta"_s, u"-o"_s, output, shortForm(file)},
                       output);
    return toldTool(shell, toolErrorMessage(), made) &&
           shell.told(shell.files.rename(output, target)) && FileExists(target);
}

bool PictureFromClipboard(const Shell& shell, const PictureClipboard& clipboard)
{
    shell.WriteLog(u"      ncovert.Pict_from_Clipboard"_s);
    if (!shell.toolThere(shell.run.ToolNConvert))
        return false;
    const Result<void> made =
        runClipboardTool(shell,
                         {u"-out"_s, u"jpeg"_s, u"-overwrite"_s, u"-clipboard"_s, u"-q"_s,
                          jpegQuality, u"-dpi"_s, u"72"_s, u"-rexifthumb"_s, u"-rmeta"_s, u"-o"_s,
                          shell.run.WorkspaceRoot + clipboardJpgName},
                         clipboard);
    return toldTool(shell, emptyClipboardMessage(), made).ok();
}

Result<void> ResizeJpg(const Shell& shell, int width, int height, const QString& source,
                       const QString& target, const QStringList& more)
{
    shell.WriteLog(u"      ncovert.resize: "_s + source);
    if (Result<void> there = shell.toolThere(shell.run.ToolNConvert); !there)
        return there;
    Result<void> made = Failure{
        FailureKind::Unsupported,
        (Words::tr("A picture cannot be resized into its own file: ") + source).toStdString()};
    // The output is removed before the tool runs, which would be the end of the source.
    if (!isSameFile(source, target))
        made = runPictureTool(shell,
                              QStringList{u"-out"_s, u"jpeg"_s, u"-overwrite"_s} + more +
                                  QStringList{u"-resize"_s, QString::number(width),
                                              QString::number(height), u"-q"_s, jpegQuality,
                                              u"-dpi"_s, u"72"_s, u"-rexifthumb"_s, u"-rmeta"_s,
                                              u"-o"_s, target, source},
                              target);
    return toldTool(shell,
                    toolErrorMessage() +
                        Words::tr("\nNconvert is sensitive to certain characters in the path."
                                  "\nFor example \"#\", \"&\", \"$\""),
                    made);
}

void FileEditPlanned(const Shell& shell, const QString& name, const QString& folder)
{
    Q_UNUSED(folder)
    shell.prompts.ShowMessage(Words::tr("You want to change the size of the file: ") + name);
    shell.prompts.ShowMessage(Words::tr("Planned...Crop/Resize/Waterproof/Brightness\n"));
}

} // namespace fennel
