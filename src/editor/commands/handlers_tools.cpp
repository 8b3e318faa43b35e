// SPDX-License-Identifier: MIT
// The Tools menu.
#include "base/words.h"
#include "editor/boot/boot_link.h"
#include "editor/commands/handlers.h"
#include "editor/window/main_window.h"
#include "tools/image_commands.h"
#include "tools/qt_clipboard.h"

namespace fennel {

void addToolCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    commands.add("mnuT_NConvert_Convert", [&window] { mnuT_NConvert_Convert(window.shell()); });
    commands.add("mnuT_NConvert_Crop", [&window] {
        QtClipboard clipboard;
        mnuT_NConvert_Crop(window.shell(), clipboard);
    });
    commands.add("mnuT_NConvert_Clipboard",
                 [&window] { mnuT_NConvert_Clipboard(window.shell(), QtClipboard()); });
    commands.add("mnuT_NConvert_Resize", [&window] {
        QtClipboard clipboard;
        mnuT_NConvert_Resize(window.shell(), clipboard);
    });
    commands.add("mnuT_Boot", [&window] { window.bootLink().start(); });
    commands.add("mnuT_Boot_Loader", [&window] { window.bootLink().chooseLoader(); });
    commands.add("mnuT_CPIO_GetINFO",
                 [&window] { window.shell().prompts.ShowMessage(Words::tr("Planned...")); });
}

} // namespace fennel
