// SPDX-License-Identifier: MIT
// Text as it stands in files, and numbers as people type them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace fennel {

struct TextFile {
    QString text;
    bool TextIsUtf8 = false; // the file began with the mark EF BB BF
};

// UTF-8 if the bytes begin with its mark (which is dropped), otherwise code page 1251. Every byte
// string decodes: bytes that UTF-8 does not allow become U+FFFD, and 0x98, which code page 1251
// leaves open, becomes U+0098.
TextFile decodeText(const QByteArray& bytes);
// The way back. Characters that code page 1251 lacks become "?".
QByteArray encodeText(const QString& text, bool utf8);

// One character a byte.
QString fromCp1251(const QByteArray& bytes);
// One byte a UTF-16 unit; what the code page lacks becomes "?".
QByteArray toCp1251(const QString& text);

// Reads a file as decodeText does; a file that cannot be read gives an empty text.
TextFile FileReadAll(const QString& path);

// Without the blanks (U+0020 and nothing else) at both ends. Other white space belongs to the text:
// a no-break space may be half of a character that is not of code page 1251.
QStringView trimBlanks(QStringView text);

// The decimal number at the start of a text, as in "14 px" = "14", written in its shortest form:
// ".50" is "0.5", "-0" is "0". Blanks, tabs and line ends are skipped wherever they stand ("12 13"
// = "1213"). Without a number the result is "0". Of a longer number the first 330 characters count.
QString leadingNumberText(QStringView text);

// Its value, as near as a double comes; a number beyond them all is the largest.
double leadingNumber(QStringView text);

// leadingNumber() rounded to a whole number, ties to even, or, if the text behind blanks begins
// with "0x" in either case, the hexadecimal number behind it up to the first character that is no
// digit, its last six digits. Decimal numbers are kept within +-2^53; what takes fewer bits cuts
// them itself, a level file to the low 24.
qint64 numberFromText(QStringView text);

// To the nearest integer, ties to even: 0.5 -> 0, 1.5 -> 2, 2.5 -> 2. Within +-2147483647.
int roundToEven(double value);

// Hexadecimal, in upper case, as many digits as it takes.
QString upperHex(qint64 value);

// "0x" and six upper-case digits, the last six of a longer number.
QString hexText(qint64 value);

// For tool tips, which take what looks like markup for markup, and would fetch its pictures: a text
// that shows as it stands.
QString plainTip(const QString& text);

} // namespace fennel
