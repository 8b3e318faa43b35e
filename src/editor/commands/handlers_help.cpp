// SPDX-License-Identifier: MIT
// The Help menu, and the two headings of the Edit menu that tell of older generations.
#include "base/log_header.h"
#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/font_window.h"
#include "editor/guide/guide_pages.h"
#include "editor/guide/guide_window.h"
#include "editor/problems/problem_window.h"
#include "editor/window/main_window.h"

#include <QApplication>
#include <QFileInfo>
#include <QObject>

#include <memory>

namespace fennel {

namespace {

void showAbout(const MainWindow& window)
{
    QString compiled = compiledAt(window.shell().run.BuildTime); // as the log has it
    compiled.replace(QStringLiteral("Compiled at"), Words::tr("Compiled at"));
    const QString text =
        Words::tr("FENNEL-GFX with GUI (v. %1    - %2) \n"
                  "    /Component of @ZUK-MOSA@ project/\n"
                  "FENNEL-GFX is a shell (GUI) for some of the utilities \n"
                  "7za.exe\ncpio.exe\nListUsbDrives.exe\nmkblfont.exe\nnconvert.exe\nQEMU.exe\n"
                  "This kit allows you to create and/or modify the\n"
                  "ready-made gfxboots")
            .arg(versionText(), compiled);
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

// The guide is no child window of the editor: the one that is worked in lies above the other.
class GuideLink : public QObject {
public:
    explicit GuideLink(MainWindow& window) : QObject(&window), m_window(window) {}

    void open(const GuidePlace& place)
    {
        const RunState& run = m_window.shell().run;
        const QString page = guideFolder(run) + place.page;
        if (!QFileInfo::exists(page)) {
            m_window.shell().prompts.ShowMessage(Words::tr("The user's guide is missing: ") + page);
            return;
        }
        if (!m_guide)
            m_guide = std::make_unique<GuideWindow>(run, m_window.workbench().store);
        m_guide->showPlace(place);
    }
    // At what the user works on.
    void openHere()
    {
        const QWidget* const active = QApplication::activeWindow();
        if (qobject_cast<const ProblemWindow*>(active) != nullptr)
            open({QStringLiteral("problems.md"), {}});
        else if (qobject_cast<const FontWindow*>(active) != nullptr)
            open({QStringLiteral("fonts.md"), {}});
        else
            open(guidePlace(m_window.shell().run, m_window.workbench().params));
    }

private:
    MainWindow& m_window;
    std::unique_ptr<GuideWindow> m_guide;
};

struct PageCommand {
    const char* command;
    QStringView page;
};
constexpr PageCommand pageCommands[] = {
    {"mnuHelpEn", u"index.md"},       {"mnuHelpRu", u"index.md"},
    {"mnuHelp_FAQ", u"troubles.md"},  {"mnuHelpYouTube", u"first-stick.md"},
    {"mnuHelpEnFennel", u"index.md"}, {"mnuHelpLessons", u"first-stick.md"},
};

} // namespace

void addHelpCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    auto* guide = new GuideLink(window);
    commands.add("mnuHelp_Guide", [guide] { guide->openHere(); });
    for (const PageCommand& row : pageCommands)
        commands.add(row.command, [guide, page = row.page.toString()] { guide->open({page, {}}); });
    commands.add("mnuHelp_About", [&window] { showAbout(window); });
    commands.add("mnuEdit_Gfxboot2", [&window] { tellGeneration1(window); });
    commands.add("mnuEdit_gfxboot3", [&window] { tellGeneration2(window); });
}

} // namespace fennel
