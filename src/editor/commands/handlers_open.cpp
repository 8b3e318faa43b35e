// SPDX-License-Identifier: MIT
// The window follows an open, step by step.
#include "container/member_list.h"
#include "container/member_table.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/inspection_list.h"
#include "editor/lists/object_rows.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/flash_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/thumbnail_strip.h"
#include "params/object_table.h"

#include <algorithm>

namespace fennel {

namespace {

void selectFirst(ListRows& list)
{
    list.selected = list.rows.empty() ? 0 : 1;
}

void showFonts(MainWindow& window)
{
    Workbench& bench = window.workbench();
    bench.shell.WriteLog(QStringLiteral("     5_Fonts_in_ListView"));
    *bench.params.list(TabFonts) = bench.fonts.rows;
    // The scan has emptied the list of characters; a click would find nothing behind its rows.
    window.inspectionList().setRows(bench.fonts.inspection.List1);
    window.inspectionList().ShowListPanel({});
}

void fillFonts(MainWindow& window)
{
    Workbench& bench = window.workbench();
    ScanFonts(bench.fonts, bench.shell.run, bench.fontSettings, QStringLiteral("?"),
              keepInspection);
    showFonts(window);
}

void showAll(MainWindow& window)
{
    window.surface().gestures().forgetStatus();
    selectTab(window, frontTab(window.shell().run, window.workbench().params));
    window.UpdateInterface();
    window.refreshThumbnails();
    window.ShowBackground();
    takeMenu(window, window.workbench().params.CurrentMenuFile);
}

// Rows move when files come and go; the buttons must not act on another file than before. A row
// that is gone leaves its place to the next one.
int placeOf(const ListRows& list, const std::optional<ListRow>& row, int before)
{
    if (const int found = row ? list.find(*row) : 0; found > 0)
        return found;
    return std::clamp(before, list.count() > 0 ? 1 : 0, list.count());
}

ListRows filledList(MainWindow& window, int tab)
{
    const Workbench& bench = window.workbench();
    return bench.params.kind(tab).rows(bench.shell, bench.document, bench.params.objectOfTab(tab));
}

} // namespace

void loadLogos(MainWindow& window)
{
    const QString& folder = window.shell().run.Workspace;
    QStringList logos;
    for (const QString& name : numberedFiles(folder, logoPattern))
        logos.append(folder + name);
    window.stageLink().stage().setLogos(logos);
}

// The stage counts the logos that are there, so a gap in their numbers is no gap on the stage.
void showLogoMember(MainWindow& window, const QString& name)
{
    const QStringList names = numberedFiles(window.shell().run.Workspace, logoPattern);
    window.stageLink().stage().showLogo(static_cast<int>(names.indexOf(name)));
}

void rebuildTabs(MainWindow& window)
{
    window.rightPanel().rebuild();
    const ParamLists& lists = window.workbench().params;
    std::vector<Menus::Entry> entries;
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab)
        entries.push_back(
            {tab, tabMenuCaption(lists.tabs[static_cast<std::size_t>(tab)]), true, false, {}});
    window.menus().setEntries("mnuEdit_ZUK_arr", entries);
}

void refillList(MainWindow& window, int tab)
{
    Workbench& bench = window.workbench();
    ListRows& list = *bench.params.list(tab);
    const int selected = list.selected;
    const std::optional<ListRow> row =
        list.row(selected) == nullptr ? std::nullopt : std::optional(*list.row(selected));
    if (tab == TabMenu) {
        MenuListFill(bench.shell, window.flashLink().menuDrive(), list);
    } else if (tab == TabFonts) {
        fillFonts(window);
        showFontSample(window);
    } else {
        const std::optional<qint64> switched = list.switched;
        list = filledList(window, tab);
        list.switched = switched;
    }
    list.selected = placeOf(list, row, selected);
    if (tab == bench.params.CurrentTab)
        bench.params.CurrentRow = list.selected;
    window.rightPanel().fillList(tab);
}

void membersChanged(MainWindow& window, const QString& addedPattern)
{
    (void)RebuildMemberList(window.shell(), addedPattern);
    refillMembers(window);
}

void refillMembers(MainWindow& window)
{
    const Shell& shell = window.shell();
    const ParamLists& lists = window.workbench().params;
    for (int fixed = TabMenu; fixed < FirstObjectTab; ++fixed) {
        if (lists.kind(fixed).follows == Follows::Members)
            refillList(window, fixed);
    }
    if (lists.CurrentTab >= FirstObjectTab)
        refillList(window, lists.CurrentTab);
    loadLogos(window);
    window.refreshThumbnails();
    if (!FileExists(shell.run.BackFile)) {
        shell.run.BackFile = shell.run.Workspace + mainBackName;
        window.ShowBackground();
    } else {
        // With the fonts and logos that are there now.
        window.stageLink().stage().RefreshPanels();
    }
    updateRowButtons(window);
}

void showUpgradedEngine(MainWindow& window)
{
    *window.workbench().params.list(TabGfxboot) = filledList(window, TabGfxboot);
    showFonts(window);
    window.rightPanel().fillList(TabGfxboot);
    window.rightPanel().fillList(TabFonts);
}

void showGeneration(MainWindow& window)
{
    Workbench& bench = window.workbench();
    Stage& stage = window.stageLink().stage();
    stage.ShowMarker(-1, -1);
    stage.SelectedPanel = -1;
    stage.HideAllPanels();
    for (int tab = TabMenu; tab < FirstObjectTab; ++tab) {
        if (bench.params.kind(tab).rows != nullptr)
            *bench.params.list(tab) = filledList(window, tab);
    }
    fillFonts(window);
    stage.adoptPanels();
    BuildTabs(bench.shell, bench.params);
    rebuildTabs(window);
    loadLogos(window);
    showAll(window);
}

void showStep(MainWindow& window, OpenStep step)
{
    Workbench& bench = window.workbench();
    ParamLists& params = bench.params;
    switch (step) {
    case OpenStep::Pictures:
    case OpenStep::Levels:
        break;
    case OpenStep::Menus:
        MenuListFill(bench.shell, window.flashLink().menuDrive(), *params.list(TabMenu));
        break;
    case OpenStep::Config:
        *params.list(TabConfig) = filledList(window, TabConfig);
        break;
    case OpenStep::Members:
    case OpenStep::Backgrounds: {
        const int tab = step == OpenStep::Members ? TabGfxboot : TabBackgrounds;
        *params.list(tab) = filledList(window, tab);
        selectFirst(*params.list(tab));
        break;
    }
    case OpenStep::Fonts:
        showFonts(window);
        selectFirst(*params.list(TabFonts));
        break;
    case OpenStep::Stage:
        bench.shell.WriteLog(QStringLiteral("     Frame2.Preview.Fill"));
        break;
    case OpenStep::Generation:
        window.stageLink().stage().adoptPanels();
        break;
    case OpenStep::Tabs:
        BuildTabs(bench.shell, params);
        rebuildTabs(window);
        break;
    case OpenStep::Logos:
        bench.shell.WriteLog(QStringLiteral("     ImageListLOGO.Fill"));
        loadLogos(window);
        break;
    case OpenStep::Show:
        showAll(window);
        break;
    }
}

} // namespace fennel
