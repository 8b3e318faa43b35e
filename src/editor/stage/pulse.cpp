// SPDX-License-Identifier: MIT
#include "editor/stage/pulse.h"

#include "base/text.h"

#include <algorithm>

namespace fennel {

int pulsePhase(qint64 elapsedMs)
{
    return static_cast<int>((std::max<qint64>(0, elapsedMs) / pulseStepMs) % pulsePhases);
}

// There and back: t is 0 at the ends of the phases and 1 in their middle.
QRgb markerColour(int phase)
{
    const double t = (200.0 - phase) * phase / 10000.0;
    return qRgb(roundToEven(221 + 26 * t), roundToEven(141 + 86 * t), roundToEven(26 - 19 * t));
}

QRgb frameColour(int phase)
{
    // In steps of 50, as each step repaints the frame.
    const int grey = phase / 50 * 50;
    return qRgb(grey, grey, grey);
}

} // namespace fennel
