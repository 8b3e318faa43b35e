// SPDX-License-Identifier: MIT
// The parameters of a gfxboot of generation 3: every one that a list shows has a record with its
// own number and a catalogue line, the logo is 120 by 80, the background 800 by 600.
#pragma once

#include "params/object_table.h"
#include "params/panel_values.h"
#include "support/test_shell.h"

namespace fennel::test {

using namespace Qt::StringLiterals;

class ParamsTest : public testing::Test {
protected:
    ParamsTest()
    {
        shell.run.GfxOpened = shell.run.GfxHasZuk = true;
        shell.run.gfxboot_var = 3;
        shell.run.ObjectCount = 40;
        shell.run.BackWidth = 800;
        shell.run.BackHeight = 600;
        fonts[0].FontName = u"Sans"_s;
        fonts[0].Size = 14;
        shell.member(u"Logo_msk.jpg"_s, jpegOf({120, 80}));
        for (int file = 0; file < zukFileCount; ++file) {
            for (int param = 1; param <= zukParamCount; ++param) {
                state.ZUKarr.at(file, param).DefValue = 7;
                set(file, param, param);
            }
        }
        set(1, 1, 0); // no sparkles
    }
    void set(int file, int param, int value) { state.ZUKarr.at(file, param).LevelValue = value; }
    void build()
    {
        BuildPanels(shell.shell, state);
        applyGeneration(shell.shell, state, fonts);
        listValues(state);
    }
    PanelRec& panel(int row) { return *state.object(row); }
    QRect place(int row)
    {
        return {panel(row).Left, panel(row).Top, panel(row).Width, panel(row).Height};
    }

    TestShell shell;
    ParamState state;
    FontTable fonts{std::size_t{fontCount}};
};

} // namespace fennel::test
