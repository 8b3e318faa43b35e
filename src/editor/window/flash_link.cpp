// SPDX-License-Identifier: MIT
#include "editor/window/flash_link.h"

#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "editor/window/status_bar.h"
#include "editor/window/window_progress.h"

#include <QProcess>

namespace fennel {

FlashLink::FlashLink(MainWindow& window)
    : m_window(window), m_source(FolderDriveSource::fromEnvironment()),
      m_drives(window.shell(), m_source, *this), m_qemu(window.shell(), m_source, *this),
      m_bios(biosStates(window.shell().run))
{
    QObject::connect(&m_watch, &MountWatch::changed, &window,
                     [this] { whenIdle([this] { m_drives.mountsChanged(); }); });
}

MenuDrive FlashLink::menuDrive() const
{
    const int letter = m_window.shell().run.CurrentFlashChar;
    if (letter <= noFlash)
        return {};
    return {QString(QChar(static_cast<char16_t>(letter))), m_drives.folderOf(letter)};
}

void FlashLink::HookDeviceChange(bool on)
{
    const bool watching = on && m_watch.start();
    if (!on)
        m_watch.stop();
    m_drives.MonitorOn = watching;
    m_window.workbench().flags.MonitorOn = watching;
    m_window.menus().action(QStringLiteral("mnuFlash_Monitor"))->setChecked(watching);
    m_window.UpdateToolbar();
}

void FlashLink::startQemu()
{
    const Shell& shell = m_window.shell();
    if (shell.run.CurrentFlashChar == noFlash)
        shell.prompts.ShowMessage(
            Words::tr("Select the \"Current Flash Device\" from Flash-menu to start QEMU"),
            MessageType::Ok, QStringLiteral("QEMU"));
    else
        m_qemu.RunQemu(qemuMode(m_bios));
}

void FlashLink::chooseBios(VideoBios bios)
{
    fennel::chooseBios(m_window.shell(), bios, m_bios);
    showBios();
}

void FlashLink::showBios()
{
    for (const VideoBios bios : {VideoBios::Standart, VideoBios::Cirrus, VideoBios::Memory16}) {
        const BiosState& state = m_bios[static_cast<std::size_t>(bios)];
        const char* item = biosMenuItem(bios);
        m_window.menus().setEnabled(item, state.enabled);
        m_window.menus().action(QLatin1String(item))->setChecked(state.checked);
    }
}

void FlashLink::driveProgress(int percent, const QString& panel1)
{
    m_window.statusFields().setStep(percent);
    m_window.setStatusField(1, panel1);
}

void FlashLink::driveProgressEnds()
{
    m_window.setStatusField(1, QStringLiteral(" "));
}

void FlashLink::flashChanged()
{
    std::vector<Menus::Entry> entries;
    const std::vector<FlashEntry>& drives = m_drives.flashEntries();
    for (std::size_t i = 0; i < drives.size(); ++i)
        entries.push_back({static_cast<int>(i),
                           QString(drives[i].caption).replace(u'&', QStringLiteral("&&")), true,
                           drives[i].checked, drives[i].toolTip});
    m_window.menus().setEntries("mnuFlash_FlashArr", entries);
    m_window.menus().update(m_window.shell().run, flashThere());
    m_window.UpdateToolbar();
    m_window.setStatus();
}

void FlashLink::closeQemu()
{
    m_qemu.closeQemu();
}

void FlashLink::enableQemuStart(bool enabled)
{
    m_window.menus().setEnabled("mnuT_Qemu_Start", enabled);
}

void FlashLink::showFlashMenus(const FlashMenus& menus)
{
    m_menuEntries = menus.entries;
    std::vector<Menus::Entry> entries;
    for (qsizetype i = 0; i < menus.entries.size(); ++i)
        entries.push_back({static_cast<int>(i),
                           QString(menus.entries[i]).replace(u'&', QStringLiteral("&&")),
                           menus.anyFile, std::nullopt, menus.entries[i]});
    m_window.menus().setEntries("mnuMenu_fromFlash", entries);
    const QString select = QStringLiteral("mnuMenu_select");
    m_window.menus().action(select)->setText(
        menus.selectCaption.isEmpty() ? Words::tr(menuItem(select)->caption) : menus.selectCaption);
    m_window.menus().setEnabled("mnuMenu_select", !menus.entries.isEmpty());
}

void FlashLink::clearMenuFile()
{
    m_window.workbench().params.CurrentMenuFile.clear();
}

void FlashLink::refillMenuList()
{
    if (!m_window.shell().run.GfxOpened)
        return;
    refillList(m_window, TabMenu);
    // The menu of the drive before: nobody asked for a file of that name on this one.
    QString& file = m_window.workbench().params.CurrentMenuFile;
    if (menuRow(*m_window.workbench().params.list(TabMenu), file) == 0)
        file.clear();
    MenuApply(m_window);
    markMenuRow(m_window);
    if (m_window.workbench().params.CurrentTab == TabMenu)
        selectRow(m_window, TabMenu, 1);
}

void FlashLink::chooseEmbeddedMenu()
{
    takeEmbeddedMenu(m_window);
}

QString FlashLink::flashImagePath() const
{
    const ImageDrive* image = m_drives.flashImage();
    return image == nullptr ? QString() : image->path;
}

bool FlashLink::askFlashDisk()
{
    return m_drives.askFlashDisk();
}

void FlashLink::whenIdle(const std::function<void()>& action)
{
    m_window.progress().whenIdle(action);
}

void FlashLink::bringToFront(qint64 pid)
{
    // The bridge that was started has no window; the machine's window belongs to its child.
    const QString bridge = QString::number(pid);
    const QByteArray children =
        FolderDriveSource().read(QStringLiteral("/proc/%1/task/%1/children").arg(bridge));
    QStringList processes =
        QString::fromLatin1(children).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    processes.prepend(bridge);
    // Only X11 lets one program raise the window of another, and only through a tool of its own.
    // "--all" with a name that any window has keeps it from taking the command for a name.
    for (const QString& process : processes)
        QProcess::startDetached(QStringLiteral("xdotool"),
                                {QStringLiteral("search"), QStringLiteral("--all"),
                                 QStringLiteral("--onlyvisible"), QStringLiteral("--pid"),
                                 process.trimmed(), QStringLiteral("--name"), QStringLiteral("."),
                                 QStringLiteral("windowactivate")});
}

} // namespace fennel
