// SPDX-License-Identifier: MIT
#include "editor/lists/tabs.h"

#include "base/shell_context.h"
#include "base/words.h"
#include "editor/lists/object_rows.h"
#include "params/object_table.h"
#include "params/panel_values.h"

namespace fennel {

namespace {

QString memberOfRow(const ParamLists& lists, int tab, int row)
{
    const ListRows* list = lists.list(tab);
    const ListRow* found = list ? list->row(row) : nullptr;
    return found ? found->member() : QString();
}

// Looks at the font list whatever tab is open.
bool fontSelected(const RunState& run, const ParamLists& lists)
{
    return run.gfxboot_var > 1 &&
           !memberOfRow(lists, TabFonts, lists.list(TabFonts)->selected).isEmpty();
}

} // namespace

std::vector<ParamTab> fixedTabs()
{
    std::vector<ParamTab> tabs{std::size_t{FirstObjectTab}};
    for (int tab = TabMenu; tab < FirstObjectTab; ++tab)
        tabs[static_cast<std::size_t>(tab)].caption = Words::tr(tabKind(tab, -1).caption);
    return tabs;
}

ParamTab objectTab(const PanelRec& panel, int object)
{
    ParamTab tab;
    tab.caption = objectCaption(panel.Name);
    tab.toolTip = Words::tr("%1 settings tab").arg(tab.caption);
    tab.object = object;
    return tab;
}

void BuildTabs(const Shell& shell, ParamLists& lists)
{
    for (const char* line : {"TabStrip_ListView_ZUKarr", "TabStrip_0", "ZUKarr_0", "ListView_0"})
        shell.WriteLog(QStringLiteral("     ") + QString::fromLatin1(line));
    lists.tabs = fixedTabs();
    lists.lists.resize(std::size_t{FirstObjectTab});
    for (int tab = TabMenu; tab < FirstObjectTab; ++tab) {
        if (lists.kind(tab).follows == Follows::Values)
            *lists.list(tab) = lists.kind(tab).rows(shell, *lists.document, -1);
    }
    if (shell.run.GfxHasZuk) {
        shell.WriteLog(QStringLiteral("     TabStrip_ListView_ZUKarr -----------------v"));
        const PanelArr& panels = lists.document->state().PanelArr;
        for (int row = 0; row < static_cast<int>(panels.size()); ++row) {
            const PanelRec& panel = panels[static_cast<std::size_t>(row)];
            if (!panel.Enabled)
                continue;
            lists.tabs.push_back(objectTab(panel, row));
            lists.lists.push_back(objectList(shell, *lists.document, row));
        }
        shell.WriteLog(QStringLiteral("     TabStrip_ListView_ZUKarr -----------------^"));
    }
    // The tab that was open may be gone with the gfxboot before.
    if (!lists.list(lists.CurrentTab))
        lists.CurrentTab = TabMenu;
    lists.CurrentRow = lists.list(lists.CurrentTab)->selected;
}

int frontTab(const RunState& run, const ParamLists& lists)
{
    if (lists.tabCount() >= FirstObjectTab)
        return FirstObjectTab;
    return run.GfxHasCfg ? TabConfig : TabGfxboot;
}

QString tabMenuCaption(const ParamTab& tab)
{
    return QStringLiteral(" - ") + tab.caption;
}

// Some objects show only while one works on them, since on the boot screen they come and go.
bool shownAfterLeaving(const ParamLists& lists, int tab)
{
    const PanelRec* panel = lists.object(lists.objectOfTab(tab));
    if (!panel || panel->OnlySelected)
        return false;
    return panel->OnParam <= 0 ||
           GetPanelParam(lists.document->state(), lists.objectOfTab(tab), panel->OnParam) > 0;
}

RowButtons buttonsOfTab(const RunState& run, const ParamLists& lists, int tab)
{
    const ListRows* list = lists.list(tab);
    RowButtons buttons = buttonsOfRow(run, lists, tab, list ? list->selected : 0);
    // A change of tab has not selected a font yet.
    buttons.Font_change = false;
    return buttons;
}

RowButtons buttonsOfRow(const RunState& run, const ParamLists& lists, int tab, int row)
{
    RowButtons buttons;
    buttons.toolbar12 = fontSelected(run, lists);
    const QString member = memberOfRow(lists, tab, row);
    // Generation 2 has one font, which can be changed.
    buttons.Font_change =
        !member.isEmpty() && (run.GfxHasZuk || (run.gfxboot_var == 2 && tab == TabFonts));
    // Older generations have members too, but none that could be added or deleted here.
    if (!run.GfxHasZuk || member.isEmpty())
        return buttons;
    buttons.UpDown3 = buttons.ComADD = buttons.ComDEL = buttons.ComEdit = true;
    buttons.toolbar13 = member.contains(QLatin1String(".txt"));
    buttons.toolbar14 = member.contains(QLatin1String(".jpg"));
    return buttons;
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
    return Words::tr("This gfxboot includes %1 images called %2").arg(count).arg(mask);
}

} // namespace fennel
