// SPDX-License-Identifier: MIT
// Pulling the marker: the panel grows live as a plain box, its record follows at the release.
#include "base/words.h"
#include "editor/stage/gestures.h"

#include "params/panel_values.h"

#include <algorithm>
#include <utility>

namespace fennel {

using namespace Qt::StringLiterals;

void StageGestures::markerPressed(const StageMouse& mouse)
{
    const int index = m_stage.SelectedPanel;
    if (picking() || locked() || !m_stage.isRow(index))
        return; // m_panel is -1 then, and the moves that follow find nothing to pull
    m_stage.document().beginGesture(stepFor(Words::tr("size of %1"), index));
    // The band takes its place until the release.
    m_stage.ShowMarker(-1, -1);
    remember(index);
    // A press without a pull must not round anything.
    m_pulled = m_higher = false;
    m_panel = index;
    m_band = bandAround(m_stage.panel(index).rect);
    m_grab = mouse.at - QPoint(m_band.right, m_band.bottom);
    showBand();
}

void StageGestures::showBand()
{
    m_stage.setOverlay({m_band.box(), {}});
}

void StageGestures::markerMoved(const StageMouse& mouse)
{
    m_cursor = StageCursor::Resize;
    const int index = m_panel;
    // Without a press the marker is only under the mouse.
    if (!m_stage.isRow(index) || !(mouse.buttons & Qt::LeftButton) || picking())
        return;
    const QRect rect = m_stage.panel(index).rect;
    const ResizeLimits limits = resizeLimits(
        index, m_stage.record(index), rect.topLeft(), m_stage.panel(MenuPanelRow).rect.topLeft(),
        m_stage.pictureSize(), m_stage.run().gfxboot_var, m_stage.scale());
    const ResizeBand band = pulledBand(m_band, mouse.at - m_grab, limits);
    // The first tremble of the hand is no pull: nothing is written before the size changes.
    if (!m_pulled && band.box() == m_band.box())
        return;
    m_pulled = true;
    m_band = band;
    // A plain box while pulling: text would be laid out anew at every step.
    m_stage.setPlain(index);
    m_stage.setPanelRect(index, m_band.box() & QRect({}, m_stage.pictureSize()));
    if (isMenuRow(index) && m_stage.isRow(MenuBarRow - index)) {
        QRect other = m_stage.panel(MenuBarRow - index).rect;
        other.setWidth(m_stage.panel(index).rect.width());
        m_stage.setPanelRect(MenuBarRow - index, other);
    }
    showBand();
    storeSize(index);
    showPanelStatus(index);
}

void StageGestures::storeSize(int index)
{
    const StageScale scale = m_stage.scale();
    const QRect& rect = m_stage.panel(index).rect;
    const QSize picture = m_stage.pictureSize();
    // No object is larger than the screen.
    const int widest = scale.boot(picture.width());
    const int highest = scale.boot(picture.height());
    std::map<int, PanelRec> records;
    PanelRec& rec = records[index] = m_stage.record(index);
    const PanelRec old = before(index) != nullptr ? before(index)->record : rec;
    rec.Width = lengthFor(rect.width(), rec.Width, old.Width, widest);
    rec.Height = lengthFor(rect.height(), rec.Height, old.Height, highest);
    if (const int other = MenuBarRow - index; isMenuRow(index) && m_stage.isRow(other)) {
        const qint16 width = rec.Width;
        records[other] = m_stage.record(other);
        records[other].Width = width;
    }
    // A bar that is pulled has the menu's width and nothing else of it.
    m_higher = m_higher || (index == MenuPanelRow && rect.height() != before(index)->rect.height());
    // Generation 3 keeps it as whole entries only.
    if (m_higher && levels())
        rec.Height = menuHeightOf(shownEntries(), m_stage.menuPitch());
    store(records, m_higher, stepFor(Words::tr("size of %1"), index));
}

void StageGestures::markerReleased()
{
    const int index = m_panel;
    // The gesture is over, whatever happens below.
    m_panel = -1;
    if (!m_stage.isRow(index))
        return;
    if (m_pulled) {
        QRect rect = m_stage.panel(index).rect;
        rect.setSize(
            {m_band.right - m_band.left - bandMargin, m_band.bottom - m_band.top - bandMargin});
        // The menu snaps to whole lines at the end; while pulling it follows the mouse.
        if (index == MenuPanelRow) {
            const double pitch = m_stage.menuPitch();
            const int entries = menuEntries(rect.height(), pitch, m_stage.scale());
            rect.setHeight(menuHeight(entries, pitch, m_stage.scale()));
        }
        m_stage.setPanelRect(index, rect);
        if (isMenuRow(index) && m_stage.isRow(MenuBarRow - index)) {
            QRect other = m_stage.panel(MenuBarRow - index).rect;
            other.setWidth(rect.width());
            m_stage.setPanelRect(MenuBarRow - index, other);
        }
        storeSize(index);
        // One line of a huge font is higher than the screen, and more than the record holds.
        rect.setSize(rect.size().boundedTo(m_stage.pictureSize()));
        m_stage.setPanelRect(index, rect);
    }
    if (std::exchange(m_pulled, false))
        showPanelStatus(index);
    m_stage.redraw(index);
    m_stage.ShowMarker(m_stage.SelectedPanel, 0);
    endStep();
}

int StageGestures::shownEntries() const
{
    return menuEntries(m_stage.panel(MenuPanelRow).rect.height(), m_stage.menuPitch(),
                       m_stage.scale());
}

} // namespace fennel
