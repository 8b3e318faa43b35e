// SPDX-License-Identifier: MIT
// Gestures on the background and on panels, and the keys.
#include "editor/stage/gestures.h"

#include "base/text.h"
#include "base/words.h"
#include "document/place_change.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int placeStatus = 6;
constexpr int statusEvery = 100; // x + y divided by it: how seldom a move updates the status line
constexpr int statusRest = 49;

// Both corners belong to the box. (QRect::normalized moves an upside-down box by one.)
QRect boxOf(QPoint a, QPoint b)
{
    return {QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
            QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y()))};
}

} // namespace

QString StageGestures::toolTip(QPoint at) const
{
    const int index = m_stage.panelAt(at);
    return index < 0 ? QString() : m_stage.record(index).Name;
}

void StageGestures::setTarget(QPoint at)
{
    m_panel = -1;
    // The marker lies over all panels.
    if (m_stage.markerVisible() && m_stage.marker().contains(at)) {
        m_target = Target::Marker;
        return;
    }
    m_panel = m_stage.panelAt(at);
    m_target = m_panel < 0 ? Target::Background : Target::Panel;
}

void StageGestures::press(const StageMouse& mouse)
{
    // A second button during a drag belongs to the same gesture. If no other is down, the release
    // of the gesture before got lost, to a window that came up.
    const bool second = m_target != Target::None && mouse.buttons != mouse.button;
    if (second && (m_target == Target::Marker || m_target == Target::Ended))
        return;
    if (!second) {
        endStep();
        setTarget(mouse.at);
        m_before = {};
        m_dragging = m_moved = false;
        m_snap.reset();
    }
    switch (m_target) {
    case Target::Panel:
        panelPressed(mouse);
        break;
    case Target::Marker:
        markerPressed(mouse);
        break;
    default:
        m_selFrom = m_selTo = mouse.at;
        m_stage.setOverlay({});
        break;
    }
}

void StageGestures::move(const StageMouse& mouse)
{
    // The release got lost if no button is down any more.
    if (m_target == Target::Ended && mouse.buttons == Qt::NoButton)
        m_target = Target::None;
    if (m_target == Target::Ended)
        return;
    const bool held = m_target != Target::None;
    if (!held)
        setTarget(mouse.at);
    if (m_target == Target::Panel && m_stage.isRow(m_panel))
        panelMoved(mouse, m_panel);
    else if (m_target == Target::Marker)
        markerMoved(mouse);
    else
        backgroundMoved(mouse);
    if (!held)
        m_target = Target::None;
}

void StageGestures::release(const StageMouse& mouse)
{
    // Over before it is acted on: a message or a menu lets other events in.
    const Target target = m_target;
    if (mouse.buttons == Qt::NoButton)
        m_target = Target::None;
    if (target == Target::Panel && m_stage.isRow(m_panel))
        panelReleased(mouse);
    else if (target == Target::Panel)
        endStep(); // the object went with its gfxboot
    else if (target == Target::Marker)
        markerReleased();
    else if (target == Target::Background && mouse.button == Qt::RightButton)
        m_stage.host().backgroundMenu(mouse.at);
}

void StageGestures::remember(int index)
{
    // Menu and bar are rows 0 and 1, so the one is MenuBarRow minus the other.
    const int other = isMenuRow(index) ? MenuBarRow - index : -1;
    m_before = {};
    for (std::size_t i = 0; i < m_before.size(); ++i) {
        const int row = i == 0 ? index : other;
        if (m_stage.isRow(row))
            m_before[i] = {row, m_stage.panel(row).rect, m_stage.record(row)};
    }
}

void StageGestures::panelPressed(const StageMouse& mouse)
{
    if (picking())
        return;
    const int index = m_panel;
    m_dragging = !locked() && m_stage.whyFixed(index).isEmpty();
    // Escape goes back to the first press, and undo to before it.
    if (m_before[0].index != index) {
        remember(index);
        if (m_dragging)
            m_stage.document().beginGesture(stepFor(Words::tr("move of %1"), index));
    }
    if (m_stage.record(index).Roll)
        return;
    m_stage.raisePanel(index);
    // Raised after the menu, as it lies on it.
    if (isMenuRow(index))
        m_stage.raisePanel(MenuBarRow);
    if (levels())
        m_stage.host().selectTabOf(index);
    if (!m_stage.isRow(index))
        return; // the tab's page brought another gfxboot
    // The point of the panel under the mouse stays there for the whole drag.
    m_grab = mouse.at - m_stage.panel(index).rect.topLeft();
    m_stage.ShowMarker(-1, -1);
    if (index != m_stage.SelectedPanel)
        m_stage.SelectPanel(index);
}

void StageGestures::showPanelStatus(int index)
{
    const StageScale scale = m_stage.scale();
    const PanelRec& rec = m_stage.record(index);
    const QRect& rect = m_stage.panel(index).rect;
    m_told = index;
    m_stage.host().setStatus(nameStatus, rec.Name);
    m_stage.host().setStatus(placeStatus, Words::tr("(%1;%2), %3x%4, Transp.=%5")
                                              .arg(scale.boot(rect.x()))
                                              .arg(scale.boot(rect.y()))
                                              .arg(scale.boot(rect.width()))
                                              .arg(scale.boot(rect.height()))
                                              .arg(rec.Transp));
}

void StageGestures::refreshStatus(const std::set<int>& objects)
{
    if (m_told < 0 || (!objects.contains(m_told) && m_stage.isRow(m_told)))
        return;
    if (m_stage.isRow(m_told))
        showPanelStatus(m_told);
    else
        forgetStatus();
}

void StageGestures::forgetStatus()
{
    m_told = -1;
    m_stage.host().setStatus(nameStatus, {});
    m_stage.host().setStatus(placeStatus, {});
}

void StageGestures::panelMoved(const StageMouse& mouse, int index)
{
    if (m_stage.record(index).Roll)
        return;
    if (picking())
        m_cursor = StageCursor::Picker;
    else
        m_cursor = index == m_stage.SelectedPanel ? StageCursor::Selected : StageCursor::Other;
    if (m_dragging && (mouse.buttons & Qt::LeftButton) && !picking()) {
        m_snap.reset();
        const bool free = !m_snapping || (mouse.modifiers & Qt::AltModifier);
        movePanelTo(index, free ? mouse.at - m_grab : snapped(index, mouse.at - m_grab));
        m_moved = true;
        storePlace(index);
        showGuides(index);
    }
    showPanelStatus(index);
    if (mouse.buttons & Qt::LeftButton)
        m_stage.tellFixed(index);
}

const StageGestures::Before* StageGestures::before(int index) const
{
    for (const Before& before : m_before) {
        if (before.index == index)
            return &before;
    }
    return nullptr;
}

// A side that came back to where the gesture found it gets its old number back, too.
qint16 StageGestures::lengthFor(int shown, qint16 now, qint16 old, int high) const
{
    const StageScale scale = m_stage.scale();
    const bool same = scale.shown(now) != shown && scale.shown(old) == shown;
    return same ? old : scale.stored(shown, now, 0, high);
}

StepInfo StageGestures::stepFor(const QString& what, int index) const
{
    StepInfo info;
    info.what = what.arg(objectCaption(m_stage.record(index).Name));
    info.place.object = index;
    return info;
}

// The end of a gesture: what it did is one step.
void StageGestures::endStep()
{
    const QScopedValueRollback<bool> own(m_writing, true);
    m_stage.document().endGesture();
}

// Generation 3 keeps a place in parameters, generation 2 in lines of the cfg file.
void StageGestures::store(const std::map<int, PanelRec>& records, bool entries,
                          const StepInfo& info)
{
    const ParamState& state = m_stage.document().state();
    Change change;
    for (const auto& [row, record] : records) {
        if (levels())
            addRecord(state, row, record, change);
        else
            change.objects[row] = record;
    }
    // Only what moved: a number beyond what the stage can show stays as it is.
    const auto menu = records.find(MenuPanelRow);
    if (!levels() && menu != records.end() &&
        ((m_stage.asItBoots() && !entries) ||
         menu->second.Left != state.object(MenuPanelRow)->Left ||
         menu->second.Top != state.object(MenuPanelRow)->Top))
        addMenuPlace(state, menu->second, change);
    if (entries && records.contains(MenuPanelRow))
        addMenuEntries(state, levels(), shownEntries(), change);
    const QScopedValueRollback<bool> own(m_writing, true);
    (void)m_stage.document().apply(change, info);
}

void StageGestures::panelReleased(const StageMouse& mouse)
{
    if (picking())
        return;
    m_dragging = false;
    const int index = m_panel;
    const bool roll = m_stage.record(index).Roll;
    const bool menu = mouse.button == Qt::RightButton;
    if (mouse.button == Qt::MiddleButton && roll) {
        m_stage.data().shell.prompts.ShowMessage(rollText);
        stepLogo(mouse.modifiers & Qt::ShiftModifier);
    } else if (mouse.button == Qt::LeftButton && !roll) {
        // A mere click rounds and limits nothing.
        if (m_moved)
            settle(index);
        else if (index == m_stage.SelectedPanel)
            m_stage.redraw(index);
    }
    // Hidden while the panel moved, as it would have stayed behind.
    m_stage.ShowMarker(m_stage.SelectedPanel, 0);
    endStep();
    // Last, since a menu runs until it is answered.
    if (menu)
        openMenu(index, mouse.at);
}

void StageGestures::openMenu(int index, QPoint at)
{
    // Rows 0 to 2 have a menu of their own, where there is a cfg file that it can change.
    if (!levels() && index <= ButtonsPanelRow && m_stage.run().GfxHasCfg)
        m_stage.host().panelMenu(index, at);
    else
        m_stage.host().objectMenu(index, at);
}

void StageGestures::doubleClick(const StageMouse& mouse)
{
    if (m_target == Target::None)
        setTarget(mouse.at);
    if (m_target != Target::Panel) {
        press(mouse); // two quick gestures at the marker are two gestures
        return;
    }
    if (picking() || m_panel != LogoPanelRow)
        return;
    remember(m_panel);
    m_dragging = true;
    stepLogo(mouse.modifiers & Qt::ShiftModifier);
    m_dragging = false;
}

void StageGestures::stepLogo(bool backwards)
{
    if (m_panel == LogoPanelRow && m_stage.host().objectOfCurrentTab() == LogoPanelRow &&
        m_stage.logoCount() > 0)
        m_stage.stepLogo(backwards ? -1 : 1);
}

void StageGestures::backgroundMoved(const StageMouse& mouse)
{
    StageHost& host = m_stage.host();
    m_told = -1;
    m_cursor = picking() ? StageCursor::Picker : StageCursor::Background;
    const QImage& picture = m_stage.picture();
    if (picture.rect().contains(mouse.at)) {
        const double factor = m_stage.scale().factor();
        // Half a pixel more before the cut, so places are rounded like those of panels.
        const QPointF boot(mouse.at.x() / factor + 0.5, mouse.at.y() / factor + 0.5);
        host.setStatus(placeStatus, Words::tr("(%1;%2) RGB=0x%3")
                                        .arg(std::floor(boot.x()))
                                        .arg(std::floor(boot.y()))
                                        .arg(hexText(picture.pixel(mouse.at)).mid(2)));
    }
    if (m_stage.run().GfxOpened)
        host.setStatus(nameStatus, Words::tr("Background") + QString::number(host.pipettesOn()));
    // The whole line is costly to set, so only some places of the mouse do it.
    if ((mouse.at.x() + mouse.at.y()) % statusEvery == statusRest)
        host.refreshStatus();
    if (m_target == Target::Background && (mouse.buttons & Qt::LeftButton) && !m_dragging) {
        m_selTo = mouse.at;
        const QRect box = boxOf(m_selFrom, m_selTo);
        const StageScale scale = m_stage.scale();
        m_stage.setOverlay(
            {{}, box, u"%1 x %2"_s.arg(scale.boot(box.width())).arg(scale.boot(box.height())), {}});
    }
}

void StageGestures::nudge(int index, QPoint by)
{
    if (locked() || !m_stage.whyFixed(index).isEmpty()) {
        m_stage.tellFixed(index);
        return;
    }
    remember(index);
    const PanelRec& rec = m_stage.record(index);
    const StageScale scale = m_stage.scale();
    // A place that is a constant cannot be nudged either.
    const QPoint wish(rec.LeftParam < 0 ? rec.Left : rec.Left + by.x(),
                      rec.TopParam < 0 ? rec.Top : rec.Top + by.y());
    const QPoint corner(std::clamp(wish.x(), 0, std::max(0, m_stage.run().BackWidth - 1)),
                        std::clamp(wish.y(), 0, std::max(0, m_stage.run().BackHeight - 1)));
    m_stage.ShowMarker(-1, -1);
    movePanelTo(index, {scale.shown(corner.x()), scale.shown(corner.y())});
    keepInside(index);
    std::map<int, PanelRec> records;
    for (const int row : {index, isMenuRow(index) ? MenuBarRow - index : -1}) {
        if (!m_stage.isRow(row))
            continue;
        PanelRec& moved = records[row] = m_stage.record(row);
        // Where a shown pixel stands for several boot pixels, the wish itself is what is stored;
        // where the stage holds the object back, what it shows.
        const QPoint shown = m_stage.panel(row).rect.topLeft();
        const bool heldX = scale.shown(corner.x()) != shown.x();
        const bool heldY = scale.shown(corner.y()) != shown.y();
        moved.Left = static_cast<qint16>(heldX ? scale.boot(shown.x()) : corner.x());
        moved.Top = static_cast<qint16>(heldY ? scale.boot(shown.y()) : corner.y());
        if (isMenuRow(row) && (!m_stage.asItBoots() || levels()))
            moved.Width = lengthFor(m_stage.panel(row).rect.width(), moved.Width, moved.Width,
                                    m_stage.run().BackWidth);
    }
    StepInfo info = stepFor(Words::tr("move of %1"), index);
    // A run of arrow keys is one step.
    info.mergeKey = Words::tr("nudge %1").arg(index);
    store(records, false, info);
    if (index == m_stage.SelectedPanel)
        m_stage.redraw(index);
    m_stage.ShowMarker(index, 0);
    if (m_stage.placeWanted)
        m_stage.placeWanted(m_stage.panel(index).rect);
    showPanelStatus(index);
}

// Rects and document go back together, as the gesture has changed both.
bool StageGestures::restore()
{
    if (m_target == Target::None)
        return false;
    const bool panel = m_target == Target::Panel || m_target == Target::Marker;
    m_target = Target::Ended;
    m_dragging = false;
    m_pulled = false;
    m_stage.setOverlay({});
    if (!panel || m_before[0].index < 0)
        return true;
    {
        const QScopedValueRollback<bool> own(m_writing, true);
        m_stage.document().cancelGesture();
    }
    for (const Before& before : m_before) {
        if (m_stage.isRow(before.index))
            m_stage.setPanelRect(before.index, before.rect);
    }
    const int index = m_before[0].index;
    if (!m_stage.record(index).Roll)
        m_stage.redraw(index);
    m_stage.ShowMarker(m_stage.SelectedPanel, 0);
    refreshStatus({index});
    m_before = {};
    return true;
}

bool StageGestures::key(int key, Qt::KeyboardModifiers modifiers)
{
    if (m_target == Target::None && m_stage.menuKey(key))
        return true;
    if (key == Qt::Key_Escape) {
        if (restore())
            return true;
        m_stage.ShowMarker(-1, -1);
        m_stage.SelectPanel(-1);
        return true;
    }
    if (m_target != Target::None || picking())
        return false;
    const bool shift = modifiers & Qt::ShiftModifier;
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        m_stage.SelectNextPanel(key == Qt::Key_Backtab || shift);
        return true;
    }
    const int index = m_stage.SelectedPanel;
    const bool there = m_stage.isRow(index) && m_stage.panel(index).visible;
    if (there && (key == Qt::Key_Menu || (shift && key == Qt::Key_F10))) {
        openMenu(index, m_stage.panel(index).rect.center());
        return true;
    }
    // Boot-screen pixels, whatever the scale.
    const int step = shift ? 10 : 1;
    const QPoint by((key == Qt::Key_Right) * step - (key == Qt::Key_Left) * step,
                    (key == Qt::Key_Down) * step - (key == Qt::Key_Up) * step);
    if (by.isNull() || !there || m_stage.record(index).Roll)
        return false;
    nudge(index, by);
    return true;
}

} // namespace fennel
