// SPDX-License-Identifier: MIT
// The View menu, the panels, and the buttons of the toolbar that no menu has.
#include "base/text.h"
#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/problems/problem_link.h"
#include "editor/stage/scale_commands.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_port.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/status_bar.h"
#include "editor/window/window_progress.h"
#include "tools/image_tool.h"

#include <QScreen>

#include <algorithm>

namespace fennel {

namespace {

// Of a window that keeps its size.
constexpr double smallestFit = 0.05;
constexpr double largestFit = 2;

void fillTheScreen(MainWindow& window)
{
    Stage& stage = window.stageLink().stage();
    const auto fill = fillForStage(stage, window.fillRoom());
    if (!fill)
        return;
    if (window.sizeHeld()) {
        const QSizeF port =
            QSizeF(window.port().maximumViewportSize()) * window.devicePixelRatioF();
        const RunState& run = window.shell().run;
        zoomTo(stage,
               std::clamp(std::min(port.width() / run.BackWidth, port.height() / run.BackHeight),
                          smallestFit, largestFit));
        return;
    }
    window.move(window.screen()->availableGeometry().topLeft());
    const int panel = roundToEven(fill->rightPanel / window.devicePixelRatioF());
    window.shell().run.RightPanelWidth = std::max(panel, minRightPanelWidth);
    applyFill(stage, *fill);
}

// What lies under a point of the port stays there.
void zoom(MainWindow& window, int steps, QPoint at)
{
    Stage& stage = window.stageLink().stage();
    const RunState& run = window.shell().run;
    if (!run.GfxOpened || window.progress().busy() || window.surface().gestures().held())
        return;
    const double scale = zoomedScale(run.PreviewScale, steps, {run.BackWidth, run.BackHeight});
    if (scale == run.PreviewScale)
        return;
    const QPointF share = window.port().shareAt(at);
    window.holdSize(true);
    zoomTo(stage, scale);
    window.port().bringTo(share, at);
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
            {scale.percent, QString::fromLatin1(scale.caption), true, std::nullopt, {}});
    window.menus().setEntries("mnuView_scale", entries);
}

const QString asItBootsKey = QStringLiteral("AsItBoots");
const QString snapKey = QStringLiteral("Snap");
const QString namesKey = QStringLiteral("ParameterNames");

void showChecks(MainWindow& window)
{
    const Stage& stage = window.stageLink().stage();
    const Menus& menus = window.menus();
    menus.action(QStringLiteral("mnuView_AsItBoots"))->setChecked(stage.asItBoots());
    menus.action(QStringLiteral("mnuView_Schematic"))->setChecked(!stage.asItBoots());
    menus.action(QStringLiteral("mnuView_Try"))->setChecked(stage.trying());
}

void showView(MainWindow& window, bool asItBoots)
{
    window.stageLink().stage().showAsItBoots(asItBoots);
    window.workbench().store.save(viewSection, asItBootsKey,
                                  asItBoots ? QStringLiteral("1") : QStringLiteral("0"));
    showChecks(window);
}

void showNames(MainWindow& window, bool shown)
{
    window.rightPanel().showNames(shown);
    window.menus().action(QStringLiteral("mnuView_Names"))->setChecked(shown);
    window.workbench().store.save(viewSection, namesKey,
                                  shown ? QStringLiteral("1") : QStringLiteral("0"));
}

void snapWhileDragging(MainWindow& window, bool on)
{
    window.surface().gestures().setSnapping(on);
    window.menus().action(QStringLiteral("mnuView_Snap"))->setChecked(on);
    window.workbench().store.save(viewSection, snapKey,
                                  on ? QStringLiteral("1") : QStringLiteral("0"));
}

void tryMenu(MainWindow& window)
{
    Stage& stage = window.stageLink().stage();
    const bool on = !stage.trying();
    // The schematic picture knows no bar that moves.
    if (on && !stage.asItBoots())
        showView(window, true);
    stage.tryMenu(on);
    showChecks(window);
}

void askMoment(MainWindow& window)
{
    Stage& stage = window.stageLink().stage();
    const BootChoice& now = stage.bootChoice();
    const auto typed = window.shell().prompts.input(
        Words::tr("What moves is shown as it stands so many seconds after the menu has come,\n"
                  "and the loader's timeout (0: none):"),
        Words::tr("Moment of the boot"), Words::tr("%1 of %2").arg(now.seconds).arg(now.timeout));
    if (!typed)
        return;
    const QString between = Words::tr("of");
    const qsizetype of = typed->indexOf(between);
    const auto limited = [](const QString& text, int without) {
        return text.isEmpty()
                   ? without
                   : static_cast<int>(std::clamp<qint64>(numberFromText(text), 0, 86400));
    };
    stage.setBootMoment(limited(typed->left(of), now.seconds),
                        limited(of < 0 ? QString() : typed->mid(of + between.size()), now.timeout));
}

} // namespace

void showStoredView(MainWindow& window)
{
    const QString stored =
        window.workbench().store.get(viewSection, asItBootsKey, QStringLiteral("1"));
    window.stageLink().stage().showAsItBoots(stored != u"0");
    window.stageLink().stage().tryEnded = [&window] { showChecks(window); };
    showChecks(window);
    snapWhileDragging(
        window, window.workbench().store.get(viewSection, snapKey, QStringLiteral("1")) != u"0");
    showNames(window,
              window.workbench().store.get(viewSection, namesKey, QStringLiteral("1")) != u"0");
}

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
    commands.add("mnuView_AsItBoots", [&window] { showView(window, true); });
    commands.add("mnuView_Schematic", [&window] { showView(window, false); });
    commands.add("mnuView_Snap", [&window] {
        snapWhileDragging(window,
                          window.menus().action(QStringLiteral("mnuView_Snap"))->isChecked());
    });
    commands.add("mnuView_Names", [&window] {
        showNames(window, window.menus().action(QStringLiteral("mnuView_Names"))->isChecked());
    });
    commands.add("mnuView_Try", [&window] { tryMenu(window); });
    commands.add("mnuView_Problems", [&window] { window.problemLink().toggle(); });
    QObject::connect(&window.statusFields().problemsButton(), &QToolButton::clicked, &window,
                     [&window] { window.commands().run(QStringLiteral("mnuView_Problems")); });
    commands.add("mnuView_Moment", [&window] { askMoment(window); });
    commands.add("mnuView_scale1", [&stage] { mnuView_scale1(stage); });
    commands.add("mnuView_fill", [&window] { fillTheScreen(window); });
    commands.add("mnuView_ZoomIn", [&window] { zoom(window, 1, window.port().middle()); });
    commands.add("mnuView_ZoomOut", [&window] { zoom(window, -1, window.port().middle()); });
    QObject::connect(&window.port(), &StagePort::zoomAsked, &window,
                     [&window](int steps, QPoint at) { zoom(window, steps, at); });
    commands.add("mnuView_Follow", [&window] {
        window.holdSize(!window.menus().action(QStringLiteral("mnuView_Follow"))->isChecked());
    });
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
    showLanguages(window);
}

} // namespace fennel
