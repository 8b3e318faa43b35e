// SPDX-License-Identifier: MIT
#include "editor/window/toolbar.h"

#include <QIcon>

namespace fennel {

namespace {

constexpr int iconPixels = 24;

QIcon picture(int number)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(number));
}

// Buttons that the window handles without a menu command.
QString ownCommand(int id)
{
    return QStringLiteral("Toolbar1_%1").arg(id);
}

} // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent)
{
    setObjectName(QStringLiteral("Toolbar1"));
    // The window reckons with the toolbar at its top.
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconPixels, iconPixels});
}

bool Toolbar::hasCommand(int id) const
{
    // A button without a command behind it is shown disabled.
    const QString menuCommand = toolbarCommandName(id);
    return m_commands->has(menuCommand.isEmpty() ? ownCommand(id) : menuCommand);
}

void Toolbar::BuildToolbar(const Commands& commands)
{
    m_commands = &commands;
    m_entries = toolbarEntries();
    for (const ToolbarEntry& entry : m_entries) {
        if (entry.style == ButtonStyle::Separator) {
            addSeparator();
            continue;
        }
        auto* button = new QToolButton(this);
        // By number, like the pictures: tests and the window find buttons so.
        button->setObjectName(ownCommand(entry.id));
        button->setIcon(picture(entry.id));
        button->setToolTip(entry.toolTip);
        button->setAutoRaise(true);
        if (entry.style == ButtonStyle::DropDown) {
            m_drives = new QMenu(button);
            button->setMenu(m_drives);
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
        connect(button, &QToolButton::clicked, this,
                [this, id = entry.id] { Q_EMIT commandChosen(id); });
        m_buttons[entry.id] = button;
        addWidget(button);
    }
}

void Toolbar::UpdateToolbar(const RunState& run, const WindowFlags& flags)
{
    for (const ToolbarEntry& entry : m_entries) {
        if (entry.style == ButtonStyle::Separator)
            continue;
        const ButtonState state = buttonState(entry, run, flags);
        QToolButton* button = m_buttons[entry.id];
        button->setEnabled(state.enabled && hasCommand(entry.id));
        button->setIcon(picture(state.image));
        button->setToolTip(state.toolTip);
    }
}

int Toolbar::MinWindowWidth() const
{
    // Some air for the frame of the window's style.
    return sizeHint().width() + 10;
}

void Toolbar::enableButton(int id, bool enabled)
{
    if (const auto found = m_buttons.find(id); found != m_buttons.end())
        found->second->setEnabled(enabled && hasCommand(id));
}

void Toolbar::setDrives(const std::vector<QAction*>& entries)
{
    // The entries are the menu's own and belong to it; here they are only shown.
    m_drives->clear();
    for (QAction* entry : entries)
        m_drives->addAction(entry);
}

} // namespace fennel
