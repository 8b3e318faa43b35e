// SPDX-License-Identifier: MIT
// The mouse and the keys in each generation: limits, what is stored, what is written.
#include "stage_fixture.h"

using namespace fennel;
using namespace fennel::test;

namespace {

StageMouse left(QPoint at)
{
    return {at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier};
}

StageMouse held(QPoint at)
{
    return {at, Qt::NoButton, Qt::LeftButton, Qt::NoModifier};
}

StageMouse up(QPoint at, Qt::MouseButton button = Qt::LeftButton)
{
    return {at, button, Qt::NoButton, Qt::NoModifier};
}

} // namespace

TEST_F(StageTest, DragInGenerationThreeWritesRowsOnTheWay)
{
    openZuk();
    mouse.press(left({30, 40}));
    EXPECT_TRUE(mouse.Dragging() && !stage.markerVisible());
    EXPECT_TRUE(stage.SelectedPanel == 5 && host.tabObject == 5 && host.colours == 5);
    mouse.move(held({130, 90}));
    EXPECT_TRUE(rec(5).Left == 120 && rec(5).Top == 80);
    EXPECT_TRUE(value(5, 2) == 120 && value(5, 3) == 80);
    EXPECT_EQ(host.status[6], u"(120;80), 72x22, Transp.=0"_s);
    mouse.move(held({5000, 5000}));
    EXPECT_EQ(stage.panel(5).rect, QRect(728, 578, 72, 22)) << "wholly on the picture";
    mouse.move(held({-100, -100}));
    mouse.release(up({-100, -100}));
    EXPECT_TRUE(rec(5).Left == 0 && rec(5).Top == 0);
    EXPECT_EQ(stage.marker(), QRect(67, 17, 7, 7));
}

// A menu's values are never written into the gfxboot.
TEST_F(StageTest, WhatAMenuImposesCannotBePulled)
{
    openZuk();
    document.showMenuLevel(true);
    mouse.press(left({30, 40}));
    mouse.move(held({130, 90}));
    mouse.release(up({130, 90}));
    EXPECT_EQ(stage.SelectedPanel, 5);
    mouse.press(left(stage.marker().center()));
    mouse.move(held({300, 300}));
    mouse.release(up({300, 300}));
    EXPECT_TRUE(mouse.key(Qt::Key_Right, Qt::NoModifier));
    EXPECT_TRUE(rec(5).Left == 20 && rec(5).Width == 72 && value(5, 2) == 20);
    EXPECT_FALSE(document.canUndo() || document.inGesture());
}

// A window that comes up during a press takes the release.
TEST_F(StageTest, APressWithoutOtherButtonsBeginsAnewAfterALostRelease)
{
    openZuk();
    mouse.press(left({30, 40}));
    mouse.move(held({35, 40}));
    mouse.press(left({790, 590}));
    EXPECT_EQ(rec(5).Left, 25);
    EXPECT_TRUE(document.canUndo()) << "what was moved before is a step";
    EXPECT_FALSE(mouse.Dragging());
    mouse.release(up({790, 590}));
    mouse.press({{30, 40}, Qt::RightButton, Qt::RightButton, Qt::NoModifier});
    mouse.release(up({30, 40}, Qt::RightButton));
    EXPECT_FALSE(mouse.Dragging() || document.inGesture());
}

TEST_F(StageTest, StoredLengthsAtHalfScale)
{
    openZuk();
    run().PreviewScale = 0.5;
    stage.setBackground(placePicture({400, 300}));
    setPlace(5, 101, 31, 72, 22);
    stage.RefreshPanels();
    document.beginHistory();
    drag({55, 20}, {55, 20});
    EXPECT_EQ(rec(5).Left, 101) << "a click changes no number";
    EXPECT_FALSE(document.canUndo());
    drag({55, 20}, {65, 20});
    EXPECT_EQ(rec(5).Left, 120) << "shown at 60";
    EXPECT_EQ(rec(5).Top, 31);
}

TEST_F(StageTest, OldMenusReachTheRightEdgeAndWriteTheCfg)
{
    openOld(2);
    mouse.press(left({300, 180}));
    mouse.move(held({100, 100}));
    EXPECT_EQ(document.CfgValue(u"menu_start_x"), u"53"_s) << "while the mouse moves";
    mouse.move(held({1000, 1000}));
    EXPECT_EQ(stage.panel(1).rect.x(), 500) << "as wide as the bar has to be";
    mouse.move(held({200, 200}));
    mouse.release(up({200, 200}));
    EXPECT_EQ(stage.panel(0).rect, QRect(153, 190, 647, 163));
    EXPECT_TRUE(rec(0).Left == 153 && rec(1).Top == 190 && rec(0).Width == 647);
    EXPECT_EQ(document.CfgValue(u"menu_start_x"), u"153"_s);
    EXPECT_EQ(document.CfgValue(u"menu_start_y"), u"190"_s);
}

TEST_F(StageTest, RollsAreNeitherSelectedNorMoved)
{
    openOld();
    drag({100, 570}, {200, 300});
    EXPECT_EQ(stage.SelectedPanel, -1);
    EXPECT_EQ(stage.panel(2).rect, QRect(0, 555, 800, 45));
    EXPECT_FALSE(document.canUndo());
    shell.prompts.expectMessage(u"It's roll. Call DblClick"_s);
    mouse.press({{100, 570}, Qt::MiddleButton, Qt::MiddleButton, Qt::NoModifier});
    mouse.release(up({100, 570}, Qt::MiddleButton));
    mouse.press({{300, 180}, Qt::MiddleButton, Qt::MiddleButton, Qt::NoModifier});
    mouse.release(up({300, 180}, Qt::MiddleButton));
    EXPECT_EQ(shell.prompts.texts.size(), 1) << "no message on other panels";
}

TEST_F(StageTest, MenusOfTheRightButton)
{
    openOld(2);
    const auto right = [this](QPoint at) {
        mouse.press({at, Qt::RightButton, Qt::RightButton, Qt::NoModifier});
        mouse.release(up(at, Qt::RightButton));
    };
    right({100, 570}); // buttons
    right({300, 300}); // menu
    right({300, 490}); // options line: that of any object
    right({10, 10});
    EXPECT_EQ(host.menus, (std::vector<int>{2, 0, 103, -1}));
    run().GfxHasCfg = false;
    right({300, 300});
    EXPECT_EQ(host.menus.back(), 100);
}

TEST_F(StageTest, PipetteKeepsTheMouseFromPanels)
{
    openZuk();
    stage.ActivatePanel(22);
    host.pipettes = 1;
    drag({30, 40}, {200, 200});
    drag(stage.marker().center(), {600, 500});
    EXPECT_EQ(stage.SelectedPanel, 22);
    EXPECT_EQ(stage.panel(5).rect, QRect(20, 30, 72, 22));
    EXPECT_EQ(stage.panel(22).rect, QRect(200, 400, 300, 40));
    mouse.move({{30, 40}, Qt::NoButton, Qt::NoButton, Qt::NoModifier});
    EXPECT_EQ(mouse.cursor(), StageCursor::Picker);
    mouse.move({{10, 590}, Qt::NoButton, Qt::NoButton, Qt::NoModifier});
    EXPECT_EQ(host.status[5], u"Background1"_s);
}

TEST_F(StageTest, MarkerPullsThePanel)
{
    openZuk();
    stage.ActivatePanel(22);
    const QPoint corner = stage.marker().center(); // (498, 438)
    mouse.press(left(corner));
    EXPECT_FALSE(stage.markerVisible());
    EXPECT_EQ(stage.overlay().resizeBand, QRect(200, 400, 303, 43));
    mouse.move(held(corner + QPoint(50, 20)));
    EXPECT_EQ(stage.panel(22).rect, QRect(200, 400, 353, 63)) << "live, 3 larger";
    EXPECT_TRUE(stage.panel(22).plain && mouse.cursor() == StageCursor::Resize);
    EXPECT_EQ(value(22, 4), 353);
    mouse.release(up(corner + QPoint(50, 20)));
    EXPECT_TRUE(rec(22).Width == 350 && rec(22).Height == 60 && value(22, 4) == 350);
    EXPECT_EQ(stage.panel(22).rect, QRect(200, 400, 350, 60));
    EXPECT_FALSE(stage.panel(22).plain || stage.overlay().resizeBand);
    EXPECT_EQ(stage.marker(), QRect(545, 455, 7, 7));
    drag(stage.marker().center(), {0, 0});
    EXPECT_TRUE(rec(22).Width == leastSide && rec(22).Height == leastSide);
    drag(stage.marker().center(), {900, 900});
    EXPECT_EQ(stage.panel(22).rect, QRect(200, 400, 600, 200)) << "to the edges";
    EXPECT_TRUE(value(22, 4) == 600);
}

TEST_F(StageTest, MenuHeightSnapsAndIsWrittenAsEntries)
{
    openOld(2);
    stage.ActivatePanel(0);
    const QPoint corner = stage.marker().center();
    mouse.press(left(corner));
    mouse.move(held(corner + QPoint(-200, 68))); // 163 + 68 + 3 rows live
    EXPECT_EQ(stage.panel(0).rect, QRect(253, 170, 547, 234)) << "the height only";
    EXPECT_EQ(stage.panel(1).rect.width(), 547);
    mouse.release(up(corner + QPoint(-200, 68)));
    EXPECT_EQ(stage.panel(0).rect, QRect(253, 170, 547, 240)) << "231 / 20 rounds to 12 entries";
    EXPECT_EQ(document.CfgValue(u"menu_max_entries"), u"12"_s);
    EXPECT_EQ(rec(0).Height, 240);
    EXPECT_EQ(rec(1).Width, 547);
    // Another button on the way changes nothing about it.
    mouse.press(left(stage.marker().center()));
    mouse.move(held({0, 300}));
    mouse.press({{0, 300}, Qt::RightButton, Qt::LeftButton | Qt::RightButton, Qt::NoModifier});
    mouse.release({{0, 300}, Qt::RightButton, Qt::LeftButton, Qt::NoModifier});
    mouse.release(up({0, 300}));
    EXPECT_EQ(stage.panel(0).rect.height() % 20, 0);
    drag(stage.marker().center(), {0, 0});
    EXPECT_EQ(document.CfgValue(u"menu_max_entries"), u"1"_s);
    EXPECT_EQ(stage.panel(0).rect.height(), 20);
}

TEST_F(StageTest, LevelsKeepTheMenusHeightAsEntries)
{
    openZuk();
    EXPECT_EQ(rec(0).Height, 140) << "of the table, without a number of entries";
    stage.ActivatePanel(0);
    const QPoint corner = stage.marker().center();
    drag(corner, corner + QPoint(-40, 51)); // 191 / 20 lines
    EXPECT_EQ(value(0, 41), 10);
    EXPECT_TRUE(rec(0).Height == 200 && rec(0).Width == 460);
    EXPECT_EQ(stage.panel(0).rect.height(), 200);
    EXPECT_TRUE(document.undo());
    EXPECT_TRUE(value(0, 41) == 0 && rec(0).Height == 140);
    Change typed;
    typed.params[{0, 41}] = ParamValue{5, false, {}};
    EXPECT_TRUE(document.apply(typed, {}));
    EXPECT_EQ(rec(0).Height, 100);
}

TEST_F(StageTest, WhatIsSwitchedOffComesBackOnlyWithItsTab)
{
    openZuk();
    Change off;
    off.params[{0, 1}] = ParamValue{0, false, {}};
    EXPECT_TRUE(document.apply(off, {}));
    for (const auto redrawn : {&Stage::RefreshPanels, &Stage::ShowBackground}) {
        (stage.*redrawn)();
        stage.ApplyPanel(5);
        EXPECT_FALSE(stage.panel(5).visible);
        EXPECT_TRUE(stage.panel(6).visible);
    }
    host.tabObject = 5;
    stage.RefreshPanels();
    EXPECT_TRUE(stage.panel(5).visible);
}

TEST_F(StageTest, DoubleClickStepsTheLogoOnItsTab)
{
    openZuk();
    stage.setLogos({u"one"_s, u"two"_s, u"three"_s});
    const auto twice = [this](QPoint at, Qt::KeyboardModifiers keys) {
        mouse.doubleClick({at, Qt::LeftButton, Qt::LeftButton, keys});
        mouse.release({at, Qt::LeftButton, Qt::NoButton, keys});
    };
    twice({700, 50}, Qt::NoModifier);
    EXPECT_EQ(stage.LogoIndex, 0) << "another tab is open";
    host.tabObject = 4;
    twice({700, 50}, Qt::NoModifier);
    EXPECT_EQ(stage.LogoIndex, 1);
    twice({700, 50}, Qt::ShiftModifier);
    twice({700, 50}, Qt::ShiftModifier);
    EXPECT_EQ(stage.LogoIndex, 2);
    twice({30, 40}, Qt::NoModifier);
    EXPECT_EQ(stage.LogoIndex, 2) << "not on Time";
    EXPECT_FALSE(mouse.Dragging());
    stage.setLogos({});
    twice({700, 50}, Qt::NoModifier);
    EXPECT_EQ(stage.LogoIndex, 0);
}

TEST_F(StageTest, BackgroundTellsItsPixelAndDrawsTheMeasuringBand)
{
    openZuk();
    mouse.move({{10, 580}, Qt::NoButton, Qt::NoButton, Qt::NoModifier});
    EXPECT_EQ(host.status[6], u"(10;580) RGB=0x0A444E"_s);
    EXPECT_EQ(host.status[5], u"Background0"_s);
    mouse.press(left({10, 580}));
    mouse.move(held({19, 530}));
    EXPECT_EQ(host.refreshes, 1) << "19 + 530 = 549";
    EXPECT_TRUE(stage.overlay().freeBand);
    EXPECT_EQ(painted().pixel(10, 580), qRgb(245, 187, 177)) << "inverted";
    mouse.release(up({19, 530}));
    mouse.press(left({10, 580}));
    EXPECT_FALSE(stage.overlay().freeBand) << "a press clears it";
    mouse.release(up({10, 580}));
    mouse.move({{-5, 9000}, Qt::NoButton, Qt::NoButton, Qt::NoModifier});
    EXPECT_EQ(mouse.cursor(), StageCursor::Background);
}

TEST_F(StageTest, ArrowsMoveByBootPixelsAtAnyScale)
{
    openZuk();
    run().PreviewScale = 0.5;
    stage.setBackground(placePicture({400, 300}));
    stage.RefreshPanels();
    stage.ActivatePanel(5);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(mouse.key(Qt::Key_Right, Qt::NoModifier));
    EXPECT_EQ(rec(5).Left, 23);
    EXPECT_TRUE(mouse.key(Qt::Key_Down, Qt::ShiftModifier));
    EXPECT_EQ(rec(5).Top, 40);
    EXPECT_EQ(stage.panel(5).rect, QRect(12, 20, 36, 11));
    for (int i = 0; i < 10; ++i)
        mouse.key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_TRUE(rec(5).Left == 0 && value(5, 2) == 0);
    // One larger than the picture ends at its edge, above which no place is stored.
    set(5, &PanelRec::Height, 700);
    stage.RefreshPanels();
    EXPECT_TRUE(mouse.key(Qt::Key_Down, Qt::NoModifier));
    EXPECT_TRUE(rec(5).Top == 0 && value(5, rec(5).TopParam) == 0);
    document.beginHistory();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left})
        mouse.key(key, Qt::NoModifier);
    EXPECT_FALSE(document.canUndo()) << "there and back again";
    EXPECT_FALSE(mouse.key(Qt::Key_A, Qt::NoModifier));
    EXPECT_TRUE(mouse.key(Qt::Key_Escape, Qt::NoModifier));
    EXPECT_EQ(stage.SelectedPanel, -1);
    EXPECT_FALSE(mouse.key(Qt::Key_Left, Qt::NoModifier));
}

TEST_F(StageTest, EscapeTakesAGestureBack)
{
    openOld(2);
    mouse.press(left({300, 180}));
    mouse.move(held({400, 300}));
    EXPECT_TRUE(mouse.key(Qt::Key_Escape, Qt::NoModifier));
    EXPECT_FALSE(mouse.Dragging());
    EXPECT_EQ(stage.panel(0).rect, QRect(253, 170, 547, 163));
    EXPECT_EQ(rec(1).Left, 253);
    EXPECT_EQ(document.CfgValue(u"menu_start_x"), u"253"_s);
    mouse.move(held({500, 500}));
    mouse.release(up({500, 500}));
    EXPECT_EQ(stage.panel(0).rect.x(), 253);
    // The rest of the gesture does nothing, not even measure.
    mouse.press(left({10, 580}));
    mouse.key(Qt::Key_Escape, Qt::NoModifier);
    mouse.move(held({50, 500}));
    EXPECT_FALSE(stage.overlay().freeBand);
    EXPECT_TRUE(mouse.held());
    mouse.release(up({50, 500}));
    EXPECT_FALSE(mouse.held());
    stage.ActivatePanel(0);
    mouse.press(left(stage.marker().center()));
    mouse.move(held({500, 590}));
    mouse.key(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_EQ(stage.panel(0).rect, QRect(253, 170, 547, 163));
    EXPECT_EQ(document.CfgValue(u"menu_max_entries"), u"8"_s);
    EXPECT_EQ(stage.SelectedPanel, 0);
    EXPECT_FALSE(document.canUndo() || document.inGesture());
}
