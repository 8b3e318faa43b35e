// SPDX-License-Identifier: MIT
// The fonts of the open gfxboot: the table by which the preview draws text, the rows of the list
// "Font(s)", and the contents of one font file as text rows.
#pragma once

#include "base/run_state.h"
#include "fonts/font_table.h"
#include "params/list_rows.h"

#include "base/files.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace fennel {

inline constexpr double pointsPerInch = 72.0;
inline constexpr int firstFontNumber = 100;
inline constexpr int lastFontNumber = firstFontNumber + lastMemberNumber;

// Only this much of a file is read: the format's limit and room for a long tag.
inline constexpr qint64 fontReadLimit = 1024 * 1024;

// "16x16.fnt" for 100, "16x16_07.fnt" for 107.
QString fontFileName(int fontNumber);

// The contents of one font file, as they were at the last scan that asked for it.
struct FontInspection {
    QStringList List1;            // rows of text; the character rows begin with row 3
    std::vector<int> FontOffsets; // of the glyphs; behind the last the length of the file
    QByteArray FontBytes;         // what was read for it
    QString component;            // the file's name
};

struct FontState {
    FontTable table = FontTable(fontCount);
    ListRows rows;           // the list "Font(s)"
    QString FontVersionText; // on the last file scanned
    int FontNumber = firstFontNumber;
    FontInspection inspection;
};

// What the scan takes from the rest of the program.
struct FontScanSettings {
    QString defaultFontName; // the family for fonts whose file names none; may be empty
    int logPixelsY = 96;     // dots per inch of the display
};

inline constexpr int keepInspection = -1; // for ScanFonts: only clear its rows
inline constexpr int fillInspection = 0;

// Rebuilds table and rows from the Workspace, in font number order. With `mode` fillInspection the
// file `name` also fills the inspection; its rows are cleared by every scan. Files that cannot be
// read count as not there. Damage is not diagnosed: what a file lacks reads as zero.
void ScanFonts(FontState& fonts, const RunState& run, const FontScanSettings& settings,
               const QString& name, int mode);

// Adds a row to the list of fonts and returns its number, from 1. Blanks at the ends of the columns
// go. Without `iconFile` the row has the list's ordinary icon; without `colour` it is near black.
int AddFontInfoRow(FontState& fonts, const QString& column1, const QString& column2,
                   const QString& column3, const QString& iconFile = {}, QRgb colour = 0);

} // namespace fennel
