// SPDX-License-Identifier: MIT
// Files in the lists: deleting them, and the menus of rows and tabs.
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "editor/commands/handlers.h"
#include "editor/lists/list_actions.h"
#include "editor/lists/right_panel.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"

#include <QMenu>
#include <QToolButton>

namespace fennel {

namespace {

// All or nothing.
void deleteMembers(MainWindow& window, const QStringList& names, const QString& what)
{
    const Shell& shell = window.shell();
    StepInfo info{what, {}, {}};
    info.place.member = names.value(0);
    const auto removeAll = [&] {
        for (const QString& name : names) {
            if (!shell.told(shell.files.remove(shell.run.Workspace + name)))
                return false;
        }
        return shell.told(RebuildMemberList(shell, {}));
    };
    if (window.document().changeMembers(info, [&] {
            if (!removeAll())
                return false;
            refillMembers(window);
            return true;
        }))
        return;
    refillMembers(window);
}

void onDelete(MainWindow& window)
{
    ParamLists& lists = window.workbench().params;
    const Shell& shell = window.shell();
    const ListRow* row = lists.currentRow();
    const QString name = row == nullptr ? QString() : row->member();
    const int tab = lists.CurrentTab;
    switch (onComDEL(lists, tab, lists.CurrentRow, IsRequiredMember(name))) {
    case DeleteAction::RefuseRequired:
        shell.prompts.ShowMessage(Words::tr("File \"%1\" can not be removed.\n"
                                            "It is in the \"Required Files\" list\n"
                                            "However, you can try to EDIT it.")
                                      .arg(name),
                                  MessageType::Ok, Words::tr("Required Files"));
        break;
    case DeleteAction::AskDelete:
        if (shell.prompts.ShowMessage(askDeleteText(name), MessageType::YesNo,
                                      QStringLiteral("DEL")) == Answer::Yes)
            deleteMembers(window, {name}, Words::tr("deletion of %1").arg(name));
        break;
    case DeleteAction::TellPlanned:
        shell.prompts.ShowMessage(plannedText());
        break;
    default:
        break;
    }
}

void deleteAll(MainWindow& window)
{
    const Shell& shell = window.shell();
    if (shell.prompts.ShowMessage(Words::tr("Do you really want to delete all files?"),
                                  MessageType::OkCancel, Words::tr("Files Deleting")) != Answer::Ok)
        return;
    const ParamLists& lists = window.workbench().params;
    QStringList names;
    for (const QString& name : deleteAllNames(lists, lists.CurrentTab)) {
        if (FileExists(shell.run.Workspace + name))
            names.append(name);
    }
    deleteMembers(window, names, Words::tr("deletion of %1 files").arg(names.size()));
}

void runPopup(MainWindow& window, int index)
{
    Commands& commands = window.commands();
    const ParamLists& lists = window.workbench().params;
    ListView* view = window.rightPanel().view(lists.CurrentTab);
    switch (index) {
    case popupEdit:
        commands.run(QStringLiteral("ComEdit"));
        break;
    case popupDelete:
        onDelete(window);
        break;
    case popupReorder:
        view->reorderItems();
        break;
    case popupFitColumns:
        view->fitColumns();
        break;
    case popupDeleteAll:
        deleteAll(window);
        break;
    case popupAdd:
        if (lists.kind(lists.CurrentTab).add != AddAction::TellPlanned)
            commands.run(QStringLiteral("ComADD"));
        break;
    case popupResizeBackgrounds:
        commands.run(QStringLiteral("mnuEdit_Resize"));
        break;
    case popupResizeLogos:
        commands.run(QStringLiteral("mnuEdit_ResizeLOGO"));
        break;
    default:
        break;
    }
}

} // namespace

void showListMenu(MainWindow& window, const std::vector<PopupEntry>& entries, QPoint place)
{
    std::vector<Menus::Entry> shown;
    shown.reserve(entries.size());
    for (const PopupEntry& entry : entries)
        shown.push_back({entry.index,
                         QString(entry.caption).replace(u'&', QStringLiteral("&&")),
                         entry.enabled,
                         std::nullopt,
                         {}});
    window.menus().setEntries("ListView1Popup", shown);
    window.menus().menu(QStringLiteral("mnu_Context_ListView1Popup"))->popup(place);
}

void connectMemberRows(MainWindow& window)
{
    RightPanel& panel = window.rightPanel();
    QObject::connect(&panel, &RightPanel::tabMenuAsked, &window, [&window](int tab, QPoint place) {
        const auto entries = tabPopup(window.shell().run, window.workbench().params, tab);
        if (entries.size() >= 2)
            showListMenu(window, entries, place);
    });
    QObject::connect(&panel.deleteButton(), &QToolButton::clicked, &window,
                     [&window] { onDelete(window); });
    window.commands().addArray("ListView1Popup", [&window](int index) { runPopup(window, index); });
}

} // namespace fennel
