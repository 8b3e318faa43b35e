// SPDX-License-Identifier: MIT
// Where a window stood and how large it was, from one run to the next.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace fennel {

class UserStore;

struct WindowPlace {
    std::optional<QPoint> corner; // of the frame, on the desktop
    std::optional<QSize> size;    // none: the window follows the picture
    bool maximised = false;
};

// What is stored under the name of a window; what cannot be read counts as never stored.
WindowPlace readWindowPlace(const UserStore& store,
                            const QString& window = QStringLiteral("Window"));
void storeWindowPlace(UserStore& store, const WindowPlace& place,
                      const QString& window = QStringLiteral("Window"));
// The frame's rectangle moved onto a desktop, its upper left corner before the others.
QPoint placeOnDesktop(const QRect& frame, const QRect& desktop);

} // namespace fennel
