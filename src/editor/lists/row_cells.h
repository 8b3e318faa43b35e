// SPDX-License-Identifier: MIT
// How a row looks: its texts, tips, colours, check box and block of colour, made from what it
// stands for and what the document says of that.
#pragma once

#include "editor/lists/param_lists.h"

namespace fennel {

struct RowCell {
    QString text;
    QString toolTip;
    std::optional<QRgb> colour; // none: the row's colour
    bool bold = false;
};

struct RowLook {
    std::vector<RowCell> cells; // cell 0 is the item, the others follow the columns
    std::optional<QRgb> colour; // none: the palette's text colour
    bool bold = false;
    std::optional<bool> checked; // none: the row has no check box
    std::optional<QRgb> swatch;  // a solid block of colour as icon

    [[nodiscard]] QString text(std::size_t column = 0) const
    {
        return column < cells.size() ? cells[column].text : QString();
    }
};

// Whether a row can be used now.
enum class RowState {
    Usable,
    Off,   // grey: its object is switched off; passed over when one is selected
    Fixed, // tells something that cannot be changed
};
RowState rowState(const Document& document, const ListRows& list, const ListRow& row);

// `menuFile` is the menu in force, whose row is checked; empty: the one inside the gfxboot.
RowLook rowLook(const Document& document, const ListRows& list, const ListRow& row,
                const QString& menuFile);
// The value of the row as an editor begins with it; empty for rows without one.
QString valueText(const Document& document, const ListRow& row);
// What a message calls the row: its first text.
QString itemText(const Document& document, const ListRows& list, const ListRow& row);

// Colours of rows, as they are seen on screen.
inline constexpr QRgb greyRow = 0xffcccccc;
inline constexpr QRgb fixedRow = 0xff171615;    // near black: rows that cannot be edited
inline constexpr QRgb commentCell = 0xff271615; // the comment column
inline constexpr QRgb fileRow = 0xffb55300;
inline constexpr QRgb blueRow = 0xff0000ff;
inline constexpr QRgb blackRow = 0xff000000;
inline constexpr QRgb cfgActiveRow = 0xff008000; // green: in the file
inline constexpr QRgb cfgHiddenRow = 0xffff0080; // not in the file, but the engine knows it
inline constexpr QRgb cfgWrongCell = 0xffff0000; // comment cell of a name that is not known

} // namespace fennel
