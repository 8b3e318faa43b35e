// SPDX-License-Identifier: MIT
// Outlines to the grey bitmaps of a boot-screen font, by FreeType.
#pragma once

#include "base/result.h"
#include "fonts/fnt_codec.h"

#include <cstdint>
#include <string>
#include <vector>

namespace fennel {

inline constexpr int smallestFont = 1; // pixels

// Spacings are sums with one signed byte of the file; more than this can never fit.
inline constexpr int largestSpacing = 127; // pixels, also below zero

// The line height of a font without further line space is its height and this.
inline constexpr int usualLineGap = 2; // pixels

struct FontOrder {
    int size = 0;                     // pixels of the em square, smallestFont to fntLargestSize
    int spaceWidth = 0;               // pixels: the advance of U+0020
    int lineSpace = 0;                // pixels, added to the line height
    int letterSpace = 0;              // pixels, added to every advance, that of U+0020 too
    std::vector<std::uint32_t> codes; // ascending, each once
};

// The first face of the file, with the hinting of the font itself. Characters that the font lacks
// or that the format cannot hold are left out. NotFound: no such file, or none of the characters;
// Malformed: no font, or a damaged one; Unsupported: a font without outlines; TooLarge: a font or
// line height that the file's fields cannot hold.
Result<FntFont> rasterise(const std::string& path, const FontOrder& order);

} // namespace fennel
