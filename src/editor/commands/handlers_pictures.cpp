// SPDX-License-Identifier: MIT
// The commands on backgrounds and logos, in the Edit menu, the toolbar and the pop-up menus.
#include "editor/commands/handlers.h"
#include "editor/window/main_window.h"
#include "editor/window/picture_link.h"
#include "tools/backgrounds.h"
#include "tools/logos.h"
#include "tools/qt_clipboard.h"

namespace fennel {

namespace {

using PictureCommand = void (*)(const Shell& shell, PictureHost& host);

void fromClipboard(const Shell& shell, PictureHost& host)
{
    mnuEdit_ge_Clipboard(shell, host, QtClipboard());
}

void add(MainWindow& window, const char* name, PictureCommand command)
{
    window.commands().add(name, [&window, command] {
        CommitValue(window);
        PictureLink host(window);
        command(window.shell(), host);
    });
}

} // namespace

void addPictureCommands(MainWindow& window)
{
    add(window, "mnuEDIT_ADDBack", mnuEDIT_ADDBack);
    add(window, "mnuEdit_ChangeBack", mnuEdit_ChangeBack);
    add(window, "mnu_Context_picture1_change_back", mnuEdit_ChangeBack);
    add(window, "mnuEdit_ge_Clipboard", fromClipboard);
    add(window, "mnu_Context_picture1_Clipboard", fromClipboard);
    add(window, "mnuEdit_Resize", mnuEdit_Resize);
    add(window, "mnuEDIT_ADDLogo", mnuEDIT_ADDLogo);
    add(window, "mnuEdit_ResizeLOGO", mnuEdit_ResizeLOGO);
    for (const char* name : {"mnuEdit_16x9Support", "mnu_Context_picture1_169"})
        window.commands().add(name, [&window] { mnuEdit_16x9Support(window.shell()); });
}

void changeBackground(MainWindow& window, const QString& name)
{
    PictureLink host(window);
    ChangeBackMember(window.shell(), host, name);
}

void changeLogo(MainWindow& window, const QString& name)
{
    PictureLink host(window);
    ChangeLogoMember(window.shell(), host, name);
}

} // namespace fennel
