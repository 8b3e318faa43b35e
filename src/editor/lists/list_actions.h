// SPDX-License-Identifier: MIT
// What a click, a double click, a key, a check box or a button beside a list means. The answers are
// plain values; the window carries them out.
#pragma once

#include "editor/lists/row_cells.h"
#include "editor/lists/tabs.h"

#include <QString>

#include <vector>

namespace fennel {

struct RunState;

// The row that a click or an arrow key ends on: `clicked` itself, or, if it is grey, the next row
// in the direction of travel that is not, around the ends of the list. 0 if all rows are grey.
int selectableRow(const ParamLists& lists, int tab, int clicked, int cameFrom);

struct ItemClick {
    int select = 0;       // the new CurrentRow; 0 none
    bool skipped = false; // the clicked row was grey: select `select`, do nothing else
    RowButtons buttons;
    bool showFont = false;      // show what is known of the selected font
    bool showPopup = false;     // right button on a member
    bool showCfgStatus = false; // tab 3: the status bar shows the parameter, an open editor closes
};
// `row` from 1, as in all of these. Of a row that is not there nothing but `select` is set.
ItemClick onItemClick(const RunState& run, const ParamLists& lists, int tab, int row,
                      bool rightButton);

enum class DoubleClick {
    Nothing,
    RefuseMenuLevel, // show overlappedText() with the title "MenuLevel data"
    SelectFirst,     // select row 1
    TakeMenu,        // check the menu's row and load it
    ShowText,        // the object on the stage shows the text member
    ShowLogo,
    ShowBackground, // the picture becomes BackFile
    OpenPicture,    // with the image tool
    TellOldFonts,   // show oldFontsText()
    ShowFont,
    EditValue, // open the value editor
};
// `checkFromMenu`: the values of a menu lie over those of the lists.
DoubleClick onDoubleClick(const RunState& run, const ParamLists& lists, int tab, int row,
                          bool checkFromMenu);

// `key` is a Qt::Key; Open acts as a double click. TakeMenu: row 2 gives way to row 1, the menu is
// taken, plannedMenuText() shown.
ListKey onListKey(const TabKind& kind, int key);

enum class RowCheck { Refuse, TakeMenu, WriteCfg };
// The check box of a row was clicked. WriteCfg: the line is switched in gfxboot.cfg, at once.
RowCheck onRowCheck(const RunState& run, const ParamLists& lists, int tab, int row);

// EditText: a member that turns out to be no text gets notTextFileText().
EditAction onComEdit(const ParamLists& lists, int tab, const QString& name);

enum class DeleteAction { Nothing, RefuseRequired, AskDelete, TellPlanned };
// `required` says whether the boot screen cannot do without the row's member.
DeleteAction onComDEL(const ParamLists& lists, int tab, int row, bool required);

// An entry of the array ListView1Popup (see popupEdit and the like); the caption of entry 0 is a
// heading.
struct PopupEntry {
    int index = 0;
    QString caption;
    bool enabled = true;
};
// The menu of a member's row; `name` is the row's first text.
std::vector<PopupEntry> rowPopup(int tab, const QString& name);
// Shown only with two entries or more; empty in generation 1.
std::vector<PopupEntry> tabPopup(const RunState& run, const ParamLists& lists, int tab);

// The member names that "Delete all files" removes, 01 to 99; the base files are never among them.
QStringList deleteAllNames(const ParamLists& lists, int tab);

// Sentences for the user, as the answers above ask for them.
QString overlappedText();
QString oldFontsText();
QString plannedText();
QString plannedMenuText();
QString plannedUpDownText(int value);
QString specialTabText();
QString notTextFileText();
QString askDeleteText(const QString& name);

} // namespace fennel
