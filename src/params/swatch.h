// SPDX-License-Identifier: MIT
// The small block of colour beside a parameter row, its colour and its picture, and how the colours
// of rows are shown on dark desktops.
#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include <optional>

namespace fennel {

// The colour that stands in a value cell, none for a value without "0x".
std::optional<QRgb> swatchOf(const QString& valueCell);

// A framed square of the colour that fits into `size`, pixels.
QImage swatchImage(QRgb colour, QSize size);

// Rows have colours that were chosen for a light list. On a dark `ground` the same hue, light
// enough to be read; on a light one the colour as it is.
QRgb textOnGround(QRgb colour, QRgb ground);

} // namespace fennel
