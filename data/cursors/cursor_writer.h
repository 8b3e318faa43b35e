// SPDX-License-Identifier: MIT
// Writes Windows pointers: .cur, one picture, and .ani, a RIFF file of such pictures.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>

#include <vector>

namespace fennel {

// A whole .cur file with one picture of 32 bits per pixel and its mask. The picture is at most 256
// pixels wide and high; the hot spot is in pixels from its top left corner.
QByteArray curBytes(const QImage& picture, QPoint hotSpot);

// A whole .ani file: the pictures are shown one after the other, each for `ticks` sixtieths of a
// second, and then from the start again.
QByteArray aniBytes(const std::vector<QImage>& pictures, QPoint hotSpot, int ticks);

} // namespace fennel
