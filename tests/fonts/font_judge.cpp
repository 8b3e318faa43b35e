// SPDX-License-Identifier: MIT
#include "fonts/font_judge.h"

#include "base/files.h"
#include "support/run_program.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

// '.' lies outside the bitmap, a blank is level 0, '#' level 13, the others are hexadecimal digits.
std::uint8_t levelOf(QChar c)
{
    if (c == u'#')
        return fullInk;
    return c == u' ' ? std::uint8_t{0} : static_cast<std::uint8_t>(QString(c).toInt(nullptr, 16));
}

// Cuts the bitmap out of the picture of its box.
void takePixels(Glyph& glyph, const QStringList& picture, const JudgedFont& font)
{
    const int left = std::min(0, glyph.xOffset);
    const int top = font.height - font.baseline - glyph.yOffset - glyph.height;
    for (int y = 0; y < glyph.height; ++y) {
        const QString row = picture.value(top + y);
        ASSERT_GE(row.size(), glyph.xOffset - left + glyph.width) << glyph.code;
        for (int x = 0; x < glyph.width; ++x)
            glyph.pixels.push_back(levelOf(row[glyph.xOffset - left + x]));
    }
}

int numberIn(const QString& text, const QString& pattern, int group = 1)
{
    const auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).match(text);
    EXPECT_TRUE(match.hasMatch()) << pattern.toStdString();
    return match.captured(group).toInt();
}

} // namespace

JudgedFont judgedFont(const QString& path)
{
    JudgedFont font;
    const QString text =
        QString::fromUtf8(runProgram(u"gfxboot-font"_s, {u"-v"_s, u"-s"_s, path}).out);
    QStringList parts = text.split(u"\nChar 0x"_s);
    const QString head = parts.takeFirst();
    font.height = numberIn(head, u"^  Height: (-?\\d+)"_s);
    font.baseline = numberIn(head, u"^  Baseline: (-?\\d+)"_s);
    font.lineHeight = numberIn(head, u"^  Line Height: (-?\\d+)"_s);
    static const QRegularExpression row(u"^(?:    |  ->)\\|(.*)\\|(?:<-)?$"_s,
                                        QRegularExpression::MultilineOption);
    for (const QString& part : parts) {
        Glyph glyph;
        glyph.code = part.left(part.indexOf(u' ')).toUInt(nullptr, 16);
        glyph.width = numberIn(part, u"^  Bitmap: (\\d+) x (\\d+)"_s, 1);
        glyph.height = numberIn(part, u"^  Bitmap: (\\d+) x (\\d+)"_s, 2);
        glyph.advance = numberIn(part, u"^  Advance: (-?\\d+)"_s);
        glyph.xOffset = numberIn(part, u"^  Offset: (-?\\d+) x (-?\\d+)"_s, 1);
        glyph.yOffset = numberIn(part, u"^  Offset: (-?\\d+) x (-?\\d+)"_s, 2);
        QStringList picture;
        for (auto match = row.globalMatch(part); match.hasNext();)
            picture.append(match.next().captured(1));
        takePixels(glyph, picture, font);
        font.glyphs[glyph.code] = glyph;
    }
    return font;
}

std::map<std::uint32_t, Glyph> freeTypeGlyphs(const QString& path, int size,
                                              const std::vector<std::uint32_t>& codes)
{
    std::map<std::uint32_t, Glyph> glyphs;
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    EXPECT_EQ(FT_Init_FreeType(&library), 0);
    EXPECT_EQ(FT_New_Face(library, path.toUtf8().constData(), 0, &face), 0);
    EXPECT_EQ(FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(size)), 0);
    for (const std::uint32_t code : codes) {
        if (FT_Get_Char_Index(face, code) == 0)
            continue;
        EXPECT_EQ(FT_Load_Char(face, code, FT_LOAD_RENDER), 0);
        const FT_Bitmap& bitmap = face->glyph->bitmap;
        Glyph glyph{code, static_cast<int>(bitmap.width), static_cast<int>(bitmap.rows), 0, 0, 0,
                    {}};
        glyph.advance = static_cast<int>((face->glyph->advance.x + 32) >> 6);
        if (glyph.width > 0 && glyph.height > 0) {
            glyph.xOffset = face->glyph->bitmap_left;
            glyph.yOffset = face->glyph->bitmap_top - glyph.height;
        }
        for (int y = 0; y < glyph.height; ++y) {
            for (int x = 0; x < glyph.width; ++x)
                glyph.pixels.push_back(
                    static_cast<std::uint8_t>(bitmap.buffer[y * bitmap.pitch + x] * 14 / 256));
        }
        // Rows without ink are not stored.
        const auto empty = [&glyph](auto row) {
            return std::all_of(row, row + glyph.width, [](auto level) { return level == 0; });
        };
        for (; glyph.height > 0 && empty(glyph.pixels.begin()); --glyph.height)
            glyph.pixels.erase(glyph.pixels.begin(), glyph.pixels.begin() + glyph.width);
        for (; glyph.height > 0 && empty(glyph.pixels.end() - glyph.width); --glyph.height) {
            glyph.pixels.erase(glyph.pixels.end() - glyph.width, glyph.pixels.end());
            ++glyph.yOffset;
        }
        glyphs[code] = glyph;
    }
    FT_Done_FreeType(library);
    return glyphs;
}

std::vector<QByteArray> debianFonts()
{
    std::vector<QByteArray> fonts;
    for (const QString& path : debianMessages()) {
        const QByteArray message = bytesOf(path);
        const QTemporaryDir folder;
        const Ran ran =
            runProgram(u"cpio"_s, {u"-id"_s, u"--quiet"_s, u"*.fnt"_s}, folder.path(), message);
        EXPECT_EQ(ran.code, 0);
        for (const QString& name : filesLike(folder.path(), u"*.fnt"_s))
            fonts.push_back(*readBytes(folder.filePath(name)));
    }
    return fonts;
}

} // namespace fennel::test
