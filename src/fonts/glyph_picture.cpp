// SPDX-License-Identifier: MIT
#include "fonts/font_inspection.h"

#include <QPainter>

#include <algorithm>

namespace fennel {

namespace {

constexpr QRgb boxColour = 0xffb0b0b0;
constexpr QRgb baselineColour = 0xff2060d0;
constexpr QRgb penColour = 0xffd03030;
// Keeps the picture of the largest glyph, 255 by 255, below 17,000 pixels a side.
constexpr int largestZoom = 64;

// What the picture shows, in pixels of the glyph, y upwards from the baseline.
struct Extent {
    int left = 0;
    int right = 0;
    int bottom = 0;
    int top = 0;
};

// At least the font's box and the way of the pen, so that glyphs of one font are seen at comparable
// places.
Extent extentOf(const Glyph& glyph, const FntHeader& header)
{
    Extent extent;
    extent.left = std::min({0, glyph.xOffset, glyph.advance});
    extent.right = std::max({1, glyph.xOffset + glyph.width, glyph.advance});
    extent.bottom = std::min(-static_cast<int>(header.baseline), glyph.yOffset);
    extent.top = std::max(
        {extent.bottom + 1, header.fontHeight - header.baseline, glyph.yOffset + glyph.height});
    return extent;
}

QRgb shadeOf(std::uint8_t level)
{
    const int shade = 255 - std::min(level, fullInk) * 255 / fullInk;
    return qRgb(shade, shade, shade);
}

} // namespace

QImage glyphPicture(const Glyph& glyph, const FntHeader& header, int zoom)
{
    const int scale = std::clamp(zoom, 1, largestZoom);
    const Extent extent = extentOf(glyph, header);
    // One pixel more than the extent, for the lines at its right and bottom edge.
    QImage image((extent.right - extent.left) * scale + 1, (extent.top - extent.bottom) * scale + 1,
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const auto x = [&](int pixel) { return (pixel - extent.left) * scale; };
    const auto y = [&](int pixel) { return (extent.top - pixel) * scale; };
    const int top = glyph.yOffset + glyph.height;
    for (std::size_t i = 0; i < glyph.pixels.size(); ++i) {
        // Pixels are stored row by row from the top. A glyph without width has none.
        const int column = static_cast<int>(i) % glyph.width;
        const int row = static_cast<int>(i) / glyph.width;
        painter.fillRect(x(glyph.xOffset + column), y(top - row), scale, scale,
                         QColor(shadeOf(glyph.pixels[i])));
    }
    painter.setPen(QColor(boxColour));
    painter.drawRect(0, y(header.fontHeight - header.baseline), image.width() - 1,
                     header.fontHeight * scale);
    painter.setPen(QColor(baselineColour));
    painter.drawLine(0, y(0), image.width() - 1, y(0));
    painter.setPen(QColor(penColour));
    for (const int pen : {0, glyph.advance})
        painter.drawLine(x(pen), 0, x(pen), image.height() - 1);
    return image;
}

} // namespace fennel
