// SPDX-License-Identifier: MIT
#include "desktop/boot_letters.h"

#include "desktop/boot.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fennel::test {

namespace {

constexpr int leastContrast = 100; // of letters and ground, in levels of 0 to 255

QRgb mixed(QRgb ground, QRgb ink, int level)
{
    const auto mix = [level](int from, int to) { return from + (to - from) * level / fullInk; };
    return qRgb(mix(qRed(ground), qRed(ink)), mix(qGreen(ground), qGreen(ink)),
                mix(qBlue(ground), qBlue(ink)));
}

} // namespace

TextLine::TextLine(const FntFont& font, const QString& text)
{
    for (const QChar letter : text)
        add(font, letter.unicode());
}

void TextLine::add(const FntFont& font, char16_t code)
{
    for (const Glyph& glyph : font.glyphs) {
        if (glyph.code != code)
            continue;
        const int top = -glyph.yOffset - glyph.height;
        for (std::size_t i = 0; i < glyph.pixels.size(); ++i) {
            const int row = static_cast<int>(i) / glyph.width;
            const int column = static_cast<int>(i) % glyph.width;
            put({m_pen + glyph.xOffset + column, top + row}, glyph.pixels[i]);
        }
        m_pen += glyph.advance;
        ++m_letters;
    }
}

// A letter may reach over its neighbour: the ink of both counts there.
void TextLine::put(QPoint at, int level)
{
    const auto old = std::ranges::find(m_dots, at, &Dot::at);
    if (old == m_dots.end())
        m_dots.push_back({at, level});
    else
        old->level = fullInk - (fullInk - old->level) * (fullInk - level) / fullInk;
}

int TextLine::misfit(const QImage& screen, const QImage& ground, QPoint place, int enough) const
{
    const auto full = std::ranges::find(m_dots, int{fullInk}, &Dot::level);
    if (full == m_dots.end() || !screen.rect().contains(place + full->at))
        return 255;
    const QPoint inked = place + full->at;
    const QRgb ink = screen.pixel(inked);
    // Where there are no letters, the ground would pass for ink of its own colour.
    if (difference(ink, ground.pixel(inked)) < leastContrast)
        return 255;
    int worst = 0;
    for (const Dot& dot : m_dots) {
        const QPoint at = place + dot.at;
        if (!screen.rect().contains(at))
            return 255;
        worst =
            std::max(worst, difference(screen.pixel(at), mixed(ground.pixel(at), ink, dot.level)));
        if (worst > enough)
            break;
    }
    return worst;
}

TextLine::Found TextLine::find(const QImage& screen, const QImage& ground, const QRect& area) const
{
    Found best;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const int here = misfit(screen, ground, {x, y}, best.misfit);
            if (here < best.misfit)
                best = {here, {x, y}};
        }
    }
    return best;
}

FntFont fontOf(const QByteArray& file)
{
    const auto font = decodeFnt({reinterpret_cast<const std::uint8_t*>(file.constData()),
                                 static_cast<std::size_t>(file.size())});
    EXPECT_TRUE(font.ok());
    return font ? *font : FntFont();
}

} // namespace fennel::test
