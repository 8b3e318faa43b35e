// SPDX-License-Identifier: MIT
#include "params/object_rows.h"

#include "base/shell_context.h"
#include "base/text.h"
#include "params/level_files.h"
#include "params/swatch.h"

#include <algorithm>
#include <cstdlib>

namespace fennel {

namespace {

struct ParamId {
    QString text;   // as written in the id list, without "x"
    int number = 0; // 0 for an empty element
    bool hex = false;
};

std::vector<ParamId> idsOf(const QString& ids)
{
    std::vector<ParamId> list;
    for (const QString& element : ids.split(QLatin1Char('|'))) {
        ParamId id;
        id.text = QString(element).remove(QLatin1Char('x'));
        id.number = static_cast<int>(numberFromText(id.text));
        id.hex = element.contains(QLatin1Char('x'));
        list.push_back(id);
    }
    return list;
}

// What sets place, colour or font of the object on the stage, so that a change shows at once.
bool feedsPanel(const PanelRec& panel, int id)
{
    const qint32 sources[] = {panel.OnParam,    panel.TopParam,    panel.LeftParam,
                              panel.WidthParam, panel.HeightParam, panel.BackParam,
                              panel.TextParam,  panel.TranspParam, panel.FontParam};
    if (std::find(std::begin(sources), std::end(sources), id) != std::end(sources))
        return true;
    const QStringList more = panel.Ids2.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    return std::any_of(more.begin(), more.end(),
                       [id](const QString& text) { return numberFromText(text) == id; });
}

QString rowTag(const PanelRec& panel, const ParamId& id)
{
    QString tag = id.text;
    if (feedsPanel(panel, id.number))
        tag += ownMark;
    if (panel.OnParam == id.number)
        tag += onOffMark;
    if (id.hex)
        tag += hexMark;
    return tag;
}

// The enable value of an object as its level file has it.
qint64 enabledInFile(const ZUKarr& table, const PanelRec& panel)
{
    // A constant instead of a parameter: such an object cannot be switched.
    if (panel.OnParam <= 0)
        return std::abs(panel.OnParam);
    return table.at(levelFileOf(panel), panel.OnParam).LevelValue;
}

RowCell cell(const QString& text, const QString& toolTip, const QString& tag,
             std::optional<QRgb> colour, bool bold)
{
    return {text, toolTip, tag, colour, bold};
}

ListRow parameterRow(const PanelRec& panel, const ZukCell& zuk, const ParamId& id, qint64 value,
                     qint64 enabled)
{
    ListRow row;
    row.tag = rowTag(panel, id);
    row.colour = stateColour(row.tag, enabled);
    row.bold = row.tag.contains(onOffMark);
    const QString cellTag = id.hex ? id.text + QLatin1Char('x') : id.text;
    // The tip is the name without the two characters in front, such as "s.".
    row.cells = {
        cell(QStringLiteral(":%1:=").arg(id.text), zuk.Name.mid(2), row.tag, row.colour, row.bold),
        cell(cfgCellText(value, id.hex), QStringLiteral("ZUKxxxx.CFG Level value"), cellTag,
             row.colour, row.bold),
        cell(lstCellText(zuk.LstValue, id.hex), QStringLiteral("MenuLevel value"), cellTag,
             row.colour, row.bold),
        cell(zuk.Comment, QStringLiteral("Russian comment"), {}, commentCell, false)};
    // Objects that cannot be edited show their colours as numbers only.
    if (panel.Editable)
        row.swatch = swatchOf(row.text(LevelColumn));
    return row;
}

ListRow plainRow(const QStringList& texts, std::optional<QRgb> colour, bool bold)
{
    ListRow row;
    row.colour = colour;
    row.bold = bold;
    for (const QString& text : texts)
        row.cells.push_back(cell(text, {}, {}, colour, bold));
    return row;
}

ListRow separatorRow()
{
    const QString line = QStringLiteral("_____");
    return plainRow({line, line, line, QStringLiteral("________________________")}, greyRow, false);
}

ListRow memberRow(const QString& folder, const QString& name, bool picture)
{
    const QString size = QString::number(fileSize(folder + name));
    ListRow row = plainRow({name, size}, fileRow, false);
    row.tag = fileTag(name);
    row.cells[1].toolTip = QStringLiteral("Size: %1 byte").arg(size);
    if (picture && name.endsWith(QLatin1String(".jpg"), Qt::CaseInsensitive))
        row.iconFile = folder + name;
    return row;
}

// Under the parameters, one block for each kind of member that belongs to the object.
void addMembers(const Shell& shell, const PanelRec& panel, ListRows& list)
{
    const QString folder = withSeparator(shell.run.Workspace);
    for (const QString& mask : panel.Component.split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
        list.rows.push_back(separatorRow());
        list.rows.push_back(
            plainRow({QStringLiteral("FileName"), QStringLiteral("Size")}, {}, true));
        for (const QString& name : numberedFiles(folder, mask))
            list.rows.push_back(memberRow(folder, name, panel.Editable));
    }
}

void askForUpgrade(const Shell& shell, ParamLists& lists, const FillOptions& options)
{
    const Answer answer = shell.prompts.ShowMessage(
        QStringLiteral("WARNING!\n\n"
                       "  Gfxboot kernel version of the \"%1\" is obsolete!\n"
                       "  FENNEL-GFX (GUI) can upgrade file \"init\" to the current version.\n\n"
                       "  To do this?")
            .arg(shell.run.GfxFileName),
        MessageType::YesNo, QStringLiteral("Upgrade"));
    // Asked once for each gfxboot: the answer holds for all its objects.
    lists.UpgradeChoice = answer == Answer::Yes ? 1 : -1;
    if (lists.UpgradeChoice == 1 && options.updateEngine)
        options.updateEngine();
}

// The value that a row starts with; below 0 there is no row.
qint64 startValue(const Shell& shell, ParamLists& lists, const FillOptions& options,
                  const ZukCell& zuk)
{
    if (zuk.LevelValue != -1)
        return zuk.LevelValue;
    if (lists.UpgradeChoice == 0)
        askForUpgrade(shell, lists, options);
    if (lists.UpgradeChoice != 1)
        return -1;
    // The update may have brought the record along. A parameter that the catalogue does not know
    // has no default and gets no row: saving it would put an unknown record into the file.
    return zuk.LevelValue != -1 ? zuk.LevelValue : zuk.DefValue.value_or(-1);
}

void addParameters(const Shell& shell, ParamLists& lists, const PanelRec& panel,
                   const FillOptions& options, ListRows& list)
{
    const int file = levelFileOf(panel);
    const qint64 enabled = enabledInFile(lists.ZUKarr, panel);
    for (const ParamId& id : idsOf(panel.Ids)) {
        if (!ZUKarr::inRange(file, id.number))
            break; // the empty element of the sparkles
        ZukCell& zuk = lists.ZUKarr.at(file, id.number);
        const qint64 value = startValue(shell, lists, options, zuk);
        // An engine too old for the parameter, and no upgrade wanted.
        if (value < 0)
            continue;
        list.rows.push_back(parameterRow(panel, zuk, id, value, enabled));
        // Noted so that a change on the stage finds the row without a search.
        zuk.TabPos = static_cast<qint16>(panel.TabIndex);
        zuk.RowPos = static_cast<qint16>(list.count());
    }
}

ListRow upgradeNotice()
{
    return plainRow({QStringLiteral("Need to upgrade"), QStringLiteral("gfxboot kernel")}, fixedRow,
                    true);
}

// A parameter that was listed before keeps its value: the level file does not know what was typed.
void keepValues(const ListRows& before, ListRows& list)
{
    for (ListRow& row : list.rows) {
        const auto old =
            std::find_if(before.rows.begin(), before.rows.end(), [&row](const ListRow& candidate) {
                return isParameterRow(row) && candidate.tag == row.tag && isParameterRow(candidate);
            });
        if (old != before.rows.end())
            row = *old;
    }
}

} // namespace

// ":22:=" is the id cell of a value; member rows and headings never look so.
bool isParameterRow(const ListRow& row)
{
    const QString item = row.text();
    return item.startsWith(QLatin1Char(':')) && item.endsWith(QLatin1String(":="));
}

QString cfgCellText(qint64 value, bool hex)
{
    return hex ? hexText(value) : QString::number(value);
}

QString lstCellText(std::optional<qint64> value, bool hex)
{
    if (!value)
        return {};
    if (!hex)
        return QString::number(*value);
    // Without leading zeros, unlike the six digits of the level column.
    return QStringLiteral("0x") +
           QString::number(*value < 0 ? static_cast<quint32>(*value) : *value, 16).toUpper();
}

// The switch itself is never grey, or nobody could switch the object on again.
QRgb stateColour(const QString& tag, qint64 enabled)
{
    if (tag.contains(onOffMark))
        return blueRow;
    if (tag.contains(ownMark))
        return enabled > 0 ? blueRow : greyRow;
    return enabled != 0 ? blackRow : greyRow;
}

ListRows objectList(const Shell& shell, ParamLists& lists, int object, const FillOptions& options)
{
    ListRows list;
    const PanelRec* panel = lists.object(object);
    if (!panel || panel->Ids.isEmpty())
        return list;
    shell.WriteLog(QStringLiteral("     %1%2_in_ListView")
                       .arg(panel->Name, QString::number(panel->TabIndex).rightJustified(3)));
    list.columns = QStringLiteral(":ID:|CFG data|LST data|Comment").split(QLatin1Char('|'));
    addParameters(shell, lists, *panel, options, list);
    addMembers(shell, *panel, list);
    // An empty list would look like a fault.
    if (list.rows.empty())
        list.rows.push_back(upgradeNotice());
    list.selected = 1;
    return list;
}

void FillObjectList(const Shell& shell, ParamLists& lists, int object, const FillOptions& options)
{
    const PanelRec* panel = lists.object(object);
    if (!panel || lists.objectOfTab(panel->TabIndex) != object)
        return;
    ListRows list = objectList(shell, lists, object, options);
    ListRows& shown = *lists.list(panel->TabIndex);
    if (!options.opening)
        keepValues(shown, list);
    const int remembered = options.opening ? 1 : std::max(1, shown.selected);
    list.selected = std::min(remembered, list.count());
    if (panel->TabIndex == lists.CurrentTab)
        lists.CurrentRow = list.selected;
    shown = std::move(list);
}

} // namespace fennel
