// SPDX-License-Identifier: MIT
#include "tools/picture_size.h"

namespace fennel {

Result<QSize> pictureSize(const Shell& shell, const QString& path)
{
    const Result<FilePicture> found = shell.readPicture({path, PictureMode::Measure});
    return found ? Result<QSize>(found->stored) : found.failure();
}

} // namespace fennel
