// SPDX-License-Identifier: MIT
// Two pictures of the boot screen in one place, parted by a line that the mouse pulls: the preview
// at its left, the booted screen at its right. Keys that are pressed on it are meant for the guest.
#pragma once

#include <QImage>
#include <QWidget>

namespace fennel {

class BootCompare : public QWidget {
    Q_OBJECT
public:
    explicit BootCompare(QWidget* parent = nullptr);

    // Null pictures are not there yet.
    void setPreview(const QImage& picture);
    void setBooted(const QImage& picture);
    // What is laid over both; null for nothing.
    void setMarks(const QImage& marks);
    // The part of the width that the preview has, 0 to 1.
    void setSplit(double split);
    [[nodiscard]] double split() const { return m_split; }
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void splitChanged(double split);
    void keyPressed(const QString& key); // by QEMU's name

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QRect shownArea() const;
    void pull(double x);
    void paintHandle(QPainter& painter, const QRect& area, int line) const;

    QImage m_preview;
    QImage m_booted;
    QImage m_marks;
    double m_split = 0;
};

// QEMU's name of the key, with those that are held; empty for keys that no boot screen knows.
QString guestKey(const QKeyEvent& event);

} // namespace fennel
