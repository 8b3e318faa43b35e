// SPDX-License-Identifier: MIT
// The switch CheckFromMenu, "MenuLevel data": whether the stage shows the values of the lists or
// those that the selected menu file imposes on them.
#pragma once

#include "params/param_lists.h"

#include <QString>

#include <optional>

namespace fennel {

struct Shell;

struct MenuLevelBox {
    bool enabled = false;
    QString toolTip;
};
// How the check box stands: usable only with a menu file chosen.
MenuLevelBox menuLevelBox(bool menuSelected, bool checked);

// Recomputes all objects for the new state of the box; when it was cleared, the lists are gathered
// first. Returns the full path of the background to be shown anew if the menu imposes another one
// than the lists have (BackFile is the caller's), nothing if only the objects are to be drawn.
std::optional<QString> switchMenuLevel(const Shell& shell, ParamLists& lists, bool checked);

} // namespace fennel
