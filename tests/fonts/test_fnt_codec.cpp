// SPDX-License-Identifier: MIT
#include "fonts/fnt_codec.h"

#include "fonts/fnt_bytes.h"
#include "fonts/font_judge.h"
#include "support/test_shell.h"

#include <algorithm>
#include <array>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

using Bytes = std::vector<std::uint8_t>;

// A file of one character U+0041 whose glyph has the given bytes, at offset 16.
Bytes fileWith(const Bytes& glyph)
{
    constexpr std::array<std::uint8_t, 16> head{0x06, 0x8E, 0x82, 0xD2, 1,    0,    0,    0,
                                                10,   2,    12,   0x41, 0x00, 0x00, 0x02, 0x00};
    Bytes file(head.size() + glyph.size());
    std::ranges::copy(glyph, std::ranges::copy(head, file.begin()).out);
    return file;
}

FailureKind kindOf(const Bytes& file)
{
    const Result<FntFont> font = decodeFnt(file);
    EXPECT_FALSE(font.ok());
    return font ? FailureKind::Io : font.failure().kind;
}

} // namespace

// The five fonts of Debian's own boot screens: the same values as gfxboot-font reads in them, and,
// written again, the same bytes.
TEST(FntCodec, ReadsAndRewritesEveryGlyphOfDebiansMessages)
{
    const std::vector<QByteArray> files = debianFonts();
    ASSERT_GE(files.size(), 5U);
    TestShell shell;
    for (const QByteArray& file : files) {
        const Result<FntFont> font = decodeFnt(asSpan(file));
        ASSERT_TRUE(font.ok()) << font.failure().text;
        ASSERT_EQ(font->glyphs.size(), 2089U);
        const Result<Bytes> again = encodeFnt(*font);
        ASSERT_TRUE(again.ok());
        EXPECT_TRUE(std::ranges::equal(*again, asSpan(file)));
    }
    const JudgedFont judged = judgedFont(shell.file(u"debian.fnt"_s, files.front()));
    const FntFont font = *decodeFnt(asSpan(files.front()));
    EXPECT_EQ(font.fontHeight, judged.height);
    EXPECT_EQ(font.baseline, judged.baseline);
    EXPECT_EQ(font.lineHeight, judged.lineHeight);
    ASSERT_EQ(font.glyphs.size(), judged.glyphs.size());
    for (const Glyph& glyph : font.glyphs)
        EXPECT_EQ(glyph, judged.glyphs.at(glyph.code)) << glyph.code;
}

TEST(FntCodec, KeepsEveryRunLengthAndFieldWidth)
{
    for (int length = 1; length <= 45; ++length) {
        for (const std::uint8_t level : {std::uint8_t{0}, std::uint8_t{7}, fullInk}) {
            Glyph glyph{
                0x41, length + 1, 1, -3, -100, 5, Bytes(static_cast<std::size_t>(length), level)};
            glyph.pixels.push_back(1); // makes it grey
            const auto coded = encodeGlyph(glyph);
            ASSERT_TRUE(coded);
            EXPECT_EQ(*decodeGlyph(fileWith(*coded), {0x41, 16}), glyph);
        }
    }
    for (const int advance : {-128, -127, -1, 0, 1, 63, 64, 127}) {
        const Glyph glyph{0x1FFFFF, 0, 0, 0, 0, advance, {}};
        EXPECT_EQ(decodeGlyph(fileWith(*encodeGlyph(glyph)), {0x1FFFFF, 16})->advance, advance);
    }
}

TEST(FntCodec, LeavesOutWhatEightBitsCannotHold)
{
    const Bytes row(256, 0);
    EXPECT_FALSE(encodeGlyph({0x41, 256, 1, 0, 0, 0, row}));
    EXPECT_FALSE(encodeGlyph({0x41, 0, 0, 0, 0, 128, {}}));
    EXPECT_FALSE(encodeGlyph({0x41, 0, 0, -129, 0, 0, {}}));
    EXPECT_FALSE(encodeGlyph({0x41, 2, 1, 0, 0, 0, {1}}));
    EXPECT_FALSE(encodeGlyph({0x41, 1, 1, 0, 0, 0, {14}}));
    EXPECT_FALSE(encodeGlyph({0x200000, 0, 0, 0, 0, 1, {}}));
    FntFont font{10, 2, 12, {{0x41, 0, 0, 0, 0, 200, {}}}};
    EXPECT_EQ(encodeFnt(font).failure().kind, FailureKind::NotFound);
    font.glyphs.push_back({0x42, 0, 0, 0, 0, 6, {}});
    const Result<FntFont> kept = decodeFnt(*encodeFnt(font));
    ASSERT_TRUE(kept.ok());
    ASSERT_EQ(kept->glyphs.size(), 1U);
    EXPECT_EQ(kept->glyphs[0].code, 0x42U);
}

// 19 bits of place: a file may fill 512 KiB to the byte, and not one more.
TEST(FntCodec, RefusesAFileWhoseGlyphsCannotBeReached)
{
    Glyph large{1, 255, 255, 0, 0, 1, {}};
    for (int i = 0; i < 255 * 255; ++i)
        large.pixels.push_back(static_cast<std::uint8_t>(1 + i % 12));
    const std::size_t one = fntEntrySize + encodeGlyph(large)->size();
    const std::size_t most = (fntSizeLimit - fntHeaderSize) / one;
    FntFont font{255, 0, 0, std::vector<Glyph>(most, large)};
    const Result<Bytes> file = encodeFnt(font);
    ASSERT_TRUE(file.ok());
    EXPECT_EQ(decodeFnt(*file)->glyphs.back(), large);
    font.glyphs.push_back(large);
    EXPECT_EQ(encodeFnt(font).failure().kind, FailureKind::TooLarge);
}

TEST(FntCodec, TellsDamageFromGlyphs)
{
    const Bytes whole = fileWith(*encodeGlyph({0x41, 3, 2, 0, 0, 4, {1, 2, 3, 0, 0, 0}}));
    ASSERT_TRUE(decodeFnt(whole).ok());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(kindOf(Bytes(whole.begin(), whole.begin() + static_cast<long>(length))),
                  FailureKind::Malformed)
            << length;
    // Another magic, 4 billion entries, a place beyond the end, kind 2 or 3.
    for (const auto& [at, length, value] :
         {std::tuple{0, 1, 7}, {4, 4, 0xFF}, {15, 1, 0xFF}, {16, 1, whole[16] | 2}}) {
        Bytes wrong = whole;
        std::fill_n(wrong.begin() + at, length, static_cast<std::uint8_t>(value));
        EXPECT_EQ(kindOf(wrong), FailureKind::Malformed) << at;
    }
    // A run of ten in a bitmap of one pixel: kind 1, k 2, 1 x 1, then 14 and 7.
    const unsigned bits = 1U | 1U << 2 | 1U << 5 | 1U << 7;
    const unsigned run = 14U << 15 | 7U << 19;
    const std::uint32_t all = bits | run;
    EXPECT_EQ(kindOf(fileWith({static_cast<std::uint8_t>(all), static_cast<std::uint8_t>(all >> 8),
                               static_cast<std::uint8_t>(all >> 16), 0})),
              FailureKind::Malformed);
}

// Every entry may point to one and the same large glyph.
TEST(FntCodec, EndsABombWithAMessage)
{
    const Bytes glyph = *encodeGlyph({0x41, 255, 255, 0, 0, 1, Bytes(255 * 255, 0)});
    constexpr std::uint32_t count = 1000;
    Bytes file{0x06, 0x8E, 0x82, 0xD2, count & 0xFF, count >> 8, 0, 0, 10, 2, 12};
    const std::uint64_t entry = std::uint64_t{fntHeaderSize + count * fntEntrySize} << 21;
    for (std::uint32_t i = 0; i < count; ++i) {
        for (unsigned byte = 0; byte < fntEntrySize; ++byte)
            file.push_back(static_cast<std::uint8_t>(entry >> (8 * byte)));
    }
    file.insert(file.end(), glyph.begin(), glyph.end());
    EXPECT_EQ(kindOf(file), FailureKind::TooLarge);
}
