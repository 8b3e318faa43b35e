// SPDX-License-Identifier: MIT
// The pictures of the template, drawn by program so that they can be drawn again in another size or
// mood. Every call gives the same pixels.
#pragma once

#include <QImage>

namespace fennel {

// 800 by 600 pixels: an evening meadow with fennel in flower. The middle is calm and dark enough
// for white menu text; the lowest strip is of middle brightness, since the engine writes there in
// both black and white.
QImage paintBackground();

// The emblem of entry 0 and its mask, of one size: white in the mask is what is seen of a logo.
QImage paintLogo();
QImage paintLogoMask();

// Row of panes for the coloured glass: white in it takes the full colour, black none.
QImage paintGlassMask();

// Eight frames of a bee side by side, each beeWidth by beeHeight pixels, and where the bee is.
inline constexpr int beeFrames = 8;
inline constexpr int beeWidth = 32;
inline constexpr int beeHeight = 48;
QImage paintBee();
QImage paintBeeMask();

} // namespace fennel
