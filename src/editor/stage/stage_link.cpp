// SPDX-License-Identifier: MIT
#include "editor/stage/stage_link.h"

#include "editor/colour/colour_link.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/stage/cursor_file.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "params/object_table.h"
#include "tools/image_tool.h"

#include <QApplication>

namespace fennel {

namespace {

struct CursorName {
    StageCursor cursor;
    const char16_t* file;
};
constexpr std::array<CursorName, 5> cursorNames = {{
    {StageCursor::Picker, u"Picker_Fsh.ani"},
    {StageCursor::Resize, u"Dgn1_Fsh.cur"},
    {StageCursor::Background, u"Link_Fsh.ani"},
    {StageCursor::Other, u"Help_Fsh.ani"},
    {StageCursor::Selected, u"Unav_Fsh.ani"},
}};

// The pointers beside the program. One that does not load leaves the usual pointer, and no message.
StageCursors loadCursors(const QString& folder)
{
    StageCursors cursors;
    for (const CursorName& name : cursorNames) {
        const auto read = readCursorFile(folder + QString::fromUtf16(name.file));
        if (read)
            cursors[name.cursor] =
                QCursor(QPixmap::fromImage(read->image), read->hotSpot.x(), read->hotSpot.y());
    }
    return cursors;
}

} // namespace

StageLink::StageLink(MainWindow& window) : m_window(window), m_stage(stageData()) {}

StageLink::~StageLink()
{
    // The surface uses the stage for as long as it lives.
    delete m_surface;
}

StageData StageLink::stageData()
{
    Workbench& bench = m_window.workbench();
    const Shell& shell = bench.shell;
    return {shell, bench.document, bench.fonts.table, *this,
            [&shell](int width, int height, const QString& source, const QString& target) {
                return ResizeJpg(shell, width, height, source, target);
            }};
}

StageSurface* StageLink::makeSurface(QWidget* parent)
{
    m_surface = new StageSurface(m_stage, parent);
    const StageCursors cursors =
        loadCursors(m_window.shell().run.AppPath + QStringLiteral("/Cursors/"));
    m_surface->setCursors(cursors);
    if (const auto picker = cursors.find(StageCursor::Picker); picker != cursors.end())
        m_picker = picker->second;
    return m_surface;
}

QCursor StageLink::pickerCursor() const
{
    return m_picker;
}

int StageLink::objectOfCurrentTab()
{
    const ParamLists& lists = m_window.workbench().params;
    return lists.objectOfTab(lists.CurrentTab);
}

int StageLink::selectTabOf(int index)
{
    const int tab = m_window.workbench().params.TabIndex(index);
    if (tab > 0)
        selectTab(m_window, tab);
    return tab;
}

void StageLink::focusStage()
{
    // A text in work lies over the stage: keys must not go to what is not seen.
    if (!m_window.rightPanel().editor().textEditMode())
        m_surface->setFocus();
}

int StageLink::pipettesOn()
{
    return m_window.colourLink().pipettesOn();
}

void StageLink::showColourControls(int index)
{
    m_window.colourLink().showControls(index);
}

void StageLink::setStatus(int panel, const QString& text)
{
    m_window.setStatusField(panel, text);
}

void StageLink::refreshStatus()
{
    m_window.setStatus();
}

void StageLink::popUp(const QString& menu, QPoint at)
{
    const QPointF logical = QPointF(at) / m_surface->devicePixelRatioF();
    if (QMenu* found = m_window.menus().menu(menu))
        found->popup(m_surface->mapToGlobal(logical.toPoint()));
}

void StageLink::panelMenu(int index, QPoint at)
{
    popUp(QStringLiteral("mnupopup_%1").arg(index), at);
}

void StageLink::objectMenu(int index, QPoint at)
{
    if (fillObjectMenu(m_window, index))
        popUp(QStringLiteral("mnu_Context_object"), at);
}

void StageLink::backgroundMenu(QPoint at)
{
    popUp(QStringLiteral("mnu_Context_picture1"), at);
}

void StageLink::setOnOffCaption(int item, const QString& caption)
{
    if (QAction* action = m_window.menus().action(QStringLiteral("mnupopup_OnOff_%1").arg(item)))
        action->setText(caption);
}

void StageLink::prepareBackground()
{
    if (!CommitValue(m_window))
        CloseEditor(m_window); // told once, not with every new size of the window
}

void StageLink::layOutWindow()
{
    m_window.LayoutWindow();
}

void StageLink::scaleApplied()
{
    m_window.refreshThumbnails();
}

void StageLink::beep(double hertz, int milliseconds)
{
    // The window system's own tone: it can be switched off where people do not want it.
    Q_UNUSED(hertz)
    Q_UNUSED(milliseconds)
    QApplication::beep();
}

} // namespace fennel
