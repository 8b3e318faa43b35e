// SPDX-License-Identifier: MIT
#include "params/catalogue.h"

#include "shell/text.h"
#include "support/test_shell.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

ZukCell parsed(const QString& text, int file, int param)
{
    ZUKarr table;
    EXPECT_EQ(parseCatalogue(text, table), 0) << text.toStdString();
    return table.at(file, param);
}

void expectCell(const ZukCell& cell, const QString& name, qint64 value, bool hex,
                const QString& comment)
{
    EXPECT_EQ(cell.Name, name);
    ASSERT_TRUE(cell.DefValue.has_value()) << name.toStdString();
    EXPECT_EQ(*cell.DefValue, value) << name.toStdString();
    EXPECT_EQ(cell.IsHex, hex) << name.toStdString();
    EXPECT_EQ(cell.Comment, comment) << name.toStdString();
}

QStringList shippedLines(const QString& name)
{
    const QByteArray bytes = bytesOf(QStringLiteral(FENNEL_BIN_DIR "/data/") + name);
    EXPECT_TRUE(bytes.endsWith("\r\n"));
    EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
    return decodeText(bytes).text.split(u"\r\n"_s);
}

} // namespace

TEST(Catalogue, ReadsALineOfEachForm)
{
    expectCell(parsed(u":38:s.arrow.color=0X00ff00# - Color"_s, 0, 38), u"s.arrow.color"_s, 65280,
               true, u"- Color"_s);
    expectCell(parsed(u":09:s.clock.fnt=0#TextColor"_s, 0, 9), u"s.clock.fnt"_s, 0, false,
               u"TextColor"_s);
    expectCell(parsed(u":21:s.glass.color2=0xdd44ff#"_s, 0, 21), u"s.glass.color2"_s, 0xdd44ff,
               true, u""_s);
    expectCell(parsed(u":21:s.glass.color2=0xdd44ff"_s, 0, 21), u"s.glass.color2"_s, 0xdd44ff, true,
               u""_s);
    expectCell(parsed(u" \t :1: a b = 12 px # one # two = 3 # "_s, 0, 1), u"a b"_s, 12, false,
               u"one # two = 3 # "_s);
    expectCell(parsed(u":99:n=0#use \"back_NN.jpg\"  "_s, 0, 99), u"n"_s, 0, false,
               u"use \"back_NN.jpg\"  "_s);
    expectCell(parsed(u":5:a=abc#c#"_s, 0, 5), u"a"_s, 0, false, u"c#"_s);
    expectCell(parsed(u":7:no value#c"_s, 0, 7), u""_s, 0, false, u"c"_s);
    expectCell(parsed(u":7x:a=-3#\a"_s, 0, 7), u"a"_s, -3, false, u""_s);
}

TEST(Catalogue, TakesTheFileNumberFromTheSection)
{
    const QString text = u":1:before=1\r\n[zuk0015]\r\n# :1:no=9\r\n:1:info=2\n  [###2x]# 7\n"
                         ":1:rline=3\n[zuk0000]#[zuk0000] - base\n:1:clock=4\n:1:later=5\n:\0:"_s;
    ZUKarr table;
    EXPECT_EQ(parseCatalogue(text, table), 1); // the NUL line has no id
    expectCell(table.at(0, 1), u"later"_s, 5, false, u""_s);
    expectCell(table.at(15, 1), u"info"_s, 2, false, u""_s);
    expectCell(table.at(2, 1), u"rline"_s, 3, false, u""_s);
    EXPECT_FALSE(table.at(0, 2).DefValue.has_value());
}

TEST(Catalogue, LeavesOutWhatIsOutsideTheTable)
{
    ZUKarr table;
    const QString bad = u":0:a=1\n:100:a=1\n:-5:a=1\n[zuk0016]\n:1:a=1\n[zuk-1]\n:1:a=1\n"
                        "[zuk99999999999999999999]\n:1:a=1\n[zuk0003]\n:99999999999:a=1\n:7:b=1"_s;
    EXPECT_EQ(parseCatalogue(bad, table), 7);
    int filled = 0;
    for (int file = 0; file < zukFileCount; ++file) {
        for (int param = 1; param <= zukParamCount; ++param)
            filled += table.at(file, param).DefValue.has_value() ? 1 : 0;
    }
    EXPECT_EQ(filled, 1);
    EXPECT_EQ(table.at(3, 7).Name, u"b"_s);
    EXPECT_EQ(parseCatalogue(u":1:"_s + QString(1'000'000, u'='), table), 0);
}

TEST(Catalogue, ShipsTheSameParametersInBothLanguages)
{
    const QStringList english = shippedLines(u"0409_SETTINGS"_s);
    const QStringList russian = shippedLines(u"0419_SETTINGS"_s);
    const QRegularExpression form(u"^(\\[zuk00\\d\\d\\]|:\\d\\d:[\\w.]+=\\w+#)(.*)$"_s);
    const QRegularExpression cyrillic(u"[а-яА-Я]"_s);
    const auto parts = [&](const QStringList& lines, int group) {
        QStringList found;
        for (const QString& line : lines) {
            const auto match = form.match(line);
            EXPECT_TRUE(match.hasMatch() || line.isEmpty() || line.startsWith(u'#'))
                << line.toStdString();
            if (match.hasMatch())
                found.append(match.captured(group));
        }
        return found;
    };
    EXPECT_EQ(parts(english, 1), parts(russian, 1));
    EXPECT_EQ(parts(english, 1).filter(u":"_s).size(), 199);
    for (const QString& line : russian.filter(QRegularExpression(u"^:"_s)))
        EXPECT_TRUE(line.contains(cyrillic)) << line.toStdString();
    // Of the English comments, only those of glass colours 2 to 19 begin with the Cyrillic letter.
    EXPECT_EQ(english.filter(cyrillic).size(), 18);
    EXPECT_EQ(english.filter(u"#сolor"_s).size(), 18);
}

TEST(Catalogue, LoadsInTheLanguageOfTheRun)
{
    const std::map<int, int> counts = {{0, 48}, {1, 50}, {2, 10}, {3, 24}, {4, 16},
                                       {5, 15}, {6, 6},  {7, 11}, {8, 11}, {15, 8}};
    for (const QString& language : {u"0409"_s, u"0419"_s, u"0407"_s, QString()}) {
        TestShell shell;
        shell.run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
        shell.run.CurrentLang = language;
        ZUKarr table;
        ASSERT_TRUE(LoadCatalogue(shell.shell, table));
        for (int file = 0; file < zukFileCount; ++file) {
            int count = 0;
            for (int param = 1; param <= zukParamCount; ++param)
                count += table.at(file, param).DefValue.has_value() ? 1 : 0;
            EXPECT_EQ(count, counts.contains(file) ? counts.at(file) : 0) << file;
        }
        const bool russian = language == u"0419";
        expectCell(table.at(1, 72), u"s.flash.AXi"_s, 350, false,
                   russian ? u"разряд 8: X начальной точки A"_s : u"X from"_s);
        expectCell(table.at(4, 4), u"s.timer.LN.w"_s, 11, false,
                   russian ? u"ширина (на соотношении с высотой принимается "_s : u"Width"_s);
        expectCell(table.at(15, 17), u"s.info.color2"_s, 0xff00, true,
                   russian ? u"второй цвет текста"_s : u"TextColor2"_s);
        EXPECT_EQ(table.at(0, 35).Comment.startsWith(u"- RadiusHeight"), !russian);
    }
}

TEST(Catalogue, TellsWhatItCannotRead)
{
    TestShell shell;
    ZUKarr table;
    shell.prompts.expectMessage(u"0409_SETTINGS"_s);
    EXPECT_FALSE(LoadCatalogue(shell.shell, table));

    ASSERT_TRUE(shell.files.makeFolder(shell.path(u"data"_s)));
    shell.file(u"data/0419_SETTINGS"_s, ":1:a=1\r\n:100:b=2\r\n");
    shell.run.CurrentLang = u"0419"_s;
    shell.prompts.expectMessage(u"left out"_s);
    EXPECT_TRUE(LoadCatalogue(shell.shell, table));
    EXPECT_EQ(table.at(0, 1).Name, u"a"_s);
}
