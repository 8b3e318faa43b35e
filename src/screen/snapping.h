// SPDX-License-Identifier: MIT
// Where an object that is dragged wants to stand: in line with the others, with the screen's middle
// and thirds, or with gaps like those between others. Boot-screen pixels; edges lie between pixels,
// so that of two objects side by side the one ends where the other begins.
#pragma once

#include <QLine>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace fennel {

struct SnapScene {
    std::vector<QRect> others; // what may be lined up with
    QSize screen;
    int reach = 0;     // how far an object is drawn to its place
    bool freeX = true; // this coordinate can change
    bool freeY = true;
};

struct Snapped {
    QPoint at;      // of the object's upper left corner
    bool x = false; // this coordinate was found, and is not only what the mouse says
    bool y = false;
    std::vector<QLine> guides; // what it stands in line with; a gap is a line across it
};

// The nearest place within reach, each coordinate for itself; of equally near ones other objects go
// before the screen, and both before gaps.
Snapped snapPlace(const QRect& wanted, const SnapScene& scene);

} // namespace fennel
