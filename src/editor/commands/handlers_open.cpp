// SPDX-License-Identifier: MIT
// Filling the window from an opened gfxboot, step by step.
#include "container/member_list.h"
#include "container/member_table.h"
#include "container/template.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/inspection_list.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/stage/stage_link.h"
#include "editor/window/flash_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/thumbnail_strip.h"
#include "params/cfg_file.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"
#include "screen/background.h"

#include <algorithm>

namespace fennel {

namespace {

void fillBackgrounds(const Shell& shell, ListRows& list)
{
    shell.WriteLog(QStringLiteral("     4_Backgrounds_in_ListView"));
    list = {};
    list.columns = columnsFrom(QStringLiteral("File Name|File Size|"));
    list.iconView = true;
    for (const QString& name :
         thumbnailNames(shell.run.Workspace, thumbnailMask(QStringLiteral("Background(s)")))) {
        ListRow row;
        const QString path = shell.run.Workspace + name;
        const QString size = QString::number(fileSize(path));
        row.tag = fileTag(name);
        row.iconFile = path;
        row.cells = {{name, QStringLiteral("Size: %1 byte").arg(size), {}, {}, false},
                     {size, {}, {}, {}, false}};
        list.rows.push_back(row);
    }
}

void selectFirst(ListRows& list)
{
    list.selected = list.rows.empty() ? 0 : 1;
}

void fillFonts(MainWindow& window)
{
    Workbench& bench = window.workbench();
    bench.shell.WriteLog(QStringLiteral("     5_Fonts_in_ListView"));
    ScanFonts(bench.fonts, bench.shell.run, bench.fontSettings, QStringLiteral("?"),
              keepInspection);
    *bench.params.list(TabFonts) = bench.fonts.rows;
    // The scan has emptied the list of characters; a click would find nothing behind its rows.
    window.inspectionList().setRows(bench.fonts.inspection.List1);
    window.inspectionList().ShowListPanel({});
}

void buildObjects(MainWindow& window)
{
    Workbench& bench = window.workbench();
    BuildPanels(bench.shell, bench.params);
    const ListRows& cfg = *bench.params.list(TabConfig);
    applyGeneration(bench.shell, bench.params, bench.fonts.table,
                    [&cfg](QStringView name) { return CfgValue(cfg, name); });
    window.stageLink().stage().adoptPanels();
}

void updateEngine(MainWindow& window)
{
    const Shell& shell = window.shell();
    shell.WriteLog(QStringLiteral("         ==> Update INIT and 16x16.fnt"));
    if (!WriteResource(shell, shell.run.Workspace, QStringLiteral("init")) ||
        !WriteResource(shell, shell.run.Workspace, mainFontName))
        return;
    (void)RebuildMemberList(shell, {});
    MemberListFill(shell, *window.workbench().params.list(TabGfxboot));
    fillFonts(window);
    window.rightPanel().fillList(TabGfxboot);
    window.rightPanel().fillList(TabFonts);
}

void buildObjectTabs(MainWindow& window)
{
    FillOptions options;
    options.opening = true;
    options.updateEngine = [&window] { updateEngine(window); };
    BuildTabs(window.shell(), window.workbench().params, options);
    rebuildTabs(window);
}

void showAll(MainWindow& window)
{
    window.UpdateInterface();
    window.refreshThumbnails();
    window.ShowBackground();
    takeMenu(window, window.workbench().CurrentMenuFile);
}

// Rows move when files come and go; the buttons must not act on another file than before. A row
// that is gone leaves its place to the next one.
int placeOf(const ListRows& list, const QString& tag, int before)
{
    for (int row = 1; row <= list.count(); ++row) {
        if (!tag.isEmpty() && list.row(row)->tag == tag)
            return row;
    }
    return std::clamp(before, list.count() > 0 ? 1 : 0, list.count());
}

} // namespace

void loadLogos(MainWindow& window)
{
    const QString& folder = window.shell().run.Workspace;
    std::vector<QImage> logos;
    for (const QString& name : numberedFiles(folder, logoPattern)) {
        const Result<QImage> picture = loadPicture(folder + name);
        logos.push_back(picture ? *picture : QImage());
    }
    window.stageLink().stage().setLogos(std::move(logos));
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
    const QString selectedTag = list.row(selected) == nullptr ? QString() : list.row(selected)->tag;
    switch (tab) {
    case TabMenu:
        MenuListFill(bench.shell, window.flashLink().menuDrive(), list);
        break;
    case TabGfxboot:
        MemberListFill(bench.shell, list);
        break;
    case TabConfig:
        ConfigInListView(bench.shell, list);
        break;
    case TabBackgrounds:
        fillBackgrounds(bench.shell, list);
        break;
    case TabFonts:
        fillFonts(window);
        showFontSample(window);
        break;
    default: {
        FillOptions options;
        options.updateEngine = [&window] { updateEngine(window); };
        FillObjectList(bench.shell, bench.params, bench.params.objectOfTab(tab), options);
        break;
    }
    }
    list.selected = placeOf(list, selectedTag, selected);
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
    const int tab = window.workbench().params.CurrentTab;
    refillList(window, TabGfxboot);
    refillList(window, TabBackgrounds);
    refillList(window, TabFonts);
    if (tab >= FirstObjectTab)
        refillList(window, tab);
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

void fillStep(MainWindow& window, OpenHost::Step step)
{
    using Step = OpenHost::Step;
    Workbench& bench = window.workbench();
    ParamLists& params = bench.params;
    switch (step) {
    case Step::Pictures:
        params.UpgradeChoice = 0;
        break;
    case Step::Levels:
        ReadLevelFiles(bench.shell, params.ZUKarr);
        break;
    case Step::Menus:
        MenuListFill(bench.shell, window.flashLink().menuDrive(), *params.list(TabMenu));
        break;
    case Step::Members:
        MemberListFill(bench.shell, *params.list(TabGfxboot));
        selectFirst(*params.list(TabGfxboot));
        break;
    case Step::Config:
        ConfigInListView(bench.shell, *params.list(TabConfig));
        break;
    case Step::Backgrounds:
        fillBackgrounds(bench.shell, *params.list(TabBackgrounds));
        selectFirst(*params.list(TabBackgrounds));
        break;
    case Step::Fonts:
        fillFonts(window);
        selectFirst(*params.list(TabFonts));
        break;
    case Step::Stage:
        bench.shell.WriteLog(QStringLiteral("     Frame2.Preview.Fill"));
        break;
    case Step::Generation:
        buildObjects(window);
        break;
    case Step::Tabs:
        buildObjectTabs(window);
        break;
    case Step::Logos:
        bench.shell.WriteLog(QStringLiteral("     ImageListLOGO.Fill"));
        loadLogos(window);
        break;
    case Step::Show:
        showAll(window);
        break;
    }
}

} // namespace fennel
