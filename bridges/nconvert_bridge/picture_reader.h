// SPDX-License-Identifier: MIT
// From the bytes of any known picture format to an opaque picture of the wanted size.
#pragma once

#include "command_line.h"

#include <QByteArray>
#include <QImage>

namespace fennel::nconvert {

// The size that the job asks for, in pixels, of a picture of the given upright size: exactly the
// numbers of -resize; one number of 0 follows from the other by the picture's proportions. With
// `inside` they are the most.
// TooLarge above the limits.
Result<QSize> wantedSize(const Job& job, QSize upright);

// The size as the file stores it, before it is turned upright; nothing is decoded. `path` is used
// for its ending alone. Refuses what readPicture() would refuse at a glance: unknown formats, sizes
// above the limits, JPEGs of too many scans.
Result<QSize> measurePicture(const QByteArray& bytes, const std::string& path);

// The first frame (of an icon the largest picture), upright by its EXIF orientation, transparent
// parts on black, scaled to wantedSize(). A JPEG that becomes smaller is scaled while it is
// decoded. Damaged and cut off files are refused, as a half grey picture helps nobody, but for
// Job::partial: on the stage and at boot what is there is shown.
Result<QImage> readPicture(const QByteArray& bytes, const Job& job);

} // namespace fennel::nconvert
