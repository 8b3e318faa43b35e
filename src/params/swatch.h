// SPDX-License-Identifier: MIT
// The small block of colour beside a parameter row: which colour it has, and its picture.
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

} // namespace fennel
