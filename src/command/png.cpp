// SPDX-License-Identifier: MIT
#include "command/png.h"

#include <QtEndian>

#include <libdeflate.h>

#include <memory>

namespace fennel {

namespace {

void addNumber(QByteArray& bytes, quint32 number)
{
    const quint32 big = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char*>(&big), sizeof big);
}

// Length, type, data, and the check of the latter two.
void addChunk(QByteArray& file, const QByteArray& type, const QByteArray& data)
{
    addNumber(file, static_cast<quint32>(data.size()));
    const QByteArray checked = type + data;
    file += checked;
    addNumber(file,
              libdeflate_crc32(0, checked.constData(), static_cast<std::size_t>(checked.size())));
}

// Each line as the difference to the one above, which screens have most in common with.
QByteArray filtered(const QImage& rgb)
{
    constexpr char up = 2;
    const auto length = static_cast<qsizetype>(rgb.width()) * 3;
    QByteArray lines;
    lines.resize((length + 1) * rgb.height());
    const QByteArray none(length, '\0');
    const uchar* above = reinterpret_cast<const uchar*>(none.constData());
    char* to = lines.data();
    for (int y = 0; y < rgb.height(); ++y) {
        const uchar* line = rgb.constScanLine(y);
        *to++ = up;
        for (qsizetype i = 0; i < length; ++i)
            *to++ = static_cast<char>(line[i] - above[i]);
        above = line;
    }
    return lines;
}

QByteArray compressed(const QByteArray& bytes)
{
    constexpr int level = 3;
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    const auto size = static_cast<std::size_t>(bytes.size());
    QByteArray packed;
    packed.resize(static_cast<qsizetype>(libdeflate_zlib_compress_bound(compressor.get(), size)));
    packed.truncate(static_cast<qsizetype>(
        libdeflate_zlib_compress(compressor.get(), bytes.constData(), size, packed.data(),
                                 static_cast<std::size_t>(packed.size()))));
    return packed;
}

} // namespace

QByteArray pngOf(const QImage& picture)
{
    if (picture.isNull())
        return {};
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    QByteArray header;
    addNumber(header, static_cast<quint32>(rgb.width()));
    addNumber(header, static_cast<quint32>(rgb.height()));
    // Eight bits, true colour; the only packing and filters there are; not interlaced.
    header += QByteArray::fromHex("0802000000");
    QByteArray file = QByteArray::fromHex("89504e470d0a1a0a");
    addChunk(file, "IHDR", header);
    addChunk(file, "IDAT", compressed(filtered(rgb)));
    addChunk(file, "IEND", {});
    return file;
}

} // namespace fennel
