// SPDX-License-Identifier: MIT
// The areas of the window: how they are made, where they stand, how the splitters move them.
#include "base/text.h"
#include "base/words.h"
#include "editor/colour/colour_tools.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/font_info.h"
#include "editor/fonts/inspection_list.h"
#include "editor/lists/list_view.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_port.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/retranslated.h"
#include "editor/window/splitter_bar.h"
#include "editor/window/status_bar.h"
#include "editor/window/thumbnail_strip.h"
#include "editor/window/toolbar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusFrame>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace fennel {

namespace {

QString notZukText()
{
    return Words::tr("This gfxboot is not @ZUK-MOSA@\n"
                     "So some features of the FENNEL-GFX (GUI) are disabled\n"
                     "\n"
                     "You can try to upgrade the selected gfxboot with\n"
                     "File / Upgrade gfxboot to @ZUK-MOSA@");
}

// The font's panel leaves the control of the bottom panel's height free.
QRect overThumbnails(const QRect& bottomPanel, const QWidget& heightControl)
{
    constexpr int gap = 6;
    const int controls = heightControl.width() + gap;
    return bottomPanel.adjusted(3, 1, -controls, 0);
}

QWidget* messageFrame(QWidget* parent)
{
    auto* frame = new QGroupBox(parent);
    frame->setObjectName(QStringLiteral("Frame7RDMessage"));
    auto* label = new QLabel(frame);
    retranslated(frame, [frame, label] {
        frame->setTitle(Words::tr("INFO"));
        label->setText(notZukText());
    });
    label->setObjectName(QStringLiteral("LabelINFO"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(label);
    return frame;
}

// The controls under the lists, those of an object's tab among them.
int leastRowWidth(RightPanel& panel)
{
    constexpr int between = 2;
    constexpr int edges = 12;
    int width = edges;
    for (const QWidget* widget : std::initializer_list<const QWidget*>{
             &panel.widthSpin(), &panel.fromMenu(), &panel.rowSpin(), &panel.addButton(),
             &panel.deleteButton(), &panel.editButton()})
        width += between + widget->minimumSizeHint()
                               .boundedTo(widget->maximumSize())
                               .expandedTo(widget->minimumSize())
                               .width();
    return width;
}

void showSizes(QSpinBox& spin, int smallest, int largest, int value)
{
    const QSignalBlocker quiet(spin);
    spin.setRange(smallest, largest);
    spin.setValue(value);
}

} // namespace

void MainWindow::buildAreas()
{
    auto* central = new QWidget(this);
    m_area = new QWidget(central);
    m_statusBar = new StatusBar(central);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_area, 1);
    column->addWidget(m_statusBar);
    setCentralWidget(central);

    m_picture = m_stageLink->makeSurface(nullptr);
    m_port = new StagePort(*m_picture, m_area);
    m_rightPanel = new RightPanel(m_workbench.params, m_area);
    m_bottomPanel = new ThumbnailStrip(shell(), m_area);
    m_tools = new ColourTools(m_area);
    m_fontInfo = new FontInfo(m_area);
    m_inspection = new InspectionList(m_area);
    m_message = messageFrame(m_area);
    buildSplitters();
    m_workbench.shell.run.RightPanelWidth = initialRightPanelWidth(screen()->size().width());
}

void MainWindow::buildSplitters()
{
    m_vertical = new SplitterBar(Qt::Vertical, m_area);
    m_vertical->setObjectName(QStringLiteral("Frame3Vertical"));
    m_horizontal = new SplitterBar(Qt::Horizontal, m_area);
    m_horizontal->setObjectName(QStringLiteral("Frame4Horizontal"));
    m_rightButton = new QToolButton(m_area);
    m_rightButton->setObjectName(QStringLiteral("ComFrame1"));
    m_rightButton->setAutoRaise(true);
    m_rightButton->setFocusPolicy(Qt::NoFocus);
    m_statusBar->bottomButton().setFocusPolicy(Qt::NoFocus);
}

// What the frame of the focus stands around, null for a widget that shows the focus itself. It lies
// outside of that widget, so the stack of a list's tabs has no room for it within.
QWidget* MainWindow::framedBy(QWidget& focused) const
{
    if (&focused == m_picture)
        return m_port;
    if (qobject_cast<QAbstractItemView*>(&focused) == nullptr || !m_area->isAncestorOf(&focused))
        return nullptr;
    QWidget* framed = &focused;
    while (qobject_cast<QStackedWidget*>(framed->parentWidget()) != nullptr)
        framed = framed->parentWidget();
    return framed;
}

void MainWindow::connectAreas()
{
    RunState& run = m_workbench.shell.run;
    connect(m_toolbar, &Toolbar::commandChosen, this, &MainWindow::toolbarCommand);
    // Enter goes from an object to its list, Escape back.
    connect(m_picture, &StageSurface::listWanted, this, [this] {
        ListView* list = m_rightPanel->view(m_workbench.params.CurrentTab);
        if (list->isVisible()) // else the keys would go nowhere
            list->setFocus();
    });
    connect(m_rightPanel, &RightPanel::keyPressed, this, [this](int, int key) {
        if (key == Qt::Key_Escape)
            m_picture->setFocus();
    });
    connect(m_rightButton, &QToolButton::clicked, this,
            [this] { showRightPanel(!m_workbench.flags.rightPanelShown); });
    connect(&m_statusBar->bottomButton(), &QToolButton::clicked, this,
            [this] { showBottomPanel(!m_workbench.flags.bottomPanelShown); });
    connect(&m_rightPanel->widthSpin(), &QSpinBox::valueChanged, this, [this](int value) {
        setPanelWidth(value);
        ShowBackground();
    });
    connect(&m_bottomPanel->heightControl(), &QSpinBox::valueChanged, this, [this](int value) {
        setPanelHeight(value);
        ShowBackground();
    });

    connect(m_vertical, &SplitterBar::pressed, this,
            [this, &run] { m_dragStart = run.RightPanelWidth; });
    connect(m_vertical, &SplitterBar::dragged, this,
            [this](int distance) { setPanelWidth(m_dragStart + distance); });
    connect(m_horizontal, &SplitterBar::pressed, this,
            [this, &run] { m_dragStart = run.BottomPanelHeight; });
    connect(m_horizontal, &SplitterBar::dragged, this,
            [this](int distance) { setPanelHeight(m_dragStart + distance); });
    // Picture and lists look the same whether the keys go there or not: a frame shows it.
    auto* ring = new QFocusFrame(m_area);
    connect(qApp, &QApplication::focusChanged, ring, [this, ring](QWidget*, QWidget* now) {
        ring->setWidget(now == nullptr ? nullptr : framedBy(*now));
    });
    for (SplitterBar* bar : {m_vertical, m_horizontal}) {
        // While a splitter moves, what happens in lists is not the user's doing.
        connect(bar, &SplitterBar::released, this, [this, &run] { ShowBackground(); });
    }
    connect(m_vertical, &SplitterBar::released, this,
            [this] { m_rightPanel->view(m_workbench.params.CurrentTab)->fitColumns(); });
}

void MainWindow::setPanelWidth(int width)
{
    m_workbench.shell.run.RightPanelWidth = width;
    LayoutWindow();
    m_baseSize = size();
    m_basePanel = m_workbench.shell.run.RightPanelWidth;
}

void MainWindow::setPanelHeight(int height)
{
    m_workbench.shell.run.BottomPanelHeight = height;
    LayoutWindow();
}

int MainWindow::barsHeight() const
{
    return menuBar()->sizeHint().height() + m_toolbar->sizeHint().height() + m_statusBar->height();
}

LayoutInput MainWindow::layoutInput() const
{
    const RunState& run = m_workbench.shell.run;
    LayoutInput input;
    input.picture = m_picture->size();
    // What the desktop leaves when the window's border, menu, toolbar and status line are taken
    // off.
    const QSize border = this->border();
    const QSize desktop = screen()->availableGeometry().size();
    input.available = {desktop.width() - border.width(),
                       desktop.height() - border.height() - barsHeight()};
    if (sizeHeld())
        input.given = size() - QSize(0, barsHeight());
    input.RightPanelWidth = run.RightPanelWidth;
    input.BottomPanelHeight = run.BottomPanelHeight;
    // On a narrower desktop the toolbar puts what is left into a menu at its end.
    input.MinWindowWidth = std::min(m_toolbar->MinWindowWidth(), input.available.width());
    const QSize tools = run.GfxHasZuk ? m_tools->leastSize() : QSize();
    const int row = run.GfxHasZuk ? leastRowWidth(*m_rightPanel) : 0;
    input.leastRightPanel = std::max({minRightPanelWidth, tools.width(), row});
    input.leastBottomPanel = std::max(minBottomPanelHeight, tools.height());
    input.rightVisible = m_workbench.flags.rightPanelShown;
    input.bottomVisible = m_workbench.flags.bottomPanelShown;
    return input;
}

void MainWindow::LayoutWindow()
{
    m_workbench.shell.WriteLog(QStringLiteral(" Form.Show "));
    if (m_laying)
        return;
    const QScopedValueRollback<bool> laying(m_laying, true);
    m_laidBorder = border();
    const LayoutInput input = layoutInput();
    const LayoutResult layout = layoutWindow(input);
    m_workbench.shell.run.RightPanelWidth = layout.RightPanelWidth;
    m_workbench.shell.run.BottomPanelHeight = layout.BottomPanelHeight;
    const int leastHeight = smallestPort + splitterWidth + layout.leastBottomPanel;
    setMinimumSize(input.MinWindowWidth,
                   barsHeight() + std::min(leastHeight, std::max(0, input.available.height())));
    if (!sizeHeld()) {
        askSize({layout.area.width(), layout.area.height() + barsHeight()});
        m_baseSize = size();
        m_basePanel = layout.RightPanelWidth;
    }
    m_laid = size();
    m_port->setGeometry(layout.picture);
    m_inspection->setGeometry(layout.picture.adjusted(10, 9, -10, -9));
    LayoutBottomPanel(layout);
    LayoutRightPanel(layout);
    LayoutTools(layout);
    placeSplitters(layout);
    keepOnScreen();
}

QRect MainWindow::stageView() const
{
    const QWidget& view = *m_port->viewport();
    return {view.mapTo(m_area, QPoint(0, 0)), view.size()};
}

void MainWindow::LayoutBottomPanel(const LayoutResult& layout)
{
    const bool shown = m_workbench.flags.bottomPanelShown;
    if (shown)
        m_workbench.shell.WriteLog(QStringLiteral(" Frame2.Show "));
    m_bottomPanel->setGeometry(layout.bottomPanel);
    m_bottomPanel->setVisible(shown);
    showSizes(m_bottomPanel->heightControl(), layout.leastBottomPanel, layout.largestBottomPanel,
              layout.BottomPanelHeight);
    m_fontInfo->setGeometry(overThumbnails(layout.bottomPanel, m_bottomPanel->heightControl()));
    m_fontInfo->setVisible(shown && m_workbench.shell.run.GfxOpened &&
                           m_workbench.params.CurrentTab == TabFonts);
    showFontSample(*this);
}

void MainWindow::LayoutRightPanel(const LayoutResult& layout)
{
    const bool shown = m_workbench.flags.rightPanelShown;
    if (shown)
        m_workbench.shell.WriteLog(QStringLiteral(" Frame1.Show "));
    m_rightPanel->setGeometry(layout.rightPanel);
    m_rightPanel->setVisible(shown);
    m_rightPanel->editor().moveText(stageView());
    showSizes(m_rightPanel->widthSpin(), layout.leastRightPanel,
              std::max(layout.largestRightPanel, layout.RightPanelWidth), layout.RightPanelWidth);
}

void MainWindow::LayoutTools(const LayoutResult& layout)
{
    const RunState& run = m_workbench.shell.run;
    const bool corner = !layout.tools.isEmpty() && run.GfxOpened;
    m_tools->setGeometry(layout.tools);
    m_tools->setVisible(corner && run.GfxHasZuk);
    m_message->setGeometry(layout.tools);
    m_message->setVisible(corner && !run.GfxHasZuk);
}

void MainWindow::placeSplitters(const LayoutResult& layout)
{
    const WindowFlags& flags = m_workbench.flags;
    m_vertical->setGeometry(layout.verticalSplitter);
    m_horizontal->setGeometry(layout.horizontalSplitter);
    m_rightButton->setGeometry(layout.rightButton);
    m_rightButton->setArrowType(flags.rightPanelShown ? Qt::LeftArrow : Qt::RightArrow);
    m_rightButton->setToolTip(flags.rightPanelShown ? Words::tr("Hide Right Panel")
                                                    : Words::tr("Show Right Panel"));
    QToolButton& bottomButton = m_statusBar->bottomButton();
    bottomButton.setArrowType(flags.bottomPanelShown ? Qt::UpArrow : Qt::DownArrow);
    bottomButton.setToolTip(flags.bottomPanelShown ? Words::tr("Hide Bottom Panel")
                                                   : Words::tr("Show Bottom Panel"));
}

void MainWindow::showRightPanel(bool shown)
{
    m_workbench.flags.rightPanelShown = shown;
    UpdateToolbar();
    ShowBackground();
    m_picture->setFocus();
}

void MainWindow::showBottomPanel(bool shown)
{
    m_workbench.flags.bottomPanelShown = shown;
    UpdateToolbar();
    ShowBackground();
    m_picture->setFocus();
}

void MainWindow::ShowBackground()
{
    if (m_workbench.shell.run.GfxOpened) {
        m_stageLink->stage().ShowBackground();
        return;
    }
    m_workbench.shell.WriteLog(QStringLiteral(" Picture1.Show "));
    LayoutWindow();
}

void MainWindow::showWelcome()
{
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(palette().color(QPalette::Window));
    QPainter painter(&picture);
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawText(
        picture.rect(), static_cast<int>(Qt::AlignCenter),
        Words::tr("Open a gfxboot message file (Ctrl+O)\nor make a new one (Ctrl+N)."));
    painter.end();
    m_stageLink->stage().setBackground(picture);
    LayoutWindow();
}

void MainWindow::refreshThumbnails()
{
    const ParamLists& lists = m_workbench.params;
    const RunState& run = m_workbench.shell.run;
    if (!run.GfxOpened)
        return;
    const QString mask = lists.kind(lists.CurrentTab).thumbnails.toString();
    const QStringList names = thumbnailNames(run.Workspace, mask);
    m_bottomPanel->setFiles(run.Workspace, names);
    setStatusField(7, thumbnailStatus(names.size(), mask));
}

void MainWindow::showObjectMenu()
{
    const ParamLists& lists = m_workbench.params;
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab)
        m_menus->checkEntry("mnuEdit_ZUK_arr", tab, tab == lists.CurrentTab);
}

// In device pixels, as the picture is. The gutter and the splitter stand there whatever is hidden.
FillRoom MainWindow::fillRoom() const
{
    const auto device = [this](int logical) { return roundToEven(logical * devicePixelRatioF()); };
    const WindowFlags& flags = m_workbench.flags;
    const QRect desktop = screen()->availableGeometry();
    const QSize border = this->border();
    FillRoom room;
    room.workArea = {device(desktop.x()), device(desktop.y()), device(desktop.width()),
                     device(desktop.height())};
    room.rightPanel = device((flags.rightPanelShown ? m_rightPanel->width() : 0) + gutterWidth);
    room.bottomPanel =
        device((flags.bottomPanelShown ? m_bottomPanel->height() : 0) + splitterWidth);
    room.toolbar = device(m_toolbar->height());
    room.statusBar = device(m_statusBar->height());
    room.chromeHeight = device(border.height() + menuBar()->height());
    room.frameWidth = device(border.width() + gutterWidth);
    return room;
}

} // namespace fennel
