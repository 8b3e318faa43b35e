// SPDX-License-Identifier: MIT
#include "editor/window/toolbar.h"

#include "base/text.h"
#include "base/words.h"

#include <QIcon>

namespace fennel {

namespace {

constexpr int iconPixels = 24;

// The picture says nothing to a screen reader.
void sayPlain(QToolButton& button, const QString& text)
{
    button.setToolTip(plainTip(text));
    button.setAccessibleName(text);
}

} // namespace

// Each is read once, whatever the button has shown since.
const QIcon& Toolbar::picture(int number)
{
    QIcon& icon = m_pictures[number];
    if (icon.isNull())
        icon = QIcon(QStringLiteral(":/icons/%1.svg").arg(number));
    return icon;
}

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent)
{
    setObjectName(QStringLiteral("Toolbar1"));
    // The window reckons with the toolbar at its top.
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconPixels, iconPixels});
}

void Toolbar::BuildToolbar(const Commands& commands)
{
    m_commands = &commands;
    for (const ToolbarButton& row : toolbarTable()) {
        if (row.id == NoButton) {
            addSeparator();
            continue;
        }
        auto* button = new QToolButton(this);
        // By number, like the pictures: tests and the window find buttons so.
        button->setObjectName(QStringLiteral("Toolbar1_%1").arg(row.id));
        button->setIcon(picture(row.id));
        sayPlain(*button, Words::tr(row.toolTip));
        button->setAutoRaise(true);
        if (row.dropDown) {
            m_drives = new QMenu(button);
            button->setMenu(m_drives);
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
        connect(button, &QToolButton::clicked, this,
                [this, id = row.id] { Q_EMIT commandChosen(id); });
        m_buttons[row.id] = button;
        addWidget(button);
    }
}

void Toolbar::UpdateToolbar(const RunState& run, const WindowFlags& flags)
{
    for (const auto& [id, button] : m_buttons) {
        const ToolbarButton& row = *toolbarButton(id);
        if (row.enabled == Enabled::ByOthers) {
            // Undo and redo say what they would do; see showAction().
            if (id != UndoButton && id != RedoButton)
                sayPlain(*button, Words::tr(row.toolTip));
            continue;
        }
        const ButtonLook look = lookOf(row, run, flags);
        enableButton(row.id, holds(row.enabled, run, true));
        button->setIcon(picture(look.image));
        sayPlain(*button, look.toolTip);
    }
}

int Toolbar::MinWindowWidth() const
{
    // Some air for the frame of the window's style.
    return sizeHint().width() + 10;
}

void Toolbar::enableButton(ButtonId id, bool enabled)
{
    // A button without a command behind it is shown disabled.
    const ToolbarButton* row = toolbarButton(id);
    m_buttons.at(id)->setEnabled(enabled && m_commands->has(QLatin1String(row->command)));
}

void Toolbar::showAction(ButtonId id, const QString& toolTip, bool enabled)
{
    sayPlain(*m_buttons.at(id), toolTip);
    enableButton(id, enabled);
}

void Toolbar::setDrives(const std::vector<QAction*>& entries)
{
    // The entries are the menu's own and belong to it; here they are only shown.
    m_drives->clear();
    for (QAction* entry : entries)
        m_drives->addAction(entry);
    // A menu with nothing in it would never come up, and its button stay down.
    if (entries.empty())
        m_drives->addAction(Words::tr("No USB drives"))->setEnabled(false);
}

} // namespace fennel
