// SPDX-License-Identifier: MIT
#include "tools/block_devices.h"

#include "tools/mount_table.h"

#include <QRegularExpression>

#include <algorithm>

namespace fennel {

namespace {

constexpr int deepestStack = 16; // LUKS on LVM on RAID is three; a circle must end somewhere
constexpr qint64 sectorBytes = 512;
// All block devices, disks and partitions alike, by their kernel names.
const QString classFolder = QStringLiteral("/sys/class/block/");

// Devices without hardware of their own, media that are no disks, and the boot areas of an eMMC.
bool isRealDisk(const QString& name)
{
    static const QRegularExpression others(QStringLiteral(
        "^(loop|ram|zram|dm-|md|sr|fd|nbd|bcache|drbd|zd|mtdblock)\\d|^nvme\\d+c\\d+n|^mmcblk\\d+"
        "(boot|rpmb)"));
    return !others.match(name).hasMatch();
}

QString lastPart(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

// A name in pieces: "nvme10n1" is nvme, 10, n, 1; "sdaa" is sd, aa.
QStringList nameParts(const QString& name)
{
    static const QRegularExpression lettered(QStringLiteral("^(sd|hd|vd|xvd|dasd)([a-z]+)$"));
    // "sdz" comes before "sdaa", so the letters count as a number of their own.
    if (const auto match = lettered.match(name); match.hasMatch())
        return {match.captured(1), match.captured(2)};
    static const QRegularExpression piece(QStringLiteral("\\d+|\\D+"));
    QStringList parts;
    for (auto found = piece.globalMatch(name); found.hasNext();)
        parts.append(found.next().captured());
    return parts;
}

} // namespace

bool kernelNameLess(const QString& left, const QString& right)
{
    const QStringList a = nameParts(left);
    const QStringList b = nameParts(right);
    for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] == b[i])
            continue;
        // Counters, in digits or letters, grow by length first. The family in front does not.
        return i > 0 && a[i].size() != b[i].size() ? a[i].size() < b[i].size() : a[i] < b[i];
    }
    return a.size() < b.size();
}

// Major 0 belongs to file systems without a device.
QString BlockDevices::byNumber(unsigned major, unsigned minor) const
{
    const QString link = QStringLiteral("/sys/dev/block/%1:%2").arg(major).arg(minor);
    return major == 0 ? QString() : lastPart(m_source.resolved(link));
}

QString BlockDevices::bySource(const QString& source) const
{
    if (!source.startsWith(QLatin1String("/dev/")))
        return {};
    // Some file systems name several devices, joined by colons: the first will do.
    const QString device = source.section(QLatin1Char(':'), 0, 0);
    // A mapper name is mostly a link, but in a container it may be no more than a name.
    if (device.startsWith(QLatin1String("/dev/mapper/"))) {
        const QString wanted = lastPart(device);
        for (const QString& name : m_source.names(classFolder)) {
            if (name.startsWith(QLatin1String("dm-")) &&
                attribute(name, QStringLiteral("dm/name")) == wanted)
                return name;
        }
    }
    const QString target = m_source.resolved(device);
    const QString name = lastPart(target.isEmpty() ? device : target);
    return m_source.resolved(classFolder + name).isEmpty() ? QString() : name;
}

QStringList BlockDevices::bottom(const QString& name, int depth) const
{
    const QStringList slaves = m_source.names(classFolder + name + QStringLiteral("/slaves"));
    // A device that lies on no other is what the stack stands on.
    if (slaves.isEmpty() || depth >= deepestStack)
        return {name};
    QStringList found;
    for (const QString& slave : slaves)
        found.append(bottom(slave, depth + 1));
    found.removeDuplicates();
    std::sort(found.begin(), found.end(), kernelNameLess);
    return found;
}

QStringList BlockDevices::partitionsUnder(const QString& name) const
{
    return name.isEmpty() ? QStringList() : bottom(name, 0);
}

QString BlockDevices::diskOf(const QString& partition) const
{
    if (partitionNumber(partition) == 0)
        return partition;
    // The folder of a partition lies in the folder of its disk.
    return m_source.resolved(classFolder + partition).section(QLatin1Char('/'), -2, -2);
}

// A file system over several devices shows only one of them in the mount table.
QStringList BlockDevices::btrfsMembers(const QString& name) const
{
    const QString folder = QStringLiteral("/sys/fs/btrfs/");
    for (const QString& id : m_source.names(folder)) {
        QStringList members = m_source.names(folder + id + QStringLiteral("/devices"));
        if (members.contains(name))
            return members;
    }
    return {name};
}

QStringList BlockDevices::disksUnder(const QString& name) const
{
    QStringList disks;
    if (name.isEmpty())
        return disks;
    for (const QString& member : btrfsMembers(name)) {
        for (const QString& partition : partitionsUnder(member))
            disks.append(diskOf(partition));
    }
    disks.removeDuplicates();
    std::sort(disks.begin(), disks.end(), kernelNameLess);
    return disks;
}

int BlockDevices::partitionNumber(const QString& name) const
{
    return attribute(name, QStringLiteral("partition")).toInt();
}

bool BlockDevices::isRemovable(const QString& disk) const
{
    if (attribute(disk, QStringLiteral("removable")) == QLatin1String("1"))
        return true;
    // A hard disk on USB calls itself not removable, but can be pulled out all the same.
    static const QRegularExpression usb(QStringLiteral("/usb\\d+/"));
    const QString path = m_source.resolved(classFolder + disk);
    // An eMMC hangs on the same kind of host as a card, but is soldered in.
    const bool sdCard = path.contains(QLatin1String("/mmc_host/")) &&
                        attribute(disk, QStringLiteral("device/type")) == QLatin1String("SD");
    return sdCard || usb.match(path).hasMatch();
}

bool BlockDevices::isCdRom(const QString& disk) const
{
    static const QRegularExpression optical(QStringLiteral("^sr\\d+$"));
    return optical.match(disk).hasMatch();
}

qint64 BlockDevices::size(const QString& name) const
{
    const qint64 sectors = attribute(name, QStringLiteral("size")).toLongLong();
    // Always in units of 512, whatever sectors the disk has. The upper bound keeps the product in
    // 64 bits.
    return sectors > 0 && sectors < (1LL << 53) ? sectors * sectorBytes : 0;
}

QString BlockDevices::attribute(const QString& name, const QString& file) const
{
    const QByteArray bytes = m_source.read(classFolder + name + QLatin1Char('/') + file);
    return QString::fromUtf8(bytes.left(bytes.indexOf('\n'))).trimmed();
}

QHash<QString, QString> BlockDevices::properties(const QString& name) const
{
    QHash<QString, QString> found;
    const QString number = attribute(name, QStringLiteral("dev"));
    // udev's own data base: labels are read from there, as reading the device needs root's rights.
    const QByteArray database = m_source.read(QStringLiteral("/run/udev/data/b") + number);
    for (const QByteArray& line : database.split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith("E:") && equals > 2)
            found[QString::fromUtf8(line.mid(2, equals - 2))] =
                QString::fromUtf8(line.mid(equals + 1));
    }
    return found;
}

QStringList BlockDevices::rootDisks() const
{
    QStringList disks;
    for (const MountEntry& entry : mountEntries(m_source.read(mountTablePath))) {
        if (entry.folder != QLatin1String("/"))
            continue;
        // A later mount hides the ones before it, such as that of the initial RAM disk.
        const QString name = byNumber(entry.major, entry.minor);
        disks = disksUnder(name.isEmpty() ? bySource(entry.source) : name);
    }
    return disks;
}

std::vector<PhysicalDisk> BlockDevices::physicalDisks() const
{
    QStringList names = m_source.names(QStringLiteral("/sys/block"));
    std::sort(names.begin(), names.end(), kernelNameLess);
    const QStringList roots = rootDisks();
    const auto isReal = [](const QString& name) { return isRealDisk(name); };
    // On a live system the root lies on no disk of the machine; then whatever cannot be pulled out
    // counts as the system's.
    const bool rootKnown = std::any_of(roots.begin(), roots.end(), isReal);
    std::vector<PhysicalDisk> disks;
    int next = 1;
    for (const QString& name : names) {
        if (!isRealDisk(name))
            continue;
        const bool ofSystem = rootKnown ? roots.contains(name) : !isRemovable(name);
        // 0 marks every disk of the system: drives with number 0 are never booted.
        disks.push_back({name, ofSystem ? 0 : next++});
    }
    return disks;
}

int BlockDevices::diskNumber(const QString& name) const
{
    const QStringList under = disksUnder(name);
    int number = -1;
    for (const PhysicalDisk& disk : physicalDisks()) {
        // The lowest number of all disks under it: if one of them is the system's, all count so.
        if (under.contains(disk.name) && (number < 0 || disk.number < number))
            number = disk.number;
    }
    return number;
}

} // namespace fennel
