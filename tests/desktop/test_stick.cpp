// SPDX-License-Identifier: MIT
// A stick with menus of its own: chosen, shown on the stage, laid over the parameters, pulled out.
#include "support/story.h"

#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/window/flash_link.h"
#include "editor/window/menus.h"
#include "params/object_table.h"
#include "support/machine_tree.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int timeObject = 5;

// A laptop with one stick plugged in; the program under test looks at it instead of this machine.
class StickTest : public testing::Test {
protected:
    StickTest()
    {
        buildLaptop(machine);
        mountStick(machine, 1);
        machine.write(u"/media/ann/BOOT_ME/MENU.LST"_s, "gfxmenu (hd0,0)/boot/message\n"
                                                        "title First entry\\nwith help\n"
                                                        "title Second entry\n"
                                                        "title [zuk0000] :2=200 :6=0x00ff00\n");
        machine.write(u"/media/ann/BOOT_ME/plain.lst"_s, "\xEF\xBB\xBF"
                                                         "title Привет\r\n");
        qputenv(systemRootVariable, machine.root().toLocal8Bit());
    }
    ~StickTest() override { qunsetenv(systemRootVariable); }

    void runEntry(Story& story, const char* array, int index)
    {
        story.window.commands().runEntry(QLatin1String(array), index);
        QCoreApplication::processEvents();
    }

    MachineTree machine;
};

} // namespace

TEST_F(StickTest, ItsMenuFillsTheStageAndLiesOverTheParameters)
{
    Story story;
    EXPECT_TRUE(story.window.menus().action(u"mnuFlash"_s)->isEnabled());
    story.makeNew();
    runEntry(story, "mnuFlash_FlashArr", 0);
    EXPECT_EQ(story.run().CurrentFlashChar, 'E'); // D is the system's own partition
    EXPECT_EQ(story.run().CurrentFlashDisk, 1);
    EXPECT_EQ(story.bench.status.field(1), u"E:"_s);

    story.goToTab(u"Menu"_s);
    ASSERT_EQ(story.list().count(), 4);
    EXPECT_EQ(story.look(3).text(), u"MENU.LST"_s);
    EXPECT_EQ(story.look(3).text(2), u"boot\\message"_s);
    EXPECT_EQ(story.look(3).colour, qRgb(136, 0, 136));

    runEntry(story, "mnuMenu_fromFlash", 0);
    EXPECT_EQ(story.lists().CurrentMenuFile, u"MENU.LST"_s);
    EXPECT_TRUE(*story.look(3).checked);
    EXPECT_FALSE(*story.look(1).checked);
    EXPECT_TRUE((*story.lists().object(MenuBarRow)).Text.startsWith(u"First entry"));

    story.goToTab(u"Time"_s);
    EXPECT_EQ(story.look(2).text(LstColumn), u"200"_s);
    EXPECT_EQ(story.look(4).text(LstColumn), u"0xFF00"_s);
    const qint16 left = (*story.lists().object(timeObject)).Left;
    QCheckBox& box = story.window.rightPanel().fromMenu();
    ASSERT_TRUE(box.isEnabled());
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    ASSERT_TRUE(box.isChecked());
    EXPECT_EQ((*story.lists().object(timeObject)).Left, 200);
    EXPECT_EQ((*story.lists().object(timeObject)).BackColor, qRgb(0, 255, 0));

    story.user().expectMessage(u"You can not edit data, while they are overlap by"_s);
    story.goToRow(u":02:="_s);
    QTest::keyClick(story.window.rightPanel().view(story.lists().CurrentTab)->currentWidget(),
                    Qt::Key_Return);
    EXPECT_FALSE(story.window.rightPanel().editor().isVisible());

    const QString path = story.shell.path(u"file values"_s);
    story.saveAs(path, false);
    const auto general = recordsOf(membersOf(story.shell.path(u"file_values"_s))[u"ZUK0000.CFG"_s]);
    EXPECT_EQ(general.at(2), left);

    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    EXPECT_EQ((*story.lists().object(timeObject)).Left, left);
}

TEST_F(StickTest, GoesAndComesBack)
{
    Story story;
    story.makeNew();
    runEntry(story, "mnuFlash_FlashArr", 0);
    runEntry(story, "mnuMenu_fromFlash", 1);
    EXPECT_EQ((*story.lists().object(MenuBarRow)).Text.left(6), u"Привет"_s);

    unmountStick(machine, 1);
    story.user().expectMessage(u"BOOT ME"_s);
    story.window.flashLink().drives().MonitorOn = true;
    story.window.flashLink().drives().mountsChanged();
    EXPECT_EQ(story.run().CurrentFlashChar, noFlash);
    EXPECT_FALSE(story.window.menus().action(u"mnuFlash"_s)->isEnabled());
    EXPECT_TRUE(story.lists().CurrentMenuFile.isEmpty());
    EXPECT_TRUE((*story.lists().object(MenuBarRow)).Text.startsWith(u"RECALL"));
    EXPECT_FALSE(story.action(u"mnuMenu_select"_s).isEnabled());
    EXPECT_EQ(story.action(u"mnuMenu_select"_s).text(), u"Select MENU from X:"_s);
    EXPECT_TRUE(story.window.menus().entries("mnuMenu_fromFlash").empty());

    mountStick(machine, 1);
    story.user().expectMessage(u"BOOT ME"_s);
    story.window.flashLink().drives().mountsChanged();
    EXPECT_TRUE(story.window.menus().action(u"mnuFlash"_s)->isEnabled());
}

TEST_F(StickTest, AnotherDriveWithoutThatMenuShowsTheEmbeddedOne)
{
    mountStick(machine, 2);
    machine.write(u"/media/ann/second/plain.lst"_s, "title Second stick\n");
    Story story;
    story.makeNew();
    runEntry(story, "mnuFlash_FlashArr", 0);
    runEntry(story, "mnuMenu_fromFlash", 1);
    // A file of the same name is the menu again; without one nothing is said.
    runEntry(story, "mnuFlash_FlashArr", 1);
    EXPECT_TRUE((*story.lists().object(MenuBarRow)).Text.startsWith(u"Second stick"));
    runEntry(story, "mnuFlash_FlashArr", 0);
    runEntry(story, "mnuMenu_fromFlash", 0);
    runEntry(story, "mnuFlash_FlashArr", 1);
    EXPECT_TRUE(story.lists().CurrentMenuFile.isEmpty());
    EXPECT_TRUE(*story.look(1, TabMenu).checked);
    EXPECT_TRUE((*story.lists().object(MenuBarRow)).Text.startsWith(u"RECALL"));
    // One that is there and cannot be read is told.
    runEntry(story, "mnuFlash_FlashArr", 0);
    runEntry(story, "mnuMenu_fromFlash", 0);
    ASSERT_TRUE(QFile::link(u"/etc/hostname"_s, machine.root() + u"/media/ann/second/MENU.LST"_s));
    story.user().expectMessage(u"MENU.LST is a link that leads out of the drive."_s);
    runEntry(story, "mnuFlash_FlashArr", 1);
    EXPECT_TRUE(story.lists().CurrentMenuFile.isEmpty());
}

// The number of a pulled stick passes to the disk behind it; here that is a built-in one.
TEST_F(StickTest, APulledStickIsNotBootedByItsOldNumber)
{
    machine.disk(u"sdc"_s, u"8:32"_s, u"ata1"_s, 1'000'000);
    machine.removeDisk(u"sdb"_s);
    Story story;
    story.makeNew();
    runEntry(story, "mnuFlash_FlashArr", 0);
    EXPECT_EQ(story.run().CurrentFlashDisk, 1);
    story.run().ToolQemu =
        story.shell.script(u"bridge"_s, "echo $1 > \"$4/booted\"\n"
                                        "echo 'QEMU is running.' >> \"$4/$5\"\nexec sleep 30\n");
    unmountStick(machine, 1);
    machine.removeDisk(u"sda"_s);
    story.user().expectMessage(u"run QEMU only for removable disks."_s);
    story.choose("mnuT_Qemu_Start");
    EXPECT_FALSE(story.window.flashLink().qemu().isRunning());
    EXPECT_FALSE(FileExists(story.run().WorkspaceRoot + u"booted"_s));
    EXPECT_FALSE(story.action(u"mnuT_Qemu_Start"_s).isEnabled());
}

TEST_F(StickTest, WhenItsMenuCannotBeReadTheEmbeddedOneIsInForce)
{
    Story story;
    story.makeNew();
    runEntry(story, "mnuFlash_FlashArr", 0);
    runEntry(story, "mnuMenu_fromFlash", 0);
    QCheckBox& box = story.window.rightPanel().fromMenu();
    box.click();
    EXPECT_EQ((*story.lists().object(timeObject)).Left, 200);

    // Nobody watches: the drive stays chosen and its letter has no folder.
    unmountStick(machine, 1);
    story.window.flashLink().drives().RefreshDriveInfo(false, false);
    EXPECT_EQ(story.run().CurrentFlashChar, 'E');
    story.user().expectMessage(u"E:/MENU.LST not found!"_s);
    story.makeNew();
    story.makeNew(); // told once
    EXPECT_TRUE(story.lists().CurrentMenuFile.isEmpty());
    EXPECT_TRUE(*story.look(1, TabMenu).checked);
    EXPECT_TRUE(story.action(u"mnuMenu_Embedded"_s).isChecked());
    EXPECT_FALSE(box.isEnabled());
    EXPECT_FALSE(box.isChecked());
    EXPECT_TRUE((*story.lists().object(MenuBarRow)).Text.startsWith(u"RECALL"));

    story.user().expectMessage(u"E:/MENU.LST not found!"_s);
    runEntry(story, "mnuMenu_fromFlash", 0);
    EXPECT_TRUE(story.lists().CurrentMenuFile.isEmpty());

    // Back again, its entry finds it although the list was filled without it.
    mountStick(machine, 1);
    story.window.flashLink().drives().RefreshDriveInfo(false, false);
    runEntry(story, "mnuMenu_fromFlash", 0);
    EXPECT_EQ(story.lists().CurrentMenuFile, u"MENU.LST"_s);
    EXPECT_TRUE(*story.look(3, TabMenu).checked);
}
