// SPDX-License-Identifier: MIT
// How one panel is drawn into its picture, and how the stage is put together from the pictures.
#include "editor/stage/pulse.h"
#include "editor/stage/stage.h"
#include "params/panel_values.h"
#include "screen/blend.h"
#include "screen/panel_text.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fennel {

namespace {

constexpr std::array<int, 4> captionItems = {1, 3, 5, 7};

} // namespace

int Stage::fontOf(int index) const
{
    return usableFont(m_data.FontTable, document().fontOf(index));
}

void Stage::updateOnOffCaptions()
{
    for (const int item : captionItems)
        host().setOnOffCaption(item, onOffCaption(item, ButtonVisible(item)));
}

// Only the part on the background is drawn: a panel of any size costs at most one screen.
void Stage::render(int index)
{
    endClear();
    StagePanel& panel = m_panels[at(index)];
    panel.stale = false;
    panel.drawn = true;
    // A panel may reach past the picture, where there is no background to mix it with.
    const QRect seen = panel.rect & QRect(QPoint(), pictureSize());
    if (seen.isEmpty()) {
        panel.picture = QImage();
        return;
    }
    panel.pictureAt = seen.topLeft() - panel.rect.topLeft();
    blendPanel(m_background, seen, panel.fill, blendAlpha(record(index).Transp), panel.picture);
    if (record(index).Text.isEmpty() && index != LogoPanelRow)
        return;
    QPainter painter(&panel.picture);
    // Contents are placed from the panel's corner, not from that of the part that is drawn.
    painter.translate(-panel.pictureAt);
    drawContents(index, painter);
}

void Stage::drawContents(int index, QPainter& painter)
{
    const PanelRec& rec = record(index);
    const QRect& rect = panel(index).rect;
    if (index == LogoPanelRow && !m_logo.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRect(QPoint(), rect.size()), m_logo);
    }
    const std::size_t font = at(fontOf(index));
    // Before the first scan there are no fonts.
    if (rec.Text.isEmpty() || font >= m_data.FontTable.size())
        return;
    const FontRecord& fontRecord = m_data.FontTable[font];
    const QFont face = panelFont(fontRecord, scale(), m_families);
    const QFontMetrics metrics(face);
    TextJob job{index,    rec.Text,     rec.TextColor,   fontRecord.Size, 0,
                QPoint(), rect.width(), run().BackWidth, rect.height()};
    job.spacing = index == MenuPanelRow ? menuSlit(document().state()) : 0;
    painter.setFont(face);
    const auto measure = [&](QStringView text) {
        return double(metrics.horizontalAdvance(text.toString()));
    };
    const auto visible = [this](int item) { return ButtonVisible(item); };
    for (const TextPiece& piece : layOutText(job, scale(), measure, visible)) {
        painter.setPen(QColor(piece.colour));
        // Places are top left corners; the painter wants the baseline.
        painter.drawText(piece.at + QPoint(0, metrics.ascent()), piece.text);
    }
    if (index == ButtonsPanelRow)
        updateOnOffCaptions();
}

void Stage::paintPanel(QPainter& painter, const StagePanel& panel, const QRegion& part) const
{
    const QRect drawn(panel.rect.topLeft() + panel.pictureAt, panel.picture.size());
    for (const QRect& area : part) {
        // The fill stands in for what has no picture yet.
        if (panel.plain || panel.picture.isNull() || !drawn.contains(area))
            painter.fillRect(area, QColor(panel.fill));
        if (panel.plain || panel.picture.isNull())
            continue;
        const QRect known = area & drawn & panel.rect;
        painter.drawImage(known.topLeft(), panel.picture, known.translated(-drawn.topLeft()));
    }
}

// Every panel covers what lies under it, so from the top down each pixel is painted once.
void Stage::paint(QPainter& painter, const QRegion& dirty) const
{
    if (m_cleared)
        return;
    QRegion bare = dirty & QRect(QPoint(), pictureSize());
    const bool boots = m_asItBoots && !m_boot.picture().isNull();
    if (boots)
        paintBoot(painter, bare);
    for (auto i = m_order.rbegin(); !boots && i != m_order.rend() && !bare.isEmpty(); ++i) {
        if (!isRow(*i) || !panel(*i).visible || !bare.intersects(panel(*i).rect))
            continue;
        paintPanel(painter, panel(*i), bare & panel(*i).rect);
        bare -= panel(*i).rect;
    }
    for (const QRect& area : boots ? QRegion() : bare)
        painter.drawImage(area.topLeft(), m_background, area);
    if (pulses())
        paintFrame(painter, bare);
    // Marker and bands lie over everything.
    if (m_markerOn)
        painter.fillRect(m_marker, QColor(markerColour(m_phase)));
    paintOverlay(painter);
}

// One pixel outside the selected panel.
QRegion Stage::frameRegion() const
{
    if (!isRow(SelectedPanel))
        return {};
    const QRect& inner = panel(SelectedPanel).rect;
    return QRegion(inner.adjusted(-1, -1, 1, 1)) - inner;
}

void Stage::paintFrame(QPainter& painter, const QRegion& bare) const
{
    for (const QRect& area : bare& frameRegion())
        painter.fillRect(area, QColor(frameColour(m_phase)));
}

// Inverted, so that a band is seen on every ground.
void Stage::paintOverlay(QPainter& painter) const
{
    const auto outline = [&painter](const std::optional<QRect>& band) {
        if (!band)
            return;
        painter.save();
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        for (const QRect& side : QRegion(*band) - band->adjusted(1, 1, -1, -1))
            painter.fillRect(side, Qt::white);
        painter.restore();
    };
    outline(m_overlay.resizeBand);
    outline(m_overlay.freeBand);
    constexpr QRgb guideColour = 0xffff30c0; // no part of a boot screen is likely to have it
    for (const QLine& guide : m_overlay.guides) {
        const QRect line = QRect(guide.p1(), guide.p2()).normalized();
        painter.fillRect(line, QColor(guideColour));
    }
    if (const QRect place = measureRect(); !place.isEmpty()) {
        painter.fillRect(place, Qt::black);
        painter.setFont(measureFont());
        painter.setPen(Qt::white);
        painter.drawText(place, Qt::AlignCenter, m_overlay.measure);
    }
}

} // namespace fennel
