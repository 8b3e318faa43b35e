// SPDX-License-Identifier: MIT
// The Edit menu, the pop-up menus of the stage, and the thumbnails.
#include "base/text.h"
#include "base/words.h"
#include "container/member_table.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "editor/window/thumbnail_strip.h"
#include "params/cfg_lines.h"
#include "screen/panel_text.h"

namespace fennel {

namespace {

void pointAtMembers(MainWindow& window)
{
    activateTab(window, TabGfxboot);
    window.shell().prompts.ShowMessage(
        Words::tr("Double click on item to open a dialogue \n"
                  "\n"
                  "\"Change the file\"\n"
                  "\n"
                  "Or right mouse button click to bring up the context menu\n"
                  "\n"
                  "Or use a special tab for gfxboot component"));
}

void chooseObjectTab(MainWindow& window, int tab)
{
    activateTab(window, tab);
    window.showObjectMenu();
}

void onThumbnail(MainWindow& window, const QString& name, Qt::MouseButton button)
{
    const Shell& shell = window.shell();
    if (button == Qt::RightButton) {
        shell.prompts.ShowMessage(Words::tr("Planned: Calling PopupMenu for %1").arg(name),
                                  MessageType::Ok, QStringLiteral("It's roll"));
    } else if (button == Qt::MiddleButton) {
        shell.prompts.ShowMessage(QStringLiteral("It's roll"));
    } else if (fitsPattern(name, QStringLiteral("back*.jpg"))) {
        chooseBackground(window, name);
    } else if (fitsPattern(name, logoPattern)) {
        showLogoMember(window, name);
    }
}

void flipButton(MainWindow& window, int button)
{
    const Stage& stage = window.stageLink().stage();
    const QString key = hideKey(button);
    Change change;
    change.cfg = window.document().state().cfg;
    const int number = cfgLineOf(*change.cfg, key);
    if (number < 0) {
        window.shell().prompts.ShowMessage(Words::tr("The tab Config has no row for %1:\n"
                                                     "this gfxboot cannot switch the button.")
                                               .arg(key));
        return;
    }
    // What the stage shows must hold when the screen boots, so the row becomes an active one.
    CfgLine& line = (*change.cfg)[number];
    line.on = true;
    line.value = ParamValue{stage.ButtonVisible(button) ? 1 : 0, false, {}};
    StepInfo info{Words::tr("switching of %1").arg(key), {}, {}};
    info.place.cfgName = key;
    (void)window.document().apply(change, info);
    selectRow(window, TabConfig, number + 1);
}

} // namespace

void addEditCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    commands.add("mnuEdit_Replace", [&window] { pointAtMembers(window); });
    commands.add("mnuEdit_EditCFG", [&window] { chooseObjectTab(window, TabConfig); });
    commands.add("mnu_Context_picture1_cfg", [&window] { chooseObjectTab(window, TabConfig); });
    commands.addArray("mnuEdit_ZUK_arr", [&window](int tab) { chooseObjectTab(window, tab); });
    for (const int button : {1, 3, 5, 7}) {
        const QByteArray name = "mnupopup_OnOff_" + QByteArray::number(button);
        commands.add(name.constData(), [&window, button] { flipButton(window, button); });
    }
    QObject::connect(
        &window.thumbnails(), &ThumbnailStrip::clicked, &window,
        [&window](const QString& name, Qt::MouseButton button) {
            onThumbnail(window, name, button);
        },
        Qt::QueuedConnection);
    QObject::connect(&window.thumbnails(), &ThumbnailStrip::hovered, &window,
                     [&window](const QString& name) {
                         window.setStatusField(7, Words::tr("Gfxboot component: \"%1\"").arg(name));
                     });
}

} // namespace fennel
