// SPDX-License-Identifier: MIT
#include "fonts/fnt_bytes.h"

#include "base/text.h"

namespace fennel {

namespace {

constexpr double chrDataUnit = 32.0; // the five low bits belong to the file's 21-bit code

void appendHex(QString& text, int value, int digits)
{
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += QChar(u"0123456789ABCDEF"[(value >> shift) & 0xF]);
}

} // namespace

// 0 behind the end: a file that is cut short shows zeros instead of ending the listing.
int byteAt(const QByteArray& bytes, qsizetype offset)
{
    return offset >= 0 && offset < bytes.size() ? static_cast<unsigned char>(bytes[offset]) : 0;
}

QString HexBytes(const QByteArray& bytes, qsizetype count, qsizetype start)
{
    QString text;
    text.reserve(count > 0 ? count * 2 : 0);
    for (qsizetype i = 0; i < count; ++i)
        appendHex(text, byteAt(bytes, start + i), 2);
    return text;
}

QString HexByte(int value)
{
    QString text;
    appendHex(text, value, 2);
    return text + u' ';
}

QString hexPadded(int value, int digits)
{
    QString text;
    appendHex(text, value, digits);
    return text;
}

int FontSymbolCount(const QByteArray& file)
{
    // Two of the field's four bytes, as the listing has always counted.
    return byteAt(file, 5) * 256 + byteAt(file, 4);
}

qsizetype entryPlace(int index)
{
    return qsizetype{fntHeaderSize} + qsizetype{fntEntrySize} * index;
}

TableEntry tableEntry(const QByteArray& file, int index)
{
    const qsizetype place = entryPlace(index);
    TableEntry entry;
    entry.code = byteAt(file, place + 1) * 256 + byteAt(file, place);
    entry.chrData =
        byteAt(file, place + 4) * 65536 + byteAt(file, place + 3) * 256 + byteAt(file, place + 2);
    // Rounded and not cut: the five bits that do not belong to it may push it up by one.
    entry.offset = roundToEven(entry.chrData / chrDataUnit);
    return entry;
}

} // namespace fennel
