// SPDX-License-Identifier: MIT
#include "tools/picture_size.h"

#include "base/files.h"
#include "screen/jpeg_check.h"
#include "tools/picture_limits.h"

#include <QImageReader>

namespace fennel {

Result<QSize> pictureSize(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    if (!bytes)
        return bytes.failure();
    QSize size;
    // JPEGs are measured by our own reader of their heads; other formats are left to Qt.
    if (const Result<JpegHead> head =
            readJpegHead({bytes->constData(), static_cast<std::size_t>(bytes->size())})) {
        size = {head->width, head->height};
    } else {
        QImageReader reader(path);
        reader.setDecideFormatFromContent(true);
        size = reader.size();
    }
    const std::string name = namePart(path).toStdString();
    if (!size.isValid())
        return Failure{FailureKind::Malformed, name + " is no picture that can be read."};
    // A picture that claims an absurd size is refused before anything decodes it.
    if (Result<void> fits = checkPictureSize(name, size.width(), size.height()); !fits)
        return fits.failure();
    return size;
}

} // namespace fennel
