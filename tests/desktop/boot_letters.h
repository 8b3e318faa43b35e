// SPDX-License-Identifier: MIT
// A line of text on a boot screen, found by the bits of the font that it was drawn with.
#pragma once

#include "fonts/fnt_codec.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <vector>

namespace fennel::test {

class TextLine {
public:
    TextLine(const FntFont& font, const QString& text);

    struct Found {
        int misfit = 255; // the most that any pixel differs from the drawing there, 0 to 255
        QPoint at;        // of the pen's start, on the baseline
    };
    // The place of the pen inside `area` where the line fits best over the ground.
    [[nodiscard]] Found find(const QImage& screen, const QImage& ground, const QRect& area) const;
    [[nodiscard]] int letters() const { return m_letters; } // those that the font has

private:
    struct Dot {
        QPoint at; // from the pen's start on the baseline, y downwards
        int level = 0;
    };
    void add(const FntFont& font, char16_t code);
    void put(QPoint at, int level);
    [[nodiscard]] int misfit(const QImage& screen, const QImage& ground, QPoint place,
                             int enough) const;

    std::vector<Dot> m_dots;
    int m_letters = 0;
    int m_pen = 0;
};

// A font file that the test counts on.
FntFont fontOf(const QByteArray& file);

} // namespace fennel::test
