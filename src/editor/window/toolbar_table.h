// SPDX-License-Identifier: MIT
// The toolbar as three texts, one entry a position, and the state of each button.
#pragma once

#include "base/run_state.h"

#include <vector>

namespace fennel {

enum class ButtonStyle { Button = 0, Separator = 3, DropDown = 5 };

struct ToolbarEntry {
    ButtonStyle style = ButtonStyle::Button;
    int id = 0; // 0: no button
    QString toolTip;
};

// The positions from 1 on, split from the three texts: "-" stands for style 0, for no id, and for
// no tool tip. Positions behind the last button are left out.
std::vector<ToolbarEntry> toolbarEntries();

struct ButtonState {
    bool enabled = true;
    int image = 0; // number of the picture
    QString toolTip;
};

// What the window is doing, as far as buttons show it.
struct WindowFlags {
    bool rightPanelShown = true;
    bool bottomPanelShown = true;
    bool MonitorOn = false;
};

ButtonState buttonState(const ToolbarEntry& entry, const RunState& run, const WindowFlags& flags);

// Name of the menu command that a button runs; empty for the buttons that the window handles itself
// (7, 8, 13, 14, 18) and for ids that are in no table.
QString toolbarCommandName(int id);

// What is said of an id that is in no table.
QString undefinedButtonText(int id);

} // namespace fennel
