// SPDX-License-Identifier: MIT
#include "params/catalogue.h"

#include "base/text.h"
#include "container/template.h"
#include "support/bin_folder.h"
#include "support/test_shell.h"

#include <QRegularExpression>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// "name=value|comment", the value in hexadecimal where the line had it so.
QString shown(const ZukCell& cell)
{
    const QString value = cell.DefValue ? QString::number(*cell.DefValue) : u"none"_s;
    return cell.Name + (cell.IsHex ? u"=hex "_s : u"="_s) + value + u'|' + cell.Comment;
}

QStringList shippedLines(const QString& name)
{
    const QByteArray bytes = bytesOf(fennel::test::binFolder() + QStringLiteral("/data/") + name);
    EXPECT_TRUE(bytes.endsWith("\r\n"));
    EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
    return decodeText(bytes).text.split(u"\r\n"_s);
}

} // namespace

TEST(Catalogue, ReadsALineOfEachForm)
{
    const std::tuple<QString, int, QString> lines[] = {
        {u":38:s.arrow.color=0X00ff00# - Color"_s, 38, u"s.arrow.color=hex 65280|- Color"_s},
        {u":09:s.clock.fnt=0#TextColor"_s, 9, u"s.clock.fnt=0|TextColor"_s},
        {u":21:color2=0xdd44ff#"_s, 21, u"color2=hex 14501119|"_s},
        {u":21:color2=0xdd44ff"_s, 21, u"color2=hex 14501119|"_s},
        {u" \t :1: a b = 12 px # one # two = 3 # "_s, 1, u"a b=12|one # two = 3 # "_s},
        {u":99:n=0#use \"back_NN.jpg\"  "_s, 99, u"n=0|use \"back_NN.jpg\"  "_s},
        {u":5:a=abc#c#"_s, 5, u"a=0|c#"_s},
        {u":7:no value#c"_s, 7, u"=0|c"_s},
        {u":7x:a=-3#\a"_s, 7, u"a=-3|"_s},
    };
    for (const auto& [line, param, cell] : lines) {
        ZUKarr table;
        EXPECT_EQ(parseCatalogue(line, table), 0) << line.toStdString();
        EXPECT_EQ(shown(table.at(0, param)), cell);
    }
}

TEST(Catalogue, TakesTheFileNumberFromTheSection)
{
    const QString text = u":1:before=1\r\n[zuk0015]\r\n# :1:no=9\r\n:1:info=2\n  [###2x]# 7\n"
                         ":1:rline=3\n[zuk0000]#[zuk0000] - base\n:1:clock=4\n:1:later=5\n:\0:"_s;
    ZUKarr table;
    EXPECT_EQ(parseCatalogue(text, table), 1); // the NUL line has no id
    EXPECT_EQ(shown(table.at(0, 1)), u"later=5|"_s);
    EXPECT_EQ(shown(table.at(15, 1)), u"info=2|"_s);
    EXPECT_EQ(shown(table.at(2, 1)), u"rline=3|"_s);
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

TEST(Catalogue, TellsWhatItCannotRead)
{
    EXPECT_EQ(CatalogueLanguage(u"0419"_s), u"0419"_s);
    EXPECT_EQ(CatalogueLanguage(u"0199"_s), u"0409"_s);
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
