// SPDX-License-Identifier: MIT
#include "params/swatch.h"

#include "params_fixture.h"

#include <QSet>

using namespace fennel;
using namespace Qt::StringLiterals;

class ObjectRows : public test::ParamsTest {
protected:
    void forget(int file)
    {
        for (int param = 1; param <= zukParamCount; ++param)
            set(file, param, -1);
    }
};

TEST_F(ObjectRows, ShowAParameter)
{
    set(0, 6, 0xF0A);
    lists.ZUKarr.at(0, 6).LstValue = 0xF0A;
    lists.ZUKarr.at(0, 2).LstValue = 16;
    build();
    EXPECT_EQ(itemsOf(5).join(u' '), u":01:= :02:= :03:= :06:= :08:= :09:="_s);
    const ListRow& colour = row(5, u":06:="_s);
    EXPECT_EQ(colour.swatch, 0xff000f0a);
    const ListRow& number = row(5, u":02:="_s);
    EXPECT_EQ(number.text(1) + u';' + number.cells[1].tag + u';' + number.text(2), u"2;02;16"_s);
    EXPECT_FALSE(number.swatch);
    EXPECT_EQ(lists.ZUKarr.at(0, 6).TabPos, panel(5).TabIndex);
    EXPECT_EQ(lists.ZUKarr.at(0, 6).RowPos, 4);
}

TEST_F(ObjectRows, EndWithTheMembers)
{
    shell.member(u"Logo_10.jpg"_s, test::jpegOf({9, 9}));
    shell.member(u"Logo_02.jpg"_s, "12345");
    shell.member(u"Logo_xx.jpg"_s, "no number");
    shell.member(u"ZUK_Read.txt"_s, "help");
    shell.member(u"ani_b.jpg"_s, "b");
    build();
    EXPECT_EQ(itemsOf(4).join(u' '), u":30:= :32:= :33:= _____ FileName Logo_02.jpg Logo_10.jpg"_s);
    const ListRow& member = row(4, u"Logo_02.jpg"_s);
    EXPECT_EQ(member.text(1), u"5"_s);
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
    EXPECT_EQ(listOf(26).row(1)->text(1), u"gfxboot kernel"_s);
    EXPECT_EQ(lists.ZUKarr.at(5, 38).RowPos, -1);
}

TEST_F(ObjectRows, OfSparklesEndAtTheEmptyElement)
{
    set(1, 1, 2);
    lists.ZUKarr.at(1, 19) = {}; // in no catalogue and in no file
    shell.prompts.expectMessage(u"obsolete"_s, Answer::Yes);
    build();
    EXPECT_EQ(itemsOf(11).join(u' '), u":02:= :03:= :04:= :05:= :06:= :07:="_s);
    EXPECT_EQ(itemsOf(12).first(), u":12:="_s);
    EXPECT_EQ(panel(13).TabIndex, 0);
}

TEST(RowColours, AreReadOnDarkListsAndToldApart)
{
    const QRgb dark = qRgb(35, 38, 41);
    QSet<QRgb> seen;
    for (const QRgb colour : {qRgb(0, 0, 0), qRgb(0, 0, 255), qRgb(0, 128, 0), qRgb(255, 0, 0),
                              qRgb(255, 0, 128), qRgb(136, 0, 136)}) {
        EXPECT_EQ(textOnGround(colour, qRgb(255, 255, 255)), colour);
        const QRgb shown = textOnGround(colour, dark);
        EXPECT_GT(qGray(shown), qGray(dark) + 100) << colour;
        seen.insert(shown);
    }
    EXPECT_EQ(seen.size(), 6);
}
