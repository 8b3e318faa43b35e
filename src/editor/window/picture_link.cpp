// SPDX-License-Identifier: MIT
#include "editor/window/picture_link.h"

#include "base/words.h"
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
            texts.append(row.member());
    }
    return texts;
}

} // namespace

QStringList PictureLink::backgroundRows() const
{
    return firstTexts(m_window.workbench().params.list(TabBackgrounds));
}

QStringList PictureLink::logoRows() const
{
    const ParamLists& lists = m_window.workbench().params;
    return firstTexts(lists.list(lists.TabIndex(LogoPanelRow)));
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
        if (const int tab = lists.TabIndex(object); tab >= FirstObjectTab)
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
    m_window.UpdateInterface();
}

void PictureLink::setLogoSize(QSize size)
{
    const PanelRec* logo = m_window.document().object(LogoPanelRow);
    if (logo == nullptr)
        return;
    PanelRec sized = *logo;
    sized.Width = clampToI16(size.width());
    sized.Height = clampToI16(size.height());
    sized.WidthParam = static_cast<qint16>(-sized.Width);
    sized.HeightParam = static_cast<qint16>(-sized.Height);
    Change change;
    change.objects[LogoPanelRow] = sized;
    (void)m_window.document().apply(change, {Words::tr("size of LOGO"), {}, {}});
}

void PictureLink::mnuView_fill()
{
    const PanelRec* help = m_window.document().object(HelpPanelRow);
    if (help != nullptr && m_window.shell().run.GfxHasZuk) {
        PanelRec fitted = *help;
        fitHelpPanel(m_window.shell().run, fitted);
        fitted.Width = static_cast<qint16>(-fitted.WidthParam);
        fitted.Height = static_cast<qint16>(-fitted.HeightParam);
        Change change;
        change.objects[HelpPanelRow] = fitted;
        (void)m_window.document().apply(change, {Words::tr("size of HelpPanel"), {}, {}});
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
