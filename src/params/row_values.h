// SPDX-License-Identifier: MIT
// Values on their way between the rows of the object lists, the objects on the stage and the table
// of parameters: typed by the user, dragged with the mouse, imposed by a menu file.
#pragma once

#include "fonts/font_table.h"
#include "params/param_lists.h"

#include <QRectF>
#include <QStringView>

#include <vector>

namespace fennel {

// What the window has to show anew after a value changed.
struct RowChange {
    bool statesPainted = false; // rows changed their colours: their lists are to be repainted
    std::vector<int> objects; // rows of PanelArr that were recomputed and are to be drawn, in order
};

// A typed text as the row stores it: behind "0x" at its very start the last six characters, padded
// with zeros and in upper case; any other text as the decimal number that it begins with, of any
// size and with its fraction. Nothing is refused.
QString normaliseTyped(QStringView text);

// Acts on the value that now stands in a row: the object's switch recolours the rows, a parameter
// that feeds the object recomputes it. The menu and its bar share four parameters: the row of the
// other list gets the same value and its object is recomputed too, so that a save, which takes the
// last list that shows a parameter, keeps what was typed.
RowChange OnRowValueChanged(ParamLists& lists, const FontTable& fonts, int tab, int row);

// The whole way of a typed value in generation 3: normalised, stored in the row, acted upon,
// swatches renewed. Rows that are no parameters take no value.
RowChange setTypedValue(ParamLists& lists, const FontTable& fonts, int tab, int row,
                        QStringView typed);

// Recolours all rows and all their cells for a new value of the object's switch.
void PaintRowStates(ListRows& list, qint64 value);

// The swatches of all parameter rows of a list, from their value cells; none unless the object is
// Editable. Does nothing on the fixed tabs.
void refreshSwatches(ParamLists& lists, int tab);

// Writes a value into the row with that parameter number in the object's list, its swatch, and the
// row of every other list that shows the same parameter. False if no list has such a row.
bool SetRowValue(ParamLists& lists, int id, const QString& value, int object);

// The way back from the stage: `shown` is the place of the object in displayed pixels from the top
// left corner of the background, `scale` displayed pixels per boot-screen pixel. What a parameter
// sets goes into the PanelRec, rounded to whole boot-screen pixels, and into the rows, as do the
// colours and the transparency that the PanelRec has. The menu and its bar keep the same place and
// width.
void PanelParamsToRow(ParamLists& lists, int object, const QRectF& shown, double scale);

// Renews the cells with the values of the selected menu in all object lists, from LstValue.
void refreshLstColumn(ParamLists& lists);

} // namespace fennel
