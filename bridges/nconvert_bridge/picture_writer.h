// SPDX-License-Identifier: MIT
// From a picture to the bytes of the file that the job asks for.
#pragma once

#include "command_line.h"

#include <QByteArray>
#include <QImage>

namespace fennel::nconvert {

// In the job's format. A JPEG is checked: it shows on the boot screen or it is not handed out.
Result<QByteArray> encodePicture(const QImage& picture, const Job& job);

// XPM version 3 as boot loaders read it: the first line is the format's mark and nothing else, one
// line a colour with "c #RRGGBB", one character a pixel for up to 64 colours and two above, no
// character that C or a loader could take for anything else. As many colours as the picture has.
QByteArray encodeXpm(const QImage& picture);

} // namespace fennel::nconvert
