// SPDX-License-Identifier: MIT
#include "editor/lists/list_actions.h"

#include "base/files.h"
#include "base/run_state.h"
#include "base/words.h"
#include "params/object_table.h"

namespace fennel {

namespace {

const ListRow* rowAt(const ParamLists& lists, int tab, int row)
{
    const ListRows* list = lists.list(tab);
    return list ? list->row(row) : nullptr;
}

RowState stateAt(const ParamLists& lists, int tab, const ListRow& row)
{
    return rowState(*lists.document, *lists.list(tab), row);
}

DoubleClick onPicture(const RunState& run, const ParamLists& lists, int tab, const QString& name)
{
    if (run.gfxboot_var == 1)
        return DoubleClick::Nothing;
    const TabKind& kind = lists.kind(tab);
    if (kind.add == AddAction::AddLogo && fitsPattern(name, kind.numbered.toString()))
        return DoubleClick::ShowLogo;
    return kind.add == AddAction::AddBackground ? DoubleClick::ShowBackground
                                                : DoubleClick::OpenPicture;
}

// By the ending of the name, as members have no other type.
DoubleClick onMember(const RunState& run, const ParamLists& lists, int tab, const QString& member)
{
    const QString name = member.toLower();
    if (name.endsWith(QLatin1String(".txt")))
        return lists.objectOfTab(tab) >= 0 ? DoubleClick::ShowText : DoubleClick::Nothing;
    if (name.endsWith(QLatin1String(".jpg")))
        return onPicture(run, lists, tab, member);
    if (name.endsWith(QLatin1String(".fnt")))
        return run.GfxHasCfg || run.GfxHasZuk ? DoubleClick::ShowFont : DoubleClick::TellOldFonts;
    return DoubleClick::Nothing;
}

DoubleClick onPlainRow(const RunState& run, const ParamLists& lists, const ListRow& row)
{
    switch (row.kind) {
    case RowKind::Parameter:
        return DoubleClick::EditValue;
    case RowKind::Menu:
        return DoubleClick::TakeMenu;
    case RowKind::CfgLine:
        return !run.GfxHasZuk && isParameter(lists.document->state().cfg.value(row.number))
                   ? DoubleClick::EditValue
                   : DoubleClick::Nothing;
    default:
        return DoubleClick::Nothing;
    }
}

} // namespace

// Goes on in the direction of the movement, so the arrow keys pass over grey rows instead of
// sticking at them, and round the ends. The count bounds the search if every row is grey.
int selectableRow(const ParamLists& lists, int tab, int clicked, int cameFrom)
{
    const ListRows& list = *lists.list(tab);
    const int count = list.count();
    const int step = clicked < cameFrom ? -1 : 1;
    int row = clicked;
    for (int tried = 0; tried < count; ++tried) {
        if (const ListRow* found = list.row(row);
            found && stateAt(lists, tab, *found) != RowState::Off)
            return row;
        row += step;
        if (row < 1)
            row = count;
        else if (row > count)
            row = 1;
    }
    return 0;
}

// Decides only; the window carries it out. Nothing here changes the lists.
ItemClick onItemClick(const RunState& run, const ParamLists& lists, int tab, int row,
                      bool rightButton)
{
    ItemClick click;
    click.select = row;
    const ListRow* clicked = rowAt(lists, tab, row);
    if (!clicked)
        return click;
    const bool generation3 = run.gfxboot_var == 3;
    const bool off = stateAt(lists, tab, *clicked) == RowState::Off;
    click.showFont = generation3 && tab == TabFonts;
    // Only generation 3 has rows that can be switched off as a group.
    if (generation3 && off) {
        click.select = selectableRow(lists, tab, row, lists.CurrentRow);
        click.skipped = true;
        return click;
    }
    click.buttons = buttonsOfRow(run, lists, tab, row);
    click.showPopup = rightButton && run.gfxboot_var >= 2 && !off && !clicked->member().isEmpty();
    click.showCfgStatus = tab == TabConfig && !rightButton;
    return click;
}

DoubleClick onDoubleClick(const RunState& run, const ParamLists& lists, int tab, int row,
                          bool checkFromMenu)
{
    // While a menu's values lie over the lists, a value edited here would seem to have no effect.
    if (checkFromMenu)
        return DoubleClick::RefuseMenuLevel;
    const ListRow* clicked = rowAt(lists, tab, row);
    if (!clicked)
        return DoubleClick::Nothing;
    if (stateAt(lists, tab, *clicked) != RowState::Usable)
        return run.gfxboot_var == 3 ? DoubleClick::SelectFirst : DoubleClick::Nothing;
    if (const QString member = clicked->member(); !member.isEmpty())
        return onMember(run, lists, tab, member);
    return onPlainRow(run, lists, *clicked);
}

ListKey onListKey(const TabKind& kind, int key)
{
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return kind.enter;
    // The key "2" flips a check mark by old habit of the lists of values; elsewhere other keys
    // belong to the list itself, such as the search for a name.
    return kind.enter == ListKey::EditValue && key == Qt::Key_2 ? ListKey::FlipCheck
                                                                : ListKey::Nothing;
}

// The check marks of list 1 choose the menu; those of list 3 switch lines of the cfg file.
RowCheck onRowCheck(const RunState& run, const ParamLists& lists, int tab, int row)
{
    const ListRow* clicked = rowAt(lists, tab, row);
    if (!clicked)
        return RowCheck::Refuse;
    if (clicked->kind == RowKind::Menu)
        return RowCheck::TakeMenu;
    return run.gfxboot_var == 2 && clicked->kind == RowKind::CfgLine &&
                   stateAt(lists, tab, *clicked) == RowState::Usable
               ? RowCheck::WriteCfg
               : RowCheck::Refuse;
}

EditAction onComEdit(const ParamLists& lists, int tab, const QString& name)
{
    const EditAction edit = lists.kind(tab).edit;
    // Of the members a picture has a tab of its own to be edited on; what is left is text.
    return edit == EditAction::TellSpecialTab && !name.contains(u".jpg", Qt::CaseInsensitive)
               ? EditAction::EditText
               : edit;
}

DeleteAction onComDEL(const ParamLists& lists, int tab, int row, bool required)
{
    const ListRow* selected = rowAt(lists, tab, row);
    if (!selected || selected->member().isEmpty())
        return DeleteAction::Nothing;
    // These stay, whatever tab they are to be deleted from.
    if (required)
        return DeleteAction::RefuseRequired;
    return lists.kind(tab).add == AddAction::TellPlanned ? DeleteAction::TellPlanned
                                                         : DeleteAction::AskDelete;
}

std::vector<PopupEntry> rowPopup(int tab, const QString& name)
{
    // Entry 0 is the heading; here it can be clicked, on other tabs it only names the row.
    if (tab == TabConfig)
        return {{0, name, true}};
    return {{0, name, false},
            {1, QStringLiteral("1 - ") + name, true},
            {popupEdit, Words::tr("Edit ") + name, true},
            {popupDelete, Words::tr("Delete ") + name, true}};
}

std::vector<PopupEntry> tabPopup(const RunState& run, const ParamLists& lists, int tab)
{
    if (run.gfxboot_var < 2 || !lists.list(tab))
        return {};
    const QString caption = lists.tabs[static_cast<std::size_t>(tab)].caption;
    const TabKind& kind = lists.kind(tab);
    std::vector<PopupEntry> entries = {
        {0, Words::tr("%1 Context menu of the tab").arg(caption), true}};
    if (kind.reorder)
        entries.push_back({popupReorder, Words::tr("Reorder ITEMs")});
    if (kind.fitColumns)
        entries.push_back({popupFitColumns, Words::tr("Columns AutoWidth")});
    if (run.GfxHasZuk && kind.files) {
        entries.push_back({popupDeleteAll, Words::tr("Delete all files")});
        entries.push_back({popupAdd, Words::tr("Add NEW file")});
        if (kind.resize == popupResizeBackgrounds)
            entries.push_back({popupResizeBackgrounds, Words::tr("Resize all backgrounds...")});
        if (kind.resize == popupResizeLogos)
            entries.push_back({popupResizeLogos, Words::tr("Resize all LOGOs...")});
    }
    return entries;
}

QStringList deleteAllNames(const ParamLists& lists, int tab)
{
    const QString mask = lists.kind(tab).numbered.toString();
    QStringList names;
    // 01 to 99: number 00 is the first of its kind, which must stay.
    for (int number = 101; number < 200; ++number)
        names.append(QString(mask).replace(QStringLiteral("??"), QString::number(number).right(2)));
    return names;
}

QString overlappedText()
{
    return Words::tr("You can not edit data, while they are overlap by\n"
                     "the \"MenuLevel data\"!\n\n"
                     "Uncheck \"MenuLevel data\" to edit ZUKxxxx.CFG data");
}

QString oldFontsText()
{
    return Words::tr("Too old version of the gfxboot.\nFonts are not supported");
}

QString plannedText()
{
    return Words::tr("Planned...");
}

QString plannedMenuText()
{
    return Words::tr("Planned...\nMenu TEXT changing...");
}

QString plannedUpDownText(int value)
{
    return plannedText() + Words::tr("\nUpDown: %1").arg(value);
}

QString specialTabText()
{
    return Words::tr("Use a special tab for this item");
}

QString notTextFileText()
{
    return Words::tr("This file is not a text file");
}

QString askDeleteText(const QString& name)
{
    return Words::tr("Delete the file %1?").arg(name);
}

} // namespace fennel
