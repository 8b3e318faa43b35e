// SPDX-License-Identifier: MIT
// The buttons "edit" and "add" beside the lists: which command each of them is on the selected tab.
#include "editor/commands/handlers.h"
#include "editor/lists/list_actions.h"
#include "editor/lists/right_panel.h"
#include "editor/window/main_window.h"

namespace fennel {

namespace {

void onEdit(MainWindow& window)
{
    const ParamLists& lists = window.workbench().params;
    const ListRows* list = lists.list(lists.CurrentTab);
    const ListRow* row = list == nullptr ? nullptr : list->row(lists.CurrentRow);
    const QString name = row == nullptr ? QString() : row->member();
    switch (onComEdit(lists, lists.CurrentTab, name)) {
    case EditAction::EditFont:
        window.commands().run(QStringLiteral("mnuEDIT_NEWFont"));
        break;
    case EditAction::EditBackground:
        changeBackground(window, name);
        break;
    case EditAction::EditLogo:
        changeLogo(window, name);
        break;
    case EditAction::EditText:
        if (!EditTextFile(window))
            window.shell().prompts.ShowMessage(notTextFileText());
        break;
    case EditAction::TellSpecialTab:
        window.shell().prompts.ShowMessage(specialTabText());
        break;
    case EditAction::TellPlanned:
        window.shell().prompts.ShowMessage(plannedText());
        break;
    default:
        break;
    }
}

void onAdd(MainWindow& window)
{
    const ParamLists& lists = window.workbench().params;
    switch (lists.kind(lists.CurrentTab).add) {
    case AddAction::AddFont:
        window.commands().run(QStringLiteral("mnuEDIT_ADDFont"));
        break;
    case AddAction::AddBackground:
        window.commands().run(QStringLiteral("mnuEDIT_ADDBack"));
        break;
    case AddAction::AddLogo:
        window.commands().run(QStringLiteral("mnuEDIT_ADDLogo"));
        break;
    case AddAction::TellPlanned:
        window.shell().prompts.ShowMessage(plannedText());
        break;
    }
}

} // namespace

void addComponentCommands(MainWindow& window)
{
    window.commands().add("ComEdit", [&window] { onEdit(window); });
    window.commands().add("ComADD", [&window] { onAdd(window); });
    RightPanel& panel = window.rightPanel();
    QObject::connect(&panel.editButton(), &QToolButton::clicked, &window,
                     [&window] { window.commands().run(QStringLiteral("ComEdit")); });
    QObject::connect(&panel.addButton(), &QToolButton::clicked, &window,
                     [&window] { window.commands().run(QStringLiteral("ComADD")); });
}

} // namespace fennel
