// SPDX-License-Identifier: MIT
#include "editor/window/picture_link.h"

#include "editor/commands/handlers.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <QGuiApplication>

namespace fennel {

namespace {

QStringList firstTexts(const ListRows* list)
{
    QStringList texts;
    if (list != nullptr) {
        for (const ListRow& row : list->rows)
            texts.append(row.text());
    }
    return texts;
}

int tabOf(const ParamLists& lists, int object)
{
    const PanelRec* panel = lists.object(object);
    return panel == nullptr ? 0 : panel->TabIndex;
}

} // namespace

QStringList PictureLink::backgroundRows() const
{
    return firstTexts(m_window.workbench().params.list(TabBackgrounds));
}

QStringList PictureLink::logoRows() const
{
    const ParamLists& lists = m_window.workbench().params;
    return firstTexts(lists.list(tabOf(lists, LogoPanelRow)));
}

void PictureLink::refillMembers()
{
    refillList(m_window, TabGfxboot);
}

void PictureLink::refillBackgrounds()
{
    refillMembers(); // it shows their sizes
    refillList(m_window, TabBackgrounds);
    m_window.refreshThumbnails();
    updateRowButtons(m_window);
}

void PictureLink::refillLogos()
{
    const ParamLists& lists = m_window.workbench().params;
    refillMembers();
    // The texts of the logos stand in the list of the help panel.
    for (const int object : {int{LogoPanelRow}, int{HelpPanelRow}}) {
        if (const int tab = tabOf(lists, object); tab >= FirstObjectTab)
            refillList(m_window, tab);
    }
    loadLogos(m_window);
    m_window.refreshThumbnails();
    updateRowButtons(m_window);
}

void PictureLink::ShowBackground()
{
    m_window.ShowBackground();
}

void PictureLink::refreshPanels()
{
    m_window.stageLink().stage().RefreshPanels();
}

void PictureLink::UpdateInterface()
{
    const int tab = m_window.workbench().params.CurrentTab;
    Stage& stage = m_window.stageLink().stage();
    const int selected = stage.SelectedPanel;
    m_window.UpdateInterface();
    selectTab(m_window, tab);
    stage.SelectPanel(selected);
    stage.ShowMarker(selected, 0);
}

void PictureLink::setLogoSize(QSize size)
{
    PanelRec* logo = m_window.workbench().params.object(LogoPanelRow);
    if (logo == nullptr)
        return;
    logo->Width = clampToI16(size.width());
    logo->Height = clampToI16(size.height());
    logo->WidthParam = static_cast<qint16>(-logo->Width);
    logo->HeightParam = static_cast<qint16>(-logo->Height);
}

void PictureLink::mnuView_fill()
{
    ParamLists& lists = m_window.workbench().params;
    if (PanelRec* help = lists.object(HelpPanelRow);
        help != nullptr && m_window.shell().run.GfxHasZuk) {
        fitHelpPanel(m_window.shell().run, *help);
        help->Width = static_cast<qint16>(-help->WidthParam);
        help->Height = static_cast<qint16>(-help->HeightParam);
    }
    m_window.commands().run(QStringLiteral("mnuView_fill"));
}

void PictureLink::setWaiting(bool on)
{
    if (on)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace fennel
