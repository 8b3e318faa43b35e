// SPDX-License-Identifier: MIT
// Filling the window from an opened gfxboot, step by step, and showing its background.
#include "container/member_list.h"
#include "frame/handlers.h"
#include "frame/main_window.h"
#include "frame/thumbnail_strip.h"
#include "params/right_panel.h"

#include <QImageReader>
#include <QLabel>

namespace fennel {

namespace {

// The five fixed tabs, with nothing in their lists.
void prepareFixedTabs(ParamLists& params)
{
    static constexpr std::array<const char16_t*, 5> captions = {u"Menu", u"Gfxboot", u"Config",
                                                                u"Background(s)", u"Font(s)"};
    params.tabs.assign(std::size_t{FirstObjectTab}, {});
    params.lists.assign(std::size_t{FirstObjectTab}, {});
    for (std::size_t i = 0; i < captions.size(); ++i)
        params.tabs[i + 1].caption = QString::fromUtf16(captions[i]);
}

ListRow plainRow(const QString& text)
{
    ListRow row;
    row.cells = {{text, {}, {}, {}, false}};
    row.colour = fixedRow;
    return row;
}

void fillBackgrounds(const Shell& shell, ListRows& list)
{
    shell.WriteLog(QStringLiteral("     4_Backgrounds_in_ListView"));
    list = {};
    list.columns = columnsFrom(QStringLiteral("File Name|File Size|"));
    list.iconView = true;
    const QStringList names = filesLike(shell.run.Workspace, QStringLiteral("back.jpg")) +
                              numberedFiles(shell.run.Workspace, QStringLiteral("back_??.jpg"));
    for (const QString& name : names) {
        ListRow row;
        const QString path = shell.run.Workspace + name;
        const QString size = QString::number(fileSize(path));
        row.tag = fileTag(name);
        row.iconFile = path;
        row.cells = {{name, QStringLiteral("Size: %1 byte").arg(size), {}, {}, false},
                     {size, {}, {}, {}, false}};
        list.rows.push_back(row);
    }
}

void fillConfig(const Shell& shell, ListRows& list)
{
    shell.WriteLog(QStringLiteral("     3_Config_in_ListView"));
    list = {};
    list.columns = columnsFrom(QStringLiteral("Parameter|Value|Comment from the \"gfxboot.cfg\"|"));
    if (!shell.run.GfxHasCfg)
        list.rows.push_back(plainRow(QStringLiteral("File \"gfxboot.cfg\" is absent")));
}

void fillFonts(const Shell& shell, ListRows& list)
{
    shell.WriteLog(QStringLiteral("     5_Fonts_in_ListView"));
    list = {};
    list.columns = columnsFrom(QStringLiteral("File|Value|Unit|"));
    for (const QString& name : filesLike(shell.run.Workspace, QStringLiteral("16x16*.fnt"))) {
        ListRow row;
        row.tag = fileTag(name);
        row.bold = true;
        row.cells = {{name, {}, {}, {}, false}};
        list.rows.push_back(row);
    }
}

} // namespace

void fillStep(MainWindow& window, OpenHost::Step step)
{
    using Step = OpenHost::Step;
    const Shell& shell = window.shell();
    ParamLists& params = window.workbench().params;
    switch (step) {
    case Step::Pictures:
        prepareFixedTabs(params);
        break;
    case Step::Members:
        MemberListFill(shell, *params.list(TabGfxboot));
        break;
    case Step::Config:
        fillConfig(shell, *params.list(TabConfig));
        break;
    case Step::Backgrounds:
        fillBackgrounds(shell, *params.list(TabBackgrounds));
        break;
    case Step::Fonts:
        fillFonts(shell, *params.list(TabFonts));
        break;
    case Step::Tabs:
        window.rightPanel().rebuild();
        break;
    case Step::Show:
        window.UpdateInterface();
        window.refreshThumbnails();
        window.ShowBackground();
        break;
    default:
        break;
    }
}

void MainWindow::refreshThumbnails()
{
    const QString& folder = m_workbench.shell.run.Workspace;
    m_bottomPanel->setFiles(folder, filesLike(folder, QStringLiteral("*.jpg")));
}

void MainWindow::ShowBackground()
{
    const Shell& shell = m_workbench.shell;
    shell.WriteLog(QStringLiteral(" Picture1.Show "));
    QSize size(400, 300);
    QPixmap pixmap;
    if (shell.run.GfxOpened && FileExists(shell.run.BackFile)) {
        pixmap = QPixmap(shell.run.BackFile);
        size = QSize(shell.run.BackWidth, shell.run.BackHeight);
        setStatusField(4, QStringLiteral("%1x%2, Scale=100%").arg(size.width()).arg(size.height()));
    }
    m_picture->setPixmap(pixmap);
    m_picture->resize(size);
    LayoutWindow();
}

} // namespace fennel
