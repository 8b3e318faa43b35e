// SPDX-License-Identifier: MIT
// A font file byte by byte, as the list of a font's contents shows it and as its tag is found.
// These readers diagnose nothing: bytes beyond the end of a file are zero. The codec proper is
// fnt_codec.h.
#pragma once

#include "fonts/fnt_codec.h"

#include <QByteArray>
#include <QString>

#include <span>

namespace fennel {

// The byte at an offset; 0 before the start and beyond the end.
int byteAt(const QByteArray& bytes, qsizetype offset);

// `count` bytes from `start` on, two upper-case hexadecimal digits each, nothing between them. A
// count below 1 gives an empty text.
QString HexBytes(const QByteArray& bytes, qsizetype count, qsizetype start);
// Upper-case hexadecimal, padded with zeros from the left, the last `digits` digits.
QString hexPadded(int value, int digits);
// Two digits and one blank.
QString HexByte(int value);

// The number of characters by the two low bytes of the header's count.
int FontSymbolCount(const QByteArray& file);

// An entry of the character table as this view takes it: a 16-bit code and the glyph's place.
struct TableEntry {
    int code = 0;
    int chrData = 0; // the three bytes behind the code
    int offset = 0;  // of the glyph: chrData / 32, rounded to even
};
TableEntry tableEntry(const QByteArray& file, int index);
// Where the entry begins in the file.
qsizetype entryPlace(int index);

inline std::span<const std::uint8_t> asSpan(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

} // namespace fennel
