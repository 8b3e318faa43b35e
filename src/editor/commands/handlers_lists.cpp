// SPDX-License-Identifier: MIT
// What the user does in the lists at the right: choosing tabs and rows, typing values, files.
#include "base/text.h"
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/font_info.h"
#include "editor/lists/list_actions.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/thumbnail_strip.h"
#include "editor/window/toolbar.h"
#include "menus/menu_list.h"
#include "params/panel_values.h"
#include "screen/scale_rules.h"
#include "tools/image_tool.h"

#include <QApplication>

#include <algorithm>

namespace fennel {

namespace {

void applyButtons(MainWindow& window, const RowButtons& buttons)
{
    RightPanel& panel = window.rightPanel();
    panel.addButton().setEnabled(buttons.ComADD);
    panel.deleteButton().setEnabled(buttons.ComDEL);
    panel.editButton().setEnabled(buttons.ComEdit);
    panel.rowSpin().setEnabled(buttons.UpDown3);
    window.fontInfo().changeButton().setEnabled(buttons.Font_change);
    window.toolbar().enableButton(FontEditButton, buttons.toolbar12);
    window.toolbar().enableButton(TextEditButton, buttons.toolbar13);
    window.toolbar().enableButton(PictureEditButton, buttons.toolbar14);
}

const ListRow* currentRow(MainWindow& window)
{
    return window.workbench().params.currentRow();
}

// What the row is called, and the value that it shows.
QString itemOf(MainWindow& window, int tab, const ListRow& row)
{
    return itemText(window.document(), *window.workbench().params.list(tab), row);
}

// A parameter by its name first, as its number tells nobody what it is.
QString editorCaption(MainWindow& window, const ListRow& row)
{
    QString item = itemOf(window, window.workbench().params.CurrentTab, row);
    if (row.kind != RowKind::Parameter)
        return item;
    const QString name = window.document().state().ZUKarr.at(row.file, row.number).Name.mid(2);
    return name + QStringLiteral("   ") + item;
}

void openEditor(MainWindow& window)
{
    const ListRow* row = currentRow(window);
    if (row == nullptr || !mayLeaveText(window))
        return;
    window.rightPanel().openEditor(window.area(), editorCaption(window, *row),
                                   valueText(window.document(), *row));
}

void onRowSelected(MainWindow& window, int tab, int row, bool rightButton)
{
    ParamLists& lists = window.workbench().params;
    const RunState& run = window.shell().run;
    if (!run.GfxOpened || tab != lists.CurrentTab)
        return;
    lists.list(tab)->selected = row; // the buttons look at it
    const int before = lists.CurrentRow;
    const ItemClick click = onItemClick(run, lists, tab, row, rightButton);
    lists.CurrentRow = click.select;
    lists.list(tab)->selected = click.select;
    // What was typed for one row must not be committed to another.
    if (click.select != before)
        closeValueEditor(window);
    if (click.skipped) {
        window.rightPanel().view(tab)->select(click.select);
        // The mouse stepped over grey rows: the buttons wait for a row that is chosen itself.
        applyButtons(window, {});
        return;
    }
    applyButtons(window, click.buttons);
    const ListRow* shown = lists.list(tab)->row(row);
    if (tab == TabFonts)
        showFontRow(window, row);
    if (click.showPopup)
        showListMenu(window, rowPopup(tab, itemOf(window, tab, *shown)), QCursor::pos());
    if (click.showCfgStatus) {
        showCfgStatus(window);
        window.setStatusField(8, Words::tr("DblClick or ENTER for \"Value\" edit"));
        CloseEditor(window);
    }
}

void onRowActivated(MainWindow& window, int tab, int row)
{
    ParamLists& lists = window.workbench().params;
    const Shell& shell = window.shell();
    const ListRow* shown = lists.list(tab)->row(row);
    if (shown == nullptr)
        return;
    const QString name = shown->member();
    switch (onDoubleClick(shell.run, lists, tab, row, window.document().menuLevelShown())) {
    case DoubleClick::RefuseMenuLevel:
        shell.prompts.ShowMessage(overlappedText(), MessageType::Ok, Words::tr("MenuLevel data"));
        break;
    case DoubleClick::SelectFirst:
        selectRow(window, tab, 1);
        break;
    case DoubleClick::TakeMenu:
        takeMenu(window, shown->name);
        break;
    case DoubleClick::ShowText:
        showTextMember(window, lists.objectOfTab(tab), name);
        break;
    case DoubleClick::ShowLogo:
        showLogoMember(window, name);
        break;
    case DoubleClick::ShowBackground:
        chooseBackground(window, name);
        break;
    case DoubleClick::OpenPicture:
        FileEditPlanned(shell, name, {});
        break;
    case DoubleClick::TellOldFonts:
        shell.prompts.ShowMessage(oldFontsText());
        break;
    case DoubleClick::ShowFont:
        openFontContent(window, name);
        break;
    case DoubleClick::EditValue:
        openEditor(window);
        break;
    default:
        break;
    }
}

// A changed line of gfxboot.cfg reaches the file and the stage at once.
void changeCfgLine(MainWindow& window, int line, const CfgLine& changed, const QString& what)
{
    Change change;
    change.cfg = window.document().state().cfg;
    (*change.cfg)[line] = changed;
    change.writeCfg = true;
    change.cfgKey = changed.name;
    StepInfo info{what.arg(changed.name), {}, {}};
    info.place.cfgName = changed.name;
    (void)window.document().apply(change, info);
}

void setValue(MainWindow& window, const ListRow& row, const ParamValue& value)
{
    const ParamKey key{row.file, row.number};
    Change change;
    change.params[key] = value;
    const ZukCell& cell = window.document().state().ZUKarr.at(key.file, key.number);
    StepInfo info{Words::tr("value of %1").arg(cell.Name.mid(2)), {}, {}};
    info.place.object = row.object;
    info.place.param = key;
    (void)window.document().apply(change, info);
}

void onRowChecked(MainWindow& window, int tab, int row, bool checked)
{
    ParamLists& lists = window.workbench().params;
    const RowCheck check = onRowCheck(window.shell().run, lists, tab, row);
    const ListRow* changed = lists.list(tab)->row(row);
    if (changed == nullptr)
        return;
    if (check == RowCheck::TakeMenu)
        takeMenu(window, changed->name);
    if (check != RowCheck::WriteCfg)
        return;
    CfgLine line = window.document().state().cfg.value(changed->number);
    line.on = checked;
    changeCfgLine(window, changed->number, line,
                  checked ? Words::tr("switching on of %1") : Words::tr("switching off of %1"));
}

void onKey(MainWindow& window, int tab, int key)
{
    ParamLists& lists = window.workbench().params;
    const ListRow* row = currentRow(window);
    switch (onListKey(lists.kind(tab), key)) {
    case ListKey::EditValue:
    case ListKey::Open:
        if (row != nullptr)
            onRowActivated(window, tab, lists.CurrentRow);
        break;
    case ListKey::TakeMenu:
        // The line between the embedded menu and the files is none.
        if (row != nullptr && row->kind == RowKind::MenuLine)
            selectRow(window, tab, 1);
        onRowChecked(window, tab, lists.CurrentRow, true);
        window.shell().prompts.ShowMessage(plannedMenuText());
        break;
    case ListKey::FlipCheck:
        if (row != nullptr && row->kind == RowKind::CfgLine)
            onRowChecked(window, tab, lists.CurrentRow,
                         !window.document().state().cfg.value(row->number).on);
        break;
    case ListKey::Nothing:
        break;
    }
}

} // namespace

void showTextMember(MainWindow& window, int object, const QString& name)
{
    const PanelRec* panel = window.document().object(object);
    if (panel == nullptr)
        return;
    const Result<QByteArray> bytes = readBytes(window.shell().run.Workspace + name);
    if (!bytes) {
        (void)window.shell().told(bytes.failure());
        return;
    }
    window.document().setText(object, decodeText(*bytes).text);
    Stage& stage = window.stageLink().stage();
    const bool seen = !panel->OnlySelected || object == window.stageLink().objectOfCurrentTab();
    stage.DrawPanel(object);
    if (!seen)
        stage.showPanel(object, false);
}

void chooseBackground(MainWindow& window, const QString& name)
{
    const Shell& shell = window.shell();
    Document& document = window.document();
    shell.run.BackFile = shell.run.Workspace + name;
    const ZukCell& cell = document.state().ZUKarr.at(0, backgroundParam);
    if (shell.run.GfxHasZuk && !document.menuLevelShown() && cell.Value) {
        Change change;
        change.params[{0, backgroundParam}] =
            ParamValue{backgroundNumber(shell.run.BackFile), cell.Value->hex, {}};
        StepInfo info{Words::tr("choice of %1").arg(name), {}, {}};
        info.place.member = name;
        (void)document.apply(change, info);
    }
    window.ShowBackground();
}

void updateRowButtons(MainWindow& window)
{
    const ParamLists& lists = window.workbench().params;
    applyButtons(window, buttonsOfTab(window.shell().run, lists, lists.CurrentTab));
}

void showCfgStatus(MainWindow& window)
{
    const ListRow* row = currentRow(window);
    if (window.workbench().params.CurrentTab != TabConfig || row == nullptr)
        return;
    const QString item = itemOf(window, TabConfig, *row);
    window.setStatusField(7, item.isEmpty() ? QString()
                                            : item + u'=' + valueText(window.document(), *row));
}

bool CommitValue(MainWindow& window)
{
    ValueEditor& editor = window.rightPanel().editor();
    const ListRow* row = currentRow(window);
    if (!editor.isVisible() || editor.textEditMode() || row == nullptr)
        return true;
    const ParamValue typed = typedValue(editor.text());
    if (row->kind == RowKind::Parameter && !fitsLevelFile(typed)) {
        window.shell().prompts.ShowMessage(
            Words::tr("%1 cannot be stored.\nA parameter of the boot screen is a number from 0 "
                      "to %2.")
                .arg(typed.text())
                .arg(levelValueLimit));
        return false;
    }
    CloseEditor(window);
    if (row->kind == RowKind::CfgLine) {
        CfgLine line = window.document().state().cfg.value(row->number);
        line.value = typed;
        line.on = true; // it is to count at boot
        changeCfgLine(window, row->number, line, Words::tr("value of %1"));
    } else if (row->kind == RowKind::Parameter) {
        setValue(window, *row, typed);
    }
    return true;
}

void closeValueEditor(MainWindow& window)
{
    if (!window.rightPanel().editor().textEditMode())
        CloseEditor(window);
}

void CloseEditor(MainWindow& window)
{
    ValueEditor& editor = window.rightPanel().editor();
    if (!editor.isVisible())
        return;
    // Whoever clicked elsewhere wants to go on there.
    const bool focused = editor.isAncestorOf(QApplication::focusWidget());
    editor.close();
    ListView* view = window.rightPanel().view(window.workbench().params.CurrentTab);
    view->select(window.workbench().params.CurrentRow);
    if (focused)
        view->setFocus();
}

void selectRow(MainWindow& window, int tab, int row)
{
    ParamLists& lists = window.workbench().params;
    ListRows* list = lists.list(tab);
    if (list == nullptr || list->row(row) == nullptr)
        return;
    list->selected = row;
    window.rightPanel().view(tab)->select(row);
    if (tab != lists.CurrentTab)
        return;
    lists.CurrentRow = row;
    updateRowButtons(window);
}

void selectTab(MainWindow& window, int tab)
{
    ParamLists& lists = window.workbench().params;
    Stage& stage = window.stageLink().stage();
    const int old = lists.CurrentTab;
    if (old != tab) {
        closeValueEditor(window);
        if (const int object = lists.objectOfTab(old); object >= 0)
            stage.showPanel(object, shownAfterLeaving(lists, old));
        window.rightPanel().selectTab(tab);
        if (const int object = lists.objectOfTab(tab); object >= 0)
            stage.showPanel(object, true);
        // The marker comes and goes with its object.
        stage.ShowMarker(stage.SelectedPanel, 0);
        window.showObjectMenu();
        window.refreshThumbnails();
        window.LayoutWindow();
        const ListRows* list = lists.list(tab);
        lists.CurrentRow = list == nullptr ? 0 : list->selected;
        updateRowButtons(window);
    }
}

void activateTab(MainWindow& window, int tab)
{
    selectTab(window, tab);
    window.stageLink().stage().ActivatePanel(window.stageLink().objectOfCurrentTab());
}

void connectLists(MainWindow& window)
{
    RightPanel& panel = window.rightPanel();
    QObject::connect(&panel, &RightPanel::tabClicked, &window, [&window](int tab) {
        // An object that is seen takes the keys from its list.
        window.rightPanel().view(tab)->setFocus();
        activateTab(window, tab);
    });
    QObject::connect(
        &panel, &RightPanel::rowSelected, &window,
        [&window](int tab, int row, bool right) { onRowSelected(window, tab, row, right); });
    QObject::connect(&panel, &RightPanel::rowActivated, &window,
                     [&window](int tab, int row) { onRowActivated(window, tab, row); });
    QObject::connect(
        &panel, &RightPanel::rowChecked, &window,
        [&window](int tab, int row, bool checked) { onRowChecked(window, tab, row, checked); });
    QObject::connect(&panel, &RightPanel::keyPressed, &window,
                     [&window](int tab, int key) { onKey(window, tab, key); });
    QObject::connect(&panel.editor(), &ValueEditor::committed, &window,
                     [&window] { (void)CommitValue(window); });
    QObject::connect(&panel.editor(), &ValueEditor::cancelled, &window,
                     [&window] { CloseEditor(window); });
    QObject::connect(&panel.rowSpin(), &QSpinBox::valueChanged, &window, [&window](int value) {
        window.shell().prompts.ShowMessage(plannedUpDownText(value));
    });
    QObject::connect(&panel.fromMenu(), &QCheckBox::clicked, &window,
                     [&window](bool checked) { switchLevels(window, checked); });
    connectMemberRows(window);
}

} // namespace fennel
