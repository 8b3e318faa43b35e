// SPDX-License-Identifier: MIT
#include "screen/blend.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace fennel {

namespace {

constexpr int chunkBytes = 512; // 128 pixels of 4 channels

// The part of the sum that does not depend on the background, for each byte of a chunk. Kept as an
// array so that the loop below has no index arithmetic and the compiler makes vectors of it.
using FillTerms = std::array<std::uint16_t, chunkBytes>;

// The 127 rounds the division by 255 to the nearest. Opacity goes with the colour, so that all four
// bytes are computed alike.
FillTerms fillTerms(QRgb fill, int a)
{
    std::array<uchar, 4> bytes{};
    const QRgb opaque = fill | 0xff000000U;
    std::memcpy(bytes.data(), &opaque, bytes.size());
    FillTerms terms{};
    for (std::size_t i = 0; i < terms.size(); ++i)
        terms[i] = static_cast<std::uint16_t>(bytes[i % 4] * (255 - a) + 127);
    return terms;
}

void blendBytes(const uchar* source, uchar* target, int count, int a, const FillTerms& terms)
{
    const auto factor = static_cast<std::uint16_t>(a);
    for (int i = 0; i < count; ++i) {
        // At most 255 x 255 + 127. Up to 65534, (x + 1 + x / 256) / 256 equals x / 255.
        const auto x =
            static_cast<std::uint16_t>(source[i] * factor + terms[static_cast<std::size_t>(i)]);
        const auto next = static_cast<std::uint16_t>(x + 1 + (x >> 8));
        target[i] = static_cast<uchar>(next >> 8);
    }
}

} // namespace

void blendPanel(const QImage& background, const QRect& area, QRgb fill, int a, QImage& target)
{
    if (target.size() != area.size() || target.format() != QImage::Format_RGB32)
        target = QImage(area.size(), QImage::Format_RGB32);
    // The two ends need no arithmetic, and the pure background must come out unchanged to the bit.
    if (a == 0) {
        target.fill(fill | 0xff000000U);
        return;
    }
    const FillTerms terms = fillTerms(fill, a);
    const int rowBytes = area.width() * 4;
    for (int y = 0; y < area.height(); ++y) {
        const uchar* source = background.constScanLine(area.y() + y) + area.x() * 4;
        uchar* line = target.scanLine(y);
        if (a == 255) {
            std::memcpy(line, source, static_cast<std::size_t>(rowBytes));
            continue;
        }
        // A chunk is a whole number of pixels, so the terms repeat at its start.
        for (int at = 0; at < rowBytes; at += chunkBytes)
            blendBytes(source + at, line + at, std::min(chunkBytes, rowBytes - at), a, terms);
    }
}

} // namespace fennel
