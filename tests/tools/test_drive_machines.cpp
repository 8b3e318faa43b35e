// SPDX-License-Identifier: MIT
// Letters, kinds, labels and disk numbers on machines of many sorts, and on the one that runs the
// tests.
#include "support/machine_tree.h"
#include "support/test_shell.h"
#include "tools/block_devices.h"
#include "tools/mount_table.h"
#include "tools/mount_watch.h"

#include <QProcess>
#include <QTest>

#include <cerrno>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class DriveMachines : public testing::Test {
protected:
    QString seen()
    {
        Drives drives(shell.shell, machine.source(), host);
        drives.RefreshDriveInfo(false, false);
        return summary(drives);
    }

    // "sda=1 sdb=0"
    [[nodiscard]] QString numbers() const
    {
        QStringList parts;
        for (const PhysicalDisk& disk : BlockDevices(machine.source()).physicalDisks())
            parts.append(disk.name + u'=' + QString::number(disk.number));
        return parts.join(u' ');
    }

    TestShell shell;
    MachineTree machine;
    RecordingFlashHost host;
};

TEST_F(DriveMachines, LaptopWithEncryptedRootAndTwoSticks)
{
    buildLaptop(machine);
    mountStick(machine, 2);
    mountStick(machine, 1);
    EXPECT_EQ(seen(), u"C Local ; D Local efi; E Removable second; F Removable BOOT ME"_s);
    EXPECT_EQ(numbers(), u"nvme0n1=0 sda=1 sdb=2"_s);

    Drives drives(shell.shell, machine.source(), host);
    drives.RefreshDriveInfo(false, false);
    ASSERT_EQ(drives.flashEntries().size(), 2U);
    EXPECT_EQ(drives.flashEntries()[1].caption, u"    F:   BOOT ME"_s);
    EXPECT_EQ(drives.flashEntries()[1].toolTip, u"/media/ann/BOOT_ME, 7.4 GB"_s);
    EXPECT_EQ(drives.folderOf('F'), machine.root() + u"/media/ann/BOOT_ME/"_s);
    EXPECT_EQ(drives.folderOf('Z'), QString());
}

TEST_F(DriveMachines, DesktopWithCardReadersAndCd)
{
    machine.disk(u"sda"_s, u"8:0"_s, u"ata1/host0"_s, 1'000'000);
    machine.partition(u"sda"_s, u"sda1"_s, u"8:1"_s, 1, 900'000);
    machine.disk(u"sdb"_s, u"8:16"_s, u"usb3/3-1/host8"_s, 0, true); // an empty slot
    machine.disk(u"sdc"_s, u"8:32"_s, u"usb3/3-1/host8"_s, 4000, true);
    machine.disk(u"sr0"_s, u"11:0"_s, u"ata2/host1"_s, 700, true);
    machine.disk(u"mmcblk0"_s, u"179:0"_s, u"mmc_host/mmc0/mmc0:aaaa"_s, 16'000);
    machine.attribute(u"mmcblk0"_s, u"device/type"_s, u"SD"_s);
    machine.disk(u"mmcblk1"_s, u"179:8"_s, u"mmc_host/mmc1/mmc1:0001"_s, 32'000);
    machine.attribute(u"mmcblk1"_s, u"device/type"_s, u"MMC"_s);
    machine.disk(u"mmcblk1boot0"_s, u"179:16"_s, u"mmc_host/mmc1/mmc1:0001/b"_s, 4);
    machine.disk(u"fd0"_s, u"2:0"_s, u"floppy.0"_s, 1, true);
    machine.udev(u"11:0"_s, {u"ID_FS_LABEL=INSTALL CD"_s});
    machine.mount(u"8:1"_s, u"/"_s, u"ext4"_s, u"/dev/root"_s);
    machine.mountSystem();
    machine.mount(u"11:0"_s, u"/media/cdrom0"_s, u"iso9660"_s, u"/dev/sr0"_s);
    machine.mount(u"8:32"_s, u"/media/ann/card"_s, u"vfat"_s, u"/dev/sdc"_s);
    machine.mount(u"179:0"_s, u"/media/ann/sd"_s, u"exfat"_s, u"/dev/mmcblk0"_s);
    machine.mount(u"179:8"_s, u"/srv/emmc"_s, u"ext4"_s, u"/dev/mmcblk1"_s);
    machine.mount(u"2:0"_s, u"/media/floppy"_s, u"msdos"_s, u"/dev/fd0"_s);
    EXPECT_EQ(seen(), u"A Removable floppy; C Local ; D CD-ROM INSTALL CD; E Removable card; "
                      "F Removable sd; G Local emmc"_s);
    EXPECT_EQ(numbers(), u"mmcblk0=1 mmcblk1=2 sda=0 sdb=3 sdc=4"_s);
}

TEST_F(DriveMachines, ServerWithRaidAndNetworkMounts)
{
    for (const auto& [name, number] :
         {std::pair{u"sda"_s, u"8:0"_s}, {u"sdb"_s, u"8:16"_s}, {u"sdc"_s, u"8:32"_s}})
        machine.disk(name, number, u"ata1/"_s + name, 100'000);
    machine.stacked(u"md0"_s, u"9:0"_s, {u"sda"_s, u"sdb"_s});
    machine.mount(u"0:2"_s, u"/"_s, u"rootfs"_s, u"rootfs"_s);
    machine.mount(u"9:0"_s, u"/"_s, u"xfs"_s, u"/dev/md0"_s);
    machine.mountSystem();
    machine.mount(u"0:50"_s, u"/srv/share"_s, u"autofs"_s, u"/etc/auto.srv"_s);
    machine.mount(u"0:51"_s, u"/srv/share"_s, u"nfs4"_s, u"files:/share"_s);
    machine.mount(u"0:52"_s, u"/mnt/win dow"_s, u"cifs"_s, u"//host/c$"_s);
    machine.mount(u"0:53"_s, u"/mnt/ram"_s, u"tmpfs"_s, u"tmpfs"_s, u"/"_s, u"rw,size=2048k"_s);
    machine.mount(u"0:54"_s, u"/srv/ram"_s, u"tmpfs"_s, u"tmpfs"_s);
    machine.mount(u"8:32"_s, u"/data"_s, u"ext4"_s, u"/dev/sdc"_s);
    machine.mount(u"8:32"_s, u"/srv/bound"_s, u"ext4"_s, u"/dev/sdc"_s, u"/some"_s);
    machine.mount(u"8:32"_s, u"/data2"_s, u"ext4"_s, u"/dev/sdc"_s); // the same once more
    EXPECT_EQ(seen(), u"C Local ; D Network share; E Network win dow; F RAM ram; G Local data"_s);
    // Both halves of the mirror hold the system.
    EXPECT_EQ(numbers(), u"sda=0 sdb=0 sdc=1"_s);
}

TEST_F(DriveMachines, BtrfsOverTwoDisks)
{
    machine.disk(u"vda"_s, u"254:0"_s, u"virtio0"_s, 1000);
    machine.disk(u"vdb"_s, u"254:16"_s, u"virtio1"_s, 1000);
    machine.disk(u"vdc"_s, u"254:32"_s, u"virtio2"_s, 1000);
    machine.write(u"/sys/fs/btrfs/6d3a/devices/vda"_s, "");
    machine.write(u"/sys/fs/btrfs/6d3a/devices/vdb"_s, "");
    machine.mount(u"0:30"_s, u"/"_s, u"btrfs"_s, u"/dev/vdb"_s, u"/@"_s);
    machine.mount(u"0:30"_s, u"/home"_s, u"btrfs"_s, u"/dev/vdb"_s, u"/@home"_s);
    EXPECT_EQ(seen(), u"C Local "_s);
    EXPECT_EQ(numbers(), u"vda=0 vdb=0 vdc=1"_s);
}

TEST_F(DriveMachines, ContainerDoesNotKnowItsSystemDisk)
{
    machine.disk(u"sda"_s, u"8:0"_s, u"ata1"_s, 1000);
    machine.disk(u"sdb"_s, u"8:16"_s, u"usb1/1-1"_s, 1000);
    machine.mount(u"0:60"_s, u"/"_s, u"overlay"_s, u"overlay"_s, u"/"_s,
                  u"rw,lowerdir=/var/lib/l,upperdir=/var/lib/u"_s);
    machine.mountSystem();
    machine.mount(u"8:0"_s, u"/etc/hosts"_s, u"ext4"_s, u"/dev/sda"_s, u"/var/lib/hosts"_s);
    EXPECT_EQ(seen(), u"C Local "_s);
    // No fixed disk may be booted, since any of them may be the host's.
    EXPECT_EQ(numbers(), u"sda=0 sdb=1"_s);
}

TEST_F(DriveMachines, LabelsOfAllSorts)
{
    buildLaptop(machine);
    mountStick(machine, 1);
    const auto label = [&](const QStringList& properties) {
        machine.udev(u"8:1"_s, properties);
        return seen().section(u"Removable "_s, 1);
    };
    EXPECT_EQ(label({u"ID_FS_LABEL_ENC=a|b\\x20&\\x20c"_s}), u"a|b & c"_s);
    EXPECT_EQ(label({u"ID_FS_LABEL_ENC=\\xd0\\x9c\\xd0\\xb8\\xd1\\x80"_s}), u"Мир"_s);
    EXPECT_EQ(label({u"ID_FS_LABEL_ENC=tab\\x09bell\\x07"_s}), u"tab bell "_s);
    EXPECT_EQ(label({u"ID_FS_LABEL_ENC=cut\\x00here"_s}), u"cut"_s);
    EXPECT_EQ(label({u"ID_FS_LABEL_ENC=odd\\x2"_s}), u"odd\\x2"_s);
    EXPECT_EQ(label({u"ID_FS_LABEL="_s + QString(600, u'x')}).size(), 255);
    EXPECT_EQ(label({}), u"BOOT_ME"_s);
}

TEST_F(DriveMachines, MountFoldersWithOddNames)
{
    machine.disk(u"sda"_s, u"8:0"_s, u"usb1/1-1"_s, 100, true);
    machine.mount(u"8:0"_s, u"/media/my \\stick\n2"_s, u"vfat"_s, u"/dev/sda"_s);
    Drives drives(shell.shell, machine.source(), host);
    drives.RefreshDriveInfo(false, false);
    EXPECT_EQ(drives.folderOf('D'), machine.root() + u"/media/my \\stick\n2/"_s);
    EXPECT_EQ(drives.table()[3].VolumeName, u"my \\stick 2"_s);

    const auto broken = mountEntries("garbage\n1 2 3\n20 1 8:0 / /m rw - \n20 1 x:0 / /m rw - a b\n"
                                     "20 1 8:0 / relative rw - a b\n20 1 8:0 / /ok\\ rw - a b\n");
    ASSERT_EQ(broken.size(), 1U);
    EXPECT_EQ(broken[0].folder, u"/ok\\"_s);
}

TEST(KernelNames, AreOrderedAsTheKernelCounts)
{
    QStringList names = {u"sdaa"_s,     u"vda"_s, u"nvme10n1"_s, u"sdb"_s,      u"nvme2n1"_s,
                         u"mmcblk10"_s, u"sdz"_s, u"mmcblk2"_s,  u"nvme2n10"_s, u"sda"_s};
    std::sort(names.begin(), names.end(), kernelNameLess);
    EXPECT_EQ(names.join(u' '),
              u"mmcblk2 mmcblk10 nvme2n1 nvme2n10 nvme10n1 sda sdb sdz sdaa vda"_s);
}

// In a changed root (chroot) "/" is a plain folder, of which the mount table says nothing.
bool rootIsMounted()
{
    struct stat root = {};
    struct stat proc = {};
    return FolderDriveSource().read(mountTablePath).contains(" / / ") && ::stat("/", &root) == 0 &&
           ::stat("/proc", &proc) == 0 && root.st_dev != proc.st_dev;
}

TEST(ThisMachine, TellsOfAMount)
{
    if (::geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0)
        GTEST_SKIP() << "only root may make a mount namespace for the test";
    if (!rootIsMounted())
        GTEST_SKIP() << "the root of this process is no mounted volume";
    ASSERT_EQ(::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0);
    if (!QFileInfo(u"/mnt"_s).isDir())
        GTEST_SKIP() << "there is no /mnt";
    const FolderDriveSource source;
    TestShell shell;
    RecordingFlashHost host;
    Drives drives(shell.shell, source, host);
    drives.RefreshDriveInfo(false, false);
    EXPECT_EQ(drives.folderOf('C'), u"/"_s);
    MountWatch watch;
    QObject::connect(&watch, &MountWatch::changed, &watch, [&] { drives.mountsChanged(); });
    ASSERT_TRUE(watch.start());

    shell.prompts.expectMessage(u":\nType: RAM drive\nVolumeName: mnt"_s);
    ASSERT_EQ(::mount("tmpfs", "/mnt", "tmpfs", 0, "size=1m"), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell.prompts.texts.size() == 1; }, 5000));
    EXPECT_TRUE(summary(drives).contains(u"RAM mnt"_s));

    shell.prompts.expectMessage(u"Disconnected drive"_s);
    ASSERT_EQ(::umount("/mnt"), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell.prompts.texts.size() == 2; }, 5000));
    EXPECT_FALSE(summary(drives).contains(u"RAM mnt"_s));

    watch.stop();
    ASSERT_EQ(::mount("tmpfs", "/mnt", "tmpfs", 0, "size=1m"), 0);
    QTest::qWait(50);
    EXPECT_EQ(shell.prompts.texts.size(), 2);
    ::umount("/mnt");
}

} // namespace
