// SPDX-License-Identifier: MIT
#include "params/swatch.h"

#include "base/text.h"

#include <algorithm>

namespace fennel {

namespace {
// A frame keeps a swatch in the colour of the list visible.
constexpr QRgb swatchFrame = 0xff808080;

constexpr int darkGround = 128;    // below it a ground is dark, of 255
constexpr float lightText = 0.78F; // lightness, of 1; blue and red are still themselves
} // namespace

std::optional<QRgb> swatchOf(const QString& valueCell)
{
    // Only what is written as hexadecimal is a colour.
    if (!valueCell.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        return std::nullopt;
    return 0xff000000 | static_cast<QRgb>(numberFromText(valueCell));
}

QImage swatchImage(QRgb colour, QSize size)
{
    // Square, whatever the icon's shape.
    const int side = std::min(size.width(), size.height());
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(swatchFrame);
    for (int y = 1; y + 1 < side; ++y) {
        for (int x = 1; x + 1 < side; ++x)
            image.setPixel(x, y, colour);
    }
    return image;
}

QRgb textOnGround(QRgb colour, QRgb ground)
{
    if (qGray(ground) >= darkGround)
        return colour;
    const QColor given(colour);
    // Mirrored, so that what was black becomes white and dark green a light one.
    const float lightness = std::max(1 - given.lightnessF(), lightText);
    return QColor::fromHslF(given.hslHueF(), given.hslSaturationF(), lightness).rgb();
}

} // namespace fennel
