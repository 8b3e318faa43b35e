// SPDX-License-Identifier: MIT
// A whole main window on the offscreen platform with a scripted user and folders of its own, and
// the template opened in it as a gfxboot of generation 3.
#pragma once

#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "params/level_files.h"
#include "support/story.h"

#include <QTest>

namespace fennel::test {

using namespace Qt::StringLiterals;

class WindowTest : public testing::Test, public Story {
protected:
    // Opens a copy of the template and selects the tab of the object.
    void openTemplate(int object = 0)
    {
        open(shell.file(u"boot.gz"_s, bytesOf(shell.run.AppPath + u"/data/GFX.GZ"_s)));
        selectObject(object);
    }
    void selectObject(int object)
    {
        Q_EMIT window.rightPanel().tabClicked(record(object).TabIndex);
    }
    PanelRec& record(int object) { return *bench.params.object(object); }
    Stage& stage() { return window.stageLink().stage(); }
    // The row that shows a parameter of the object, and its value as the list shows it.
    ListRow& rowOf(int object, int param)
    {
        const ZukCell& cell = bench.params.ZUKarr.at(levelFileOf(record(object)), param);
        ListRow* row = bench.params.list(cell.TabPos)->row(cell.RowPos);
        EXPECT_NE(row, nullptr);
        return *row;
    }
    QString shown(int object, int param) { return rowOf(object, param).text(1); }
    // Opens the value editor on the row of a parameter.
    void editRow(int object, int param)
    {
        const ZukCell& cell = bench.params.ZUKarr.at(levelFileOf(record(object)), param);
        RightPanel& panel = window.rightPanel();
        panel.view(cell.TabPos)->select(cell.RowPos);
        Q_EMIT panel.rowSelected(cell.TabPos, cell.RowPos, false);
        Q_EMIT panel.rowActivated(cell.TabPos, cell.RowPos);
    }
    void runCommand(const char* name) { window.commands().run(QLatin1String(name)); }
};

} // namespace fennel::test
