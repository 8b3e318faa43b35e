// SPDX-License-Identifier: MIT
#include "disk.h"

#include "tools/block_devices.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

Failure failure(FailureKind kind, const QString& text)
{
    return {kind, text.toStdString()};
}

QString nameOfDisk(const BlockDevices& blocks, int number)
{
    // 0 marks the disks of the system, which are never booted.
    if (number < 1)
        return {};
    for (const PhysicalDisk& disk : blocks.physicalDisks()) {
        if (disk.number == number)
            return disk.name;
    }
    return {};
}

// The group's name is asked of the device itself, as distributions differ in it.
Failure noRight(const QString& node)
{
    struct stat facts = {};
    const bool known = ::stat(QFile::encodeName(node).constData(), &facts) == 0;
    const group* owner = known ? ::getgrgid(facts.st_gid) : nullptr;
    const QString name = owner ? QString::fromLocal8Bit(owner->gr_name) : u"disk"_s;
    return failure(FailureKind::NoPermission,
                   u"You have no right to read %1.\nBecome a member of the group \"%2\" (sudo "
                   "adduser YOUR_NAME %2) and log in anew."_s.arg(node, name));
}

Failure openFailure(const QString& node, int error)
{
    if (error == EACCES || error == EPERM)
        return noRight(node);
    if (error == ENOMEDIUM)
        return failure(FailureKind::NotFound, u"There is no medium in %1."_s.arg(node));
    return failure(FailureKind::Io, u"%1 could not be opened: %2."_s.arg(
                                        node, QString::fromLocal8Bit(std::strerror(error))));
}

bool isThatDevice(const struct stat& facts, const QString& number)
{
    return number == u"%1:%2"_s.arg(major(facts.st_rdev)).arg(minor(facts.st_rdev));
}

// The caller's number may be old: when a drive goes, the disks behind it are counted anew.
Failure notRemovable(const QString& name, int number)
{
    return failure(
        FailureKind::NoPermission,
        u"Disk %1 (/dev/%2) is built in, and only removable disks are booted. Choose the "
        "drive again in the menu Flash."_s.arg(QString::number(number), name));
}

} // namespace

Result<OpenDisk> openImage(const QString& path)
{
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return openFailure(path, errno);
    struct stat facts = {};
    if (::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode))
        return OpenDisk{descriptor, false};
    ::close(descriptor);
    return failure(FailureKind::Malformed, u"%1 is no image file."_s.arg(path));
}

Result<OpenDisk> openDisk(const FolderDriveSource& source, int number)
{
    const BlockDevices blocks(source);
    const QString name = nameOfDisk(blocks, number);
    if (name.isEmpty())
        return failure(FailureKind::NotFound,
                       u"There is no disk %1 that may be booted. Plug the drive in and choose it "
                       "again in the menu Flash."_s.arg(number));
    if (!blocks.isRemovable(name))
        return notRemovable(name, number);
    const QString node = source.place(u"/dev/"_s + name);
    // For reading only; O_NONBLOCK, or a drive without a medium would hold us up.
    const int descriptor =
        ::open(QFile::encodeName(node).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return openFailure(node, errno);
    struct stat facts = {};
    // Asked of what was opened: between naming and opening another stick may have got the name.
    const bool read = ::fstat(descriptor, &facts) == 0;
    const bool device =
        read && S_ISBLK(facts.st_mode) && isThatDevice(facts, blocks.attribute(name, u"dev"_s));
    // Image files stand in for disks only under another root, which tests use.
    const bool image = read && S_ISREG(facts.st_mode) && !source.isReal();
    if (device || image)
        return OpenDisk{descriptor, device};
    ::close(descriptor);
    return failure(FailureKind::Malformed, u"%1 is not the disk %2."_s.arg(node).arg(number));
}

} // namespace fennel
