// SPDX-License-Identifier: MIT
// The parameters of gfxboot.cfg that the program knows: the text member in which a boot screen
// of generation 2 keeps its settings. Names, defaults and comments; how the file is read and
// written is params/cfg_file.h.
#pragma once

#include "base/words.h"

#include <QString>
#include <QStringView>

#include <array>

namespace fennel {

// Flag: 0 or 1. Colour: 0xRRGGBB.
enum class CfgKind { Flag, Number, Colour };

struct CfgParam {
    QStringView name;
    QStringView defaultValue;
    CfgKind kind;
    const char* comment; // as it is written into files; the lists show it by Words
};

inline constexpr const char* modeComment =
    Words::mark("The mode must be supported by VideoBIOS, otherwise, it just fallback to default");

// In the order in which the list offers what a file lacks. No name is a part of another.
inline constexpr auto cfgParams = std::to_array<CfgParam>({
    {u"boot_show", u"1", CfgKind::Flag,
     Words::mark("If set to 1, show the \"Boot Options\" panel")},
    {u"boot_text_normal", u"0xffffff", CfgKind::Colour,
     Words::mark("Color of \"Boot Options\" text")},
    {u"boot_text_options", u"0xffffff", CfgKind::Colour,
     Words::mark("Color of \"Boot Options\" label")},
    {u"custom_depth", u"16", CfgKind::Number, modeComment},
    {u"custom_height", u"600", CfgKind::Number, modeComment},
    {u"custom_width", u"800", CfgKind::Number, modeComment},
    {u"disable_num_key", u"0", CfgKind::Flag,
     Words::mark(
         "This message file has added keyboard shortcut function, for example, pressing '1' would "
         "choose the first menu item. If you don't want it, set this variable to 1")},
    {u"hide_help", u"0", CfgKind::Flag, Words::mark("If set to 1, hide the \"Help\" button (F1)")},
    {u"hide_lang", u"0", CfgKind::Flag,
     Words::mark("If set to 1, hide the \"Language\" button (F2)")},
    {u"hide_poweroff", u"0", CfgKind::Flag,
     Words::mark("If set to 1, hide the \"PowerOFF\" button (F10)")},
    {u"hide_reboot", u"0", CfgKind::Flag,
     Words::mark("If set to 1, hide the \"Reboot\" button (F9)")},
    {u"infobox_bg", u"0xd8deed", CfgKind::Colour, Words::mark("Background color of info box")},
    {u"infobox_text_normal", u"0x000000", CfgKind::Colour, Words::mark("Text color of info box")},
    {u"loading_color", u"0x295202", CfgKind::Colour, Words::mark("Color of load bar")},
    {u"menu_bar_color", u"0xffffff", CfgKind::Colour, Words::mark("Color of Menu bar")},
    {u"menu_bar_min_width", u"300", CfgKind::Number,
     Words::mark("The minimum width of Menu select bar")},
    {u"menu_max_entries", u"8", CfgKind::Number,
     Words::mark("Maximum number of Menu entry to display")},
    {u"menu_start_x", u"253", CfgKind::Number, Words::mark("Horisontal position of Menu")},
    {u"menu_start_y", u"170", CfgKind::Number, Words::mark("Vertical position of Menu")},
    {u"menu_text_normal", u"0xffffff", CfgKind::Colour, Words::mark("Normal text color")},
    {u"menu_text_select", u"0x000000", CfgKind::Colour, Words::mark("Color of selected text")},
    {u"panel_bg", u"0xd8deed", CfgKind::Colour,
     Words::mark("Background color of panel pop-up box")},
    {u"panel_border", u"0xeff2f6", CfgKind::Colour,
     Words::mark("Border color of panel pop-up box")},
    {u"panel_high", u"0xffe050", CfgKind::Colour, Words::mark("Color of panel hotkey (Fn)")},
    {u"panel_normal", u"0xffffff", CfgKind::Colour, Words::mark("Color of panel text")},
    {u"panel_title", u"0xffffff", CfgKind::Colour, Words::mark("Color of panel title")},
    {u"penguin", u"-1", CfgKind::Number,
     Words::mark("Penguin theme likelihood in percent; -1 = auto")},
    {u"title_bg", u"0x4f9805", CfgKind::Colour,
     Words::mark("Background color of dialog background")},
    {u"welcome", u"1", CfgKind::Flag, Words::mark("Welcome")},
    {u"xmenu_hide_current", u"0", CfgKind::Flag,
     Words::mark("If set to 1, hide the current selection item below the bottom menu")},
});

// What an engine calls the parameters that are seen and moved on the stage.
struct CfgDialect {
    QStringView left;
    QStringView top;
    QStringView entries;
    QStringView barWidth;
    QStringView bar;
    QStringView normal;
    QStringView selected;
};
// The first one counts for a file that names no place of the menu.
inline constexpr auto cfgDialects = std::to_array<CfgDialect>({
    {u"menu_start_x", u"menu_start_y", u"menu_max_entries", u"menu_bar_min_width",
     u"menu_bar_color", u"menu_text_normal", u"menu_text_select"},
});

// The default and the comment of a parameter. A name outside the table gets "0x000000" and a
// comment that says so.
QString CfgDefault(QStringView name);
// One line, without a "#".
QString CfgComment(QStringView name);

// The first name of the table that occurs anywhere in the text, case counting; empty if none does.
QString CfgKnownName(QStringView text);

// A value as the list shows it: "0x" and six upper-case digits for a text that begins with "0x",
// otherwise its decimal number as leadingNumberText() gives it. Blanks in front do not count. What
// cannot be read is 0; what stands behind the number (a comment, say) is dropped: "0xff # red"
// gives "0x0000FF", "12 13" gives "1213".
QString CfgNormalise(QStringView text);

} // namespace fennel
