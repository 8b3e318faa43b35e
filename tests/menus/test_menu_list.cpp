// SPDX-License-Identifier: MIT
// The menus of a drive: the rows of the first tab, and the menu that the stage shows.
#include "menus/menu_list.h"
#include "support/test_shell.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString embedded =
    QStringLiteral("RECALL Menu.lst| BOOT DOS from this flash| BOOT WinXP from hard disk|   Call "
                   "menu @IMA|   Call menu @MENU1|   Call menu @MENU2|REBOOT|SHUTDOWN PC|");

class MenuListTest : public testing::Test {
protected:
    MenuListTest()
    {
        drive = {u"E"_s, shell.path(u"stick/"_s)};
        EXPECT_TRUE(DiskFiles().makeFolder(drive.folder).ok());
        for (int param = 1; param <= zukParamCount; ++param)
            table.at(0, param).DefValue = 15;
    }
    void menu(const QString& name, const QByteArray& bytes)
    {
        EXPECT_TRUE(DiskFiles().write(drive.folder + name, bytes).ok());
    }
    QString apply(const QString& name)
    {
        CurrentMenuFile = name;
        return MenuApply(shell.shell, drive, CurrentMenuFile, table);
    }
    // "name, path, primary" of a row.
    QString row(int number)
    {
        const ListRow* found = list.row(number);
        return found ? found->texts.join(u", "_s) : QString();
    }

    TestShell shell;
    MenuDrive drive;
    QString CurrentMenuFile;
    ListRows list;
    ZUKarr table;
};

TEST_F(MenuListTest, RowsOfADrive)
{
    menu(u"menu.lst"_s, "gfxmenu (hd0,0)/boot/gfx/message\r\ntitle a\r\n");
    menu(u"OLD.LST"_s, "\xEF\xBB\xBFgfxmenu message\ntitle [zuk0000] :1=2\n");
    menu(u"bracket.Lst"_s, "title [X] y\n");
    menu(u"menu.lst.bak"_s, "title no\n");
    ASSERT_TRUE(QDir().mkpath(drive.folder + u"folder.lst"_s));
    MenuListFill(shell.shell, drive, list);
    ASSERT_EQ(list.count(), 5);
    EXPECT_EQ(row(1), u"Embedded, menu, "_s);
    EXPECT_EQ(row(3), u"bracket.Lst, E:\\, "_s);
    EXPECT_EQ(row(4), u"menu.lst, E:\\, boot\\gfx\\message"_s);
    EXPECT_EQ(row(5), u"OLD.LST, E:\\, message"_s);
    EXPECT_EQ(list.selected, 1);
    EXPECT_EQ(menuRow(list, u"menu.lst"_s), 4);
    EXPECT_EQ(list.row(5)->name, u"OLD.LST"_s);

    list.selected = 4;
    MenuListFill(shell.shell, drive, list);
    EXPECT_EQ(list.selected, 4);
    MenuListFill(shell.shell, {}, list);
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.selected, 1);
}

TEST_F(MenuListTest, ApplyingAMenu)
{
    menu(u"menu.lst"_s, "title \xCF\xF3\xF1\xEA\\nhelp\ntitle [zuk0000] :99=2 :77=1\n");
    EXPECT_EQ(apply({}), embedded);
    EXPECT_EQ(apply(u"menu.lst"_s), u"Пуск|[zuk0000] :99=2 :77=1|"_s);
    EXPECT_FALSE(table.at(0, 99).LstValue);
    shell.run.GfxHasZuk = true;
    table.at(0, 77).LevelValue = 1;
    EXPECT_EQ(apply(u"menu.lst"_s), u"Пуск|"_s);
    EXPECT_EQ(CurrentMenuFile, u"menu.lst"_s);
    EXPECT_EQ(table.at(0, 99).LstValue, 2);
    menu(u"other.lst"_s, "\xEF\xBB\xBFtitle \xD0\x9F\r\ntitle two");
    EXPECT_EQ(apply(u"other.lst"_s), u"П|"_s);
    EXPECT_FALSE(table.at(0, 99).LstValue);
    apply(u"menu.lst"_s);
    EXPECT_EQ(apply({}), embedded);
    EXPECT_FALSE(table.at(0, 99).LstValue);
}

TEST_F(MenuListTest, FilesThatCannotBeRead)
{
    const QString secret = shell.file(u"secret.lst"_s, "gfxmenu /secret\ntitle s\n");
    menu(u"real.txt"_s, "gfxmenu /real\n");
    ASSERT_TRUE(QFile::link(secret, drive.folder + u"a_out.lst"_s));
    ASSERT_TRUE(QFile::link(u"real.txt"_s, drive.folder + u"b_in.lst"_s));
    ASSERT_EQ(::mkfifo(QFile::encodeName(drive.folder + u"pipe.lst"_s).constData(), 0600), 0);
    menu(u"huge.lst"_s, "gfxmenu /huge\n" + QByteArray(listedMenusLimit, ' '));
    menu(u"z.lst"_s, "gfxmenu /z\n");
    MenuListFill(shell.shell, drive, list);
    ASSERT_EQ(list.count(), 6);
    EXPECT_TRUE(row(5) == u"huge.lst, E:\\, "_s && list.row(5)->tip.contains(u"too large"_s));
    EXPECT_EQ(row(6), u"z.lst, E:\\, z"_s);
    EXPECT_EQ(row(3), u"a_out.lst, E:\\, "_s);
    EXPECT_TRUE(list.row(3)->tip.contains(u"out of the drive"_s));
    EXPECT_EQ(row(4), u"b_in.lst, E:\\, real"_s);
    shell.prompts.expectMessage(u"out of the drive"_s);
    EXPECT_EQ(apply(u"a_out.lst"_s), embedded);

    // The stick is pulled: what was listed is gone.
    ASSERT_TRUE(QDir(drive.folder).removeRecursively());
    shell.prompts.expectMessage(u"z.lst"_s);
    EXPECT_EQ(apply(u"z.lst"_s), embedded);
    EXPECT_EQ(CurrentMenuFile, QString());
    MenuListFill(shell.shell, drive, list);
    EXPECT_EQ(list.count(), 2);
    // Its letter stands for no folder any more.
    drive.folder.clear();
    shell.prompts.expectMessage(u"E:/z.lst not found!"_s);
    EXPECT_EQ(apply(u"z.lst"_s), embedded);
}

} // namespace
