// SPDX-License-Identifier: MIT
#include "params/row_values.h"

#include "base/text.h"
#include "params/level_files.h"
#include "params/object_rows.h"
#include "params/object_table.h"
#include "params/panel_values.h"
#include "params/swatch.h"

namespace fennel {

namespace {

// The row number of a parameter in a list, 0 if it is not shown there.
int rowOfParam(const ListRows& list, int id)
{
    for (int number = 1; number <= list.count(); ++number) {
        const ListRow& row = *list.row(number);
        if (isParameterRow(row) && numberFromText(row.tag) == id)
            return number;
    }
    return 0;
}

void storeCell(ListRow& row, const QString& value, bool withSwatch)
{
    row.cells[LevelColumn].text = value;
    if (withSwatch)
        row.swatch = swatchOf(value);
}

struct RowPlace {
    int tab = 0;
    int row = 0;
};

// Every row that shows the parameter, in the order of the tabs.
// One parameter may be shown by several objects of the same level file; all rows must agree.
std::vector<RowPlace> placesOf(const ParamLists& lists, int file, int id)
{
    std::vector<RowPlace> places;
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab) {
        const PanelRec* panel = lists.object(lists.objectOfTab(tab));
        if (!panel || levelFileOf(*panel) != file)
            continue;
        if (const int row = rowOfParam(*lists.list(tab), id); row > 0)
            places.push_back({tab, row});
    }
    return places;
}

void actOnRow(ParamLists& lists, const FontTable& fonts, const RowPlace& place, RowChange& change)
{
    ListRows& list = *lists.list(place.tab);
    const ListRow& row = *list.row(place.row);
    const int object = lists.objectOfTab(place.tab);
    // What the cell shows is what counts, as it is the text that will be written.
    const qint64 value = numberFromText(row.text(LevelColumn));
    if (row.tag.contains(onOffMark)) {
        PaintRowStates(list, value);
        change.statesPainted = true;
    }
    if (row.tag.contains(ownMark) && RecalcPanelFromList(lists, fonts, place.tab, object))
        change.objects.push_back(object);
}

// One length of an object that a parameter sets.
void writeLength(ParamLists& lists, int object, qint16 PanelRec::*field, qint16 PanelRec::*source,
                 double shown)
{
    PanelRec& panel = *lists.object(object);
    // A constant length has no row to be written to, and the drag does not change it.
    if (panel.*source <= 0)
        return;
    panel.*field = clampToI16(roundToEven(shown));
    SetRowValue(lists, panel.*source, QString::number(panel.*field), object);
}

void writeColour(ParamLists& lists, int object, QRgb colour, qint32 source)
{
    if (source > 0)
        SetRowValue(lists, source, hexText(static_cast<qint64>(colour & 0xFFFFFFU)), object);
}

void alignMenuAndBar(ParamLists& lists, int object)
{
    const PanelRec& moved = *lists.object(object);
    PanelRec* other = lists.object(object == MenuPanelRow ? MenuBarRow : MenuPanelRow);
    if (!other)
        return;
    // The bar lies over a line of the menu: they share everything but the height.
    other->Left = moved.Left;
    other->Top = moved.Top;
    other->Width = moved.Width;
}

} // namespace

QString normaliseTyped(QStringView text)
{
    if (!text.startsWith(u"0x", Qt::CaseInsensitive))
        return leadingNumberText(text);
    // Letters that are no digits stay as they were typed; they end the number when it is read. A
    // line end that was pasted along would break the line of a file.
    QString digits = QStringLiteral("000000") + text.mid(2).toString().toUpper();
    digits.remove(u'\n').remove(u'\r').remove(u'\t');
    return QStringLiteral("0x") + digits.right(6);
}

// The row itself first, then the rows of other tabs that show the same parameter.
RowChange OnRowValueChanged(ParamLists& lists, const FontTable& fonts, int tab, int row)
{
    RowChange change;
    const PanelRec* panel = lists.object(lists.objectOfTab(tab));
    const ListRow* changed = panel ? lists.list(tab)->row(row) : nullptr;
    if (!changed || !isParameterRow(*changed))
        return change;
    actOnRow(lists, fonts, {tab, row}, change);
    const int id = static_cast<int>(numberFromText(changed->tag));
    for (const RowPlace& place : placesOf(lists, levelFileOf(*panel), id)) {
        if (place.tab == tab)
            continue;
        const bool withSwatch = lists.object(lists.objectOfTab(place.tab))->Editable;
        storeCell(*lists.list(place.tab)->row(place.row), changed->text(LevelColumn), withSwatch);
        actOnRow(lists, fonts, place, change);
    }
    return change;
}

RowChange setTypedValue(ParamLists& lists, const FontTable& fonts, int tab, int row,
                        QStringView typed)
{
    ListRow* changed = lists.objectOfTab(tab) < 0 ? nullptr : lists.list(tab)->row(row);
    if (!changed || !isParameterRow(*changed))
        return {};
    // The swatch follows below with those of the whole tab.
    storeCell(*changed, normaliseTyped(typed), false);
    RowChange change = OnRowValueChanged(lists, fonts, tab, row);
    refreshSwatches(lists, tab);
    return change;
}

// The cells' own colours go too, or the row would be painted in patches.
void PaintRowStates(ListRows& list, qint64 value)
{
    for (ListRow& row : list.rows) {
        row.colour = stateColour(row.tag, value);
        for (RowCell& cell : row.cells)
            cell.colour = row.colour;
    }
}

void refreshSwatches(ParamLists& lists, int tab)
{
    const PanelRec* panel = lists.object(lists.objectOfTab(tab));
    if (!panel || !panel->Editable)
        return;
    for (ListRow& row : lists.list(tab)->rows) {
        if (isParameterRow(row))
            row.swatch = swatchOf(row.text(LevelColumn));
    }
}

bool SetRowValue(ParamLists& lists, int id, const QString& value, int object)
{
    const PanelRec* panel = lists.object(object);
    if (!panel)
        return false;
    const std::vector<RowPlace> places = placesOf(lists, levelFileOf(*panel), id);
    for (const RowPlace& place : places) {
        const bool withSwatch = lists.object(lists.objectOfTab(place.tab))->Editable;
        storeCell(*lists.list(place.tab)->row(place.row), value, withSwatch);
    }
    return !places.empty();
}

void PanelParamsToRow(ParamLists& lists, int object, const QRectF& shown, double scale)
{
    const PanelRec* panel = lists.object(object);
    // A stage without a size has no scale yet.
    if (!panel || scale <= 0)
        return;
    // From displayed pixels to those of the boot screen.
    writeLength(lists, object, &PanelRec::Top, &PanelRec::TopParam, shown.top() / scale);
    writeLength(lists, object, &PanelRec::Left, &PanelRec::LeftParam, shown.left() / scale);
    writeLength(lists, object, &PanelRec::Width, &PanelRec::WidthParam, shown.width() / scale);
    writeLength(lists, object, &PanelRec::Height, &PanelRec::HeightParam, shown.height() / scale);
    writeColour(lists, object, panel->BackColor, panel->BackParam);
    writeColour(lists, object, panel->TextColor, panel->TextParam);
    if (panel->TranspParam > 0)
        SetRowValue(lists, panel->TranspParam, QString::number(panel->Transp), object);
    if (object == MenuPanelRow || object == MenuBarRow)
        alignMenuAndBar(lists, object);
}

void refreshLstColumn(ParamLists& lists)
{
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab) {
        const PanelRec* panel = lists.object(lists.objectOfTab(tab));
        if (!panel)
            continue;
        for (ListRow& row : lists.list(tab)->rows) {
            const int id = static_cast<int>(numberFromText(row.tag));
            if (!isParameterRow(row) || !ZUKarr::inRange(levelFileOf(*panel), id))
                continue;
            const ZukCell& zuk = lists.ZUKarr.at(levelFileOf(*panel), id);
            row.cells[LstColumn].text = lstCellText(zuk.LstValue, row.tag.contains(hexMark));
        }
    }
}

} // namespace fennel
