// SPDX-License-Identifier: MIT
// The Current Flash: sticks that come and go, the choice of one, and the report on them.
#include "support/bin_folder.h"
#include "support/machine_tree.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// Writes a given report in place of the real tool's.
class ReportTool : public ToolRunner {
public:
    QByteArray report;
    bool leavesFile = true;
    QStringList command;

    Result<void> RunToolAndWait(const QStringList&) override { return {}; }
    Result<void> runIntoFile(const QStringList& commandLine, const QString& outputFile) override
    {
        command = commandLine;
        if (leavesFile)
            return DiskFiles().write(outputFile, report);
        return Failure{FailureKind::ToolFailed, "ListUsbDrives crashed."};
    }
    [[nodiscard]] QString lastErrorOutput() const override { return {}; }
};

class DrivesTest : public testing::Test {
protected:
    DrivesTest() : withTool{shell.run, shell.log, shell.files, shell.prompts, tool}
    {
        shell.run.ToolListUsb = shell.file(u"ListUsbDrives"_s, "tool");
        buildLaptop(machine);
    }

    TestShell shell;
    ReportTool tool;
    Shell withTool;
    MachineTree machine;
    RecordingFlashHost host;
    Drives drives{withTool, machine.source(), host};
};

TEST_F(DrivesTest, AStickComesGoesAndComesBack)
{
    drives.RefreshDriveInfo(false, false);
    EXPECT_EQ(host.progress.first(), u"20 A:"_s);
    EXPECT_EQ(host.progress[25], u"80 Z:"_s);
    EXPECT_EQ(host.progress.last(), u"end"_s);

    mountStick(machine, 1);
    shell.prompts.expectMessage(
        u"Connected drive E:\nType: Removable drive\nVolumeName: BOOT ME"_s);
    drives.mountsChanged();
    mountStick(machine, 2);
    shell.prompts.expectMessage(u"Connected drive F:\nType: Removable drive\nVolumeName: second"_s);
    drives.mountsChanged();
    EXPECT_EQ(shell.prompts.titles, QStringList({QString(), QString()}));

    // The second keeps its letter while the first is away; the first gets a free one again.
    unmountStick(machine, 1);
    shell.prompts.expectMessage(
        u"Disconnected drive E:\nType: Removable drive\nVolumeName: BOOT ME"_s);
    drives.mountsChanged();
    EXPECT_EQ(summary(drives), u"C Local ; D Local efi; F Removable second"_s);
    mountStick(machine, 1);
    shell.prompts.expectMessage(u"Connected drive E:"_s);
    drives.mountsChanged();
    EXPECT_EQ(summary(drives), u"C Local ; D Local efi; E Removable BOOT ME; F Removable second"_s);
}

TEST_F(DrivesTest, ChoosingADriveFindsItsDiskAndMenus)
{
    mountStick(machine, 1);
    mountStick(machine, 2);
    machine.write(u"/media/ann/second/menu.lst"_s, "title x\n");
    machine.write(u"/media/ann/second/OTHER.LST"_s, "title y\n");
    drives.RefreshDriveInfo(false, false);
    tool.report =
        "MountPoint        = E:\\\r\nPartition Name    = \\Device\\Harddisk1\\Partition1\r\n"
        "\r\nMountPoint        = F:\\\r\nPartition Name    = "
        "\\Device\\Harddisk12\\Partition1\r\n";
    shell.run.GfxOpened = true;
    drives.mnuFlash_FlashArr(1);
    EXPECT_EQ(shell.run.CurrentFlashChar, 'F');
    EXPECT_EQ(shell.run.CurrentFlashDisk, 12);
    EXPECT_TRUE(host.startEnabled);
    EXPECT_EQ(host.closes, 1);
    EXPECT_EQ(host.refills, 1);
    EXPECT_EQ(host.menus.selectCaption, u"Select MENU from flash drive F:"_s);
    EXPECT_EQ(host.menus.entries, QStringList({u"menu.lst"_s, u"OTHER.LST"_s}));
    EXPECT_TRUE(drives.flashEntries()[1].checked);
    EXPECT_FALSE(drives.flashEntries()[0].checked);
    EXPECT_EQ(drives.CurrentFlashLabel(), u"second"_s);
    // The tool is told the letters of this run; the suffix is last.
    EXPECT_TRUE(tool.command.contains(u"E:=/media/ann/BOOT_ME"_s));
    EXPECT_EQ(tool.command.last(), u",0"_s);

    // The same drive again leaves QEMU alone; another one ends it.
    drives.mnuFlash_FlashArr(1);
    EXPECT_EQ(host.closes, 1);
    drives.mnuFlash_FlashArr(0);
    EXPECT_EQ(host.closes, 2);
    EXPECT_EQ(shell.run.CurrentFlashDisk, 1);
    EXPECT_EQ(host.menus.entries, QStringList(u"No \"*.lst\" files"_s));
    EXPECT_FALSE(host.menus.anyFile);
    drives.mnuFlash_FlashArr(7);
    EXPECT_EQ(shell.run.CurrentFlashChar, 'E');
}

TEST_F(DrivesTest, PullingTheCurrentFlashClearsTheChoice)
{
    mountStick(machine, 1);
    drives.RefreshDriveInfo(false, false);
    drives.mnuFlash_FlashArr(0);
    shell.run.GfxOpened = true;
    const int closes = host.closes;
    unmountStick(machine, 1);
    shell.prompts.expectMessage(u"Disconnected drive E:"_s);
    drives.mountsChanged();
    EXPECT_EQ(shell.run.CurrentFlashChar, noFlash);
    EXPECT_EQ(host.closes, closes + 2);
    EXPECT_EQ(host.menuFileCleared, 1);
    EXPECT_EQ(host.embedded, 1);
    EXPECT_TRUE(host.menus.entries.empty());
    EXPECT_TRUE(host.menus.selectCaption.isEmpty());
    EXPECT_EQ(host.refills, 1);
    EXPECT_TRUE(drives.flashEntries().empty());
}

TEST_F(DrivesTest, TheLetterOfTheCurrentFlashWaitsForItsVolume)
{
    mountStick(machine, 1);
    drives.RefreshDriveInfo(false, false);
    drives.mnuFlash_FlashArr(0);
    unmountStick(machine, 1);
    drives.RefreshDriveInfo(false, false);
    mountStick(machine, 2);
    drives.RefreshDriveInfo(false, false);
    EXPECT_EQ(summary(drives), u"C Local ; D Local efi; F Removable second"_s);
    EXPECT_FALSE(drives.flashEntries()[0].checked);
    // Other drives do not get it even when there is no other letter left.
    for (int i = 0; i < 30; ++i)
        machine.mount(u"0:%1"_s.arg(100 + i), u"/mnt/v%1"_s.arg(i), u"nfs"_s, u"host:/v"_s);
    drives.RefreshDriveInfo(false, false);
    drives.RefreshDriveInfo(false, false);
    EXPECT_FALSE(drives.table()[4].Present);
    EXPECT_TRUE(drives.table()[25].Present);
    mountStick(machine, 1);
    drives.RefreshDriveInfo(false, false);
    EXPECT_EQ(drives.table()[4].VolumeName, u"BOOT ME"_s);
    EXPECT_TRUE(drives.flashEntries()[0].checked);
    // Given up, the letter is as free as any other.
    unmountStick(machine, 1);
    drives.mnuFlash_UnCheckAll();
    drives.RefreshDriveInfo(false, false);
    EXPECT_NE(drives.table()[4].VolumeName, QString());
}

TEST_F(DrivesTest, ReportsOfAllSorts)
{
    tool.report = "No drive here\nMountPoint        = K:\\\nModel             = Stick\n"
                  "Partition Name    = nothing known\n\nMountPoint        = L:\\\n"
                  "Partition Name    = \\Device\\Harddisk3\\Partition1";
    const QString title = u"FENNEL-GFX. USB Drives INFO"_s;
    shell.prompts.expectMessage(u"PhysicalDrive= 0\nMountPoint        = K:\\\nModel"_s);
    shell.prompts.expectMessage(u"PhysicalDrive= 3\nMountPoint        = L:\\\nPartition"_s);
    drives.mnuFlash_GetINFO();
    EXPECT_EQ(shell.prompts.titles, QStringList({title, title}));
    EXPECT_EQ(drives.List1().size(), 6);
    EXPECT_EQ(shell.run.CurrentFlashDisk, -1);

    shell.prompts.expectMessage(u"PhysicalDrive= 3\n"_s);
    drives.ListUsb('L', false);
    EXPECT_EQ(drives.List1().size(), 1);

    // A drive that the tool does not report has disk 0, which is never booted.
    drives.ListUsb('M', true);
    EXPECT_EQ(shell.run.CurrentFlashDisk, 0);
    tool.report = "MountPoint        = M:\\\nPartition Name    = \\Device\\Harddisk99999\\P\n";
    drives.ListUsb('M', true);
    EXPECT_EQ(shell.run.CurrentFlashDisk, 0);
    tool.report = QByteArray(100'000, '\0') + "\nMountPoint";
    drives.ListUsb('M', true);
    EXPECT_EQ(shell.run.CurrentFlashDisk, 0);
}

TEST_F(DrivesTest, AMissingToolOrReportIsTold)
{
    shell.run.CurrentFlashDisk = -1;
    tool.leavesFile = false;
    shell.member(u"../#ListUSB"_s, "MountPoint        = E:\\\nPartition Name    = \\Harddisk1\n");
    shell.prompts.expectMessage(u"ERROR...\nListUsbDrives crashed."_s);
    drives.ListUsb('E', true);
    EXPECT_EQ(shell.run.CurrentFlashDisk, -1); // an old report does not count

    shell.run.ToolListUsb = u"/no/such/tool"_s;
    shell.prompts.expectMessage(u"/no/such/tool not found!"_s);
    drives.ListUsb('E', true);
    EXPECT_EQ(shell.run.CurrentFlashDisk, -1);

    shell.prompts.expectMessage(u"Just select one of the flash drive listed below.\nFor this "
                                "flash drive (named \"Current Flash\") you can run QEMU"_s);
    drives.mnuFlash_Choose();
}

// The real tool on the same machine: what it prints is what the editor reads.
TEST_F(DrivesTest, TheBridgeReportsWithTheEditorsLetters)
{
    mountStick(machine, 2);
    machine.attribute(u"sda"_s, u"device/vendor"_s, u"Kingston"_s);
    machine.attribute(u"sda"_s, u"device/model"_s, u"DT 101"_s);
    machine.udev(u"8:0"_s, {u"ID_BUS=usb"_s, u"ID_SERIAL_SHORT=0013"_s});
    shell.run.ToolListUsb =
        fennel::test::binFolder() + QStringLiteral("/Tools/ListUsb/ListUsbDrives");
    Drives real(shell.shell, machine.source(), host);
    real.RefreshDriveInfo(false, false);
    mountStick(machine, 1);
    real.RefreshDriveInfo(false, false);
    qputenv(systemRootVariable, machine.root().toLocal8Bit());
    real.mnuFlash_FlashArr(0);
    EXPECT_EQ(shell.run.CurrentFlashDisk, 2);
    shell.prompts.expectMessage(
        u"PhysicalDrive= 1\nMountPoint        = F:\\\nVolume Label      = BOOT ME\n"
        "Mount Folder      = /media/ann/BOOT_ME\nPartition Name    = "
        "\\Device\\Harddisk1\\Partition1\n"
        "Device Node       = /dev/sda1\nDisk Node         = /dev/sda\nFile System       = vfat\n"
        "Volume Size       = 7.4 GB (7968129024 bytes)\nDisk Size         = 7.4 GB (7969177600 "
        "bytes)\nVendor            = Kingston\nModel             = DT 101\n"
        "Serial Number     = 0013\nBus Type          = USB\n"_s);
    real.ListUsb('F', false);

    // The other one goes, watched; the chosen one is counted anew.
    shell.prompts.expectMessage(u"Disconnected drive F:"_s);
    unmountStick(machine, 1);
    machine.removeDisk(u"sda"_s);
    real.mountsChanged();
    EXPECT_EQ(shell.run.CurrentFlashDisk, 1);
    // It is exchanged, unseen, for one with the same name.
    unmountStick(machine, 2);
    machine.removeDisk(u"sdb"_s);
    machine.disk(u"sdc"_s, u"8:32"_s, u"usb2/2-3"_s, 100, true);
    machine.mount(u"8:32"_s, u"/media/ann/second"_s, u"vfat"_s, u"/dev/sdc"_s);
    EXPECT_TRUE(real.askFlashDisk());
    EXPECT_EQ(shell.run.CurrentFlashDisk, 0);
    qunsetenv(systemRootVariable);
    // A tool that is gone is told once, not at every change.
    shell.run.CurrentFlashDisk = 1;
    shell.run.ToolListUsb = u"/no/such/tool"_s;
    shell.prompts.expectMessage(u"/no/such/tool not found!"_s);
    real.RefreshDriveInfo(false, false);
    machine.unmount(u"/media/ann/second"_s);
    real.RefreshDriveInfo(false, false);
    EXPECT_EQ(shell.run.CurrentFlashDisk, -1);
}

} // namespace
