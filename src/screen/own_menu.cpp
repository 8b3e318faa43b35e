// SPDX-License-Identifier: MIT
// The menu, its bar and the information line.
#include "menus/menu_file.h"
#include "params/menu_fit.h"
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

// How a gfxboot that was upgraded lays out its menu, as docs/engine.md tells.
struct MenuFit {
    explicit MenuFit(const OwnValues& values)
        : inset(number(values, FitInsetX), number(values, FitInsetY)),
          older(values.at(menuFitFile, FitBarHeight) > 0),
          barHeight(older ? number(values, FitBarHeight) : ::fennel::barHeight),
          quarters(values.at(menuFitFile, FitQuarters) & 3), beside(number(values, FitBeside)),
          centred(values.at(menuFitFile, FitCentred) > 0)
    {
    }
    static int number(const OwnValues& values, int id)
    {
        return std::min(values.at(menuFitFile, id), 255);
    }

    QPoint inset; // of letters in the bar
    bool older;   // there is such a file
    int barHeight;
    int quarters; // of a pixel, added to the distance of lines
    int beside;   // that the bar is wider than the longest title; 0: it does not grow
    bool centred;
};

void growBar(const OwnWork& work, const std::vector<OwnEntry>& entries, const MenuFit& fit,
             QRect& menu)
{
    if (fit.beside == 0)
        return;
    const BootFont& font = work.members.font(work.values.object(MenuPanelRow).font);
    int widest = 0;
    for (const OwnEntry& entry : entries)
        widest = std::max(widest, font.width(entry.text));
    const int width = std::max(menu.width(), widest + fit.beside);
    if (fit.centred && width > menu.width())
        menu.moveLeft(std::max(0, (work.screen().width() - width) / 2));
    menu.setWidth(width);
}

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
    OwnObject menu = work.values.object(MenuPanelRow);
    const OwnObject bar = work.values.object(MenuBarRow);
    const BootFont& font = work.members.font(menu.font);
    const MenuFit fit(work.values);
    const int slit = std::min(work.values.at(GeneralFile, slitParam), mostSlit);
    const auto top = [&](int line) { return ownLineTop(font, line, slit, fit.quarters); };
    const int room = work.screen().height() - menu.rect.y();
    const int fitting = ownLinesFit(font, room, slit, fit.quarters);
    const int lines = std::max(1, std::min(work.values.at(GeneralFile, entriesParam), fitting));
    const auto count = static_cast<int>(entries.size());
    const int chosen = std::clamp(work.request.chosen, 0, std::max(0, count - 1));
    const int first = std::max(0, chosen - lines + 1);
    work.layout.menuPitch = std::max(1, top(1));

    growBar(work, entries, fit, menu.rect);
    const int height = std::max(top(lines), top(lines - 1) + fit.barHeight);
    OwnDrawing drawing(menu, {menu.rect.width(), height}, work.screen());
    const int width = drawing.size().width();
    drawing.ground({0, 0, width, top(lines)}, menu.back, menu.transparency);
    const QRect barRect(0, top(chosen - first), width, fit.barHeight);
    const auto entry = [&](int i, QRgb colour) {
        drawing.text(entries[static_cast<std::size_t>(i)].text,
                     fit.inset + QPoint(0, top(i - first)), colour, menu.font);
    };
    if (count > 0 && fit.older) {
        // They laid it over the entry's letters, whose edges still shine through.
        entry(chosen, menu.text);
        drawing.tint(barRect, bar.back, bar.transparency);
    } else if (count > 0) {
        drawing.ground(barRect, bar.back, bar.transparency);
    }
    for (int i = first; i < std::min(count, first + lines); ++i)
        entry(i, i == chosen ? bar.text : menu.text);
    if (!drawing.seen())
        return;
    BootObject object = drawing.take();
    object.rect.setHeight(top(lines));
    work.layout.list.objects.push_back(std::move(object));
    // It is drawn with the menu; this is where the mouse finds it.
    BootObject handle;
    handle.row = MenuBarRow;
    // On the first line, wherever the bar is: its place is the menu's.
    handle.rect = QRect(menu.rect.topLeft(), barRect.size());
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
    // Nothing but typed options.
    if (work.values.at(menuFitFile, FitOnlyOptions) > 0)
        return;
    drawing.ground(line.back, 0);
    drawing.text(text, {}, line.text, line.font);
    work.put(drawing);
}

} // namespace fennel
