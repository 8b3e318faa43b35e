// SPDX-License-Identifier: MIT
// The menu that a right click on an object of the stage opens.
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "editor/colour/colour_link.h"
#include "editor/commands/handlers.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// The numbers of the entries.
enum ObjectEntry { NameEntry, TabEntry, PictureEntry, FillEntry, TextColourEntry, SwitchEntry };

struct EntryRow {
    ObjectEntry entry;
    const char* caption; // see Words
    bool changes;        // not while a menu's values lie over the object's
};
constexpr std::array<EntryRow, 5> entryRows = {{
    {TabEntry, Words::mark("Open its tab"), false},
    {PictureEntry, Words::mark("Bring its picture..."), false},
    {FillEntry, Words::mark("Colour..."), true},
    {TextColourEntry, Words::mark("Colour of the text..."), true},
    {SwitchEntry, Words::mark("Switch on"), true},
}};
QString switchOffCaption()
{
    return Words::tr("Switch off");
}

// The picture that the object shows, of those that belong to it.
QString pictureOf(MainWindow& window, int object)
{
    const PanelRec* rec = window.document().object(object);
    const QString& folder = window.shell().run.Workspace;
    if (object == LogoPanelRow)
        return numberedFiles(folder, logoPattern).value(window.stageLink().stage().LogoIndex);
    for (const QString& mask : rec->Component.split(u'|', Qt::SkipEmptyParts)) {
        if (!mask.endsWith(u".jpg", Qt::CaseInsensitive))
            continue;
        if (const QStringList names = numberedFiles(folder, mask); !names.isEmpty())
            return names.front();
    }
    return {};
}

bool offered(MainWindow& window, int object, const PanelRec& rec, ObjectEntry entry)
{
    const bool own = window.shell().run.gfxboot_var == 3;
    const int file = levelFileOf(rec);
    switch (entry) {
    case TabEntry:
        return own && window.workbench().params.TabIndex(object) > 0;
    case PictureEntry:
        return own && !pictureOf(window, object).isEmpty();
    case FillEntry:
        return own && ZUKarr::inRange(file, rec.BackParam);
    case TextColourEntry:
        return own && ZUKarr::inRange(file, rec.TextParam);
    case SwitchEntry:
        return own && ZUKarr::inRange(file, rec.OnParam);
    case NameEntry:
        break;
    }
    return true;
}

void flipSwitch(MainWindow& window, int object, const PanelRec& rec)
{
    const bool on = switchValue(window.document().state(), rec) > 0;
    const ParamKey key{levelFileOf(rec), rec.OnParam};
    Change change;
    change.params[key] = ParamValue{on ? 0 : 1, false, {}};
    const QString what = on ? Words::tr("switching off of %1") : Words::tr("switching on of %1");
    StepInfo info{what.arg(objectCaption(rec.Name)), {}, {}};
    info.place.object = object;
    info.place.param = key;
    (void)window.document().apply(change, info);
}

void runEntry(MainWindow& window, int entry)
{
    Stage& stage = window.stageLink().stage();
    const int object = stage.SelectedPanel;
    const PanelRec* rec = window.document().object(object);
    if (rec == nullptr || !CommitValue(window))
        return;
    switch (entry) {
    case TabEntry:
        activateTab(window, window.workbench().params.TabIndex(object));
        break;
    case PictureEntry:
        if (object == LogoPanelRow)
            changeLogo(window, pictureOf(window, object));
        else
            changePicture(window, pictureOf(window, object));
        break;
    case FillEntry:
        window.colourLink().askFill();
        break;
    case TextColourEntry:
        window.colourLink().askText();
        break;
    case SwitchEntry:
        flipSwitch(window, object, *rec);
        break;
    default:
        break;
    }
}

} // namespace

bool fillObjectMenu(MainWindow& window, int object)
{
    const PanelRec* rec = window.document().object(object);
    if (rec == nullptr)
        return false;
    // A click on a roll selects nothing, but its menu is about it.
    window.stageLink().stage().SelectPanel(object);
    std::vector<Menus::Entry> entries;
    entries.push_back({NameEntry, objectCaption(rec->Name), false, std::nullopt, {}});
    const bool locked = window.document().menuLevelShown();
    for (const EntryRow& row : entryRows) {
        if (!offered(window, object, *rec, row.entry))
            continue;
        const bool off =
            row.entry == SwitchEntry && switchValue(window.document().state(), *rec) > 0;
        entries.push_back({row.entry,
                           off ? switchOffCaption() : Words::tr(row.caption),
                           !(row.changes && locked),
                           std::nullopt,
                           {}});
    }
    window.menus().setEntries("ObjectPopup", entries);
    return entries.size() > 1;
}

void addObjectCommands(MainWindow& window)
{
    window.commands().addArray("ObjectPopup", [&window](int entry) { runEntry(window, entry); });
}

} // namespace fennel
