// SPDX-License-Identifier: MIT
// Joins drives and boot test to the window: the Flash menu, the menus of a drive, QEMU.
#pragma once

#include "menus/menu_list.h"
#include "tools/drive_source.h"
#include "tools/drives.h"
#include "tools/flash_qemu.h"
#include "tools/mount_watch.h"
#include "tools/video_bios.h"

namespace fennel {

class MainWindow;

class FlashLink : public FlashHost, public QemuHost {
public:
    // The window outlives the link.
    explicit FlashLink(MainWindow& window);

    [[nodiscard]] Drives& drives() { return m_drives; }
    [[nodiscard]] QemuRun& qemu() { return m_qemu; }
    // The drive that menus come from; empty without a Current Flash.
    [[nodiscard]] MenuDrive menuDrive() const;
    // The menu file of an entry of mnuMenu_fromFlash, from 0; empty without such an entry.
    [[nodiscard]] QString menuEntry(int entry) const { return m_menuEntries.value(entry); }
    [[nodiscard]] bool flashThere() const { return !m_drives.flashEntries().empty(); }

    // Starts or ends the watch over drives that come and go.
    void HookDeviceChange(bool on);
    void startQemu();
    void chooseBios(VideoBios bios);
    // Brings the state of the BIOS files to their menu items.
    void showBios();

    void driveProgress(int percent, const QString& panel1) override;
    void driveProgressEnds() override;
    void flashChanged() override;
    void closeQemu() override;
    void enableQemuStart(bool enabled) override;
    void showFlashMenus(const FlashMenus& menus) override;
    void clearMenuFile() override;
    void refillMenuList() override;
    void chooseEmbeddedMenu() override;
    [[nodiscard]] QString flashImagePath() const override;
    void bringToFront(qint64 pid) override;
    [[nodiscard]] bool askFlashDisk() override;
    void whenIdle(const std::function<void()>& action) override;

private:
    MainWindow& m_window;
    FolderDriveSource m_source;
    Drives m_drives;
    MountWatch m_watch;
    QemuRun m_qemu;
    BiosStates m_bios;
    QStringList m_menuEntries;
};

} // namespace fennel
