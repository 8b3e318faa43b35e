// SPDX-License-Identifier: MIT
// The picture that a file dialog is about to choose, small, with its size in pixels.
#pragma once

#include <QLabel>

class QFileDialog;

namespace fennel {

// Pictures are read scaled down and only up to a size that is read in a moment; of the formats that
// the editor itself does not read, and of large ones, only the name and the bytes are told.
class PicturePreview : public QLabel {
    Q_OBJECT
public:
    explicit PicturePreview(QWidget* parent = nullptr);
    // Puts a preview at the right of a dialog of Qt's own (not one of the desktop's).
    static void addTo(QFileDialog& dialog);

    void showFile(const QString& path);
};

} // namespace fennel
