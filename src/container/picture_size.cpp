// SPDX-License-Identifier: MIT
#include "container/picture_size.h"

#include "base/files.h"
#include "container/jpeg_check.h"
#include "container/picture_limits.h"

namespace fennel {

namespace {

// What a JPEG says in front of its data. More in front than this has only a file that is not one
// of a boot screen.
Result<QSize> sizeByHead(const QString& path)
{
    constexpr qsizetype front = 65536;
    const Result<QByteArray> bytes = readFront(path, front);
    if (!bytes)
        return bytes.failure();
    const auto head = readJpegHead({bytes->constData(), static_cast<std::size_t>(bytes->size())});
    if (!head || !checkPictureSize({}, head->width, head->height))
        return Failure{};
    return QSize(head->width, head->height);
}

} // namespace

Result<QSize> pictureSize(const Shell& shell, const QString& path)
{
    // The bridge takes longer to start than all else that an open does.
    if (Result<QSize> size = sizeByHead(path))
        return size;
    const Result<FilePicture> found = shell.readPicture({path, PictureMode::Measure});
    return found ? Result<QSize>(found->stored) : found.failure();
}

} // namespace fennel
