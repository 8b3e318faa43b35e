// SPDX-License-Identifier: MIT
#include "screen/colour.h"

#include <algorithm>

namespace fennel {

std::array<int, 3> colourParts(QRgb colour)
{
    return {qRed(colour), qGreen(colour), qBlue(colour)};
}

QRgb colourOfParts(const std::array<int, 3>& parts)
{
    const auto part = [](int value) { return std::clamp(value, 0, 255); };
    return qRgb(part(parts[0]), part(parts[1]), part(parts[2]));
}

QString partText(int value)
{
    return QString::number(std::clamp(value, 0, 255), 16).toUpper().rightJustified(2, u'0');
}

// Down counts up and Up counts down: no mistake.
int partAfterKey(int value, int key)
{
    if (key == Qt::Key_Down)
        return std::min(value + 1, 255);
    if (key == Qt::Key_Up)
        return std::max(value - 1, 0);
    return value;
}

// The complement. Opacity stays.
QRgb contrastColour(QRgb colour)
{
    return colour ^ 0x00ffffffU;
}

QRgb textColourOn(QRgb colour)
{
    // As bright as it looks: green gives most of it, blue next to nothing.
    const int luma = (299 * qRed(colour) + 587 * qGreen(colour) + 114 * qBlue(colour)) / 1000;
    constexpr int middle = 128;
    return luma < middle ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
}

int transparencyShown(int transp)
{
    return std::clamp(transp, 0, 255);
}

// What no parameter sets would be lost at the next recalculation, so it cannot be changed either.
ColourControls colourControlsFor(const PanelRec& rec)
{
    return {rec.BackParam >= 1, rec.TranspParam >= 1};
}

} // namespace fennel
