// SPDX-License-Identifier: MIT
#include "editor/stage/stage_port.h"

#include "editor/stage/stage_surface.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimerEvent>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace fennel {

namespace {

constexpr int edgeWidth = 12; // logical pixels from the edge of the port, within it
constexpr int edgeMs = 30;
constexpr int longestEdgeStep = 24;
constexpr int viewMargin = 12; // around what is scrolled into view
constexpr int wheelStep = 120;

} // namespace

StagePort::StagePort(StageSurface& surface, QWidget* parent)
    : QScrollArea(parent), m_surface(surface)
{
    setFrameStyle(QFrame::NoFrame);
    setAlignment(Qt::AlignCenter);
    // The keys are the stage's.
    setFocusPolicy(Qt::NoFocus);
    setWidget(&surface);
    surface.installEventFilter(this);
    connect(&surface, &StageSurface::placeWanted, this, [this](const QRect& place) {
        const QPoint centre = place.center();
        const QSize port = viewport()->size();
        // Of what is larger than the port its corner is shown.
        const QPoint seen(place.width() < port.width() ? centre.x() : place.left(),
                          place.height() < port.height() ? centre.y() : place.top());
        const QSize half = place.size().boundedTo(port) / 2;
        ensureVisible(seen.x(), seen.y(), std::min(half.width() + viewMargin, port.width() / 2),
                      std::min(half.height() + viewMargin, port.height() / 2));
    });
}

QPointF StagePort::shareAt(QPoint inViewport) const
{
    const QPointF at = m_surface.mapFrom(viewport(), inViewport);
    return {at.x() / std::max(1, m_surface.width()), at.y() / std::max(1, m_surface.height())};
}

void StagePort::bringTo(QPointF share, QPoint inViewport)
{
    const QPoint at(qRound(share.x() * m_surface.width()), qRound(share.y() * m_surface.height()));
    horizontalScrollBar()->setValue(at.x() - inViewport.x());
    verticalScrollBar()->setValue(at.y() - inViewport.y());
}

void StagePort::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    m_wheel += event->angleDelta().y();
    const int steps = m_wheel / wheelStep;
    m_wheel -= steps * wheelStep;
    event->accept();
    if (steps != 0)
        Q_EMIT zoomAsked(steps, event->position().toPoint());
}

bool StagePort::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_surface || m_replaying)
        return QScrollArea::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return surfaceMouse(static_cast<QMouseEvent&>(*event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return spaceKey(static_cast<QKeyEvent&>(*event));
    case QEvent::FocusOut:
        m_space = false;
        viewport()->unsetCursor();
        break;
    default:
        break;
    }
    return QScrollArea::eventFilter(watched, event);
}

bool StagePort::spaceKey(QKeyEvent& event)
{
    if (event.key() != Qt::Key_Space)
        return false;
    if (!event.isAutoRepeat()) {
        m_space = event.type() == QEvent::KeyPress;
        if (m_space)
            m_surface.setCursor(Qt::OpenHandCursor);
        else
            m_surface.showCursor();
    }
    return true;
}

// True: the gesture is a pan, of which the stage hears nothing.
bool StagePort::surfaceMouse(QMouseEvent& event)
{
    const bool press = event.type() == QEvent::MouseButtonPress;
    const bool asked =
        event.button() == Qt::MiddleButton || (event.button() == Qt::LeftButton && m_space);
    if (press && asked && event.buttons() == event.button()) {
        beginPan(event);
        return true;
    }
    if (!m_hand) {
        watchEdge(event);
        return m_space; // the pointer stays a hand
    }
    pan(event.globalPosition().toPoint());
    if (event.type() == QEvent::MouseButtonRelease && event.button() == m_handButton) {
        m_hand.reset();
        m_surface.showCursor();
        if (!m_panned && m_handButton == Qt::MiddleButton)
            giveBackClick(event);
    }
    return true;
}

void StagePort::beginPan(QMouseEvent& event)
{
    m_hand = event.globalPosition().toPoint();
    m_handButton = event.button();
    m_panned = false;
    m_surface.setCursor(Qt::ClosedHandCursor);
}

void StagePort::pan(QPoint global)
{
    const QPoint by = global - *m_hand;
    if (!m_panned && by.manhattanLength() < QApplication::startDragDistance())
        return;
    m_panned = true;
    m_hand = global;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
}

// A click that moved nothing is the stage's own: a roll steps by the middle button.
void StagePort::giveBackClick(const QMouseEvent& release)
{
    const QScopedValueRollback<bool> replaying(m_replaying, true);
    QMouseEvent press(QEvent::MouseButtonPress, release.position(), release.scenePosition(),
                      release.globalPosition(), release.button(), release.button(),
                      release.modifiers());
    QMouseEvent again(QEvent::MouseButtonRelease, release.position(), release.scenePosition(),
                      release.globalPosition(), release.button(), release.buttons(),
                      release.modifiers());
    QApplication::sendEvent(&m_surface, &press);
    QApplication::sendEvent(&m_surface, &again);
}

// How far a point lies in the port's rim or outside; null in the middle.
QPoint StagePort::beyondEdge(QPoint inViewport) const
{
    const QRect inner = viewport()->rect().adjusted(edgeWidth, edgeWidth, -edgeWidth, -edgeWidth);
    const auto along = [](int at, int low, int high) {
        return std::clamp(at < low ? at - low : std::max(0, at - high), -longestEdgeStep,
                          longestEdgeStep);
    };
    return {along(inViewport.x(), inner.left(), inner.right()),
            along(inViewport.y(), inner.top(), inner.bottom())};
}

void StagePort::watchEdge(const QMouseEvent& event)
{
    const bool dragged =
        event.type() == QEvent::MouseMove && m_surface.gestures().drags(event.buttons());
    const QPoint at = viewport()->mapFromGlobal(event.globalPosition().toPoint());
    if (!dragged || beyondEdge(at).isNull())
        m_edge.stop();
    else if (!m_edge.isActive())
        m_edge.start(edgeMs, this);
}

// The pointer stands still, but the picture under it moves: for the stage that is a move.
void StagePort::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_edge.timerId()) {
        QScrollArea::timerEvent(event);
        return;
    }
    const Qt::MouseButtons buttons = QGuiApplication::mouseButtons();
    const QPoint global = QCursor::pos();
    const QPoint by = beyondEdge(viewport()->mapFromGlobal(global));
    if (by.isNull() || !m_surface.gestures().drags(buttons)) {
        m_edge.stop();
        return;
    }
    const QPoint before = m_surface.pos();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + by.y());
    if (m_surface.pos() == before)
        return;
    const QPointF at = m_surface.mapFromGlobal(QPointF(global));
    QMouseEvent move(QEvent::MouseMove, at, window()->mapFromGlobal(QPointF(global)), global,
                     Qt::NoButton, buttons, QGuiApplication::keyboardModifiers());
    const QScopedValueRollback<bool> replaying(m_replaying, true);
    QApplication::sendEvent(&m_surface, &move);
}

} // namespace fennel
