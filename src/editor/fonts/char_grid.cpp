// SPDX-License-Identifier: MIT
#include "editor/fonts/char_grid.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/window/retranslated.h"
#include "fonts/font_dialog.h"

#include <QApplication>
#include <QGlyphRun>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <qdrawutil.h>

#include <algorithm>

namespace fennel {

namespace {

constexpr int rows = cellCount / cellColumns;

// The cell under a point, -1 outside the grid.
int cellAt(QPoint point)
{
    const int column = point.x() / CharGrid::cellSide;
    const int row = point.y() / CharGrid::cellSide;
    const bool inside = point.x() >= 0 && point.y() >= 0 && column < cellColumns && row < rows;
    return inside ? row * cellColumns + column : -1;
}

// What the cells show, a blank for those that show nothing.
QString charactersOfPage(int page)
{
    QString text(cellCount, u' ');
    for (int cell = 0; cell < cellCount; ++cell) {
        if (const QString glyph = cellGlyph(page, cell); !glyph.isEmpty())
            text[cell] = glyph.front();
    }
    return text;
}

} // namespace

// By pages: asking the font for each character alone takes seconds for 65,536 of them.
CharSelected charactersOf(const QRawFont& face)
{
    CharSelected there;
    if (!face.isValid())
        return there;
    std::array<QChar, cellCount> text;
    std::array<quint32, cellCount> glyphs{};
    for (int page = 0; page < pageCount; ++page) {
        for (int cell = 0; cell < cellCount; ++cell)
            text[static_cast<std::size_t>(cell)] =
                QChar(static_cast<char16_t>(page * cellCount + cell));
        int count = cellCount;
        // Halves of pairs are no characters, and whole pages consist of them.
        if (text[0].isSurrogate() ||
            !face.glyphIndexesForChars(text.data(), cellCount, glyphs.data(), &count))
            continue;
        for (std::size_t cell = 0; cell < glyphs.size(); ++cell)
            there[static_cast<std::size_t>(page) * cellCount + cell] = glyphs[cell] != 0;
    }
    return there;
}

CharSelected charactersBeyond(const QRawFont& face, const CharSelected& set, int letterSpace)
{
    constexpr int longestAdvance = 127;
    constexpr int longestSide = 255;
    QString text;
    for (std::size_t code = 0; code < set.size(); ++code) {
        if (set[code])
            text += QChar(static_cast<char16_t>(code));
    }
    int count = static_cast<int>(text.size());
    std::vector<quint32> glyphs(set.count());
    std::vector<QPointF> advances(set.count());
    CharSelected beyond;
    // All at once: one by one they take seconds.
    if (count == 0 || !face.glyphIndexesForChars(text.constData(), count, glyphs.data(), &count) ||
        !face.advancesForGlyphIndexes(glyphs.data(), advances.data(), count))
        return beyond;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const int width = roundToEven(advances[i].x()) + letterSpace;
        // Short letters have short bitmaps, unless all are large.
        const bool near = width > longestAdvance / 2 || face.pixelSize() > longestAdvance;
        const QRectF box = near ? face.boundingRect(glyphs[i]) : QRectF();
        beyond[text[static_cast<qsizetype>(i)].unicode()] =
            std::abs(width) > longestAdvance || std::max(box.width(), box.height()) > longestSide ||
            std::max(std::abs(box.left()), std::abs(box.bottom())) > longestAdvance;
    }
    return beyond;
}

CharGrid::CharGrid(const CharSelected& set, QWidget* parent) : QWidget(parent), m_set(set)
{
    setObjectName(QStringLiteral("Kvadrat"));
    sayName(this, Words::mark("Characters of the page"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(sizeHint());
}

QSize CharGrid::sizeHint() const
{
    return {cellColumns * cellSide, rows * cellSide};
}

QRect CharGrid::cellRect(int cell)
{
    return {cell % cellColumns * cellSide, cell / cellColumns * cellSide, cellSide, cellSide};
}

void CharGrid::setPage(int page)
{
    m_page = std::clamp(page, 0, pageCount - 1);
    // A drag that goes on over another page would paint cells that nobody saw pressed.
    m_painting = false;
    findGlyphs();
    update();
    if (m_last >= 0)
        Q_EMIT cellEntered(codeOf(m_last));
}

void CharGrid::setFace(const QRawFont& face)
{
    m_face = face;
    findGlyphs();
    update();
}

void CharGrid::findGlyphs()
{
    m_glyphs.fill(0);
    const QString text = charactersOfPage(m_page);
    int count = cellCount;
    if (!m_face.isValid() || text[0].isSurrogate() ||
        !m_face.glyphIndexesForChars(text.constData(), cellCount, m_glyphs.data(), &count))
        return;
    std::array<QPointF, cellCount> advances;
    m_face.advancesForGlyphIndexes(m_glyphs.data(), advances.data(), cellCount);
    // Centred by the face's height and not by each glyph's, so that the letters of a row stand on
    // one line.
    const double baseline = (cellSide + m_face.ascent() - m_face.descent()) / 2;
    for (int cell = 0; cell < cellCount; ++cell) {
        const auto at = static_cast<std::size_t>(cell);
        const QPoint corner = cellRect(cell).topLeft();
        m_places[at] = {corner.x() + (cellSide - advances[at].x()) / 2, corner.y() + baseline};
    }
}

bool CharGrid::chosen(int cell) const
{
    return m_set[static_cast<std::size_t>(codeOf(cell))];
}

// Chosen cells are sunken on white, the others raised on the colour of buttons, whatever colours
// the desktop has.
void CharGrid::paintCells(QPainter& painter, const QRect& part) const
{
    const QBrush white(Qt::white);
    const QPen missing(palette().color(QPalette::Mid));
    for (int cell = 0; cell < cellCount; ++cell) {
        const QRect rect = cellRect(cell);
        if (!rect.intersects(part))
            continue;
        qDrawShadePanel(&painter, rect, palette(), chosen(cell), 1,
                        chosen(cell) ? &white : &palette().brush(QPalette::Button));
        if (m_glyphs[static_cast<std::size_t>(cell)] != 0 || !m_face.isValid())
            continue;
        painter.setPen(missing);
        const QPoint centre = rect.center();
        painter.drawLine(centre + QPoint(-2, 2), centre + QPoint(3, -3));
    }
}

// One run for all glyphs of a colour: drawn one by one, 256 cells would be felt while scrolling.
void CharGrid::paintGlyphs(QPainter& painter, bool ofChosen) const
{
    QList<quint32> glyphs;
    QList<QPointF> places;
    for (int cell = 0; cell < cellCount; ++cell) {
        const auto at = static_cast<std::size_t>(cell);
        if (m_glyphs[at] != 0 && chosen(cell) == ofChosen) {
            glyphs.append(m_glyphs[at]);
            places.append(m_places[at]);
        }
    }
    QGlyphRun run;
    run.setRawFont(m_face);
    run.setGlyphIndexes(glyphs);
    run.setPositions(places);
    painter.setPen(ofChosen ? QColor(Qt::black) : palette().color(QPalette::ButtonText));
    painter.drawGlyphRun({}, run);
}

void CharGrid::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    paintCells(painter, event->rect());
    if (m_face.isValid()) {
        paintGlyphs(painter, true);
        paintGlyphs(painter, false);
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(cellRect(m_mark).adjusted(1, 1, -1, -1));
    }
}

void CharGrid::mousePressEvent(QMouseEvent* event)
{
    const int cell = cellAt(event->position().toPoint());
    if (cell < 0)
        return;
    m_last = m_mark = cell;
    m_from = event->position().toPoint();
    const int code = codeOf(cell);
    if ((event->modifiers() & Qt::ShiftModifier) && m_anchor >= 0) {
        m_painting = false;
        m_pressedAt.reset();
        Q_EMIT runMarked(std::min(m_anchor, code), std::max(m_anchor, code),
                         m_set[static_cast<std::size_t>(m_anchor)]);
        return update();
    }
    m_anchor = code;
    Q_EMIT cellPressed(code);
    // The fixed characters never change; a drag that starts on one paints nothing.
    m_painting = false;
    m_pressedAt = codeOf(cell) > lastFixedCharacter ? std::optional(event->pos()) : std::nullopt;
    // After the press has flipped the cell: the drag brings all others to the same state.
    m_paintTo = chosen(cell);
    update();
}

void CharGrid::mouseMoveEvent(QMouseEvent* event)
{
    // A slip of the hand during a click takes no neighbour along.
    const bool starts =
        m_pressedAt && !m_painting &&
        (event->pos() - *m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    m_painting = m_painting || starts;
    const QPoint to = event->position().toPoint();
    if ((event->buttons() & Qt::LeftButton) && m_painting)
        paintBetween(starts ? *m_pressedAt : m_from, to);
    m_from = to;
    const int cell = cellAt(to);
    // Once for each cell, however slowly the mouse moves over it.
    if (cell < 0 || (cell == m_last && !starts))
        return;
    m_last = cell;
    Q_EMIT cellEntered(codeOf(cell));
}

// A fast mouse tells of few of the places that it passes.
void CharGrid::paintBetween(QPoint from, QPoint to)
{
    const QPoint way = to - from;
    const int steps = std::max({1, std::abs(way.x()), std::abs(way.y())});
    int last = -1;
    for (int step = 0; step <= steps; ++step) {
        const int cell = cellAt(from + way * step / steps);
        if (cell < 0 || cell == last)
            continue;
        last = cell;
        if (chosen(cell) == m_paintTo)
            continue;
        Q_EMIT cellPressed(codeOf(cell));
        update();
    }
}

void CharGrid::wheelEvent(QWheelEvent* event)
{
    constexpr int step = QWheelEvent::DefaultDeltasPerStep;
    m_turned += event->angleDelta().y();
    const int steps = m_turned / step;
    // The rest is kept: touch pads send many small turns.
    m_turned -= steps * step;
    if (steps != 0)
        Q_EMIT pagesTurned(-steps);
    event->accept();
}

void CharGrid::moveMark(int cell)
{
    m_last = m_mark = std::clamp(cell, 0, cellCount - 1);
    Q_EMIT cellEntered(codeOf(m_mark));
    update();
}

void CharGrid::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return moveMark(m_mark - 1);
    case Qt::Key_Right:
        return moveMark(m_mark + 1);
    case Qt::Key_Up:
        return moveMark(m_mark < cellColumns ? m_mark : m_mark - cellColumns);
    case Qt::Key_Down:
        return moveMark(m_mark + cellColumns < cellCount ? m_mark + cellColumns : m_mark);
    case Qt::Key_Space:
        Q_EMIT cellPressed(codeOf(m_mark));
        return update();
    case Qt::Key_PageUp:
        Q_EMIT pagesTurned(-1);
        return;
    case Qt::Key_PageDown:
        Q_EMIT pagesTurned(1);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

bool CharGrid::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int cell = cellAt(help->pos());
        if (cell >= 0)
            QToolTip::showText(help->globalPos(), cellHint(m_page, cell), this, cellRect(cell));
        return true;
    }
    return QWidget::event(event);
}

} // namespace fennel
