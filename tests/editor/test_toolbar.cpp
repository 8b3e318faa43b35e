// SPDX-License-Identifier: MIT
#include "editor/window/toolbar.h"
#include "support/story.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// Which buttons can be pressed: nothing open, generations 1 to 3.
const struct {
    std::vector<int> ids;
    bool enabled[4];
} enabledRules[] = {
    {{1, 2, 3, 18, 19, 21}, {true, true, true, true}},
    {{5, 6, 7, 8, 10, 11}, {false, true, true, true}},
    {{12}, {false, false, true, true}},
    {{13, 14, 15, 16}, {false, false, false, true}},
};

RunState generation(int number)
{
    RunState run;
    run.GfxOpened = number > 0;
    run.GfxHasCfg = number == 2;
    run.GfxHasZuk = number == 3;
    run.gfxboot_var = std::max(1, number);
    return run;
}

// A handler for whatever a button runs.
Commands allCommands()
{
    Commands commands;
    for (const auto& rule : enabledRules) {
        for (const int id : rule.ids) {
            commands.add(toolbarCommandName(id).toLatin1().constData(), [] {});
            commands.add(u"Toolbar1_%1"_s.arg(id).toLatin1().constData(), [] {});
        }
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

TEST(Toolbar, WhatCanBePressedFollowsTheGeneration)
{
    Toolbar toolbar(nullptr);
    const Commands commands = allCommands();
    toolbar.BuildToolbar(commands);
    Toolbar bare(nullptr);
    const Commands none;
    bare.BuildToolbar(none);
    for (const int number : {0, 1, 2, 3}) {
        toolbar.UpdateToolbar(generation(number), {});
        bare.UpdateToolbar(generation(number), {});
        for (const auto& rule : enabledRules) {
            for (const int id : rule.ids) {
                EXPECT_EQ(buttonOf(toolbar, id).isEnabled(), rule.enabled[number])
                    << id << " in " << number;
                EXPECT_FALSE(buttonOf(bare, id).isEnabled()) << id;
            }
        }
    }
}

TEST(Toolbar, UndefinedButtonsAndQemuWithoutADriveTellWhy)
{
    Story w;
    for (const int id : {4, 9, 17, 20, 22, 0, -1}) {
        w.shell.prompts.expectMessage(u"Button ID=%1\nFunction is not defined!"_s.arg(id));
        w.window.toolbarCommand(id);
    }
    QToolButton& qemu = buttonOf(w.window, 21);
    ASSERT_TRUE(qemu.isEnabled());
    w.shell.prompts.expectMessage(
        u"Select the \"Current Flash Device\" from Flash-menu to start QEMU"_s);
    w.click(qemu);
    EXPECT_EQ(w.shell.prompts.titles.last(), u"QEMU"_s);
}

TEST(Toolbar, TheDropDownHoldsTheDrivesOfTheMenuAndNothingElse)
{
    Story w;
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
