// SPDX-License-Identifier: MIT
#include "editor/window/toolbar.h"
#include "support/story.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

QToolButton& buttonOf(const QWidget& parent, int id)
{
    auto* found = parent.findChild<QToolButton*>(u"Toolbar1_%1"_s.arg(id));
    if (found == nullptr)
        qFatal("no button %d", id);
    return *found;
}

} // namespace

// A name without a command would be an item that nobody can ever choose.
TEST(Commands, HoldWhateverAMenuOrTheToolbarNames)
{
    Story w;
    const auto isMenu = [](MenuKind kind) {
        return kind == MenuKind::Menu || kind == MenuKind::Popup || kind == MenuKind::Heading;
    };
    for (const MenuItem& item : menuTable())
        EXPECT_TRUE(isMenu(item.kind) || w.window.commands().has(QLatin1String(item.name)))
            << item.name;
    for (const ToolbarButton& button : toolbarTable())
        EXPECT_TRUE(button.id == NoButton || w.window.commands().has(QLatin1String(button.command)))
            << button.command;
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
    // An empty menu would leave the button pressed.
    ASSERT_EQ(button.menu()->actions().size(), 1);
    EXPECT_FALSE(button.menu()->actions().front()->isEnabled());
}
