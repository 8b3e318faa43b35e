// SPDX-License-Identifier: MIT
#include "frame/menus.h"
#include "support/test_shell.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

struct Item {
    const char* parent; // "" is the bar, "*" a menu shown at the mouse
    const char* name;
    const char* caption;
};

// The window's menu as people know it.
const Item expectedItems[] = {
    {"", "mnuFile", "&File"},
    {"mnuFile", "mnuFile_Open", "Open gfxboot..."},
    {"mnuFile", "mnuFile_ReOpen", "ReOpen ..."},
    {"mnuFile", "mnuFile_New", "New"},
    {"mnuFile", "mnuFile_Save", "Save"},
    {"mnuFile", "mnuFile_SaveAs", "Save  gfxboot as ..."},
    {"mnuFile", "mnuFile_Splash", "Save current background as splashimage"},
    {"mnuFile", "mnuFile_LastUsed", "Last used"},
    {"mnuFile", "mnuFile_Clear", "Clear the list"},
    {"mnuFile", "mnuFile_Exit", "Exit"},
    {"", "mnuView", "&View"},
    {"mnuView", "mnuView_scale1", "Scale 1:1 (100%)"},
    {"mnuView", "mnuView_fill", "Fill the screen"},
    {"mnuView", "mnuView_custom", "Custom scale..."},
    {"mnuView", "mnuView_scales", "Scales"},
    {"mnuView", "mnuView_Splash", "SplashImage view"},
    {"", "mnuEDIT", "&Edit"},
    {"mnuEDIT", "mnuEdit_GetINFO", "Get INFO"},
    {"mnuEDIT", "mnuEdit_Replace", "Replace any gfxboot's components"},
    {"mnuEDIT", "mnuEdit_Extract", "Extract components of some gfxboot into folder..."},
    {"mnuEDIT", "mnuEdit_Assemble", "Assemble gfxboot from component folder..."},
    {"mnuEDIT", "mnuEdit_Gfxboot2", "Gfxboot without gfxboot.cfg"},
    {"mnuEDIT", "mnuEdit_ChangeBack", " - change back.jpg..."},
    {"mnuEDIT", "mnuEdit_gfxboot3", "Gfxboot v.3-3 custom"},
    {"mnuEDIT", "mnuEdit_EditCFG", " - EDIT gfxboot.cfg..."},
    {"mnuEDIT", "mnuEDIT_NEWFont", " - change FONT"},
    {"mnuEDIT", "mnuEdit_ZUK", "Gfxboot @ZUK-MOSA@"},
    {"mnuEDIT", "mnuEdit_Sound", " - SOUND"},
    {"mnuEDIT", "mnuEDIT_ADDFont", " - add FONT..."},
    {"mnuEDIT", "mnuEDIT_ADDBack", " - add BACK..."},
    {"mnuEDIT", "mnuEDIT_ADDLogo", " - add LOGO..."},
    {"mnuEDIT", "mnuEdit_Resize", " Resize..."},
    {"mnuEDIT", "mnuEdit_ResizeLOGO", " Resize LOGO"},
    {"mnuEDIT", "mnuEdit_16x9Support", " 16:9 support..."},
    {"mnuEDIT", "mnuEdit_ge_Clipboard", "Set Clipboard as background"},
    {"", "mnuFlash", "F&lash"},
    {"mnuFlash", "mnuFlash_Choose", "Check Flash Drive as \"Current Flash\" for QEMU"},
    {"mnuFlash", "mnuFlash_UnCheckAll", "UnCheck all Drives"},
    {"mnuFlash", "mnuFlash_Monitor", "Monitor Flash connections"},
    {"mnuFlash", "mnuFlash_GetINFO", "Get INFO about all Flash Drives"},
    {"", "mnuMenuLST", "&Menu.lst"},
    {"mnuMenuLST", "mnuMenu_Embedded", "Show Embedded menu.lst"},
    {"mnuMenuLST", "mnuMenu_select", "Select MENU from X:"},
    {"", "mnuTools", "&Tools"},
    {"mnuTools", "mnuT_s4", "tools set is empty"},
    {"mnuTools", "mnuT_Qemu", "QEMU"},
    {"mnuT_Qemu", "mnuT_Qemu_Start", "Start QEMU with Current Flash Drive"},
    {"mnuT_Qemu", "mnuT_Qemu_BIOS", "Select Video BIOS for QEMU"},
    {"mnuT_Qemu", "mnuT_Qemu_BIOS_standart", "  - Standart VGABIOS (1M VideoRAM)"},
    {"mnuT_Qemu", "mnuT_Qemu_BIOS_Cirrus", "  - Cirrus Logic VGABIOS (4M VideoRAM)"},
    {"mnuT_Qemu", "mnuT_Qemu_BIOS_16", "  - NonStandard VGABIOS (16M VideoRAM)"},
    {"mnuTools", "mnuT_NConvert", "NConvert"},
    {"mnuT_NConvert", "mnuT_NConvert_Convert", "Convert picture to jpg..."},
    {"mnuT_NConvert", "mnuT_NConvert_Clipboard", "Save Clipboard as jpg..."},
    {"mnuT_NConvert", "mnuT_NConvert_Resize", "Resize picture..."},
    {"mnuT_NConvert", "mnuT_NConvert_Crop", "Crop picture..."},
    {"mnuTools", "mnuT_GZip", "7-Zip (7za.exe)"},
    {"mnuT_GZip", "mnuT_GZip_Extract", "Extract the contents from gz-archive..."},
    {"mnuT_GZip", "mnuT_GZip_Pack", "Pack file into gz-arhive..."},
    {"mnuTools", "mnuT_CPIO", "CPIO"},
    {"mnuT_CPIO", "mnuT_CPIO_GetINFO", "Get list files of gfxboot..."},
    {"mnuT_CPIO", "mnuT_CPIO_Extract", "Extract components of some gfxboot into folder..."},
    {"mnuT_CPIO", "mnuT_CPIO_Assemble", "Assemble gfxboot from component folder..."},
    {"", "mnuHelp", "&Help"},
    {"mnuHelp", "mnuHelpAboutZukMosa", "@ZUK-MOSA@"},
    {"mnuHelpAboutZukMosa", "mnuHelpEn", " - English forum"},
    {"mnuHelpAboutZukMosa", "mnuHelpRu", " - Russian forum"},
    {"mnuHelpAboutZukMosa", "mnuHelp_FAQ", " - On-line FAQ"},
    {"mnuHelpAboutZukMosa", "mnuHelpYouTube", " - @ZUK-MOSA@ on YouTube"},
    {"mnuHelp", "mnuHelpAboutFennel", "FENNEL-GFX with GUI"},
    {"mnuHelpAboutFennel", "mnuHelpEnFennel", " - English forum"},
    {"mnuHelpAboutFennel", "mnuHelpLessons", " - Video Lessons on YouTube"},
    {"mnuHelp", "mnuHelp_About", "About"},
    {"*", "mnupopup_0", ""},
    {"mnupopup_0", "aaa", "ПЛАН: контекст1"},
    {"mnupopup_0", "bbb", "ПЛАН: контекст2"},
    {"mnupopup_0", "ccc", "ПЛАН: контекст3"},
    {"*", "mnupopup_1", ""},
    {"mnupopup_1", "ddd", "ПЛАН: ddd"},
    {"mnupopup_1", "eee", "ПЛАН: eee"},
    {"mnupopup_1", "fff", "ПЛАН: fff"},
    {"*", "mnupopup_2", ""},
    {"mnupopup_2", "mnupopup_OnOff_1", "F1 Button On/Off"},
    {"mnupopup_2", "mnupopup_OnOff_3", "F2 Button On/Off"},
    {"mnupopup_2", "mnupopup_OnOff_5", "F9 Button On/Off"},
    {"mnupopup_2", "mnupopup_OnOff_7", "F10 Button On/Off"},
    {"*", "mnu_Context_picture1", ""},
    {"mnu_Context_picture1", "mnu_Context_picture1_cfg", "EDIT gfxboot.cfg..."},
    {"mnu_Context_picture1", "mnu_Context_picture1_change_back", "Change current back..."},
    {"mnu_Context_picture1", "mnu_Context_picture1_Clipboard", "Set Clipboard as background"},
    {"mnu_Context_picture1", "mnu_Context_picture1_169", "16:9 support"},
    {"*", "mnu_Context_ListView1Popup", ""},
};

// When items can be chosen: nothing open, generations 1 to 3.
const struct {
    const char* names;
    bool enabled[4];
} enabledRules[] = {
    {"mnuFile_Splash mnuFile_Save mnuFile_SaveAs mnuFile_ReOpen", {false, true, true, true}},
    {"mnuView_fill mnuView_scale1 mnuView_custom mnuView_scales", {false, true, true, true}},
    {"mnuEdit_Replace mnuEdit_ChangeBack mnuEdit_ge_Clipboard", {false, true, true, true}},
    {"mnuEdit_EditCFG mnuEDIT_NEWFont", {false, false, true, true}},
    {"mnuEDIT_ADDFont mnuEDIT_ADDBack mnuEdit_Resize mnuEdit_16x9Support mnuEdit_Sound",
     {false, false, false, true}},
    {"mnuFile_Open mnuFile_New mnuFile_Exit mnuEdit_Extract mnuEdit_Assemble mnuEdit_Gfxboot2 "
     "mnuEdit_gfxboot3 mnuT_NConvert mnuT_GZip_Pack mnuT_CPIO_Extract mnuHelp_About",
     {true, true, true, true}},
};

RunState generation(int number)
{
    RunState run;
    run.GfxOpened = number > 0;
    run.GfxHasCfg = number >= 2;
    run.GfxHasZuk = number == 3;
    run.gfxboot_var = std::max(1, number);
    run.GfxFileName = u"a & b"_s;
    return run;
}

class MenusTest : public testing::Test {
protected:
    MenusTest()
    {
        for (const Item& item : expectedItems)
            m_commands.add(item.name, [this, name = item.name] { m_ran = QLatin1String(name); });
        m_commands.addArray("mnuFile1", [this](int index) { m_index = index; });
    }
    QMenuBar m_bar;
    Commands m_commands;
    QString m_ran;
    int m_index = -1;
};

} // namespace

TEST_F(MenusTest, EveryItemStandsInItsMenuUnderItsCaption)
{
    const Menus menus(m_bar, m_commands);
    std::map<QString, std::vector<QString>> order;
    for (const Item& item : expectedItems) {
        const QString name = QLatin1String(item.name);
        QAction* action = menus.action(name);
        ASSERT_NE(action, nullptr) << item.name;
        EXPECT_EQ(action->text(), QString::fromUtf8(item.caption)) << item.name;
        const QObject* named = action->menu() != nullptr ? static_cast<QObject*>(action->menu())
                                                         : static_cast<QObject*>(action);
        EXPECT_EQ(named->objectName(), name);
        const QString parent = QLatin1String(item.parent);
        const QWidget* holder =
            parent.isEmpty() ? static_cast<const QWidget*>(&m_bar) : menus.menu(parent);
        if (parent == u"*"_s) {
            EXPECT_FALSE(m_bar.actions().contains(action)) << item.name;
        } else {
            ASSERT_NE(holder, nullptr) << item.name;
            EXPECT_TRUE(holder->actions().contains(action)) << item.name;
        }
        order[parent].push_back(name);
    }
    // Nothing else is there, and nothing stands elsewhere.
    std::size_t count = 0;
    for (const MenuItem& item : menuTable())
        count += item.kind != MenuKind::Array;
    EXPECT_EQ(count, std::size(expectedItems));
    order.erase(u"*"_s);
    for (const auto& [parent, names] : order) {
        const QWidget* holder =
            parent.isEmpty() ? static_cast<const QWidget*>(&m_bar) : menus.menu(parent);
        std::vector<QString> shown;
        for (const QAction* action : holder->actions()) {
            const QString name =
                action->menu() != nullptr ? action->menu()->objectName() : action->objectName();
            if (!action->isSeparator() && !name.isEmpty())
                shown.push_back(name);
        }
        EXPECT_EQ(shown, names) << parent.toStdString();
    }
}

TEST_F(MenusTest, WhatCanBeChosenFollowsTheGeneration)
{
    Menus menus(m_bar, m_commands);
    for (const int number : {0, 1, 2, 3, 1, 0}) {
        menus.update(generation(number), true);
        for (const auto& rule : enabledRules) {
            for (const QString& name : QString::fromUtf8(rule.names).split(u' ')) {
                EXPECT_EQ(menus.action(name)->isEnabled(), rule.enabled[number])
                    << name.toStdString() << number;
            }
        }
        EXPECT_EQ(menus.action(u"mnuFile_ReOpen"_s)->text(),
                  number == 0 ? u"ReOpen ..."_s : u"ReOpen a && b  "_s);
    }
    EXPECT_FALSE(menus.action(u"mnuT_s4"_s)->isEnabled());
}

TEST_F(MenusTest, DrivesAndTheCurrentFlashOpenTheirMenus)
{
    Menus menus(m_bar, m_commands);
    RunState run;
    menus.update(run, false);
    EXPECT_FALSE(menus.action(u"mnuFlash"_s)->isEnabled());
    EXPECT_FALSE(menus.action(u"mnuT_Qemu"_s)->isEnabled());
    run.CurrentFlashChar = 'E';
    menus.update(run, true);
    EXPECT_TRUE(menus.action(u"mnuFlash"_s)->isEnabled());
    EXPECT_TRUE(menus.action(u"mnuT_Qemu"_s)->isEnabled());
}

TEST_F(MenusTest, AnItemRunsItsCommandAndOneWithoutACommandCannotBeChosen)
{
    const Commands none;
    {
        Menus menus(m_bar, none);
        menus.update(generation(3), true);
        menus.setEnabled("mnuT_Qemu_Start", true);
        for (const MenuItem& item : menuTable()) {
            if (item.kind == MenuKind::Command || item.kind == MenuKind::Check) {
                EXPECT_FALSE(menus.action(QLatin1String(item.name))->isEnabled()) << item.name;
            }
        }
    }
    QMenuBar bar;
    Menus menus(bar, m_commands);
    menus.update(generation(3), true);
    for (const Item& item : expectedItems) {
        QAction* action = menus.action(QLatin1String(item.name));
        if (action->menu() != nullptr || !action->isEnabled())
            continue;
        action->trigger();
        EXPECT_EQ(m_ran, QLatin1String(item.name));
    }
}

TEST_F(MenusTest, EntriesOfAnArrayComeGoAndTellTheirIndex)
{
    Menus menus(m_bar, m_commands);
    menus.setEntries("mnuFile1", {{0, u"first"_s, true, {}, {}}, {7, u"last"_s, true, true, {}}});
    QMenu* menu = menus.menu(u"mnuFile_LastUsed"_s);
    EXPECT_EQ(menus.entries("mnuFile1").size(), 2U);
    QAction* last = menus.entries("mnuFile1").back();
    EXPECT_TRUE(menu->actions().contains(last));
    EXPECT_EQ(last->objectName(), u"mnuFile1_7"_s);
    EXPECT_TRUE(last->isChecked());
    menus.checkEntry("mnuFile1", 7, false);
    EXPECT_FALSE(last->isChecked());
    last->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_index, 7);
    menus.setEntries("mnuFile1", {});
    EXPECT_TRUE(menus.entries("mnuFile1").empty());
    menus.setEntries("mnuFlash_FlashArr", {{0, u"x"_s, true, {}, {}}}); // no command behind it
    EXPECT_FALSE(menus.entries("mnuFlash_FlashArr").front()->isEnabled());
}
