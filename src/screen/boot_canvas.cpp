// SPDX-License-Identifier: MIT
#include "screen/boot_canvas.h"

#include "screen/blend.h"
#include "screen/boot_jpeg.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace fennel {

namespace {

// `share` of 256 steps is the colour's.
constexpr int mixed(int below, int above, int share)
{
    return below + (((above - below) * share) >> 8);
}

constexpr QRgb mixed(QRgb below, QRgb above, int share)
{
    return qRgb(mixed(qRed(below), qRed(above), share), mixed(qGreen(below), qGreen(above), share),
                mixed(qBlue(below), qBlue(above), share));
}

// From 0 to 255 to the machine's 256 steps.
constexpr int steps(int value)
{
    const int known = std::clamp(value, 0, 255);
    return known >= 128 ? known + 1 : known;
}

constexpr QRgb lighter(QRgb colour)
{
    return 0xff000000U | (((colour >> 1U) & 0x7f7f7fU) + 0x808080U);
}

constexpr QRgb darker(QRgb colour)
{
    return 0xff000000U | ((colour >> 1U) & 0x7f7f7fU);
}

} // namespace

BootCanvas::BootCanvas(QImage& screen, const QImage& ground, const QRect& part, int bits,
                       BootMembers& members)
    : m_ground(ground), m_members(members), m_part(part & screen.rect()), m_bits(screen.bits()),
      m_stride(screen.bytesPerLine()), m_screen(screen), m_cut(bits == 16)
{
}

void BootCanvas::clear()
{
    const auto bytes = static_cast<std::size_t>(m_part.width()) * sizeof(QRgb);
    for (int y = m_part.top(); y <= m_part.bottom(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(m_ground.constScanLine(y));
        std::memcpy(row(y) + m_part.left(), from + m_part.left(), bytes);
    }
}

void BootCanvas::draw(const BootOp& op)
{
    const QRect area = op.area & m_part;
    if (area.isEmpty())
        return;
    switch (op.kind) {
    case BootOp::Ground:
        ground(op, area);
        break;
    case BootOp::Tint:
        tint(op, area);
        break;
    case BootOp::Text:
        letters(op, area);
        break;
    case BootOp::Masked:
        masked(op, area);
        break;
    case BootOp::Line:
        line(op.at, op.to, op.colour, area);
        break;
    case BootOp::Stroke:
        stroke(op, area);
        break;
    }
    if (m_cut)
        cutTo16Bits(m_screen, area);
}

void BootCanvas::ground(const BootOp& op, const QRect& area)
{
    QImage mix;
    blendPanel(m_ground, area, op.colour, blendAlpha(op.transparency), mix);
    const auto bytes = static_cast<std::size_t>(area.width()) * sizeof(QRgb);
    for (int y = 0; y < area.height(); ++y)
        std::memcpy(row(area.top() + y) + area.left(), mix.constScanLine(y), bytes);
}

void BootCanvas::tint(const BootOp& op, const QRect& area)
{
    const int share = 256 - steps(op.transparency);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        QRgb* pixels = row(y);
        for (int x = area.left(); x <= area.right(); ++x)
            pixels[x] = mixed(pixels[x], op.colour, share);
    }
}

void BootCanvas::letters(const BootOp& op, const QRect& area)
{
    const BootFont& font = m_members.font(op.font);
    QPoint pen(op.at.x(), op.at.y() + font.height() - font.baseline());
    for (const char32_t code : op.text.toUcs4()) {
        if (pen.x() > area.right() + 255)
            return; // no glyph reaches back from there
        const Glyph* found = font.glyph(code);
        if (found == nullptr)
            continue;
        glyph(*found, pen + QPoint(found->xOffset, -found->yOffset - found->height), op.colour,
              area);
        pen.rx() += found->advance;
    }
}

void BootCanvas::glyph(const Glyph& glyph, QPoint corner, QRgb colour, const QRect& area)
{
    const QRect seen = QRect(corner, QSize(glyph.width, glyph.height)) & area;
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        const auto line =
            static_cast<std::size_t>(y - corner.y()) * static_cast<std::size_t>(glyph.width);
        QRgb* pixels = row(y);
        for (int x = seen.left(); x <= seen.right(); ++x) {
            const int level = glyph.pixels[line + static_cast<std::size_t>(x - corner.x())];
            if (level > 0)
                pixels[x] = mixed(pixels[x], colour, level * 256 / fullInk);
        }
    }
}

// Each channel of the mask tells how much of that channel is seen.
void BootCanvas::masked(const BootOp& op, const QRect& area)
{
    const QImage mask = m_members.picture(op.mask);
    const QImage picture = op.text.isEmpty() ? QImage() : m_members.picture(op.text);
    QRect part = area & QRect(op.at, mask.size() - QSize(op.from.x(), op.from.y()));
    if (!op.text.isEmpty())
        part &= QRect(op.at, picture.size() - QSize(op.from.x(), op.from.y()));
    const QPoint shift = op.from - op.at;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        QRgb* pixels = row(y);
        for (int x = part.left(); x <= part.right(); ++x) {
            const QPoint inside = QPoint(x, y) + shift;
            const QRgb share = mask.pixel(inside);
            const QRgb above = picture.isNull() ? op.colour : picture.pixel(inside);
            pixels[x] = qRgb(mixed(qRed(pixels[x]), qRed(above), steps(qRed(share))),
                             mixed(qGreen(pixels[x]), qGreen(above), steps(qGreen(share))),
                             mixed(qBlue(pixels[x]), qBlue(above), steps(qBlue(share))));
        }
    }
}

void BootCanvas::line(QPoint from, QPoint to, QRgb colour, const QRect& area)
{
    const QPoint way = to - from;
    const int wide = std::abs(way.x());
    const int high = std::abs(way.y());
    const QPoint stepX(way.x() < 0 ? -1 : 1, 0);
    const QPoint stepY(0, way.y() < 0 ? -1 : 1);
    const bool level = wide >= high;
    const int length = level ? wide : high;
    const int minor = level ? high : wide;
    int error = length / 2;
    QPoint at = from;
    // Of two pixels that are as near the machine takes the further one.
    for (int i = 0; i <= length; ++i) {
        if (area.contains(at))
            row(at.y())[at.x()] = colour | 0xff000000U;
        at += level ? stepX : stepY;
        error -= minor;
        if (error <= 0) {
            error += length;
            at += level ? stepY : stepX;
        }
    }
}

void BootCanvas::stroke(const BootOp& op, const QRect& area)
{
    const bool known = m_part.contains(op.middle);
    const QRgb below = known ? row(op.middle.y())[op.middle.x()] : op.colour;
    const int a = blendAlpha(op.transparency);
    const QRgb colour = qRgb(blendChannel(qRed(below), qRed(op.colour), a),
                             blendChannel(qGreen(below), qGreen(op.colour), a),
                             blendChannel(qBlue(below), qBlue(op.colour), a));
    const QPoint aside = op.upright ? QPoint(0, 1) : QPoint(1, 0);
    const QPoint first = -(op.brush / 2) * aside;
    for (int i = 0; i < op.brush; ++i) {
        QRgb shade = colour;
        if (op.depth && i == 0)
            shade = lighter(colour);
        else if (op.depth && i == op.brush - 1)
            shade = darker(colour);
        line(op.at + first + i * aside, op.to + first + i * aside, shade, area);
    }
}

} // namespace fennel
