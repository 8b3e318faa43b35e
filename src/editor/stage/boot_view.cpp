// SPDX-License-Identifier: MIT
#include "editor/stage/boot_view.h"

#include "base/words.h"
#include "params/object_table.h"
#include "screen/panel_text.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int waitRow = 27;
constexpr int infoRow = 35;

BootPanel panelOf(int row)
{
    switch (row) {
    case HelpPanelRow:
        return BootPanel::Help;
    case waitRow:
        return BootPanel::Wait;
    case infoRow:
        return BootPanel::Information;
    default:
        // One that is open at the start would cover what is edited.
        return BootPanel::None;
    }
}

Glyph glyphOf(const QFont& font, char32_t code)
{
    const QString letter = QString::fromUcs4(&code, 1);
    const QFontMetrics metrics(font);
    const QRect ink = metrics.boundingRect(letter);
    Glyph glyph;
    glyph.code = code;
    glyph.advance = metrics.horizontalAdvance(letter);
    if (ink.isEmpty())
        return glyph;
    QImage image(ink.size(), QImage::Format_Grayscale8);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(-ink.topLeft(), letter);
    painter.end();
    glyph.width = ink.width();
    glyph.height = ink.height();
    glyph.xOffset = ink.x();
    glyph.yOffset = -ink.y() - ink.height();
    for (int y = 0; y < ink.height(); ++y) {
        for (int x = 0; x < ink.width(); ++x)
            glyph.pixels.push_back(
                static_cast<std::uint8_t>(image.constScanLine(y)[x] * (fullInk + 1) / 256));
    }
    return glyph;
}

} // namespace

std::unique_ptr<BootFont> schematicFont(const FontRecord& record)
{
    const QFont font = panelFont(record, StageScale(1.0), QFontDatabase::families());
    const QFontMetrics metrics(font);
    return std::make_unique<BootFont>(metrics.height(), metrics.descent(),
                                      [font](char32_t code) { return glyphOf(font, code); });
}

BootView::BootView(const Document& document, const FontTable& fonts) : m_document(document)
{
    m_screen.members().setStandIn([&fonts](int number) {
        const auto known = static_cast<std::size_t>(usableFont(fonts, number));
        return schematicFont(known < fonts.size() ? fonts[known] : FontRecord());
    });
}

BootRequest BootView::request(int openRow) const
{
    const RunState& run = m_document.run();
    BootRequest request{m_document.state(), run.Workspace, run.gfxboot_var,
                        m_document.menuTitles()};
    request.chosen = choice.entry;
    request.menuValues = m_document.menuLevelShown();
    request.moment = previewMoment(choice.seconds, choice.timeout);
    request.moment.date = QDate::currentDate();
    request.panel = panelOf(openRow);
    return request;
}

QRegion BootView::update(QSize size, const StageScale& scale, int openRow)
{
    QRegion dirty = m_screen.update(request(openRow));
    m_scale = scale;
    if (size == m_screen.picture().size() || scale.factor() == 1.0) {
        m_scaled = QImage();
        return dirty;
    }
    const QSize shown(scale.shown(m_screen.picture().width()),
                      scale.shown(m_screen.picture().height()));
    if (m_scaled.size() == shown)
        return scaled(dirty);
    m_scaled = atScale(m_screen.picture(), scale);
    return m_scaled.rect();
}

// A pixel more on each side, as the smoothing reaches so far.
QRegion BootView::scaled(const QRegion& dirty)
{
    const QImage& source = m_screen.picture();
    if (dirty.isEmpty() || m_scaled.isNull())
        return {};
    const double wide = static_cast<double>(m_scaled.width()) / source.width();
    const double high = static_cast<double>(m_scaled.height()) / source.height();
    const QRectF from = dirty.boundingRect().adjusted(-1, -1, 1, 1);
    const QRect to =
        QRectF(from.x() * wide, from.y() * high, from.width() * wide, from.height() * high)
            .toAlignedRect() &
        m_scaled.rect();
    drawAtScale(source, to, m_scaled);
    return to;
}

const QImage& BootView::picture() const
{
    return m_scaled.isNull() ? m_screen.picture() : m_scaled;
}

QRect BootView::rect(int row) const
{
    const auto found = m_screen.objects().find(row);
    if (found == m_screen.objects().end() || found->second.isEmpty())
        return {};
    const QRect& rect = found->second;
    return {m_scale.shown(rect.x()), m_scale.shown(rect.y()), m_scale.shown(rect.width()),
            m_scale.shown(rect.height())};
}

QString BootView::note() const
{
    QStringList notes;
    if (!m_screen.rulesKnown())
        notes.append(Words::tr("this engine's rules are not known: try Boot test"));
    if (m_screen.lettersMissing())
        notes.append(Words::tr("fonts are missing or broken: schematic letters"));
    return notes.join("; "_L1);
}

} // namespace fennel
