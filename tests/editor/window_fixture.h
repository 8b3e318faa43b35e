// SPDX-License-Identifier: MIT
// A whole main window on the offscreen platform with a scripted user and folders of its own, and
// the template opened in it as a gfxboot of generation 3.
#pragma once

#include "editor/lists/right_panel.h"
#include "editor/lists/row_cells.h"
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
        Q_EMIT window.rightPanel().tabClicked(bench.params.TabIndex(object));
    }
    const PanelRec& record(int object) { return *bench.document.object(object); }
    const ZukCell& cell(int object, int param)
    {
        return bench.document.state().ZUKarr.at(levelFileOf(record(object)), param);
    }
    Stage& stage() { return window.stageLink().stage(); }
    // The number of the row that shows a parameter of the object, and its value as the list says.
    int rowOf(int object, int param)
    {
        ListRow wanted;
        wanted.kind = RowKind::Parameter;
        wanted.file = levelFileOf(record(object));
        wanted.number = param;
        return bench.params.list(bench.params.TabIndex(object))->find(wanted);
    }
    QString shown(int object, int param)
    {
        const ListRows& list = *bench.params.list(bench.params.TabIndex(object));
        return rowLook(bench.document, list, *list.row(rowOf(object, param)), {}).text(LevelColumn);
    }
    // Opens the value editor on the row of a parameter.
    void editRow(int object, int param)
    {
        const int tab = bench.params.TabIndex(object);
        const int row = rowOf(object, param);
        RightPanel& panel = window.rightPanel();
        panel.view(tab)->select(row);
        Q_EMIT panel.rowSelected(tab, row, false);
        Q_EMIT panel.rowActivated(tab, row);
    }
    void runCommand(const char* name) { window.commands().run(QLatin1String(name)); }
};

} // namespace fennel::test
