// SPDX-License-Identifier: MIT
// The bitmap font file of the boot screen (".fnt"), read and written. The standard library only:
// the font bridge, the glyph view and the tests share it. docs/formats/fnt.md describes the bytes.
//
// Lengths are pixels. The origin of a glyph is the pen on the baseline, y grows upwards. Nothing in
// a file is trusted: every number is checked against the bytes that are there.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace fennel {

inline constexpr std::uint32_t fntMagic = 0xD2828E06;
inline constexpr std::size_t fntHeaderSize = 11;
inline constexpr std::size_t fntEntrySize = 5;
inline constexpr std::uint32_t fntLastCode = 0x1FFFFF; // 21 bits
// Fonts are made up to this size of the em square, in pixels: no bitmap side can be longer.
inline constexpr int fntLargestSize = 255;
inline constexpr std::uint8_t fullInk = 13; // levels run from 0 (none) to this

// A glyph's place has 19 bits, so nothing behind this many bytes can be reached.
inline constexpr std::size_t fntSizeLimit = 512 * 1024;
// Entries may share bits, so a small hostile file could unfold to gigabytes. A file within the size
// limit that does not share holds at most 10 pixels for 7 bits: 6 million.
inline constexpr std::size_t fntPixelLimit = 8 * 1024 * 1024;

struct FntHeader {
    std::uint32_t magic = fntMagic;
    std::uint32_t entries = 0; // characters in the table
    std::uint8_t fontHeight = 0;
    std::uint8_t baseline = 0; // from the bottom of the font's box up to the baseline
    std::int8_t lineHeight = 0;
};

struct FntEntry {
    std::uint32_t code = 0;   // Unicode, 21 bits
    std::uint32_t offset = 0; // of the glyph, from the start of the file, 19 bits
};

struct Glyph {
    std::uint32_t code = 0;
    int width = 0;                    // of the bitmap, 0 to 255
    int height = 0;                   // of the bitmap, 0 to 255
    int xOffset = 0;                  // from the pen to the bitmap's left edge
    int yOffset = 0;                  // from the baseline up to the bitmap's bottom edge
    int advance = 0;                  // of the pen
    std::vector<std::uint8_t> pixels; // width x height levels, rows from the top

    bool operator==(const Glyph&) const = default;
};

struct FntFont {
    std::uint8_t fontHeight = 0; // from the lowest ink (or the baseline) to the highest
    std::uint8_t baseline = 0;
    std::int8_t lineHeight = 0;
    std::vector<Glyph> glyphs; // ascending by code
};

// The first 11 bytes. The magic is told, not tested. Malformed: fewer bytes.
Result<FntHeader> readFntHeader(std::span<const std::uint8_t> file);

// The character table. Malformed: a table longer than the file; offsets are not looked at.
Result<std::vector<FntEntry>> readFntTable(std::span<const std::uint8_t> file);

// One glyph. Malformed: an offset or bits beyond the end of the file, an unknown kind, a run that
// leaves the bitmap.
Result<Glyph> decodeGlyph(std::span<const std::uint8_t> file, const FntEntry& entry);

// The whole font; bytes behind the last glyph (the tag) are passed over. Malformed also for a wrong
// magic; TooLarge above fntPixelLimit.
Result<FntFont> decodeFnt(std::span<const std::uint8_t> file);

// The bits of one glyph, filled up to whole bytes. Nothing if the format cannot hold it: a width or
// height above 255, an offset or advance outside -128 to 127, a level above 13, or a number of
// pixels that is not width x height.
std::optional<std::vector<std::uint8_t>> encodeGlyph(const Glyph& glyph);

// The whole file. Glyphs that encodeGlyph() refuses are left out. TooLarge above fntSizeLimit;
// NotFound if no glyph is left.
Result<std::vector<std::uint8_t>> encodeFnt(const FntFont& font);

} // namespace fennel
