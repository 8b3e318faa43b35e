// SPDX-License-Identifier: MIT
// A dragged object goes with the mouse and finds its line: what is shown meanwhile, and the place
// that is stored.
#include "base/words.h"
#include "editor/stage/gestures.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int snapReach = 6; // shown pixels

QRect bootRect(const PanelRec& rec)
{
    return {rec.Left, rec.Top, std::max<int>(rec.Width, 0), std::max<int>(rec.Height, 0)};
}

} // namespace

// The menu and its bar move together.
void StageGestures::movePanelTo(int index, QPoint wanted)
{
    const int generation = m_stage.run().gfxboot_var;
    const QSize picture = m_stage.pictureSize();
    QRect rect = m_stage.panel(index).rect;
    const int menuHeight = m_stage.panel(MenuPanelRow).rect.height();
    const Document& document = m_stage.document();
    const qint64 barWidth =
        numberFromText(document.CfgValue(cfgDialectOf(document.state().cfg).barWidth));
    rect.moveTopLeft(
        limitedPlace(wanted, dragLimits(index, m_stage.record(index), rect, menuHeight, picture,
                                        generation, m_stage.scale(), barWidth)));
    if (isMenuRow(index)) {
        // As it boots the width is the engine's.
        if (!m_stage.asItBoots() || levels())
            rect.setWidth(menuWidth(rect.x(), rect.width(), picture.width(), generation));
        const int other = MenuBarRow - index;
        if (m_stage.isRow(other)) {
            const int height = m_stage.panel(other).rect.height();
            m_stage.setPanelRect(other, {rect.x(), rect.y(), rect.width(), height});
        }
    }
    m_stage.setPanelRect(index, rect);
}

// The wish and what comes of it are shown pixels, the search is in those of the boot screen, in
// which objects stand in line exactly.
QPoint StageGestures::snapped(int index, QPoint wanted)
{
    const StageScale scale = m_stage.scale();
    const PanelRec& rec = m_stage.record(index);
    SnapScene scene;
    scene.screen = {m_stage.run().BackWidth, m_stage.run().BackHeight};
    scene.reach = std::max(1, static_cast<int>(std::lround(snapReach / scale.factor())));
    scene.freeX = rec.LeftParam >= 0;
    scene.freeY = rec.TopParam >= 0;
    for (const int other : m_stage.stacking()) {
        const bool itself = other == index || (isMenuRow(index) && isMenuRow(other));
        if (!itself && m_stage.isRow(other) && m_stage.panel(other).visible &&
            m_stage.record(other).Enabled && !bootRect(m_stage.record(other)).isEmpty())
            scene.others.push_back(bootRect(m_stage.record(other)));
    }
    // The menu stands for its bar, too.
    QRect moved = bootRect(m_stage.record(isMenuRow(index) ? int{MenuPanelRow} : index));
    moved.moveTopLeft({scale.boot(wanted.x()), scale.boot(wanted.y())});
    m_snap = snapPlace(moved, scene);
    return {m_snap->x ? scale.shown(m_snap->at.x()) : wanted.x(),
            m_snap->y ? scale.shown(m_snap->at.y()) : wanted.y()};
}

// Where a shown pixel stands for several of the boot screen, the one that was found; what the edge
// of the picture held back is not there.
void StageGestures::keepSnapped(int row, PanelRec& rec) const
{
    if (!m_snap)
        return;
    const StageScale scale = m_stage.scale();
    const QPoint shown = m_stage.panel(row).rect.topLeft();
    if (m_snap->x && m_snap->at.x() >= 0 && scale.shown(m_snap->at.x()) == shown.x())
        rec.Left = static_cast<qint16>(m_snap->at.x());
    if (m_snap->y && m_snap->at.y() >= 0 && scale.shown(m_snap->at.y()) == shown.y())
        rec.Top = static_cast<qint16>(m_snap->at.y());
}

void StageGestures::showGuides(int index)
{
    StageOverlay overlay;
    const PanelRec& rec = m_stage.record(index);
    // Only of the place that the object has come to.
    if (m_snap && (!m_snap->x || rec.Left == m_snap->at.x()) &&
        (!m_snap->y || rec.Top == m_snap->at.y())) {
        const StageScale scale = m_stage.scale();
        for (const QLine& guide : m_snap->guides)
            overlay.guides.emplace_back(scale.shown(guide.x1()), scale.shown(guide.y1()),
                                        scale.shown(guide.x2()), scale.shown(guide.y2()));
    }
    m_stage.setOverlay(overlay);
}

void StageGestures::storePlace(int index)
{
    std::map<int, PanelRec> records;
    for (const int row : {index, isMenuRow(index) ? MenuBarRow - index : -1}) {
        if (!m_stage.isRow(row))
            continue;
        PanelRec rec = m_stage.record(row);
        const QRect& rect = m_stage.panel(row).rect;
        const RunState& run = m_stage.run();
        const auto* start = before(row);
        const PanelRec old = start != nullptr ? start->record : rec;
        // At most the last pixel of the background: an object must stay reachable.
        rec.Left = lengthFor(rect.x(), rec.Left, old.Left, run.BackWidth - 1);
        rec.Top = lengthFor(rect.y(), rec.Top, old.Top, run.BackHeight - 1);
        keepSnapped(row, rec);
        if (isMenuRow(row) && (!m_stage.asItBoots() || levels()))
            rec.Width = lengthFor(rect.width(), rec.Width, old.Width, run.BackWidth);
        records[row] = rec;
    }
    store(records, false, stepFor(Words::tr("move of %1"), index));
}

// While it moves, an object larger than the picture may stand above or left of it, where no move is
// stored. One that a typed value put there stays.
void StageGestures::keepInside(int index)
{
    for (const int row : {index, isMenuRow(index) ? MenuBarRow - index : -1}) {
        if (!m_stage.isRow(row))
            continue;
        const PanelRec& rec = m_stage.record(row);
        QRect rect = m_stage.panel(row).rect;
        rect.moveTopLeft({rec.Left < 0 ? rect.x() : std::max(0, rect.x()),
                          rec.Top < 0 ? rect.y() : std::max(0, rect.y())});
        m_stage.setPanelRect(row, rect);
    }
}

// The end of a move: record, picture and rows say the same.
void StageGestures::settle(int index)
{
    if (locked()) {
        m_stage.redraw(index);
        return;
    }
    storePlace(index);
    keepInside(index);
    if (index == m_stage.SelectedPanel)
        m_stage.redraw(index);
}

} // namespace fennel
