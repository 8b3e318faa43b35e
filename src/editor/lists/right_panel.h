// SPDX-License-Identifier: MIT
// Frame1Vkladki: the tabs at the right of the preview, a list under each, the buttons for files,
// and the box that a value is typed into. It shows ParamLists and passes on what the user does.
#pragma once

#include "editor/lists/list_view.h"
#include "editor/lists/param_lists.h"
#include "editor/lists/tab_strip.h"
#include "editor/lists/value_editor.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QSpinBox>
#include <QToolButton>

namespace fennel {

class RightPanel : public QGroupBox {
    Q_OBJECT
public:
    // The lists outlive the panel.
    RightPanel(ParamLists& lists, QWidget* parent);

    // The tabs of the lists may have changed: makes a tab and a view for each and fills all views.
    void rebuild();
    // The rows of one list were filled anew, or (refreshList) only their cells changed.
    void fillList(int tab);
    void refreshList(int tab);
    // Shows a tab without tabClicked(); the lists' CurrentTab follows.
    void selectTab(int tab);
    // Of a tab from 1; null beyond the tabs that rebuild() has made.
    [[nodiscard]] ListView* view(int tab) const;
    // The column of the parameters' names, in every list that has one.
    void showNames(bool shown);

    // The buttons that work on the selected file row.
    [[nodiscard]] QToolButton& editButton() { return *m_edit; }     // ComEdit
    [[nodiscard]] QToolButton& deleteButton() { return *m_delete; } // ComDEL
    [[nodiscard]] QToolButton& addButton() { return *m_add; }       // ComADD
    [[nodiscard]] QSpinBox& rowSpin() { return *m_rowSpin; }        // UpDown3
    [[nodiscard]] QSpinBox& widthSpin() { return *m_widthSpin; }    // UpDown1
    [[nodiscard]] QCheckBox& fromMenu() { return *m_fromMenu; }     // CheckFromMenu
    [[nodiscard]] ValueEditor& editor() { return *m_editor; }
    // Opens the value editor over the value of the selected row. `host` is the widget that the
    // editor floats on.
    void openEditor(QWidget& host, const QString& caption, const QString& text);
    // The same for a text member: the editor grows over `stage`, a part of `host`.
    void openTextEditor(QWidget& host, const QString& caption, const QString& text,
                        const QRect& stage);

Q_SIGNALS:
    void tabClicked(int tab);
    // Tabs and rows from 1, places on the screen. All of these come from the user's doing only.
    void tabMenuAsked(int tab, QPoint globalPlace);
    void rowSelected(int tab, int row, bool rightButton);
    void rowActivated(int tab, int row);
    void rowChecked(int tab, int row, bool checked);
    void keyPressed(int tab, int key);

private:
    void buildButtons();
    QToolButton* fileButton(const char* name, const QString& caption, const char* toolTip);
    void addView(int number);
    QRect editorCell(QWidget& host, const ListView& list);

    ParamLists& m_lists;
    TabStrip* m_tabs;
    TabRoom* m_tabRoom;
    QStackedWidget* m_stack;
    std::vector<ListView*> m_views; // of tab 1 and on
    QToolButton* m_edit = nullptr;
    QToolButton* m_delete = nullptr;
    QToolButton* m_add = nullptr;
    QSpinBox* m_rowSpin = nullptr;
    QSpinBox* m_widthSpin = nullptr;
    QCheckBox* m_fromMenu = nullptr;
    ValueEditor* m_editor = nullptr;
    bool m_namesShown = true;
};

} // namespace fennel
