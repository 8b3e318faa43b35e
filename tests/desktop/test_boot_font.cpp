// SPDX-License-Identifier: MIT
// A font made by the font tool, as the engine draws it: pixel for pixel what the font file holds.
#include "desktop/boot.h"
#include "fonts/char_sets.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_making.h"
#include "support/test_shell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// Levels of ink of a line of text, drawn from the font's own bits.
class Line {
public:
    Line(const FntFont& font, const QString& text)
    {
        for (const QChar letter : text)
            add(font, letter.unicode());
    }
    struct Dot {
        QPoint at; // from the pen's start on the baseline, y downwards
        int level = 0;
    };
    std::vector<Dot> dots;
    int letters = 0;

private:
    void add(const FntFont& font, char16_t code)
    {
        for (const Glyph& glyph : font.glyphs) {
            if (glyph.code != code)
                continue;
            const int top = -glyph.yOffset - glyph.height;
            for (std::size_t i = 0; i < glyph.pixels.size(); ++i) {
                const int row = static_cast<int>(i) / glyph.width;
                const int column = static_cast<int>(i) % glyph.width;
                dots.push_back({{m_pen + glyph.xOffset + column, top + row}, glyph.pixels[i]});
            }
            m_pen += glyph.advance;
            ++letters;
        }
    }
    int m_pen = 0;
};

constexpr int leastContrast = 100; // of letters and ground, in levels of 0 to 255

int farthest(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

QRgb mixed(QRgb ground, QRgb ink, int level)
{
    const auto mix = [level](int from, int to) { return from + (to - from) * level / fullInk; };
    return qRgb(mix(qRed(ground), qRed(ink)), mix(qGreen(ground), qGreen(ink)),
                mix(qBlue(ground), qBlue(ink)));
}

// The most that any pixel of the line differs from the screen if the line stands at that place. The
// engine decodes the background a little differently, and rounds.
int misfit(const QImage& screen, const QImage& ground, const Line& line, QPoint place, int enough)
{
    const auto full = std::ranges::find(line.dots, int{fullInk}, &Line::Dot::level);
    const QPoint inked = place + full->at;
    const QRgb ink = screen.pixel(inked);
    // Where there are no letters, the ground would pass for ink of its own colour.
    if (farthest(ink, ground.pixel(inked)) < leastContrast)
        return 255;
    int worst = 0;
    for (const Line::Dot& dot : line.dots) {
        const QPoint at = place + dot.at;
        if (!screen.rect().contains(at))
            return 255;
        worst =
            std::max(worst, farthest(screen.pixel(at), mixed(ground.pixel(at), ink, dot.level)));
        if (worst > enough)
            break;
    }
    return worst;
}

int bestFit(const QImage& screen, const QImage& ground, const Line& line)
{
    int best = 255;
    for (int y = 150; y < 400; ++y)
        for (int x = 200; x < 400; ++x)
            best = std::min(best, misfit(screen, ground, line, {x, y}, best));
    return best;
}

} // namespace

TEST(BootFont, TheMenuStandsInTheChosenFontCyrillicIncluded)
{
    TestShell shell;
    FontChoice choice;
    choice.family = u"DejaVu Serif"_s;
    choice.bold = true;
    choice.fileName = u"DejaVuSerif-Bold.ttf"_s;
    choice.size = 16;
    choice.FontSpaceWidth = 9;
    choice.FontLetterSpace = 2;
    ASSERT_TRUE(BuildFont(shell.shell, startingCharacters(), choice, 96));
    const QByteArray file = bytesOf(shell.run.Workspace + newFontFile);
    const auto font = decodeFnt({reinterpret_cast<const std::uint8_t*>(file.constData()),
                                 static_cast<std::size_t>(file.size())});
    ASSERT_TRUE(font);

    const QTemporaryDir folder;
    const Message message({}, file);
    const QStringList entries{u"Boot from this stick"_s, u"Boot from hard disk"_s,
                              u"Проверка памяти"_s, u"Перезагрузка"_s};
    const Boot booted = boot(message.saveIn(folder), QStringList{u"--menu"_s} + entries);
    if (booted.code == skipped)
        GTEST_SKIP() << booted.told.toStdString();
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    // The first entry stands on the bar.
    for (const QString& entry : entries.mid(1)) {
        const Line line(*font, entry);
        EXPECT_EQ(line.letters, entry.size());
        const int fit = bestFit(booted.screen, message.background, line);
        RecordProperty("fit of " + entry.toStdString(), fit);
        EXPECT_LE(fit, 24) << entry.toStdString();
    }
    // The measure would tell other words, and the same words spaced otherwise.
    EXPECT_GT(bestFit(booted.screen, message.background, Line(*font, u"Проверка почты"_s)), 60);
    FntFont wider = *font;
    for (Glyph& glyph : wider.glyphs)
        ++glyph.advance;
    EXPECT_GT(bestFit(booted.screen, message.background, Line(wider, entries[2])), 60);
}
