// SPDX-License-Identifier: MIT
// The table of boot-screen objects against the catalogue, and the numbers computed from it.
#include "params_fixture.h"
#include "support/bin_folder.h"

#include "params/catalogue.h"
#include "params/level_files.h"

using namespace fennel;
using namespace Qt::StringLiterals;

class ObjectTable : public test::ParamsTest {};

// Every parameter of the shipped catalogue but two of the sparkles is in a list, and the other way
// round: what stood in no list would be lost at the first save.
TEST_F(ObjectTable, ListsWhatTheCatalogueKnows)
{
    shell.run.AppPath = fennel::test::binFolder();
    ZUKarr catalogue;
    ASSERT_TRUE(LoadCatalogue(shell.shell, catalogue));
    set(1, 1, 8);
    BuildPanels(shell.shell, state);
    for (const PanelRec& p : state.PanelArr) {
        for (const PanelParam& id : p.Ids) {
            ZukCell& cell = catalogue.at(levelFileOf(p), id.number);
            const bool stray = levelFileOf(p) == 1 && id.number == 19;
            EXPECT_NE(cell.Name.isEmpty(), !stray) << p.Name.toStdString() << id.number;
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

TEST_F(ObjectTable, TellsOfALogoWithoutSize)
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("no picture at all")}) {
        shell.member(u"Logo_msk.jpg"_s, bytes);
        shell.prompts.expectMessage(u"Logo_msk.jpg"_s);
        BuildPanels(shell.shell, state);
        EXPECT_TRUE(panel(4).WidthParam == -100 && panel(4).HeightParam == -50);
    }
}

TEST_F(ObjectTable, ReadsPlacesFromTheLevels)
{
    for (const auto& [param, value] : {std::pair{43, 170}, {42, 253}, {54, 300}, {46, 0x183042}})
        set(0, param, value);
    set(0, 48, -1); // no record: the default
    state.ZUKarr.at(0, 48).DefValue = 0xABCDEF;
    set(0, 47, 128);
    set(4, 4, 16777215); // no width of a screen
    BuildPanels(shell.shell, state);
    applyGeneration(shell.shell, state, fonts);
    const PanelRec& menu = panel(0);
    EXPECT_EQ(place(0), QRect(253, 170, 300, 41 * (14 + 3 + 40))) << "41 entries";
    EXPECT_EQ(menu.BackColor, 0xff183042);
    EXPECT_EQ(menu.TextColor, 0xffabcdef);
    EXPECT_EQ(menu.Transp, 128);
    EXPECT_EQ(menu.FontIndex, 39);
    EXPECT_EQ(place(8), QRect(80, 60, 640, 480));
    EXPECT_EQ(panel(23).Transp, 255);
    EXPECT_EQ(panel(24).Width, 32767);

    // The same from the values that the tabs list; a font that is not there is the standard one.
    listValues(state);
    state.ZUKarr.at(0, 43).Value = typedValue(u"12.5");
    const PanelRec typed = panelFromValues(state, fonts, 0);
    EXPECT_TRUE(typed.Top == 12 && typed.Left == 253 && typed.FontIndex == 0);
    EXPECT_EQ(menuSlit(state), 40);
    EXPECT_EQ(GetPanelParam(state, 5, 55), -1); // of another object
    EXPECT_EQ(switchValue(state, panel(5)), 1);
}

TEST_F(ObjectTable, ListsValuesAsFarAsTheEngineKnowsThem)
{
    set(5, 38, -1);
    set(6, 9, -1);
    state.ZUKarr.at(6, 9).DefValue.reset();
    build();
    EXPECT_TRUE(lacksParameters(state));
    EXPECT_FALSE(state.ZUKarr.at(5, 38).Value || state.ZUKarr.at(9, 1).Value);
    EXPECT_EQ(state.ZUKarr.at(0, 6).Value, (ParamValue{6, true, {}}));
    state.UpgradeChoice = 1;
    listValues(state);
    EXPECT_EQ(state.ZUKarr.at(5, 38).Value->number, 7); // the catalogue's
    EXPECT_FALSE(state.ZUKarr.at(6, 9).Value); // saving it would put an unknown record there
    set(5, 38, 1);
    EXPECT_FALSE(lacksParameters(state));
}

TEST_F(ObjectTable, MixesTheAxesOfSparks)
{
    set(1, 1, 2);
    const int values[] = {0, 500, 50, 550}; // AX, AY, BX, BY
    for (int i = 0; i < 4; ++i) {
        set(1, 2 + i, values[i]);
        set(1, 12 + i, values[3 - i]);
    }
    BuildPanels(shell.shell, state);
    RecalcPanelsFromLevels(shell.shell, state, fonts, LayerCfg);
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

TEST_F(OldGenerations, SecondTakesSixKeysOfItsFile)
{
    shell.run.gfxboot_var = 2;
    const auto text = u"menu_start_x=100\nmenu_start_y=200\nmenu_max_entries=5\n"
                      "menu_text_normal=0x112233\nmenu_text_select=0x445566\n"
                      "menu_bar_color=0x778899\nwelcome=1\n"_s;
    state.cfg = *cfgLinesFrom(text, {});
    BuildPanels(shell.shell, state);
    applyGeneration(shell.shell, state, fonts);
    expectPlace(0, {100, 200, 700, 103}, 255, 0xff112233, 0xff808080);
    expectPlace(1, {100, 200, 700, 23}, 70, 0xff445566, 0xff778899);
    expectPlace(3, {263, 480, 537, 23}, 255, 0xffffffff, 0xff808080);

    // A change brings its own parameter only; what was dragged meanwhile stays.
    panel(0).Left = panel(1).Left = 150;
    panel(0).Width = panel(1).Width = 500;
    const auto one = [&](QStringView name, const QString& value) {
        state.cfg[cfgLineOf(state.cfg, name)].value = typedValue(value);
        CfgApply(shell.run, state, fonts, name);
    };
    one(u"welcome", u"9"_s);
    one(u"menu_start_y", u"50"_s);
    one(u"menu_max_entries", u"2"_s);
    one(u"menu_text_normal", u"0x1"_s);
    one(u"menu_text_select", u"0x2"_s);
    one(u"menu_bar_color", u"0x3"_s);
    expectPlace(0, {150, 50, 500, 43}, 255, 0xff000001, 0xff808080);
    expectPlace(1, {150, 50, 500, 23}, 70, 0xff000002, 0xff000003);
    one(u"menu_start_x", u"10"_s);
    EXPECT_EQ(place(0).left(), 10);
    EXPECT_EQ(place(1).width(), 790);
    fonts[0].Size = 24;
    fitMenuToFont(shell.run, state, fonts);
    EXPECT_EQ(place(0), QRect(10, 50, 790, 63));
    EXPECT_EQ(place(1), QRect(10, 50, 790, 33));

    for (CfgLine& line : state.cfg)
        line.value = typedValue(u"-99999999");
    applyGeneration(shell.shell, state, fonts);
    EXPECT_TRUE(panel(0).Left == -32768 && panel(0).Width == 32767);
}
