// SPDX-License-Identifier: MIT
// Screens as pictures: drawn as they will boot, and laid side by side.
#pragma once

#include "command/opened_file.h"

#include <QImage>

namespace fennel {

struct ScreenWish {
    QString menu;   // the text of a menu.lst; empty: the menu that the editor shows without one
    int chosen = 0; // the entry that the bar is on, from 0
    // As it stands when it has booted at that time; none: as the preview shows it, at every run the
    // same.
    std::optional<QTime> clock;
};

// The screen as it boots. Null if there is nothing to draw.
QImage drawnScreen(OpenedFile& opened, const ScreenWish& wish);

// The share of equal pixels, 0 to 1; the picture of a boot has rounded colours. 0 if the sizes
// differ.
double equalShare(const QImage& a, const QImage& b);

QImage sideBySide(const QImage& a, const QImage& b);

// A PNG, to a file or standard output.
Status writePicture(CommandRun& run, const QImage& picture);

} // namespace fennel
