// SPDX-License-Identifier: MIT
// A boot screen as a list of things to draw, lowest first, and the painting of it. The list is
// plain data: two of them tell what has to be painted anew. Lengths are boot-screen pixels.
#pragma once

#include "screen/boot_members.h"

#include <QImage>
#include <QRect>
#include <QRegion>

#include <vector>

namespace fennel {

struct BootOp {
    enum Kind {
        Ground, // the colour mixed with the clean background, whatever lies there
        Tint,   // the colour mixed with what lies there
        Text,   // letters; `at` is the upper left corner of the first one's box
        Masked, // a picture, or a colour if it has no name, through a mask; `at` its corner
        Line,   // from `at` to `to`, one pixel wide
        Stroke, // `brush` lines side by side, in the colour mixed with the pixel at `middle`
    };
    Kind kind = Ground;
    QRect area; // nothing is drawn outside
    QRgb colour = 0;
    int transparency = 0; // 0 the colour alone, 255 and above the ground alone
    QPoint at;
    QPoint to;
    QString text;         // letters, or the name of the picture
    QString mask;         // name of the member
    int font = 0;         // its number
    QPoint from;          // of a picture, where the part begins that is shown
    QPoint middle;        // of a stroke
    int brush = 1;        // of a stroke
    bool depth = false;   // its first line light, its last dark
    bool upright = false; // its lines lie below each other

    bool operator==(const BootOp&) const = default;
};

// One object of the boot screen.
struct BootObject {
    int row = -1; // of PanelArr
    QRect rect;   // what marker and mouse take for the object; it may lie outside the screen
    std::vector<BootOp> ops;

    bool operator==(const BootObject&) const = default;
    [[nodiscard]] QRect bounds() const; // of all that it draws
};

struct BootList {
    QSize screen;
    int bits = 32;      // of the mode: 32 or 16
    QString background; // name of the member; empty: only `bare`
    QRgb bare = 0;      // where no picture is
    std::vector<BootObject> objects;

    bool operator==(const BootList&) const = default;
};

// Where the two lists look different; the whole screen if their grounds do.
QRegion changedArea(const BootList& before, const BootList& now);

// The screen of a list without its objects, Format_RGB32.
QImage bootGround(const BootList& list, BootMembers& members);

// Paints the part of the screen in `dirty` anew. `screen` and `ground` have the list's size,
// `ground` is its bootGround(). Returns what was painted, which may be more.
QRegion paintBoot(const BootList& list, BootMembers& members, const QImage& ground,
                  const QRegion& dirty, QImage& screen);

} // namespace fennel
