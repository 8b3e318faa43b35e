// SPDX-License-Identifier: MIT
// The tabs of the workbench: the fixed ones, one per boot-screen object, and what changes with
// the selected tab besides its list.
#pragma once

#include "editor/lists/param_lists.h"

#include <QStringList>

#include <vector>

namespace fennel {

struct RunState;
struct Shell;

// The tabs that are there before anything is open; element 0 is never used.
std::vector<ParamTab> fixedTabs();

// The tab of an object.
ParamTab objectTab(const PanelRec& panel, int object);

// Makes the tabs anew: the fixed ones, whose lists stay but for those that show values, and in
// generation 3 one per Enabled object with its list filled. A current tab that is gone becomes the
// first. All elements of ParamLists::lists may have moved then, and views have to take them anew
// before they paint.
void BuildTabs(const Shell& shell, ParamLists& lists);

// The tab to begin with once a gfxboot is open: the first object where there are objects, else
// gfxboot.cfg, else the members.
int frontTab(const RunState& run, const ParamLists& lists);

// The entry of a tab in the menu mnuEdit_ZUK_arr.
QString tabMenuCaption(const ParamTab& tab);

// Whether the stage shows the object of a tab that the user leaves.
bool shownAfterLeaving(const ParamLists& lists, int tab);

// Whether the buttons beside the list and three buttons of the toolbar can be used.
struct RowButtons {
    bool UpDown3 = false;
    bool ComADD = false;
    bool ComDEL = false;
    bool ComEdit = false;
    bool Font_change = false;
    bool toolbar12 = false; // work on a font
    bool toolbar13 = false; // work on a text
    bool toolbar14 = false; // work on a picture
    bool operator==(const RowButtons&) const = default;
};
// After a change to the tab, for the row that its list has selected.
RowButtons buttonsOfTab(const RunState& run, const ParamLists& lists, int tab);
// After a click on a row that is not grey.
RowButtons buttonsOfRow(const RunState& run, const ParamLists& lists, int tab, int row);

// The members that fit masks separated by "|", mask by mask, at most `thumbnailLimit` of each.
inline constexpr int thumbnailLimit = 100;
QStringList thumbnailNames(const QString& workspace, const QString& mask);
// What the status bar says of them.
QString thumbnailStatus(qsizetype count, const QString& mask);

} // namespace fennel
