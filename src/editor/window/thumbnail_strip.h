// SPDX-License-Identifier: MIT
// Frame2Podval: the pictures of the selected tab as a strip of thumbnails under the preview.
#pragma once

#include "base/shell_context.h"

#include <QFrame>
#include <QLabel>
#include <QScrollBar>
#include <QSpinBox>

#include <vector>

namespace fennel {

class ThumbnailStrip : public QFrame {
    Q_OBJECT
public:
    ThumbnailStrip(const Shell& shell, QWidget* parent);

    // Shows these files of `folder`, one Image1 each, in rows that VScroll1 moves through. A file
    // that is no picture shows its name alone.
    void setFiles(const QString& folder, const QStringList& names);
    [[nodiscard]] QSpinBox& heightControl() { return *m_upDown; } // UpDown2

Q_SIGNALS:
    // To be connected queued: a click may rebuild the strip, and with it the label it came from.
    void clicked(const QString& name, Qt::MouseButton button);
    void hovered(const QString& name);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // A picture is loaded when its place is first seen.
    struct Image {
        QLabel* label;
        QString path;
        bool loaded = false;
    };
    void addImage();
    void place();
    void load(Image& image);
    void unload(Image& image);

    const Shell& m_shell;
    QWidget* m_port;
    std::vector<Image> m_images;
    QScrollBar* m_scroll; // VScroll1
    QSpinBox* m_upDown;
};

} // namespace fennel
