// SPDX-License-Identifier: MIT
// The picture that a file dialog is about to choose, small, with its size in pixels.
#pragma once

#include "base/picture_tool.h"

#include <QLabel>

class QFileDialog;

namespace fennel {

// Of what cannot be read only the name and the bytes are told.
class PicturePreview : public QLabel {
    Q_OBJECT
public:
    // The tool outlives this.
    explicit PicturePreview(PictureTool& pictures, QWidget* parent = nullptr);
    // Puts a preview at the right of a dialog of Qt's own (not one of the desktop's).
    static void addTo(QFileDialog& dialog, PictureTool& pictures);

    // Shows it as soon as it is read.
    void showFile(const QString& path);

private:
    void show(const QString& path, const Result<FilePicture>& read);
    PictureTool& m_pictures;
};

} // namespace fennel
