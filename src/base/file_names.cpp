// SPDX-License-Identifier: MIT
#include "base/file_names.h"

#include "base/text.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace fennel {

namespace {

constexpr char16_t oddBase = 0xEF00; // and the byte
constexpr qsizetype longestCharacter = 4;

bool isOdd(QChar c)
{
    return c.unicode() >= oddBase + 0x80 && c.unicode() <= oddBase + 0xFF;
}

// The characters of the UTF-8 sequence at the beginning of the bytes and its length.
struct Character {
    QString text;
    qsizetype length = 0;
};

std::optional<Character> characterAt(QByteArrayView bytes)
{
    for (qsizetype length = 1; length <= std::min(longestCharacter, bytes.size()); ++length) {
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = utf8(bytes.first(length));
        if (!utf8.hasError() && !text.isEmpty() && !isOdd(text.front()))
            return Character{text, length};
    }
    return std::nullopt;
}

} // namespace

QString pathOfBytes(const QByteArray& bytes)
{
    QString path;
    for (qsizetype at = 0; at < bytes.size();) {
        const auto character = characterAt(QByteArrayView(bytes).sliced(at));
        path += character ? character->text
                          : QString(QChar(char16_t(oddBase + static_cast<quint8>(bytes[at]))));
        at += character ? character->length : 1;
    }
    return path;
}

QByteArray bytesOfPath(const QString& path)
{
    QByteArray bytes;
    const auto* at = path.cbegin();
    while (at != path.cend()) {
        const auto* const odd = std::find_if(at, path.cend(), isOdd);
        bytes += QStringView(at, odd).toUtf8();
        for (at = odd; at != path.cend() && isOdd(*at); ++at)
            bytes += static_cast<char>(at->unicode() - oddBase);
    }
    return bytes;
}

QString shownPath(const QString& path)
{
    QString shown = path;
    for (QChar& c : shown) {
        if (isOdd(c))
            c = fromCp1251(QByteArray(1, static_cast<char>(c.unicode() - oddBase))).front();
    }
    return shown;
}

} // namespace fennel
