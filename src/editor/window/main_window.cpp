// SPDX-License-Identifier: MIT
#include "editor/window/main_window.h"

#include "base/file_names.h"
#include "base/settings_file.h"
#include "editor/boot/boot_link.h"
#include "editor/colour/colour_link.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/problems/problem_link.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/flash_link.h"
#include "editor/window/menus.h"
#include "editor/window/status_bar.h"
#include "editor/window/thumbnail_strip.h"
#include "editor/window/toolbar.h"
#include "editor/window/window_progress.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QTimer>

// Resources of a static library must be asked for, from outside any namespace.
static void loadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace fennel {

MainWindow::MainWindow(Workbench& workbench) : m_workbench(workbench)
{
    loadIcons();
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/fennel-gfx.svg")));
    m_toolbar = new Toolbar(this);
    addToolBar(m_toolbar);
    setContextMenuPolicy(Qt::NoContextMenu);
    m_colourLink = std::make_unique<ColourLink>(*this);
    m_stageLink = std::make_unique<StageLink>(*this);
    m_flashLink = std::make_unique<FlashLink>(*this);
    m_bootLink = std::make_unique<BootLink>(*this);
    m_problemLink = std::make_unique<ProblemLink>(*this);
    buildAreas();
    m_answer.setSingleShot(true);
    connect(&m_answer, &QTimer::timeout, this, &MainWindow::answered);
    m_waiting = std::make_unique<WindowProgress>(*this, *m_statusBar);
    m_commands.holdWhile([this] {
        // A drag that lost its release holds nothing.
        const bool drags = QGuiApplication::mouseButtons() != Qt::NoButton;
        return m_waiting->busy() || (drags && m_picture->gestures().held());
    });
    m_colourLink->connectControls();
    addFileCommands(*this);
    addRestoreCommands(*this);
    addViewCommands(*this);
    addLanguageCommands(*this);
    addHistoryCommands(*this);
    addEditCommands(*this);
    addToolCommands(*this);
    addPictureCommands(*this);
    addComponentCommands(*this);
    addObjectCommands(*this);
    addArchiveCommands(*this);
    addFlashCommands(*this);
    addHelpCommands(*this);
    addFontCommands(*this);
    connectLists(*this);
    connectTextButtons(*this);
    m_menus = std::make_unique<Menus>(*menuBar(), m_commands);
    showFixedEntries(*this);
    showStoredView(*this);
    m_menus->action(QStringLiteral("mnuMenu_Embedded"))->setChecked(true);
    m_flashLink->showBios();
    m_toolbar->BuildToolbar(m_commands);
    connectAreas();
    workbench.document.loadCatalogue();
    connectDocument(*this);
    // Not by BuildTabs(), whose lines in the log tell of an open.
    workbench.params.tabs = fixedTabs();
    rebuildTabs(*this);
    UpdateInterface();
    showLeftWork(*this);
    showWelcome();
    takeStoredPlace();
}

MainWindow::~MainWindow() = default;

void MainWindow::setStatus()
{
    Status_set(m_workbench.shell, m_workbench.status);
    for (int number = 1; number <= statusFieldCount; ++number)
        m_statusBar->setField(number, m_workbench.status.field(number));
}

void MainWindow::setStatusField(int number, const QString& text)
{
    m_workbench.status.field(number) = text;
    m_statusBar->setField(number, text);
}

void MainWindow::UpdateToolbar()
{
    m_toolbar->UpdateToolbar(m_workbench.shell.run, m_workbench.flags);
    m_toolbar->setDrives(m_menus->entries("mnuFlash_FlashArr"));
    updateRowButtons(*this);
}

void MainWindow::UpdateInterface()
{
    const RunState& run = m_workbench.shell.run;
    m_workbench.shell.WriteLog(QStringLiteral("-UpdateInterface"));
    QString name = run.GfxOpened ? shownPath(run.GfxFileName)
                                 : QStringLiteral("/Component of @ZUK-MOSA@ project/");
    // The mark stands at its end while changes are not saved; one in a name is doubled.
    name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    setWindowTitle(QStringLiteral("%1 (v. %2). %3[*]").arg(programTitle(), versionText(), name));
    m_statusBar->beginSteps(
        ProgressBar_reset(m_workbench.shell, m_statusBar->rect(), m_statusBar->fieldPlace(2)));
    if (!run.GfxOpened)
        selectTab(*this, TabConfig);
    // An object that went with its tab can no longer be worked on.
    Stage& stage = m_stageLink->stage();
    if (stage.isRow(stage.SelectedPanel) && !stage.panel(stage.SelectedPanel).visible)
        stage.SelectPanel(-1);
    m_workbench.lastUsed.Recreate_LastUsed(m_workbench.shell,
                                           [this](int percent) { m_statusBar->setStep(percent); });
    showLastUsed(*this);
    m_flashLink->drives().RefreshDriveInfo(false, false);
    m_menus->update(run, m_flashLink->flashThere());
    UpdateToolbar();
    m_statusBar->endSteps();
    setStatus();
}

void MainWindow::Form_Activate()
{
    const Shell& shell = m_workbench.shell;
    shell.WriteLog(QStringLiteral("Form_Activate Start"));
    if (settingsFileThere(shell) == NextStep::EndProcess) {
        QCoreApplication::quit();
        return;
    }
    if (!shell.run.GfxOpened)
        UpdateInterface();
    shell.WriteLog(QStringLiteral("Form_Activate End"));
    Q_EMIT activated();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && !m_laid.isEmpty())
        windowFilled();
    if (event->type() == QEvent::LanguageChange && m_menus)
        m_waiting->whenIdle([this] { retranslate(*this); });
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_waiting->whenIdle([this] { Form_Activate(); });
}

// What is unsaved outlives the program, and a text in work is a part of it.
void MainWindow::closeEvent(QCloseEvent* event)
{
    (void)commitText(*this);
    storePlace();
    QMainWindow::closeEvent(event);
}

void MainWindow::setControlsEnabled(bool enabled)
{
    menuBar()->setEnabled(enabled);
    m_toolbar->setEnabled(enabled);
    m_area->setEnabled(enabled);
}

// What happens on screen while gfxboot_open works.
class MainWindow::Opening : public OpenListener {
public:
    explicit Opening(MainWindow& window) : m_window(window) {}

    void openBegins() override
    {
        m_window.m_workbench.journal.openBegins();
        // It is ready by the time that the members are there.
        m_window.shell().pictures().start();
        closeValueEditor(m_window);
        Stage& stage = m_window.m_stageLink->stage();
        m_selected = stage.SelectedPanel;
        stage.ShowMarker(-1, -1);
        stage.SelectedPanel = -1;
        stage.clear();
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        m_window.setControlsEnabled(false);
    }
    // The other gfxboot is there: a text of the one before has no place any more.
    void extracted() override
    {
        CloseEditor(m_window);
        m_window.m_stageLink->stage().HideAllPanels();
    }
    void backgroundRefused() override { m_window.m_stageLink->stage().tellNoMore(); }
    void reached(OpenStep step) override { showStep(m_window, step); }
    void engineUpgraded() override { showUpgradedEngine(m_window); }
    void openCanceled() override
    {
        Stage& stage = m_window.m_stageLink->stage();
        stage.endClear();
        if (!m_window.m_workbench.shell.run.GfxOpened)
            return;
        stage.RefreshPanels();
        stage.SelectPanel(m_selected);
        stage.ShowMarker(m_selected, 0);
    }
    void openEnds(bool opened) override
    {
        m_window.m_workbench.journal.openEnds(opened);
        showLeftWork(m_window);
        m_window.setControlsEnabled(true);
        QGuiApplication::restoreOverrideCursor();
        m_window.m_problemLink->check();
    }

private:
    MainWindow& m_window;
    int m_selected = -1; // the object that was marked before
};

bool MainWindow::openGfxboot(const QString& path)
{
    Opening host(*this);
    Workbench& bench = m_workbench;
    if (!mayLeaveText(*this))
        return false;
    return gfxboot_open(
        {bench.shell, bench.document, bench.fonts, bench.fontSettings, bench.upgradeAnswer}, path,
        host);
}

void MainWindow::openChosen(const QString& path)
{
    if (!openGfxboot(shortForm(path)))
        return;
    m_workbench.lastUsed.LastUsedAdd(m_workbench.shell, path);
    showLastUsed(*this);
}

void MainWindow::openFromElsewhere(const QString& path)
{
    constexpr int retryMs = 300;
    if (QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr || m_waiting->busy() || document().inGesture())
        QTimer::singleShot(retryMs, this, [this, path] { openFromElsewhere(path); });
    else
        openChosen(path);
}

} // namespace fennel
