// SPDX-License-Identifier: MIT
#include "editor/window/menus.h"

#include "base/text.h"
#include "base/words.h"

namespace fennel {

namespace {

QString nameOf(const MenuItem& item)
{
    return QLatin1String(item.name);
}

// A menu takes the state of its window along when that is disabled and enabled again, unless the
// menu itself, and not only its action, was told to be disabled.
void enable(QAction& action, bool enabled)
{
    if (QMenu* menu = action.menu())
        menu->setEnabled(enabled);
    action.setEnabled(enabled);
}

} // namespace

// The table has parents before their children, so each finds its menu.
Menus::Menus(QMenuBar& bar, const Commands& commands) : m_commands(commands)
{
    for (const MenuItem& item : menuTable())
        addItem(bar, item);
}

void Menus::addItem(QMenuBar& bar, const MenuItem& item)
{
    const QString name = nameOf(item);
    // A popup belongs to no menu; the bar owns it all the same, so it goes with the window.
    if (item.kind == MenuKind::Menu || item.kind == MenuKind::Popup) {
        auto* menu = new QMenu(Words::tr(item.caption), &bar);
        menu->setObjectName(name);
        menu->setToolTipsVisible(true);
        // With large letters on a low screen; a second column would be cut at the screen's edge.
        menu->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
        m_menus[name] = menu;
        m_actions[name] = menu->menuAction();
        QMenu* parent = this->menu(QLatin1String(item.parent));
        if (parent != nullptr && item.separatorBefore)
            parent->addSeparator();
        if (parent != nullptr)
            parent->addMenu(menu);
        else if (item.kind == MenuKind::Menu)
            bar.addMenu(menu);
        return;
    }
    QMenu* parent = this->menu(QLatin1String(item.parent));
    if (parent != nullptr)
        addAction(*parent, item);
}

void Menus::addAction(QMenu& parent, const MenuItem& item)
{
    if (item.separatorBefore)
        parent.addSeparator();
    const QString name = nameOf(item);
    auto* action = new QAction(Words::tr(item.caption), &parent);
    parent.addAction(action);
    // An invisible action marks where the entries of the array go, whatever stands around them.
    if (item.kind == MenuKind::Array) {
        action->setVisible(false);
        m_arrayEnds[name] = action;
        return;
    }
    action->setObjectName(name);
    action->setCheckable(item.kind == MenuKind::Check);
    action->setShortcuts(QKeySequence::listFromString(QLatin1String(item.shortcut)));
    // While another window of the program is in front its keys are its own.
    action->setShortcutContext(Qt::WindowShortcut);
    m_actions[name] = action;
    QObject::connect(action, &QAction::triggered, &parent, [this, name] { m_commands.run(name); });
}

void Menus::retranslate()
{
    for (const MenuItem& item : menuTable()) {
        if (QAction* found = action(nameOf(item)))
            found->setText(Words::tr(item.caption));
    }
}

QAction* Menus::action(const QString& name) const
{
    const auto found = m_actions.find(name);
    return found == m_actions.end() ? nullptr : found->second;
}

QMenu* Menus::menu(const QString& name) const
{
    const auto found = m_menus.find(name);
    return found == m_menus.end() ? nullptr : found->second;
}

void Menus::setEntries(const char* array, const std::vector<Entry>& entries)
{
    const QString name = QLatin1String(array);
    QAction* end = m_arrayEnds.at(name);
    auto* parent = qobject_cast<QMenu*>(end->parent());
    // Deleting an action takes it out of every menu and toolbar that shows it.
    qDeleteAll(m_entries[name]);
    m_entries[name].clear();
    for (const Entry& entry : entries) {
        auto* action = new QAction(entry.caption, parent);
        action->setObjectName(name + QLatin1Char('_') + QString::number(entry.index));
        action->setEnabled(entry.enabled && m_commands.has(name));
        action->setCheckable(entry.checked.has_value());
        action->setChecked(entry.checked.value_or(false));
        action->setToolTip(plainTip(entry.toolTip));
        // Queued: the command may rebuild the very menu that it was chosen from.
        QObject::connect(
            action, &QAction::triggered, parent,
            [this, name, index = entry.index] { m_commands.runEntry(name, index); },
            Qt::QueuedConnection);
        parent->insertAction(end, action);
        m_entries[name].push_back(action);
    }
}

const std::vector<QAction*>& Menus::entries(const char* array)
{
    return m_entries[QLatin1String(array)];
}

void Menus::checkEntry(const char* array, int index, bool checked)
{
    const QString name = QStringLiteral("%1_%2").arg(QLatin1String(array), QString::number(index));
    for (QAction* action : m_entries[QLatin1String(array)]) {
        if (action->objectName() == name)
            action->setChecked(checked);
    }
}

void Menus::update(const RunState& run, bool flashThere)
{
    for (const MenuItem& item : menuTable()) {
        const QString name = nameOf(item);
        QAction* found = action(name);
        if (found == nullptr || item.kind == MenuKind::Popup)
            continue;
        // Both must hold: the state of the run and that there is a command behind the item.
        bool enabled = holds(item.enabled, run, flashThere);
        // Kept from the last setEnabled(), as nothing in the run's state tells of it.
        if (item.enabled == Enabled::ByOthers)
            enabled = m_byOthers[name];
        if (item.kind == MenuKind::Heading)
            enabled = false;
        else if (item.kind != MenuKind::Menu)
            enabled = enabled && m_commands.has(name);
        enable(*found, enabled);
    }
    if (QAction* reopen = action(QStringLiteral("mnuFile_ReOpen"))) {
        // A file's name may hold "&", which marks a short cut in a menu.
        reopen->setText(reopenCaption(run).replace(QLatin1Char('&'), QStringLiteral("&&")));
        reopen->setToolTip(plainTip(reopenCaption(run)));
    }
}

void Menus::setEnabled(const char* name, bool enabled)
{
    const QString key = QLatin1String(name);
    m_byOthers[key] = enabled;
    const MenuItem* item = menuItem(key);
    if (QAction* found = action(key))
        enable(*found, enabled && (item->kind == MenuKind::Menu || m_commands.has(key)));
}

} // namespace fennel
