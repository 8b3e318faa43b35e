// SPDX-License-Identifier: MIT
// A new boot screen from its making to the file and back.
#include "support/story.h"

#include "editor/stage/stage_link.h"
#include "params/object_table.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Generation3, ValuesOfEveryKindComeBackFromTheFile)
{
    Story story;
    story.makeNew();
    ASSERT_TRUE(story.run().GfxHasZuk);
    const auto before = membersOf(story.run().GfxPath);

    story.goToAllTabs();

    story.goToTab(u"Time"_s);
    story.type(u":02:="_s, u"123"_s);
    story.type(u":06:="_s, u"0xff00"_s);
    EXPECT_EQ(story.value(u":06:="_s), u"0x00FF00"_s);
    story.type(u":03:="_s, u"45abc"_s);
    story.type(u":08:="_s, u"0x1234567"_s);
    EXPECT_EQ(story.value(u":08:="_s), u"0x234567"_s);
    EXPECT_EQ(story.lists().PanelArr[5].BackColor, qRgb(0, 255, 0));
    story.goToTab(u"Date"_s);
    story.type(u":11:="_s, u"0"_s);
    EXPECT_EQ(story.list().row(2)->colour, greyRow);
    story.goToTab(u"Animation"_s);
    story.type(u":01:="_s, u"nonsense"_s);

    const QString path = story.shell.path(u"saved file"_s);
    story.saveAs(path, true);
    const QString saved = story.shell.path(u"saved_file.gz"_s);
    ASSERT_TRUE(FileExists(saved));
    EXPECT_EQ(story.run().GfxFileName, u"saved_file.gz"_s);

    auto members = membersOf(saved);
    const auto general = recordsOf(members[u"ZUK0000.CFG"_s]);
    EXPECT_EQ(general.at(2), 123);
    EXPECT_EQ(general.at(3), 45);
    EXPECT_EQ(general.at(6), 0x00ff00);
    EXPECT_EQ(general.at(8), 0x234567);
    EXPECT_EQ(general.at(11), 0);
    EXPECT_EQ(recordsOf(members[u"ZUK0008.CFG"_s]).at(1), 0);
    for (const auto& name : {u"ZUK0001.CFG"_s, u"ZUK0002.CFG"_s, u"ZUK0003.CFG"_s, u"ZUK0006.CFG"_s,
                             u"ZUK0015.CFG"_s, u"init"_s, u"back.jpg"_s})
        EXPECT_EQ(members[name], before.at(name)) << name.toStdString();

    Story other;
    other.open(saved);
    EXPECT_TRUE(other.run().GfxIsGz);
    other.goToTab(u"Time"_s);
    EXPECT_EQ(other.value(u":02:="_s), u"123"_s);
    EXPECT_EQ(other.value(u":06:="_s), u"0x00FF00"_s);
    other.goToTab(u"Date"_s);
    EXPECT_EQ(other.value(u":11:="_s), u"0"_s);
}

TEST(Generation3, WhatTheMouseDoesStandsInRowsAndFile)
{
    constexpr int time = 5;
    constexpr int runLine = 22;
    Story story;
    story.makeNew();

    story.drag(story.middleOf(time), story.middleOf(time) + QPoint(-40, 25));
    EXPECT_EQ(story.lists().tabs[static_cast<std::size_t>(story.lists().CurrentTab)].caption,
              u"Time"_s);
    EXPECT_EQ(story.value(u":02:="_s), u"275"_s);
    EXPECT_EQ(story.value(u":03:="_s), u"115"_s);

    story.click(story.middleOf(runLine));
    const QString width = story.value(u":04:="_s);
    const QPoint marker = story.window.stageLink().stage().marker().center();
    story.drag(marker, marker + QPoint(-60, 10));
    EXPECT_EQ(story.value(u":04:="_s).toInt(), width.toInt() - 60);

    // The bar takes its menu along.
    story.drag(story.middleOf(MenuBarRow), story.middleOf(MenuBarRow) + QPoint(30, -20));
    EXPECT_EQ(story.lists().PanelArr[MenuPanelRow].Left, 283);
    EXPECT_EQ(story.lists().PanelArr[MenuPanelRow].Top, 150);
    story.goToTab(u"MenuPanel"_s);
    EXPECT_EQ(story.value(u":42:="_s), u"283"_s);

    // The logo has the size of its mask.
    story.click(story.middleOf(LogoPanelRow));
    const QRect logo = story.window.stageLink().stage().panel(LogoPanelRow).rect;
    const QPoint corner = story.window.stageLink().stage().marker().center();
    story.drag(corner, corner + QPoint(40, 40));
    EXPECT_EQ(story.window.stageLink().stage().panel(LogoPanelRow).rect, logo);

    story.press(Qt::Key_Right);
    story.press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(story.value(u":32:="_s).toInt(), logo.left() + 1);
    EXPECT_EQ(story.value(u":33:="_s).toInt(), logo.top() + 10);

    const QString path = story.shell.path(u"moved"_s);
    story.saveAs(path, false);
    auto members = membersOf(path);
    const auto general = recordsOf(members[u"ZUK0000.CFG"_s]);
    EXPECT_EQ(general.at(2), 275);
    EXPECT_EQ(general.at(42), 283);
    EXPECT_EQ(general.at(33), logo.top() + 10);
    EXPECT_EQ(recordsOf(members[u"ZUK0002.CFG"_s]).at(4), width.toInt() - 60);
}
