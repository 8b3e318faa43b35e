// SPDX-License-Identifier: MIT
// Independent witnesses for the tests of fonts: what Debian's gfxboot-font reads in a file, what
// FreeType draws, and the fonts of Debian's own boot screens.
#pragma once

#include "fonts/fnt_codec.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace fennel::test {

struct JudgedFont {
    int height = -1;
    int baseline = -1;
    int lineHeight = -1;
    std::map<std::uint32_t, Glyph> glyphs;
};

// What "gfxboot-font -v -s" prints of a file, its pictures read back into pixels.
JudgedFont judgedFont(const QString& path);

// What FreeType itself draws at a size in pixels, for those of the codes that the font has.
std::map<std::uint32_t, Glyph> freeTypeGlyphs(const QString& path, int size,
                                              const std::vector<std::uint32_t>& codes);

// The members "*.fnt" of every message file of Debian's themes, taken out by GNU cpio.
std::vector<QByteArray> debianFonts();

inline const QString dejaVuSans = QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
inline const QString liberationBold =
    QStringLiteral("/usr/share/fonts/truetype/liberation/LiberationSerif-Bold.ttf");

} // namespace fennel::test
