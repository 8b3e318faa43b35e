// SPDX-License-Identifier: MIT
#include "frame/toolbar.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <set>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

struct Button {
    int id;
    const char* toolTip; // as built
    ButtonStyle style;
    const char* command;
    bool enabled[4]; // nothing open, generations 1 to 3
};

const Button buttons[] = {
    {1, "New Gfxboot @ZUK-MOSA@", ButtonStyle::Button, "mnuFile_New", {1, 1, 1, 1}},
    {2, "Open Gfxboot", ButtonStyle::Button, "mnuFile_Open", {1, 1, 1, 1}},
    {3, "Save Gfxboot", ButtonStyle::Button, "mnuFile_Save", {1, 1, 1, 1}},
    {5, "Scale 1:1 (100%)", ButtonStyle::Button, "mnuView_scale1", {0, 1, 1, 1}},
    {6, "Fill Screen", ButtonStyle::Button, "mnuView_fill", {0, 1, 1, 1}},
    {7, "HideTabsPanel", ButtonStyle::Button, "", {0, 1, 1, 1}},
    {8, "HidePreviewPanel", ButtonStyle::Button, "", {0, 1, 1, 1}},
    {10, "Change Current Back", ButtonStyle::Button, "mnuEdit_ChangeBack", {0, 1, 1, 1}},
    {11, "Get Picture From Clipboard", ButtonStyle::Button, "mnuEdit_ge_Clipboard", {0, 1, 1, 1}},
    {12, "FNT-edit", ButtonStyle::Button, "mnuEDIT_NEWFont", {0, 0, 1, 1}},
    {13, "TXT-edit", ButtonStyle::Button, "", {0, 0, 0, 1}},
    {14, "JPG-edit", ButtonStyle::Button, "", {0, 0, 0, 1}},
    {15, "Resize Gfxboot", ButtonStyle::Button, "mnuEdit_Resize", {0, 0, 0, 1}},
    {16, "16:9 Support", ButtonStyle::Button, "mnuEdit_16x9Support", {0, 0, 0, 1}},
    {18, "Current Flash", ButtonStyle::DropDown, "", {1, 1, 1, 1}},
    {19, "MonitoringIsOff", ButtonStyle::Button, "mnuFlash_Monitor", {1, 1, 1, 1}},
    {21, "Run QEMU", ButtonStyle::Button, "mnuT_Qemu_Start", {1, 1, 1, 1}},
};
const std::set<int> separatorsBehind = {3, 8, 16, 19};

RunState generation(int number)
{
    RunState run;
    run.GfxOpened = number > 0;
    run.GfxHasCfg = number == 2;
    run.GfxHasZuk = number == 3;
    run.gfxboot_var = std::max(1, number);
    return run;
}

Commands allCommands()
{
    Commands commands;
    for (const Button& button : buttons) {
        commands.add(button.command, [] {});
        commands.add(u"Toolbar1_%1"_s.arg(button.id).toLatin1().constData(), [] {});
    }
    return commands;
}

QToolButton& buttonOf(const QWidget& parent, int id)
{
    auto* found = parent.findChild<QToolButton*>(u"Toolbar1_%1"_s.arg(id));
    if (found == nullptr)
        qFatal("no button %d", id);
    return *found;
}

} // namespace

TEST(Toolbar, ButtonsStandInTheirOrderWithTheirTips)
{
    std::vector<ToolbarEntry> expected;
    for (const Button& button : buttons) {
        expected.push_back({button.style, button.id, QString::fromUtf8(button.toolTip)});
        if (separatorsBehind.contains(button.id))
            expected.push_back({ButtonStyle::Separator, 0, {}});
    }
    const std::vector<ToolbarEntry> entries = toolbarEntries();
    ASSERT_EQ(entries.size(), expected.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].style, expected[i].style) << i;
        EXPECT_EQ(entries[i].id, expected[i].id) << i;
        EXPECT_EQ(entries[i].toolTip, expected[i].toolTip) << i;
    }
    for (const Button& button : buttons)
        EXPECT_EQ(toolbarCommandName(button.id), QLatin1String(button.command)) << button.id;
}

TEST(Toolbar, WhatCanBePressedFollowsTheGeneration)
{
    Toolbar toolbar(nullptr);
    const Commands commands = allCommands();
    toolbar.BuildToolbar(commands);
    for (const int number : {0, 1, 2, 3}) {
        toolbar.UpdateToolbar(generation(number), {});
        for (const Button& button : buttons) {
            EXPECT_EQ(buttonOf(toolbar, button.id).isEnabled(), button.enabled[number])
                << button.id << " in " << number;
        }
    }
    Toolbar bare(nullptr);
    const Commands none;
    bare.BuildToolbar(none);
    bare.UpdateToolbar(generation(3), {});
    for (const Button& button : buttons)
        EXPECT_FALSE(buttonOf(bare, button.id).isEnabled()) << button.id;
}

TEST(Toolbar, FourButtonsShowAStateByTipAndPicture)
{
    const struct {
        int id;
        bool on;
        int image;
        const char* toolTip;
    } cases[] = {
        {7, true, 37, "Hide Right Panel"},          {7, false, 7, "Show Right Panel"},
        {8, true, 38, "Hide Bottom Panel"},         {8, false, 8, "Show Bottom Panel"},
        {18, true, 18, "Current Flash Drive Info"}, {18, false, 18, "All USB Drives INFO"},
        {19, true, 49, "USB-Monitoring is ON"},     {19, false, 19, "USB-Monitoring is OFF"},
    };
    for (const auto& c : cases) {
        RunState run = generation(1);
        run.CurrentFlashChar = c.on ? 'F' : noFlash;
        const ButtonState state =
            buttonState({ButtonStyle::Button, c.id, u"built"_s}, run, {c.on, c.on, c.on});
        EXPECT_EQ(state.image, c.image);
        EXPECT_EQ(state.toolTip, QLatin1String(c.toolTip));
    }
    EXPECT_EQ(buttonState({ButtonStyle::Button, 12, u"FNT-edit"_s}, {}, {}).toolTip, u"FNT-edit"_s);
}

TEST(Toolbar, EveryPictureIsThere)
{
    const TestWindow w; // loads the pictures
    for (const Button& button : buttons) {
        const QIcon icon(u":/icons/%1.svg"_s.arg(button.id));
        EXPECT_FALSE(icon.pixmap(24, 24).isNull()) << button.id;
    }
    for (const int id : {37, 38, 49})
        EXPECT_FALSE(QIcon(u":/icons/%1.svg"_s.arg(id)).pixmap(16, 16).isNull()) << id;
}

TEST(Toolbar, UndefinedButtonsAndQemuWithoutADriveTellWhy)
{
    TestWindow w;
    for (const int id : {4, 9, 17, 20, 22, 0, -1}) {
        w.t.prompts.expectMessage(u"Button ID=%1\nFunction is not defined!"_s.arg(id));
        w.window.toolbarCommand(id);
    }
    QToolButton& qemu = buttonOf(w.window, 21);
    ASSERT_TRUE(qemu.isEnabled());
    w.t.prompts.expectMessage(
        u"Select the \"Current Flash Device\" from Flash-menu to start QEMU"_s);
    w.click(qemu);
    EXPECT_EQ(w.t.prompts.titles.last(), u"QEMU"_s);
}

TEST(Toolbar, TheDropDownHoldsTheDrivesOfTheMenuAndNothingElse)
{
    TestWindow w;
    const QToolButton& button = buttonOf(w.window, 18);
    EXPECT_EQ(button.popupMode(), QToolButton::MenuButtonPopup);
    w.window.menus().setEntries("mnuFlash_FlashArr", {{0, u"    E:   STICK"_s, true, true, {}},
                                                      {1, u"    F:   OTHER"_s, true, false, {}}});
    w.window.UpdateToolbar();
    const QList<QAction*> drives = button.menu()->actions();
    ASSERT_EQ(drives.size(), 2);
    EXPECT_EQ(drives[0]->text(), u"    E:   STICK"_s);
    EXPECT_TRUE(drives[0]->isChecked());
    EXPECT_FALSE(drives[1]->isChecked());
    w.window.menus().setEntries("mnuFlash_FlashArr", {});
    w.window.UpdateToolbar();
    EXPECT_TRUE(button.menu()->isEmpty());
}
