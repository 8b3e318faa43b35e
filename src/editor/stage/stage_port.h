// SPDX-License-Identifier: MIT
// The part of the window that the stage is seen through: it scrolls, is panned by the middle button
// or by the blank and a drag, and follows what is dragged beyond its edge.
#pragma once

#include <QBasicTimer>
#include <QScrollArea>

#include <optional>

namespace fennel {

class StageSurface;

class StagePort : public QScrollArea {
    Q_OBJECT
public:
    // Takes the surface as its content; both live as long as the window.
    StagePort(StageSurface& surface, QWidget* parent);

    // The point of the content, in parts of its size, that lies under a point of the viewport; and
    // the way back once the content has another size, as far as there is something to scroll.
    [[nodiscard]] QPointF shareAt(QPoint inViewport) const;
    void bringTo(QPointF share, QPoint inViewport);
    [[nodiscard]] QPoint middle() const { return viewport()->rect().center(); }

Q_SIGNALS:
    // Ctrl+wheel: in steps of a wheel, above 0 for closer, at a point of the viewport.
    void zoomAsked(int steps, QPoint inViewport);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool surfaceMouse(QMouseEvent& event);
    bool spaceKey(QKeyEvent& event);
    void beginPan(QMouseEvent& event);
    void pan(QPoint global);
    void giveBackClick(const QMouseEvent& release);
    void watchEdge(const QMouseEvent& event);
    [[nodiscard]] QPoint beyondEdge(QPoint inViewport) const;

    StageSurface& m_surface;
    QBasicTimer m_edge;           // runs while a drag is held at the edge
    std::optional<QPoint> m_hand; // where the picture was grasped, on the screen
    Qt::MouseButton m_handButton = Qt::NoButton;
    bool m_panned = false;
    bool m_space = false; // the blank is down
    bool m_replaying = false;
    int m_wheel = 0; // eighths of a degree that make no step yet
};

} // namespace fennel
