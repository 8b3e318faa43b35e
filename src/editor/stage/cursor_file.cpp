// SPDX-License-Identifier: MIT
#include "editor/stage/cursor_file.h"

#include "base/files.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>

namespace fennel {

namespace {

// Sizes in bytes of the parts of a .cur file: the list of pictures, of which each has an entry.
constexpr qsizetype directoryHeader = 6;
constexpr qsizetype directoryEntry = 16;
constexpr int cursorType = 2;
constexpr int usualSide = 32;
// A RIFF file: "RIFF", its size, its kind; then chunks, each a name and a size.
constexpr qsizetype riffHeader = 12;
constexpr qsizetype chunkHeader = 8;

Failure malformed(const QString& name, const char* what)
{
    return {FailureKind::Malformed, name.toStdString() + ": " + what};
}

// Little-endian numbers; the caller has checked that the bytes are there.
template <class T>
T get(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<T>(bytes.data() + at);
}

// The contents of the first chunk of that name, empty if there is none.
QByteArrayView chunkOf(QByteArrayView list, const char* name)
{
    while (list.size() >= chunkHeader) {
        const qsizetype size = get<quint32>(list, 4);
        if (size > list.size() - chunkHeader)
            return {};
        if (list.startsWith(name))
            return list.sliced(chunkHeader, size);
        // Chunks begin at even places.
        list = list.sliced(std::min(list.size(), chunkHeader + size + size % 2));
    }
    return {};
}

// The first picture of an animation, a whole .cur; the file itself if it is none.
QByteArrayView firstCursor(QByteArrayView bytes)
{
    if (!bytes.startsWith("RIFF") || bytes.size() < riffHeader)
        return bytes;
    const QByteArrayView frames = chunkOf(bytes.sliced(riffHeader), "LIST");
    return frames.startsWith("fram") ? chunkOf(frames.sliced(4), "icon") : QByteArrayView();
}

// The number of the picture that is nearest to the usual size of pointers.
int bestPicture(QByteArrayView cursor, int count)
{
    const auto distance = [cursor](int i) {
        const auto side = static_cast<quint8>(cursor[directoryHeader + directoryEntry * i]);
        // One byte has no room for 256, so 0 stands for it.
        return std::abs((side == 0 ? maxCursorSide : side) - usualSide);
    };
    int best = 0;
    for (int i = 1; i < count; ++i) {
        if (distance(i) < distance(best))
            best = i;
    }
    return best;
}

} // namespace

Result<CursorPicture> parseCursor(const QByteArray& bytes, const QString& name)
{
    if (bytes.size() > maxCursorBytes)
        return Failure{FailureKind::TooLarge, name.toStdString() + " is larger than any cursor"};
    QByteArray cursor = firstCursor(bytes).toByteArray();
    if (cursor.size() < directoryHeader || get<quint32>(cursor, 0) != cursorType << 16)
        return malformed(name, "this is no cursor file");
    const int count = get<quint16>(cursor, 4);
    if (count < 1 || cursor.size() < directoryHeader + directoryEntry * count)
        return malformed(name, "the list of pictures is broken");
    const int best = bestPicture(cursor, count);
    const qsizetype entry = directoryHeader + directoryEntry * best;

    CursorPicture picture;
    QBuffer buffer(&cursor);
    QImageReader reader(&buffer, "ico");
    // The first picture is the current one; not every reader would jump there.
    if ((best > 0 && !reader.jumpToImage(best)) || !reader.read(&picture.image))
        return malformed(name, "the picture is cut short or broken");
    if (picture.image.width() > maxCursorSide || picture.image.height() > maxCursorSide)
        return Failure{FailureKind::TooLarge, name.toStdString() + ": the picture is too large"};
    // A hot spot outside the picture would be refused by the window system.
    picture.hotSpot = {std::min<int>(get<quint16>(cursor, entry + 4), picture.image.width() - 1),
                       std::min<int>(get<quint16>(cursor, entry + 6), picture.image.height() - 1)};
    return picture;
}

Result<CursorPicture> readCursorFile(const QString& path)
{
    const auto bytes = readBytes(path, maxCursorBytes);
    if (!bytes)
        return bytes.failure();
    return parseCursor(*bytes, namePart(path));
}

} // namespace fennel
