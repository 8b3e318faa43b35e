// SPDX-License-Identifier: MIT
// The texts of the status line's eight fields, and the place of the progress bar that lies over the
// second of them.
#pragma once

#include "base/shell_context.h"

#include <QRect>

#include <array>

namespace fennel {

// Fields are counted from 1. Fields 4 to 7 (size, object, place, free) belong to the stage while a
// gfxboot is open.
struct StatusFields {
    std::array<QString, 8> texts;

    [[nodiscard]] QString& field(int number)
    {
        return texts.at(static_cast<std::size_t>(number - 1));
    }
    [[nodiscard]] const QString& field(int number) const
    {
        return texts.at(static_cast<std::size_t>(number - 1));
    }
};

// `Status.set`: sets the fields from the run state; 4 to 7 only while nothing is open.
void Status_set(const Shell& shell, StatusFields& fields);

// Where the bar lies, in pixels, in the coordinates of the two given places.
QRect progressPlace(const QRect& statusLine, const QRect& secondField);
// `ProgressBar_reset`: the same, and the line of the log that belongs to it.
QRect ProgressBar_reset(const Shell& shell, const QRect& statusLine, const QRect& secondField);

} // namespace fennel
