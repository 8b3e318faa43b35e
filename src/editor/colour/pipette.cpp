// SPDX-License-Identifier: MIT
#include "editor/colour/pipette.h"

#include "base/text.h"
#include "screen/colour.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int reach = 5;      // logical pixels around the mouse
constexpr int lensSide = 110; // of the magnified part
constexpr int labelHeight = 20;
constexpr int away = 24; // from the mouse; more than `reach`, or the lens would show itself
constexpr int tickMs = 16;

// A program that runs on X11 inside a Wayland desktop sees only windows of its kind.
bool screenIsHidden()
{
    const QString platform = QGuiApplication::platformName();
    return platform.startsWith(u"wayland"_s) ||
           (platform == u"xcb"_s && qEnvironmentVariableIsSet("WAYLAND_DISPLAY"));
}

} // namespace

QImage grabAround(QPoint point)
{
    // The mouse may be between two screens.
    QScreen* screen = QGuiApplication::screenAt(point);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return {};
    const QPoint corner = point - screen->geometry().topLeft() - QPoint(reach, reach);
    const int side = 2 * reach + 1;
    const QRect wanted(corner, QSize(side, side));
    const QRect there = wanted & QRect(QPoint(), screen->geometry().size());
    const QImage got =
        screen->grabWindow(0, there.x(), there.y(), there.width(), there.height()).toImage();
    // The grab comes in pixels of the screen, which may be smaller than logical ones.
    const double ratio = got.isNull() ? 1.0 : got.width() / double(std::max(1, there.width()));
    // Odd, so that one pixel is the middle. What lies off the screen stays black.
    const int pixels = static_cast<int>(side * ratio) | 1;
    QImage part(pixels, pixels, QImage::Format_RGB32);
    part.fill(Qt::black);
    QPainter painter(&part);
    const QPointF at = QPointF(there.topLeft() - corner) * ratio;
    QImage plain = got;
    // Otherwise the painter would shrink it again.
    plain.setDevicePixelRatio(1);
    painter.drawImage(at.toPoint(), plain);
    return part;
}

Pipette::Pipette(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(u"TimerPipetka"_s);
    // The dialog that asked must stay active.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(lensSide, lensSide + labelHeight);
    // There only the desktop's own picker can read the screen, and only it asks the user.
    if (screenIsHidden())
        usePortal(QDBusConnection::sessionBus());
}

Pipette::~Pipette()
{
    // A grab that outlived this would lock the whole desktop.
    giveBack();
}

void Pipette::setScreen(ScreenPart screen, std::function<QPoint()> mouse)
{
    m_screen = std::move(screen);
    m_mouse = std::move(mouse);
}

void Pipette::usePortal(const QDBusConnection& bus)
{
    m_portal = std::make_unique<ColourPortal>(bus);
    connect(m_portal.get(), &ColourPortal::answered, this, [this](std::optional<QRgb> colour) {
        if (colour) {
            m_colour = *colour;
            Q_EMIT sampled(m_colour);
        }
        end(colour.has_value());
    });
    connect(m_portal.get(), &ColourPortal::unavailable, this, [this](const QString& reason) {
        end(false);
        Q_EMIT failed(reason);
    });
}

void Pipette::start()
{
    if (m_working)
        return;
    m_working = true;
    // A button that is down from before must not count as the choice.
    m_clicked = false;
    if (m_portal) {
        m_portal->ask();
        return;
    }
    tick();
    if (m_part.isNull()) {
        end(false);
        Q_EMIT failed(tr("The screen cannot be read."));
        return;
    }
    takeOver();
    m_timer.start(tickMs, this);
}

void Pipette::takeOver()
{
    moveBeside(m_mouse());
    show();
    raise();
    // Clicks must not reach the window below, whosever it is.
    grabMouse(m_cursor);
    grabKeyboard();
    m_grabbed = true;
}

void Pipette::giveBack()
{
    m_timer.stop();
    if (!m_grabbed)
        return;
    m_grabbed = false;
    releaseKeyboard();
    releaseMouse(); // and the cursor with it
    hide();
}

void Pipette::end(bool taken)
{
    if (!m_working)
        return;
    m_working = false;
    giveBack();
    Q_EMIT finished(taken);
}

void Pipette::stop()
{
    if (m_working && m_portal)
        m_portal->cancel();
    // The last colour under the mouse is taken; the portal has none before its answer.
    end(!m_portal);
}

void Pipette::tick()
{
    const QPoint point = m_mouse();
    m_part = m_screen(point);
    if (m_part.isNull())
        return;
    // The middle is what the lens frames.
    m_colour = m_part.pixel(m_part.width() / 2, m_part.height() / 2) | 0xff000000U;
    Q_EMIT sampled(m_colour);
    moveBeside(point);
    update();
}

void Pipette::moveBeside(QPoint point)
{
    const QScreen* screen = QGuiApplication::screenAt(point);
    const QRect room = screen != nullptr ? screen->geometry() : QRect(QPoint(), point * 2);
    // To the other side near an edge of the screen, never under the mouse.
    const bool left = point.x() + away + width() > room.right();
    const bool above = point.y() + away + height() > room.bottom();
    move(left ? point.x() - away - width() : point.x() + away,
         above ? point.y() - away - height() : point.y() + away);
}

void Pipette::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        QWidget::timerEvent(event);
    // Between press and release the colour stands still: the release may be a hair off.
    else if (!m_clicked)
        tick();
}

void Pipette::mousePressEvent(QMouseEvent* event)
{
    m_clicked = m_clicked || event->button() == Qt::LeftButton;
}

void Pipette::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_clicked && event->button() == Qt::LeftButton)
        end(true);
}

void Pipette::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        end(false);
}

void Pipette::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect lens(0, 0, lensSide, lensSide);
    painter.drawImage(lens, m_part);
    const double cell = lensSide / double(std::max(1, m_part.width()));
    const QRectF middle((lensSide - cell) / 2, (lensSide - cell) / 2, cell, cell);
    painter.setPen(QColor(textColourOn(m_colour)));
    painter.drawRect(middle);
    const QRect label(0, lensSide, lensSide, labelHeight);
    painter.fillRect(label, QColor(m_colour));
    painter.drawText(label, Qt::AlignCenter, hexText(m_colour & 0xFFFFFFU));
    painter.setPen(palette().color(QPalette::Shadow));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace fennel
