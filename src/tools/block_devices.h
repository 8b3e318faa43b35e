// SPDX-License-Identifier: MIT
// Block devices as sysfs and udev's database tell of them: what a volume lies on, which disks are
// real, and the number that each of them has in this program.
#pragma once

#include "tools/drive_source.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace fennel {

struct PhysicalDisk {
    QString name; // kernel name, such as "sdb"
    int number = 0;
};

class BlockDevices {
public:
    // The source outlives this.
    explicit BlockDevices(const DriveSource& source) : m_source(source) {}

    // Kernel names, empty if there is no such device: by number, and by the source of a mount
    // ("/dev/sdb1", "/dev/mapper/stick", the first of "/dev/sda:/dev/sdb").
    [[nodiscard]] QString byNumber(unsigned major, unsigned minor) const;
    // "/dev/..." sources only; others, such as of network mounts, have no device.
    [[nodiscard]] QString bySource(const QString& source) const;

    // The partitions, or unpartitioned disks, at the bottom of a device: LUKS, LVM and RAID stand
    // on others, everything else on itself.
    [[nodiscard]] QStringList partitionsUnder(const QString& name) const;
    // The same for whole disks, each once. A multi-device btrfs counts with all its disks.
    [[nodiscard]] QStringList disksUnder(const QString& name) const;
    // The disk of a partition; a name that is no partition is its own disk.
    [[nodiscard]] QString diskOf(const QString& partition) const;
    [[nodiscard]] int partitionNumber(const QString& name) const; // 0 for a whole disk

    // The medium can be taken out, or the disk hangs on USB or in an SD slot.
    [[nodiscard]] bool isRemovable(const QString& disk) const;
    // Told by the kernel name, "sr" and a number.
    [[nodiscard]] bool isCdRom(const QString& disk) const;
    [[nodiscard]] qint64 size(const QString& name) const; // bytes; 0 unknown, or no medium
    // One line of a sysfs file of the device, such as "device/vendor", trimmed.
    [[nodiscard]] QString attribute(const QString& name, const QString& file) const;
    // udev's properties, such as ID_FS_LABEL; empty without udev.
    [[nodiscard]] QHash<QString, QString> properties(const QString& name) const;

    // Every real disk, in the order of the kernel names (sdb before sdaa). Those that hold the root
    // file system have number 0, the others count from 1. Where no disk can be told to hold it (in
    // a container, on a ZFS pool) every fixed disk has 0: number 0 is never booted, and an unknown
    // system disk must not be.
    [[nodiscard]] std::vector<PhysicalDisk> physicalDisks() const;
    // Number of the disk under a device, 0 if one of several has it; -1 if it lies on none.
    [[nodiscard]] int diskNumber(const QString& name) const;

private:
    [[nodiscard]] QStringList bottom(const QString& name, int depth) const;
    [[nodiscard]] QStringList btrfsMembers(const QString& name) const;
    [[nodiscard]] QStringList rootDisks() const;
    const DriveSource& m_source;
};

// The order of the kernel names: families by name, numbers as numbers, sdz before sdaa.
bool kernelNameLess(const QString& left, const QString& right);

} // namespace fennel
