// SPDX-License-Identifier: MIT
// The size and the place of the window: as the picture asks, or as the user pulled it.
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/window_place.h"

#include <QGuiApplication>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace fennel {

namespace {

// The window system answers later, and may answer a request that is no longer the last.
constexpr int answerMs = 1000;
constexpr qsizetype keptRequests = 16;

// At a fractional scale factor a size does not come back from device pixels as it went.
bool comesFrom(QSize size, QSize wanted, double factor)
{
    const int slack = factor == std::floor(factor) ? 0 : 1;
    return std::abs(size.width() - wanted.width()) <= slack &&
           std::abs(size.height() - wanted.height()) <= slack;
}

} // namespace

void MainWindow::askSize(QSize size)
{
    if (size == this->size())
        return;
    m_asked.append(size);
    while (m_asked.size() > keptRequests)
        m_asked.removeFirst();
    resize(size);
}

QSize MainWindow::border() const
{
    const QMargins margins =
        windowHandle() == nullptr ? QMargins() : windowHandle()->frameMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

// A window manager that is slow puts its frame around a window that filled the screen.
void MainWindow::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    if (!m_laid.isEmpty() && border() != m_laidBorder)
        QTimer::singleShot(0, this, &MainWindow::LayoutWindow);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (m_laying || m_laid.isEmpty() || comesFrom(size(), m_laid, devicePixelRatioF()))
        return;
    // An old answer may be followed by the last one, however busy the window system is.
    const bool answer = std::ranges::any_of(
        m_asked, [this](QSize asked) { return comesFrom(size(), asked, devicePixelRatioF()); });
    // A window that leaves the whole screen has its new size at once.
    if (!m_filled && event->spontaneous() && answer)
        m_answer.start(answerMs);
    else
        windowPulled();
}

// A size that was asked for once and then stays is the user's, or all that the window system gives.
void MainWindow::answered()
{
    if (!comesFrom(size(), m_laid, devicePixelRatioF()))
        windowPulled();
}

// Half of the room that comes or goes is the lists'; what they do not get is the stage's.
void MainWindow::windowPulled()
{
    const bool filled = isMaximized() || isFullScreen();
    if (!filled && !m_filled) {
        if (!m_free)
            m_pulledAt.start();
        holdSize(true);
    }
    m_filled = filled;
    m_workbench.shell.run.RightPanelWidth = m_basePanel + (width() - m_baseSize.width()) / 2;
    LayoutWindow();
}

// The new size comes before the new state or after it, as the window system likes.
void MainWindow::windowFilled()
{
    if (isMaximized() && !m_filled) {
        m_filled = true;
        // What seemed to be a pull was this.
        if (m_free && m_pulledAt.isValid() && m_pulledAt.elapsed() < answerMs) {
            m_free = false;
            m_menus->action(QStringLiteral("mnuView_Follow"))->setChecked(true);
        }
    }
    if (!isMaximized())
        QTimer::singleShot(answerMs, this, [this] { m_filled = isMaximized(); });
}

void MainWindow::holdSize(bool held)
{
    m_free = held;
    m_menus->action(QStringLiteral("mnuView_Follow"))->setChecked(!held);
    if (held)
        return;
    m_workbench.shell.run.RightPanelWidth = m_basePanel;
    ShowBackground();
}

// The window grows to the right and downwards; what would leave the desktop moves back in.
void MainWindow::keepOnScreen()
{
    if (isMaximized() || isFullScreen())
        return;
    const QPoint place = placeOnDesktop(frameGeometry(), screen()->availableGeometry());
    if (place != frameGeometry().topLeft())
        move(place);
}

void MainWindow::takeStoredPlace()
{
    const WindowPlace place = readWindowPlace(m_workbench.store);
    if (place.corner) {
        // The screen that it stood on may be gone.
        if (QScreen* there = QGuiApplication::screenAt(*place.corner))
            setScreen(there);
        move(*place.corner);
    }
    if (place.size) {
        resize(place.size->boundedTo(screen()->availableSize()));
        holdSize(true);
    }
    LayoutWindow();
    if (place.maximised)
        setWindowState(windowState() | Qt::WindowMaximized);
}

void MainWindow::storePlace()
{
    WindowPlace place;
    place.maximised = isMaximized();
    const QPoint frame = geometry().topLeft() - frameGeometry().topLeft();
    place.corner = (place.maximised ? normalGeometry().topLeft() : geometry().topLeft()) - frame;
    if (m_free)
        place.size = place.maximised ? normalGeometry().size() : size();
    storeWindowPlace(m_workbench.store, place);
}

} // namespace fennel
