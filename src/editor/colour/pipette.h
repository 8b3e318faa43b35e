// SPDX-License-Identifier: MIT
// Picks the colour of any pixel of the screen. While it works, mouse and keyboard are grabbed: the
// picker cursor is shown over every program, a left click anywhere takes the colour, Escape cancels
// and no other program sees either. Where the desktop lets no program read the screen, its own
// picker is asked (colour_portal.h).
#pragma once

#include "editor/colour/colour_portal.h"

#include <QBasicTimer>
#include <QCursor>
#include <QImage>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace fennel {

// The part of the screen around a point: an odd number of pixels each way, the point's pixel in the
// middle, black beyond the edge.
using ScreenPart = std::function<QImage(QPointF point)>;
// From the screens of the window system; logical coordinates of the whole desktop, with the
// fractions that tell pixels of the screen apart.
QImage grabAround(QPointF point);

// The magnified sample beside the mouse, and the widget that the grab is on.
class Pipette : public QWidget {
    Q_OBJECT
public:
    // Hidden and idle until start().
    explicit Pipette(QWidget* parent);
    ~Pipette() override; // gives cursor, mouse and keyboard back

    void setCursorShown(const QCursor& cursor) { m_cursor = cursor; }
    // Instead of grabAround and QCursor::pos, for tests.
    void setScreen(ScreenPart screen, std::function<QPointF()> mouse);
    // Asks the desktop rather than grabbing; by itself only where grabbing cannot work.
    void usePortal(const QDBusConnection& bus);

    // Does nothing if it is working already.
    void start();
    // Ends it without a click, with the colour of the last tick; finished(false) if the desktop's
    // picker had not answered yet.
    void stop();
    [[nodiscard]] bool working() const { return m_working; }
    // The colour of the last tick.
    [[nodiscard]] QRgb colour() const { return m_colour; }

Q_SIGNALS:
    void sampled(QRgb colour); // at each tick
    void finished(bool taken); // false: cancelled
    // The screen cannot be read; comes after finished(false) and says why.
    void failed(const QString& reason);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void takeOver();
    void giveBack();
    void end(bool taken);
    void tick();
    void moveBeside(QPoint point);
    [[nodiscard]] QPointF mouse() const;

    QCursor m_cursor{Qt::CrossCursor};
    ScreenPart m_screen = grabAround;
    std::function<QPointF()> m_mouse = [] { return QPointF(QCursor::pos()); };
    std::optional<QPointF> m_place; // of the last event of the mouse, exact to the pixel
    std::unique_ptr<ColourPortal> m_portal;
    QBasicTimer m_timer; // TimerPipetka
    QImage m_part;
    QRgb m_colour = 0xff000000;
    bool m_working = false;
    bool m_grabbed = false;
    bool m_clicked = false; // pressed; the release ends it, so that no one else gets it
};

} // namespace fennel
