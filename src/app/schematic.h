// SPDX-License-Identifier: MIT
// The stage's schematic picture without a window.
#pragma once

#include "document/session.h"

#include <QImage>
#include <QString>

namespace fennel {

// Of an open session; `menu` is the text of a menu.lst, empty for the embedded one. Letters need a
// QGuiApplication. Null without a background that can be shown.
QImage schematicPicture(Session& session, const QString& menu, double scale);

} // namespace fennel
