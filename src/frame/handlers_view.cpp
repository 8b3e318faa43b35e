// SPDX-License-Identifier: MIT
// The View menu, the panels, and the buttons of the toolbar that no menu has.
#include "frame/handlers.h"
#include "frame/main_window.h"

namespace fennel {

void MainWindow::toolbarCommand(int id)
{
    const QString menuCommand = toolbarCommandName(id);
    const QString own = QStringLiteral("Toolbar1_%1").arg(id);
    if (!menuCommand.isEmpty())
        m_commands.run(menuCommand);
    else if (m_commands.has(own))
        m_commands.run(own);
    else
        shell().prompts.ShowMessage(undefinedButtonText(id));
}

void addViewCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    commands.add("Toolbar1_7",
                 [&window] { window.showRightPanel(!window.workbench().flags.rightPanelShown); });
    commands.add("Toolbar1_8",
                 [&window] { window.showBottomPanel(!window.workbench().flags.bottomPanelShown); });
    commands.add("mnuView_scale1", [&window] {
        window.shell().run.PreviewScale = 1.0;
        window.ShowBackground();
    });
}

} // namespace fennel
