// SPDX-License-Identifier: MIT
// What there is to a tab of the workbench, as a table: how its rows are made, what they follow, and
// what buttons, keys and menus do there. A new view of the gfxboot is a line of it, and a function
// that makes the rows (object_rows.h).
#pragma once

#include "params/list_rows.h"

#include <QStringView>

namespace fennel {

class Document;
struct Shell;

// Tabs are counted from 1. The fixed ones are there before anything is open; those of objects
// follow.
enum FixedTab { TabMenu = 1, TabGfxboot, TabConfig, TabBackgrounds, TabFonts, FirstObjectTab };

// What makes the rows of a fixed tab anew.
enum class Follows { Nothing, Members, Config, Values };

enum class ListKey { Nothing, TakeMenu, EditValue, FlipCheck, Open };
enum class AddAction { AddFont, AddBackground, AddLogo, TellPlanned };
enum class EditAction { TellSpecialTab, EditText, EditBackground, EditFont, EditLogo, TellPlanned };

struct TabKind {
    const char* caption = nullptr; // of a fixed tab, in English
    // `object`: row of PanelArr, -1 on a fixed tab. Null where the rows come from elsewhere: from
    // the drive, or from the search for fonts.
    ListRows (*rows)(const Shell&, const Document&, int object) = nullptr;
    Follows follows = Follows::Nothing;
    // Which pictures the strip under the stage shows: masks separated by "|".
    QStringView thumbnails = u"head*.jpg";
    // Members beside the first of their kind; "Delete all files" removes them.
    QStringView numbered = u"??";
    QStringView guide = u"objects.md"; // the page that tells of it, in docs/guide/LANGUAGE
    ListKey enter = ListKey::Nothing;
    // Files of a tab that adds none are not deleted one by one either.
    AddAction add = AddAction::TellPlanned;
    EditAction edit = EditAction::EditText;
    // The menu of the tab.
    bool reorder = false;
    bool fitColumns = false;
    bool files = false; // in generation 3: "Delete all files", "Add NEW file"
    int resize = 0;     // the entry that resizes all of them (popupResize...), 0 none
};

// Of a fixed tab, or of the tab of an object: `tab` from 1, `object` -1 on fixed ones.
const TabKind& tabKind(int tab, int object);

// Entries of the array ListView1Popup.
inline constexpr int popupEdit = 2;
inline constexpr int popupDelete = 3;
inline constexpr int popupReorder = 101;
inline constexpr int popupFitColumns = 102;
inline constexpr int popupDeleteAll = 112;
inline constexpr int popupAdd = 113;
inline constexpr int popupResizeBackgrounds = 115;
inline constexpr int popupResizeLogos = 116;

} // namespace fennel
