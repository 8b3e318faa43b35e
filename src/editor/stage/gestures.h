// SPDX-License-Identifier: MIT
// The mouse and the keys on the stage: press to select, drag to move, pull the marker to size,
// double click to step through the logos. Fed with plain events, so it works without a window; what
// changes goes to the document, a gesture as one step.
#pragma once

#include "editor/stage/stage.h"
#include "screen/snapping.h"

#include <QPoint>
#include <QString>

#include <array>
#include <map>
#include <set>

namespace fennel {

// Positions are pixels of Picture1.
struct StageMouse {
    QPoint at;
    Qt::MouseButton button = Qt::NoButton;   // the one that went down or up
    Qt::MouseButtons buttons = Qt::NoButton; // those that are down now
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

enum class StageCursor {
    Background, // Link_Fsh.ani
    Selected,   // Unav_Fsh.ani: a press selects nothing new
    Other,      // Help_Fsh.ani
    Resize,     // Dgn1_Fsh.cur
    Picker,     // Picker_Fsh.ani
};

inline const QString rollText = QStringLiteral("It's roll. Call DblClick");

// A gesture lives from the press to the release of the last button; all its moves go to what was
// pressed. While a pipette is on, panels and marker do nothing.
class StageGestures {
public:
    explicit StageGestures(Stage& stage) : m_stage(stage) {}

    // The first button of a gesture decides what all of it is about.
    void press(const StageMouse& mouse);
    // Also without a button, for the pointer and the status line.
    void move(const StageMouse& mouse);
    // Ends the gesture with the last button; menus open from here.
    void release(const StageMouse& mouse);
    // Steps the logo; on the marker and the background it is a press.
    void doubleClick(const StageMouse& mouse);
    // The status line tells of an object that changed without the mouse, or is gone.
    void refreshStatus(const std::set<int>& objects);
    // Another gfxboot: what the mouse was over is gone.
    void forgetStatus();
    // Tab and Shift+Tab select, arrows move the selected object by one boot pixel (Shift: ten) and
    // write as a drag does, Escape ends a gesture as if it had not begun, or unselects. True if
    // the key was used.
    bool key(int key, Qt::KeyboardModifiers modifiers);

    [[nodiscard]] bool Dragging() const { return m_dragging; }
    // A button is down, or was when the gesture ended.
    [[nodiscard]] bool held() const { return m_target != Target::None; }
    // A dragged object is drawn to lines of the others and of the screen, unless Alt is down. Off
    // at first.
    void setSnapping(bool on) { m_snapping = on; }
    // An object follows the mouse, or its size does.
    [[nodiscard]] bool drags(Qt::MouseButtons buttons) const
    {
        return (buttons & Qt::LeftButton) &&
               (m_target == Target::Marker || (m_target == Target::Panel && m_dragging));
    }
    // The document is changing by this very gesture, and the stage shows it already.
    [[nodiscard]] bool writing() const { return m_writing; }
    [[nodiscard]] StageCursor cursor() const { return m_cursor; }
    // Name of the object under the point, empty over the background.
    [[nodiscard]] QString toolTip(QPoint at) const;

private:
    // Ended: by Escape; the buttons that are still down do nothing more.
    enum class Target { None, Panel, Marker, Background, Ended };
    // What a gesture or a key is about to change, to put it back on Escape.
    struct Before {
        int index = -1;
        QRect rect;
        PanelRec record;
    };

    [[nodiscard]] bool picking() const { return m_stage.host().pipettesOn() > 0; }
    // What is shown are a menu's values, which are never written into the gfxboot.
    [[nodiscard]] bool locked() const { return m_stage.document().menuLevelShown(); }
    [[nodiscard]] bool levels() const { return m_stage.run().gfxboot_var == 3; }
    void setTarget(QPoint at);
    void remember(int index);
    bool restore();

    void panelPressed(const StageMouse& mouse);
    void panelMoved(const StageMouse& mouse, int index);
    void panelReleased(const StageMouse& mouse);
    void stepLogo(bool backwards);
    void movePanelTo(int index, QPoint wanted);
    [[nodiscard]] QPoint snapped(int index, QPoint wanted);
    void showGuides(int index);
    void keepSnapped(int row, PanelRec& rec) const;
    [[nodiscard]] const Before* before(int index) const;
    [[nodiscard]] qint16 lengthFor(int shown, qint16 now, qint16 old, int high) const;
    [[nodiscard]] StepInfo stepFor(const QString& what, int index) const;
    void store(const std::map<int, PanelRec>& records, bool entries, const StepInfo& info);
    // The commands of an object; `at` is a pixel of the picture.
    void openMenu(int index, QPoint at);
    void endStep();
    void storePlace(int index);
    void keepInside(int index);
    void settle(int index);
    void nudge(int index, QPoint by);

    void markerPressed(const StageMouse& mouse);
    void markerMoved(const StageMouse& mouse);
    void markerReleased();
    void showBand();
    void storeSize(int index);

    void backgroundMoved(const StageMouse& mouse);
    void showPanelStatus(int index);
    [[nodiscard]] int shownEntries() const;

    Stage& m_stage;
    Target m_target = Target::None;
    int m_panel = -1; // the pressed one
    bool m_dragging = false;
    bool m_writing = false;
    bool m_moved = false;  // the panel was dragged since its press
    bool m_pulled = false; // the marker was moved since its press
    bool m_higher = false; // and the menu's height with it
    QPoint m_grab;         // in the panel, or from the band's corner
    ResizeBand m_band;
    QPoint m_selFrom; // free rubber band
    QPoint m_selTo;
    int m_told = -1; // the object that the status line tells of
    StageCursor m_cursor = StageCursor::Background;
    std::array<Before, 2> m_before;
    bool m_snapping = false;
    std::optional<Snapped> m_snap; // of the latest move
};

} // namespace fennel
