// SPDX-License-Identifier: MIT
// The Help menu, and the two headings of the Edit menu that tell of older generations.
#include "base/log_header.h"
#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/window/main_window.h"

#include <QDesktopServices>
#include <QUrl>

namespace fennel {

namespace {

void showAbout(const MainWindow& window)
{
    const QString text =
        Words::tr("FENNEL-GFX with GUI (v. %1    - %2) \n"
                  "    /Component of @ZUK-MOSA@ project/\n"
                  "FENNEL-GFX is a shell (GUI) for some of the utilities \n"
                  "7za.exe\ncpio.exe\nListUsbDrives.exe\nmkblfont.exe\nnconvert.exe\nQEMU.exe\n"
                  "This kit allows you to create and/or modify the\n"
                  "ready-made gfxboots")
            .arg(versionText(), compiledAt(window.shell().run.BuildTime));
    window.shell().prompts.ShowMessage(text, MessageType::Ok,
                                       Words::tr("About \"%1\"").arg(programTitle()));
}

void tellGeneration1(const MainWindow& window)
{
    window.shell().prompts.ShowMessage(Words::tr("This is the oldest version. At the same time\n"
                                                 "it is the most closed version of the gfxboot.\n"
                                                 "All we can do is to change the pictures."));
}

void tellGeneration2(const MainWindow& window)
{
    window.shell().prompts.ShowMessage(
        Words::tr("This is the first flexible version of the gfxboot\n"
                  "Thanks to everybody who made it possible to change\n"
                  "the gfxboot without recompiling it.\n"
                  "Settings are made via the configuration file named\n"
                  "gfxboot.cfg"));
}

// The guide lies beside the program, or in the source tree that it was built from.
void openGuide(const MainWindow& window)
{
    const QString guide = window.shell().run.AppPath + QStringLiteral("/docs/guide.md");
    if (!FileExists(guide) || !QDesktopServices::openUrl(QUrl::fromLocalFile(guide)))
        window.shell().prompts.ShowMessage(Words::tr("The user's guide is ") + guide);
}

} // namespace

void addHelpCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    for (const char* page : {"mnuHelpEn", "mnuHelpRu", "mnuHelp_FAQ", "mnuHelpYouTube",
                             "mnuHelpEnFennel", "mnuHelpLessons"})
        commands.add(page, [&window] { openGuide(window); });
    commands.add("mnuHelp_About", [&window] { showAbout(window); });
    commands.add("mnuEdit_Gfxboot2", [&window] { tellGeneration1(window); });
    commands.add("mnuEdit_gfxboot3", [&window] { tellGeneration2(window); });
}

} // namespace fennel
