// SPDX-License-Identifier: MIT
// Frame_for_List1: a list of text rows over the stage, with a heading and a button that closes it.
// It shows what a font file holds, a row for each character.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QListView>
#include <QStringListModel>
#include <QTimer>
#include <QToolButton>

namespace fennel {

class InspectionList : public QFrame {
    Q_OBJECT
public:
    // Hidden until ShowListPanel() gives it a heading.
    explicit InspectionList(QWidget* parent);

    // Replaces all rows; the panel itself stays as it is.
    void setRows(const QStringList& rows);
    // Shows the list under a heading and gives it the focus; an empty heading hides it. The caller
    // has placed it.
    void ShowListPanel(const QString& heading);
    [[nodiscard]] int currentRow() const { return m_list->currentIndex().row(); } // from 0, -1 none

Q_SIGNALS:
    void rowClicked(int row); // rows count from 0; also by Enter
    // -1 if no row is current.
    void rightClicked(int row);
    void middleClicked();
    void rowEntered(int row); // the mouse is over it

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool listKey(int key);
    void listReleased();
    void hideIfLeft();

    QStringListModel m_rows;
    // What follows a click or the loss of the focus waits until the event is done.
    QTimer m_click;
    QTimer m_leave;
    Qt::MouseButton m_button = Qt::NoButton;
    QLabel* m_heading;    // LabelForList1
    QToolButton* m_close; // CommandList1Close
    QListView* m_list;    // List1
};

} // namespace fennel
