// SPDX-License-Identifier: MIT
// A font file looked into: a row for each character, and what a click on a row tells.
#pragma once

#include "fonts/fnt_codec.h"
#include "fonts/font_substitution.h"
#include "fonts/scan_fonts.h"

#include <QImage>

#include <optional>

namespace fennel {

inline constexpr int characterRow = 3; // rows 0 to 2 tell of the file

// A glyph of 255 x 255 pixels has less than half as many bytes; wrong offsets could ask for more.
inline constexpr int shownGlyphBytes = 65536;

// Rows 0 and 1: the file's name and what its header says.
void startInspection(FontInspection& inspection, const QString& name, const QByteArray& file);
// Row 2 and the character rows; remembers the glyphs' places.
void listCharacters(FontInspection& inspection, const QByteArray& file, qint64 fileLength);

// The text of a character row, by the bytes of the file.
QString characterRowText(const QByteArray& file, int index);

// The bytes of glyph `index`, from 1 on, in hexadecimal: up to the next glyph's place, those of the
// last up to the end of the file, so that they hold the tag. The file is read again; what is gone
// meanwhile reads as zeros. "---" for an index that no glyph has.
QString GetChrBitmap(FontInspection& inspection, const RunState& run, int index);

struct CharacterView {
    QString message;            // the text of the message box
    std::optional<Glyph> glyph; // none if the row is no character or its bits do not decode
    FntHeader header;           // of the same file
};

// A click on a row of the list, counted from 0. Rows that stand for no character show "---".
CharacterView clickOnCharacter(FontInspection& inspection, const RunState& run, int row);

// What the list tells on the other mouse buttons: plans that are not built yet.
QString rightClickText(int row);
QString middleClickText();

// The glyph drawn large, `zoom` screen pixels for one of its own, black ink on white: the font's
// box and the ink outside of it, grey lines for the box, a blue one under the baseline, red ones at
// the pen before and after. Never null.
QImage glyphPicture(const Glyph& glyph, const FntHeader& header, int zoom);

// What the panel "Font INFO" shows.
struct FontSample {
    QString text;
    FontRecord record; // with the installed family that stands in
    ShownFamily face;
};

// `row` counts from 1; a number that is no row shows record 0. `families`: those of the system. A
// family that stands in for a missing one is named between the heading and the sample sentence.
FontSample fontSample(const FontState& fonts, int row, const QStringList& families);

// Double click or Enter on a row of the list of fonts.
struct OpenInspection {
    QString message;   // shown instead, if not empty
    QString component; // the file to look into; empty: nothing happens
};
// For a double click on a font member; an empty name opens nothing.
OpenInspection openInspection(const RunState& run, const QString& name);

} // namespace fennel
