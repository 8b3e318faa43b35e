// SPDX-License-Identifier: MIT
#include "params/text_edit.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QByteArray utf8Mark = "\xEF\xBB\xBF"_qba;

QString withCrLf(QString text)
{
    text.remove(u'\n');
    return text.replace(u'\r', u"\r\n"_s);
}

} // namespace

bool isTextMember(const QString& name)
{
    return name.endsWith(u".txt"_s, Qt::CaseInsensitive);
}

Result<TextFile> readTextMember(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    if (!bytes)
        return bytes.failure();
    TextFile file = decodeText(*bytes);
    file.text = withCrLf(file.text);
    return file;
}

QByteArray textMemberBytes(const QString& text)
{
    QString lines = text;
    lines.remove(QChar(u'\0'));
    lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\n', u"\r\n"_s);
    const bool ascii =
        std::all_of(lines.begin(), lines.end(), [](QChar c) { return c.unicode() < 0x80; });
    const QByteArray bytes = lines.toUtf8();
    return ascii ? bytes : utf8Mark + bytes;
}

QString readAsUtf8(const QString& text)
{
    return QString::fromUtf8(toCp1251(text));
}

} // namespace fennel
