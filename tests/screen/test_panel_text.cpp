// SPDX-License-Identifier: MIT
// The words on panels: where lines break, where they stand, which buttons are seen.
#include "screen/panel_text.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// Ten pixels a character.
double tens(QStringView text)
{
    return 10.0 * static_cast<double>(text.size());
}

bool all(int)
{
    return true;
}

TextJob job(int index, const QString& text)
{
    return {index, text, qRgb(1, 2, 3), 14, index == 0 ? 3 : 0, QPoint(), 1000, 800};
}

} // namespace

TEST(Wrap, BreaksAtBlanksBeforeTheLimitAndLongWordsStandAlone)
{
    EXPECT_EQ(WrapPanelText(u"one two three"_s, 1000, tens), u"one two three|"_s);
    EXPECT_EQ(WrapPanelText(u"one two three"_s, 80, tens), u"one two|three|"_s);
    EXPECT_EQ(WrapPanelText(u"one two three"_s, 70, tens), u"one|two|three|"_s)
        << "a line as wide as the panel has reached it";
    EXPECT_EQ(WrapPanelText(u"Glasses|Panel|"_s, 1000, tens), u"Glasses|Panel||"_s);
    EXPECT_EQ(WrapPanelText(u"a incomprehensible b"_s, 50, tens), u"a|incomprehensible|b|"_s);
    EXPECT_EQ(WrapPanelText(u"a b"_s, -20, tens), u"a|b|"_s);
    EXPECT_EQ(WrapPanelText({}, 0, tens), u"|"_s);
}

TEST(Buttons, MoveUpWhenOthersAreHidden)
{
    const auto noHelp = [](int item) { return item > 1; };
    const auto noPower = [](int item) { return item < 7; };
    EXPECT_EQ(ButtonX(2, 800, all), 83);
    EXPECT_EQ(ButtonX(2, 800, noHelp), 10);
    EXPECT_EQ(ButtonX(3, 800, noHelp), 33);
    EXPECT_EQ(ButtonX(5, 800, noPower), 675);
    EXPECT_EQ(ButtonX(6, 800, noPower), 709);
}

TEST(Layout, LinesStandAPitchApart)
{
    const auto menu =
        layOutText(job(0, u" BOOT DOS\r\n BOOT XP||REBOOT"_s), StageScale(1), tens, all);
    ASSERT_EQ(menu.size(), 3U);
    EXPECT_EQ(menu[1].at, QPoint(0, 20));
    EXPECT_EQ(menu[2].at, QPoint(0, 60)) << "an empty line takes its place";
    EXPECT_EQ(menu[2].colour, qRgb(1, 2, 3));
    const auto name = layOutText(job(23, u"Glasses|Panel|"_s), StageScale(0.25), tens, all);
    ASSERT_EQ(name.size(), 2U);
    EXPECT_EQ(name[1].at, QPoint(0, 4)) << "17 x 0.25, without the slit";
}

TEST(Layout, OnlyLinesThatAreSeenAreLaidOut)
{
    int measured = 0;
    const auto counting = [&measured](QStringView text) {
        measured += static_cast<int>(text.size());
        return tens(text);
    };
    for (const QString& line : {u"some words\r\n"_s, u"some words without any end "_s}) {
        TextJob long1Mb = job(8, line.repeated(50'000));
        TextJob shortOne = job(8, line.repeated(40));
        for (TextJob* text : {&long1Mb, &shortOne})
            text->width = 120;
        shortOne.height = long1Mb.height = 100; // 17 x 5 is above it, 17 x 6 below
        const auto seen = layOutText(long1Mb, StageScale(1), counting, all);
        shortOne.height = 0;
        const auto whole = layOutText(shortOne, StageScale(1), tens, all);
        ASSERT_EQ(seen.size(), 6U);
        ASSERT_GT(whole.size(), 6U);
        for (std::size_t i = 0; i < seen.size(); ++i) {
            EXPECT_EQ(seen[i].text, whole[i].text);
            EXPECT_EQ(seen[i].at, whole[i].at);
        }
    }
    EXPECT_LT(measured, 5000);
}

TEST(Layout, ButtonBarHasTwoRowsAndTwoColours)
{
    const auto pieces = layOutText(job(2, buttonBarText), StageScale(2), tens, all);
    ASSERT_EQ(pieces.size(), 9U);
    EXPECT_EQ(pieces[4].at, QPoint(216, 36)); // (17 + 1) x 2
    EXPECT_EQ(pieces[8].at, QPoint(1418, 2));
    const auto noLang = [](int item) { return item < 2 || item > 4; };
    EXPECT_EQ(layOutText(job(2, buttonBarText), StageScale(1), tens, noLang).size(), 6U);
    EXPECT_TRUE(layOutText(job(2, u"|||||||||||F1"_s), StageScale(1), tens, all).empty())
        << "more items than the bar has";
}
