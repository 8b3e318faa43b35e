// SPDX-License-Identifier: MIT
// What the stage shows: pixels of blended panels computed by hand, which panels are seen, in which
// order they lie.
#include "editor/stage/pulse.h"
#include "screen/panel_text.h"
#include "stage_fixture.h"

#include <algorithm>

using namespace fennel;
using namespace fennel::test;

TEST_F(StageTest, TenPlacesOfBlendedPanels)
{
    openOld();
    set(0, &PanelRec::BackColor, qRgb(10, 200, 30));
    set(0, &PanelRec::Transp, 200);
    set(2, &PanelRec::Transp, 128);
    set(3, &PanelRec::Transp, 0);
    stage.RefreshPanels();
    const QImage image = painted();
    const std::tuple<int, int, QRgb> places[] = {
        {10, 10, qRgb(10, 10, 20)},      // the background
        {252, 180, qRgb(252, 180, 176)}, // the last column before the bar
        {253, 170, qRgb(254, 232, 231)}, // the bar's corner: white at 70 over (253, 170, 167)
        {300, 180, qRgb(197, 234, 246)}, // white at 70 over (44, 180, 224)
        {799, 192, qRgb(194, 238, 246)}, // the bar's last pixel, over (31, 192, 223)
        {700, 193, qRgb(150, 195, 105)}, // the menu right below, over (188, 193, 125)
        {700, 320, qRgb(150, 93, 204)},  // (10, 200, 30) at 200 over (188, 64, 252)
        {799, 332, qRgb(26, 103, 90)},   // the menu's last pixel, over (31, 76, 107)
        {799, 333, qRgb(31, 77, 108)},   // below the menu
        {500, 490, qRgb(128, 128, 128)}, // transparency 0: the pure fill
        {400, 560, qRgb(136, 88, 160)},  // grey at 128 over (144, 48, 192)
    };
    for (const auto& [x, y, colour] : places)
        EXPECT_EQ(image.pixel(x, y), colour) << x << "," << y;
}

TEST_F(StageTest, VisibilityInGenerationThree)
{
    openZuk();
    const auto seen = [this] {
        QStringList all;
        for (int index = 0; index < 40; ++index)
            all << (stage.panel(index).visible ? QStringList{QString::number(index)}
                                               : QStringList());
        return all.join(u' ');
    };
    EXPECT_EQ(seen(), u"0 1 4 5 6 22 23 24 25 39"_s);
    host.tabObject = 7;
    stage.RefreshPanels();
    for (const int index : {2, 3}) { // never in generation 3
        stage.DrawPanel(index);
        stage.showPanel(index, true);
    }
    EXPECT_EQ(seen(), u"0 1 4 5 6 7 22 23 24 25 39"_s) << "7 with its tab";
    stage.showPanel(7, false);
    EXPECT_EQ(seen(), u"0 1 4 5 6 22 23 24 25 39"_s);
}

TEST_F(StageTest, BootShowRulesTheOptionsLine)
{
    openOld(2);
    set(3, &PanelRec::Transp, 0);
    stage.DrawPanel(3);
    EXPECT_EQ(painted().pixel(500, 490), qRgb(128, 128, 128));
    setCfg(u"boot_show", {});
    set(3, &PanelRec::BackColor, qRgb(1, 2, 3));
    stage.DrawPanel(3);
    stage.RefreshPanels();
    EXPECT_TRUE(stage.panel(3).visible);
    EXPECT_EQ(painted().pixel(500, 490), qRgb(128, 128, 128)) << "keeps its last look";
    setCfg(u"boot_show", 0);
    stage.DrawPanel(3);
    EXPECT_FALSE(stage.panel(3).visible);
    setCfg(u"boot_show", 1);
    stage.RefreshPanels();
    EXPECT_EQ(painted().pixel(500, 490), qRgb(1, 2, 3));
}

TEST_F(StageTest, UpperPanelsHideLowerOnesAndSelectionRaises)
{
    openZuk();
    setPlace(5, 100, 200, 100, 100); // Time on the menu
    set(0, &PanelRec::Transp, 0);
    set(0, &PanelRec::BackColor, qRgb(9, 9, 9));
    set(1, &PanelRec::Transp, 255);
    set(5, &PanelRec::Transp, 255);
    stage.RefreshPanels();
    EXPECT_EQ(painted().pixel(150, 290), qRgb(150, 34, 184)) << "background, not the menu";
    stage.SelectPanel(1);
    EXPECT_EQ(painted().pixel(150, 290), qRgb(9, 9, 9));
    EXPECT_EQ(painted().pixel(150, 210), qRgb(150, 210, 104)) << "the bar above its menu";
    stage.raisePanel(5);
    EXPECT_EQ(stage.stacking().back(), 5);
    EXPECT_EQ(stage.panelAt({150, 210}), 5);
    set(5, &PanelRec::Enabled, false);
    EXPECT_EQ(stage.panelAt({150, 210}), 1) << "a disabled panel lets the mouse through";
}

TEST_F(StageTest, PlacesOffTheScreenAndStrangeSizes)
{
    openZuk();
    setPlace(5, -30, -10, 72, 22);
    setPlace(4, 32000, 32000, 32767, 32767);
    setPlace(22, 10, 10, 0, -7);
    setPlace(0, -32768, -32768, 32767, 32767);
    set(5, &PanelRec::Transp, 300);
    document.setText(5, u"Time|"_s);
    document.setMenuValues([](ZUKarr& table) { table.at(0, 9).Value->number = 4'000'000'000; });
    run().PreviewScale = 2;
    stage.RefreshPanels();
    const QImage image = painted();
    EXPECT_NE(image.pixel(0, 0), qRgb(255, 0, 255));
    EXPECT_EQ(stage.panelAt({20, 20}), 5);
    for (const int index : {-1, 40, 32767}) {
        stage.DrawPanel(index);
        stage.ApplyPanel(index);
        stage.raisePanel(index);
        stage.showPanel(index, true);
        stage.ShowMarker(index, 0);
        stage.ActivatePanel(index);
    }
    EXPECT_EQ(stage.SelectedPanel, -1);
}

TEST_F(StageTest, TextStaysInItsPanelAndTakesItsColour)
{
    openOld(2);
    set(0, &PanelRec::Transp, 0);
    set(2, &PanelRec::Transp, 0);
    set(0, &PanelRec::TextColor, qRgb(255, 0, 0));
    document.setMenuEntries(embeddedMenu);
    document.setText(2, buttonBarText);
    stage.RefreshPanels();
    EXPECT_EQ(rec(1).Text, u"RECALL Menu.lst"_s);
    EXPECT_TRUE(rec(0).Text.startsWith(u" | BOOT DOS from this flash| BOOT"));
    const QImage image = painted();
    const auto red = [&](const QRect& area) {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                count += qRed(image.pixel(x, y)) > 150 && qBlue(image.pixel(x, y)) < 110;
        }
        return count;
    };
    EXPECT_GT(red({253, 213, 300, 20}), 50) << "third line, two pitches of 20 below the first";
    EXPECT_EQ(red({253, 332, 547, 1}), 0);
    EXPECT_EQ(host.captions[1], u"Hide F1 button"_s);
    setCfg(u"hide_poweroff", 1);
    stage.DrawPanel(2);
    EXPECT_EQ(host.captions[7], u"Show F10 button"_s);
}

TEST_F(StageTest, LogosAreShownInTheirPanel)
{
    openZuk();
    stage.setLogos({shell.picture(u"red.png"_s, {12, 6}, qRgb(255, 0, 0)),
                    shell.picture(u"blue.png"_s, {12, 6}, qRgb(0, 0, 255))});
    stage.DrawPanel(4);
    EXPECT_EQ(painted().pixel(769, 79), qRgb(255, 0, 0)) << "to the panel's last pixel";
    stage.showLogo(1);
    EXPECT_EQ(painted().pixel(700, 50), qRgb(0, 0, 255));
    stage.showLogo(7);
    EXPECT_EQ(stage.LogoIndex, 1) << "no such logo";
    stage.setLogos({});
    stage.DrawPanel(4);
    EXPECT_EQ(painted().pixel(700, 50), qRgb(188, 50, 238)) << "the background again";
}

TEST_F(StageTest, TabWalksThroughTheObjects)
{
    openZuk();
    QList<int> walked;
    for (int i = 0; i < 9; ++i) {
        stage.SelectNextPanel(false);
        walked << stage.SelectedPanel;
    }
    EXPECT_EQ(walked, (QList<int>{0, 1, 4, 5, 6, 7, 8, 22, 23}));
    stage.SelectNextPanel(true);
    EXPECT_EQ(stage.SelectedPanel, 22);
    EXPECT_EQ(host.tabObject, 22);
    // Tab 13, as the host says: 220 x 13 ^ (log 2 / log 12)
    EXPECT_NEAR(host.tones.back(), 449.9, 0.1);
    run().GfxOpened = false;
    stage.SelectNextPanel(false);
    EXPECT_EQ(stage.SelectedPanel, 22) << "nothing open, nothing activated";
    EXPECT_FALSE(document.canUndo()) << "neither selecting nor drawing is a step";
}
