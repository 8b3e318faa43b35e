// SPDX-License-Identifier: MIT
#include "fonts/char_sets.h"

#include "fonts/char_ranges.h"
#include "fonts/fnt_bytes.h"

#include <QRegularExpression>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Basic Latin and the Russian letters; it differs from what the settings file is written with,
// which nobody reads.
const QString startingRanges = QStringLiteral("0x20-0x7e_0x0410-0x0451");

// Most characters of a number and the sign before it, as in " 0x1234".
constexpr qsizetype longestNumber = 7;

// "0x" and the digits without leading zeros, written behind `out`; returns the place behind them. A
// set can have 32,768 numbers and is written anew at every click, so there is no string for each.
char16_t* putHex(char16_t* out, std::size_t code)
{
    *out++ = u'0';
    *out++ = u'x';
    int shift = 12;
    while (shift > 0 && (code >> shift) == 0)
        shift -= 4;
    for (; shift >= 0; shift -= 4)
        *out++ = u"0123456789ABCDEF"[(code >> shift) & 0xFU];
    return out;
}

std::size_t endOfRun(const CharSelected& set, std::size_t start)
{
    while (start + 1 < set.size() && set[start + 1])
        ++start;
    return start;
}

// A long text is read in pieces of whole tokens: fresh memory for all of it at once would cost more
// than the reading.
qsizetype endOfPiece(const QString& text, qsizetype start)
{
    constexpr qsizetype usualPiece = 4096;
    qsizetype end = start + usualPiece;
    // Up to a separator, so that no number is cut.
    while (end < text.size() && text[end] != u' ' && text[end] != u',' && text[end] != u'_')
        ++end;
    return std::min(end, text.size());
}

} // namespace

CharSelected startingCharacters()
{
    return *ParseCharacterRanges(startingRanges);
}

Result<CharSelected> ParseCharacterRanges(const QString& text)
{
    CharSelected set;
    for (qsizetype start = 0; start <= text.size();) {
        const qsizetype end = endOfPiece(text, start);
        // Characters outside Latin-1 become "?", which ends a number like any other sign.
        const QByteArray piece = QStringView(text).mid(start, end - start).toLatin1();
        const auto ranges = readCodeRanges(
            {piece.constData(), static_cast<std::size_t>(piece.size())}, characterCount - 1);
        if (!ranges)
            return ranges.failure();
        for (const CodeRange& range : *ranges) {
            for (std::size_t code = range.first; code <= range.last; ++code)
                set[code] = true;
        }
        start = end + 1;
    }
    return set;
}

Result<CharSelected> typedCharacters(const QString& text)
{
    static const QRegularExpression codes(
        u"^(0x|&h|u\\+)[0-9a-f]+(-(0x|&h|u\\+)?[0-9a-f]+)?$|^[0-9]{2,}(-[0-9]{2,})?$"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression prefix(u"(0x|&h|u\\+)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    CharSelected set;
    for (QString token : QString(text).replace(u',', u' ').split(u' ', Qt::SkipEmptyParts)) {
        if (codes.match(token).hasMatch()) {
            // Behind a hexadecimal number the end of its run is one, too.
            if (prefix.match(token).hasMatch())
                token = u"0x"_s + token.remove(prefix).replace(u'-', u"-0x"_s);
            Result<CharSelected> part = ParseCharacterRanges(token);
            if (!part)
                return part;
            set |= *part;
        } else if (token.size() == 3 && token[1] == u'-') {
            for (std::size_t code = token[0].unicode(); code <= token[2].unicode(); ++code)
                set[code] = true;
        } else {
            for (const QChar letter : token)
                set[letter.unicode()] = true;
        }
    }
    return set;
}

QString FormatCharacterRanges(const CharSelected& set)
{
    // Each code gives one number at most.
    QString text(static_cast<qsizetype>(set.count()) * longestNumber, Qt::Uninitialized);
    auto* const start = reinterpret_cast<char16_t*>(text.data());
    char16_t* out = start;
    // Character 0 is never written: it ends texts.
    for (std::size_t code = 1; code < set.size(); ++code) {
        if (!set[code])
            continue;
        const std::size_t end = endOfRun(set, code);
        if (out != start)
            *out++ = u' ';
        out = putHex(out, code);
        if (end > code) {
            *out++ = u'-';
            out = putHex(out, end);
        }
        code = end;
    }
    text.truncate(out - start);
    return text;
}

QString selectedCharacters(const CharSelected& set)
{
    QString text;
    text.reserve(static_cast<qsizetype>(set.count()) * 2);
    for (std::size_t code = 1; code < set.size(); ++code) {
        if (set[code]) {
            text += u' ';
            text += QChar(static_cast<char16_t>(code));
        }
    }
    return text;
}

bool hasLatin(const CharSelected& set)
{
    for (std::size_t code = 'A'; code <= 'Z'; ++code) {
        if (set[code] || set[code + ('a' - 'A')])
            return true;
    }
    return false;
}

bool toggleCharacter(CharSelected& set, int code)
{
    // The fixed characters are no choice of the user's.
    if (code <= lastFixedCharacter || code >= characterCount)
        return false;
    set.flip(static_cast<std::size_t>(code));
    return true;
}

// The file's order and its doubles stay, people look at what is in the file.
QString ReadFontCharacters(const QByteArray& file)
{
    const int count = FontSymbolCount(file);
    QString text;
    text.reserve(count * 7);
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            text += u' ';
        text += u"&H"_s + hexPadded(tableEntry(file, i).code, 4);
    }
    return text;
}

QString rangesOfFont(const QByteArray& file)
{
    return ReadFontCharacters(file).replace(u"&H"_s, u"0x"_s).replace(u' ', u',');
}

QString rangesOfDefault(const QString& defaultFontName)
{
    // The name of the font passes for its character set here; it gives an empty set, as it always
    // has.
    return QString(defaultFontName).remove(u'\t').remove(u' ');
}

} // namespace fennel
