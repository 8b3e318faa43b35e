// SPDX-License-Identifier: MIT
#include "editor/window/menus.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

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
        for (const MenuItem& item : menuTable()) {
            if (item.kind != MenuKind::Array)
                m_commands.add(item.name,
                               [this, name = item.name] { m_ran = QLatin1String(name); });
        }
        m_commands.addArray("mnuFile1", [this](int index) { m_index = index; });
    }
    QMenuBar m_bar;
    Commands m_commands;
    QString m_ran;
    int m_index = -1;
};

} // namespace

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
    for (const MenuItem& item : menuTable()) {
        if (item.kind == MenuKind::Array)
            continue;
        QAction* action = menus.action(QLatin1String(item.name));
        if (action->menu() != nullptr || !action->isEnabled())
            continue;
        action->trigger();
        EXPECT_EQ(m_ran, QLatin1String(item.name));
    }
}
