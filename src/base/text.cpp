// SPDX-License-Identifier: MIT
#include "base/text.h"

#include "base/files.h"

#include <QTextDocument>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace fennel {

namespace {

// The upper half of code page 1251, as published by the Unicode consortium (CP1251.TXT).
constexpr std::array<char16_t, 128> cp1251High = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039,
    0x040A, 0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408,
    0x00A4, 0x0490, 0x00A6, 0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB,
    0x0458, 0x0405, 0x0455, 0x0457, 0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F, 0x0420, 0x0421, 0x0422, 0x0423,
    0x0424, 0x0425, 0x0426, 0x0427, 0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437, 0x0438, 0x0439, 0x043A, 0x043B,
    0x043C, 0x043D, 0x043E, 0x043F, 0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F};

constexpr char utf8Mark[] = "\xEF\xBB\xBF";
// Up to here a double counts in ones.
constexpr double wholeLimit = 9007199254740992.0;
constexpr double placeLimit = 2147483647.0;
// Digits of the largest double and more: what stands behind them does not change the number.
constexpr qsizetype mostDigits = 330;

bool isSkipped(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

qint64 hexNumber(QStringView digits)
{
    qint64 value = 0;
    for (const QChar c : digits) {
        const qsizetype digit = QStringView(u"0123456789abcdef").indexOf(c.toLower());
        if (digit < 0)
            break;
        // Colours have six digits, and of a longer number the last six count.
        value = ((value << 4) | digit) & 0xFFFFFF;
    }
    return value;
}

// Sign, digits and point as they stand, without the zeros in front.
QString leadingCharacters(QStringView text)
{
    QString number;
    bool started = false;
    bool point = false;
    for (const QChar c : text) {
        if (isSkipped(c))
            continue;
        const bool sign = (c == u'-' || c == u'+') && !started;
        const bool firstPoint = c == u'.' && !point;
        const bool digit = c >= u'0' && c <= u'9';
        if (!sign && !firstPoint && !digit)
            break;
        started = true;
        point = point || firstPoint;
        // Zeros in front are no digits of the number, however many there are.
        const bool inFront = c == u'0' && (number.isEmpty() || number == u"-" || number == u"+");
        if (!inFront && number.size() < mostDigits)
            number.append(c);
    }
    return number;
}

} // namespace

QString fromCp1251(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text[i] = byte < 0x80 ? QChar(char16_t{byte}) : QChar(cp1251High[byte - 0x80U]);
    }
    return text;
}

QByteArray toCp1251(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        if (code < 0x80) {
            bytes.append(static_cast<char>(code));
            continue;
        }
        char out = '?';
        for (std::size_t i = 0; i < cp1251High.size(); ++i) {
            if (cp1251High[i] == code)
                out = static_cast<char>(i + 0x80);
        }
        bytes.append(out);
    }
    return bytes;
}

// Without the mark nothing tells UTF-8 from the code page for sure; all members that the program
// writes as UTF-8 have it.
TextFile decodeText(const QByteArray& bytes)
{
    if (bytes.startsWith(utf8Mark))
        return {QString::fromUtf8(bytes.mid(3)), true};
    return {fromCp1251(bytes), false};
}

QByteArray encodeText(const QString& text, bool utf8)
{
    // The mark has to be written: it is what decodeText() goes by.
    return utf8 ? utf8Mark + text.toUtf8() : toCp1251(text);
}

TextFile FileReadAll(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    return bytes ? decodeText(*bytes) : TextFile{};
}

QStringView trimBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString leadingNumberText(QStringView text)
{
    QString number = leadingCharacters(text);
    const bool negative = number.startsWith(u'-');
    if (negative || number.startsWith(u'+'))
        number.remove(0, 1);
    if (number.contains(u'.')) {
        while (number.endsWith(u'0'))
            number.chop(1);
        if (number.endsWith(u'.'))
            number.chop(1);
    }
    if (number.isEmpty())
        return QStringLiteral("0");
    if (number.startsWith(u'.'))
        number.prepend(u'0');
    return negative ? u'-' + number : number;
}

double leadingNumber(QStringView text)
{
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(leadingNumberText(text).toDouble(), -largest, largest);
}

qint64 numberFromText(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.startsWith(u"0x", Qt::CaseInsensitive))
        return hexNumber(trimmed.mid(2));
    const double value = leadingNumber(trimmed);
    return static_cast<qint64>(std::nearbyint(std::clamp(value, -wholeLimit, wholeLimit)));
}

// Places on the stage are rounded this way everywhere; another rule would shift objects by a pixel.
int roundToEven(double value)
{
    return static_cast<int>(std::nearbyint(std::clamp(value, -placeLimit, placeLimit)));
}

QString upperHex(qint64 value)
{
    return QString::number(value, 16).toUpper();
}

QString hexText(qint64 value)
{
    const QString digits = QString::number(static_cast<quint64>(value) & 0xFFFFFF, 16).toUpper();
    return QStringLiteral("0x") + digits.rightJustified(6, QLatin1Char('0'));
}

QString plainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped())
                                     : text;
}

} // namespace fennel
