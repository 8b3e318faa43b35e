// SPDX-License-Identifier: MIT
#include "picture_writer.h"

#include "container/jpeg_check.h"
#include "magick_work.h"

#include <QBuffer>
#include <QHash>
#include <QImageWriter>

#include <cmath>
#include <string_view>

namespace fennel::nconvert {

namespace {

constexpr int paletteLimit = 256;
constexpr int maxIconSide = 256; // pixels, the format's own limit

int paletteOf(const Job& job)
{
    return job.colours > 0 ? job.colours : paletteLimit;
}

// The same pixels without the texts, the colour profile and the grey or indexed storage of the
// source, each of which would end up in the file.
QImage barePicture(const QImage& rgb, int dpi)
{
    constexpr double inchesPerMetre = 100.0 / 2.54;
    // Shares the pixels, no copy; `rgb` must outlive it.
    QImage bare(rgb.constBits(), rgb.width(), rgb.height(), rgb.bytesPerLine(), rgb.format());
    bare.setDotsPerMeterX(static_cast<int>(std::lround(dpi * inchesPerMetre)));
    bare.setDotsPerMeterY(bare.dotsPerMeterX());
    return bare;
}

// The encoder of another system may have other habits, and a picture that does not boot shows only
// at the boot.
Result<void> checkWritten(const QByteArray& bytes, const QImage& picture)
{
    const Result<JpegHead> head =
        readJpegHead({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!head)
        return head.failure();
    if (head->width != picture.width() || head->height != picture.height() || head->metadata)
        return Failure{FailureKind::Io, "The JPEG encoder wrote something else than it was given."};
    return checkBootable(*head);
}

Result<QByteArray> encodeJpeg(const QImage& picture, const Job& job)
{
    // Both formats are written alike, so the large copy is spared.
    const bool plain =
        picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_RGB888;
    const QImage rgb = plain ? picture : picture.convertToFormat(QImage::Format_RGB888);
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    QImageWriter writer(&device, "jpeg");
    writer.setQuality(job.quality);
    if (!writer.write(barePicture(rgb, job.dpi)))
        return Failure{FailureKind::Io,
                       "The JPEG cannot be made: " + writer.errorString().toStdString() + "."};
    if (Result<void> good = checkWritten(bytes, rgb); !good)
        return good.failure();
    return bytes;
}

// Digits, letters and two marks: 64 characters.
constexpr std::string_view pixelCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.+";

QByteArray pixelName(qsizetype number, int length)
{
    QByteArray name(length, 'a');
    const auto base = static_cast<qsizetype>(pixelCharacters.size());
    for (int i = 0; i < length; ++i, number /= base)
        name[i] = pixelCharacters[static_cast<std::size_t>(number % base)];
    return name;
}

// XPM lists its colours before the pixels.
struct ColourTable {
    QHash<QRgb, qsizetype> numbers;
    QList<QRgb> colours; // in order of appearance
};

ColourTable coloursOf(const QImage& rgb)
{
    ColourTable table;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x) {
            if (!table.numbers.contains(line[x])) {
                table.numbers.insert(line[x], table.colours.size());
                table.colours.append(line[x]);
            }
        }
    }
    return table;
}

Result<QByteArray> encodeIcon(const QImage& picture, const Job& job)
{
    if (picture.width() > maxIconSide || picture.height() > maxIconSide)
        return Failure{FailureKind::TooLarge,
                       "An icon has at most " + std::to_string(maxIconSide) + " pixels a side."};
    return encodeWithPalette(picture, "ICO", paletteOf(job));
}

} // namespace

QByteArray encodeXpm(const QImage& picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    const ColourTable table = coloursOf(rgb);
    int length = 1;
    // As many characters a pixel as the number of colours needs.
    for (auto room = static_cast<qsizetype>(pixelCharacters.size()); room < table.colours.size();
         room *= static_cast<qsizetype>(pixelCharacters.size()))
        ++length;
    QByteArray text = "/* XPM */\nstatic char * picture_xpm[] = {\n\"";
    text += QByteArray::number(rgb.width()) + ' ' + QByteArray::number(rgb.height()) + ' ' +
            QByteArray::number(table.colours.size()) + ' ' + QByteArray::number(length) + "\",\n";
    QList<QByteArray> names;
    for (qsizetype i = 0; i < table.colours.size(); ++i) {
        const QByteArray digits = QByteArray::number(table.colours[i] & 0xFFFFFF, 16);
        names.append(pixelName(i, length));
        text += '"' + names.last() + " c #" + digits.rightJustified(6, '0').toUpper() + "\",\n";
    }
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        text += '"';
        for (int x = 0; x < rgb.width(); ++x)
            text += names[table.numbers.value(line[x])];
        text += y + 1 < rgb.height() ? "\",\n" : "\"\n";
    }
    return text + "};\n";
}

Result<QByteArray> encodePicture(const QImage& picture, const Job& job)
{
    Result<QImage> source = job.blur > 0 ? blurred(picture, job.blur) : Result(picture);
    if (!source)
        return source.failure();
    switch (job.format) {
    case OutputFormat::Jpeg:
        return encodeJpeg(*source, job);
    case OutputFormat::Gif:
        return encodeWithPalette(*source, "GIF", paletteOf(job));
    case OutputFormat::Ico:
        return encodeIcon(*source, job);
    case OutputFormat::Xpm:
        break;
    }
    // XPM of our own making, as boot loaders read only its plainest form.
    const Result<QImage> few = reduced(*source, paletteOf(job));
    if (!few)
        return few.failure();
    return encodeXpm(*few);
}

} // namespace fennel::nconvert
