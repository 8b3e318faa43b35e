// SPDX-License-Identifier: MIT
// The whole toolbar as one table: a button is a row. The window builds its toolbar from it and
// finds what a button runs by the name of its command (see commands.h).
#pragma once

#include "editor/window/menu_table.h"

#include <QString>

#include <span>

namespace fennel {

// The numbers of the buttons, and of their pictures.
enum ButtonId {
    NoButton = 0, // a separator
    NewButton = 1,
    OpenButton = 2,
    SaveButton = 3,
    FullScaleButton = 5,
    FillButton = 6,
    RightPanelButton = 7,
    BottomPanelButton = 8,
    ChangeBackButton = 10,
    ClipboardButton = 11,
    FontEditButton = 12,
    TextEditButton = 13,
    PictureEditButton = 14,
    ResizeButton = 15,
    WideButton = 16,
    FlashButton = 18,
    MonitorButton = 19,
    QemuButton = 21,
    UndoButton = 25,
    RedoButton = 26,
    BootButton = 27,
};

// What a button shows by its picture and its tool tip.
enum class Shows { Nothing, RightPanel, BottomPanel, CurrentFlash, Monitor };

struct ToolbarButton {
    ButtonId id = NoButton;
    const char* toolTip = "";
    const char* command = ""; // the key of its command: a menu item's, or one of its own
    Enabled enabled = Enabled::Always;
    Shows shows = Shows::Nothing;
    int imageOn = 0; // number of the picture while what it shows is the case; else the id's
    const char* tipOn = "";
    const char* tipOff = "";
    bool dropDown = false;
};

// Every button, and the separators between them, from the left.
std::span<const ToolbarButton> toolbarTable();

// The row of a button, or null.
const ToolbarButton* toolbarButton(int id);

// What the window is doing, as far as buttons show it.
struct WindowFlags {
    bool rightPanelShown = true;
    bool bottomPanelShown = true;
    bool MonitorOn = false;
};

struct ButtonLook {
    int image = 0; // number of the picture
    QString toolTip;
};

ButtonLook lookOf(const ToolbarButton& button, const RunState& run, const WindowFlags& flags);

// What is said of an id that is in no table.
QString undefinedButtonText(int id);

} // namespace fennel
