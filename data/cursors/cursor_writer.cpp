// SPDX-License-Identifier: MIT
#include "cursor_writer.h"

#include <QtEndian>

namespace fennel {

namespace {

constexpr int directorySize = 6 + 16;
constexpr int bitmapHeaderSize = 40;
constexpr int animationHeaderSize = 36;
constexpr int framesAreIcons = 1; // flag of the animation header
constexpr int opaqueFrom = 128;   // alpha below this is transparent where only the mask counts

template <class T>
void put(QByteArray& out, T value)
{
    const T little = qToLittleEndian(value);
    out.append(reinterpret_cast<const char*>(&little), sizeof little);
}

void put16(QByteArray& out, int value)
{
    put(out, static_cast<quint16>(value));
}

void put32(QByteArray& out, qsizetype value)
{
    put(out, static_cast<quint32>(value));
}

// A RIFF chunk: its name, its size, its bytes, and a zero byte if their number is odd.
QByteArray chunk(const char* name, const QByteArray& bytes)
{
    QByteArray out(name, 4);
    put32(out, bytes.size());
    out += bytes;
    if (bytes.size() % 2 != 0)
        out += '\0';
    return out;
}

// Height counts both the colours and the mask, as the format wants it.
QByteArray bitmapHeader(const QImage& picture)
{
    QByteArray out;
    put32(out, bitmapHeaderSize);
    put32(out, picture.width());
    put32(out, 2 * picture.height());
    put16(out, 1);
    put16(out, 32);
    out.append(bitmapHeaderSize - out.size(), '\0');
    return out;
}

// Rows from the bottom up, each padded to four bytes; a set bit is a transparent pixel.
QByteArray mask(const QImage& picture)
{
    const int stride = (picture.width() + 31) / 32 * 4;
    QByteArray out(qsizetype{stride} * picture.height(), '\0');
    for (int y = 0; y < picture.height(); ++y) {
        char* row = out.data() + qsizetype{picture.height() - 1 - y} * stride;
        for (int x = 0; x < picture.width(); ++x)
            if (qAlpha(picture.pixel(x, y)) < opaqueFrom)
                row[x / 8] = static_cast<char>(row[x / 8] | (0x80 >> x % 8));
    }
    return out;
}

QByteArray colours(const QImage& picture)
{
    QByteArray out;
    for (int y = picture.height() - 1; y >= 0; --y)
        for (int x = 0; x < picture.width(); ++x)
            put32(out, picture.pixel(x, y)); // 0xAARRGGBB is blue, green, red, alpha in memory
    return out;
}

} // namespace

QByteArray curBytes(const QImage& picture, QPoint hotSpot)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    const QByteArray bitmap = bitmapHeader(image) + colours(image) + mask(image);
    QByteArray out;
    put16(out, 0);
    put16(out, 2); // a cursor; 1 would be an icon
    put16(out, 1);
    out += static_cast<char>(image.width()); // 256 is written as 0
    out += static_cast<char>(image.height());
    put16(out, 0);
    put16(out, hotSpot.x());
    put16(out, hotSpot.y());
    put32(out, bitmap.size());
    put32(out, directorySize);
    return out + bitmap;
}

QByteArray aniBytes(const std::vector<QImage>& pictures, QPoint hotSpot, int ticks)
{
    const auto count = static_cast<qsizetype>(pictures.size());
    QByteArray header;
    put32(header, animationHeaderSize);
    put32(header, count); // pictures
    put32(header, count); // steps
    header.append(16, '\0');
    put32(header, ticks);
    put32(header, framesAreIcons);
    QByteArray frames("fram");
    for (const QImage& picture : pictures)
        frames += chunk("icon", curBytes(picture, hotSpot));
    return chunk("RIFF", QByteArray("ACON") + chunk("anih", header) + chunk("LIST", frames));
}

} // namespace fennel
