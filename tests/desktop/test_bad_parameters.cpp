// SPDX-License-Identifier: MIT
// Parameters as they should not be, and disks and tools that fail, through the whole window.
#include "support/bin_folder.h"
#include "support/story.h"

#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "params/object_table.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

std::map<QString, QByteArray> templateMembers()
{
    return membersOf(fennel::test::binFolder() + QStringLiteral("/data/GFX.GZ"));
}

std::map<QString, QByteArray> generation2Members(const QByteArray& cfg)
{
    auto members = templateMembers();
    for (int file = 0; file < zukFileCount; ++file)
        members.erase(levelFileName(file));
    members[u"gfxboot.cfg"_s] = cfg;
    return members;
}

void clickRow(Story& story, int row)
{
    QAbstractItemView* view = &story.view();
    const QRect place = view->visualRect(view->model()->index(row - 1, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place.center());
}

} // namespace

TEST(Rows, ThatAreGreyAreSteppedOverByMouseAndKeyboard)
{
    Story story;
    story.makeNew();
    story.goToTab(u"Time"_s);
    story.type(u":01:="_s, u"0"_s);
    clickRow(story, 3);
    EXPECT_EQ(story.lists().CurrentRow, 1);
    const QItemSelectionModel* selection = story.view().selectionModel();
    ASSERT_EQ(selection->selectedRows().size(), 1);
    EXPECT_EQ(selection->selectedRows().front().row(), 0);
    QTest::keyClick(&story.view(), Qt::Key_Down);
    EXPECT_EQ(story.lists().CurrentRow, 1);
    ASSERT_EQ(selection->selectedRows().size(), 1);
    EXPECT_EQ(selection->selectedRows().front().row(), 0);
}

TEST(Rows, ShowTheirPopUpForTheRightButtonOnly)
{
    Story story;
    story.makeNew();
    story.goToTab(u"Gfxboot"_s);
    clickRow(story, 1);
    QAbstractItemView* view = &story.view();
    const QRect place = view->visualRect(view->model()->index(2, 0));
    // The pop-up takes the mouse, so the list never hears of the release.
    QTest::mousePress(view->viewport(), Qt::RightButton, {}, place.center());
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QTest::mouseRelease(popup, Qt::RightButton, {}, {-9, -9});
    popup->close();
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(story.lists().CurrentRow, 4);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(Rows, KeepTypedValuesWhenFilesOfTheirTabChange)
{
    Story story;
    story.makeNew();
    story.goToTab(u"LOGO"_s);
    story.type(u":32:="_s, u"11"_s);
    ASSERT_TRUE(story.shell.files
                    .copy(story.run().Workspace + u"Logo_00.jpg"_s,
                          story.run().Workspace + u"Logo_01.jpg"_s)
                    .ok());
    membersChanged(story.window, u"Logo_??.jpg"_s);
    ASSERT_NE(story.goToRow(u"Logo_01.jpg"_s), 0);
    EXPECT_EQ(story.value(u":32:="_s), u"11"_s);
    story.user().expectMessage(u"Logo_01.jpg"_s, Answer::Yes);
    QTest::mouseClick(&story.window.rightPanel().deleteButton(), Qt::LeftButton);
    EXPECT_EQ(story.value(u":32:="_s), u"11"_s);
}

TEST(Rows, StaySelectedWhenHiddenParametersBecomeLines)
{
    Story story;
    auto members = generation2Members("menu_start_x=5");
    members[u"init"_s] += "boot_show custom_depth welcome penguin";
    story.open(messageOf(story.shell, members));
    story.goToTab(u"Config"_s);
    const int row = story.goToRow(u"welcome"_s);
    ASSERT_NE(row, 0);
    QTest::keyClick(&story.view(), Qt::Key_2);
    EXPECT_EQ(story.look(story.lists().CurrentRow).text(), u"welcome"_s);
    EXPECT_EQ(story.look(story.lists().CurrentRow).checked, true);
    EXPECT_EQ(story.view().currentIndex().row() + 1, story.lists().CurrentRow);
    QTest::keyClick(&story.view(), Qt::Key_2);
    EXPECT_EQ(story.look(story.lists().CurrentRow).text(), u"welcome"_s);
    EXPECT_EQ(story.look(story.lists().CurrentRow).checked, false);
}
