// SPDX-License-Identifier: MIT
#include "report.h"

#include "tools/block_devices.h"
#include "tools/volumes.h"

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

// The reader knows the labels with these blanks.
constexpr int labelWidth = 18;

QHash<QString, QChar> freshLetters(const std::vector<Volume>& volumes)
{
    QHash<QString, QChar> letters;
    char16_t next = u'D';
    for (const Volume& volume : volumes) {
        // C for the root, A and B for floppies: the editor gives letters in the same way at its
        // start.
        if (volume.root)
            letters[volume.mountFolder] = u'C';
        else if (volume.floppy >= 0)
            letters[volume.mountFolder] = QChar(static_cast<char16_t>(u'A' + volume.floppy));
        else if (next <= u'Z')
            letters[volume.mountFolder] = QChar(next++);
    }
    return letters;
}

QString line(const QString& label, const QString& value)
{
    // What is not known has no line.
    return value.isEmpty() ? QString() : label.leftJustified(labelWidth) + u"= "_s + value + u'\n';
}

// sysfs has the words of the device itself, udev's database those of its tables.
QString known(const BlockDevices& blocks, const QString& disk, const QString& file,
              const QString& property)
{
    const QString own = blocks.attribute(disk, file);
    return own.isEmpty() ? blocks.properties(disk).value(property) : own;
}

QString busOf(const BlockDevices& blocks, const QString& disk)
{
    const QString bus = blocks.properties(disk).value(u"ID_BUS"_s);
    if (!bus.isEmpty())
        return bus.toUpper();
    return disk.startsWith(u"mmcblk") ? u"SD"_s : QString();
}

QString sizeLine(qint64 bytes)
{
    return bytes == 0 ? QString() : u"%1 (%2 bytes)"_s.arg(sizeText(bytes)).arg(bytes);
}

QString blockOf(const BlockDevices& blocks, const Volume& volume, QChar letter)
{
    // Of a volume over several partitions the first stands for all.
    const QString partition = blocks.partitionsUnder(volume.block).value(0);
    const QString disk = blocks.diskOf(partition);
    return line(u"MountPoint"_s, letter + u":\\"_s) + line(u"Volume Label"_s, volume.label) +
           line(u"Mount Folder"_s, volume.mountFolder) +
           line(u"Partition Name"_s,
                u"\\Device\\Harddisk%1\\Partition%2"_s.arg(blocks.diskNumber(volume.block))
                    .arg(blocks.partitionNumber(partition))) +
           line(u"Device Node"_s, u"/dev/"_s + volume.block) +
           line(u"Disk Node"_s, u"/dev/"_s + disk) + line(u"File System"_s, volume.fileSystem) +
           line(u"Volume Size"_s, sizeLine(volume.size)) +
           line(u"Disk Size"_s, sizeLine(blocks.size(disk))) +
           line(u"Vendor"_s, known(blocks, disk, u"device/vendor"_s, u"ID_VENDOR"_s)) +
           line(u"Model"_s, known(blocks, disk, u"device/model"_s, u"ID_MODEL"_s)) +
           line(u"Serial Number"_s, known(blocks, disk, u"device/serial"_s, u"ID_SERIAL_SHORT"_s)) +
           line(u"Bus Type"_s, busOf(blocks, disk)) + u'\n';
}

} // namespace

QString usbReport(const DriveSource& source, const QHash<QString, QChar>& letters)
{
    const BlockDevices blocks(source);
    const std::vector<Volume> volumes = volumesOf(source);
    const QHash<QString, QChar> inForce = letters.isEmpty() ? freshLetters(volumes) : letters;
    QString report;
    for (const Volume& volume : volumes) {
        // Without a letter there is nothing to call the drive by.
        const bool reported = volume.kind == VolumeKind::Removable && volume.floppy < 0 &&
                              !volume.block.isEmpty() && inForce.contains(volume.mountFolder);
        if (reported)
            report += blockOf(blocks, volume, inForce[volume.mountFolder]);
    }
    return report;
}

} // namespace fennel
