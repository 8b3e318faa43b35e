// SPDX-License-Identifier: MIT
// The scaled background: a work file in WorkspaceRoot, made anew at every change of the picture or
// the scale, and read into a picture that the panels are blended from.
#pragma once

#include "base/shell_context.h"

#include <QImage>

#include <functional>

namespace fennel {

inline const QString scaledBackName = QStringLiteral("~bck_scale~.jpg");

// No side of a shown background is longer, and no more memory is taken: 32 million pixels of four
// bytes are two screens of 5120 by 2880. A file that claims more is told as too large.
inline constexpr int maxBackSide = 16384;
inline constexpr qint64 maxBackPixels = 32'000'000;
// Pixels; true within maxBackSide and maxBackPixels.
bool backSizeAllowed(QSize size);

// Makes `target` from `source` in the given size, any side from 1 to 32767; judged by the file that
// it leaves. Its failures are told.
using ResizeJpgCall = std::function<Result<void>(int width, int height, const QString& source,
                                                 const QString& target)>;

// Brings BackFile of the run to its scale: at exactly 1 a plain copy, otherwise one run of the
// resize tool. Fails with NotFound (no BackFile), TooLarge (the scaled size), or what the file
// layer or the tool says.
Result<void> makeScaledBack(const Shell& shell, const ResizeJpgCall& resize);

// The claims of a picture's header, without decoding it: NotFound, TooLarge, or Malformed if the
// bytes are those of no known format.
Result<void> checkPicture(const Shell& shell, const QString& path);
// A picture file by its content, whatever its name says, upright, transparent parts on black, as
// Format_RGB32; scaled down to lie inside `room` if that is not empty. Fails with NotFound,
// TooLarge (maxBackSide, maxBackPixels), Malformed or what PictureTool says.
Result<QImage> loadPicture(const Shell& shell, const QString& path, QSize room = {});

} // namespace fennel
