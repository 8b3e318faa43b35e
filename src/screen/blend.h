// SPDX-License-Identifier: MIT
// How a panel lets the background through: one formula, on whole pictures.
#pragma once

#include <QImage>
#include <QRect>

namespace fennel {

// One channel, 0 to 255: background x a / 255 + fill x (255 - a) / 255, rounded to the nearest
// integer (255 is odd, so there are no ties). a = 0 gives the pure fill, 255 only the background.
constexpr int blendChannel(int background, int fill, int a)
{
    return (background * a + fill * (255 - a) + 127) / 255;
}

// Transp of a record as a of the formula: above 255 counts as 255, below 0 as 0.
constexpr int blendAlpha(int transp)
{
    return transp < 0 ? 0 : transp > 255 ? 255 : transp;
}

// Blends the fill over the part `area` of the background into `target`, which gets the size of the
// area and QImage::Format_RGB32; its memory is used again if it already has both. The background
// must be Format_RGB32, the area not empty and inside it.
void blendPanel(const QImage& background, const QRect& area, QRgb fill, int a, QImage& target);

} // namespace fennel
