// SPDX-License-Identifier: MIT
// The commands on backgrounds and logos, in the Edit menu, the toolbar and the pop-up menus.
#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/window/main_window.h"
#include "editor/window/picture_link.h"
#include "tools/backgrounds.h"
#include "tools/logos.h"
#include "tools/qt_clipboard.h"

#include <functional>

namespace fennel {

namespace {

using PictureCommand = void (*)(const Shell& shell, PictureHost& host);

void fromClipboard(const Shell& shell, PictureHost& host)
{
    mnuEdit_ge_Clipboard(shell, host, QtClipboard());
}

// A command on pictures as one step. Each is all or nothing by itself.
void runAsStep(MainWindow& window, const QString& what, const QString& member,
               const std::function<void(PictureHost&)>& command)
{
    StepInfo info{what, {}, {}};
    info.place.member = member;
    (void)window.document().changeMembers(info, [&] {
        PictureLink host(window);
        command(host);
        return true;
    });
}

// `what` is a text marked by Words.
void add(MainWindow& window, const char* name, const char* what, PictureCommand command)
{
    window.commands().add(name, [&window, what, command] {
        if (!CommitValue(window))
            return;
        runAsStep(window, Words::tr(what), {},
                  [&](PictureHost& host) { command(window.shell(), host); });
    });
}

} // namespace

void addPictureCommands(MainWindow& window)
{
    const char* background = Words::mark("background");
    add(window, "mnuEDIT_ADDBack", Words::mark("adding of a background"), mnuEDIT_ADDBack);
    add(window, "mnuEdit_ChangeBack", background, mnuEdit_ChangeBack);
    add(window, "mnu_Context_picture1_change_back", background, mnuEdit_ChangeBack);
    add(window, "mnuEdit_ge_Clipboard", background, fromClipboard);
    add(window, "mnu_Context_picture1_Clipboard", background, fromClipboard);
    add(window, "mnuEdit_Resize", Words::mark("size of the backgrounds"), mnuEdit_Resize);
    add(window, "mnuEDIT_ADDLogo", Words::mark("adding of a logo"), mnuEDIT_ADDLogo);
    add(window, "mnuEdit_ResizeLOGO", Words::mark("size of the logos"), mnuEdit_ResizeLOGO);
    for (const char* name : {"mnuEdit_16x9Support", "mnu_Context_picture1_169"})
        add(window, name, Words::mark("16:9 support"), mnuEdit_16x9Support);
}

void changeBackground(MainWindow& window, const QString& name)
{
    runAsStep(window, Words::tr("picture of %1").arg(name), name,
              [&](PictureHost& host) { ChangeBackMember(window.shell(), host, name); });
}

void changePicture(MainWindow& window, const QString& name)
{
    runAsStep(window, Words::tr("picture of %1").arg(name), name,
              [&](PictureHost& host) { ChangePictureMember(window.shell(), host, name); });
}

void changeLogo(MainWindow& window, const QString& name)
{
    runAsStep(window, Words::tr("picture of %1").arg(name), name,
              [&](PictureHost& host) { ChangeLogoMember(window.shell(), host, name); });
}

} // namespace fennel
