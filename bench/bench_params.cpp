// SPDX-License-Identifier: MIT
// What an open costs in the lists: all 40 objects built and all tabs filled. Limit: 40 ms. A typed
// value has to be in row, record and swatch within a frame, 16 ms.
#include "base/shell_context.h"
#include "editor/lists/tabs.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"
#include "params/row_values.h"
#include "quiet_prompts.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// An open gfxboot with every level file full, eight sparkles, and 240 members besides.
struct OpenGfxboot {
    QTemporaryDir folder;
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    Shell shell{run, log, files, prompts, tools};
    ParamLists lists;
    FontTable fonts{std::size_t{fontCount}};

    OpenGfxboot()
    {
        run.Workspace = folder.path() + u'/';
        run.GfxHasZuk = true;
        run.gfxboot_var = 3;
        run.ObjectCount = zukObjectCount;
        run.BackWidth = 800;
        run.BackHeight = 600;
        QImage logo(120, 80, QImage::Format_RGB32);
        logo.fill(Qt::white);
        logo.save(run.Workspace + u"Logo_msk.jpg"_s);
        for (int file = 0; file < zukFileCount; ++file)
            writeLevels(file);
        for (int i = 0; i < 80; ++i) {
            for (const QString& name : {u"Logo_%1.jpg"_s, u"glass_%1.jpg"_s, u"back_%1.jpg"_s})
                (void)files.write(run.Workspace + name.arg(i, 2, 10, QChar(u'0')), "x");
        }
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
    void build()
    {
        ReadLevelFiles(shell, lists.ZUKarr);
        BuildPanels(shell, lists);
        applyGeneration(shell, lists, fonts, {});
        BuildTabs(shell, lists, {});
    }
};

void BuildAll(benchmark::State& state)
{
    OpenGfxboot open;
    for (auto step : state)
        open.build();
    state.counters["tabs"] = open.lists.tabCount();
}
BENCHMARK(BuildAll)->Unit(benchmark::kMillisecond);

void TypeValue(benchmark::State& state)
{
    OpenGfxboot open;
    open.build();
    for (auto step : state)
        benchmark::DoNotOptimize(setTypedValue(open.lists, open.fonts, FirstObjectTab, 4, u"253"));
}
BENCHMARK(TypeValue)->Unit(benchmark::kMicrosecond);

void GatherAndWrite(benchmark::State& state)
{
    OpenGfxboot open;
    open.build();
    for (auto step : state) {
        GatherListValues(open.shell, open.lists);
        if (!WriteLevelFiles(open.shell, open.lists.ZUKarr))
            state.SkipWithError("cannot write");
    }
}
BENCHMARK(GatherAndWrite)->Unit(benchmark::kMillisecond);

} // namespace
