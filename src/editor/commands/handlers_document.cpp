// SPDX-License-Identifier: MIT
// What the window shows of a change of the document, and undo and redo.
#include "base/words.h"
#include "document/opening.h"
#include "editor/colour/colour_link.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/toolbar.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <algorithm>

namespace fennel {

namespace {

bool shows(const PanelRec& panel, const ParamKey& key)
{
    return levelFileOf(panel) == key.file &&
           std::ranges::find(panel.Ids, key.number, &PanelParam::number) != panel.Ids.end();
}

// The rows of fixed tabs that follow values come and go with them; while the mouse moves only those
// that are seen.
void refillValues(MainWindow& window, bool live)
{
    const ParamLists& lists = window.workbench().params;
    for (int tab = TabMenu; tab < FirstObjectTab; ++tab) {
        if (lists.kind(tab).follows == Follows::Values && (!live || tab == lists.CurrentTab))
            refillList(window, tab);
    }
}

void showParams(MainWindow& window, const std::set<ParamKey>& params, bool live)
{
    ParamLists& lists = window.workbench().params;
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab) {
        const PanelRec& panel = *lists.object(lists.objectOfTab(tab));
        bool shown = false;
        for (const ParamKey& key : params) {
            if (!shows(panel, key))
                continue;
            shown = true;
            if (panel.OnParam == key.number)
                lists.list(tab)->switched = switchValue(window.document().state(), panel);
        }
        if (shown)
            window.rightPanel().refreshList(tab);
    }
    if (!params.empty())
        refillValues(window, live);
}

void showConfig(MainWindow& window)
{
    refillList(window, TabConfig);
    // The file has another length.
    refillList(window, TabGfxboot);
    showCfgStatus(window);
}

void showObjects(MainWindow& window, const std::set<int>& objects)
{
    Stage& stage = window.stageLink().stage();
    for (const int object : objects)
        stage.ApplyPanel(object);
    // Applying the menu brought it to the front; its bar belongs above it.
    if (std::ranges::any_of(objects, isMenuRow)) {
        stage.raisePanel(MenuPanelRow);
        stage.raisePanel(MenuBarRow);
    }
    stage.ShowMarker(stage.SelectedPanel, 0);
}

int tabOfMember(const ParamLists& lists, const QString& member)
{
    const auto has = [&](int tab) {
        return lists.list(tab) != nullptr && lists.list(tab)->findMember(member) > 0;
    };
    if (has(lists.CurrentTab))
        return lists.CurrentTab;
    for (const int tab : {int{TabBackgrounds}, int{TabFonts}}) {
        if (has(tab))
            return tab;
    }
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab) {
        if (has(tab))
            return tab;
    }
    return TabGfxboot;
}

void showChange(MainWindow& window, const DocumentChange& change)
{
    if (change.generation) {
        showGeneration(window);
        return;
    }
    showParams(window, change.params, change.live);
    if (change.cfg && !change.live)
        showConfig(window);
    else if (change.cfg)
        window.rightPanel().refreshList(TabConfig);
    const bool undone = change.cause == DocumentChange::Undone;
    // The stage shows its own gestures already.
    if (!window.surface().gestures().writing()) {
        if (change.cfg)
            window.stageLink().stage().RefreshPanels();
        showObjects(window, change.objects);
        window.surface().gestures().refreshStatus(change.objects);
        window.stageLink().showColourControls(window.stageLink().stage().ColourPanel);
    }
    // Commands show themselves what they did to files.
    if (undone && !change.members.empty())
        showMembers(window);
    if (change.params.contains({0, backgroundParam}) || (undone && !change.members.empty()))
        showChosenBackground(window);
    if (undone) {
        if (!change.place.member.isEmpty() && change.place.object >= 0)
            showTextMember(window, change.place.object, change.place.member);
        showPlace(window, change.place);
    }
}

void move(MainWindow& window, bool back)
{
    closeValueEditor(window);
    Document& document = window.document();
    (void)(back ? document.undo() : document.redo());
}

} // namespace

void showMembers(MainWindow& window)
{
    const ParamLists& lists = window.workbench().params;
    (void)measureBackground(window.shell());
    window.document().fitMenuToFont();
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab)
        refillList(window, tab);
    refillMembers(window);
    window.ShowBackground();
}

void showPlace(MainWindow& window, const StepPlace& place)
{
    const ParamLists& lists = window.workbench().params;
    int tab = place.object >= 0 ? lists.TabIndex(place.object) : 0;
    int row = 0;
    ListRow wanted;
    if (!place.cfgName.isEmpty()) {
        tab = TabConfig;
        row = cfgLineOf(window.document().state().cfg, place.cfgName) + 1;
    } else if (!place.member.isEmpty()) {
        tab = tabOfMember(lists, place.member);
        row = lists.list(tab)->findMember(place.member);
    } else if (place.param.number > 0 && tab > 0) {
        wanted.kind = RowKind::Parameter;
        wanted.file = place.param.file;
        wanted.number = place.param.number;
        row = lists.list(tab)->find(wanted);
    }
    if (tab > 0)
        activateTab(window, tab);
    else if (place.object >= 0)
        window.stageLink().stage().ActivatePanel(place.object);
    if (row > 0)
        selectRow(window, tab, row);
}

void showChosenBackground(MainWindow& window)
{
    RunState& run = window.shell().run;
    const std::optional<ParamValue>& number =
        window.document().state().ZUKarr.at(0, backgroundParam).Value;
    const QString path = backgroundFile(run.Workspace, number ? number->number : 0);
    if (!number || path == run.BackFile || window.document().menuLevelShown())
        return;
    run.BackFile = path;
    window.ShowBackground();
}

void showHistory(MainWindow& window)
{
    const Document& document = window.document();
    window.setWindowModified(document.isModified() || textModified(window));
    struct Item {
        const char* name;
        QString caption;
        QString what;
        bool enabled;
        ButtonId button;
    };
    for (const Item& item : {Item{"mnuEdit_Undo", Words::tr("Undo"), document.undoText(),
                                  document.canUndo(), UndoButton},
                             Item{"mnuEdit_Redo", Words::tr("Redo"), document.redoText(),
                                  document.canRedo(), RedoButton}}) {
        QAction* action = window.menus().action(QLatin1String(item.name));
        QString text = item.what.isEmpty() ? item.caption : item.caption + u' ' + item.what;
        window.toolbar().showAction(item.button, text, item.enabled);
        action->setText(text.replace(u'&', QStringLiteral("&&")));
        action->setEnabled(item.enabled);
    }
}

void connectDocument(MainWindow& window)
{
    const Document& document = window.document();
    QObject::connect(&document, &Document::changed, &window,
                     [&window](const DocumentChange& change) { showChange(window, change); });
    QObject::connect(&document, &Document::historyChanged, &window,
                     [&window] { showHistory(window); });
    showHistory(window);
}

void addHistoryCommands(MainWindow& window)
{
    window.commands().add("mnuEdit_Undo", [&window] { move(window, true); });
    window.commands().add("mnuEdit_Redo", [&window] { move(window, false); });
}

} // namespace fennel
