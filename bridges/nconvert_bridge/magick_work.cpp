// SPDX-License-Identifier: MIT
#include "magick_work.h"

#include "container/picture_limits.h"

#include <Magick++.h>

#include <algorithm>
#include <string_view>

namespace fennel::nconvert {

namespace {

Failure magickFailure(const std::exception& error)
{
    // "program: what happened `file' @ error/coder.c/Function/line": only the middle is for people.
    std::string text = error.what();
    text = text.substr(0, std::min(text.find(" `"), text.find(" @ ")));
    if (const std::size_t colon = text.find(": "); colon != std::string::npos)
        text = text.substr(colon + 2);
    return {FailureKind::Malformed, "The picture cannot be read (" + text + ")."};
}

// The library turns a TGA by itself and then still calls it upside down.
bool takesOrientation(const char* format)
{
    return std::string_view(format) != "TGA";
}

void startMagick()
{
    static const bool started = [] {
        Magick::InitializeMagick(nullptr);
        Magick::ResourceLimits::thread(1); // starting threads costs more than a splash image
        return true;
    }();
    Q_UNUSED(started)
}

// Runs `work`, whose failures are exceptions of the library.
template <class Value, class Work>
Result<Value> guarded(Work work)
{
    try {
        startMagick();
        return work();
    } catch (const Magick::Exception& error) {
        return magickFailure(error);
    } catch (const std::bad_alloc& error) {
        return magickFailure(error);
    }
}

Magick::Image fromQt(const QImage& picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    QByteArray packed; // QImage pads its lines to four bytes
    const qsizetype lineBytes = qsizetype{rgb.width()} * 3;
    packed.reserve(lineBytes * rgb.height());
    for (int y = 0; y < rgb.height(); ++y)
        packed.append(reinterpret_cast<const char*>(rgb.constScanLine(y)), lineBytes);
    Magick::Image image(static_cast<size_t>(rgb.width()), static_cast<size_t>(rgb.height()), "RGB",
                        Magick::CharPixel, packed.constData());
    image.depth(8);
    return image;
}

QImage toQt(Magick::Image& image, QImage::Format format, const char* channels)
{
    QImage picture(static_cast<int>(image.columns()), static_cast<int>(image.rows()), format);
    for (int y = 0; y < picture.height(); ++y)
        image.write(0, y, image.columns(), 1, channels, Magick::CharPixel, picture.scanLine(y));
    return picture;
}

Magick::Blob blobOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

// The first picture of those that hold several.
Magick::Image firstPicture(const char* format)
{
    Magick::Image image;
    image.quiet(true); // unknown tags and the like are no reason to refuse a picture
    image.magick(format);
    image.subImage(0);
    image.subRange(1);
    return image;
}

// Reads the header only: the size is looked at before anything is decoded.
Result<QSize> pinged(Magick::Image& image, const Magick::Blob& blob)
{
    image.ping(blob);
    const QSize size(static_cast<int>(image.columns()), static_cast<int>(image.rows()));
    const Result<void> fits = checkPictureSize("The picture", size.width(), size.height());
    return fits ? Result<QSize>(size) : fits.failure();
}

void reduceColours(Magick::Image& image, int colours)
{
    // Few colours without dithering show bands in every sky.
    image.quantizeDither(true);
    image.quantizeColors(static_cast<size_t>(colours));
    image.quantize();
}

} // namespace

Result<QSize> measureWithMagick(const QByteArray& bytes, const char* format)
{
    return guarded<QSize>([&] {
        Magick::Image image = firstPicture(format);
        return pinged(image, blobOf(bytes));
    });
}

Result<QImage> decodeWithMagick(const QByteArray& bytes, const char* format)
{
    return guarded<QImage>([&]() -> Result<QImage> {
        const Magick::Blob blob = blobOf(bytes);
        Magick::Image image = firstPicture(format);
        if (const Result<QSize> fits = pinged(image, blob); !fits)
            return fits.failure();
        image.read(blob);
        if (takesOrientation(format))
            image.autoOrient();
        if (image.colorSpace() != Magick::sRGBColorspace)
            image.colorSpace(Magick::sRGBColorspace);
        return toQt(image, QImage::Format_RGBA8888, "RGBA");
    });
}

Result<QImage> blurred(const QImage& picture, int percent)
{
    // 100 % is a blur of four pixels' standard deviation.
    constexpr double percentPerPixel = 25.0;
    return guarded<QImage>([&] {
        Magick::Image image = fromQt(picture);
        image.blur(0.0, percent / percentPerPixel);
        return toQt(image, QImage::Format_RGB888, "RGB");
    });
}

Result<QImage> reduced(const QImage& picture, int colours)
{
    return guarded<QImage>([&] {
        Magick::Image image = fromQt(picture);
        reduceColours(image, colours);
        return toQt(image, QImage::Format_RGB888, "RGB");
    });
}

Result<QByteArray> encodeWithPalette(const QImage& picture, const char* format, int colours)
{
    return guarded<QByteArray>([&] {
        Magick::Image image = fromQt(picture);
        reduceColours(image, colours);
        // Comments and profiles would only cost room.
        image.strip();
        image.magick(format);
        Magick::Blob blob;
        image.write(&blob);
        return QByteArray(static_cast<const char*>(blob.data()),
                          static_cast<qsizetype>(blob.length()));
    });
}

} // namespace fennel::nconvert
