// SPDX-License-Identifier: MIT
#include "editor/window/window_progress.h"

#include "editor/window/status_bar.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace fennel {

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::HoverMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

// A spin button that is held down repeats by a timer.
bool repeatsInput(QObject* receiver)
{
    return qobject_cast<QAbstractSpinBox*>(receiver) != nullptr ||
           qobject_cast<QAbstractSlider*>(receiver) != nullptr ||
           qobject_cast<QAbstractButton*>(receiver) != nullptr;
}

} // namespace

WindowProgress::WindowProgress(QWidget& window, StatusBar& line) : m_window(window), m_line(line)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patienceMs);
    connect(&m_patience, &QTimer::timeout, this, &WindowProgress::show);
    connect(&line.cancelButton(), &QAbstractButton::clicked, this, &WindowProgress::cancel);
}

WindowProgress::~WindowProgress() = default;

void WindowProgress::begin(const QString& what)
{
    m_busy = true;
    m_cancelled = m_ending;
    m_what = what;
    m_share.reset();
    m_patience.start();
    qApp->installEventFilter(this);
}

void WindowProgress::setShare(std::optional<double> share)
{
    m_share = share;
    if (m_shown)
        m_line.showWork(m_what, m_share);
}

void WindowProgress::end()
{
    m_patience.stop();
    qApp->removeEventFilter(this);
    m_busy = false;
    if (std::exchange(m_shown, false)) {
        m_line.hideWork();
        QGuiApplication::restoreOverrideCursor();
    }
    if (m_ending)
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    else if (!m_waiting.empty())
        QMetaObject::invokeMethod(this, &WindowProgress::doWaiting, Qt::QueuedConnection);
}

void WindowProgress::show()
{
    m_shown = true;
    // The pointer of a command that waits would say that nothing can be clicked.
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    m_line.showWork(m_what, m_share);
}

void WindowProgress::cancel()
{
    if (!m_busy || m_cancelled)
        return;
    m_cancelled = true;
    Q_EMIT cancelRequested();
}

void WindowProgress::whenIdle(std::function<void()> action)
{
    if (m_busy)
        m_waiting.push_back(std::move(action));
    else
        action();
}

void WindowProgress::doWaiting()
{
    for (std::function<void()>& action : std::exchange(m_waiting, {}))
        whenIdle(std::move(action));
}

bool WindowProgress::isForCancel(const QObject* receiver) const
{
    // What comes to the window as a whole is on its way to one of its widgets.
    return receiver == &m_line.cancelButton() || !receiver->isWidgetType();
}

// At the application, so that no window, shortcut or nested dialog is forgotten.
bool WindowProgress::eventFilter(QObject* receiver, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool closes = type == QEvent::Close && receiver == &m_window;
    if (closes || type == QEvent::Quit) {
        m_ending = true;
        cancel();
    } else if (type == QEvent::KeyPress && m_shown &&
               static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        cancel();
    } else if (type == QEvent::Timer) {
        return repeatsInput(receiver);
    } else if (type == QEvent::Shortcut) {
        return true;
    } else if (!isInput(type) || isForCancel(receiver)) {
        return false;
    }
    event->ignore();
    return true;
}

} // namespace fennel
