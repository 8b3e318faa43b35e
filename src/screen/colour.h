// SPDX-License-Identifier: MIT
// The arithmetic of the colour tools. Colours are QRgb with full alpha; their text is "0x" and six
// upper-case digits, red first.
#pragma once

#include "params/panel_rec.h"

#include <QString>

#include <array>

namespace fennel {

// The sliders of a fill: red, green, blue, 0 to 255 each.
std::array<int, 3> colourParts(QRgb colour);
// The way back; parts outside 0 to 255 count as the nearest of these.
QRgb colourOfParts(const std::array<int, 3>& parts);
// A slider's value as two upper-case digits.
QString partText(int value);
// What a key does to a slider: Down adds one up to 255, Up takes one down to 0, others nothing.
int partAfterKey(int value, int key);
// Every bit turned. On a colour near the middle grey it is nearly the same again.
QRgb contrastColour(QRgb colour);
// Black or white, whichever a text is read better in on the colour.
QRgb textColourOn(QRgb colour);
// What the slider of the transparency shows of a record: at most 255, at least 0.
int transparencyShown(int transp);

// Which of the colour controls have a parameter behind them in generation 3.
struct ColourControls {
    bool fill = false;
    bool transparency = false;
};
// From the sources of a record: a constant or no source leaves the control disabled.
ColourControls colourControlsFor(const PanelRec& rec);

} // namespace fennel
