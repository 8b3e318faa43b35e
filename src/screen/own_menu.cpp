// SPDX-License-Identifier: MIT
// The menu, its bar and the information line.
#include "menus/menu_file.h"
#include "params/object_table.h"
#include "screen/own_layout.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int slitParam = 40; // s.menu.slit
constexpr int entriesParam = 41;
constexpr int technicalParam = 77;
constexpr int mostSlit = 4096;
constexpr int barHeight = 24;
constexpr int infoLineRow = 7;
const QString hint = u"Enter: start    F1: help    F2: information"_s;

// What is shown of a title: the words behind a "[...]" in front, up to "\n".
OwnEntry entryOf(QStringView title)
{
    if (title.startsWith(u'['))
        title = title.mid(title.indexOf(u']') + 1);
    QString text = bootText(title.toUtf8());
    OwnEntry entry{text, {}};
    if (const qsizetype cut = text.indexOf("\\n"_L1); cut >= 0)
        entry = {text.left(cut), text.mid(cut + 2)};
    return entry;
}

QStringView withoutBlanks(QStringView title)
{
    while (title.startsWith(u' '))
        title = title.mid(1);
    return title;
}

} // namespace

std::vector<OwnEntry> ownEntries(const OwnWork& work)
{
    const auto count = static_cast<int>(work.request.titles.size());
    const int technical = work.values.at(GeneralFile, technicalParam);
    const int shown = technical < count ? count - technical : count;
    std::vector<OwnEntry> entries;
    for (int i = 0; i < shown; ++i) {
        const QStringView title = withoutBlanks(work.request.titles[i]);
        if (!isDataTitle(title))
            entries.push_back(entryOf(title));
    }
    return entries;
}

void layOutMenu(const OwnWork& work, const std::vector<OwnEntry>& entries)
{
    const OwnObject menu = work.values.object(MenuPanelRow);
    const OwnObject bar = work.values.object(MenuBarRow);
    const BootFont& font = work.members.font(menu.font);
    const int slit = std::min(work.values.at(GeneralFile, slitParam), mostSlit);
    const auto top = [&](int line) { return ownLineTop(font, line, slit); };
    const int fitting = ownLinesFit(font, work.screen().height() - menu.rect.y(), slit);
    const int lines = std::max(1, std::min(work.values.at(GeneralFile, entriesParam), fitting));
    const auto count = static_cast<int>(entries.size());
    const int chosen = std::clamp(work.request.chosen, 0, std::max(0, count - 1));
    const int first = std::max(0, chosen - lines + 1);
    work.layout.menuPitch = std::max(1, top(1));

    const int height = std::max(top(lines), top(lines - 1) + barHeight);
    OwnDrawing drawing(menu, {menu.rect.width(), height}, work.screen());
    const int width = drawing.size().width();
    drawing.ground({0, 0, width, top(lines)}, menu.back, menu.transparency);
    if (count > 0)
        drawing.ground({0, top(chosen - first), width, barHeight}, bar.back, bar.transparency);
    for (int i = first; i < std::min(count, first + lines); ++i)
        drawing.text(entries[static_cast<std::size_t>(i)].text, {0, top(i - first)},
                     i == chosen ? bar.text : menu.text, menu.font);
    if (!drawing.seen())
        return;
    BootObject object = drawing.take();
    object.rect.setHeight(top(lines));
    work.layout.list.objects.push_back(std::move(object));
    // It is drawn with the menu; this is where the mouse finds it.
    BootObject handle;
    handle.row = MenuBarRow;
    // On the first line, wherever the bar is: its place is the menu's.
    handle.rect = QRect(bar.rect.topLeft(), QSize(bar.rect.width(), barHeight));
    work.layout.list.objects.push_back(std::move(handle));
}

void layOutInfoLine(const OwnWork& work, const std::vector<OwnEntry>& entries)
{
    const OwnObject line = work.values.object(infoLineRow);
    QString text = hint;
    if (!entries.empty()) {
        const int last = static_cast<int>(entries.size()) - 1;
        const auto chosen = static_cast<std::size_t>(std::clamp(work.request.chosen, 0, last));
        if (!entries[chosen].note.isNull())
            text = entries[chosen].note;
    }
    OwnDrawing drawing(line, line.rect.size(), work.screen());
    drawing.ground(line.back, 0);
    drawing.text(text, {}, line.text, line.font);
    work.put(drawing);
}

} // namespace fennel
