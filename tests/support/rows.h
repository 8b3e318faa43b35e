// SPDX-License-Identifier: MIT
// Tables of cases typed as one text.
#pragma once

#include <QStringList>

namespace fennel::test {

// A row a line; cells stand between `bar`, without the blanks around them. Empty lines are left
// out.
inline QList<QStringList> rows(const QString& text, QChar bar = u';')
{
    QList<QStringList> table;
    for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
        QStringList& cells = table.emplaceBack();
        for (const QString& cell : line.split(bar))
            cells << cell.trimmed();
    }
    return table;
}

} // namespace fennel::test
