// SPDX-License-Identifier: MIT
#include "editor/lists/tabs.h"

#include "base/shell_context.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <algorithm>
#include <iterator>

namespace fennel {

namespace {

struct CaptionMask {
    QStringView caption;
    QStringView mask;
};
// Which pictures the strip under the stage shows, by the caption of the tab.
constexpr CaptionMask captionMasks[] = {
    {u"Gfxboot", u"*.jpg"},
    {u"Menu", u"*.jpg"},
    {u"Config", u"*.jpg"},
    {u"Font(s)", u"*.fnt"},
    {u"Background(s)", u"back.jpg|back_??.jpg"},
    {u"Glasses", u"glass_??.jpg"},
    {u"Animation", u"ani_??.jpg|ani_??_msk.jpg"},
    {u"LOGO", u"Logo_??.jpg"},
};

ParamTab objectTab(const PanelRec& panel, int object)
{
    ParamTab tab;
    tab.caption = objectCaption(panel.Name);
    tab.toolTip = tab.caption + QStringLiteral(" settings tab");
    tab.object = object;
    return tab;
}

QString textOfRow(const ParamLists& lists, int tab, int row)
{
    const ListRows* list = lists.list(tab);
    const ListRow* found = list ? list->row(row) : nullptr;
    return found ? found->text() : QString();
}

QString tagOfRow(const ParamLists& lists, int tab, int row)
{
    const ListRows* list = lists.list(tab);
    const ListRow* found = list ? list->row(row) : nullptr;
    return found ? found->tag : QString();
}

// Looks at the font list whatever tab is open.
bool fontSelected(const RunState& run, const ParamLists& lists)
{
    return run.gfxboot_var > 1 && textOfRow(lists, TabFonts, lists.list(TabFonts)->selected)
                                      .contains(QLatin1String(".fnt"));
}

} // namespace

std::vector<ParamTab> fixedTabs()
{
    std::vector<ParamTab> tabs{std::size_t{FirstObjectTab}};
    std::size_t tab = TabMenu;
    for (const char* caption : {"Menu", "Gfxboot", "Config", "Background(s)", "Font(s)"})
        tabs[tab++].caption = QString::fromLatin1(caption);
    return tabs;
}

void BuildTabs(const Shell& shell, ParamLists& lists, const FillOptions& options)
{
    for (const char* line : {"TabStrip_ListView_ZUKarr", "TabStrip_0", "ZUKarr_0", "ListView_0"})
        shell.WriteLog(QStringLiteral("     ") + QString::fromLatin1(line));
    std::vector<ParamTab> tabs = fixedTabs();
    std::vector<ListRows> objectLists;
    if (shell.run.GfxHasZuk) {
        shell.WriteLog(QStringLiteral("     TabStrip_ListView_ZUKarr -----------------v"));
        for (int row = 0; row < static_cast<int>(lists.PanelArr.size()); ++row) {
            PanelRec& panel = *lists.object(row);
            panel.TabIndex = panel.Enabled ? static_cast<int>(tabs.size()) : 0;
            if (!panel.Enabled)
                continue;
            tabs.push_back(objectTab(panel, row));
            objectLists.push_back(objectList(shell, lists, row, options));
        }
        shell.WriteLog(QStringLiteral("     TabStrip_ListView_ZUKarr -----------------^"));
    }
    // The lists are filled aside first: a message box while filling may repaint the window, which
    // must not see half of them.
    lists.tabs = std::move(tabs);
    lists.lists.resize(std::size_t{FirstObjectTab});
    std::move(objectLists.begin(), objectLists.end(), std::back_inserter(lists.lists));
    // The tab that was open may be gone with the gfxboot before.
    if (!lists.list(lists.CurrentTab))
        lists.CurrentTab = TabMenu;
    lists.CurrentRow = lists.list(lists.CurrentTab)->selected;
}

QString tabMenuCaption(const ParamTab& tab)
{
    return QStringLiteral(" - ") + tab.caption;
}

bool isLogoTab(const ParamLists& lists, int tab)
{
    return lists.objectOfTab(tab) == LogoPanelRow;
}

// Some objects show only while one works on them, since on the boot screen they come and go.
bool shownAfterLeaving(const ParamLists& lists, int tab)
{
    const PanelRec* panel = lists.object(lists.objectOfTab(tab));
    if (!panel || panel->OnlySelected)
        return false;
    return panel->OnParam > 0 ? GetPanelParam(lists, tab, panel->OnParam) > 0 : true;
}

RowButtons buttonsOfTab(const RunState& run, const ParamLists& lists, int tab)
{
    const ListRows* list = lists.list(tab);
    RowButtons buttons = buttonsOfRow(run, lists, tab, list ? list->selected : 0);
    // A change of tab has not selected a font yet.
    buttons.Font_change = false;
    // Unlike a click, a change of tab looks at the text of any row, member or not.
    if (run.GfxHasZuk && list) {
        const QString text = textOfRow(lists, tab, list->selected);
        buttons.toolbar13 = text.contains(QLatin1String(".txt"));
        buttons.toolbar14 = text.contains(QLatin1String(".jpg"));
    }
    return buttons;
}

RowButtons buttonsOfRow(const RunState& run, const ParamLists& lists, int tab, int row)
{
    RowButtons buttons;
    buttons.toolbar12 = fontSelected(run, lists);
    const bool member = tagOfRow(lists, tab, row).contains(QLatin1String("|File: "));
    // Older generations have members too, but none that could be added or deleted here.
    if (!run.GfxHasZuk || !member)
        return buttons;
    buttons.UpDown3 = buttons.ComADD = buttons.ComDEL = true;
    buttons.ComEdit = buttons.Font_change = true;
    const QString text = textOfRow(lists, tab, row);
    buttons.toolbar13 = text.contains(QLatin1String(".txt"));
    buttons.toolbar14 = text.contains(QLatin1String(".jpg"));
    return buttons;
}

QString thumbnailMask(const QString& caption)
{
    for (const CaptionMask& entry : captionMasks) {
        if (caption == entry.caption)
            return entry.mask.toString();
    }
    return QStringLiteral("head*.jpg");
}

QStringList thumbnailNames(const QString& workspace, const QString& mask)
{
    QStringList names;
    for (const QString& part : mask.split(QLatin1Char('|'), Qt::SkipEmptyParts))
        // The limit holds for each kind, so that many of one do not crowd out another.
        names += numberedFiles(workspace, part).mid(0, thumbnailLimit);
    return names;
}

QString thumbnailStatus(qsizetype count, const QString& mask)
{
    return QStringLiteral("This gfxboot includes %1 images called %2").arg(count).arg(mask);
}

} // namespace fennel
