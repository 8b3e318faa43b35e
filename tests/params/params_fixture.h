// SPDX-License-Identifier: MIT
// An open gfxboot of generation 3 for the tests of the parameters: every parameter that a list
// shows has a record and a catalogue line, the logo is 120 by 80, the background 800 by 600.
#pragma once

#include "editor/lists/tabs.h"
#include "params/object_table.h"
#include "params/panel_values.h"
#include "params/row_values.h"
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
        shell.run.GfxFileName = u"boot.gz"_s;
        fonts[0].FontName = u"Sans"_s;
        fonts[0].Size = 14;
        shell.member(u"Logo_msk.jpg"_s, jpegOf({120, 80}));
        for (int file = 0; file < zukFileCount; ++file) {
            for (int param = 1; param <= zukParamCount; ++param)
                describe(file, param);
        }
        set(1, 1, 0); // no sparkles
    }

    void describe(int file, int param)
    {
        ZukCell& cell = lists.ZUKarr.at(file, param);
        cell.Name = u"s.test%1.p%2"_s.arg(file).arg(param);
        cell.Comment = u"comment %1"_s.arg(param);
        cell.DefValue = 7;
        cell.LevelValue = param;
    }
    void set(int file, int param, int value) { lists.ZUKarr.at(file, param).LevelValue = value; }
    void build()
    {
        BuildPanels(shell.shell, lists);
        applyGeneration(shell.shell, lists, fonts, {});
        FillOptions options;
        options.opening = true;
        options.updateEngine = [this] {
            ++updates;
            tabsAtUpdate = lists.tabCount();
        };
        BuildTabs(shell.shell, lists, options);
    }
    PanelRec& panel(int row) { return *lists.object(row); }
    QRect place(int row)
    {
        return {panel(row).Left, panel(row).Top, panel(row).Width, panel(row).Height};
    }
    ListRows& listOf(int object) { return *lists.list(panel(object).TabIndex); }
    QStringList itemsOf(int object)
    {
        QStringList items;
        for (const ListRow& row : listOf(object).rows)
            items.append(row.text());
        return items;
    }
    // The number of the row with that item; 0 if there is none.
    int rowNumber(int object, const QString& item)
    {
        return static_cast<int>(itemsOf(object).indexOf(item)) + 1;
    }
    ListRow& row(int object, const QString& item)
    {
        return *listOf(object).row(rowNumber(object, item));
    }
    QString value(int object, const QString& item) { return row(object, item).text(LevelColumn); }
    // Types a value into the row of that item.
    RowChange type(int object, const QString& item, const QString& text)
    {
        return setTypedValue(lists, fonts, panel(object).TabIndex, rowNumber(object, item), text);
    }

    TestShell shell;
    ParamLists lists;
    FontTable fonts{std::size_t{fontCount}};
    int updates = 0;
    int tabsAtUpdate = 0;
};

} // namespace fennel::test
