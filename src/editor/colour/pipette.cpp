// SPDX-License-Identifier: MIT
#include "editor/colour/pipette.h"

#include "base/text.h"
#include "base/words.h"
#include "screen/colour.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int reach = 5;      // logical pixels around the mouse
constexpr int lensSide = 110; // of the magnified part
constexpr int labelHeight = 20;
constexpr int away = 24; // from the mouse; more than `reach`, or the lens would show itself
constexpr int tickMs = 16;
constexpr double speck = 1.0 / 64; // of a pixel, for what divisions leave over

// A program that runs on X11 inside a Wayland desktop sees only windows of its kind.
bool screenIsHidden()
{
    const QString platform = QGuiApplication::platformName();
    return platform.startsWith(u"wayland"_s) ||
           (platform == u"xcb"_s && qEnvironmentVariableIsSet("WAYLAND_DISPLAY"));
}

} // namespace

QImage grabAround(QPointF point)
{
    // The mouse may be between two screens.
    QScreen* screen = QGuiApplication::screenAt(point.toPoint());
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return {};
    const QRectF all(QPointF(), screen->geometry().size());
    const QPointF place = point - screen->geometry().topLeft();
    // A logical pixel more on each side than is shown: logical pixels begin inside those of the
    // screen.
    const QRect there =
        (QRectF(place, place).adjusted(-reach - 1, -reach - 1, reach + 1, reach + 1) & all)
            .toAlignedRect();
    QImage got =
        screen->grabWindow(0, there.x(), there.y(), there.width(), there.height()).toImage();
    // The grab comes in pixels of the screen, which may be smaller than logical ones, from the one
    // that is nearest to its corner.
    const double ratio = screen->devicePixelRatio();
    const auto pixel = [ratio](double logical) {
        return static_cast<int>(std::floor(logical * ratio + 0.5));
    };
    const QPoint middle(static_cast<int>(std::floor(place.x() * ratio + speck)) - pixel(there.x()),
                        static_cast<int>(std::floor(place.y() * ratio + speck)) - pixel(there.y()));
    const int around = static_cast<int>(reach * ratio);
    // Otherwise the painter would shrink it again.
    got.setDevicePixelRatio(1);
    // Odd, so that one pixel is the middle. What lies off the screen stays black.
    QImage part(2 * around + 1, 2 * around + 1, QImage::Format_RGB32);
    part.fill(Qt::black);
    QPainter painter(&part);
    painter.drawImage(QPoint(around, around) - middle, got);
    return part;
}

Pipette::Pipette(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(u"TimerPipetka"_s);
    // The dialog that asked must stay active.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(lensSide, lensSide + labelHeight);
    setMouseTracking(true);
    // There only the desktop's own picker can read the screen, and only it asks the user.
    if (screenIsHidden())
        usePortal(QDBusConnection::sessionBus());
}

Pipette::~Pipette()
{
    // A grab that outlived this would lock the whole desktop.
    giveBack();
}

void Pipette::setScreen(ScreenPart screen, std::function<QPointF()> mouse)
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
    m_place.reset();
    if (m_portal) {
        m_portal->ask();
        return;
    }
    tick();
    if (m_part.isNull()) {
        end(false);
        Q_EMIT failed(Words::tr("The screen cannot be read."));
        return;
    }
    takeOver();
    m_timer.start(tickMs, this);
}

void Pipette::takeOver()
{
    moveBeside(mouse().toPoint());
    show();
    raise();
    windowHandle()->installEventFilter(this);
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
    const QPointF point = mouse();
    m_part = m_screen(point);
    if (m_part.isNull())
        return;
    // The middle is what the lens frames.
    m_colour = m_part.pixel(m_part.width() / 2, m_part.height() / 2) | 0xff000000U;
    Q_EMIT sampled(m_colour);
    moveBeside(point.toPoint());
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

// What the window system is asked for comes in whole logical pixels; its events tell them exactly.
QPointF Pipette::mouse() const
{
    const QPointF asked = m_mouse();
    const bool near = m_place && (*m_place - asked).manhattanLength() <= 2;
    return near ? *m_place : asked;
}

// The window's events; those of the widget have their places on the screen rounded.
bool Pipette::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == windowHandle() &&
        (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonPress))
        m_place = static_cast<QMouseEvent*>(event)->globalPosition();
    return QWidget::eventFilter(watched, event);
}

void Pipette::mousePressEvent(QMouseEvent* event)
{
    // The pixel under the click, not that of the tick before.
    if (!m_clicked && event->button() == Qt::LeftButton)
        tick();
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
