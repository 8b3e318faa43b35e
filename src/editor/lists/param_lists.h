// SPDX-License-Identifier: MIT
// The lists of the workbench: every tab with its list, and where the user is. What the rows stand
// for is the document's; here is only which rows there are and which is selected.
#pragma once

#include "document/document.h"
#include "editor/lists/tab_kinds.h"
#include "params/list_rows.h"

#include <vector>

namespace fennel {

// Cells of a row of an object list.
enum ObjectColumn { ItemColumn = 0, NameColumn, LevelColumn, LstColumn, CommentColumn };
// Cells of a row of gfxboot.cfg.
enum CfgColumn { CfgNameColumn, CfgValueColumn, CfgStateColumn, CfgCommentColumn };

struct ParamTab {
    QString caption;
    QString toolTip;
    int object = -1; // row of PanelArr; -1 for a fixed tab
};

struct ParamLists {
    explicit ParamLists(const Document& shown) : document(&shown) {}

    const Document* document;

    // Both are counted like the tabs, from 1: the fixed ones (see FixedTab), then one per object.
    // Element 0 is never used. The two always have the same length.
    std::vector<ListRows> lists{std::size_t{FirstObjectTab}};
    std::vector<ParamTab> tabs{std::size_t{FirstObjectTab}};

    int CurrentTab = TabMenu; // the selected tab
    int CurrentRow = 0;       // the selected row of its list, from 1; 0 none
    QString CurrentMenuFile;  // a menu file of the Current Flash; empty: the embedded menu

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
    [[nodiscard]] const PanelRec* object(int row) const { return document->object(row); }
    // Row of PanelArr that the tab belongs to, -1 none.
    [[nodiscard]] int objectOfTab(int tab) const
    {
        return tab >= 1 && tab < static_cast<int>(tabs.size())
                   ? tabs[static_cast<std::size_t>(tab)].object
                   : -1;
    }
    [[nodiscard]] const TabKind& kind(int tab) const { return tabKind(tab, objectOfTab(tab)); }
    // The tab of an object, 0 without one.
    [[nodiscard]] int TabIndex(int object) const
    {
        for (int tab = FirstObjectTab; object >= 0 && tab <= tabCount(); ++tab) {
            if (objectOfTab(tab) == object)
                return tab;
        }
        return 0;
    }
    // The last tab; without object tabs the last fixed one.
    [[nodiscard]] int tabCount() const { return static_cast<int>(tabs.size()) - 1; }
    // The selected row; null for none.
    [[nodiscard]] const ListRow* currentRow() const
    {
        const ListRows* rows = list(CurrentTab);
        return rows == nullptr ? nullptr : rows->row(CurrentRow);
    }
};

} // namespace fennel
