// SPDX-License-Identifier: MIT
// menu.lst, the boot manager's menu: text lines, of which those count that begin with "title" or
// "gfxmenu". Everything here takes the text of a whole file, with or without carriage returns, and
// bears any text.
#pragma once

#include "params/zuk_table.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

namespace fennel {

// A title line in pieces. "title [zuk0003] :22=0x00ff00 :23=15\nhelp" has the text up to the two
// characters "\n".
class MenuLines {
public:
    // Takes the text over: the lines point into it.
    explicit MenuLines(QString text);

    // The lines, trimmed. A "|" ends a line as a line feed does: lists in memory are joined by it.
    [[nodiscard]] const std::vector<QStringView>& lines() const { return m_lines; }

private:
    QString m_text;
    std::vector<QStringView> m_lines; // into m_text
};

// What a title line shows: from its seventh character up to "\n"; nothing for other lines.
std::optional<QStringView> titleText(QStringView line);
// All titles of a menu as the loader hands them over, data titles included, cut nowhere.
QStringList menuTitles(const QString& text);
// A title that carries parameters for the engine: "[zuk" and four characters, then "]".
bool isDataTitle(QStringView titleText);

// The entries to show, each followed by a "|". A generation 3 boot screen (`hasZuk`) hides the last
// `technical` titles, all but the empty piece behind the last "|" if there are no more than that,
// and shows of a title in brackets what stands behind them.
QString MenuEntries(const QString& text, bool hasZuk, qint64 technical);
// How many titles at the end of a menu are technical: `s.menu.zuk.entries`, 15 unless set.
qint64 technicalEntries(const ZUKarr& table);
// The path on the gfxmenu line; empty if a title comes first.
QString MenuPrimary(const QString& text);
// "titles/other bracket titles/data titles". A result that ends in "/0/0" marks a plain menu.
QString MenuCounts(const QString& text);

} // namespace fennel
