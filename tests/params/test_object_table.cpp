// SPDX-License-Identifier: MIT
// The table of boot-screen objects against figures typed by hand, and the numbers computed from it.
#include "params_fixture.h"

#include "params/catalogue.h"
#include "params/level_files.h"
#include "shell/text.h"

#include <array>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// top, left, width, height, on, back, text, transparency, font
using Sources = std::array<int, 9>;

struct Object {
    int row;
    const char16_t* name;
    const char16_t* caption;
    const char16_t* file;
    Sources sources;
    const char16_t* ids;
    const char16_t* ids2;
    const char16_t* component;
    const char* flags; // e editable, r roll, o only selected, t has a tab
};

const Object objects[] = {
    {0,
     u"MenuPanel",
     u"MenuPanel",
     u"ZUK0000.CFG",
     {43, 42, 54, -140, -1, 46, 48, 47, 39},
     u"39|40|41|42|43|46x|47|48x|54",
     u"40|41|",
     u"",
     "et"},
    {1,
     u"MenuBar",
     u"MenuBar",
     u"ZUK0000.CFG",
     {43, 42, 54, -24, -1, 56, 58, 57, 39},
     u"39|42|43|54|56x|57|58x",
     u"",
     u"",
     "et"},
    {2, u"ButtonsPanel", u"ButtonsPanel", u"", {}, u"", u"", u"", "r"},
    {3, u"OptionsPanel", u"OptionsPanel", u"", {}, u"", u"", u"", "r"},
    {4,
     u"LOGO",
     u"LOGO",
     u"ZUK0000.CFG",
     {33, 32, -120, -80, -1, 0, 0, -255, 39},
     u"30|32|33",
     u"",
     u"Logo_??.jpg",
     "et"},
    {5,
     u"Time",
     u"Time",
     u"ZUK0000.CFG",
     {3, 2, -72, -22, 1, 6, 8, 0, 9},
     u"01|02|03|06x|08x|09",
     u"",
     u"",
     "et"},
    {6,
     u"Date",
     u"Date",
     u"ZUK0000.CFG",
     {13, 12, -72, -22, 11, 16, 18, 0, 14},
     u"11|12|13|14|16x|18x",
     u"",
     u"",
     "et"},
    {7,
     u"InfoLine",
     u"InfoLine",
     u"ZUK0000.CFG",
     {23, 22, 24, -24, -1, 26, 28, 0, 29},
     u"22|23|24|26x|28x|29",
     u"",
     u"",
     "eot"},
    {8,
     u"HelpPanel",
     u"HelpPanel",
     u"ZUK0000.CFG",
     {-60, -80, -640, -480, -1, 66, 68, 67, 69},
     u"19|20|66x|67|68x|69|79",
     u"",
     u"zuk_read.txt|Logo_??.txt",
     "eot"},
    {11,
     u"Sparkle|№1",
     u"Sparkle №1",
     u"ZUK0001.CFG",
     {3, 2, 4, 5, 1, 0, 0, -255, 0},
     u"19|02|03|04|05|06|07||79",
     u"",
     u"",
     "ot"},
    {12,
     u"Sparkle|№2",
     u"Sparkle №2",
     u"ZUK0001.CFG",
     {13, 12, 14, 15, 1, 0, 0, -255, 0},
     u"19|12|13|14|15|16|17||79",
     u"",
     u"",
     "ot"},
    {13,
     u"Sparkle|№3",
     u"Sparkle №3",
     u"ZUK0001.CFG",
     {23, 22, 24, 25, 1, 0, 0, -255, 0},
     u"19|22|23|24|25|26|27||79",
     u"",
     u"",
     "ot"},
    {14,
     u"Sparkle|№4",
     u"Sparkle №4",
     u"ZUK0001.CFG",
     {33, 32, 34, 35, 1, 0, 0, -255, 0},
     u"19|32|33|34|35|36|37||79",
     u"",
     u"",
     "ot"},
    {15,
     u"Sparkle|№5",
     u"Sparkle №5",
     u"ZUK0001.CFG",
     {43, 42, 44, 45, 1, 0, 0, -255, 0},
     u"19|42|43|44|45|46|47||79",
     u"",
     u"",
     "ot"},
    {16,
     u"Sparkle|№6",
     u"Sparkle №6",
     u"ZUK0001.CFG",
     {53, 52, 54, 55, 1, 0, 0, -255, 0},
     u"19|52|53|54|55|56|57||79",
     u"",
     u"",
     "ot"},
    {17,
     u"Sparkle|№7",
     u"Sparkle №7",
     u"ZUK0001.CFG",
     {63, 62, 64, 65, 1, 0, 0, -255, 0},
     u"19|62|63|64|65|66|67||79",
     u"",
     u"",
     "ot"},
    {18,
     u"Sparkle|№8",
     u"Sparkle №8",
     u"ZUK0001.CFG",
     {73, 72, 74, 75, 1, 0, 0, -255, 0},
     u"19|72|73|74|75|76|77||79",
     u"",
     u"",
     "ot"},
    {22,
     u"RunLine",
     u"RunLine",
     u"ZUK0002.CFG",
     {3, 2, 4, 5, 1, 6, 8, 7, 19},
     u"01|02|03|04|05|06x|07|08x|09|19",
     u"",
     u"RLineDef.txt",
     "et"},
    {23,
     u"Glasses|Panel",
     u"Glasses",
     u"ZUK0003.CFG",
     {3, 2, -100, -30, 1, 0, 0, -255, 0},
     u"01|02|03|19|20x|21x|22x|23x|24x|25x|26x|27x|28x|29x|30x|31x|32x|33x|34x|35x|36x|37x|38x|99",
     u"",
     u"glass_??.jpg",
     "et"},
    {24,
     u"Linear|Timer",
     u"Linear Timer",
     u"ZUK0004.CFG",
     {3, 2, 4, 5, 1, 6, 0, 7, 0},
     u"01|02|03|04|05|06x|07|18|19|20|21x|22x|23|24|37|38",
     u"",
     u"",
     "et"},
    {25,
     u"Circular|Timer",
     u"Circular Timer",
     u"ZUK0005.CFG",
     {3, 2, 4, 5, 1, 0, 0, -255, 0},
     u"01|02|03|04|05|17|18|19|21x|22x|23|24|36|37|38",
     u"",
     u"",
     "et"},
    {26,
     u"Numerical|Timer",
     u"Numerical Timer",
     u"ZUK0006.CFG",
     {3, 2, -27, -22, 1, 0, 8, -255, 9},
     u"01|02|03|08x|09|38",
     u"",
     u"",
     "eot"},
    {27,
     u"WaitPanel",
     u"WaitPanel",
     u"ZUK0007.CFG",
     {3, 2, 4, 5, 1, 6, 8, 7, 9},
     u"01|02|03|04|05|06x|07|08x|09|11|22x",
     u"",
     u"",
     "eot"},
    {28,
     u"Animation|Panel",
     u"Animation",
     u"ZUK0008.CFG",
     {3, 2, 4, 5, 1, 0, 0, -255, 0},
     u"01|02|03|04|05|11|12|13|18|19|99",
     u"",
     u"ani_*.jpg",
     "eot"},
    {35,
     u"InfoPanel",
     u"InfoPanel",
     u"ZUK0015.CFG",
     {3, 2, -575, -375, 1, 6, 8, 7, 9},
     u"01|02|03|06x|07|08x|09|17x",
     u"",
     u"",
     "eot"},
    {39,
     u"@ZUK-MOSA@",
     u"@ZUK-MOSA@",
     u"ZUK0000.CFG",
     {0, 0, 0, 0, -1, 0, 0, -255, 0},
     u"31|34|35|38x|75x|76x|77|99",
     u"",
     u"",
     "ert"},
};

Sources sourcesOf(const PanelRec& p)
{
    return {p.TopParam,  p.LeftParam, p.WidthParam,  p.HeightParam, p.OnParam,
            p.BackParam, p.TextParam, p.TranspParam, p.FontParam};
}

bool has(const Object& object, char flag)
{
    return std::string_view(object.flags).find(flag) != std::string_view::npos;
}

QString text(const char16_t* literal)
{
    return QString::fromUtf16(literal);
}

void expectRow(const PanelRec& p, const Object& object)
{
    EXPECT_EQ(p.Name, text(object.name));
    EXPECT_EQ(objectCaption(p.Name), text(object.caption));
    EXPECT_EQ(p.CfgFile, text(object.file)) << object.row;
    EXPECT_EQ(sourcesOf(p), object.sources) << object.row;
    EXPECT_EQ(p.Ids, text(object.ids));
    EXPECT_EQ(p.Ids2, text(object.ids2)) << object.row;
    EXPECT_EQ(p.Component, text(object.component)) << object.row;
    EXPECT_EQ(p.Editable, has(object, 'e')) << object.row;
    EXPECT_EQ(p.Roll, has(object, 'r')) << object.row;
    EXPECT_EQ(p.OnlySelected, has(object, 'o')) << object.row;
    EXPECT_EQ(p.Enabled, has(object, 't')) << object.row;
}

} // namespace

class ObjectTable : public test::ParamsTest {};

TEST_F(ObjectTable, HoldsEveryFigure)
{
    set(1, 1, 8);
    BuildPanels(shell.shell, lists);
    ASSERT_EQ(lists.PanelArr.size(), 40U);
    std::vector<bool> named(40, false);
    for (const Object& object : objects) {
        expectRow(panel(object.row), object);
        named[static_cast<std::size_t>(object.row)] = true;
    }
    for (int row = 0; row < 40; ++row) {
        EXPECT_TRUE(panel(row).Shown);
        if (named[static_cast<std::size_t>(row)])
            continue;
        EXPECT_EQ(panel(row).Name, u"nonamed Panel №"_s + QString::number(row));
        EXPECT_FALSE(panel(row).Enabled);
        EXPECT_TRUE(panel(row).OnlySelected && panel(row).CfgFile.isEmpty());
        EXPECT_EQ(panel(row).Text, panel(row).Name + u'|');
    }
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
    EXPECT_EQ(QPoint(panel(3).Left, panel(3).Top), QPoint(360, 0));
    EXPECT_EQ(QPoint(panel(4).Left, panel(4).Top), QPoint(0, 300));
    EXPECT_EQ(QPoint(panel(11).Left, panel(11).Top), QPoint(120, 420));
    EXPECT_EQ(QPoint(panel(39).Left, panel(39).Top), QPoint(600, 900));
    EXPECT_EQ(panel(9).TextColor, 0xffffffff);
    EXPECT_EQ(panel(9).Width, 100);
    EXPECT_EQ(panel(9).Height, 50);

    shell.run.BackWidth = 50; // narrower than one cell, and than the margins of the help
    shell.run.BackHeight = 40;
    BuildPanels(shell.shell, lists);
    EXPECT_EQ(QPoint(panel(5).Left, panel(5).Top), QPoint(0, 420));
    EXPECT_EQ(panel(8).WidthParam, 0);
    EXPECT_EQ(panel(8).HeightParam, 0);
}

TEST_F(ObjectTable, GivesSparklesByTheirCount)
{
    for (const auto& [count, tabs] : {std::pair{-1, 0}, {0, 0}, {2, 2}, {8, 8}, {16777215, 8}}) {
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
        EXPECT_EQ(panel(4).WidthParam, -100);
        EXPECT_EQ(panel(4).HeightParam, -50);
    }
}

TEST_F(ObjectTable, ReadsPlacesFromTheLevels)
{
    set(0, 43, 170);
    set(0, 42, 253);
    set(0, 54, 300);
    set(0, 46, 0x183042);
    set(0, 48, -1); // no record: the default
    lists.ZUKarr.at(0, 48).DefValue = 0xABCDEF;
    set(0, 47, 128);
    set(4, 4, 16777215); // no width of a screen
    BuildPanels(shell.shell, lists);
    applyGeneration(shell.shell, lists, fonts, {});
    const PanelRec& menu = panel(0);
    EXPECT_EQ(QRect(menu.Left, menu.Top, menu.Width, menu.Height), QRect(253, 170, 300, 140));
    EXPECT_EQ(menu.BackColor, 0xff183042);
    EXPECT_EQ(menu.TextColor, 0xffabcdef);
    EXPECT_EQ(menu.Transp, 128);
    EXPECT_EQ(menu.FontIndex, 39);
    EXPECT_EQ(panel(4).Width, 120);
    EXPECT_EQ(panel(8).Top, 60);
    EXPECT_EQ(panel(8).Height, 480);
    EXPECT_EQ(panel(23).Transp, 255);
    EXPECT_EQ(panel(24).Width, 32767);
    EXPECT_EQ(panel(2).Width, 0);
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
    RecalcPanelsFromLevels(shell.shell, lists, Layer::Cfg);
    const PanelRec& first = panel(11);
    EXPECT_EQ(QRect(first.Left, first.Top, first.Width, first.Height), QRect(0, 50, 450, 550));
    const PanelRec& second = panel(12); // T 50, L 550, W 500, H 0
    EXPECT_EQ(QRect(second.Left, second.Top, second.Width, second.Height),
              QRect(500, 50, 450, 550));
}

class OldGenerations : public test::ParamsTest {
protected:
    OldGenerations()
    {
        shell.run.GfxHasZuk = false;
        shell.run.ObjectCount = 4;
    }
    void expectPlace(int row, const QRect& place, int transp, QRgb fore, QRgb back)
    {
        const PanelRec& p = panel(row);
        EXPECT_EQ(QRect(p.Left, p.Top, p.Width, p.Height), place) << row;
        EXPECT_EQ(p.Transp, transp) << row;
        EXPECT_EQ(p.TextColor, fore) << row;
        EXPECT_EQ(p.BackColor, back) << row;
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
    EXPECT_EQ(lists.tabCount(), 5);
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
    EXPECT_EQ(panel(0).Left, -32768);
    EXPECT_EQ(panel(0).Width, 32767);
}

TEST_F(OldGenerations, NothingOpenHasOneRow)
{
    shell.run.gfxboot_var = 1;
    shell.run.ObjectCount = 1;
    build();
    EXPECT_EQ(lists.PanelArr.size(), 1U);
}
