// SPDX-License-Identifier: MIT
#include "params_fixture.h"

#include <QFile>

using namespace fennel;
using namespace Qt::StringLiterals;

class ObjectRows : public test::ParamsTest {
protected:
    QStringList itemsOf(int object)
    {
        QStringList items;
        for (const ListRow& row : listOf(object).rows)
            items.append(row.text());
        return items;
    }
    void forget(int file)
    {
        for (int param = 1; param <= zukParamCount; ++param)
            set(file, param, -1);
    }
};

TEST_F(ObjectRows, ShowAParameter)
{
    set(0, 6, 0xF0A);
    set(0, 2, 315);
    lists.ZUKarr.at(0, 6).LstValue = 0xF0A;
    lists.ZUKarr.at(0, 2).LstValue = 16;
    build();
    EXPECT_EQ(listOf(5).columns,
              QStringList({u":ID:"_s, u"CFG data"_s, u"LST data"_s, u"Comment"_s}));
    EXPECT_EQ(itemsOf(5), QStringList({u":01:="_s, u":02:="_s, u":03:="_s, u":06:="_s, u":08:="_s,
                                       u":09:="_s}));
    const ListRow& colour = row(5, u":06:="_s);
    EXPECT_EQ(colour.tag, u"06|panel's parameter||x|"_s);
    EXPECT_EQ(colour.text(1), u"0x000F0A"_s);
    EXPECT_EQ(colour.text(2), u"0xF0A"_s);
    EXPECT_EQ(colour.text(3), u"comment 6"_s);
    EXPECT_EQ(colour.cells[0].toolTip, u"test0.p6"_s);
    EXPECT_EQ(colour.cells[1].toolTip, u"ZUKxxxx.CFG Level value"_s);
    EXPECT_EQ(colour.cells[1].tag, u"06x"_s);
    EXPECT_EQ(colour.cells[2].toolTip, u"MenuLevel value"_s);
    EXPECT_EQ(colour.cells[3].toolTip, u"Russian comment"_s);
    EXPECT_EQ(colour.cells[3].colour, 0xff271615);
    EXPECT_EQ(colour.swatch, 0xff000f0a);
    const ListRow& number = row(5, u":02:="_s);
    EXPECT_EQ(number.text(1), u"315"_s);
    EXPECT_EQ(number.text(2), u"16"_s);
    EXPECT_EQ(number.cells[1].tag, u"02"_s);
    EXPECT_FALSE(number.swatch);
    EXPECT_EQ(row(5, u":01:="_s).tag, u"01|panel's parameter||OnOff parameter|"_s);
    EXPECT_EQ(row(0, u":40:="_s).tag, u"40|panel's parameter|"_s); // through Ids2
    EXPECT_EQ(row(39, u":31:="_s).tag, u"31"_s);
    EXPECT_EQ(row(39, u":38:="_s).tag, u"38|x|"_s);
    EXPECT_EQ(lists.ZUKarr.at(0, 6).TabPos, panel(5).TabIndex);
    EXPECT_EQ(lists.ZUKarr.at(0, 6).RowPos, 4);
}

TEST_F(ObjectRows, AreColouredByTheSwitch)
{
    constexpr QRgb grey = 0xffcccccc;
    constexpr QRgb blue = 0xff0000ff;
    constexpr QRgb black = 0xff000000;
    struct Case {
        int enabled;
        QRgb own;
        QRgb other;
    };
    for (const Case& c : {Case{1, blue, black}, {5, blue, black}, {0, grey, grey}}) {
        set(4, 1, c.enabled);
        build();
        EXPECT_EQ(row(24, u":01:="_s).colour, blue);
        EXPECT_TRUE(row(24, u":01:="_s).bold);
        EXPECT_EQ(row(24, u":02:="_s).colour, c.own) << c.enabled;
        EXPECT_EQ(row(24, u":02:="_s).cells[1].colour, c.own) << c.enabled;
        EXPECT_EQ(row(24, u":18:="_s).colour, c.other) << c.enabled;
    }
    EXPECT_EQ(row(0, u":42:="_s).colour, blue); // always on
}

TEST_F(ObjectRows, EndWithTheMembers)
{
    shell.member(u"Logo_10.jpg"_s, jpeg(9, 9));
    shell.member(u"Logo_02.jpg"_s, "12345");
    shell.member(u"Logo_xx.jpg"_s, "no number");
    shell.member(u"ZUK_Read.txt"_s, "help");
    shell.member(u"ani_b.jpg"_s, "b");
    build();
    EXPECT_EQ(itemsOf(4), QStringList({u":30:="_s, u":32:="_s, u":33:="_s, u"_____"_s,
                                       u"FileName"_s, u"Logo_02.jpg"_s, u"Logo_10.jpg"_s}));
    const ListRow& member = row(4, u"Logo_02.jpg"_s);
    EXPECT_EQ(member.tag, u"|File: Logo_02.jpg|"_s);
    EXPECT_EQ(member.text(1), u"5"_s);
    EXPECT_EQ(member.cells[1].toolTip, u"Size: 5 byte"_s);
    EXPECT_EQ(member.colour, qRgb(181, 83, 0));
    EXPECT_EQ(member.cells[1].colour, qRgb(181, 83, 0));
    EXPECT_EQ(member.iconFile, shell.run.Workspace + u"Logo_02.jpg"_s);
    const ListRow& line = row(4, u"_____"_s);
    EXPECT_EQ(line.text(3), u"________________________"_s);
    EXPECT_EQ(line.colour, 0xffcccccc);
    const ListRow& head = row(4, u"FileName"_s);
    EXPECT_EQ(head.text(1), u"Size"_s);
    EXPECT_TRUE(head.bold && head.cells[1].bold && !head.colour);
    // Two masks, two blocks; a text has no icon.
    EXPECT_EQ(itemsOf(8).count(u"FileName"_s), 2);
    EXPECT_TRUE(row(8, u"ZUK_Read.txt"_s).iconFile.isEmpty());
    EXPECT_NE(rowNumber(28, u"ani_b.jpg"_s), 0);
}

TEST_F(ObjectRows, AskOnceForTheUpgrade)
{
    forget(6);
    set(5, 38, -1);
    shell.prompts.expectMessage(
        u"WARNING!\n\n  Gfxboot kernel version of the \"boot.gz\" is obsolete!\n"
        "  FENNEL-GFX (GUI) can upgrade file \"init\" to the current version.\n\n  To do this?"_s,
        Answer::Yes);
    build();
    EXPECT_EQ(shell.prompts.titles.last(), u"Upgrade"_s);
    EXPECT_EQ(lists.UpgradeChoice, 1);
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(tabsAtUpdate, 5); // what is on screen stays whole while the user is asked
    EXPECT_EQ(value(26, u":09:="_s), u"7"_s);
    EXPECT_EQ(value(26, u":08:="_s), u"0x000007"_s);
    build(); // answered for this gfxboot
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(shell.prompts.texts.size(), 1);
}

TEST_F(ObjectRows, LeaveOutWhatTheEngineLacks)
{
    forget(6);
    set(5, 38, -1);
    shell.prompts.expectMessage(u"obsolete"_s, Answer::No);
    build();
    EXPECT_EQ(lists.UpgradeChoice, -1);
    EXPECT_EQ(updates, 0);
    EXPECT_EQ(rowNumber(25, u":38:="_s), 0);
    EXPECT_NE(rowNumber(25, u":37:="_s), 0);
    EXPECT_EQ(itemsOf(26), QStringList({u"Need to upgrade"_s}));
    const ListRow& notice = *listOf(26).row(1);
    EXPECT_EQ(notice.text(1), u"gfxboot kernel"_s);
    EXPECT_EQ(notice.colour, 0xff171615);
    EXPECT_TRUE(notice.bold && notice.tag.isEmpty());
    EXPECT_EQ(lists.ZUKarr.at(5, 38).RowPos, -1);
}

TEST_F(ObjectRows, OfSparklesEndAtTheEmptyElement)
{
    set(1, 1, 2);
    lists.ZUKarr.at(1, 19) = {}; // in no catalogue and in no file
    shell.prompts.expectMessage(u"obsolete"_s, Answer::Yes);
    build();
    EXPECT_EQ(itemsOf(11), QStringList({u":02:="_s, u":03:="_s, u":04:="_s, u":05:="_s, u":06:="_s,
                                        u":07:="_s}));
    EXPECT_EQ(itemsOf(12).first(), u":12:="_s);
    EXPECT_FALSE(row(11, u":02:="_s).swatch);
    EXPECT_EQ(panel(13).TabIndex, 0);
}

TEST_F(ObjectRows, KeepTheSelectedRow)
{
    shell.member(u"Logo_01.jpg"_s, "1");
    shell.member(u"Logo_02.jpg"_s, "2");
    build();
    EXPECT_EQ(listOf(4).selected, 1);
    lists.CurrentTab = panel(4).TabIndex;
    listOf(4).selected = lists.CurrentRow = 7;
    FillObjectList(shell.shell, lists, 4, {});
    EXPECT_EQ(listOf(4).selected, 7);
    QFile::remove(shell.run.Workspace + u"Logo_01.jpg"_s);
    FillObjectList(shell.shell, lists, 4, {});
    EXPECT_EQ(listOf(4).selected, 6);
    EXPECT_EQ(lists.CurrentRow, 6);
}
