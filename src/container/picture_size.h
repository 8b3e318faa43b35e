// SPDX-License-Identifier: MIT
// How large a picture is, from the head of its file: nothing is decoded.
#pragma once

#include "base/shell_context.h"

#include <QSize>

namespace fennel {

// Width and height in pixels as they are stored: the boot screen knows nothing of a picture's EXIF
// orientation. The format is taken from the bytes, so a PNG named back.jpg has its size too.
// Malformed if this is no picture, TooLarge above the limits of picture_limits.h.
Result<QSize> pictureSize(const Shell& shell, const QString& path);

} // namespace fennel
