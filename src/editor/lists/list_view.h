// SPDX-License-Identifier: MIT
// ListView1: one list of the workbench, as a report or as large icons. It shows rows and passes on
// what the user does to them; what that means is decided elsewhere.
#pragma once

#include "editor/lists/list_model.h"

#include <QListView>
#include <QStackedWidget>
#include <QTreeView>

#include <vector>

namespace fennel {

class ListView : public QStackedWidget {
    Q_OBJECT
public:
    // `number` from 1, as its tab; it names the widget.
    ListView(const ParamLists& lists, int number, QWidget* parent);

    // Shows the rows from scratch and selects rows.selected. Null empties the list.
    void setRows(const ListRows* rows);
    // Cells changed, rows did not. A column grows for a cell that became wider than all before.
    void refresh();
    // Rows are counted from 1; 0 selects none. Scrolls the row into view without rowSelected().
    void select(int row);
    // From 1; 0 if no row is selected.
    [[nodiscard]] int selected() const;
    // "Columns AutoWidth": each column as wide as its widest text. setRows() keeps all columns but
    // the last from growing very wide.
    void fitColumns();
    // "Reorder ITEMs": lays large icons out anew.
    void reorderItems();
    // Where the seen part of a cell stands, in this widget's coordinates; empty if it is scrolled
    // away. Icons have only one.
    [[nodiscard]] QRect cellRect(int row, int column) const;
    // A column that the user does not want takes no room; it keeps its number.
    void hideColumn(int column, bool hidden);

Q_SIGNALS:
    // By the user only; again for a click on the row that is selected already.
    void rowSelected(int row, bool rightButton);
    void rowActivated(int row); // double click
    // Asked for, not done: the rows change only if the listener changes them.
    void rowChecked(int row, bool checked);
    // Qt::Key_Return (for either Enter), Qt::Key_2 or Qt::Key_Escape; other keys are the list's
    // own.
    void keyPressed(int key);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What the columns wait for until the list is seen.
    enum class Due { Nothing, Growth, Fit };

    void connectView(QAbstractItemView& view);
    void measureDue();
    void growColumns();
    [[nodiscard]] QAbstractItemView* current() const;
    // Each column but the last gets at most so many logical pixels.
    void fitWithin(int widest);
    [[nodiscard]] std::vector<int> contentWidths() const;

    ListModel m_model;
    QTreeView* m_report;
    QListView* m_icons;
    Due m_due = Due::Nothing;
    std::vector<int> m_fitted; // content of each column when it was fitted last
    bool m_silent = false;
    bool m_rightButton = false;
    bool m_moved = false; // select() answered the latest rowSelected()
};

} // namespace fennel
