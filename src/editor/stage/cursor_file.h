// SPDX-License-Identifier: MIT
// Reads the pointers of the Cursors folder: .cur, and of an animated .ani its first picture. People
// put files of their own there, so nothing in them is trusted.
#pragma once

#include "base/result.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QString>

namespace fennel {

struct CursorPicture {
    QImage image;   // at most maxCursorSide pixels wide and high
    QPoint hotSpot; // pixels from the top left corner, inside the image
};

inline constexpr int maxCursorSide = 256;
inline constexpr qint64 maxCursorBytes = 4 * 1024 * 1024;

// Of several pictures in one .cur the first that is nearest to 32 pixels is taken. Fails with
// Malformed on a file that is cut or is no pointer, TooLarge above the limits; `name` is for the
// text of the failure.
Result<CursorPicture> parseCursor(const QByteArray& bytes, const QString& name);

// The same from a file; fails also as readBytes does.
Result<CursorPicture> readCursorFile(const QString& path);

} // namespace fennel
