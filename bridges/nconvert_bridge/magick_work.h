// SPDX-License-Identifier: MIT
// The formats and operations that Qt lacks, done by ImageMagick's library. It is initialised at the
// first call, which takes longer than scaling a whole JPEG; a run that does without it pays only
// for linking it (about 2 ms).
//
// Pictures go in and out as QImage. Bytes are always decoded as the one format that is named, never
// guessed: guessing would open formats that can read other files or run programs.
#pragma once

#include "base/result.h"

#include <QByteArray>
#include <QImage>

namespace fennel::nconvert {

// The first frame, turned upright, with straight alpha, in sRGB. `format` is one of ImageMagick's
// names such as "TIFF". Refuses pictures above the limits before decoding them.
Result<QImage> decodeWithMagick(const QByteArray& bytes, const char* format);

// The stored size, from the header alone.
Result<QSize> measureWithMagick(const QByteArray& bytes, const char* format);

// `percent` from 1 to 100. The radius grows with it, 25 spreads a pixel over its direct neighbours.
Result<QImage> blurred(const QImage& picture, int percent);

// The picture in at most `colours` colours, dithered, as RGB888.
Result<QImage> reduced(const QImage& picture, int colours);

// "GIF" or "ICO" with a palette of at most `colours` (2 to 256) colours.
Result<QByteArray> encodeWithPalette(const QImage& picture, const char* format, int colours);

} // namespace fennel::nconvert
