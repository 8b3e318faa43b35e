// SPDX-License-Identifier: MIT
// What an open costs in the lists: all 40 objects built and all tabs filled; and the switch between
// the lists' values and a menu's, with all of them.
#include "editor.h"
#include "editor/lists/tabs.h"
#include "large_menu.h"
#include "menus/menu_overlay.h"
#include "params/level_files.h"
#include "params/object_table.h"

#include <QImage>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// An open gfxboot with every level file full, eight sparkles, and 240 members besides.
struct FullGfxboot : OpenGfxboot {
    ParamLists lists{document};

    FullGfxboot() : OpenGfxboot({800, 600})
    {
        QImage logo(120, 80, QImage::Format_RGB32);
        logo.fill(Qt::white);
        logo.save(run.Workspace + u"Logo_msk.jpg"_s);
        document.setMenuValues([this](ZUKarr& table) {
            for (int file = 0; file < zukFileCount; ++file)
                writeLevels(file, table);
        });
        for (int i = 0; i < 80; ++i) {
            for (const QString& name : {u"Logo_%1.jpg"_s, u"glass_%1.jpg"_s, u"back_%1.jpg"_s})
                (void)files.write(run.Workspace + name.arg(i, 2, 10, QChar(u'0')), "x");
        }
    }
    void writeLevels(int file, ZUKarr& table)
    {
        QByteArray bytes;
        for (int param = 1; param <= zukParamCount; ++param) {
            bytes.append("\x08\x00\x00", 3);
            bytes += static_cast<char>(param);
            table.at(file, param).DefValue = 1;
        }
        (void)files.write(run.Workspace + levelFileName(file), bytes);
    }
    void build()
    {
        document.readLevels();
        document.buildObjects();
        document.listValues(false);
        BuildTabs(shell, lists);
    }
};

void BuildAll(benchmark::State& state)
{
    FullGfxboot open;
    for (auto step : state)
        open.build();
    state.counters["tabs"] = open.lists.tabCount();
}
BENCHMARK(BuildAll)->Unit(benchmark::kMillisecond);

void SwitchMenuLevelOnAndOff(benchmark::State& state)
{
    FullGfxboot open;
    open.build();
    open.document.setMenuValues(
        [](ZUKarr& table) { MenuOverlay(QString::fromLatin1(largeMenu()), true, table); });
    for (auto step : state) {
        open.document.showMenuLevel(true);
        open.document.showMenuLevel(false);
    }
}
BENCHMARK(SwitchMenuLevelOnAndOff)->Unit(benchmark::kMillisecond);

} // namespace
