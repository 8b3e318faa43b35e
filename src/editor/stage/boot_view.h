// SPDX-License-Identifier: MIT
// The stage's picture of the open gfxboot as it boots, at the preview's scale.
#pragma once

#include "document/document.h"
#include "screen/boot_screen.h"
#include "screen/geometry.h"

namespace fennel {

// What of the boot is looked at: things move, and the bar is somewhere.
struct BootChoice {
    int entry = 0;                // that the bar is on
    int seconds = previewSeconds; // since the menu came
    int timeout = previewTimeout; // of the loader; 0 none
};

class BootView {
public:
    // Both outlive the view. Where the message lacks a font, letters are made of those in `fonts`.
    BootView(const Document& document, const FontTable& fonts);

    // Draws what looks different by now, in a picture of `size` shown pixels; returns that area.
    // `openRow` is the object whose panel is open at that moment, if it is one that comes and goes.
    QRegion update(QSize size, const StageScale& scale, int openRow);
    // Shown pixels; null before the first update.
    [[nodiscard]] const QImage& picture() const;
    [[nodiscard]] bool draws(int row) const { return m_screen.objects().contains(row); }
    // Shown pixels; null for an object that is not drawn.
    [[nodiscard]] QRect rect(int row) const;
    // What the picture cannot promise, for the status line; empty if it can.
    [[nodiscard]] QString note() const;
    [[nodiscard]] const BootScreen& screen() const { return m_screen; }

    BootChoice choice;

private:
    [[nodiscard]] BootRequest request(int openRow) const;
    QRegion scaled(const QRegion& dirty);

    const Document& m_document;
    BootScreen m_screen;
    StageScale m_scale{1.0};
    QImage m_scaled; // null at 1:1
};

// A font made of the letters that the schematic preview prints, for a record of the table.
std::unique_ptr<BootFont> schematicFont(const FontRecord& record);

} // namespace fennel
