// SPDX-License-Identifier: MIT
// The list of one boot-screen object: its parameters with the values of the level file and of the
// selected menu, then the member files that belong to it.
#pragma once

#include "params/param_lists.h"

#include <functional>
#include <optional>
#include <vector>

namespace fennel {

struct Shell;

// Marks in the tag of a parameter row, which is the id followed by those that hold: the parameter
// feeds the object's PanelRec, it switches the object on and off, it is shown in hexadecimal.
inline const QString ownMark = QStringLiteral("|panel's parameter|");
inline const QString onOffMark = QStringLiteral("|OnOff parameter|");
inline const QString hexMark = QStringLiteral("|x|");

// True for ":NN:=", the item of a parameter row.
bool isParameterRow(const ListRow& row);

// Value cells: "0x" and six digits, or decimal.
QString cfgCellText(qint64 value, bool hex);
// The same for a menu's value, hexadecimal without leading zeros; empty for none.
QString lstCellText(std::optional<qint64> value, bool hex);

// The colour of a parameter row for an enable value of its object: blue for what feeds a shown
// object, grey if the object is off (0), black otherwise; the switch itself is always blue. A file
// without the switch gives -1, which greys only what feeds the object.
QRgb stateColour(const QString& tag, qint64 enabled);

struct FillOptions {
    bool opening = false; // the gfxboot is being opened: the first row gets selected
    // Puts the engine and the standard font of this version into the Workspace. Runs at most once
    // after an open, if the user agrees to the upgrade.
    std::function<void()> updateEngine;
};

// The list of an object (row of PanelArr), whose TabIndex is set; without rows if it lists nothing.
// The rows of parameters that the level file lacks are left out; the first of them after an open
// brings up the question whether to upgrade, and after a Yes they show the catalogue's default. The
// id list ends at an empty element. Sets TabPos and RowPos of the cells shown. The lists themselves
// are not touched, so that views may show them while the question stands.
ListRows objectList(const Shell& shell, ParamLists& lists, int object, const FillOptions& options);

// Fills the list of an object again: parameters that it showed keep their values (but not while a
// gfxboot is opened), the same row stays selected, or the last. Sets CurrentRow if
// the list is the current one.
void FillObjectList(const Shell& shell, ParamLists& lists, int object, const FillOptions& options);

} // namespace fennel
