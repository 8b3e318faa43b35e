// SPDX-License-Identifier: MIT
// The words on a panel: which font, which lines, where each of them is printed. Drawing them is one
// call for each piece.
#pragma once

#include "fonts/font_table.h"
#include "screen/geometry.h"

#include <QFont>
#include <QStringList>

#include <functional>
#include <limits>
#include <vector>

namespace fennel {

// Whether an item of the button bar is seen, by its place in the bar's text (0 to 8).
using ButtonVisible = std::function<bool(int item)>;
// Shown width of a text in the panel's present font.
using MeasureText = std::function<double(QStringView text)>;

inline constexpr int allLines = std::numeric_limits<int>::max();
inline constexpr int buttonItems = 9;
inline const QString buttonBarText =
    QStringLiteral("F1|Help|F2|Language|English (UK)|F9|Reboot|F10|Poweroff");

// The key of gfxboot.cfg that hides the item if it is not "0"; empty for a number that is none.
QString hideKey(int item);
// Left edge in boot pixels. The F9 and F10 items stand at the right end of the bar.
int ButtonX(int item, int backWidth, const ButtonVisible& visible);
// "Hide F1 button" or "Show F1 button", for the items 1, 3, 5 and 7 of the pop-up menu; empty for
// any other.
QString onOffCaption(int item, bool visible);

// Text with further "|" where a line reaches or passes `limit` shown pixels. Lines break at blanks
// only: a word wider than the panel stands alone. Every line of the result ends in "|"; it has at
// least `mostLines` of them if the text has.
QString WrapPanelText(const QString& text, int limit, const MeasureText& measure,
                      int mostLines = allLines);

// The number of the font that stands in for `wanted`: 0 if that is out of range or has no name.
int usableFont(const FontTable& fonts, qint64 wanted);
// The record's font at the preview scale: max(5, size x scale) points of 96 to the inch whatever
// the screen, in whole pixels, so that the stage looks the same on all of them. Of `families`,
// those of the system, the nearest stands in for one that is not among them.
QFont panelFont(const FontRecord& record, const StageScale& scale, const QStringList& families);

struct TextPiece {
    QString text;
    QPoint at; // shown pixels in the panel, top left corner of the first character's cell
    QRgb colour = 0;
};

struct TextJob {
    int index = 0;   // row of PanelArr
    QString text;    // as the panel carries it
    QRgb colour = 0; // of the record; the button bar has its own
    double size = 0; // of the font's record: half of the line pitch's rule
    int spacing = 0; // MenuSlit on the menu panel, 0 on all others
    QPoint offset;   // of the first line, boot pixels
    int width = 0;   // of the panel, shown pixels
    int backWidth = 0;
    int height = 0; // of the panel, shown pixels; lines below need not be laid out. 0: all are
};
// What to print, empty lines left out. Line i stands at i x (size + 3 + spacing) boot pixels; the
// button bar has two rows and places of its own.
std::vector<TextPiece> layOutText(const TextJob& job, const StageScale& scale,
                                  const MeasureText& measure, const ButtonVisible& visible);

} // namespace fennel
