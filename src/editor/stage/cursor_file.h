// SPDX-License-Identifier: MIT
// Reads the pointers of the Cursors folder: .cur, and .ani with its pictures and their times.
// People put files of their own there, so nothing in them is trusted.
#pragma once

#include "base/result.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QString>

#include <vector>

namespace fennel {

struct CursorFrame {
    QImage image;       // ARGB32, at most maxCursorSide pixels wide and high
    QPoint hotSpot;     // pixels from the top left corner, inside the image
    int durationMs = 0; // how long it stands; 0 for a picture that does not move
};

inline constexpr int maxCursorSide = 256;
inline constexpr int maxCursorSteps = 1024;
inline constexpr qint64 maxCursorBytes = 4 * 1024 * 1024;

// The frames in the order in which they are shown, at least one; a .cur gives one. Knows pictures
// of 1, 4, 8, 24 and 32 bits per pixel, not compressed. Of several pictures in one .cur the first
// that is nearest to 32 pixels is taken. Fails with Malformed on a file that is cut or
// contradicts itself, Unsupported on another coding, TooLarge above the limits; `name` is for the
// text of the failure.
Result<std::vector<CursorFrame>> parseCursor(const QByteArray& bytes, const QString& name);

// The same from a file; fails also as readBytes does.
Result<std::vector<CursorFrame>> readCursorFile(const QString& path);

} // namespace fennel
