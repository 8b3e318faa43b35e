// SPDX-License-Identifier: MIT
// Toolbar1: the buttons of the toolbar table.
#pragma once

#include "editor/commands/commands.h"
#include "editor/window/toolbar_table.h"

#include <QIcon>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <map>

namespace fennel {

class Toolbar : public QToolBar {
    Q_OBJECT
public:
    explicit Toolbar(QWidget* parent);

    // Creates the buttons. A button without a command stays disabled.
    void BuildToolbar(const Commands& commands);
    // Enabled state, picture and tool tip of every button.
    void UpdateToolbar(const RunState& run, const WindowFlags& flags);
    // The narrowest window: the widths of all buttons and 10.
    [[nodiscard]] int MinWindowWidth() const;
    // Overrides the state of one button until the next UpdateToolbar; the rows of the lists decide
    // over the edit buttons.
    void enableButton(ButtonId id, bool enabled);
    // A button whose tip and state a command sets.
    void showAction(ButtonId id, const QString& toolTip, bool enabled);
    // The drop-down list of the Current Flash button: the entries of the menu of the drives.
    void setDrives(const std::vector<QAction*>& entries);

Q_SIGNALS:
    // Any button was pressed; the number decides what runs.
    void commandChosen(int id);

private:
    const QIcon& picture(int number);

    const Commands* m_commands = nullptr;
    std::map<ButtonId, QToolButton*> m_buttons;
    std::map<int, QIcon> m_pictures; // by their numbers
    QMenu* m_drives = nullptr;
};

} // namespace fennel
