// SPDX-License-Identifier: MIT
// A menu file of 1 MB with 10,000 titles made the one in force: read, counted, listed, its data
// titles overlaid. Limit with its drawing: 100 ms. The switch between the lists' values and the
// menu's, with all 40 objects: 50 ms.
#include "editor/lists/tabs.h"
#include "large_menu.h"
#include "menus/menu_list.h"
#include "params/level_files.h"
#include "params/menu_level.h"
#include "params/object_table.h"
#include "params/panel_values.h"
#include "params/row_values.h"
#include "quiet_prompts.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// A generation 3 gfxboot with all level files full, and a stick with one large menu.
struct OpenWithStick {
    QTemporaryDir folder;
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    Shell shell{run, log, files, prompts, tools};
    ParamLists lists;
    FontTable fonts{std::size_t{fontCount}};
    MenuDrive drive{u"E"_s, folder.path() + u"/stick/"_s};

    OpenWithStick()
    {
        run.Workspace = folder.path() + u"/message/"_s;
        run.GfxHasZuk = true;
        run.gfxboot_var = 3;
        run.ObjectCount = zukObjectCount;
        run.BackWidth = 800;
        run.BackHeight = 600;
        (void)files.makeFolder(run.Workspace);
        (void)files.makeFolder(drive.folder);
        for (int file = 0; file < zukFileCount; ++file)
            writeLevels(file);
        (void)files.write(drive.folder + u"menu.lst"_s, largeMenu());
        FillOptions options;
        options.opening = true;
        ReadLevelFiles(shell, lists.ZUKarr);
        BuildPanels(shell, lists);
        applyGeneration(shell, lists, fonts, {});
        BuildTabs(shell, lists, options);
    }
    void writeLevels(int file)
    {
        QByteArray bytes;
        for (int param = 1; param <= zukParamCount; ++param) {
            bytes.append("\x08\x00\x00", 3);
            bytes += static_cast<char>(param);
            lists.ZUKarr.at(file, param).DefValue = 1;
        }
        (void)files.write(run.Workspace + levelFileName(file), bytes);
    }
};

void FillAndApplyMenu(benchmark::State& state)
{
    OpenWithStick open;
    QString name = u"menu.lst"_s;
    for (auto step : state) {
        MenuListFill(open.shell, open.drive, *open.lists.list(TabMenu));
        const QString entries = MenuApply(open.shell, open.drive, name, open.lists.ZUKarr);
        refreshLstColumn(open.lists);
        state.counters["characters"] = static_cast<double>(entries.size());
    }
}
BENCHMARK(FillAndApplyMenu)->Unit(benchmark::kMillisecond);

void SwitchMenuLevelOnAndOff(benchmark::State& state)
{
    OpenWithStick open;
    QString name = u"menu.lst"_s;
    (void)MenuApply(open.shell, open.drive, name, open.lists.ZUKarr);
    for (auto step : state) {
        benchmark::DoNotOptimize(switchMenuLevel(open.shell, open.lists, true));
        benchmark::DoNotOptimize(switchMenuLevel(open.shell, open.lists, false));
    }
}
BENCHMARK(SwitchMenuLevelOnAndOff)->Unit(benchmark::kMillisecond);

} // namespace
