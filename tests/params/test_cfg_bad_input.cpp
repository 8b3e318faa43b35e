// SPDX-License-Identifier: MIT
// gfxboot.cfg as it should not be, and saves that fail.
#include "params/cfg_file.h"

#include "support/test_shell.h"

#include <QDir>

#include <algorithm>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

int linesOf(const ListRows& list)
{
    return static_cast<int>(std::count_if(list.rows.begin(), list.rows.end(), [](const ListRow& r) {
        return r.text() != u"# Additional list ->";
    }));
}

// Fills, writes and fills again; every row must come back, and stay in the file.
void expectStable(const QByteArray& bytes)
{
    TestShell shell;
    const QString path = shell.member(u"gfxboot.cfg"_s, bytes);
    shell.run.GfxHasCfg = true;
    ListRows list;
    CfgFill(shell.shell, path, list);
    const int rows = linesOf(list);
    ASSERT_TRUE(CfgWrite(shell.shell, list));
    ASSERT_TRUE(CfgWrite(shell.shell, list));
    EXPECT_GE(linesOf(list), rows);
    EXPECT_EQ(QDir(shell.run.Workspace).entryList(QDir::Files), QStringList(u"gfxboot.cfg"_s));
}

} // namespace

TEST(CfgBadInput, IsReadAndWritten)
{
    QByteArray twice;
    for (int time = 0; time < 2; ++time) {
        for (const CfgParam& param : cfgParams)
            twice += param.name.toLatin1() + " = 1|2 #a|b\n";
    }
    const QByteArray megabyte(1'000'000, 'x');
    expectStable("");
    expectStable("\r\n \r\n");
    expectStable(twice);
    expectStable("\xEF\xBB\xBF");
    expectStable("\xEF\xBB\xBF" + megabyte + "\xD0");
    expectStable(QByteArray("menu_start_x\0=5\0\n\0\0=1\n\0", 24));
    expectStable("menu_start_x=" + QByteArray(1'000'000, '9') + "\nboot_show=0x" + megabyte);
    expectStable(megabyte + "=" + megabyte);
    expectStable(QByteArray(1'000'000, '#'));
    expectStable("=5\n#=6\n==\n#\n##\n# #\n=#\n#\t\t#\n|=|\n");
    expectStable("# Additional list ->\nwelcome=1\x1A\xFF");
}

TEST(CfgBadInput, ManyLinesTakeTheirTimeOnce)
{
    ListRows list;
    const QString many = u"# a # # b\n"_s.repeated(cfgLineLimit);
    EXPECT_TRUE(cfgRowsFrom(many, {}, list));
    EXPECT_EQ(cfgTextFrom(list).count(u"# a # b"_s), cfgLineLimit);
    EXPECT_FALSE(cfgRowsFrom(many + u"x"_s, {}, list));
    EXPECT_EQ(list.count(), 0);
}

TEST(CfgBadInput, AbsentOrRefusedFilesAreLeftAlone)
{
    TestShell shell;
    ListRows list;
    shell.run.GfxHasCfg = true;
    ConfigInListView(shell.shell, list);
    EXPECT_EQ(list.columns,
              QStringList({u"Parameter"_s, u"Value"_s, u"Comment from the \"gfxboot.cfg\""_s}));
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.row(1)->text(), u"File \"gfxboot.cfg\" is absent"_s);
    EXPECT_FALSE(shell.run.GfxHasCfg);
    EXPECT_TRUE(CfgWrite(shell.shell, list));
    const QString path = shell.run.Workspace + u"gfxboot.cfg"_s;
    EXPECT_FALSE(FileExists(path));

    const QByteArray huge(cfgSizeLimit + 1, '\n');
    shell.member(u"gfxboot.cfg"_s, huge);
    shell.run.GfxHasCfg = true;
    shell.prompts.expectMessage(u"gfxboot.cfg"_s);
    ConfigInListView(shell.shell, list);
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(CfgWrite(shell.shell, list));
    EXPECT_EQ(bytesOf(path), huge);
}
