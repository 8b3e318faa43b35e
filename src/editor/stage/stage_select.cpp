// SPDX-License-Identifier: MIT
// Which object is selected, and the marks that show it.
#include "editor/stage/pulse.h"
#include "editor/stage/stage.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Tones are short, so that going quickly through the objects makes no queue of them.
constexpr double toneBase = 220; // hertz
constexpr int toneMs = 25;

} // namespace

void Stage::SelectPanel(int index)
{
    if (isMenuRow(index)) {
        raisePanel(MenuPanelRow);
        raisePanel(MenuBarRow);
    }
    const QRegion oldFrame = frameRegion();
    SelectedPanel = isRow(index) ? index : -1;
    // The colour controls follow the selection until something else is chosen for them.
    ColourPanel = SelectedPanel;
    if (m_markerOn) {
        changed(oldFrame.boundingRect());
        changed(frameRegion().boundingRect());
    }
    host().showColourControls(SelectedPanel);
}

void Stage::ActivatePanel(int index)
{
    if (!run().GfxOpened)
        return;
    ShowMarker(-1, -1);
    raisePanel(index);
    SelectPanel(index);
    // A hidden object can be selected, but there is nothing to mark.
    if (!isRow(index) || !panel(index).visible)
        return;
    host().focusStage();
    redraw(index);
    ShowMarker(index, 0);
    if (placeWanted)
        placeWanted(panel(index).rect);
}

void Stage::SelectNextPanel(bool backwards)
{
    const int index = nextPanel(document().state().PanelArr, SelectedPanel, backwards);
    if (!isRow(index))
        return;
    ActivatePanel(index);
    // Older generations have no tabs of objects.
    if (run().gfxboot_var != 3)
        return;
    tone(host().selectTabOf(index));
    // An object that is seen only with its tab has just come.
    if (isRow(index) && panel(index).visible && !m_markerOn) {
        redraw(index);
        ShowMarker(index, 0);
    }
}

// Higher for later tabs.
void Stage::tone(int tab)
{
    if (tab > 0)
        // Tab 1 sounds the base and tab 12 an octave above it.
        host().beep(toneBase * std::pow(tab, std::log(2.0) / std::log(12.0)), toneMs);
}

void Stage::ShowMarker(int index, int keep)
{
    // Another tab has come since.
    if (m_asItBoots && m_openRow != host().objectOfCurrentTab())
        updateBoot();
    const bool was = m_markerOn;
    if (m_markerOn && (keep != 0 || index >= 0)) {
        changed(m_marker);
        changed(frameRegion().boundingRect());
        m_markerOn = false;
    }
    setOverlay({});
    if (isRow(index) && panel(index).visible) {
        m_marker = markerRect(panel(index).rect);
        m_markerOn = true;
        changed(m_marker);
        changed(frameRegion().boundingRect());
    }
    // Told only at a change: it starts and stops a timer.
    if (was != m_markerOn && markerChanged)
        markerChanged();
}

bool Stage::pulses() const
{
    return m_markerOn && SelectedPanel != ButtonsPanelRow && SelectedPanel != OptionsPanelRow;
}

void Stage::setPulsePhase(int phase)
{
    const bool frame = frameColour(phase) != frameColour(m_phase);
    const bool colour = markerColour(phase) != markerColour(m_phase);
    m_phase = phase;
    if (!pulses())
        return;
    if (colour)
        changed(m_marker);
    if (frame) {
        // Side by side: the frame's whole rectangle would repaint the panel at every pulse.
        for (const QRect& side : frameRegion())
            changed(side);
    }
}

void Stage::changedOutline(const std::optional<QRect>& band) const
{
    if (!band)
        return;
    for (const QRect& side : QRegion(*band) - band->adjusted(1, 1, -1, -1))
        changed(side);
}

// Old and new outline, as the band is inverted and leaves no trace only if both are repainted.
void Stage::setOverlay(const StageOverlay& overlay)
{
    changedOverlay();
    m_overlay = overlay;
    changedOverlay();
}

void Stage::changedOverlay() const
{
    changedOutline(m_overlay.resizeBand);
    changedOutline(m_overlay.freeBand);
    changed(measureRect());
    constexpr int tick = 4; // at the ends of a gap
    for (const QLine& guide : m_overlay.guides)
        changed(QRect(guide.p1(), guide.p2()).normalized().adjusted(-tick, -tick, tick, tick));
}

// In proportion to the picture, as one of its pixels may be smaller than one of the screen's.
QFont Stage::measureFont() const
{
    constexpr int lines = 40;
    constexpr int smallest = 13;
    QFont font;
    font.setPixelSize(std::max(smallest, pictureSize().height() / lines));
    return font;
}

// Under the box, or within the picture where there is no room.
QRect Stage::measureRect() const
{
    if (m_overlay.measure.isEmpty() || !m_overlay.freeBand)
        return {};
    constexpr QSize margin(10, 4);
    constexpr int gap = 4;
    const QFontMetrics metrics(measureFont());
    const QSize size(metrics.horizontalAdvance(m_overlay.measure) + margin.width(),
                     metrics.height() + margin.height());
    const QSize room = pictureSize() - size;
    const QPoint at = m_overlay.freeBand->bottomRight() + QPoint(gap, gap);
    return {QPoint(std::clamp(at.x(), 0, std::max(0, room.width())),
                   std::clamp(at.y(), 0, std::max(0, room.height()))),
            size};
}

} // namespace fennel
