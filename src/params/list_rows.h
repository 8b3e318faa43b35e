// SPDX-License-Identifier: MIT
// The rows of a list as data: what a list of the workbench shows, without a widget. Every list, the
// five fixed ones and one per boot-screen object, is filled into this and shown from it.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace fennel {

struct RowCell {
    QString text;
    QString toolTip;
    QString tag;
    std::optional<QRgb> colour; // none: the row's colour
    bool bold = false;
};

struct ListRow {
    std::vector<RowCell> cells; // cell 0 is the item, the others follow the columns
    QString tag;                // what the row is, such as "|File: back.jpg|"
    std::optional<QRgb> colour; // none: the palette's text colour
    bool bold = false;
    std::optional<bool> checked; // none: the row has no check box
    std::optional<QRgb> swatch;  // a solid block of colour as icon
    QString iconFile;            // full path of a picture shown small as icon; empty for none

    [[nodiscard]] QString text(std::size_t column = 0) const
    {
        return column < cells.size() ? cells[column].text : QString();
    }
};

// Rows are counted from 1 in everything that users and other parts speak of (0 means none); the
// vector itself counts from 0.
struct ListRows {
    QStringList columns;
    std::vector<ListRow> rows;
    int selected = 0;      // from 1; 0 none
    bool iconView = false; // large icons instead of a report

    [[nodiscard]] ListRow* row(int number)
    {
        return number >= 1 && number <= static_cast<int>(rows.size())
                   ? &rows[static_cast<std::size_t>(number - 1)]
                   : nullptr;
    }
    [[nodiscard]] const ListRow* row(int number) const
    {
        return const_cast<ListRows*>(this)->row(number);
    }
    [[nodiscard]] int count() const { return static_cast<int>(rows.size()); }
};

// Splits a text such as "File|Length|" into its columns: every piece up to the last "|".
QStringList columnsFrom(const QString& text);

// The mark of a row that stands for a member file, and the way back (empty if the tag has none).
QString fileTag(const QString& name);
// Empty for a tag without a file.
QString fileOfTag(const QString& tag);

// Colours of rows, as they are seen on screen.
inline constexpr QRgb greyRow = 0xffcccccc;     // the object is off; not selectable
inline constexpr QRgb fixedRow = 0xff171615;    // near black: rows that cannot be edited
inline constexpr QRgb commentCell = 0xff271615; // the comment column
inline constexpr QRgb fileRow = 0xffb55300;
inline constexpr QRgb blueRow = 0xff0000ff;
inline constexpr QRgb blackRow = 0xff000000;

} // namespace fennel
