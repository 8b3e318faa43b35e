// SPDX-License-Identifier: MIT
#include "fonts/font_tag.h"

#include "base/text.h"
#include "fonts/font_dialog.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype droppedFromSignature = 12; // up to the second "@"
const QString madeBy = u"Created by the Fennel-GFX(GUI) using the MKBLFONT utility"_s;

qint16 toField(const QString& value)
{
    const int number = roundToEven(leadingNumber(value));
    return static_cast<qint16>(std::clamp<int>(number, std::numeric_limits<qint16>::min(),
                                               std::numeric_limits<qint16>::max()));
}

QString pixels(const QString& key, int value)
{
    return u'|' + key + u'\t' + QString::number(value) + u" px"_s;
}

} // namespace

bool hasSignature(const QByteArray& file)
{
    return file.contains(fontTagSignature);
}

FoundTag findTag(const QByteArray& file)
{
    FoundTag result;
    // Anywhere in the file: the tag stands behind the glyphs, at no fixed place. Bitmap bytes could
    // spell it by chance; then it shows as an unknown tag.
    const qsizetype start = file.indexOf("TAG");
    if (start < 0)
        return result;
    result.found = true;
    QByteArray bytes = file.mid(start);
    result.tag.genuine = bytes.startsWith(fontTagSignature);
    if (result.tag.genuine)
        bytes.remove(0, droppedFromSignature);
    // Zeros are padding.
    QStringList items = fromCp1251(bytes).remove(QChar(u'\0')).split(u'|');
    const QString head = items.takeFirst();
    result.tag.description = head.mid(head.indexOf(u'\t') + 1);
    for (const QString& item : items) {
        const qsizetype tab = item.indexOf(u'\t');
        if (tab < 0)
            result.tag.items.push_back({{}, item, false});
        else
            result.tag.items.push_back({item.left(tab), item.mid(tab + 1), true});
    }
    return result;
}

void applyTag(const FontTag& tag, FontRecord& record)
{
    for (const TagItem& item : tag.items) {
        if (!item.isPair)
            continue;
        if (item.key == u"size"_s) {
            record.Size = leadingNumber(item.value);
        } else if (item.key == u"space"_s) {
            record.SpaceWidth = toField(item.value);
        } else if (item.key == u"letter space"_s) {
            record.LetterSpace = toField(item.value);
        } else if (item.key == u"line space"_s) {
            record.LineSpace = toField(item.value);
            // Any other key is the font's name, its value the style.
        } else {
            record.FontName = item.key;
            record.Bold = item.value.contains(u" Bold"_s);
            record.Italic = item.value.contains(u" Italic"_s);
        }
    }
}

QString fontTagText(const FontChoice& choice)
{
    QString family = choice.family;
    // Both separate the items of the tag.
    family.replace(u'|', u' ').replace(u'\t', u' ');
    QString text = QString::fromLatin1(fontTagSignature) + madeBy + u'|' + family + u'\t';
    if (choice.bold)
        text += u" Bold"_s;
    if (choice.italic)
        text += u" Italic"_s;
    // Half a point goes up here, unlike everywhere else: tags have always been written so.
    const int size = static_cast<int>(std::floor(choice.size + 0.5));
    return text + pixels(u"size"_s, size) + pixels(u"space"_s, choice.FontSpaceWidth) +
           pixels(u"letter space"_s, choice.FontLetterSpace) +
           pixels(u"line space"_s, choice.FontLineSpace);
}

} // namespace fennel
