// SPDX-License-Identifier: MIT
#include "params/list_actions.h"

#include "params/object_table.h"
#include "shell/files.h"
#include "shell/run_state.h"

namespace fennel {

namespace {

constexpr int separatorOfMenus = 2; // row 2 of list 1 parts the embedded menu from the files

const ListRow* rowAt(const ParamLists& lists, int tab, int row)
{
    const ListRows* list = lists.list(tab);
    return list ? list->row(row) : nullptr;
}

bool isMember(const ListRow& row)
{
    return row.tag.contains(QLatin1String("|File: "));
}

bool isGrey(const ListRow& row)
{
    return row.colour == greyRow;
}

DoubleClick onPicture(const RunState& run, const ParamLists& lists, int tab, const QString& name)
{
    if (run.gfxboot_var == 1)
        return DoubleClick::Nothing;
    if (isLogoTab(lists, tab) && fitsPattern(name, QStringLiteral("Logo_??.jpg")))
        return DoubleClick::ShowLogo;
    return tab == TabBackgrounds ? DoubleClick::ShowBackground : DoubleClick::OpenPicture;
}

DoubleClick onMember(const RunState& run, const ParamLists& lists, int tab, const ListRow& row,
                     int number)
{
    const QString name = row.text().toLower();
    if (name.endsWith(QLatin1String(".lst")))
        return tab == TabMenu && number != separatorOfMenus ? DoubleClick::TakeMenu
                                                            : DoubleClick::Nothing;
    if (name.endsWith(QLatin1String(".txt")))
        return lists.objectOfTab(tab) >= 0 ? DoubleClick::ShowText : DoubleClick::Nothing;
    if (name.endsWith(QLatin1String(".jpg")))
        return onPicture(run, lists, tab, row.text());
    if (name.endsWith(QLatin1String(".fnt")))
        return run.GfxHasCfg || run.GfxHasZuk ? DoubleClick::ShowFont : DoubleClick::TellOldFonts;
    return DoubleClick::Nothing;
}

DoubleClick onPlainRow(const RunState& run, int tab, const ListRow& row, int number)
{
    if (tab >= FirstObjectTab)
        return isParameterRow(row) ? DoubleClick::EditValue : DoubleClick::Nothing;
    if (row.tag.isEmpty())
        return DoubleClick::Nothing; // comment lines, separators
    if (tab == TabMenu && number != separatorOfMenus)
        return DoubleClick::TakeMenu;
    return tab == TabConfig && !run.GfxHasZuk ? DoubleClick::EditValue : DoubleClick::Nothing;
}

QString deleteAllMask(const ParamLists& lists, int tab)
{
    if (tab == TabBackgrounds)
        return QStringLiteral("back_??.jpg");
    if (tab == TabFonts)
        return QStringLiteral("16x16_??.fnt");
    return isLogoTab(lists, tab) ? QStringLiteral("Logo_??.jpg") : QStringLiteral("??");
}

} // namespace

int selectableRow(const ListRows& list, int clicked, int cameFrom)
{
    const int count = list.count();
    const int step = clicked < cameFrom ? -1 : 1;
    int row = clicked;
    for (int tried = 0; tried < count; ++tried) {
        if (const ListRow* found = list.row(row); found && !isGrey(*found))
            return row;
        row += step;
        if (row < 1)
            row = count;
        else if (row > count)
            row = 1;
    }
    return 0;
}

ItemClick onItemClick(const RunState& run, const ParamLists& lists, int tab, int row,
                      bool rightButton)
{
    ItemClick click;
    click.select = row;
    const ListRow* clicked = rowAt(lists, tab, row);
    if (!clicked)
        return click;
    const bool generation3 = run.gfxboot_var == 3;
    click.showFont = generation3 && tab == TabFonts;
    if (generation3 && isGrey(*clicked)) {
        click.select = selectableRow(*lists.list(tab), row, lists.CurrentRow);
        click.skipped = true;
        return click;
    }
    click.buttons = buttonsOfRow(run, lists, tab, row);
    click.showPopup =
        rightButton && run.gfxboot_var >= 2 && !isGrey(*clicked) && isMember(*clicked);
    click.showCfgStatus = tab == TabConfig && !rightButton;
    return click;
}

DoubleClick onDoubleClick(const RunState& run, const ParamLists& lists, int tab, int row,
                          bool checkFromMenu)
{
    if (checkFromMenu)
        return DoubleClick::RefuseMenuLevel;
    const ListRow* clicked = rowAt(lists, tab, row);
    if (!clicked)
        return DoubleClick::Nothing;
    if (isGrey(*clicked) || clicked->colour == fixedRow)
        return run.gfxboot_var == 3 ? DoubleClick::SelectFirst : DoubleClick::Nothing;
    if (isMember(*clicked))
        return onMember(run, lists, tab, *clicked, row);
    return onPlainRow(run, tab, *clicked, row);
}

ListKey onListKey(int tab, int key)
{
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (tab == TabMenu)
        return enter ? ListKey::TakeMenu : ListKey::Nothing;
    if (tab != TabConfig && tab < FirstObjectTab)
        return ListKey::Nothing;
    if (enter)
        return ListKey::EditValue;
    return key == Qt::Key_2 ? ListKey::FlipCheck : ListKey::Nothing;
}

RowCheck onRowCheck(const RunState& run, const ParamLists& lists, int tab, int row)
{
    const ListRow* clicked = rowAt(lists, tab, row);
    if (!clicked)
        return RowCheck::Refuse;
    if (tab == TabMenu)
        return row == separatorOfMenus ? RowCheck::Refuse : RowCheck::TakeMenu;
    const bool fixed = clicked->colour == fixedRow || isGrey(*clicked);
    return tab == TabConfig && run.gfxboot_var == 2 && !fixed ? RowCheck::WriteCfg
                                                              : RowCheck::Refuse;
}

QRgb checkedColour(bool checked)
{
    return checked ? qRgb(0, 128, 0) : blueRow;
}

AddAction onComADD(const ParamLists& lists, int tab)
{
    if (tab == TabFonts)
        return AddAction::AddFont;
    if (tab == TabBackgrounds)
        return AddAction::AddBackground;
    return isLogoTab(lists, tab) ? AddAction::AddLogo : AddAction::TellPlanned;
}

EditAction onComEdit(const ParamLists& lists, int tab, const QString& name)
{
    if (tab == TabGfxboot && name.contains(QLatin1String(".jpg"), Qt::CaseInsensitive))
        return EditAction::TellSpecialTab;
    if (tab == TabBackgrounds)
        return EditAction::EditBackground;
    if (tab == TabFonts)
        return EditAction::EditFont;
    if (isLogoTab(lists, tab))
        return EditAction::EditLogo;
    const QString caption =
        lists.objectOfTab(tab) >= 0 ? lists.tabs[static_cast<std::size_t>(tab)].caption : QString();
    const bool planned =
        caption == QLatin1String("Glasses") || caption == QLatin1String("Animation");
    return planned ? EditAction::TellPlanned : EditAction::EditText;
}

DeleteAction onComDEL(const ParamLists& lists, int tab, int row, bool required)
{
    const ListRow* selected = rowAt(lists, tab, row);
    if (!selected || !isMember(*selected))
        return DeleteAction::Nothing;
    if (required)
        return DeleteAction::RefuseRequired;
    const bool handled = tab == TabBackgrounds || tab == TabFonts || isLogoTab(lists, tab);
    return handled ? DeleteAction::AskDelete : DeleteAction::TellPlanned;
}

std::vector<PopupEntry> rowPopup(int tab, const QString& name)
{
    if (tab == TabConfig)
        return {{0, name, true}};
    return {{0, name, false},
            {1, QStringLiteral("1 - ") + name, true},
            {popupEdit, QStringLiteral("Edit ") + name, true},
            {popupDelete, QStringLiteral("Delete ") + name, true}};
}

std::vector<PopupEntry> tabPopup(const RunState& run, const ParamLists& lists, int tab)
{
    if (run.gfxboot_var < 2 || !lists.list(tab))
        return {};
    const QString caption = lists.tabs[static_cast<std::size_t>(tab)].caption;
    const bool logo = isLogoTab(lists, tab);
    std::vector<PopupEntry> entries = {
        {0, caption + QStringLiteral(" Контекстное меню для вкладки"), true}};
    if ((tab >= FirstObjectTab && !logo) || tab == TabMenu)
        entries.push_back({popupFitColumns, QStringLiteral("Columns AutoWidth")});
    if (tab == TabBackgrounds) {
        entries.push_back({popupReorder, QStringLiteral("Reorder ITEMs")});
        entries.push_back({popupFitColumns, QStringLiteral("Columns AutoWidth")});
    }
    if (run.GfxHasZuk && tab != TabGfxboot && tab != TabConfig) {
        entries.push_back({popupDeleteAll, QStringLiteral("Delete all files")});
        entries.push_back({popupAdd, QStringLiteral("Add NEW file")});
        if (tab == TabBackgrounds)
            entries.push_back(
                {popupResizeBackgrounds, QStringLiteral("Resize all backgrounds...")});
        if (logo)
            entries.push_back({popupResizeLogos, QStringLiteral("Resize all LOGOs...")});
    }
    return entries;
}

QStringList deleteAllNames(const ParamLists& lists, int tab)
{
    const QString mask = deleteAllMask(lists, tab);
    QStringList names;
    for (int number = 101; number < 200; ++number)
        names.append(QString(mask).replace(QStringLiteral("??"), QString::number(number).right(2)));
    return names;
}

QString overlappedText()
{
    return QStringLiteral("You can not edit data, while they are overlap by\n"
                          "the \"MenuLevel data\"!\n\n"
                          "Uncheck \"MenuLevel data\" to edit ZUKxxxx.CFG data");
}

QString oldFontsText()
{
    return QStringLiteral("Too old version of the gfxboot.\nFonts are not supported");
}

QString plannedText()
{
    return QStringLiteral("ПЛАН...\nPlanned...");
}

QString plannedMenuText()
{
    return QStringLiteral("Запланировано...\nPlanned...\nMenu TEXT changing...");
}

QString plannedUpDownText(int value)
{
    return plannedText() + QStringLiteral("\nUpDown: %1").arg(value);
}

QString specialTabText()
{
    return QStringLiteral("Use a special tab for this item");
}

QString notTextFileText()
{
    return QStringLiteral("This file is not a text file");
}

QString askDeleteText(const QString& name)
{
    return QStringLiteral("Удалить файл %1?").arg(name);
}

} // namespace fennel
