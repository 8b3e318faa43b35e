// SPDX-License-Identifier: MIT
// The text behind the glyphs of a font file that says how the font was made: the signature
// "TAG@ZUK-MOSA@:>", then items separated by "|", each a key, a TAB and a value, or a free line.
#pragma once

#include "fonts/font_table.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace fennel {

inline const QByteArray fontTagSignature = QByteArrayLiteral("TAG@ZUK-MOSA@:>");

struct TagItem {
    QString key; // empty for a free line
    QString value;
    bool isPair = false; // had a TAB
};

struct FontTag {
    bool genuine = false; // begins with the whole signature
    QString description;
    std::vector<TagItem> items;
};

// True if the file holds the signature anywhere.
bool hasSignature(const QByteArray& file);

// The tag from the first "TAG" in the file on, even if that stands in a glyph by chance; false in
// `found` if there is none. Texts are code page 1251; NUL bytes are dropped.
struct FoundTag {
    bool found = false;
    FontTag tag;
};
// Looks at the bytes of a whole font file; whatever they are, nothing fails.
FoundTag findTag(const QByteArray& file);

// Takes the items into a record: "size", "space", "letter space", "line space" by the number that
// the value begins with, any other key as the family of the font with its style words.
void applyTag(const FontTag& tag, FontRecord& record);

struct FontChoice;
// The text that is put behind a new font's glyphs. "|" and TAB in the family become blanks.
QString fontTagText(const FontChoice& choice);

} // namespace fennel
