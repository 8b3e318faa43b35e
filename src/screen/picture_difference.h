// SPDX-License-Identifier: MIT
// Two pictures of one boot screen, as it is drawn here and as it booted.
#pragma once

#include <QImage>

namespace fennel {

// Levels of 255 in a channel that no eye sees; what a screen of 16 bits rounds is less.
inline constexpr int equalLevels = 12;

struct PictureDifference {
    double share = 1; // of the pixels of the larger picture that are unequal, 0 to 1
    QImage marks;     // Format_ARGB32, of the size of both: clear where they are equal
};

// Pixels that only one of them has are unequal.
PictureDifference differenceOf(const QImage& one, const QImage& other, QRgb mark);

} // namespace fennel
