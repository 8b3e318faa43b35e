// SPDX-License-Identifier: MIT
// Another machine as a folder: the mount table, sysfs and udev's database laid out as the kernel
// and udev do it.
#pragma once

#include "tools/drive_source.h"
#include "tools/drives.h"

#include <QTemporaryDir>

namespace fennel::test {

class MachineTree {
public:
    MachineTree();
    [[nodiscard]] QString root() const { return m_folder.path(); }
    [[nodiscard]] const DriveSource& source() const { return m_source; }

    // `bus`: the way from the PCI bridge to the disk, such as "ata1" or "usb1/1-1". Numbers are
    // "major:minor", sizes in MiB.
    void disk(const QString& name, const QString& number, const QString& bus, int mib,
              bool removableFlag = false);
    // Pulled out with its partitions; what is mounted stays so.
    void removeDisk(const QString& name);
    void partition(const QString& disk, const QString& name, const QString& number, int index,
                   int mib);
    // A device of the device mapper, or a RAID, on others.
    void stacked(const QString& name, const QString& number, const QStringList& below,
                 const QString& mapperName = {});
    void attribute(const QString& device, const QString& file, const QString& value);
    void udev(const QString& number, const QStringList& properties);
    // A line of the mount table; `root` is the bound folder.
    void mount(const QString& number, const QString& folder, const QString& type,
               const QString& source, const QString& root = QStringLiteral("/"),
               const QString& options = QStringLiteral("rw"));
    void unmount(const QString& folder);
    void mountSystem(); // proc, sysfs and the like, as every machine has them
    void write(const QString& path, const QByteArray& bytes);

private:
    void device(const QString& name, const QString& number, const QString& path);
    void saveTable();
    QTemporaryDir m_folder;
    FolderDriveSource m_source;
    QMap<QString, QString> m_paths; // of the devices, below /sys/devices
    QStringList m_table;
};

// The window of a drive test: remembers what it was told.
class RecordingFlashHost : public FlashHost {
public:
    QStringList progress;
    int closes = 0;
    int menuFileCleared = 0;
    int refills = 0;
    int embedded = 0;
    bool startEnabled = false;
    FlashMenus menus;

    void driveProgress(int percent, const QString& panel1) override
    {
        progress.append(QString::number(percent) + u' ' + panel1);
    }
    void driveProgressEnds() override { progress.append(QStringLiteral("end")); }
    void flashChanged() override {}
    void closeQemu() override { ++closes; }
    void enableQemuStart(bool enabled) override { startEnabled = enabled; }
    void showFlashMenus(const FlashMenus& shown) override { menus = shown; }
    void clearMenuFile() override { ++menuFileCleared; }
    void refillMenuList() override { ++refills; }
    void chooseEmbeddedMenu() override { ++embedded; }
};

// "C Local ROOT; F Removable STICK": every letter that has a drive.
QString summary(const Drives& drives);

// Two sticks, sda and sdb, and a root on LUKS on an NVMe disk.
void buildLaptop(MachineTree& machine);
// Plugs and mounts one of the laptop's sticks.
void mountStick(MachineTree& machine, int stick);
void unmountStick(MachineTree& machine, int stick);

// Whether a process is there and runs; one that ended and was not yet waited for does not.
bool processRuns(qint64 pid);

} // namespace fennel::test
