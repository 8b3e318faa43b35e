// SPDX-License-Identifier: MIT
#include "editor/window/splitter_bar.h"

#include <QMouseEvent>

namespace fennel {

SplitterBar::SplitterBar(Qt::Orientation orientation, QWidget* parent)
    : QFrame(parent), m_orientation(orientation)
{
    setFrameStyle(static_cast<int>(QFrame::Panel) | QFrame::Raised);
    setCursor(orientation == Qt::Vertical ? Qt::SplitHCursor : Qt::SplitVCursor);
}

int SplitterBar::along(const QMouseEvent& event) const
{
    // The bar moves with the window's edge, so only the place on the screen tells the distance.
    const QPoint place = event.globalPosition().toPoint();
    return m_orientation == Qt::Vertical ? place.x() : place.y();
}

void SplitterBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_start = along(*event);
    m_dragging = true;
    Q_EMIT pressed();
}

void SplitterBar::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging)
        // From the place of the press, so that roundings of single steps do not add up.
        Q_EMIT dragged(along(*event) - m_start);
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_dragging || event->button() != Qt::LeftButton)
        return;
    m_dragging = false;
    Q_EMIT released();
}

void SplitterBar::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    window()->installEventFilter(this);
}

// A message that comes up by itself during the drag swallows the release.
bool SplitterBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked && m_dragging) {
        m_dragging = false;
        Q_EMIT released();
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace fennel
