// SPDX-License-Identifier: MIT
#include "params/cfg_file.h"

#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString wrong = u"<== WRONG PARAMETER NAME!"_s;

// "check|name|value|comment"
QString shown(const ListRow& row)
{
    return (row.checked.value_or(false) ? u"on|"_s : u"off|"_s) + row.text(0) + u'|' + row.text(1) +
           u'|' + row.text(2);
}

QStringList rowsOf(const QString& text, const QByteArray& engine = {})
{
    ListRows list;
    EXPECT_TRUE(cfgRowsFrom(text, engine, list));
    QStringList rows;
    for (const ListRow& row : list.rows)
        rows.append(shown(row));
    return rows;
}

const QString separator = u"on|# Additional list ->|of HIDDEN ->|parameters"_s;

// A Workspace with a gfxboot.cfg, shown in the list.
struct CfgShell : TestShell {
    explicit CfgShell(const QByteArray& cfg, const QByteArray& engine = {})
    {
        path = member(u"gfxboot.cfg"_s, cfg);
        if (!engine.isEmpty())
            member(u"init"_s, engine);
        run.GfxHasCfg = true;
        CfgFill(shell, path, list);
    }
    QByteArray written()
    {
        EXPECT_TRUE(CfgWrite(shell, list));
        return bytesOf(path);
    }
    QString path;
    ListRows list;
};

} // namespace

TEST(CfgParams, BringsValuesIntoOneForm)
{
    const std::pair<QStringView, QStringView> cases[] = {
        {u"0xff # red", u"0x0000FF"},
        {u"12 13", u"1213"},
        {u"0xzz", u"0x000000"},
        {u"-1", u"-1"},
        {u"0x1234567", u"0x234567"},
        {u"", u"0"},
        {u"5|6", u"5"},
        {u" 0xff", u"0"},
        {u" 4294967295 # all", u"4294967295"},
        {u"0.50", u"0.5"},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(CfgNormalise(text), value) << text.toString().toStdString();
}

TEST(CfgRows, TellsTheStatesApart)
{
    ListRows list;
    const QString text = u"# my screen\n\t boot_show=1\nmenu_start_x=0xa # x = 1\r#welcome=0 # no\n"
                         "\n \t\nhide_help =1\nMENU_START_Y=5\n"_s;
    ASSERT_TRUE(cfgRowsFrom(text, "..penguin..", list));
    ASSERT_EQ(list.count(), 8);
    const auto expectRow = [&](int number, const QString& content, QRgb colour) {
        EXPECT_EQ(shown(*list.row(number)), content);
        EXPECT_EQ(list.row(number)->colour, colour) << number;
    };
    const QRgb green = qRgb(0, 128, 0);
    const QRgb blue = qRgb(0, 0, 255);
    const QRgb pink = qRgb(255, 0, 128);
    const QRgb fixed = qRgb(0x17, 0x16, 0x15);
    expectRow(1, u"off|||# my screen"_s, fixed);
    expectRow(2, u"on|boot_show|1|"_s + CfgComment(u"boot_show"), green);
    expectRow(3, u"on|menu_start_x|0x00000A| x = 1#"_s, green);
    expectRow(4, u"off|welcome|0| no"_s, blue);
    expectRow(5, u"off|hide_help|1|"_s + CfgComment(u"hide_help"), blue);
    expectRow(6, u"off|MENU_START_Y|5|"_s + wrong, fixed);
    expectRow(7, separator, pink);
    expectRow(8, u"off|penguin|-1|"_s + CfgComment(u"penguin") + u' ', pink);
}

TEST(CfgRows, OffersWhatTheEngineKnowsAndTheFileDoesNotName)
{
    QByteArray engine(4096, '\0');
    engine.replace(1020, 12, "menu_start_x"); // over the border of two blocks
    engine.replace(2000, 8, "xpenguin");
    engine.replace(3000, 9, "boot_show");
    const QString penguin = u"off|penguin|-1|"_s + CfgComment(u"penguin") + u' ';
    const QString startX = u"off|menu_start_x|253|"_s + CfgComment(u"menu_start_x") + u' ';

    EXPECT_EQ(rowsOf(u"boot_show=1"_s, engine).mid(1), QStringList({separator, startX, penguin}));
    // The comment of an active line mentions nothing, that of a line switched off does.
    EXPECT_EQ(rowsOf(u"boot_show=1 # penguin\n#panel_bg=0 # menu_start_x"_s, engine).mid(2),
              QStringList({separator, penguin}));
    EXPECT_EQ(rowsOf(u"foo=1 # penguin menu_start_x boot_show"_s, engine).mid(1),
              QStringList({separator}));
    // Switched off by a blank, or named in a wrong line: all of a line without "#" is a mention.
    EXPECT_EQ(rowsOf(u"menu_start_x =5\nfoo=1 penguin"_s, engine).mid(2),
              QStringList({separator, u"off|boot_show|1|"_s + CfgComment(u"boot_show") + u' '}));

    QString all;
    for (const CfgParam& param : cfgParams)
        all += param.name.toString() + u"=1\n"_s;
    EXPECT_EQ(rowsOf(all, engine).size(), 30);
}

TEST(CfgWrite, WritesRowsBackByItsRules)
{
    CfgShell cfg("# my screen\r\nmenu_start_x=10 # pos\r\n#menu_start_y=0xf\r\nhello\r\nfoo=5\r\n"
                 "boot_show=1",
                 "..penguin..");
    EXPECT_EQ(cfg.written(), "# my screen\r\n"
                             "menu_start_x=10\t\t#  pos#\r\n"
                             "#menu_start_y=0x00000F\t\t# Vertical position of Menu\r\n"
                             "# hello\r\n"
                             "#foo=5\t\t# <== WRONG PARAMETER NAME!\r\n"
                             "boot_show=1\t\t# If set to 1, show the \"Boot Options\" panel\r\n"
                             "#penguin=-1\t\t# Penguin theme likelihood in percent; -1 = auto ");
    // The hidden parameter is now a line of the file; comments have gained their blank.
    EXPECT_EQ(shown(cfg.list.rows.back()), separator);
    EXPECT_EQ(cfg.written(), "# my screen\r\n"
                             "menu_start_x=10\t\t#   pos#\r\n"
                             "#menu_start_y=0x00000F\t\t#  Vertical position of Menu\r\n"
                             "# hello\r\n"
                             "#foo=5\t\t# <== WRONG PARAMETER NAME!\r\n"
                             "boot_show=1\t\t#  If set to 1, show the \"Boot Options\" panel#\r\n"
                             "#penguin=-1\t\t#  Penguin theme likelihood in percent; -1 = auto");
}

TEST(CfgWrite, TidiesEarlierLinesOncePerLaterRow)
{
    const auto tidied = [](const QString& text) {
        ListRows list;
        EXPECT_TRUE(cfgRowsFrom(text, {}, list));
        return cfgTextFrom(list);
    };
    // Eight "#" are left of "#<tab><tab># ########" by the first two steps; then each row halves.
    EXPECT_EQ(tidied(u"########"_s), u"####"_s);
    EXPECT_EQ(tidied(u"########\na"_s), u"##\r\n# a"_s);
    EXPECT_EQ(tidied(u"########\na\nb\nc"_s), u"#\r\n# a\r\n# b\r\n# c"_s);
}

TEST(CfgWrite, LeavesTheTailOfALongerFile)
{
    const QByteArray old = "welcome=1" + QByteArray(40, ' ') + "# x\r\nhello world";
    CfgShell cfg(old);
    EXPECT_EQ(cfg.written(),
              "welcome=1\t\t#  x#\r\n# hello world" + QByteArray(18, ' ') + "# x\r\nhello world");
    EXPECT_EQ(shown(*cfg.list.row(2)), u"off|||# hello world                  # x"_s);
    EXPECT_EQ(shown(*cfg.list.row(3)), u"off|||hello world"_s);
}

TEST(CfgWrite, KeepsTheEncodingAndEveryByteOfAComment)
{
    QByteArray high;
    for (int byte = 0x80; byte < 0x100; ++byte)
        high.append(static_cast<char>(byte));
    EXPECT_EQ(CfgShell("# " + high).written(), "# " + high);
    // UTF-8 without a mark is read as 8-bit text, and comes back as it was.
    const QByteArray russian = "\xD0\x9F\xD1\x80\xD0\xA0 \xD0\xA0";
    EXPECT_EQ(CfgShell("welcome=1 # " + russian).written(), "welcome=1\t\t#  " + russian + "#");

    CfgShell marked("\xEF\xBB\xBFwelcome=1 # " + russian);
    EXPECT_EQ(marked.list.row(1)->text(2), u" ПрР Р#"_s);
    EXPECT_EQ(marked.written(), "\xEF\xBB\xBFwelcome=1\t\t#  " + russian + "#");
}

TEST(CfgWrite, SelectsTheSameDuplicateAgain)
{
    CfgShell cfg("welcome=1\nwelcome=2\n");
    cfg.list.selected = 2;
    cfg.written();
    EXPECT_EQ(cfg.list.selected, 2);
}

TEST(CfgWrite, FollowsCheckAndValue)
{
    CfgShell cfg("welcome=1\nwelcome=2\n", "boot_show menu_start_x");
    cfg.list.row(1)->checked = false;
    cfg.list.row(5)->checked = true;
    cfg.list.selected = 5;
    SetCfgValue(cfg.list, u"menu_start_x", u"77"_s);
    SetCfgValue(cfg.list, u"welcome", u"0"_s);
    SetCfgValue(cfg.list, u"no_such", u"9"_s);
    EXPECT_EQ(cfg.written(), "#welcome=0\t\t# Welcome\r\nwelcome=2\t\t# Welcome\r\n"
                             "#boot_show=1\t\t# If set to 1, show the \"Boot Options\" panel \r\n"
                             "menu_start_x=77\t\t# Horisontal position of Menu ");
    // The separator went behind it, so the selected parameter is now row 4.
    EXPECT_EQ(cfg.list.selected, 4);
    EXPECT_EQ(CfgRow(cfg.list, u"menu_start_x"), 4);
    EXPECT_EQ(CfgValue(cfg.list, u"welcome"), u"0"_s); // the first of the two
    EXPECT_EQ(CfgValue(cfg.list, u"title_bg"), u"0x4f9805"_s);
}
