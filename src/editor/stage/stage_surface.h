// SPDX-License-Identifier: MIT
// Picture1: the widget that shows the stage. One of its pixels is one pixel of the screen, whatever
// the screen's scale factor; what is on it and what the mouse does is decided by Stage and
// StageGestures.
#pragma once

#include "editor/stage/gestures.h"

#include <QBasicTimer>
#include <QCursor>
#include <QElapsedTimer>
#include <QWidget>

#include <map>

namespace fennel {

using StageCursors = std::map<StageCursor, QCursor>;

// Takes the hooks of the stage (repaint, pictureChanged, markerChanged) for as long as it lives;
// the stage outlives it. Its size follows the picture.
class StageSurface : public QWidget {
    Q_OBJECT
public:
    // The stage outlives the widget; one widget a stage.
    explicit StageSurface(Stage& stage, QWidget* parent = nullptr);
    ~StageSurface() override;

    // A pointer that is missing leaves the one that shows.
    void setCursors(const StageCursors& cursors);
    [[nodiscard]] StageGestures& gestures() { return m_gestures; }
    // The timer of the pulse runs: marker and window are seen, no button is down.
    [[nodiscard]] bool pulsing() const { return m_pulse.isActive(); }
    // A logical position in this widget's window as a pixel of the picture.
    [[nodiscard]] QPoint toPicture(QPointF scenePosition) const;
    // Starts or stops the pulse; without a marker to be seen, or while a colour is picked, it
    // rests.
    void updatePulse();
    // False: the pulse rests, whatever else holds.
    void setTickGate(bool open);
    // After a pointer that was lent for something else.
    void showCursor();

Q_SIGNALS:
    // Logical pixels of this widget.
    void placeWanted(const QRect& place);
    // Enter: from the object to its parameters.
    void listWanted();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] StageMouse mouse(const QMouseEvent& event) const;
    [[nodiscard]] QPointF pixelShift() const;
    void repaintPart(const QRect& part);
    void fitToPicture();
    void watchWindow();

    Stage& m_stage;
    StageGestures m_gestures;
    StageCursors m_cursors;
    QBasicTimer m_pulse;
    QElapsedTimer m_pulseTime;
    QObject* m_window = nullptr; // the native window whose exposure is watched
    double m_ratio = 0;
    bool m_tickGate = true;
    bool m_buttonDown = false;
};

} // namespace fennel
