// SPDX-License-Identifier: MIT
#include "params/list_rows.h"

namespace fennel {

namespace {
const QString fileMark = QStringLiteral("|File: ");
}

// Every column is ended by a "|", so what stands behind the last one is no column.
QStringList columnsFrom(const QString& text)
{
    const qsizetype last = text.lastIndexOf(QLatin1Char('|'));
    return last < 0 ? QStringList() : text.left(last).split(QLatin1Char('|'));
}

QString fileTag(const QString& name)
{
    return fileMark + name + QLatin1Char('|');
}

// A tag may hold more than the file, before and after it.
QString fileOfTag(const QString& tag)
{
    const qsizetype start = tag.indexOf(fileMark);
    if (start < 0)
        return {};
    const qsizetype from = start + fileMark.size();
    const qsizetype end = tag.indexOf(QLatin1Char('|'), from);
    return end < 0 ? tag.mid(from) : tag.mid(from, end - from);
}

} // namespace fennel
