// SPDX-License-Identifier: MIT
// The shared state of the parameter lists: every tab with its list, the boot-screen objects behind
// the tabs, the table of parameters, and where the user is. One is owned by the workbench, and each
// test makes its own.
#pragma once

#include "params/list_rows.h"
#include "params/panel_rec.h"
#include "params/zuk_table.h"

#include <cstddef>
#include <vector>

namespace fennel {

// Cells of a row of an object list.
enum ObjectColumn { ItemColumn = 0, LevelColumn, LstColumn, CommentColumn };

struct ParamTab {
    QString caption;
    QString toolTip;
    int object = -1; // row of PanelArr; -1 for a fixed tab
};

// Between opening and saving the value cells of the object lists are the truth about the
// parameters; ZUKarr holds what the files and the menu said, and gets the cells only through
// GatherListValues.
struct ParamLists {
    // Both are counted like the tabs, from 1: 1 to 5 the fixed ones (see FixedTab), from 6 on one
    // per object. Element 0 is never used. The two always have the same length.
    std::vector<ListRows> lists{std::size_t{FirstObjectTab}};
    std::vector<ParamTab> tabs{std::size_t{FirstObjectTab}};

    fennel::PanelArr PanelArr; // RunState::ObjectCount rows
    fennel::ZUKarr ZUKarr;

    int CurrentTab = TabMenu; // the selected tab
    int CurrentRow = 0;       // the selected row of its list, from 1; 0 none
    int UpgradeChoice = 0;    // upgrade of the engine: 0 not asked since the open, 1 yes, -1 no
    int MenuSlit = 3;         // extra pixels between the lines of the menu

    // The list or the object of a tab, null for a tab that is not there or has no object.
    [[nodiscard]] ListRows* list(int tab)
    {
        return tab >= 1 && tab < static_cast<int>(lists.size())
                   ? &lists[static_cast<std::size_t>(tab)]
                   : nullptr;
    }
    [[nodiscard]] const ListRows* list(int tab) const
    {
        return const_cast<ParamLists*>(this)->list(tab);
    }
    [[nodiscard]] PanelRec* object(int row)
    {
        return row >= 0 && row < static_cast<int>(PanelArr.size())
                   ? &PanelArr[static_cast<std::size_t>(row)]
                   : nullptr;
    }
    [[nodiscard]] const PanelRec* object(int row) const
    {
        return const_cast<ParamLists*>(this)->object(row);
    }
    // Row of PanelArr that the tab belongs to, -1 none.
    [[nodiscard]] int objectOfTab(int tab) const
    {
        return tab >= 1 && tab < static_cast<int>(tabs.size())
                   ? tabs[static_cast<std::size_t>(tab)].object
                   : -1;
    }
    // The last tab; 5 without object tabs.
    [[nodiscard]] int tabCount() const { return static_cast<int>(tabs.size()) - 1; }
};

} // namespace fennel
