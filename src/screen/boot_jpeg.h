// SPDX-License-Identifier: MIT
// A JPEG as the boot screen shows it: the engine repeats the colour planes where desktop programs
// smooth them, and knows one kind of JPEG only (container/jpeg_check.h).
#pragma once

#include <QByteArray>
#include <QImage>

namespace fennel {

// Whether the engine's decoder shows the picture at all.
bool bootable(const QByteArray& jpeg);

// Format_RGB32 in the picture's size; null for a kind that the engine does not know, for broken
// headers and above the sizes of a background (screen/background.h). Data that end early or are
// damaged leave the picture as far as it goes.
QImage decodeAsBooted(const QByteArray& jpeg);

// Cuts the pixels of a part, Format_RGB32, to 5, 6 and 5 bits a channel, the high bits repeated
// below: what a screen of 16 bits shows. Cutting a second time changes nothing.
void cutTo16Bits(QImage& picture, const QRect& part);
// The same for a decoded picture: the decoder adds a pattern of 2x2 pixels before the cut.
void ditherTo16Bits(QImage& picture);

} // namespace fennel
