// SPDX-License-Identifier: MIT
#include "picture_reader.h"

#include "base/on_black.h"
#include "container/jpeg_check.h"
#include "container/picture_limits.h"
#include "magick_work.h"
#include "picture_kind.h"
#include "wholeness.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace fennel::nconvert {

namespace {

// While one lives, Qt's decoders are listened to: some of them return what they have of a cut off
// file and only warn.
class DamageWatch {
public:
    DamageWatch() : m_before(qInstallMessageHandler(&DamageWatch::hear)) { heard.clear(); }
    ~DamageWatch() { qInstallMessageHandler(m_before); }
    Q_DISABLE_COPY_MOVE(DamageWatch)
    // The warning that tells of missing data; empty if there was none.
    [[nodiscard]] static QString damage() { return heard; }

private:
    static void hear(QtMsgType, const QMessageLogContext&, const QString& text)
    {
        if (text.contains(QLatin1String("premature end"), Qt::CaseInsensitive) ||
            text.contains(QLatin1String("pixels missing")))
            heard = text;
    }
    QtMessageHandler m_before;
    static inline QString heard;
};

const char* qtFormat(PictureKind kind)
{
    switch (kind) {
    case PictureKind::Jpeg:
        return "jpeg";
    case PictureKind::Png:
        return "png";
    case PictureKind::Bmp:
        return "bmp";
    case PictureKind::Gif:
        return "gif";
    case PictureKind::Ico:
        return "ico";
    case PictureKind::Xpm:
        return "xpm";
    default:
        return nullptr;
    }
}

const char* magickFormat(PictureKind kind)
{
    switch (kind) {
    case PictureKind::Tiff:
        return "TIFF";
    case PictureKind::Webp:
        return "WEBP";
    case PictureKind::Pcx:
        return "PCX";
    case PictureKind::Tga:
        return "TGA";
    default:
        return nullptr;
    }
}

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

Failure damagedPicture(const QString& reason)
{
    return {FailureKind::Malformed,
            "The picture is damaged or cut off" +
                (reason.isEmpty() ? std::string() : " (" + reason.toStdString() + ")") + "."};
}

// Rather refused than handed to a decoder that might do anything with it.
Failure unknownFormat()
{
    return {FailureKind::Unsupported, "This is no picture of a known format."};
}

// Formats whose decoders fill what is missing without a word.
bool isWhole(std::string_view bytes, PictureKind kind, QSize size)
{
    if (kind == PictureKind::Bmp)
        return bmpIsWhole(bytes, size.width(), size.height());
    return kind != PictureKind::Gif || gifIsWhole(bytes);
}

// An icon holds the same picture in several sizes.
void chooseLargestFrame(QImageReader& reader)
{
    int best = 0;
    qint64 bestArea = 0;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const QSize size = reader.size();
        const qint64 area = qint64{size.width()} * size.height();
        if (area > bestArea) {
            bestArea = area;
            best = i;
        }
    }
    reader.jumpToImage(best);
}

// The reader of GIFs tells the size of the first frame, but makes a picture of the whole screen.
QSize storedSize(const QImageReader& reader, const QByteArray& bytes, PictureKind kind)
{
    return kind == PictureKind::Gif ? gifScreenSize(viewOf(bytes)) : reader.size();
}

// Qt's reader of one known kind.
class QtReader {
public:
    QtReader(const QByteArray& bytes, PictureKind kind) : m_reader(&m_device, qtFormat(kind))
    {
        constexpr int bytesPerPixel = 8; // 16 bits a channel
        // In MB, as much as the largest picture allowed needs.
        QImageReader::setAllocationLimit(static_cast<int>(maxPicturePixels * bytesPerPixel >> 20) +
                                         1);
        m_device.setData(bytes);
        m_device.open(QIODevice::ReadOnly);
        // The kind is known; guessing again could come out otherwise.
        m_reader.setAutoDetectImageFormat(false);
        m_reader.setAutoTransform(true);
        if (kind == PictureKind::Ico)
            chooseLargestFrame(m_reader);
    }
    QImageReader* operator->() { return &m_reader; }
    QImageReader& operator*() { return m_reader; }

private:
    QBuffer m_device;
    QImageReader m_reader;
};

// A progressive JPEG may go over its pixels thousands of times.
Result<void> checkScans(const QByteArray& bytes, PictureKind kind)
{
    if (kind != PictureKind::Jpeg || jpegScans(viewOf(bytes)) <= maxJpegScans)
        return {};
    return Failure{FailureKind::TooLarge,
                   "The JPEG has more than " + std::to_string(maxJpegScans) + " scans."};
}

Result<QSize> measureWithQt(QtReader& reader, const QByteArray& bytes, PictureKind kind)
{
    if (Result<void> few = checkScans(bytes, kind); !few)
        return few.failure();
    const QSize stored = storedSize(*reader, bytes, kind);
    if (!stored.isValid())
        return damagedPicture(reader->errorString());
    if (Result<void> fits = checkPictureSize("The picture", stored.width(), stored.height()); !fits)
        return fits.failure();
    return stored;
}

Result<QImage> readWithQt(const QByteArray& bytes, PictureKind kind, const Job& job)
{
    QtReader reader(bytes, kind);
    const Result<QSize> measured = measureWithQt(reader, bytes, kind);
    if (!measured)
        return measured.failure();
    const QSize stored = *measured;
    if (!job.partial && !isWhole(viewOf(bytes), kind, stored))
        return damagedPicture({});
    // Scaled while decoding, which is faster by far and needs less memory.
    if (kind == PictureKind::Jpeg && !job.crop && job.shape == Shape::Stretch) {
        const bool turned =
            reader->transformation().testFlag(QImageIOHandler::TransformationRotate90);
        const Result<QSize> size = wantedSize(job, turned ? stored.transposed() : stored);
        if (!size)
            return size.failure();
        // The decoder works before the turn.
        reader->setScaledSize(turned ? size->transposed() : *size);
    }
    const DamageWatch watch;
    QImage picture = reader->read();
    if (!job.partial && !DamageWatch::damage().isEmpty())
        return damagedPicture(DamageWatch::damage());
    if (picture.isNull())
        return damagedPicture(reader->errorString());
    return picture;
}

// Photographs carry the colour space of their camera. Only those of JPEGs are taken: what other
// formats say is usually an awkward way to say sRGB, and shadows would suffer.
void convertToSrgb(QImage& picture)
{
    const QColorSpace space = picture.colorSpace();
    if (space.isValid() && space != QColorSpace(QColorSpace::SRgb))
        picture.convertToColorSpace(QColorSpace::SRgb);
}

// White is opaque.
QImage opacityOf(const QImage& picture)
{
    QImage opacity(picture.size(), QImage::Format_RGB32);
    opacity.fill(Qt::white);
    if (!picture.hasAlphaChannel())
        return opacity;
    QImage alpha = picture.convertToFormat(QImage::Format_Alpha8);
    alpha.reinterpretAsFormat(QImage::Format_Grayscale8);
    return alpha.convertToFormat(QImage::Format_RGB32);
}

QImage shaped(const QImage& picture, QSize size, Shape shape)
{
    const auto scaled = [&](const QImage& source, Qt::AspectRatioMode mode) {
        return source.scaled(size, mode, Qt::SmoothTransformation);
    };
    if (shape == Shape::Crop) {
        QRect part(QPoint(), size.scaled(picture.size(), Qt::KeepAspectRatio).expandedTo({1, 1}));
        part.moveCenter(picture.rect().center());
        return scaled(picture.copy(part & picture.rect()), Qt::IgnoreAspectRatio);
    }
    if (shape == Shape::Stretch)
        return scaled(picture, Qt::IgnoreAspectRatio);
    const QImage whole = scaled(picture, Qt::KeepAspectRatio);
    QImage canvas(size, QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QPainter painter(&canvas);
    painter.drawImage((size.width() - whole.width()) / 2, (size.height() - whole.height()) / 2,
                      whole);
    return canvas;
}

} // namespace

Result<QSize> wantedSize(const Job& job, QSize upright)
{
    if (!job.resize)
        return upright;
    // At least one pixel; one more than allowed lets the check below refuse it.
    const auto follow = [](int given, int of, int other) {
        const double value = std::round(static_cast<double>(given) * other / of);
        return static_cast<int>(std::clamp(value, 1.0, maxPictureSide + 1.0));
    };
    QSize size(job.width, job.height);
    if (job.inside) {
        // A very flat picture must not vanish.
        const bool fits = upright.width() <= job.width && upright.height() <= job.height;
        return fits ? upright : upright.scaled(size, Qt::KeepAspectRatio).expandedTo({1, 1});
    }
    if (size.height() == 0)
        size.setHeight(follow(size.width(), upright.width(), upright.height()));
    if (size.width() == 0)
        size.setWidth(follow(size.height(), upright.height(), upright.width()));
    if (Result<void> fits = checkPictureSize("The resized picture", size.width(), size.height());
        !fits)
        return fits.failure();
    return size;
}

Result<QSize> measurePicture(const QByteArray& bytes, const std::string& path)
{
    const PictureKind kind = pictureKind(viewOf(bytes), path);
    if (kind == PictureKind::Unknown)
        return unknownFormat();
    if (magickFormat(kind) != nullptr)
        return measureWithMagick(bytes, magickFormat(kind));
    QtReader reader(bytes, kind);
    return measureWithQt(reader, bytes, kind);
}

Result<QImage> readPicture(const QByteArray& bytes, const Job& job)
{
    const PictureKind kind = pictureKind(viewOf(bytes), sourceOf(job));
    if (kind == PictureKind::Unknown)
        return unknownFormat();
    Result<QImage> read = magickFormat(kind) != nullptr
                              ? decodeWithMagick(bytes, magickFormat(kind))
                              : readWithQt(bytes, kind, job);
    if (!read)
        return read;
    QImage picture = job.alpha ? opacityOf(*read) : onBlack(std::move(*read));
    if (kind == PictureKind::Jpeg)
        convertToSrgb(picture);
    if (job.crop) {
        const QRect part(job.cropLeft, job.cropTop, job.cropWidth, job.cropHeight);
        if (!picture.rect().contains(part))
            return Failure{FailureKind::Unsupported, "The part to keep reaches past the picture."};
        picture = picture.copy(part);
    }
    const Result<QSize> size = wantedSize(job, picture.size());
    if (!size)
        return size.failure();
    if (picture.size() != *size)
        picture = shaped(picture, *size, job.shape);
    if (picture.isNull())
        return Failure{FailureKind::TooLarge, "There is not enough memory for the picture."};
    return picture;
}

} // namespace fennel::nconvert
