// SPDX-License-Identifier: MIT
// Finds files that are cut off where Qt's decoder takes them without a word and leaves the missing
// part black.
#pragma once

#include <QSize>

#include <cstdint>
#include <string_view>

namespace fennel::nconvert {

// An uncompressed BMP holds all its lines; of a run-length one the decoder finds the end itself.
// Width and height in pixels. Fields after BITMAPINFOHEADER and the older BITMAPCOREHEADER.
bool bmpIsWhole(std::string_view bytes, std::int64_t width, std::int64_t height);

// The blocks of a GIF up to the end of the first picture are all there (GIF89a, appendix B).
bool gifIsWhole(std::string_view bytes);
// The size of the logical screen in pixels; 0x0 if the header is cut off.
QSize gifScreenSize(std::string_view bytes);

} // namespace fennel::nconvert
