// SPDX-License-Identifier: MIT
// The command lines of the picture tool (ToolNConvert), one routine for each way in which it is
// used. The editor itself decodes and scales no picture here: a file that breaks a decoder ends the
// tool and not the editor.
//
// A routine removes an old output before the run and judges the run by the file that is there
// afterwards. What the tool said on standard error is put below the message.
#pragma once

#include "base/shell_context.h"
#include "base/words.h"

#include <QImage>
#include <QString>
#include <QStringList>

namespace fennel {

// The clipboard of the window system, or a test's own.
class PictureClipboard {
public:
    virtual ~PictureClipboard() = default;
    [[nodiscard]] virtual QImage picture() const = 0; // null if it holds none
    // Replaces whatever the clipboard holds.
    virtual void setPicture(const QImage& picture) = 0;
};

// Work files, all directly in WorkspaceRoot.
inline const QString splashXpmName = QStringLiteral("~splash.xpm");
inline const QString splashGifName = QStringLiteral("~splash.gif");
inline const QString convertedJpgName = QStringLiteral("~jpg.jpg");
inline const QString clipboardJpgName = QStringLiteral("Clipboard.jpg");
// How a picture of the clipboard reaches the tool, which has no window to ask for it: the option
// -clipboard reads this file in the folder of its output. It is removed after the run.
inline const QString clipboardHandoverName = QStringLiteral("~clipboard.png");

// The shown background as a splash image: XPM, 640x480, at most 14 colours. Without a background
// nothing happens, no log line either.
bool BackToXpm(const Shell& shell);
// The splash image as a GIF for viewing.
bool XpmToGif(const Shell& shell);
// A JPEG beside the picture `file`, under its name with the ending "jpg"; an existing one is kept
// and the user told. The source stays.
bool CreateJpg(const Shell& shell, const QString& file);
// The clipboard's picture as Clipboard.jpg.
bool PictureFromClipboard(const Shell& shell, const PictureClipboard& clipboard);
// The picture `source` as a JPEG of width x height pixels; a height of 0 keeps the proportions.
// Source and target must be two files. Failures are told.
// `more` are further options of the tool.
Result<void> ResizeJpg(const Shell& shell, int width, int height, const QString& source,
                       const QString& target, const QStringList& more = {});
// A command that is planned and only says so. An empty folder means the Workspace.
void FileEditPlanned(const Shell& shell, const QString& name, const QString& folder);

// Removes an old `output` and runs the tool with `arguments` and the suffix ",0" behind them. After
// a success the output is there and new; after a failure, whose text may be empty, there is none.
Result<void> runPictureTool(const Shell& shell, const QStringList& arguments,
                            const QString& output);

// The same for a command line with -clipboard: hands the clipboard's picture over before the run.
Result<void> runClipboardTool(const Shell& shell, const QStringList& arguments,
                              const PictureClipboard& clipboard);

// Tells a failure as this message, with its reason in a line below, and passes it on.
Result<void> toldTool(const Shell& shell, const QString& text, const Result<void>& made);

inline QString emptyClipboardMessage()
{
    return Words::tr("Perhaps the Clipboard is empty or contains no image data.");
}

} // namespace fennel
