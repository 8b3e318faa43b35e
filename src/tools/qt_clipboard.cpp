// SPDX-License-Identifier: MIT
#include "tools/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace fennel {

// A null image if the clipboard holds none.
QImage QtClipboard::picture() const
{
    return QGuiApplication::clipboard()->image();
}

void QtClipboard::setPicture(const QImage& picture)
{
    QGuiApplication::clipboard()->setImage(picture);
}

} // namespace fennel
