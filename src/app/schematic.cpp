// SPDX-License-Identifier: MIT
#include "app/schematic.h"

#include "base/files.h"
#include "container/member_table.h"
#include "editor/stage/silent_host.h"
#include "editor/stage/stage.h"
#include "menus/menu_file.h"
#include "menus/menu_overlay.h"
#include "tools/image_tool.h"

#include <QPainter>

namespace fennel {

namespace {

QStringList logosOf(const RunState& run)
{
    QStringList logos;
    for (const QString& name : numberedFiles(run.Workspace, logoPattern))
        logos.append(run.Workspace + name);
    return logos;
}

} // namespace

QImage schematicPicture(Session& session, const QString& menu, double scale)
{
    const Shell& shell = session.shell();
    Document& document = session.document();
    if (!menu.isEmpty()) {
        const bool levels = shell.run.GfxHasZuk;
        document.setMenuValues([&](ZUKarr& table) { MenuOverlay(menu, levels, table); });
        document.setMenuEntries(
            MenuEntries(menu, levels, technicalEntries(document.state().ZUKarr)));
        document.showMenuLevel(levels);
    }
    shell.run.PreviewScale = scale;
    SilentHost host;
    Stage stage({shell, document, session.fonts().table, host,
                 [&shell](int width, int height, const QString& source, const QString& target) {
                     return ResizeJpg(shell, width, height, source, target);
                 }});
    stage.adoptPanels();
    stage.setLogos(logosOf(shell.run));
    stage.ApplyScale();
    if (!FileExists(shell.run.WorkspaceRoot + scaledBackName))
        return {};
    QImage picture(stage.pictureSize(), QImage::Format_RGB32);
    QPainter painter(&picture);
    stage.paint(painter, picture.rect());
    return picture;
}

} // namespace fennel
