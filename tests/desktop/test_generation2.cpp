// SPDX-License-Identifier: MIT
// A boot screen with gfxboot.cfg, and one without anything: what can be changed there.
#include "support/story.h"

#include "container/engine_info.h"
#include "container/gfx_save.h"
#include "editor/lists/right_panel.h"
#include "params/object_table.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Generation2, OffersWhatTheEngineKnowsAndWritesWhatIsChecked)
{
    Story story;
    story.open(messageWith(story.shell, "menu_start_x=100 # left edge\r\n"
                                        "#menu_start_y=50\r\n"
                                        "wrong_name=3\r\n"
                                        "just words\r\n"));
    ASSERT_EQ(story.run().gfxboot_var, 2);
    story.goToTab(u"Config"_s);
    const ListRows& list = story.list();
    EXPECT_EQ(story.look(1).colour, cfgActiveRow);
    EXPECT_EQ(story.look(2).colour, blueRow);
    EXPECT_EQ(story.look(5).text(), u"# Additional list ->"_s);
    // All thirty but the two that the file mentions.
    EXPECT_EQ(list.count(), 5 + 28);

    story.type(u"menu_start_x"_s, u"0x0"_s);
    story.type(u"menu_start_x"_s, u"77"_s);
    EXPECT_EQ((*story.lists().object(MenuPanelRow)).Left, 77);

    const QString path = story.shell.path(u"changed"_s);
    story.saveAs(path, false, u"Save as the lists show"_s);
    const QByteArray written = membersOf(path)[u"gfxboot.cfg"_s];
    EXPECT_TRUE(written.startsWith("menu_start_x=77\t\t# left edge\r")) << written.toStdString();
    EXPECT_TRUE(written.contains("\r\n#menu_start_y=50"));
    EXPECT_TRUE(written.contains("#boot_show=1"));
    EXPECT_TRUE(written.contains("# just words"));
}

TEST(Generation2, KeepsTheThemesOfOthersAsTheyAre)
{
    for (const char* theme : {"KDE", "SLED", "SLES", "openSUSE", "upstream"}) {
        Story story;
        const QString path = story.shell.path(u"message"_s);
        ASSERT_TRUE(story.shell.files.copy(
            u"/etc/bootsplash/themes/%1/bootloader/message"_s.arg(QLatin1String(theme)), path));
        story.open(path);
        const QByteArrayList before = membersOf(path)[u"gfxboot.cfg"_s].split('\n');
        // The lines that differ after a save.
        const auto differing = [&] {
            story.choose("mnuFile_Save");
            const QByteArrayList after = membersOf(path)[u"gfxboot.cfg"_s].split('\n');
            QByteArrayList lines;
            for (qsizetype i = 0; i < std::max(before.size(), after.size()); ++i) {
                if (before.value(i) != after.value(i))
                    lines.append(after.value(i));
            }
            return lines.join('|').toStdString();
        };
        ASSERT_GT(before.size(), 200) << theme;
        EXPECT_EQ(differing(), "") << theme;
        story.goToTab(u"Config"_s);
        story.type(u"welcome"_s, u"0"_s);
        story.user().expectChoice(u"theme="_s, u"Keep them as they are"_s);
        for (int save = 0; save < 10; ++save)
            EXPECT_EQ(differing(), "welcome=0") << theme;
    }
}

// Both a parameter that the file switches off and one that it never mentions.
TEST(Generation2, AButtonThatThePopUpHidesIsHiddenInTheFile)
{
    Story story;
    const QString message = messageWith(story.shell, "#hide_help=0\r\n");
    story.open(message);
    story.choose("mnupopup_OnOff_1");
    story.choose("mnupopup_OnOff_3");
    story.choose("mnuFile_Save");
    const QByteArray written = membersOf(message)[u"gfxboot.cfg"_s];
    EXPECT_TRUE(written.startsWith("hide_help=1")) << written.toStdString();
    EXPECT_TRUE(written.contains("\nhide_lang=1")) << written.toStdString();
    EXPECT_FALSE(written.contains("hide_reboot")) << written.toStdString();
}

TEST(Generation2, BecomesTheNewestInOneStep)
{
    Story story;
    const QString message = messageWith(story.shell, "menu_start_x=100\r\n#menu_start_y=50\r\n");
    story.open(message);
    const int tabs = story.lists().tabCount();
    story.choose("mnuFile_Upgrade");
    EXPECT_FALSE(story.action(u"mnuFile_Upgrade"_s).isEnabled());
    story.goToTab(u"MenuPanel"_s);
    story.type(u":43:="_s, u"60"_s);
    for (int back = 0; back < 2; ++back)
        story.choose("mnuEdit_Undo");
    EXPECT_EQ(story.run().gfxboot_var, 2);
    EXPECT_EQ(story.lists().tabCount(), tabs);
    story.type(u"menu_start_x"_s, u"77"_s);
    story.choose("mnuEdit_Undo");
    story.choose("mnuFile_Upgrade");
    story.choose("mnuFile_Save");
    story.open(message);
    EXPECT_EQ(story.run().gfxboot_var, 3);
    story.goToTab(u"MenuBar"_s);
    EXPECT_EQ(story.value(u":42:="_s) + story.value(u":43:="_s), u"100170"_s);

    // Our engine is not old where a file lacks records: it has the catalogue's values, as the tab.
    auto members = membersOf(message);
    members[u"ZUK0001.CFG"_s] = QByteArray("\2\0\0\1", 4);
    story.user().expectOpen(messageOf(story.shell, members));
    story.choose("mnuFile_Open");
    story.goToTab(u"Sparkle №1"_s);
    EXPECT_EQ(story.value(u":05:="_s), u"550"_s);

    // With an engine that ignores its level files.
    members[u"init"_s] = membersOf(u"/etc/bootsplash/themes/KDE/bootloader/message"_s)[u"init"_s];
    story.user().expectOpen(messageOf(story.shell, members));
    story.user().expectMessage(u"Debian's"_s);
    story.user().expectMessage(u"is obsolete!"_s, Answer::Yes);
    story.choose("mnuFile_Open");
    const EngineInfo engine = engineOf(bytesOf(story.run().Workspace + u"init"_s));
    EXPECT_TRUE(engine.kind == BootEngine::Own && engine.version >= 1);
}

TEST(Generation1, ShowsItsMenuAndSavesTheSameMembers)
{
    Story story;
    const QString message = messageWith(story.shell, {});
    story.open(message);
    ASSERT_EQ(story.run().gfxboot_var, 1);
    EXPECT_EQ((*story.lists().object(MenuPanelRow)).Left, 253);
    EXPECT_EQ(story.lists().tabCount(), FirstObjectTab - 1);
    const auto before = membersOf(message);
    story.choose("mnuFile_Save");
    EXPECT_EQ(membersOf(message), before);
}
