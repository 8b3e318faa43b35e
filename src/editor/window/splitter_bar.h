// SPDX-License-Identifier: MIT
// A thin bar at the edge of the window that is dragged to give a panel more or less room.
#pragma once

#include <QFrame>

namespace fennel {

class SplitterBar : public QFrame {
    Q_OBJECT
public:
    SplitterBar(Qt::Orientation orientation, QWidget* parent);

Q_SIGNALS:
    void pressed();
    // Pixels that the mouse has moved since the press, along the bar's way.
    void dragged(int distance);
    void released();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] int along(const QMouseEvent& event) const;

    Qt::Orientation m_orientation;
    int m_start = 0;
    bool m_dragging = false;
};

} // namespace fennel
