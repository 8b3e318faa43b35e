// SPDX-License-Identifier: MIT
// The set of characters that a new font is to hold, and its texts.
#pragma once

#include "base/result.h"

#include <QByteArray>
#include <QString>

#include <bitset>

namespace fennel {

inline constexpr int characterCount = 65536;    // U+0000 to U+FFFF
inline constexpr int lastFixedCharacter = 0x9F; // codes up to here cannot be toggled by hand

// One flag for each code.
using CharSelected = std::bitset<characterCount>;

// What a run of the program begins with: Latin and Cyrillic.
CharSelected startingCharacters();

// The set that a text lists; char_ranges.h has the grammar. Malformed: a number outside the 65,536
// codes; the caller keeps the set it had.
Result<CharSelected> ParseCharacterRanges(const QString& text);

// What a user types: code numbers such as "0x41-0x5A", "U+104" or "1040", runs such as "a-z", and
// letters as they are, with blanks or commas between. Malformed as above.
Result<CharSelected> typedCharacters(const QString& text);

// The set as text, such as "0x20-0x7E 0x410-0x451"; empty for an empty set. U+0000 never appears.
QString FormatCharacterRanges(const CharSelected& set);

// Every selected character but U+0000, a blank before each. Halves of surrogate pairs stand alone.
QString selectedCharacters(const CharSelected& set);

// A letter from A to Z, in either case, is selected.
bool hasLatin(const CharSelected& set);

// Inverts the flag of a code above lastFixedCharacter; others keep theirs. True if it changed.
bool toggleCharacter(CharSelected& set, int code);

// The codes of a font file in file order, each as "&H" and four hexadecimal digits, blanks between
// them. The count is the header's low two bytes; bytes beyond the end of the file read as zero.
QString ReadFontCharacters(const QByteArray& file);

// The range text that the dialog makes of those codes.
QString rangesOfFont(const QByteArray& file);

// What the button "Load Default" parses: the name of the default font without blanks and tabs. A
// name that does not begin with a number stands for U+0000 alone, so the set becomes empty.
QString rangesOfDefault(const QString& defaultFontName);

} // namespace fennel
