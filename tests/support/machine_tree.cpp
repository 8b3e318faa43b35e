// SPDX-License-Identifier: MIT
#include "support/machine_tree.h"

#include "support/test_shell.h"

#include <QDir>

namespace fennel::test {

using namespace Qt::StringLiterals;

MachineTree::MachineTree() : m_source(m_folder.path())
{
    for (const QString& folder : {u"proc/self"_s, u"dev"_s, u"run/udev/data"_s, u"sys/block"_s,
                                  u"sys/class/block"_s, u"sys/dev/block"_s})
        EXPECT_TRUE(QDir(root()).mkpath(folder));
    saveTable();
}

void MachineTree::write(const QString& path, const QByteArray& bytes)
{
    const QString where = root() + path;
    EXPECT_TRUE(DiskFiles().makeFolder(folderPart(where)).ok());
    EXPECT_TRUE(DiskFiles().write(where, bytes).ok());
}

void MachineTree::device(const QString& name, const QString& number, const QString& path)
{
    m_paths[name] = path;
    attribute(name, u"dev"_s, number);
    const QString target = u"devices/"_s + path;
    EXPECT_TRUE(QFile::link(u"../../"_s + target, root() + u"/sys/class/block/"_s + name));
    EXPECT_TRUE(QFile::link(u"../../"_s + target, root() + u"/sys/dev/block/"_s + number));
}

void MachineTree::disk(const QString& name, const QString& number, const QString& bus, int mib,
                       bool removableFlag)
{
    const QString path = u"pci0000:00/"_s + bus + u"/block/"_s + name;
    device(name, number, path);
    attribute(name, u"removable"_s, removableFlag ? u"1"_s : u"0"_s);
    attribute(name, u"size"_s, QString::number(mib * 2048LL));
    EXPECT_TRUE(QFile::link(u"../devices/"_s + path, root() + u"/sys/block/"_s + name));
}

void MachineTree::removeDisk(const QString& name)
{
    const QString own = m_paths.value(name);
    for (auto it = m_paths.begin(); it != m_paths.end();) {
        if (it.value() != own && !it.value().startsWith(own + u'/')) {
            ++it;
            continue;
        }
        const QByteArray number = m_source.read(u"/sys/class/block/"_s + it.key() + u"/dev"_s);
        QFile::remove(root() + u"/sys/dev/block/"_s + QString::fromUtf8(number).trimmed());
        QFile::remove(root() + u"/sys/class/block/"_s + it.key());
        it = m_paths.erase(it);
    }
    EXPECT_TRUE(QFile::remove(root() + u"/sys/block/"_s + name));
}

void MachineTree::partition(const QString& disk, const QString& name, const QString& number,
                            int index, int mib)
{
    device(name, number, m_paths[disk] + u'/' + name);
    attribute(name, u"partition"_s, QString::number(index));
    attribute(name, u"size"_s, QString::number(mib * 2048LL));
}

void MachineTree::stacked(const QString& name, const QString& number, const QStringList& below,
                          const QString& mapperName)
{
    device(name, number, u"virtual/block/"_s + name);
    EXPECT_TRUE(
        QFile::link(u"../devices/virtual/block/"_s + name, root() + u"/sys/block/"_s + name));
    for (const QString& slave : below)
        attribute(name, u"slaves/"_s + slave, u"link"_s);
    if (!mapperName.isEmpty())
        attribute(name, u"dm/name"_s, mapperName);
}

void MachineTree::attribute(const QString& device, const QString& file, const QString& value)
{
    write(u"/sys/devices/"_s + m_paths[device] + u'/' + file, value.toUtf8() + '\n');
}

void MachineTree::udev(const QString& number, const QStringList& properties)
{
    QByteArray text = "S:disk/by-id/some-name\nI:123456\n";
    for (const QString& property : properties)
        text += "E:" + property.toUtf8() + '\n';
    write(u"/run/udev/data/b"_s + number, text);
}

void MachineTree::mount(const QString& number, const QString& folder, const QString& type,
                        const QString& source, const QString& bound, const QString& options)
{
    QString written = folder;
    written.replace(u'\\', u"\\134"_s).replace(u' ', u"\\040"_s).replace(u'\n', u"\\012"_s);
    m_table.append(u"%1 1 %2 %3 %4 rw,relatime shared:%1 - %5 %6 %7"_s.arg(m_table.size() + 20)
                       .arg(number, bound, written, type, source, options));
    saveTable();
    EXPECT_TRUE(QDir(root()).mkpath(folder.mid(1).isEmpty() ? u"."_s : folder.mid(1)));
}

void MachineTree::unmount(const QString& folder)
{
    m_table.removeIf([&](const QString& line) { return line.section(u' ', 4, 4) == folder; });
    saveTable();
}

void MachineTree::mountSystem()
{
    mount(u"0:21"_s, u"/proc"_s, u"proc"_s, u"proc"_s);
    mount(u"0:22"_s, u"/sys"_s, u"sysfs"_s, u"sysfs"_s);
    mount(u"0:6"_s, u"/dev"_s, u"devtmpfs"_s, u"udev"_s);
    mount(u"0:23"_s, u"/run"_s, u"tmpfs"_s, u"tmpfs"_s, u"/"_s, u"rw,size=1600000k"_s);
    mount(u"0:24"_s, u"/tmp"_s, u"tmpfs"_s, u"tmpfs"_s);
    mount(u"0:39"_s, u"/proc/sys/fs/binfmt_misc"_s, u"autofs"_s, u"systemd-1"_s);
    mount(u"0:45"_s, u"/run/user/1000/gvfs"_s, u"fuse.gvfsd-fuse"_s, u"gvfsd-fuse"_s);
}

void MachineTree::saveTable()
{
    write(mountTablePath, m_table.join(u'\n').toUtf8() + '\n');
}

QString summary(const Drives& drives)
{
    QStringList parts;
    for (const DriveRecord& record : drives.table()) {
        if (record.Present)
            parts.append(record.Letter + u' ' + record.DriveKind.section(u' ', 0, 0) + u' ' +
                         record.VolumeName);
    }
    return parts.join(u"; "_s);
}

void buildLaptop(MachineTree& machine)
{
    machine.disk(u"nvme0n1"_s, u"259:0"_s, u"nvme/nvme0"_s, 500'000);
    machine.partition(u"nvme0n1"_s, u"nvme0n1p1"_s, u"259:1"_s, 1, 512);
    machine.partition(u"nvme0n1"_s, u"nvme0n1p2"_s, u"259:2"_s, 2, 490'000);
    machine.stacked(u"dm-0"_s, u"253:0"_s, {u"nvme0n1p2"_s}, u"luks-1"_s);
    machine.stacked(u"dm-1"_s, u"253:1"_s, {u"dm-0"_s}, u"vg-root"_s);
    machine.disk(u"sda"_s, u"8:0"_s, u"usb1/1-1/1-1:1.0/host6/target6:0:0/6:0:0:0"_s, 7600, true);
    machine.partition(u"sda"_s, u"sda1"_s, u"8:1"_s, 1, 7599);
    // A USB disk drive is not flagged as removable.
    machine.disk(u"sdb"_s, u"8:16"_s, u"usb2/2-3/2-3:1.0/host7/target7:0:0/7:0:0:0"_s, 32'000);
    machine.partition(u"sdb"_s, u"sdb1"_s, u"8:17"_s, 1, 31'999);
    machine.udev(u"8:1"_s, {u"ID_FS_LABEL=BOOT_ME"_s, u"ID_FS_LABEL_ENC=BOOT\\x20ME"_s,
                            u"ID_FS_UUID=AAAA-0001"_s});
    machine.udev(u"8:17"_s, {u"ID_FS_UUID=BBBB-0002"_s});
    machine.mount(u"253:1"_s, u"/"_s, u"ext4"_s, u"/dev/mapper/vg-root"_s);
    machine.mountSystem();
    machine.mount(u"259:1"_s, u"/boot/efi"_s, u"vfat"_s, u"/dev/nvme0n1p1"_s);
    machine.mount(u"7:0"_s, u"/snap/core/1"_s, u"squashfs"_s, u"/dev/loop0"_s);
}

void mountStick(MachineTree& machine, int stick)
{
    if (stick == 1)
        machine.mount(u"8:1"_s, u"/media/ann/BOOT_ME"_s, u"vfat"_s, u"/dev/sda1"_s);
    else
        machine.mount(u"8:17"_s, u"/media/ann/second"_s, u"ext4"_s, u"/dev/sdb1"_s);
}

void unmountStick(MachineTree& machine, int stick)
{
    machine.unmount(stick == 1 ? u"/media/ann/BOOT_ME"_s : u"/media/ann/second"_s);
}

bool processRuns(qint64 pid)
{
    const QByteArray facts = FolderDriveSource().read(u"/proc/%1/stat"_s.arg(pid));
    const QByteArray state = facts.mid(facts.lastIndexOf(')') + 2, 1);
    return pid > 0 && !facts.isEmpty() && state != "Z" && state != "X";
}

} // namespace fennel::test
