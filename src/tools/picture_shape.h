// SPDX-License-Identifier: MIT
// A picture seldom has the shape of the screen that it is brought to: the user says what becomes of
// it.
#pragma once

#include "base/shell_context.h"

#include <QSize>
#include <QStringList>

#include <optional>

namespace fennel {

struct ShapeAnswer {
    QStringList options;              // for the picture tool, besides the size
    std::optional<QSize> wholeScreen; // the screen gets this size, that of the picture
};

// Asks if the picture's proportions are others than those of `size`; nothing if the user cancelled.
// `screen`: the picture is a background, whose size the whole screen can take. A picture that
// cannot be read is not asked about: bringing it tells why.
std::optional<ShapeAnswer> askForShape(const Shell& shell, const QString& picture, QSize size,
                                       bool screen);

// Upright, as the picture tool makes it; nothing if it cannot be read.
std::optional<QSize> uprightSize(const Shell& shell, const QString& picture);

} // namespace fennel
