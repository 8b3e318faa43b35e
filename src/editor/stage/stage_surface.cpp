// SPDX-License-Identifier: MIT
#include "editor/stage/stage_surface.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/stage/pulse.h"
#include "editor/window/retranslated.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QWindow>

#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Of a pixel: what a division by the ratio leaves over must not lead to the pixel before or behind.
constexpr double speck = 1.0 / 64;

} // namespace

StageSurface::StageSurface(Stage& stage, QWidget* parent)
    : QWidget(parent), m_stage(stage), m_gestures(stage)
{
    setObjectName(u"Picture1"_s);
    sayName(this, Words::mark("Preview of the boot screen"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent); // the stage covers every pixel; no erasing, no flicker
    m_stage.repaint = [this](const QRect& part) { repaintPart(part); };
    m_stage.pictureChanged = [this] { fitToPicture(); };
    m_stage.markerChanged = [this] { updatePulse(); };
    m_stage.placeWanted = [this](const QRect& place) {
        Q_EMIT placeWanted(
            QRectF(QPointF(place.topLeft()) / m_ratio, QSizeF(place.size()) / m_ratio)
                .toAlignedRect());
    };
    m_pulseTime.start();
    fitToPicture();
}

StageSurface::~StageSurface()
{
    m_stage.repaint = nullptr;
    m_stage.pictureChanged = nullptr;
    m_stage.markerChanged = nullptr;
    m_stage.placeWanted = nullptr;
    // The native window goes while only the QWidget of this is left; it must not be told then.
    if (m_window != nullptr) {
        m_window->removeEventFilter(this);
        m_window->disconnect(this);
    }
}

void StageSurface::setCursors(const StageCursors& cursors)
{
    m_cursors = cursors;
    showCursor();
}

void StageSurface::showCursor()
{
    const auto found = m_cursors.find(m_gestures.cursor());
    if (found != m_cursors.end() && cursor() != found->second)
        setCursor(found->second);
}

// The picture is shown pixel by pixel, whatever the screen's ratio: a preview must not be
// resampled.
void StageSurface::fitToPicture()
{
    m_ratio = devicePixelRatioF();
    const QSize picture = m_stage.pictureSize();
    setFixedSize(static_cast<int>(std::ceil(picture.width() / m_ratio)),
                 static_cast<int>(std::ceil(picture.height() / m_ratio)));
    update();
}

// With a fractional ratio this widget's corner may lie inside a pixel of the screen. The picture
// begins at the next whole one, so that it is never smeared over two.
QPointF StageSurface::pixelShift() const
{
    const QPointF corner = QPointF(mapTo(window(), QPoint())) * m_ratio;
    return {std::ceil(corner.x() - speck) - corner.x(), std::ceil(corner.y() - speck) - corner.y()};
}

// Not from a position in this widget, which the toolkit rounds to logical pixels.
QPoint StageSurface::toPicture(QPointF scenePosition) const
{
    const QPointF corner = QPointF(mapTo(window(), QPoint())) * m_ratio;
    const auto along = [&](double place, double start) {
        return static_cast<int>(std::floor(place * m_ratio + speck) - std::ceil(start - speck));
    };
    return {along(scenePosition.x(), corner.x()), along(scenePosition.y(), corner.y())};
}

void StageSurface::repaintPart(const QRect& part)
{
    // The usual screen needs no rounding.
    if (m_ratio == 1.0) {
        update(part);
        return;
    }
    const QRectF logical(part.x() / m_ratio, part.y() / m_ratio, part.width() / m_ratio,
                         part.height() / m_ratio);
    // A pixel more on each side for what pixelShift() moves.
    update(logical.toAlignedRect().adjusted(-1, -1, 1, 1));
}

void StageSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (m_ratio == 1.0) {
        m_stage.paint(painter, event->region());
        return;
    }
    const QPointF shift = pixelShift();
    painter.scale(1 / m_ratio, 1 / m_ratio);
    painter.translate(shift);
    QRegion dirty;
    for (const QRect& part : event->region()) {
        const QRectF pixels(part.x() * m_ratio, part.y() * m_ratio, part.width() * m_ratio,
                            part.height() * m_ratio);
        dirty += pixels.translated(-shift).toAlignedRect();
    }
    m_stage.paint(painter, dirty);
}

StageMouse StageSurface::mouse(const QMouseEvent& event) const
{
    // Events that no window system made know their place in this widget only.
    const QPointF place = event.position() + mapTo(window(), QPoint());
    const bool exact = (event.scenePosition() - place).manhattanLength() < 2;
    return {toPicture(exact ? event.scenePosition() : place), event.button(), event.buttons(),
            event.modifiers()};
}

void StageSurface::mousePressEvent(QMouseEvent* event)
{
    // The pulse rests during a drag, which repaints enough.
    m_buttonDown = true;
    updatePulse();
    m_gestures.press(mouse(*event));
    showCursor();
}

void StageSurface::mouseMoveEvent(QMouseEvent* event)
{
    m_gestures.move(mouse(*event));
    showCursor();
}

void StageSurface::mouseReleaseEvent(QMouseEvent* event)
{
    // Another button may still be down.
    m_buttonDown = event->buttons() != Qt::NoButton;
    m_gestures.release(mouse(*event));
    updatePulse();
}

void StageSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_buttonDown = true;
    m_gestures.doubleClick(mouse(*event));
    showCursor();
}

void StageSurface::keyPressEvent(QKeyEvent* event)
{
    if (m_gestures.key(event->key(), event->modifiers()))
        return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT listWanted();
    else
        QWidget::keyPressEvent(event);
}

bool StageSurface::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        // The stage's own Tab, before the focus chain takes it; with Ctrl it leaves the stage.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            if (key->modifiers() & Qt::ControlModifier)
                return focusNextPrevChild(!(key->modifiers() & Qt::ShiftModifier));
            if (m_gestures.key(key->key(), key->modifiers()))
                return true;
        }
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString name = m_gestures.toolTip(toPicture(mapTo(window(), help->pos())));
        // Over the bare background an old tip must go.
        if (name.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), plainTip(name), this);
        return true;
    }
    return QWidget::event(event);
}

void StageSurface::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    watchWindow();
    // The window may have been shown on another screen than it was made on.
    if (devicePixelRatioF() != m_ratio)
        fitToPicture();
    updatePulse();
}

void StageSurface::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_pulse.stop();
}

void StageSurface::watchWindow()
{
    // The native window is made late and may be replaced, so it is looked for at each show.
    QWindow* native = window()->windowHandle();
    if (native == m_window)
        return;
    if (m_window != nullptr)
        m_window->removeEventFilter(this);
    m_window = native;
    if (native != nullptr) {
        native->installEventFilter(this);
        connect(native, &QObject::destroyed, this, [this] { m_window = nullptr; });
        connect(native, &QWindow::screenChanged, this, [this] { fitToPicture(); });
    }
}

bool StageSurface::eventFilter(QObject* watched, QEvent* event)
{
    const bool handled = QWidget::eventFilter(watched, event);
    if (watched == m_window && event->type() == QEvent::Expose)
        updatePulse();
    // A message that comes up by itself during a drag swallows the release.
    if (watched == m_window && event->type() == QEvent::WindowBlocked && m_buttonDown) {
        m_buttonDown = false;
        m_gestures.release({{}, Qt::LeftButton, Qt::NoButton, Qt::NoModifier});
        updatePulse();
    }
    return handled;
}

void StageSurface::updatePulse()
{
    const QWindow* native = window()->windowHandle();
    const bool seen = isVisible() && native != nullptr && native->isExposed();
    if (!seen || !m_tickGate || !m_stage.pulses() || m_buttonDown ||
        m_stage.host().pipettesOn() > 0) {
        m_pulse.stop();
        return;
    }
    if (m_pulse.isActive())
        return;
    // In step with the screen; more often would be drawn for nobody.
    const double rate = native->screen() != nullptr ? native->screen()->refreshRate() : 60;
    m_pulse.start(std::max(1, static_cast<int>(1000 / std::max(1.0, rate))), this);
}

void StageSurface::setTickGate(bool open)
{
    m_tickGate = open;
    updatePulse();
}

void StageSurface::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_pulse.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    const QWindow* native = window()->windowHandle();
    // A window that is covered or minimised gets no event on some desktops, so the timer looks for
    // itself.
    if (native == nullptr || !native->isExposed() || visibleRegion().isEmpty())
        m_pulse.stop();
    else
        m_stage.setPulsePhase(pulsePhase(m_pulseTime.elapsed()));
}

} // namespace fennel
