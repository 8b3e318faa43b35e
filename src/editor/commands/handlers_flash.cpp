// SPDX-License-Identifier: MIT
// The menus Flash and Menu.lst, and QEMU: drives, the menu in force, the boot test.
#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/window/flash_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "params/object_table.h"
#include "tools/boot_stick.h"
#include "tools/stick_save.h"

#include <QSignalBlocker>

#include <optional>
#include <vector>

namespace fennel {

void showMenuLevelBox(MainWindow& window)
{
    QCheckBox& box = window.rightPanel().fromMenu();
    const bool checked = window.document().menuLevelShown();
    const bool enabled = !window.workbench().params.CurrentMenuFile.isEmpty();
    const QSignalBlocker quiet(box);
    box.setChecked(checked);
    box.setEnabled(enabled);
    box.setToolTip(!enabled  ? Words::tr("Choose current flash drive and lst-menu")
                   : checked ? Words::tr("Uncheck to use ZUKxxxx.CFG data")
                             : Words::tr("Check it to use MenuLevel data over ZUKxxxx.CFG data"));
}

namespace {

constexpr int embeddedMenuRow = 1;

} // namespace

void markMenuRow(MainWindow& window)
{
    const QString& file = window.workbench().params.CurrentMenuFile;
    window.menus().action(QStringLiteral("mnuMenu_Embedded"))->setChecked(file.isEmpty());
    window.rightPanel().refreshList(TabMenu);
}

namespace {

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
    takeMenu(window, list.row(number)->name);
}

QString stickTitle()
{
    return Words::tr("Save to stick");
}

// By the loader's configuration: the place that it names, or the user's choice of several.
std::optional<LoaderPlace> placeOnStick(const Shell& shell, const QString& folder)
{
    const std::vector<LoaderPlace> places = loaderPlacesOf(folder);
    if (places.empty()) {
        shell.prompts.ShowMessage(
            Words::tr("No loader on this drive says where its message file is.\n"
                      "Looked for were the line \"gfxboot\" of syslinux.cfg (or isolinux.cfg,\n"
                      "extlinux.conf) and the line \"gfxmenu\" of menu.lst."),
            MessageType::Ok, stickTitle());
        return std::nullopt;
    }
    Choice choice;
    choice.title = stickTitle();
    choice.text = Words::tr("Replace the message file on this drive?\n"
                            "The old one stays beside it, with the ending \".old\".");
    for (const LoaderPlace& place : places) {
        choice.list.append(Words::tr("%1, named in %2").arg(place.message, place.config));
        choice.answers.append(place.message);
    }
    choice.answers.append(Words::tr("Cancel"));
    choice.cancel = static_cast<int>(places.size());
    const int answer = shell.prompts.choose(choice);
    return answer >= 0 && answer < choice.cancel
               ? std::optional(places[static_cast<std::size_t>(answer)])
               : std::nullopt;
}

void saveOnStick(MainWindow& window)
{
    const Shell& shell = window.shell();
    const QString folder = window.flashLink().drives().folderOf(shell.run.CurrentFlashChar);
    if (folder.isEmpty()) {
        shell.prompts.ShowMessage(
            Words::tr("Choose the stick in the menu Flash first: its loader says where the\n"
                      "message file belongs."),
            MessageType::Ok, stickTitle());
        return;
    }
    if (!CommitValue(window) || !commitText(window))
        return;
    const std::optional<LoaderPlace> place = placeOnStick(shell, folder);
    if (!place)
        return;
    const Result<QByteArray> message =
        messageNow(shell, window.document(), shell.run.GfxIsGz && !place->unpacked);
    const Result<QString> kept =
        message ? saveToStick(shell, folder, *place, *message) : message.failure();
    const ImageDrive* image = window.flashLink().drives().flashImage();
    Result<void> done = kept ? Result<void>() : kept.failure();
    if (done && image != nullptr) {
        QStringList names{place->message};
        if (!kept->isEmpty())
            names.prepend(folderPart(place->message) + *kept);
        done = writeToImage(shell, *image, names);
    }
    if (!done) {
        (void)shell.tell(done.failure());
        return;
    }
    const QString old =
        kept->isEmpty() ? QString() : Words::tr("\nThe old one is kept as %1.").arg(*kept);
    shell.prompts.ShowMessage(
        Words::tr("Saved as %1.").arg(image == nullptr ? folder + place->message : place->message) +
            old,
        MessageType::Ok, stickTitle());
}

void chooseImageFile(MainWindow& window)
{
    FileQuestion question;
    question.title = Words::tr("Image file as Current Flash");
    question.filter = Words::tr("Disk images|*.img;*.ima;*.raw;*.dd;*.bin|All files|*|");
    const Shell& shell = window.shell();
    const QString path = shell.prompts.openFile(question);
    if (path.isEmpty())
        return;
    const Result<ImageDrive> image = openImageDrive(shell, path);
    if (image)
        window.flashLink().drives().chooseImage(*image);
    else
        (void)shell.tell(image.failure());
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
    const ParamLists& lists = window.workbench().params;
    RunState& run = window.shell().run;
    closeValueEditor(window);
    Document& document = window.document();
    document.showMenuLevel(fromMenu);
    showMenuLevelBox(window);
    const auto number =
        document.state().ZUKarr.GetLevelValue(0, backgroundParam, fromMenu ? LayerLst : LayerEdit);
    // Compared with what is shown, since the menu that chose it may be gone by now. A background is
    // read from disk, so it only changes if it has to.
    const QString background = backgroundFile(run.Workspace, number.value_or(0));
    if (number && background != run.BackFile) {
        run.BackFile = background;
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
    window.workbench().params.CurrentMenuFile = file;
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
    Document& document = bench.document;
    document.setMenuValues([&](ZUKarr& table) {
        document.setMenuEntries(MenuApply(bench.shell, window.flashLink().menuDrive(),
                                          bench.params.CurrentMenuFile, table));
    });
    // Behind it: a menu that cannot be read is not in force any more.
    document.setMenuTitles(
        titlesInForce(window.flashLink().menuDrive(), bench.params.CurrentMenuFile));
    if (document.object(MenuBarRow) != nullptr)
        window.stageLink().stage().redraw(MenuPanelRow);
    if (!bench.shell.run.GfxHasZuk) {
        // Left on by a gfxboot that had menu values.
        document.showMenuLevel(false);
        showMenuLevelBox(window);
        return;
    }
    for (int tab = FirstObjectTab; tab <= bench.params.tabCount(); ++tab)
        window.rightPanel().refreshList(tab);
    if (!document.menuLevelShown()) {
        showMenuLevelBox(window);
        return;
    }
    switchLevels(window, !bench.params.CurrentMenuFile.isEmpty());
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
    commands.add("mnuT_Image", [&window] { chooseImageFile(window); });
    commands.add("mnuFile_SaveStick", [&window] { saveOnStick(window); });
    commands.add("CurrentFlashInfo", [&window] { driveInfo(window); });
    commands.add("mnuMenu_Embedded", [&window] { takeEmbeddedMenu(window); });
    commands.addArray("mnuMenu_fromFlash",
                      [&window](int entry) { chooseFlashMenu(window, entry); });
    addQemuCommands(window);
}

} // namespace fennel
