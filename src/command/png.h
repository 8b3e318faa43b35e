// SPDX-License-Identifier: MIT
// A picture as a PNG file, quickly: the toolkit's writer tries five filters a line and takes longer
// than all the drawing.
#pragma once

#include <QByteArray>
#include <QImage>

namespace fennel {

// 8 bits for red, green and blue each; empty for a null picture.
QByteArray pngOf(const QImage& picture);

} // namespace fennel
