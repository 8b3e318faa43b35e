// SPDX-License-Identifier: MIT
// The slow pulse of the marker and of the frame around the selected panel.
#pragma once

#include <QtGlobal>

#include <QColor>

namespace fennel {

inline constexpr int pulsePhases = 201;
// Milliseconds of one phase: a screen's frame, so that a round takes a little over three seconds
// whatever the screen's real rate.
inline constexpr int pulseStepMs = 16;

// Phase 0 to 200 after that many milliseconds.
int pulsePhase(qint64 elapsedMs);
// From RGB(221, 141, 26) at phase 0 to RGB(247, 227, 7) at 100 and back, each part rounded.
QRgb markerColour(int phase);
// Grey of the frame: that of the last phase that divides by 50 (0, 50, 100, 150, 200).
QRgb frameColour(int phase);

} // namespace fennel
