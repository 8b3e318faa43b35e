// SPDX-License-Identifier: MIT
#include "menus/menu_file.h"

#include "base/text.h"

#include <QList>

#include <algorithm>

namespace fennel {

namespace {

constexpr qint64 defaultTechnical = 15;
constexpr int technicalParam = 77;       // s.menu.zuk.entries, in file 0
constexpr qsizetype wordLength = 6;      // of "title ", whatever its last character is
constexpr qsizetype longestEntry = 4096; // more characters than a screen has columns of pixels
const QString cutMark = QStringLiteral("\\n");

// "[ABC] text" shows " text"; without a "]" all of it.
QStringView behindBracket(QStringView entry)
{
    return entry.startsWith(u'[') ? entry.mid(entry.indexOf(u']') + 1) : entry;
}

} // namespace

MenuLines::MenuLines(QString text) : m_text(std::move(text))
{
    m_text.remove(u'\r');
    // "|" in a menu separates lines as well, so both are cut in one go.
    m_text.replace(u'\n', u'|');
    for (const QStringView line : QStringView(m_text).split(u'|'))
        m_lines.push_back(trimBlanks(line));
}

std::optional<QStringView> titleText(QStringView line)
{
    // In lower case only and at the line's start, as the boot loader reads it.
    if (!line.startsWith(u"title"))
        return std::nullopt;
    // A title may hold a backslash and an "n"; what stands behind them is not its caption.
    const qsizetype cut = line.indexOf(cutMark);
    return (cut < 0 ? line : line.left(cut)).mid(wordLength);
}

QStringList menuTitles(const QString& text)
{
    const MenuLines menu(text);
    QStringList titles;
    for (const QStringView line : menu.lines()) {
        if (line.startsWith(u"title"))
            titles.append(line.mid(wordLength).toString());
    }
    return titles;
}

// Such a title sets parameters of a level file instead of naming an entry.
bool isDataTitle(QStringView titleText)
{
    return titleText.size() > 8 && titleText.startsWith(u"[zuk") && titleText.at(8) == u']';
}

QString MenuEntries(const QString& text, bool hasZuk, qint64 technical)
{
    const MenuLines menu(text);
    std::vector<QStringView> titles;
    for (const QStringView line : menu.lines()) {
        if (const auto title = titleText(line))
            titles.push_back(*title);
    }
    const auto last = static_cast<qint64>(titles.size()); // index of the empty piece at the end
    qint64 shown = last;
    // The technical entries at the end are for the engine. If there are as many as entries or more,
    // everything shows, the empty piece at the end too.
    if (hasZuk && last > 0)
        shown = technical < last ? last - std::max<qint64>(0, technical) : last + 1;
    titles.emplace_back();
    QString entries;
    for (qint64 i = 0; i < shown; ++i) {
        const QStringView title = titles[static_cast<std::size_t>(i)];
        entries += (hasZuk ? behindBracket(title) : title).left(longestEntry);
        entries += u'|';
    }
    return entries;
}

qint64 technicalEntries(const ZUKarr& table)
{
    const std::optional<qint64> set = table.GetLevelValue(0, technicalParam, LayerEdit);
    // Without the parameter a usual count stands in.
    return set && *set >= 0 ? *set : defaultTechnical;
}

QString MenuPrimary(const QString& text)
{
    const MenuLines menu(text);
    for (const QStringView line : menu.lines()) {
        // The line must stand before the first entry: behind it, it belongs to that entry.
        if (line.startsWith(u"title"))
            return {};
        if (line.startsWith(u"gfxmenu"))
            return trimBlanks(line.mid(7)).toString();
    }
    return {};
}

// All titles, those with a mark that is no data, and those that are data.
QString MenuCounts(const QString& text)
{
    const MenuLines menu(text);
    int titles = 0;
    int others = 0;
    int data = 0;
    for (const QStringView line : menu.lines()) {
        const auto title = titleText(line);
        if (!title)
            continue;
        ++titles;
        if (isDataTitle(*title))
            ++data;
        else if (title->startsWith(u'['))
            ++others;
    }
    return QStringLiteral("%1/%2/%3").arg(titles).arg(others).arg(data);
}

} // namespace fennel
