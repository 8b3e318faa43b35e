// SPDX-License-Identifier: MIT
// Tabs, the buttons beside their lists, and what a click means.
#include "params_fixture.h"

#include "editor/lists/list_actions.h"

using namespace fennel;
using namespace Qt::StringLiterals;

class Tabs : public test::ParamsTest {
protected:
    QStringList captions()
    {
        QStringList texts;
        for (std::size_t tab = 1; tab < lists.tabs.size(); ++tab)
            texts.append(lists.tabs[tab].caption);
        return texts;
    }
    static ListRow coloured(QRgb colour)
    {
        ListRow row;
        row.colour = colour;
        return row;
    }
    void put(int tab, const QString& name) { put(tab, member(name)); }
    static ListRow member(const QString& name)
    {
        ListRow row;
        row.cells.emplace_back().text = name;
        row.tag = fileTag(name);
        return row;
    }
    DoubleClick twice(int tab, int row = 1)
    {
        return onDoubleClick(shell.run, lists, tab, row, false);
    }
    void put(int tab, const ListRow& row)
    {
        lists.list(tab)->rows = {row};
        lists.list(tab)->selected = 1;
    }
};

TEST_F(Tabs, OfATemplate)
{
    const QString fixed = u"Menu|Gfxboot|Config|Background(s)|Font(s)"_s;
    build();
    EXPECT_EQ(captions().join(u'|'),
              fixed + u"|MenuPanel|MenuBar|LOGO|Time|Date|InfoLine|HelpPanel|RunLine|Glasses|"
                      "Linear Timer|Circular Timer|Numerical Timer|WaitPanel|Animation|InfoPanel|"
                      "@ZUK-MOSA@"_s);
    EXPECT_EQ(lists.tabs[15].toolTip, u"Linear Timer settings tab"_s);
    EXPECT_EQ(lists.tabs[15].object, 24);
    EXPECT_EQ(tabMenuCaption(lists.tabs[15]), u" - Linear Timer"_s);
    EXPECT_EQ(panel(0).TabIndex, 6);

    set(1, 1, 2);
    put(TabGfxboot, u"init"_s);
    lists.CurrentTab = 21;
    build();
    EXPECT_EQ(captions().mid(11, 4).join(u'|'), u"HelpPanel|Sparkle №1|Sparkle №2|RunLine"_s);
    EXPECT_EQ(lists.CurrentTab, 21);
    EXPECT_EQ(lists.list(TabGfxboot)->count(), 1); // fixed lists stay

    shell.run.GfxHasZuk = false;
    shell.run.gfxboot_var = 2;
    shell.run.ObjectCount = 4;
    BuildPanels(shell.shell, lists);
    BuildTabs(shell.shell, lists, {});
    EXPECT_EQ(captions().join(u'|'), fixed);
    EXPECT_EQ(lists.lists.size(), lists.tabs.size());
    EXPECT_EQ(lists.CurrentTab, 1);
}

TEST_F(Tabs, EnableButtonsForMembers)
{
    build();
    put(TabFonts, u"16x16.fnt"_s);
    put(TabBackgrounds, u"back.jpg"_s);
    put(TabGfxboot, u"ZUK_Read.txt"_s);
    const RowButtons picture = {true, true, true, true, true, true, false, true};
    const RowButtons words = {true, true, true, true, true, true, true, false};
    EXPECT_EQ(buttonsOfRow(shell.run, lists, TabBackgrounds, 1), picture);
    EXPECT_EQ(buttonsOfRow(shell.run, lists, TabGfxboot, 1), words);
    RowButtons afterChange = picture;
    afterChange.Font_change = false;
    EXPECT_EQ(buttonsOfTab(shell.run, lists, TabBackgrounds), afterChange);
    RowButtons fontOnly;
    fontOnly.toolbar12 = true;
    EXPECT_EQ(buttonsOfRow(shell.run, lists, panel(5).TabIndex, 2), fontOnly);
    shell.run.gfxboot_var = 1;
    shell.run.GfxHasZuk = false;
    EXPECT_EQ(buttonsOfRow(shell.run, lists, TabBackgrounds, 1), RowButtons());
    EXPECT_EQ(buttonsOfTab(shell.run, lists, 99), RowButtons());
}

TEST_F(Tabs, SkipGreyRows)
{
    ListRows list;
    for (const QRgb colour : {greyRow, blueRow, greyRow, greyRow, blackRow, greyRow})
        list.rows.push_back(coloured(colour));
    EXPECT_EQ(selectableRow(list, 2, 5), 2);
    EXPECT_EQ(selectableRow(list, 3, 2), 5);
    EXPECT_EQ(selectableRow(list, 4, 5), 2);
    EXPECT_EQ(selectableRow(list, 6, 5), 2); // around the end
    EXPECT_EQ(selectableRow(list, 1, 2), 5); // around the start
    EXPECT_EQ(selectableRow(list, 3, 3), 5);
    list.rows = {coloured(greyRow), coloured(greyRow)};
    EXPECT_EQ(selectableRow(list, 1, 2), 0);
    EXPECT_EQ(selectableRow({}, 1, 0), 0);

    set(0, 1, 0); // the clock is off: the walk ends on its switch
    build();
    lists.CurrentRow = 1;
    const ItemClick click = onItemClick(shell.run, lists, panel(5).TabIndex, 3, false);
    EXPECT_TRUE(click.skipped);
    EXPECT_EQ(click.select, 1);
    EXPECT_EQ(click.buttons, RowButtons());
}

TEST_F(Tabs, AnswerDoubleClicks)
{
    for (const QString& name : {u"Logo_01.jpg"_s, u"glass_01.jpg"_s, u"RLineDef.txt"_s})
        shell.member(name, "1");
    set(6, 1, 0);
    build();
    const std::tuple<int, QString, DoubleClick> answers[] = {
        {4, u"Logo_01.jpg"_s, DoubleClick::ShowLogo},
        {23, u"glass_01.jpg"_s, DoubleClick::OpenPicture},
        {22, u"RLineDef.txt"_s, DoubleClick::ShowText},
        {22, u"FileName"_s, DoubleClick::Nothing},
        {22, u"_____"_s, DoubleClick::SelectFirst},
        {5, u":02:="_s, DoubleClick::EditValue},
        {26, u":02:="_s, DoubleClick::SelectFirst}, // grey
    };
    for (const auto& [object, item, answer] : answers)
        EXPECT_EQ(twice(panel(object).TabIndex, rowNumber(object, item)), answer)
            << object << item.toStdString();
    EXPECT_EQ(onDoubleClick(shell.run, lists, panel(5).TabIndex, 1, true),
              DoubleClick::RefuseMenuLevel);
    const std::tuple<int, QString, DoubleClick> members[] = {
        {TabMenu, u"menu.LST"_s, DoubleClick::TakeMenu},
        {TabBackgrounds, u"back_01.jpg"_s, DoubleClick::ShowBackground},
        {TabFonts, u"16x16.fnt"_s, DoubleClick::ShowFont},
        {TabGfxboot, u"init"_s, DoubleClick::Nothing},
    };
    for (const auto& [tab, name, answer] : members) {
        put(tab, name);
        EXPECT_EQ(twice(tab), answer) << name.toStdString();
    }
    ListRow known = coloured(blueRow);
    known.tag = u"menu_start_x"_s;
    put(TabConfig, known);
    EXPECT_EQ(twice(TabConfig), DoubleClick::Nothing); // generation 3 shows, but does not edit it
    EXPECT_EQ(twice(TabConfig, 2), DoubleClick::Nothing);
    shell.run.GfxHasZuk = false;
    shell.run.gfxboot_var = 1;
    EXPECT_EQ(twice(TabFonts), DoubleClick::TellOldFonts);
    EXPECT_EQ(twice(TabBackgrounds), DoubleClick::Nothing);
    shell.run.gfxboot_var = 2;
    shell.run.GfxHasCfg = true;
    EXPECT_EQ(twice(TabConfig), DoubleClick::EditValue);
    for (const QRgb colour : {blueRow, fixedRow}) { // a comment line, and one of no parameter
        put(TabConfig, coloured(colour));
        EXPECT_EQ(twice(TabConfig), DoubleClick::Nothing);
    }
}

TEST_F(Tabs, HavePopups)
{
    build();
    const auto indices = [&](int tab) {
        std::vector<int> found;
        for (const PopupEntry& entry : tabPopup(shell.run, lists, tab))
            found.push_back(entry.index);
        return found;
    };
    EXPECT_EQ(indices(TabMenu), (std::vector<int>{0, 102, 112, 113}));
    EXPECT_EQ(indices(TabGfxboot), (std::vector<int>{0}));
    EXPECT_EQ(indices(TabBackgrounds), (std::vector<int>{0, 101, 102, 112, 113, 115}));
    EXPECT_EQ(indices(panel(4).TabIndex), (std::vector<int>{0, 112, 113, 116}));
    shell.run.gfxboot_var = 1;
    EXPECT_TRUE(indices(TabMenu).empty());
    EXPECT_EQ(rowPopup(TabConfig, u"x"_s).size(), 1U);
    EXPECT_FALSE(rowPopup(TabFonts, u"a.fnt"_s)[0].enabled);
    const QStringList names = deleteAllNames(lists, TabFonts);
    EXPECT_EQ(names.size(), 99);
    EXPECT_EQ(names.first(), u"16x16_01.fnt"_s);
    EXPECT_EQ(names.last(), u"16x16_99.fnt"_s);
    EXPECT_EQ(deleteAllNames(lists, panel(4).TabIndex).first(), u"Logo_01.jpg"_s);
}

TEST_F(Tabs, HaveThumbnailsAndIcons)
{
    for (int i = 0; i < 120; ++i)
        shell.member(u"head%1.jpg"_s.arg(i), "x");
    for (const char16_t* name : {u"ani_03_msk.jpg", u"ani_03.jpg", u"ani_00.jpg", u"ani_x.jpg"})
        shell.member(QString::fromUtf16(name), "x");
    EXPECT_EQ(thumbnailNames(shell.run.Workspace, u"head*.jpg"_s).size(), 100);
    EXPECT_EQ(thumbnailNames(shell.run.Workspace, thumbnailMask(u"Animation"_s)),
              QStringList({u"ani_00.jpg"_s, u"ani_03.jpg"_s, u"ani_03_msk.jpg"_s}));
}
