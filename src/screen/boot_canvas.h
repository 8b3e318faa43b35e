// SPDX-License-Identifier: MIT
// The drawing of gfxboot's virtual machine on a picture: fills, letters, masks, lines, each with
// the machine's own arithmetic.
#pragma once

#include "screen/boot_list.h"

namespace fennel {

class BootCanvas {
public:
    // All Format_RGB32 and of one size; nothing outside `part` is touched. They outlive the canvas.
    BootCanvas(QImage& screen, const QImage& ground, const QRect& part, int bits,
               BootMembers& members);

    void clear(); // the ground comes back
    void draw(const BootOp& op);

private:
    void ground(const BootOp& op, const QRect& area);
    void tint(const BootOp& op, const QRect& area);
    void letters(const BootOp& op, const QRect& area);
    void glyph(const Glyph& glyph, QPoint corner, QRgb colour, const QRect& area);
    void masked(const BootOp& op, const QRect& area);
    void line(QPoint from, QPoint to, QRgb colour, const QRect& area);
    void stroke(const BootOp& op, const QRect& area);
    [[nodiscard]] QRgb* row(int y) { return reinterpret_cast<QRgb*>(m_bits + y * m_stride); }

    const QImage& m_ground;
    BootMembers& m_members;
    QRect m_part;
    uchar* m_bits;
    qsizetype m_stride;
    QImage& m_screen;
    bool m_cut; // a screen of 16 bits
};

} // namespace fennel
