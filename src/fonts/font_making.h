// SPDX-License-Identifier: MIT
// The commands "change FONT" and "add FONT": the font tool's run, the tag behind its output, the
// place of the new file in the Workspace. The old font stays until the new one is whole.
#pragma once

#include "base/shell_context.h"
#include "fonts/char_sets.h"
#include "fonts/font_dialog.h"
#include "fonts/scan_fonts.h"

#include <functional>
#include <optional>

namespace fennel {

// Where the tool's output lies until it has got its place: #.#nt in the Workspace, if no member is
// called so. The first font that was replaced stays there as #16x16.#nt likewise.
QString newFontFile(const Shell& shell);

// What the dialog begins with.
struct FontDialogStart {
    QString title;
    QString FontStyleName; // family and style words of the font under edit
    double size = 14;      // points
    int wholeSize = 14;    // for the control that counts in whole points
    int mostPoints = 191;  // the largest size that can be made; as given, at 96 dots per inch
    int logPixelsY = 96;
};

// The size of the em square that a font of so many points is made in.
int fontPixels(double points, int logPixelsY);

// The largest whole size in points that makes at most fntLargestSize pixels.
int mostFontPoints(int logPixelsY);

// What the dialog opens with for a row of the font list, counted from 1; a row that is not there
// has the first font's record.
FontDialogStart fontDialogStart(const FontState& fonts, int row, bool AddFontMode, int logPixelsY);

// The argument list for the font tool: tool, ranges with "_" between them, the file's name without
// its last four characters or its whole path, the size in pixels (points by LOGPIXELSY, ties to
// even), the three spacings, the output's path, ",0".
QStringList fontMakerCommand(const Shell& shell, const CharSelected& set, const FontChoice& choice,
                             int logPixelsY);

// The name for one more font: behind the numbers of the list's rows, gaps are not filled. Empty if
// that would leave two digits.
QString nextFontName(const ListRows& fontRows);

// Runs the tool and puts the tag behind its output. On success a font with at least one character
// stands as newFontFile. NotFound: its character set is empty (the file is left,
// without use); any other kind: no file, and the reason.
Result<void> BuildFont(const Shell& shell, const CharSelected& set, const FontChoice& choice,
                       int logPixelsY);

// What the commands ask from the window.
struct FontCommand {
    int row = 0; // selected in the list of fonts, from 1
    bool AddFontMode = false;
    int logPixelsY = 96;
    // Shows the dialog; nothing if it was cancelled.
    std::function<std::optional<FontChoice>(const FontDialogStart&)> askUser;
    // The set of characters, read after the dialog.
    std::function<const CharSelected&()> characters;
};

struct FontChange {
    FontChoice choice;
    QString component; // the member that holds the new font; empty: left as newFontFile
};

// The whole command with its messages. Nothing: cancelled or failed; then every member is as it
// was. A font under a name that was in no list is a member now. Afterwards the caller refills the
// lists, scans the fonts and, with GfxHasCfg, shows the panels 0 to 3 in the new font.
std::optional<FontChange> ChangeFont(const Shell& shell, const FontState& fonts,
                                     const FontCommand& command);

} // namespace fennel
