// SPDX-License-Identifier: MIT
// The table of boot-screen objects against figures typed by hand, and the numbers computed from it.
#include "params_fixture.h"

#include "params/catalogue.h"
#include "params/level_files.h"
#include "shell/text.h"

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// row;name;file;e editable, r roll, o only selected, t has a tab;component
// ;sources of top, left, width, height, on, back, text, transparency, font;ids;ids2
const QString objects = uR"(
0;MenuPanel;ZUK0000.CFG;et;;43,42,54,-140,-1,46,48,47,39;39|40|41|42|43|46x|47|48x|54;40|41|
1;MenuBar;ZUK0000.CFG;et;;43,42,54,-24,-1,56,58,57,39;39|42|43|54|56x|57|58x;
2;ButtonsPanel;;r;;0,0,0,0,0,0,0,0,0;;
3;OptionsPanel;;r;;0,0,0,0,0,0,0,0,0;;
4;LOGO;ZUK0000.CFG;et;Logo_??.jpg;33,32,-120,-80,-1,0,0,-255,39;30|32|33;
5;Time;ZUK0000.CFG;et;;3,2,-72,-22,1,6,8,0,9;01|02|03|06x|08x|09;
6;Date;ZUK0000.CFG;et;;13,12,-72,-22,11,16,18,0,14;11|12|13|14|16x|18x;
7;InfoLine;ZUK0000.CFG;eot;;23,22,24,-24,-1,26,28,0,29;22|23|24|26x|28x|29;
8;HelpPanel;ZUK0000.CFG;eot;zuk_read.txt|Logo_??.txt;-60,-80,-640,-480,-1,66,68,67,69;19|20|66x|67|68x|69|79;
11;Sparkle|№1;ZUK0001.CFG;ot;;3,2,4,5,1,0,0,-255,0;19|02|03|04|05|06|07||79;
12;Sparkle|№2;ZUK0001.CFG;ot;;13,12,14,15,1,0,0,-255,0;19|12|13|14|15|16|17||79;
13;Sparkle|№3;ZUK0001.CFG;ot;;23,22,24,25,1,0,0,-255,0;19|22|23|24|25|26|27||79;
14;Sparkle|№4;ZUK0001.CFG;ot;;33,32,34,35,1,0,0,-255,0;19|32|33|34|35|36|37||79;
15;Sparkle|№5;ZUK0001.CFG;ot;;43,42,44,45,1,0,0,-255,0;19|42|43|44|45|46|47||79;
16;Sparkle|№6;ZUK0001.CFG;ot;;53,52,54,55,1,0,0,-255,0;19|52|53|54|55|56|57||79;
17;Sparkle|№7;ZUK0001.CFG;ot;;63,62,64,65,1,0,0,-255,0;19|62|63|64|65|66|67||79;
18;Sparkle|№8;ZUK0001.CFG;ot;;73,72,74,75,1,0,0,-255,0;19|72|73|74|75|76|77||79;
22;RunLine;ZUK0002.CFG;et;RLineDef.txt;3,2,4,5,1,6,8,7,19;01|02|03|04|05|06x|07|08x|09|19;
23;Glasses|Panel;ZUK0003.CFG;et;glass_??.jpg;3,2,-100,-30,1,0,0,-255,0;01|02|03|19|20x|21x|22x|23x|24x|25x|26x|27x|28x|29x|30x|31x|32x|33x|34x|35x|36x|37x|38x|99;
24;Linear|Timer;ZUK0004.CFG;et;;3,2,4,5,1,6,0,7,0;01|02|03|04|05|06x|07|18|19|20|21x|22x|23|24|37|38;
25;Circular|Timer;ZUK0005.CFG;et;;3,2,4,5,1,0,0,-255,0;01|02|03|04|05|17|18|19|21x|22x|23|24|36|37|38;
26;Numerical|Timer;ZUK0006.CFG;eot;;3,2,-27,-22,1,0,8,-255,9;01|02|03|08x|09|38;
27;WaitPanel;ZUK0007.CFG;eot;;3,2,4,5,1,6,8,7,9;01|02|03|04|05|06x|07|08x|09|11|22x;
28;Animation|Panel;ZUK0008.CFG;eot;ani_*.jpg;3,2,4,5,1,0,0,-255,0;01|02|03|04|05|11|12|13|18|19|99;
35;InfoPanel;ZUK0015.CFG;eot;;3,2,-575,-375,1,6,8,7,9;01|02|03|06x|07|08x|09|17x;
39;@ZUK-MOSA@;ZUK0000.CFG;ert;;0,0,0,0,-1,0,0,-255,0;31|34|35|38x|75x|76x|77|99;
)"_s;

// A row of the table as it is typed above.
QString typed(int row, const PanelRec& p)
{
    QStringList sources;
    for (const qint32 source :
         {qint32{p.TopParam}, qint32{p.LeftParam}, qint32{p.WidthParam}, qint32{p.HeightParam},
          qint32{p.OnParam}, p.BackParam, p.TextParam, qint32{p.TranspParam}, qint32{p.FontParam}})
        sources << QString::number(source);
    QString flags;
    for (const auto& [set, flag] : {std::pair{p.Editable, u'e'}, std::pair{p.Roll, u'r'},
                                    std::pair{p.OnlySelected, u'o'}, std::pair{p.Enabled, u't'}})
        flags += set ? QString(flag) : QString();
    return QStringList{QString::number(row), p.Name, p.CfgFile, flags, p.Component,
                       sources.join(u','),   p.Ids,  p.Ids2}
        .join(u';');
}

} // namespace

class ObjectTable : public test::ParamsTest {};

TEST_F(ObjectTable, HoldsEveryFigure)
{
    set(1, 1, 8);
    BuildPanels(shell.shell, lists);
    ASSERT_EQ(lists.PanelArr.size(), 40U);
    QStringList expected = objects.split(u'\n', Qt::SkipEmptyParts);
    for (int row = 0; row < 40; ++row) {
        EXPECT_TRUE(panel(row).Shown);
        if (expected.value(0).section(u';', 0, 0).toInt() == row) {
            EXPECT_EQ(typed(row, panel(row)), expected.takeFirst());
            continue;
        }
        EXPECT_EQ(panel(row).Name, u"nonamed Panel №"_s + QString::number(row));
        EXPECT_TRUE(!panel(row).Enabled && panel(row).OnlySelected && panel(row).CfgFile.isEmpty());
        EXPECT_EQ(panel(row).Text, panel(row).Name + u'|');
    }
    EXPECT_TRUE(expected.isEmpty());
}

// Every parameter of the shipped catalogue but two of the sparkles is in a list, and the other way
// round: what stood in no list would be lost at the first save.
TEST_F(ObjectTable, ListsWhatTheCatalogueKnows)
{
    shell.run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
    ZUKarr catalogue;
    ASSERT_TRUE(LoadCatalogue(shell.shell, catalogue));
    set(1, 1, 8);
    BuildPanels(shell.shell, lists);
    for (const PanelRec& p : lists.PanelArr) {
        for (const QString& id : p.Ids.split(u'|', Qt::SkipEmptyParts)) {
            ZukCell& cell = catalogue.at(levelFileOf(p), static_cast<int>(numberFromText(id)));
            const bool stray = levelFileOf(p) == 1 && (id == u"19" || id == u"79");
            EXPECT_NE(cell.Name.isEmpty(), !stray) << p.Name.toStdString() << id.toStdString();
            cell.DefValue.reset();
        }
    }
    QStringList unlisted;
    for (int file = 0; file < zukFileCount; ++file) {
        for (int param = 1; param <= zukParamCount; ++param) {
            if (catalogue.at(file, param).DefValue)
                unlisted.append(u"%1:%2"_s.arg(file).arg(param));
        }
    }
    EXPECT_EQ(unlisted, QStringList({u"1:1"_s, u"1:99"_s}));
}

TEST_F(ObjectTable, StartsOnARasterOf120Pixels)
{
    BuildPanels(shell.shell, lists); // 800 div 120 = 6 columns
    EXPECT_EQ(place(4).topLeft(), QPoint(0, 300));
    EXPECT_EQ(place(9).size(), QSize(100, 50));
    EXPECT_EQ(place(39).topLeft(), QPoint(600, 900));
    shell.run.BackWidth = 50; // narrower than one cell, and than the margins of the help
    shell.run.BackHeight = 40;
    BuildPanels(shell.shell, lists);
    EXPECT_EQ(place(5).topLeft(), QPoint(0, 420));
    EXPECT_TRUE(panel(8).WidthParam == 0 && panel(8).HeightParam == 0);
}

TEST_F(ObjectTable, GivesSparklesByTheirCount)
{
    for (const auto& [count, tabs] : {std::pair{-1, 0}, {0, 0}, {2, 2}, {16777215, 8}}) {
        set(1, 1, count);
        BuildPanels(shell.shell, lists);
        int enabled = 0;
        for (int row = 11; row <= 18; ++row)
            enabled += panel(row).Enabled ? 1 : 0;
        EXPECT_EQ(enabled, tabs) << count;
    }
}

TEST_F(ObjectTable, TellsOfALogoWithoutSize)
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("no picture at all")}) {
        shell.member(u"Logo_msk.jpg"_s, bytes);
        shell.prompts.expectMessage(u"Logo_msk.jpg"_s);
        BuildPanels(shell.shell, lists);
        EXPECT_TRUE(panel(4).WidthParam == -100 && panel(4).HeightParam == -50);
    }
}

TEST_F(ObjectTable, ReadsPlacesFromTheLevels)
{
    for (const auto& [param, value] : {std::pair{43, 170}, {42, 253}, {54, 300}, {46, 0x183042}})
        set(0, param, value);
    set(0, 48, -1); // no record: the default
    lists.ZUKarr.at(0, 48).DefValue = 0xABCDEF;
    set(0, 47, 128);
    set(4, 4, 16777215); // no width of a screen
    BuildPanels(shell.shell, lists);
    applyGeneration(shell.shell, lists, fonts, {});
    const PanelRec& menu = panel(0);
    EXPECT_EQ(place(0), QRect(253, 170, 300, 140));
    EXPECT_EQ(menu.BackColor, 0xff183042);
    EXPECT_EQ(menu.TextColor, 0xffabcdef);
    EXPECT_EQ(menu.Transp, 128);
    EXPECT_EQ(menu.FontIndex, 39);
    EXPECT_EQ(place(8), QRect(80, 60, 640, 480));
    EXPECT_EQ(panel(23).Transp, 255);
    EXPECT_EQ(panel(24).Width, 32767);
}

TEST_F(ObjectTable, MixesTheAxesOfSparks)
{
    set(1, 1, 2);
    const int values[] = {0, 500, 50, 550}; // AX, AY, BX, BY
    for (int i = 0; i < 4; ++i) {
        set(1, 2 + i, values[i]);
        set(1, 12 + i, values[3 - i]);
    }
    BuildPanels(shell.shell, lists);
    RecalcPanelsFromLevels(shell.shell, lists, LayerCfg);
    EXPECT_EQ(place(11), QRect(0, 50, 450, 550));
    EXPECT_EQ(place(12), QRect(500, 50, 450, 550)); // T 50, L 550, W 500, H 0
}

class OldGenerations : public test::ParamsTest {
protected:
    OldGenerations()
    {
        shell.run.GfxHasZuk = false;
        shell.run.ObjectCount = 4;
    }
    void expectPlace(int row, const QRect& expected, int transp, QRgb fore, QRgb back)
    {
        const PanelRec& p = panel(row);
        EXPECT_EQ(place(row), expected);
        EXPECT_TRUE(p.Transp == transp && p.TextColor == fore && p.BackColor == back) << row;
        EXPECT_TRUE(p.Enabled) << row;
    }
};

TEST_F(OldGenerations, FirstHasFixedPlaces)
{
    shell.run.gfxboot_var = 1;
    build(); // a line is 14 + 3 + 3 = 20 pixels
    expectPlace(0, {253, 170, 547, 163}, 255, 0xffffffff, 0xff808080);
    expectPlace(1, {253, 170, 547, 23}, 70, 0xff000000, 0xffffffff);
    expectPlace(2, {0, 555, 800, 45}, 255, 0xffffffff, 0xff808080);
    expectPlace(3, {263, 480, 537, 23}, 255, 0xffffffff, 0xff808080);
    EXPECT_EQ(panel(0).Text.count(u'|'), 8);
    EXPECT_FALSE(panel(0).Text.contains(u"RECALL"));
    EXPECT_EQ(panel(1).Text, u"RECALL Menu.lst"_s);
    EXPECT_EQ(panel(2).Text, u"F1|Help|F2|Language|English (UK)|F9|Reboot|F10|Poweroff"_s);
    EXPECT_EQ(panel(3).Text, u"OptionsPanel"_s);
    shell.run.ObjectCount = 1; // nothing open
    build();
    EXPECT_EQ(lists.PanelArr.size(), 1U);
}

TEST_F(OldGenerations, SecondTakesSixKeysOfItsFile)
{
    shell.run.gfxboot_var = 2;
    const std::map<QString, QString> keys = {
        {u"menu_start_x"_s, u"100"_s},          {u"menu_start_y"_s, u"200"_s},
        {u"menu_max_entries"_s, u"5"_s},        {u"menu_text_normal"_s, u"0x112233"_s},
        {u"menu_text_select"_s, u"0x445566"_s}, {u"menu_bar_color"_s, u"0x778899"_s}};
    BuildPanels(shell.shell, lists);
    applyGeneration(shell.shell, lists, fonts,
                    [&](QStringView name) { return keys.at(name.toString()); });
    expectPlace(0, {100, 200, 700, 103}, 255, 0xff112233, 0xff808080);
    expectPlace(1, {100, 200, 700, 23}, 70, 0xff445566, 0xff778899);
    expectPlace(3, {263, 480, 537, 23}, 255, 0xffffffff, 0xff808080);
    applyGeneration(shell.shell, lists, fonts, [](QStringView) { return u"-99999999"_s; });
    EXPECT_TRUE(panel(0).Left == -32768 && panel(0).Width == 32767);
}
