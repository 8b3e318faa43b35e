// SPDX-License-Identifier: MIT
// frmMain: the one window of the program. It owns the areas and keeps them in line with the run;
// what is decided is decided in the core, what commands do stands in the handlers_ files beside.
#pragma once

#include "editor/commands/commands.h"
#include "editor/window/layout.h"
#include "editor/window/toolbar_table.h"
#include "editor/window/workbench.h"
#include "screen/scale_rules.h"

#include <QElapsedTimer>
#include <QList>
#include <QMainWindow>
#include <QTimer>

#include <memory>

class QToolButton;

namespace fennel {

class BootLink;
class ColourLink;
class ColourTools;
class FontInfo;
class InspectionList;
class Menus;
class ProblemLink;
class RightPanel;
class FlashLink;
class SplitterBar;
class StageLink;
class StagePort;
class StageSurface;
class StatusBar;
class ThumbnailStrip;
class Toolbar;
class WindowProgress;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // The workbench outlives the window.
    explicit MainWindow(Workbench& workbench);
    ~MainWindow() override;

    [[nodiscard]] Workbench& workbench() { return m_workbench; }
    [[nodiscard]] const Shell& shell() const { return m_workbench.shell; }
    [[nodiscard]] Document& document() { return m_workbench.document; }
    [[nodiscard]] Commands& commands() { return m_commands; }
    [[nodiscard]] Menus& menus() { return *m_menus; }
    [[nodiscard]] Toolbar& toolbar() { return *m_toolbar; }
    [[nodiscard]] RightPanel& rightPanel() { return *m_rightPanel; }
    [[nodiscard]] ThumbnailStrip& thumbnails() { return *m_bottomPanel; }
    [[nodiscard]] StatusBar& statusFields() { return *m_statusBar; }
    [[nodiscard]] FontInfo& fontInfo() { return *m_fontInfo; }
    [[nodiscard]] InspectionList& inspectionList() { return *m_inspection; }
    [[nodiscard]] StageLink& stageLink() { return *m_stageLink; }
    [[nodiscard]] FlashLink& flashLink() { return *m_flashLink; }
    [[nodiscard]] BootLink& bootLink() { return *m_bootLink; }
    [[nodiscard]] ProblemLink& problemLink() { return *m_problemLink; }
    [[nodiscard]] StageSurface& surface() { return *m_picture; }
    [[nodiscard]] StagePort& port() { return *m_port; }
    [[nodiscard]] ColourTools& colourTools() { return *m_tools; }
    [[nodiscard]] ColourLink& colourLink() { return *m_colourLink; }
    // Shows the runs of tools, and holds the window meanwhile.
    [[nodiscard]] WindowProgress& progress() { return *m_waiting; }
    // Everything between toolbar and status line; the value editor floats on it.
    [[nodiscard]] QWidget& area() { return *m_area; }
    // The part of area() that shows the stage, without its scroll bars.
    [[nodiscard]] QRect stageView() const;

    // Opens a message file given in short form; true if it is open now.
    bool openGfxboot(const QString& path);
    // The same, and it is among the last used then.
    void openChosen(const QString& path);
    // The same for another process, once nothing is under way and no dialog waits for an answer.
    void openFromElsewhere(const QString& path);

    // Title, menus, toolbar and status line as the run state says.
    void UpdateInterface();
    void UpdateToolbar();
    // All eight fields of the status line from the run state.
    void setStatus();
    void setStatusField(int number, const QString& text);

    // Sizes the window from the preview and places the panels that are visible.
    void LayoutWindow();
    // The window is as large as the user made it, or as the desktop is, and not as the picture
    // asks.
    [[nodiscard]] bool sizeHeld() const { return m_free || isMaximized() || isFullScreen(); }
    // From now on the window keeps the size that it has, or follows the picture again.
    void holdSize(bool held);
    void showRightPanel(bool shown);
    void showBottomPanel(bool shown);
    void toolbarCommand(int id);
    // Brings the background in force to the preview, and the window to its size.
    void ShowBackground();
    // What the stage says while nothing is open.
    void showWelcome();
    void refreshThumbnails();
    // Checks the entry of the selected tab in the menu of the objects.
    void showObjectMenu();
    // What the "Fill the screen" calculation needs of the window.
    [[nodiscard]] FillRoom fillRoom() const;

Q_SIGNALS:
    void activated();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Opening;

    void buildAreas();
    void buildSplitters();
    void connectAreas();
    [[nodiscard]] QWidget* framedBy(QWidget& focused) const;
    // Each places and shows one area as the arithmetic of layout.h says.
    void LayoutBottomPanel(const LayoutResult& layout);
    void LayoutRightPanel(const LayoutResult& layout);
    void LayoutTools(const LayoutResult& layout);
    void placeSplitters(const LayoutResult& layout);
    void keepOnScreen();
    void takeStoredPlace();
    void storePlace();
    void answered();
    void windowPulled();
    void windowFilled();
    [[nodiscard]] int barsHeight() const;
    // What the window system puts around the window; nothing until it has answered.
    [[nodiscard]] QSize border() const;
    void askSize(QSize size);
    void setPanelWidth(int width);
    void setPanelHeight(int height);
    void Form_Activate();
    // All controls but those of the status line.
    void setControlsEnabled(bool enabled);
    [[nodiscard]] LayoutInput layoutInput() const;

    Workbench& m_workbench;
    Commands m_commands;
    std::unique_ptr<ColourLink> m_colourLink;
    std::unique_ptr<StageLink> m_stageLink;
    std::unique_ptr<FlashLink> m_flashLink;
    std::unique_ptr<BootLink> m_bootLink;
    std::unique_ptr<ProblemLink> m_problemLink;
    std::unique_ptr<Menus> m_menus;
    Toolbar* m_toolbar;
    QWidget* m_area;          // everything between toolbar and status bar
    StagePort* m_port;        // holds Picture1
    StageSurface* m_picture;  // Picture1
    RightPanel* m_rightPanel; // Frame1Vkladki
    ThumbnailStrip* m_bottomPanel;
    ColourTools* m_tools;         // Frame5RDPanelTools
    FontInfo* m_fontInfo;         // Frame8FontINFO
    InspectionList* m_inspection; // Frame_for_List1
    QWidget* m_message;           // Frame7RDMessage
    SplitterBar* m_vertical;      // Frame3Vertical
    SplitterBar* m_horizontal;    // Frame4Horizontal
    QToolButton* m_rightButton;   // ComFrame1
    StatusBar* m_statusBar;
    std::unique_ptr<WindowProgress> m_waiting;
    int m_dragStart = 0;
    bool m_laying = false;
    bool m_free = false;   // the user made the window larger or smaller
    bool m_filled = false; // it was laid out maximised
    QSize m_laid;          // the size that the areas were laid out for
    QSize m_laidBorder;    // and what was around it
    QSize m_baseSize;      // from these two the room is shared that the user adds
    int m_basePanel = 0;
    QList<QSize> m_asked;     // of the window system, and perhaps not answered yet
    QTimer m_answer;          // the last answer stays
    QElapsedTimer m_pulledAt; // when it became free
};

} // namespace fennel
