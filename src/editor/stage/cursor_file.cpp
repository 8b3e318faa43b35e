// SPDX-License-Identifier: MIT
#include "editor/stage/cursor_file.h"

#include "base/files.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace fennel {

namespace {

using Frames = std::vector<CursorFrame>;

// Sizes in bytes of the parts of a .cur file: the list of pictures, then bitmaps without a file
// header.
constexpr qsizetype directoryHeader = 6;
constexpr qsizetype directoryEntry = 16;
constexpr qsizetype bitmapHeader = 40;
constexpr int cursorType = 2;
constexpr int usualSide = 32;
constexpr int mostEntries = 64;

Failure wrong(FailureKind kind, const QString& name, const char* what)
{
    return {kind, name.toStdString() + ": " + what};
}

Failure malformed(const QString& name, const char* what)
{
    return wrong(FailureKind::Malformed, name, what);
}

// Little-endian numbers; the caller has checked that the bytes are there.
template <class T>
T get(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<T>(bytes.data() + at);
}

struct Entry {
    int side = 0; // width in pixels
    QPoint hotSpot;
    qsizetype offset = 0;
    qsizetype size = 0;
};

Entry entryAt(QByteArrayView bytes, qsizetype at)
{
    Entry entry;
    const auto side = static_cast<quint8>(bytes[at]);
    // One byte has no room for 256, so 0 stands for it.
    entry.side = side == 0 ? maxCursorSide : side;
    entry.hotSpot = {get<quint16>(bytes, at + 4), get<quint16>(bytes, at + 6)};
    entry.size = get<quint32>(bytes, at + 8);
    entry.offset = get<quint32>(bytes, at + 12);
    return entry;
}

struct Bitmap {
    int width = 0;
    int height = 0;
    int depth = 0;
    std::vector<QRgb> palette;
    QByteArrayView pixels;
    QByteArrayView mask; // empty if the file has none, as some of 32 bits per pixel
};

// Rows fill whole 32-bit words.
qsizetype stride(int width, int depth)
{
    return (qsizetype{width} * depth + 31) / 32 * 4;
}

Result<Bitmap> bitmapSizes(QByteArrayView data, const QString& name)
{
    Bitmap bitmap;
    // Large pictures may be coded as PNG, which begins otherwise.
    if (data.size() < bitmapHeader || get<quint32>(data, 0) != bitmapHeader)
        return wrong(FailureKind::Unsupported, name, "the picture is not coded as a plain bitmap");
    const auto width = get<qint32>(data, 4);
    // The height counts the picture and the mask below it.
    const auto doubleHeight = get<qint32>(data, 8);
    if (width < 1 || width > maxCursorSide || doubleHeight < 2 || doubleHeight > 2 * maxCursorSide)
        return wrong(FailureKind::TooLarge, name,
                     "the picture is not 1 to 256 pixels wide and high");
    bitmap.width = width;
    bitmap.height = doubleHeight / 2;
    bitmap.depth = get<quint16>(data, 14);
    constexpr std::array depths{1, 4, 8, 24, 32};
    if (std::ranges::find(depths, bitmap.depth) == depths.end() || get<quint32>(data, 16) != 0)
        return wrong(FailureKind::Unsupported, name, "the colours are coded in an unknown way");
    return bitmap;
}

Result<Bitmap> bitmapAt(QByteArrayView data, const QString& name)
{
    auto sizes = bitmapSizes(data, name);
    if (!sizes)
        return sizes;
    Bitmap bitmap = std::move(*sizes);
    const quint32 used = get<quint32>(data, 32);
    const quint32 most = bitmap.depth <= 8 ? 1U << bitmap.depth : 0;
    // 0 means a full palette; a number above it is a broken one and taken for the same.
    const qsizetype colours = used == 0 || used > most ? most : used;
    const qsizetype pixelBytes = stride(bitmap.width, bitmap.depth) * bitmap.height;
    const qsizetype maskBytes = stride(bitmap.width, 1) * bitmap.height;
    const qsizetype pixelsAt = bitmapHeader + 4 * colours;
    if (data.size() < pixelsAt + pixelBytes)
        return malformed(name, "the picture is cut short");
    for (qsizetype i = 0; i < colours; ++i)
        bitmap.palette.push_back(get<quint32>(data, bitmapHeader + 4 * i) | 0xff000000U);
    // Filled up with black, so that any index in the pixels has a colour.
    bitmap.palette.resize(most, 0xff000000U);
    bitmap.pixels = data.sliced(pixelsAt, pixelBytes);
    // Pictures with opacity of their own may come without a mask.
    if (data.size() >= pixelsAt + pixelBytes + maskBytes)
        bitmap.mask = data.sliced(pixelsAt + pixelBytes, maskBytes);
    else if (bitmap.depth < 32)
        return malformed(name, "the mask is cut short");
    return bitmap;
}

QRgb colourAt(const Bitmap& bitmap, const char* row, int x)
{
    switch (bitmap.depth) {
    case 32:
        return qFromLittleEndian<quint32>(row + qsizetype{4} * x);
    case 24: {
        const auto* bytes = reinterpret_cast<const uchar*>(row) + qsizetype{3} * x;
        return qRgb(bytes[2], bytes[1], bytes[0]);
    }
    default: {
        const int perByte = 8 / bitmap.depth;
        // The leftmost pixel lies in the highest bits.
        const int shift = 8 - bitmap.depth * (x % perByte + 1);
        const int index = static_cast<uchar>(row[x / perByte]) >> shift;
        return bitmap.palette[static_cast<size_t>(index & ((1 << bitmap.depth) - 1))];
    }
    }
}

bool masked(const Bitmap& bitmap, int line, int x)
{
    if (bitmap.mask.isEmpty())
        return false;
    const auto byte = static_cast<uchar>(bitmap.mask[line * stride(bitmap.width, 1) + x / 8]);
    return (byte & (0x80 >> x % 8)) != 0;
}

// Old pictures of 32 bits leave every alpha at 0 and count on the mask.
bool hasAlpha(const Bitmap& bitmap)
{
    if (bitmap.depth != 32)
        return false;
    for (qsizetype at = 3; at < bitmap.pixels.size(); at += 4)
        if (bitmap.pixels[at] != 0)
            return true;
    return false;
}

QImage toImage(const Bitmap& bitmap)
{
    const bool alpha = hasAlpha(bitmap);
    QImage image(bitmap.width, bitmap.height, QImage::Format_ARGB32);
    for (int y = 0; y < bitmap.height; ++y) {
        const int line = bitmap.height - 1 - y; // rows come from the bottom up
        const char* row = bitmap.pixels.data() + line * stride(bitmap.width, bitmap.depth);
        for (int x = 0; x < bitmap.width; ++x) {
            const QRgb colour = colourAt(bitmap, row, x);
            const QRgb opaque = (colour & 0xffffffU) | 0xff000000U;
            image.setPixel(x, y, alpha ? colour : masked(bitmap, line, x) ? 0 : opaque);
        }
    }
    return image;
}

Result<Entry> bestEntry(QByteArrayView bytes, const QString& name)
{
    if (bytes.size() < directoryHeader || get<quint16>(bytes, 0) != 0 ||
        get<quint16>(bytes, 2) != cursorType)
        return malformed(name, "this is no cursor file");
    const int count = get<quint16>(bytes, 4);
    if (count < 1 || count > mostEntries || bytes.size() < directoryHeader + directoryEntry * count)
        return malformed(name, "the list of pictures is broken");
    Entry best = entryAt(bytes, directoryHeader);
    for (int i = 1; i < count; ++i) {
        const Entry entry = entryAt(bytes, directoryHeader + directoryEntry * i);
        // The picture nearest to the usual size of pointers is the one shown.
        if (std::abs(entry.side - usualSide) < std::abs(best.side - usualSide))
            best = entry;
    }
    // Subtracted instead of added, which could overflow.
    if (best.offset > bytes.size() || best.size > bytes.size() - best.offset)
        return malformed(name, "a picture lies outside the file");
    return best;
}

Result<CursorFrame> parseCur(QByteArrayView bytes, const QString& name)
{
    const auto entry = bestEntry(bytes, name);
    if (!entry)
        return entry.failure();
    const auto bitmap = bitmapAt(bytes.sliced(entry->offset, entry->size), name);
    if (!bitmap)
        return bitmap.failure();
    CursorFrame frame{toImage(*bitmap), entry->hotSpot, 0};
    // A hot spot outside the picture would be refused by the window system.
    frame.hotSpot.setX(std::min(frame.hotSpot.x(), bitmap->width - 1));
    frame.hotSpot.setY(std::min(frame.hotSpot.y(), bitmap->height - 1));
    return frame;
}

struct Chunk {
    QByteArrayView name;
    QByteArrayView bytes;
};

// The chunks of a RIFF list; nothing if one of them runs over the end.
std::optional<std::vector<Chunk>> chunksOf(QByteArrayView list)
{
    std::vector<Chunk> chunks;
    qsizetype at = 0;
    while (at + 8 <= list.size()) {
        const qsizetype size = get<quint32>(list, at + 4);
        if (size > list.size() - at - 8 || std::ssize(chunks) >= maxCursorSteps)
            return std::nullopt;
        chunks.push_back({list.sliced(at, 4), list.sliced(at + 8, size)});
        // Chunks begin at even places.
        at += 8 + size + size % 2;
    }
    return chunks;
}

struct Animation {
    std::vector<QByteArrayView> pictures; // each a whole .cur
    std::vector<quint32> order;           // index of the picture of each step
    std::vector<quint32> ticks;           // sixtieths of a second, of each step
    quint32 usualTicks = 0;
};

std::vector<quint32> numbers(QByteArrayView bytes)
{
    std::vector<quint32> out;
    for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4)
        out.push_back(get<quint32>(bytes, at));
    return out;
}

bool readChunk(const Chunk& chunk, Animation& animation)
{
    if (chunk.name == "anih") {
        if (chunk.bytes.size() < 36 || (get<quint32>(chunk.bytes, 32) & 1U) == 0)
            return false; // bare bitmaps instead of cursors: nobody writes these
        animation.usualTicks = get<quint32>(chunk.bytes, 28);
    } else if (chunk.name == "rate") {
        animation.ticks = numbers(chunk.bytes);
    } else if (chunk.name == "seq ") {
        animation.order = numbers(chunk.bytes);
    } else if (chunk.name == "LIST" && chunk.bytes.startsWith("fram")) {
        const auto frames = chunksOf(chunk.bytes.sliced(4));
        if (!frames)
            return false;
        for (const Chunk& frame : *frames)
            if (frame.name == "icon")
                animation.pictures.push_back(frame.bytes);
    }
    return true;
}

int milliseconds(quint32 ticks)
{
    constexpr quint32 longestTicks = 60 * 60; // a minute; more is a broken number
    return static_cast<int>(std::clamp(ticks, 1U, longestTicks) * 1000 / 60);
}

Result<Frames> framesOf(const Animation& animation, const QString& name)
{
    Frames decoded;
    for (const QByteArrayView picture : animation.pictures) {
        auto frame = parseCur(picture, name);
        if (!frame)
            return frame.failure();
        decoded.push_back(std::move(*frame));
    }
    // Without an order the pictures are shown as they come.
    const size_t steps = animation.order.empty() ? decoded.size() : animation.order.size();
    if (decoded.empty() || steps > maxCursorSteps)
        return malformed(name, "the animation has no pictures, or too many");
    Frames frames;
    for (size_t step = 0; step < steps; ++step) {
        const size_t index = animation.order.empty() ? step : animation.order[step];
        if (index >= decoded.size())
            return malformed(name, "the animation shows a picture that is not there");
        frames.push_back(decoded[index]);
        // A step beyond the list of times has the usual one.
        frames.back().durationMs = milliseconds(
            step < animation.ticks.size() ? animation.ticks[step] : animation.usualTicks);
    }
    return frames;
}

Result<Frames> parseAni(QByteArrayView bytes, const QString& name)
{
    // "RIFF", the size, then the kind of the file.
    if (bytes.size() < 12 || bytes.sliced(8, 4) != "ACON")
        return malformed(name, "this is no animated cursor");
    const qsizetype claimed = get<quint32>(bytes, 4);
    const auto chunks = chunksOf(bytes.sliced(12));
    if (!chunks || claimed > bytes.size() - 8)
        return malformed(name, "the file is cut short");
    Animation animation;
    for (const Chunk& chunk : *chunks)
        if (!readChunk(chunk, animation))
            return malformed(name, "the animation is broken");
    return framesOf(animation, name);
}

} // namespace

Result<Frames> parseCursor(const QByteArray& bytes, const QString& name)
{
    if (bytes.size() > maxCursorBytes)
        return wrong(FailureKind::TooLarge, name, "the file is larger than any cursor");
    // By content, as files are renamed between the two endings.
    if (bytes.startsWith("RIFF"))
        return parseAni(bytes, name);
    auto frame = parseCur(bytes, name);
    if (!frame)
        return frame.failure();
    return Frames{std::move(*frame)};
}

Result<Frames> readCursorFile(const QString& path)
{
    const auto bytes = readBytes(path, maxCursorBytes);
    if (!bytes)
        return bytes.failure();
    return parseCursor(*bytes, namePart(path));
}

} // namespace fennel
