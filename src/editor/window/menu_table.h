// SPDX-License-Identifier: MIT
// The whole menu of the window as one table: a menu item is a row. The window builds its menus from
// it and finds what an item runs by its name (see commands.h).
#pragma once

#include "base/run_state.h"

#include <span>

namespace fennel {

// When an item can be chosen.
enum class Enabled {
    Always,
    Opened,      // a gfxboot is open
    OpenedCfg,   // ... that has gfxboot.cfg
    OpenedFonts, // ... of generation 2 or 3, whose font can be changed
    OpenedZuk,   // ... of generation 3
    OpenedOlder, // ... of generation 1 or 2
    FlashThere,  // at least one removable drive is known
    FlashChosen, // a Current Flash is chosen
    ByOthers,    // a command sets it (the last used list, the menus of a drive, the BIOS files)
};

enum class MenuKind {
    Menu, // opens a menu with its own rows
    Command,
    Check,   // a command with a check mark
    Array,   // place of entries that come and go at run time; objectName is name_index
    Heading, // no command
    Popup,   // a menu that is shown at the mouse, not in the bar
};

struct MenuItem {
    const char* name;    // the action's objectName, and the key of its command
    const char* parent;  // name of the menu that holds it; empty for the bar
    const char* caption; // see Words
    MenuKind kind = MenuKind::Command;
    Enabled enabled = Enabled::Always;
    bool separatorBefore = false;
    const char* shortcut = ""; // several are separated by ";"
};

// Every item, a menu before what it holds.
std::span<const MenuItem> menuTable();

// The row of that name, or null.
const MenuItem* menuItem(QStringView name);

// Whether the rule holds. `flashThere`: a removable drive is known. ByOthers is always true here.
bool holds(Enabled rule, const RunState& run, bool flashThere);

// The caption of mnuFile_ReOpen: the name of the open file, or three points.
QString reopenCaption(const RunState& run);

} // namespace fennel
