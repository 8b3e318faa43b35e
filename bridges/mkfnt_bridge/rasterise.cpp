// SPDX-License-Identifier: MIT
#include "rasterise.h"

#include "fonts/freetype_face.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

namespace fennel {

namespace {

// Embedded bitmaps would mix sizes and looks with the outlines.
constexpr FT_Int32 loadFlags = FT_LOAD_RENDER | FT_LOAD_NO_BITMAP;
// Levels 0 to 13, all that the font format has.
constexpr unsigned levels = 14;
constexpr FT_Pos pixel = 64; // FreeType counts in 26.6 fixed point
constexpr std::uint32_t space = 0x20;

std::vector<std::uint8_t> levelsOf(const FT_Bitmap& bitmap)
{
    std::vector<std::uint8_t> pixels;
    pixels.reserve(std::size_t{bitmap.rows} * bitmap.width);
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        const unsigned char* row =
            bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch; // pitch may be negative
        for (unsigned x = 0; x < bitmap.width; ++x)
            // 256 shades into 14 nearly equal steps, cut and not rounded.
            pixels.push_back(static_cast<std::uint8_t>(row[x] * levels / 256));
    }
    return pixels;
}

// Rows at the upper and lower edge whose ink is too faint for the first level.
void dropEmptyRows(Glyph& glyph)
{
    const auto inked = [](std::uint8_t level) { return level > 0; };
    const auto first = std::ranges::find_if(glyph.pixels, inked);
    const auto last = std::find_if(glyph.pixels.rbegin(), glyph.pixels.rend(), inked);
    const auto above = static_cast<int>(first - glyph.pixels.begin()) / glyph.width;
    // Nothing is left of a glyph without ink.
    const int below =
        above == glyph.height ? 0 : static_cast<int>(last - glyph.pixels.rbegin()) / glyph.width;
    const std::ptrdiff_t width = glyph.width;
    glyph.pixels.erase(glyph.pixels.end() - below * width, glyph.pixels.end());
    glyph.pixels.erase(glyph.pixels.begin(), glyph.pixels.begin() + above * width);
    glyph.height -= above + below;
    glyph.yOffset += below;
    if (glyph.height == 0)
        glyph.width = glyph.xOffset = glyph.yOffset = 0;
}

// Nothing for a character that cannot be loaded.
std::optional<Glyph> glyphOf(FT_Face face, std::uint32_t code)
{
    const FT_UInt index = FT_Get_Char_Index(face, code);
    // Index 0 is the box for what the font lacks; it is left out instead of drawn.
    if (index == 0 || FT_Load_Glyph(face, index, loadFlags) != 0)
        return std::nullopt;
    const FT_GlyphSlot slot = face->glyph;
    Glyph glyph;
    glyph.code = code;
    // To the nearest pixel.
    glyph.advance = static_cast<int>((slot->advance.x + pixel / 2) / pixel);
    // A blank has an advance and nothing to draw.
    if (slot->bitmap.rows == 0 || slot->bitmap.width == 0)
        return glyph;
    if (slot->bitmap.pixel_mode != FT_PIXEL_MODE_GRAY)
        return std::nullopt;
    glyph.width = static_cast<int>(slot->bitmap.width);
    glyph.height = static_cast<int>(slot->bitmap.rows);
    glyph.xOffset = slot->bitmap_left;
    // FreeType counts from the top edge, the font format from the lower one.
    glyph.yOffset = slot->bitmap_top - glyph.height;
    glyph.pixels = levelsOf(slot->bitmap);
    dropEmptyRows(glyph);
    return glyph;
}

// The box over all glyphs always holds the baseline.
Result<void> measure(FntFont& font, int lineSpace)
{
    int lowest = 0;
    int highest = 0;
    for (const Glyph& glyph : font.glyphs) {
        lowest = std::min(lowest, glyph.yOffset);
        highest = std::max(highest, glyph.yOffset + glyph.height);
    }
    const int height = highest - lowest;
    const int line = height + usualLineGap + lineSpace;
    if (height > std::numeric_limits<std::uint8_t>::max())
        return Failure{FailureKind::TooLarge,
                       "A font height of " + std::to_string(height) + " pixels is too large."};
    if (line > std::numeric_limits<std::int8_t>::max() ||
        line < std::numeric_limits<std::int8_t>::min())
        return Failure{FailureKind::TooLarge,
                       "A line height of " + std::to_string(line) + " pixels is out of range."};
    font.fontHeight = static_cast<std::uint8_t>(height);
    font.baseline = static_cast<std::uint8_t>(-lowest);
    font.lineHeight = static_cast<std::int8_t>(line);
    return {};
}

Failure unreadable(const std::string& path)
{
    return {FailureKind::Malformed, path + " cannot be read as a font."};
}

Failure noGlyph(bool refused)
{
    if (refused)
        return {FailureKind::TooLarge, "At this size and spacing no character fits a font file."};
    return {FailureKind::NotFound, "The font has none of the characters."};
}

} // namespace

Result<FntFont> rasterise(const std::string& path, const FontOrder& order)
{
    const FreetypeFace owner(path);
    FT_Face face = owner.get();
    if (face == nullptr)
        return unreadable(path);
    if (!FT_IS_SCALABLE(face))
        return Failure{FailureKind::Unsupported, path + " has no outlines, only bitmaps."};
    if (face->charmap == nullptr)
        return Failure{FailureKind::Unsupported, path + " has no table of Unicode characters."};
    if (FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(order.size)) != 0)
        return unreadable(path);
    FntFont font;
    bool refused = false;
    for (const std::uint32_t code : order.codes) {
        std::optional<Glyph> glyph = glyphOf(face, code);
        if (!glyph)
            continue;
        // The blank's width replaces what the font has; the letter space comes on top like
        // everywhere.
        if (code == space)
            glyph->advance = order.spaceWidth;
        glyph->advance += order.letterSpace;
        // Refused glyphs must not count for the height of the font.
        if (encodeGlyph(*glyph))
            font.glyphs.push_back(std::move(*glyph));
        else
            refused = true;
    }
    if (font.glyphs.empty())
        return noGlyph(refused);
    const Result<void> measured = measure(font, order.lineSpace);
    return measured ? Result<FntFont>(std::move(font)) : measured.failure();
}

} // namespace fennel
