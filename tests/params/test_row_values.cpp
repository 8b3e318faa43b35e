// SPDX-License-Identifier: MIT
// Values typed, dragged and imposed by a menu: rows, objects and the table agree afterwards.
#include "params_fixture.h"

#include "params/level_files.h"
#include "params/menu_level.h"

using namespace fennel;
using namespace Qt::StringLiterals;

class RowValues : public test::ParamsTest {
protected:
    RowValues() { build(); }
};

TEST(Typed, IsNeverRefused)
{
    const std::pair<QString, QString> cases[] = {
        {u"0X1234567"_s, u"0x234567"_s},    {u"12abc"_s, u"12"_s},      {QString(), u"0"_s},
        {u"0x"_s, u"0x000000"_s},           {u"0xGG"_s, u"0x0000GG"_s}, {u" 0xff"_s, u"0"_s},
        {u"4294967295"_s, u"4294967295"_s}, {u"12.5"_s, u"12.5"_s},
    };
    for (const auto& [typed, stored] : cases)
        EXPECT_EQ(normaliseTyped(typed), stored);
    EXPECT_EQ(normaliseTyped(u"0x"_s + QString(1'000'000, u'7')), u"0x777777"_s);
    EXPECT_FALSE(normaliseTyped(QString(1'000'000, u'9')).isEmpty());
}

TEST_F(RowValues, ReachRowSwatchAndObject)
{
    RowChange change = type(5, u":06:="_s, u"0xff00"_s);
    EXPECT_EQ(change.objects, std::vector<int>{5});
    EXPECT_EQ(value(5, u":06:="_s), u"0x00FF00"_s);
    EXPECT_EQ(row(5, u":06:="_s).swatch, 0xff00ff00);
    EXPECT_EQ(panel(5).BackColor, 0xff00ff00);
    type(5, u":06:="_s, u"255"_s);
    EXPECT_EQ(value(5, u":06:="_s), u"255"_s);
    EXPECT_FALSE(row(5, u":06:="_s).swatch);
    type(5, u":02:="_s, u"777"_s);
    EXPECT_EQ(panel(5).Left, 777);
    // In no source field: it waits for the save.
    change = type(24, u":18:="_s, u"9"_s);
    EXPECT_TRUE(change.objects.empty() && !change.statesPainted);
    EXPECT_EQ(value(24, u":18:="_s), u"9"_s);
    // Wider than its record: the low 24 bits are saved, the row keeps the number.
    type(24, u":18:="_s, u"3000000000"_s);
    GatherListValues(shell.shell, lists);
    ASSERT_TRUE(WriteLevelFiles(shell.shell, lists.ZUKarr));
    ReadLevelFiles(shell.shell, lists.ZUKarr);
    EXPECT_EQ(value(24, u":18:="_s), u"3000000000"_s);
    EXPECT_EQ(lists.ZUKarr.at(4, 18).LevelValue, 0xD05E00);
    type(5, u":02:="_s, u"3000000000"_s);
    EXPECT_EQ(panel(5).Left, 32767);
    type(5, u":02:="_s, u"12.5"_s);
    EXPECT_EQ(panel(5).Left, 12);
    // Font 33 is not there, font 12 is.
    fonts[12].FontName = u"Serif"_s;
    type(5, u":09:="_s, u"12"_s);
    EXPECT_EQ(panel(5).FontIndex, 12);
    for (const QString& missing : {u"33"_s, u"-1"_s, u"100000"_s}) {
        type(5, u":09:="_s, missing);
        EXPECT_EQ(panel(5).FontIndex, 0);
    }
}

TEST_F(RowValues, ReachBothMenuAndBar)
{
    const RowChange change = type(0, u":42:="_s, u"99"_s);
    EXPECT_EQ(change.objects, (std::vector<int>{0, 1}));
    EXPECT_EQ(value(1, u":42:="_s), u"99"_s);
    EXPECT_EQ(panel(1).Left, 99);
    // The save takes the last list: it must have what was typed in the first.
    GatherListValues(shell.shell, lists);
    EXPECT_EQ(lists.ZUKarr.at(0, 42).EditValue, 99);
    type(0, u":40:="_s, u"8"_s);
    EXPECT_EQ(lists.MenuSlit, 8);
}

TEST_F(RowValues, SwitchAnObjectOffAndOn)
{
    RowChange change = type(5, u":01:="_s, u"0"_s);
    EXPECT_TRUE(change.statesPainted);
    EXPECT_EQ(panel(5).On, 0);
    for (const ListRow& row : listOf(5).rows) {
        const QRgb expected = row.text() == u":01:="_s ? blueRow : greyRow;
        EXPECT_EQ(row.colour, expected);
        for (const RowCell& cell : row.cells)
            EXPECT_EQ(cell.colour, expected);
    }
    type(24, u":01:="_s, u"1"_s);
    EXPECT_EQ(row(24, u":02:="_s).colour, blueRow);
    EXPECT_EQ(row(24, u":18:="_s).colour, blackRow);
}

TEST_F(RowValues, AreForParametersOnly)
{
    shell.member(u"Logo_01.jpg"_s, "12345");
    FillObjectList(shell.shell, lists, 4, {});
    type(4, u"Logo_01.jpg"_s, u"3"_s);
    EXPECT_EQ(value(4, u"Logo_01.jpg"_s), u"5"_s);
    for (const auto& [tab, row] : {std::pair{0, 1}, {2, 1}, {6, 0}, {6, 99}, {99, 1}, {-1, -1}})
        EXPECT_TRUE(setTypedValue(lists, fonts, tab, row, u"1").objects.empty());
    EXPECT_EQ(GetPanelParam(lists, panel(5).TabIndex, 55), -1);
    EXPECT_EQ(GetPanelParam(lists, 99, 1), -1);
    panel(5).Enabled = false;
    EXPECT_FALSE(RecalcPanelFromList(lists, fonts, panel(5).TabIndex, 5));
}

TEST_F(RowValues, ComeFromTheMouse)
{
    const auto values = [this](int object, const QStringList& items) {
        QStringList all;
        for (const QString& item : items)
            all << value(object, u":%1:="_s.arg(item));
        return all.join(u' ');
    };
    panel(5).BackColor = 0xff0a0b0c;
    PanelParamsToRow(lists, 5, QRectF(50, 101, 30, 30), 0.5);
    EXPECT_EQ(values(5, {u"02"_s, u"03"_s, u"06"_s}), u"100 202 0x0A0B0C"_s);
    EXPECT_EQ(row(5, u":06:="_s).swatch, 0xff0a0b0c);
    EXPECT_EQ(place(5), QRect(100, 202, 72, 22)); // the size is fixed

    panel(24).Transp = 40;
    PanelParamsToRow(lists, 24, QRectF(1, 2, 5, 7), 2); // halves go to the even side
    EXPECT_EQ(values(24, {u"02"_s, u"04"_s, u"05"_s, u"07"_s}), u"0 2 4 40"_s);

    PanelParamsToRow(lists, 1, QRectF(10, 20, 300, 24), 1);
    for (const int object : {0, 1}) {
        EXPECT_EQ(values(object, {u"42"_s, u"43"_s, u"54"_s}), u"10 20 300"_s);
        EXPECT_EQ(panel(object).Width, 300);
    }
    EXPECT_EQ(panel(0).Height, 140);
    PanelParamsToRow(lists, 5, QRectF(0, 0, 1, 1), 0);
    EXPECT_EQ(panel(5).Left, 100); // no scale, no change
    EXPECT_FALSE(SetRowValue(lists, 98, u"1"_s, 5));
}

TEST_F(RowValues, GiveWayToAMenu)
{
    lists.ZUKarr.at(0, 2).LstValue = 400;
    lists.ZUKarr.at(0, 6).LstValue = 0xFF;
    refreshLstColumn(lists);
    EXPECT_EQ(row(5, u":02:="_s).text(LstColumn), u"400"_s);
    EXPECT_EQ(row(5, u":06:="_s).text(LstColumn), u"0xFF"_s);
    lists.ZUKarr.at(0, 6).LstValue.reset();
    refreshLstColumn(lists);
    EXPECT_EQ(row(5, u":06:="_s).text(LstColumn), QString());

    const QString& folder = shell.run.Workspace;
    shell.run.BackFile = folder + u"back.jpg"_s;
    type(5, u":02:="_s, u"50"_s);
    EXPECT_EQ(switchMenuLevel(shell.shell, lists, true), std::nullopt); // no word of a background
    EXPECT_EQ(panel(5).Left, 400);
    EXPECT_EQ(switchMenuLevel(shell.shell, lists, false), std::nullopt);
    EXPECT_EQ(panel(5).Left, 50);

    type(39, u":99:="_s, u"3"_s);
    lists.ZUKarr.at(0, 99).LstValue = 102;
    shell.member(u"back_02.jpg"_s, "x");
    EXPECT_EQ(switchMenuLevel(shell.shell, lists, true), folder + u"back_02.jpg"_s);
    shell.run.BackFile = folder + u"back_02.jpg"_s;
    // The menu is gone before the values are switched back; its background must not stay.
    lists.ZUKarr.at(0, 99).LstValue.reset();
    EXPECT_EQ(switchMenuLevel(shell.shell, lists, false), folder + u"back.jpg"_s);
}
