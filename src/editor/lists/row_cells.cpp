// SPDX-License-Identifier: MIT
#include "editor/lists/row_cells.h"

#include "base/text.h"
#include "base/words.h"
#include "params/panel_values.h"
#include "params/swatch.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Hexadecimal without leading zeros, unlike the six digits of the level column.
QString menuValueText(std::optional<qint64> value, bool hex)
{
    if (!value)
        return {};
    if (!hex)
        return QString::number(*value);
    return u"0x"_s +
           QString::number(*value < 0 ? static_cast<quint32>(*value) : *value, 16).toUpper();
}

qint64 enabledValue(const Document& document, const ListRows& list, const ListRow& row)
{
    const PanelRec* panel = document.object(row.object);
    return list.switched ? *list.switched : panel ? switchValue(document.state(), *panel) : 1;
}

// What feeds a shown object needs it to be on; the switch itself can always be used, or nobody
// could switch the object on again. A file without the switch gives -1, which stops only what feeds
// it.
bool parameterUsable(const ListRow& row, qint64 enabled)
{
    return row.onOff || (row.own ? enabled > 0 : enabled != 0);
}

// Set at a change of the switch, which recolours every row of its list with all cells.
std::optional<QRgb> colourOf(const Document& document, const ListRows& list, const ListRow& row)
{
    const RowState state = rowState(document, list, row);
    if (state == RowState::Off)
        return greyRow;
    if (row.kind == RowKind::Parameter)
        return row.onOff || row.own ? blueRow : blackRow;
    if (list.switched)
        return blackRow;
    if (state == RowState::Fixed)
        return fixedRow;
    return row.kind == RowKind::Member && list.object >= 0 ? fileRow : row.colour;
}

RowCell cell(const QString& text, const QString& tip, std::optional<QRgb> colour, bool bold)
{
    return {text, tip, colour, bold};
}

RowLook parameterLook(const Document& document, const ListRows& list, const ListRow& row)
{
    const ZukCell& zuk = document.state().ZUKarr.at(row.file, row.number);
    const QString item = u":%1:="_s.arg(row.number, 2, 10, QChar(u'0'));
    const QString value = valueText(document, row);
    RowLook look;
    look.bold = row.onOff;
    look.colour = colourOf(document, list, row);
    const std::optional<QRgb> comment = list.switched ? look.colour : commentCell;
    // The name without the two characters in front, such as "s.".
    const QString name = zuk.Name.mid(2);
    look.cells = {cell(item, name, look.colour, row.onOff),
                  cell(name, zuk.Comment, look.colour, row.onOff),
                  cell(value, Words::tr("ZUKxxxx.CFG Level value"), look.colour, row.onOff),
                  cell(menuValueText(zuk.LstValue, row.hex), Words::tr("MenuLevel value"),
                       look.colour, row.onOff),
                  cell(zuk.Comment, Words::tr("Russian comment"), comment, false)};
    // Objects that cannot be edited show their colours as numbers only.
    const PanelRec* panel = document.object(row.object);
    if (panel != nullptr && panel->Editable)
        look.swatch = swatchOf(value);
    return look;
}

// In words what the colours and the check mark say.
QString stateWord(const CfgLine& line)
{
    if (line.kind == CfgKindOfLine::Wrong)
        return Words::tr("unknown");
    if (line.kind == CfgKindOfLine::Text)
        return {};
    return line.on ? Words::tr("on") : Words::tr("off");
}

RowLook cfgLook(const CfgLine& line)
{
    RowLook look;
    look.checked = line.on;
    look.cells = {cell(line.name, Words::tr(line.tip.toUtf8().constData()), {}, false),
                  cell(line.valued ? line.value.text() : QString(), {}, {}, false),
                  cell(stateWord(line), {}, {}, false),
                  cell(Words::tr(line.comment.toUtf8().constData()),
                       Words::tr(line.tip.toUtf8().constData()), {}, false)};
    switch (line.kind) {
    case CfgKindOfLine::Known:
        look.colour = line.on ? cfgActiveRow : blueRow;
        break;
    case CfgKindOfLine::Hidden:
        look.colour = line.on ? cfgActiveRow : cfgHiddenRow;
        break;
    case CfgKindOfLine::Wrong:
        look.colour = fixedRow;
        look.cells[CfgCommentColumn].colour = cfgWrongCell;
        break;
    case CfgKindOfLine::Text:
        look.colour = fixedRow;
        look.cells[CfgCommentColumn].colour = blueRow;
        break;
    case CfgKindOfLine::Separator:
        look.colour = cfgHiddenRow;
        look.cells = {cell(Words::tr("# Additional list ->"), {}, {}, false),
                      cell(Words::tr("of HIDDEN ->"), {}, {}, false), cell({}, {}, {}, false),
                      cell(Words::tr("parameters"), {}, {}, false)};
        break;
    }
    return look;
}

RowLook memberLook(const Document& document, const ListRows& list, const ListRow& row)
{
    RowLook look;
    look.colour = colourOf(document, list, row);
    const QString size = QString::number(row.size);
    const QString tip = Words::tr("Size: %1 byte").arg(size);
    look.cells = {cell(row.name, list.iconView ? tip : QString(), look.colour, false),
                  cell(size, list.object >= 0 ? tip : QString(), look.colour, false)};
    // The lists of objects have the names of parameters between.
    if (list.object >= 0)
        look.cells.insert(look.cells.begin() + NameColumn, RowCell());
    return look;
}

RowLook menuLook(const ListRow& row, const QString& menuFile)
{
    constexpr QRgb dataMenuRow = qRgb(136, 0, 136); // a menu with bracket titles
    RowLook look;
    const bool embedded = row.kind == RowKind::Menu && row.name.isEmpty();
    for (const QString& text : row.texts)
        look.cells.push_back(cell(text, {}, {}, false));
    if (row.kind == RowKind::Menu)
        look.checked = row.name == menuFile;
    if (embedded) {
        look.bold = true;
        look.colour = blueRow;
        for (const std::size_t i : {0U, 1U}) {
            look.cells[i].bold = true;
            look.cells[i].colour = blueRow;
        }
    } else if (row.own) {
        look.colour = dataMenuRow;
    }
    if (look.cells.size() > 1 && !embedded) {
        look.cells[0].toolTip = row.tip;
        look.cells[1].toolTip = row.folder;
    }
    return look;
}

RowLook plainLook(const Document& document, const ListRows& list, const ListRow& row)
{
    RowLook look;
    look.colour = colourOf(document, list, row);
    look.bold = row.kind == RowKind::Heading || row.kind == RowKind::Font ||
                (row.kind == RowKind::Notice && list.object >= 0);
    for (const QString& text : row.texts)
        look.cells.push_back(cell(text, {}, look.colour, look.bold));
    return look;
}

} // namespace

RowState rowState(const Document& document, const ListRows& list, const ListRow& row)
{
    const auto usable = [](bool yes) { return yes ? RowState::Usable : RowState::Off; };
    if (row.kind == RowKind::Parameter)
        return usable(parameterUsable(row, enabledValue(document, list, row)));
    if (list.switched)
        return usable(*list.switched != 0);
    switch (row.kind) {
    case RowKind::CfgLine:
        switch (document.state().cfg.value(row.number).kind) {
        case CfgKindOfLine::Wrong:
        case CfgKindOfLine::Text:
            return RowState::Fixed;
        default:
            return RowState::Usable;
        }
    case RowKind::FontFact:
        return row.colour ? RowState::Usable : RowState::Fixed;
    case RowKind::Separator:
        return RowState::Off;
    case RowKind::Notice:
        return RowState::Fixed;
    default:
        return RowState::Usable;
    }
}

RowLook rowLook(const Document& document, const ListRows& list, const ListRow& row,
                const QString& menuFile)
{
    switch (row.kind) {
    case RowKind::Parameter:
        return parameterLook(document, list, row);
    case RowKind::CfgLine:
        return cfgLook(document.state().cfg.value(row.number));
    case RowKind::Member:
        return memberLook(document, list, row);
    case RowKind::Menu:
    case RowKind::MenuLine:
        return menuLook(row, menuFile);
    default:
        return plainLook(document, list, row);
    }
}

QString valueText(const Document& document, const ListRow& row)
{
    if (row.kind == RowKind::CfgLine) {
        const CfgLine line = document.state().cfg.value(row.number);
        return line.valued ? line.value.text() : QString();
    }
    if (row.kind != RowKind::Parameter)
        return {};
    const auto& value = document.state().ZUKarr.at(row.file, row.number).Value;
    return value ? value->text() : QString();
}

QString itemText(const Document& document, const ListRows& list, const ListRow& row)
{
    return rowLook(document, list, row, {}).text();
}

} // namespace fennel
