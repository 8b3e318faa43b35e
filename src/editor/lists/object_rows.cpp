// SPDX-License-Identifier: MIT
#include "editor/lists/object_rows.h"

#include "base/text.h"
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "editor/lists/tab_kinds.h"
#include "editor/lists/tabs.h"
#include "params/level_files.h"
#include "params/panel_values.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

ListRow memberRow(const QString& folder, const QString& name, bool picture)
{
    ListRow row;
    row.kind = RowKind::Member;
    row.name = name;
    row.size = fileSize(folder + name);
    if (picture)
        row.iconFile = folder + name;
    return row;
}

// The tabs of objects follow the fixed ones in the order of PanelArr.
int tabNumber(const Document& document, int object)
{
    const PanelArr& panels = document.state().PanelArr;
    return FirstObjectTab +
           static_cast<int>(std::count_if(panels.begin(), panels.begin() + object,
                                          [](const PanelRec& panel) { return panel.Enabled; }));
}

ListRow saying(RowKind kind, const QStringList& texts)
{
    ListRow row;
    row.kind = kind;
    row.texts = texts;
    return row;
}

void addParameters(const Document& document, int object, ListRows& list)
{
    const PanelRec& panel = *document.object(object);
    const int file = levelFileOf(panel);
    for (const PanelParam& id : panel.Ids) {
        if (!ZUKarr::inRange(file, id.number) || !document.state().ZUKarr.at(file, id.number).Value)
            continue;
        ListRow row;
        row.kind = RowKind::Parameter;
        row.object = object;
        row.file = file;
        row.number = id.number;
        row.hex = id.hex;
        row.own = feedsPanel(panel, id.number);
        row.onOff = panel.OnParam == id.number;
        list.rows.push_back(row);
    }
}

// Under the parameters, one block for each kind of member that belongs to the object.
void addMembers(const Shell& shell, const PanelRec& panel, ListRows& list)
{
    const QString folder = withSeparator(shell.run.Workspace);
    for (const QString& mask : panel.Component.split(u'|', Qt::SkipEmptyParts)) {
        list.rows.push_back(
            saying(RowKind::Separator, {u"_____"_s, u"_____"_s, u"_____"_s, u"_____"_s,
                                        u"________________________"_s}));
        list.rows.push_back(
            saying(RowKind::Heading, {Words::tr("FileName"), {}, Words::tr("Size")}));
        for (const QString& name : numberedFiles(folder, mask)) {
            const bool picture = name.endsWith(u".jpg", Qt::CaseInsensitive);
            list.rows.push_back(memberRow(folder, name, panel.Editable && picture));
        }
    }
}

} // namespace

ListRows objectList(const Shell& shell, const Document& document, int object)
{
    ListRows list;
    const PanelRec* panel = document.object(object);
    if (panel == nullptr || panel->Ids.empty())
        return list;
    shell.WriteLog(u"     %1%2_in_ListView"_s.arg(
        panel->Name, QString::number(tabNumber(document, object)).rightJustified(3)));
    list.columns = {u":ID:"_s, Words::tr("Name"), Words::tr("CFG data"), Words::tr("LST data"),
                    Words::tr("Comment")};
    list.object = object;
    addParameters(document, object, list);
    addMembers(shell, *panel, list);
    // An empty list would look like a fault.
    if (list.rows.empty())
        list.rows.push_back(saying(
            RowKind::Notice, {Words::tr("Need to upgrade"), {}, Words::tr("gfxboot kernel")}));
    list.selected = 1;
    return list;
}

ListRows memberList(const Shell& shell, const Document&, int)
{
    shell.WriteLog(u"     2_GFXBOOT_in_ListView"_s);
    ListRows list;
    list.columns = {Words::tr("File"), Words::tr("Length")};
    const QString& folder = shell.run.Workspace;
    const Result<QByteArray> names = readBytes(folder + memberListName);
    if (!names)
        return list;
    for (const MemberName& name : memberNames(*names)) {
        ListRow row;
        row.kind = RowKind::Member;
        row.name = name.text;
        row.size = std::max<qint64>(memberSize(folder, name.bytes), 0);
        if (memberKind(name.text) == MemberKind::Picture)
            row.iconFile = folder + name.text;
        list.rows.push_back(row);
    }
    return list;
}

ListRows backgroundList(const Shell& shell, const Document&, int)
{
    shell.WriteLog(u"     4_Backgrounds_in_ListView"_s);
    ListRows list;
    list.columns = {Words::tr("File Name"), Words::tr("File Size")};
    list.iconView = true;
    for (const QString& name :
         thumbnailNames(shell.run.Workspace, tabKind(TabBackgrounds, -1).thumbnails.toString()))
        list.rows.push_back(memberRow(shell.run.Workspace, name, true));
    return list;
}

ListRows configList(const Shell& shell, const Document& document, int)
{
    shell.WriteLog(u"     3_Config_in_ListView"_s);
    ListRows list;
    list.columns = {Words::tr("Parameter"), Words::tr("Value"), Words::tr("State"),
                    Words::tr("Comment from the \"gfxboot.cfg\"")};
    if (!shell.run.GfxHasCfg && document.state().cfg.isEmpty())
        list.rows.push_back(saying(RowKind::Notice, {Words::tr("File \"gfxboot.cfg\" is absent")}));
    for (int line = 0; line < document.state().cfg.size(); ++line) {
        ListRow row;
        row.kind = RowKind::CfgLine;
        row.number = line;
        // Lines move when hidden ones have become lines of the file; a name stays.
        row.name = document.state().cfg[line].name;
        list.rows.push_back(row);
    }
    return list;
}

} // namespace fennel
