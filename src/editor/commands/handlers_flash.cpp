// SPDX-License-Identifier: MIT
// The menus Flash and Menu.lst, and QEMU: drives, the menu in force, the boot test.
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/window/flash_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "params/menu_level.h"
#include "params/panel_values.h"
#include "params/row_values.h"

#include <QSignalBlocker>

namespace fennel {

namespace {

constexpr int embeddedMenuRow = 1;
constexpr int separatorRow = 2;

} // namespace

void markMenuRow(MainWindow& window)
{
    ListRows& list = *window.workbench().params.list(TabMenu);
    const QString& file = window.workbench().CurrentMenuFile;
    const int chosen = file.isEmpty() ? 1 : menuRow(list, file);
    for (int number = 1; number <= list.count(); ++number) {
        if (number != separatorRow)
            list.row(number)->checked = number == chosen;
    }
    window.menus().action(QStringLiteral("mnuMenu_Embedded"))->setChecked(file.isEmpty());
    window.rightPanel().refreshList(TabMenu);
}

namespace {

void showMenuLevelBox(MainWindow& window)
{
    QCheckBox& box = window.rightPanel().fromMenu();
    const MenuLevelBox state =
        menuLevelBox(!window.workbench().CurrentMenuFile.isEmpty(), box.isChecked());
    box.setEnabled(state.enabled);
    box.setToolTip(state.toolTip);
}

void chooseFlashMenu(MainWindow& window, int entry)
{
    const ListRows& list = *window.workbench().params.list(TabMenu);
    // By its name: the drive may hold other files than when the entries were made.
    const QString name = window.flashLink().menuEntry(entry);
    if (name.isEmpty()) // a click that came behind the end of its entry
        return;
    if (window.shell().run.GfxOpened && menuRow(list, name) == 0) {
        refillList(window, TabMenu);
        markMenuRow(window);
    }
    const int number =
        mnuMenu_fromFlash(window.shell(), window.flashLink().menuDrive(), list, name);
    if (number == 0)
        return;
    selectTab(window, TabMenu);
    selectRow(window, TabMenu, number);
    takeMenu(window, menuOfRow(list, number));
}

void driveInfo(MainWindow& window)
{
    Drives& drives = window.flashLink().drives();
    const int letter = window.shell().run.CurrentFlashChar;
    if (letter == noFlash)
        drives.mnuFlash_GetINFO();
    else
        drives.ListUsb(letter, false);
}

void addQemuCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    FlashLink& link = window.flashLink();
    commands.add("mnuT_Qemu_Start", [&link] { link.startQemu(); });
    commands.add("mnuT_Qemu_BIOS", [&window] { mnuT_Qemu_BIOS(window.shell()); });
    for (const VideoBios bios : {VideoBios::Standart, VideoBios::Cirrus, VideoBios::Memory16})
        commands.add(biosMenuItem(bios), [&link, bios] { link.chooseBios(bios); });
}

} // namespace

void switchLevels(MainWindow& window, bool fromMenu)
{
    ParamLists& lists = window.workbench().params;
    closeValueEditor(window);
    showMenuLevelBox(window);
    const auto background = switchMenuLevel(window.shell(), lists, fromMenu);
    if (background) {
        window.shell().run.BackFile = *background;
        window.ShowBackground();
    } else {
        window.stageLink().stage().RefreshPanels();
    }
    const int object = lists.objectOfTab(lists.CurrentTab);
    window.stageLink().stage().ActivatePanel(object);
    if (object >= 0)
        window.rightPanel().view(lists.CurrentTab)->fitColumns();
}

void takeMenu(MainWindow& window, const QString& file)
{
    window.workbench().CurrentMenuFile = file;
    MenuApply(window);
    // Behind it: a menu that cannot be read is not taken.
    markMenuRow(window);
}

void takeEmbeddedMenu(MainWindow& window)
{
    takeMenu(window, {});
    selectRow(window, TabMenu, embeddedMenuRow);
}

void MenuApply(MainWindow& window)
{
    Workbench& bench = window.workbench();
    if (!bench.shell.run.GfxOpened)
        return;
    const QString entries = MenuApply(bench.shell, window.flashLink().menuDrive(),
                                      bench.CurrentMenuFile, bench.params.ZUKarr);
    window.stageLink().stage().setMenuEntries(entries);
    if (!bench.shell.run.GfxHasZuk) {
        // Left on by a gfxboot that had menu values.
        const QSignalBlocker quiet(window.rightPanel().fromMenu());
        window.rightPanel().fromMenu().setChecked(false);
        return;
    }
    refreshLstColumn(bench.params);
    for (int tab = FirstObjectTab; tab <= bench.params.tabCount(); ++tab)
        window.rightPanel().refreshList(tab);
    QCheckBox& box = window.rightPanel().fromMenu();
    if (!box.isChecked()) {
        showMenuLevelBox(window);
        return;
    }
    box.setChecked(!bench.CurrentMenuFile.isEmpty());
    switchLevels(window, box.isChecked());
}

void addFlashCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    Drives& drives = window.flashLink().drives();
    commands.addArray("mnuFlash_FlashArr",
                      [&drives](int entry) { drives.mnuFlash_FlashArr(entry); });
    commands.add("mnuFlash_Choose", [&drives] { drives.mnuFlash_Choose(); });
    commands.add("mnuFlash_UnCheckAll", [&drives] { drives.mnuFlash_UnCheckAll(); });
    commands.add("mnuFlash_GetINFO", [&drives] { drives.mnuFlash_GetINFO(); });
    commands.add("mnuFlash_Monitor", [&window] {
        window.flashLink().HookDeviceChange(!window.workbench().flags.MonitorOn);
    });
    commands.add("CurrentFlashInfo", [&window] { driveInfo(window); });
    commands.add("mnuMenu_Embedded", [&window] { takeEmbeddedMenu(window); });
    commands.addArray("mnuMenu_fromFlash",
                      [&window](int entry) { chooseFlashMenu(window, entry); });
    addQemuCommands(window);
}

} // namespace fennel
