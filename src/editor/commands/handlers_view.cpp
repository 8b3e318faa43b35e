// SPDX-License-Identifier: MIT
// The View menu, the panels, and the buttons of the toolbar that no menu has.
#include "base/text.h"
#include "editor/commands/handlers.h"
#include "editor/stage/scale_commands.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "tools/image_tool.h"

#include <QScreen>

namespace fennel {

namespace {

void fillTheScreen(MainWindow& window)
{
    Stage& stage = window.stageLink().stage();
    const auto fill = fillForStage(stage, window.fillRoom());
    if (!fill)
        return;
    window.move(window.screen()->availableGeometry().topLeft());
    const int panel = roundToEven(fill->rightPanel / window.devicePixelRatioF());
    window.shell().run.RightPanelWidth = std::max(panel, minRightPanelWidth);
    applyFill(stage, *fill);
}

// Only the two files are made; the view itself stays as it is.
void toggleSplash(MainWindow& window)
{
    QAction* action = window.menus().action(QStringLiteral("mnuView_Splash"));
    if (action->isChecked() && BackToXpm(window.shell()))
        (void)XpmToGif(window.shell());
}

void showScales(MainWindow& window)
{
    std::vector<Menus::Entry> entries;
    entries.reserve(scaleEntries.size());
    for (const ScaleEntry& scale : scaleEntries)
        entries.push_back(
            {scale.percent, QString::fromUtf16(scale.caption), true, std::nullopt, {}});
    window.menus().setEntries("mnuView_scale", entries);
}

} // namespace

void MainWindow::toolbarCommand(int id)
{
    if (const ToolbarButton* button = toolbarButton(id))
        m_commands.run(QLatin1String(button->command));
    else
        shell().prompts.ShowMessage(undefinedButtonText(id));
}

void addViewCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    Stage& stage = window.stageLink().stage();
    commands.add("ComFrame1",
                 [&window] { window.showRightPanel(!window.workbench().flags.rightPanelShown); });
    commands.add("ComFrame2",
                 [&window] { window.showBottomPanel(!window.workbench().flags.bottomPanelShown); });
    commands.add("mnuView_scale1", [&stage] { mnuView_scale1(stage); });
    commands.add("mnuView_fill", [&window] { fillTheScreen(window); });
    commands.add("mnuView_custom", [&window, &stage] {
        // The prompt names device pixels throughout.
        mnuView_custom(stage, window.screen()->size() * window.devicePixelRatioF());
    });
    commands.addArray("mnuView_scale", [&stage](int percent) { mnuView_scale(stage, percent); });
    commands.add("mnuView_Splash", [&window] { toggleSplash(window); });
}

void showFixedEntries(MainWindow& window)
{
    showScales(window);
}

} // namespace fennel
