// SPDX-License-Identifier: MIT
// gfxboot.cfg between file and lines.
#include "document/config_file.h"

#include "support/test_shell.h"

#include <QDir>

#include <algorithm>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

struct CfgShell : TestShell {
    explicit CfgShell(const QByteArray& cfg, const QByteArray& engine = {})
    {
        path = member(u"gfxboot.cfg"_s, cfg);
        if (!engine.isEmpty())
            member(u"init"_s, engine);
        lines = readConfig(shell)->lines;
    }
    // Writes the lines and takes what the file says then.
    QByteArray written(SaveForm form = SaveForm::Listed)
    {
        const Result<CfgState> state = writeConfig(shell, lines, form);
        EXPECT_TRUE(state);
        lines = state->lines;
        return bytesOf(path);
    }
    QString path;
    CfgLines lines;
};

} // namespace

TEST(Config, IsWrittenByItsRules)
{
    CfgShell cfg("# my screen\r\nmenu_start_x=10 # pos\r\n#menu_start_y=0xf\r\nhello\r\nfoo=5\r\n"
                 "boot_show=1",
                 "..penguin..");
    const QByteArray once = "# my screen\r\n"
                            "menu_start_x=10\t\t# pos\r\n"
                            "#menu_start_y=0x00000F\t\t# Vertical position of Menu\r\n"
                            "# hello\r\n"
                            "#foo=5\t\t# <== WRONG PARAMETER NAME!\r\n"
                            "boot_show=1\t\t# If set to 1, show the \"Boot Options\" panel\r\n"
                            "#penguin=-1\t\t# Penguin theme likelihood in percent; -1 = auto";
    cfg.member(u"#cfg.new"_s, "a member of that name");
    EXPECT_EQ(cfg.written(), once);
    EXPECT_EQ(bytesOf(cfg.run.Workspace + u"#cfg.new"_s), "a member of that name");
    // The hidden parameter is now a line of the file.
    EXPECT_EQ(cfg.lines.last().kind, CfgKindOfLine::Separator);
    for (int save = 0; save < 10; ++save)
        EXPECT_EQ(cfg.written(), once);
}

TEST(Config, LeavesTheTailOfALongerFile)
{
    CfgShell cfg("welcome=1" + QByteArray(40, ' ') + "# x\r\nhello world");
    EXPECT_EQ(cfg.written(),
              "welcome=1\t\t# x\r\n# hello world" + QByteArray(20, ' ') + "# x\r\nhello world");
    EXPECT_EQ(cfg.lines[2].comment, u"hello world"_s);
}

TEST(Config, KeepsTheEncodingAndEveryByteOfAComment)
{
    QByteArray high;
    for (int byte = 0x80; byte < 0x100; ++byte)
        high.append(static_cast<char>(byte));
    EXPECT_EQ(CfgShell("# " + high).written(), "# " + high);
    // UTF-8 without a mark is read as 8-bit text, and comes back as it was.
    const QByteArray russian = "\xD0\x9F\xD1\x80\xD0\xA0 \xD0\xA0";
    EXPECT_EQ(CfgShell("welcome=1 # " + russian).written(), "welcome=1\t\t# " + russian);
    EXPECT_EQ(CfgShell("\xEF\xBB\xBFwelcome=1 # " + russian).written(),
              "\xEF\xBB\xBFwelcome=1\t\t# " + russian);
}

TEST(Config, BadInputIsReadAndWritten)
{
    QByteArray twice;
    for (int time = 0; time < 2; ++time) {
        for (const CfgParam& param : cfgParams)
            twice += param.name.toLatin1() + " = 1|2 #a|b\n";
    }
    const QByteArray megabyte(1'000'000, 'x');
    for (const QByteArray& bytes : {
             QByteArray(),
             QByteArray("\r\n \r\n"),
             twice,
             QByteArray("\xEF\xBB\xBF"),
             "\xEF\xBB\xBF" + megabyte + "\xD0",
             QByteArray("menu_start_x\0=5\0\n\0\0=1\n\0", 24),
             "menu_start_x=" + QByteArray(1'000'000, '9') + "\nboot_show=0x" + megabyte,
             megabyte + "=" + megabyte,
             QByteArray(1'000'000, '#'),
             QByteArray("=5\n#=6\n==\n#\n##\n# #\n=#\n#\t\t#\n|=|\n"),
             QByteArray("# Additional list ->\nwelcome=1\x1A\xFF"),
         }) {
        CfgShell cfg(bytes);
        const auto count = [&cfg] {
            return std::ranges::count_if(cfg.lines, [](const CfgLine& line) {
                return line.kind != CfgKindOfLine::Separator;
            });
        };
        const auto lines = count();
        EXPECT_EQ(cfg.written(SaveForm::Kept), bytes);
        cfg.written();
        cfg.written();
        EXPECT_GE(count(), lines);
        EXPECT_EQ(QDir(cfg.run.Workspace).entryList(QDir::Files), QStringList(u"gfxboot.cfg"_s));
    }
    TestShell huge;
    huge.member(u"gfxboot.cfg"_s, QByteArray(cfgSizeLimit + 1, '\n'));
    EXPECT_FALSE(readConfig(huge.shell));
}
