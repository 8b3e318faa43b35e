// SPDX-License-Identifier: MIT
// What the stage asks of the window around it: tabs, status line, menus. The frame implements
// it; a test answers what it likes.
#pragma once

#include <QPoint>
#include <QString>

namespace fennel {

// The field of the status line that names the object under the mouse.
inline constexpr int nameStatus = 5;

// Indices are rows of PanelArr, tabs count from 1, positions are shown pixels of Picture1. Calls
// may come back into the stage (a selected tab activates its object); none is made while the stage
// is half changed.
class StageHost {
public:
    virtual ~StageHost() = default;

    [[nodiscard]] virtual int objectOfCurrentTab() = 0; // -1: a tab without object
    // Selects the tab of the object, rebuilds its page and says its number, 0 without one.
    // Generation 3 only.
    virtual int selectTabOf(int index) = 0;
    virtual void focusStage() = 0; // the keys are the stage's now
    // How many of the two pipettes are on; above 0 the mouse picks a colour and nothing else.
    [[nodiscard]] virtual int pipettesOn() = 0;
    // Fill and transparency of the object go to the sliders; -1: no object. In generation 3 each
    // control is enabled if a parameter stands behind it.
    virtual void showColourControls(int index) = 0;

    // Panels 4, 5 and 6 of the status line are the stage's.
    virtual void setStatus(int panel, const QString& text) = 0;
    virtual void refreshStatus() = 0;                  // the status line's own update
    virtual void panelMenu(int index, QPoint at) = 0;  // mnupopup; index 0 to 2
    virtual void objectMenu(int index, QPoint at) = 0; // mnu_Context_object
    virtual void backgroundMenu(QPoint at) = 0;        // mnu_Context_picture1
    virtual void setOnOffCaption(int item, const QString& caption) = 0; // mnupopup_OnOff

    // Before a new background: the window gets its least width, an open value editor is committed.
    virtual void prepareBackground() = 0;
    // After it: window, splitters and their buttons are laid out around the picture.
    virtual void layOutWindow() = 0;
    // After a change of scale: ranges of the spin controls, thumbnails.
    virtual void scaleApplied() = 0;
    // A short tone; may be silent where there is no sound.
    virtual void beep(double hertz, int milliseconds) = 0;
};

} // namespace fennel
