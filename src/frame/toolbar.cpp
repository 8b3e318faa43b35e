// SPDX-License-Identifier: MIT
#include "frame/toolbar.h"

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
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconPixels, iconPixels});
}

bool Toolbar::hasCommand(int id) const
{
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
    return sizeHint().width() + 10;
}

void Toolbar::enableButton(int id, bool enabled)
{
    if (const auto found = m_buttons.find(id); found != m_buttons.end())
        found->second->setEnabled(enabled && hasCommand(id));
}

void Toolbar::setDrives(const std::vector<QAction*>& entries)
{
    m_drives->clear();
    for (QAction* entry : entries)
        m_drives->addAction(entry);
}

} // namespace fennel
