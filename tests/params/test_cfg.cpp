// SPDX-License-Identifier: MIT
#include "params/cfg_keep.h"

#include "base/text.h"

#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString wrong = u"<== WRONG PARAMETER NAME!"_s;

// "check|name|value|comment"
QString shown(const CfgLine& line)
{
    if (line.kind == CfgKindOfLine::Separator)
        return u"separator"_s;
    return (line.on ? u"on|"_s : u"off|"_s) + line.name + u'|' +
           (line.valued ? line.value.text() : QString()) + u'|' + line.comment;
}

QStringList rowsOf(const QString& text, const QByteArray& engine = {})
{
    QStringList rows;
    const CfgLines lines = *cfgLinesFrom(text, engine);
    for (const CfgLine& line : lines)
        rows.append(shown(line));
    return rows;
}

const QString separator = u"separator"_s;

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
        {u" \t0xff", u"0x0000FF"},
        {u" 4294967295 # all", u"4294967295"},
        {u"0.50", u"0.5"},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(CfgNormalise(text), value) << text.toString().toStdString();
}

TEST(CfgRows, TellsTheStatesApart)
{
    using Kind = CfgKindOfLine;
    const QString text = u"# my screen\n\t boot_show=1\nmenu_start_x=0xa # x = 1\r#welcome=0 # no\n"
                         "\n \t\nhide_help =1\nMENU_START_Y=5\n"_s;
    const CfgLines lines = *cfgLinesFrom(text, "..penguin..");
    const std::pair<QString, Kind> expected[] = {
        {u"off|||# my screen"_s, Kind::Text},
        {u"on|boot_show|1|"_s + CfgComment(u"boot_show"), Kind::Known},
        {u"on|menu_start_x|0x00000A|x = 1"_s, Kind::Known},
        {u"off|welcome|0|no"_s, Kind::Known},
        {u"off|hide_help|1|"_s + CfgComment(u"hide_help"), Kind::Known},
        {u"off|MENU_START_Y|5|"_s + wrong, Kind::Wrong},
        {separator, Kind::Separator},
        {u"off|penguin|-1|"_s + CfgComment(u"penguin"), Kind::Hidden},
    };
    ASSERT_EQ(lines.size(), 8);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(shown(lines[i]), expected[i].first);
        EXPECT_EQ(lines[i].kind, expected[i].second) << i;
    }
}

TEST(CfgRows, OffersWhatTheEngineKnowsAndTheFileDoesNotName)
{
    QByteArray engine(4096, '\0');
    engine.replace(1020, 12, "menu_start_x"); // over the border of two blocks
    engine.replace(2000, 8, "xpenguin");
    engine.replace(3000, 9, "boot_show");
    const QString penguin = u"off|penguin|-1|"_s + CfgComment(u"penguin");
    const QString startX = u"off|menu_start_x|253|"_s + CfgComment(u"menu_start_x");

    EXPECT_EQ(rowsOf(u"boot_show=1"_s, engine).mid(1), QStringList({separator, startX, penguin}));
    // The comment of an active line mentions nothing, that of a line switched off does.
    EXPECT_EQ(rowsOf(u"boot_show=1 # penguin\n#panel_bg=0 # menu_start_x"_s, engine).mid(2),
              QStringList({separator, penguin}));
    EXPECT_EQ(rowsOf(u"foo=1 # penguin menu_start_x boot_show"_s, engine).mid(1),
              QStringList({separator}));
    // Switched off by a blank, or named in a wrong line: all of a line without "#" is a mention.
    EXPECT_EQ(rowsOf(u"menu_start_x =5\nfoo=1 penguin"_s, engine).mid(2),
              QStringList({separator, u"off|boot_show|1|"_s + CfgComment(u"boot_show")}));

    QString all;
    for (const CfgParam& param : cfgParams)
        all += param.name.toString() + u"=1\n"_s;
    EXPECT_EQ(rowsOf(all, engine).size(), cfgParams.size());
}

TEST(CfgKept, ChangesWhatWasEditedAndNothingElse)
{
    const QByteArray bytes =
        "; theme \xE9\r\n[base]\n\n  theme=openSUSE\r\tmenu_start_x=\t0x10 \t# a ## b\n"
        "#welcome=0x1# c\nmenu_start_y =5 \nboot_show=1 ";
    const CfgLines lines = *cfgLinesFrom(decodeText(bytes).text, "penguin,title_bg");
    EXPECT_EQ(keptCfg(bytes, lines), bytes);
    const auto edited = [&](const CfgLines& now) { return keptCfg(bytes, now); };
    CfgLines now = lines;
    const auto line = [&now](QStringView name) -> CfgLine& { return now[cfgLineOf(now, name)]; };
    line(u"menu_start_x").value = typedValue(u"20");
    line(u"welcome").on = true;
    line(u"menu_start_y").value = typedValue(u"7");
    line(u"boot_show").on = false;
    line(u"title_bg").on = true;
    line(u"penguin").value = typedValue(u"5");
    EXPECT_EQ(edited(now),
              "; theme \xE9\r\n[base]\n\n  theme=openSUSE\r\tmenu_start_x=\t20 \t# a ## b\n"
              "welcome=0x1# c\nmenu_start_y =7 \n#boot_show=1 \r\n"
              "#penguin=5\t\t# Penguin theme likelihood in percent; -1 = auto\r\n"
              "title_bg=0x4f9805\t\t# Background color of dialog background");
    const QByteArray marked = "\xEF\xBB\xBF# \xFF\nwelcome=1";
    now = *cfgLinesFrom(decodeText(marked).text, {});
    line(u"welcome").value = typedValue(u"0");
    EXPECT_EQ(keptCfg(marked, now), "\xEF\xBB\xBF# \xFF\nwelcome=0");
    // Lines of another file.
    EXPECT_EQ(edited(now), encodeText(cfgTextFrom(now), false));
}

TEST(CfgKept, TellsWhatTheListsWouldLose)
{
    const auto losses = [](const QByteArray& bytes) {
        return cfgLosses(bytes, *cfgLinesFrom(decodeText(bytes).text, "penguin"));
    };
    EXPECT_TRUE(
        losses("# a\n; b\n\nmenu_start_x=0xF # c\n#welcome=1\ntitle_bg=0XfF\nhide_help= 1.50")
            .isEmpty());
    EXPECT_EQ(losses("[base]\ntheme=suse # x\nxwelcome=1\npenguin=-1,40\n#menu_start_x=left"),
              QStringList({u"[base]   \u2192   # [base]"_s, u"theme=suse # x   \u2192   #theme=0"_s,
                           u"xwelcome=1   \u2192   #welcome=1"_s,
                           u"penguin=-1,40   \u2192   penguin=-1"_s,
                           u"#menu_start_x=left   \u2192   #menu_start_x=0"_s}));
}

TEST(CfgLines, ANumberThatIsSetCounts)
{
    const CfgLines lines = *cfgLinesFrom(u"#welcome=0x000064\nwelcome=2"_s, {});
    const CfgLines same = withCfgNumber(lines, u"welcome", 100);
    EXPECT_EQ(same[0].value, lines[0].value); // as it was written
    EXPECT_TRUE(same[0].on);
    EXPECT_EQ(withCfgNumber(same, u"welcome", 100), same);
    EXPECT_EQ(withCfgNumber(lines, u"no_such", 1), lines);
    EXPECT_EQ(CfgValue(withCfgNumber(lines, u"welcome", 7), u"welcome"),
              u"7"_s); // the first of two
    EXPECT_EQ(CfgValue(lines, u"title_bg"), u"0x4f9805"_s);
}

TEST(CfgLines, HaveALimit)
{
    const QString many = u"# a # # b\n"_s.repeated(cfgLineLimit);
    EXPECT_EQ(cfgTextFrom(*cfgLinesFrom(many, {})).count(u"# a # b"_s), cfgLineLimit);
    EXPECT_FALSE(cfgLinesFrom(many + u"x"_s, {}));
}

TEST(Typed, IsNeverRefused)
{
    const std::pair<QString, QString> cases[] = {
        {u"0X1234567"_s, u"0x234567"_s},    {u"12abc"_s, u"12"_s},      {QString(), u"0"_s},
        {u"0x"_s, u"0x000000"_s},           {u"0xGG"_s, u"0x0000GG"_s}, {u" 0xff"_s, u"0x0000FF"_s},
        {u"4294967295"_s, u"4294967295"_s}, {u"12.5"_s, u"12.5"_s},
    };
    for (const auto& [typed, stored] : cases)
        EXPECT_EQ(typedValue(typed).text(), stored);
    EXPECT_EQ(typedValue(u"0x"_s + QString(1'000'000, u'7')).text(), u"0x777777"_s);
    EXPECT_FALSE(typedValue(QString(1'000'000, u'9')).text().isEmpty());
    EXPECT_EQ(typedValue(u"12.5").number, 12);
}
