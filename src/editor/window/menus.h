// SPDX-License-Identifier: MIT
// The menu bar and the pop-up menus of the window, built from the menu table.
#pragma once

#include "editor/commands/commands.h"
#include "editor/window/menu_table.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <map>

namespace fennel {

class Menus {
public:
    // Builds every menu of the table; those of the bar into `bar`. Both arguments outlive this.
    Menus(QMenuBar& bar, const Commands& commands);

    // The action of an item or of a menu by its name; null if there is none.
    [[nodiscard]] QAction* action(const QString& name) const;
    [[nodiscard]] QMenu* menu(const QString& name) const;

    struct Entry {
        int index = 0; // what the command of the array is told
        QString caption;
        bool enabled = true;
        std::optional<bool> checked;
        QString toolTip;
    };
    // Replaces the entries of an array. An entry's objectName is the array's name, "_" and the
    // index.
    void setEntries(const char* array, const std::vector<Entry>& entries);

    // The entries as they stand; they live until the next setEntries().
    [[nodiscard]] const std::vector<QAction*>& entries(const char* array);

    // All captions of the table in the language of the run.
    void retranslate();

    void checkEntry(const char* array, int index, bool checked);

    // Sets what can be chosen: the rule of the table holds and there is a command behind it. A menu
    // can be opened if its rule holds. Items that others decide (Enabled::ByOthers) keep their
    // state as long as there is a command.
    void update(const RunState& run, bool flashThere);

    // For items whose state a command sets.
    void setEnabled(const char* name, bool enabled);

private:
    void addItem(QMenuBar& bar, const MenuItem& item);
    void addAction(QMenu& parent, const MenuItem& item);

    const Commands& m_commands;
    std::map<QString, QMenu*> m_menus;
    std::map<QString, QAction*> m_actions;
    std::map<QString, QAction*> m_arrayEnds; // hidden actions behind which nothing is inserted
    std::map<QString, std::vector<QAction*>> m_entries;
    std::map<QString, bool> m_byOthers;
};

} // namespace fennel
