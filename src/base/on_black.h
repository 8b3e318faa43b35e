// SPDX-License-Identifier: MIT
// Pictures without their opacity: the boot screen has none, and behind a picture it is black.
#pragma once

#include <QImage>

namespace fennel {

// Opaque, what was transparent mixed with black.
inline QImage onBlack(QImage picture)
{
    if (!picture.hasAlphaChannel())
        return picture.convertToFormat(QImage::Format_RGB32);
    // Premultiplied colours are the colours on black; by way of a format without alpha, the unused
    // byte of the result is full again.
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    picture.reinterpretAsFormat(QImage::Format_RGB32);
    return picture.convertToFormat(QImage::Format_RGB888).convertToFormat(QImage::Format_RGB32);
}

} // namespace fennel
