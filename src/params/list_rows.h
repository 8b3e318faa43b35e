// SPDX-License-Identifier: MIT
// The rows of a list as data: what each row stands for. How a row looks, its texts and colours, is
// made from it where it is shown (editor/lists/row_cells.h).
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace fennel {

enum class RowKind {
    Parameter, // of a level file: `file`, `number`
    CfgLine,   // of gfxboot.cfg: `number` counts its lines from 0
    Member,    // a file of the gfxboot: `name`
    Font,      // the first row of a font, which stands for its file, too: `name`, `number`
    FontFact,  // a further row of a font: `number` is its record
    Menu,      // a menu file of the drive: `name`; empty: the menu inside the gfxboot
    MenuLine,  // parts that menu from the files
    Separator, // parts blocks of rows; never selected
    Heading,   // over a block of members
    Notice,    // tells something and stands for nothing
};

struct ListRow {
    RowKind kind = RowKind::Notice;
    int object = -1; // of a parameter: the row of PanelArr that it is listed for
    int file = 0;
    int number = 0;
    QString name;
    qint64 size = 0;  // of a member, bytes
    bool hex = false; // a parameter shown in hexadecimal
    bool own = false; // a parameter that places or colours its object; a menu that sets parameters
    bool onOff = false;         // a parameter that switches its object on and off
    QStringList texts;          // of rows whose words are no parameter's, a cell each
    QString tip;                // of the row, what else there is to know
    std::optional<QRgb> colour; // of rows that come in colours of their own; none: as its kind is
    QString folder;             // of a menu file
    QString iconFile;           // full path of a picture shown small as icon; empty for none

    // Stands for the same thing: its place in the list may differ.
    [[nodiscard]] bool sameAs(const ListRow& other) const
    {
        return kind == other.kind && file == other.file && number == other.number &&
               name == other.name;
    }
    // The file that commands work on; empty for rows that are none.
    [[nodiscard]] QString member() const
    {
        return kind == RowKind::Member || kind == RowKind::Font ? name : QString();
    }
};

// Rows are counted from 1 in everything that users and other parts speak of (0 means none); the
// vector itself counts from 0.
struct ListRows {
    QStringList columns;
    std::vector<ListRow> rows;
    int selected = 0;      // from 1; 0 none
    bool iconView = false; // large icons instead of a report
    int object = -1;       // row of PanelArr whose list it is, -1 none
    // The value that the object's switch was set to last; none: as it was when the list was made.
    std::optional<qint64> switched;

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
    // The number of the row that stands for the same, 0 without one.
    [[nodiscard]] int find(const ListRow& wanted) const;
    // The number of the row of a member.
    [[nodiscard]] int findMember(const QString& name) const;
};

} // namespace fennel
