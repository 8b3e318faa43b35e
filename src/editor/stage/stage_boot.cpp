// SPDX-License-Identifier: MIT
// The stage while it shows the boot itself. Places, selection and gestures are those of the panels
// as ever; what is painted, where they stand and which are there tells the picture of the boot.
#include "editor/stage/stage.h"
#include "params/object_table.h"

#include <QPainter>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

void Stage::showAsItBoots(bool on)
{
    if (on == m_asItBoots)
        return;
    m_asItBoots = on;
    m_trying = m_trying && on;
    if (!run().GfxOpened)
        return;
    for (StagePanel& panel : m_panels)
        panel.stale = true;
    RefreshPanels();
    showSizeStatus();
    ShowMarker(SelectedPanel, 0);
    changed(QRect(QPoint(), pictureSize()));
}

// Sparks cross half the screen; they are taken by their tabs, as are objects that are switched off.
bool Stage::bootShows(int index) const
{
    return (m_boot.draws(index) && !isSparkle(index)) || index == m_openRow;
}

void Stage::updateBoot()
{
    // While a gfxboot is being opened its members are half there.
    if (!m_asItBoots || !run().GfxOpened || rows() == 0)
        return;
    endClear();
    m_openRow = host().objectOfCurrentTab();
    const QRegion dirty = m_boot.update(pictureSize(), scale(), m_openRow);
    for (int i = 0; i < rows(); ++i) {
        const QRect rect = m_boot.rect(i);
        setPanelRect(i, rect.isNull() ? scale().shown(record(i)) : rect);
        setVisible(i, true);
    }
    for (const QRect& part : dirty)
        changed(part);
    if (m_note != m_boot.note())
        showSizeStatus();
}

void Stage::setBootMoment(int seconds, int timeout)
{
    m_boot.choice.seconds = std::max(0, seconds);
    m_boot.choice.timeout = std::max(0, timeout);
    updateBoot();
}

void Stage::tryMenu(bool on)
{
    m_trying = on && m_asItBoots;
    m_boot.choice.entry = 0;
    updateBoot();
    if (m_trying)
        host().focusStage();
}

void Stage::chooseEntry(int entry)
{
    const int count = m_boot.screen().entries();
    m_boot.choice.entry = std::clamp(entry, 0, std::max(0, count - 1));
    updateBoot();
    host().setStatus(nameStatus,
                     Words::tr("Entry %1 of %2").arg(m_boot.choice.entry + 1).arg(count));
}

bool Stage::menuKey(int key)
{
    if (!m_trying)
        return false;
    constexpr int page = 10;
    const int now = m_boot.choice.entry;
    switch (key) {
    case Qt::Key_Up:
        chooseEntry(now - 1);
        return true;
    case Qt::Key_Down:
        chooseEntry(now + 1);
        return true;
    case Qt::Key_PageUp:
        chooseEntry(now - page);
        return true;
    case Qt::Key_PageDown:
        chooseEntry(now + page);
        return true;
    case Qt::Key_Home:
        chooseEntry(0);
        return true;
    case Qt::Key_End:
        chooseEntry(m_boot.screen().entries());
        return true;
    case Qt::Key_Escape:
        tryMenu(false);
        if (tryEnded)
            tryEnded();
        return true;
    default:
        return false;
    }
}

void Stage::paintBoot(QPainter& painter, const QRegion& dirty) const
{
    const QImage& picture = m_boot.picture();
    for (const QRect& area : dirty) {
        // The screen may be smaller than the picture that is its background.
        if (!picture.rect().contains(area))
            painter.fillRect(area, Qt::black);
        painter.drawImage(area.topLeft(), picture, area);
    }
}

} // namespace fennel
