// SPDX-License-Identifier: MIT
// The QEMU bridge with an image file in place of a stick. The guest is a boot sector that writes to
// its disk, reads that back, and turns the machine off if it is the same.
#include "support/bin_folder.h"
#include "support/machine_tree.h"
#include "support/run_program.h"
#include "tools/dying_qemu.h"

#include <QCryptographicHash>
#include <QStandardPaths>
#include <QTest>

#include <unistd.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString bridgePath = fennel::test::binFolder() + QStringLiteral("/Tools/QEMU/QEMU_bridge");
constexpr int guestMs = 60'000; // without KVM on a loaded machine

// 16-bit code at 0000:7C00. int 13h writes the sector of the code to sector 2 of disk 80h and reads
// it to 8000h; if both are the same, the ACPI port 604h of the machine turns it off.
constexpr char writingGuest[] = "31C08ED88EC08ED0BC007C" // all segments 0, the stack below the code
                                "B80103BB007CB90200BA8000CD1372" // write one sector
                                "25"                             // on an error to the end
                                "B80102BB0080B90200BA8000CD1372" // read it back
                                "15"
                                "BE007CBF0080B90001FCF3A775" // compare 256 words
                                "07"
                                "BA0406B80020EF" // off
                                "F4EBFD";        // halt for ever
constexpr char haltedGuest[] = "F4EBFD";

class QemuBridge : public testing::Test {
protected:
    QemuBridge()
    {
        machine.disk(u"sda"_s, u"8:0"_s, u"ata1"_s, 8);
        machine.disk(u"sdb"_s, u"8:16"_s, u"usb1/1-1"_s, 8, true);
        machine.mount(u"8:0"_s, u"/"_s, u"ext4"_s, u"/dev/sda"_s);
        image(u"sda"_s, writingGuest);
        image(u"sdb"_s, writingGuest);
        environment.insert(QLatin1String(systemRootVariable), machine.root());
        environment.insert(u"FENNEL_QEMU_DISPLAY"_s, u"none"_s);
        environment.insert(u"FENNEL_FLASH_LETTER"_s, u"E"_s);
    }

    void image(const QString& disk, const char* code)
    {
        QByteArray bytes = QByteArray::fromHex(code).leftJustified(510, '\0') + "\x55\xaa";
        bytes.append(8 * 1024 * 1024 - 512, '\0');
        machine.write(u"/dev/"_s + disk, bytes);
    }
    [[nodiscard]] QByteArray checksum(const QString& disk) const
    {
        return QCryptographicHash::hash(bytesOf(machine.root() + u"/dev/"_s + disk),
                                        QCryptographicHash::Sha256);
    }
    [[nodiscard]] QString log() const
    {
        const auto bytes = readBytes(shell.run.WorkspaceRoot + u"#QEMU.log"_s);
        return bytes ? QString::fromUtf8(*bytes) : QString();
    }
    void start(QProcess& process, const QString& disk, const QString& card = u"VGA2"_s)
    {
        process.setProcessEnvironment(environment);
        process.start(bridgePath,
                      {disk, card, u"RAM256"_s, shell.run.WorkspaceRoot, u"#QEMU.log"_s, u",1"_s});
    }
    int run(const QString& disk, const QString& card = u"VGA2"_s)
    {
        QProcess process;
        start(process, disk, card);
        return process.waitForFinished(guestMs) && process.exitStatus() == QProcess::NormalExit
                   ? process.exitCode()
                   : -1;
    }
    bool waitForRunning()
    {
        return QTest::qWaitFor([&] { return log().contains(u"QEMU is running."_s); }, 15'000);
    }

    TestShell shell;
    MachineTree machine;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

TEST_F(QemuBridge, TheGuestsWritesNeverReachTheDisk)
{
    if (QStandardPaths::findExecutable(u"qemu-system-x86_64"_s).isEmpty())
        GTEST_SKIP() << "qemu-system-x86 is not installed";
    const QByteArray before = checksum(u"sdb"_s);
    for (const QString& card : {u"VGA1"_s, u"VGA2"_s, u"VGAxxx"_s}) {
        // The guest turns the machine off only after it has read back what it wrote.
        EXPECT_EQ(run(u"1"_s, card), 0) << log().toStdString();
        EXPECT_EQ(checksum(u"sdb"_s), before);
    }
    EXPECT_TRUE(
        log().contains(u"-name QEMU. Flash Drive - E:   (press Ctrl+Alt to unlock mouse)"_s));
    EXPECT_TRUE(log().contains(u"VGA,vgamem_mb=16,romfile="_s));
    EXPECT_TRUE(log().contains(u"-nic none"_s));
    // What the guest wrote was in a temporary file, and that is gone.
    EXPECT_EQ(QDir(shell.run.WorkspaceRoot).entryList(QDir::Files), QStringList(u"#QEMU.log"_s));
}

TEST_F(QemuBridge, ARequestEndsTheMachineAndAKillTakesItAlong)
{
    if (QStandardPaths::findExecutable(u"qemu-system-x86_64"_s).isEmpty())
        GTEST_SKIP() << "qemu-system-x86 is not installed";
    image(u"sdb"_s, haltedGuest);
    QProcess process;
    start(process, u"1"_s);
    ASSERT_TRUE(waitForRunning()) << log().toStdString();
    process.terminate();
    EXPECT_TRUE(process.waitForFinished(5000));
    EXPECT_TRUE(log().contains(u"terminating on signal 15"_s));

    QFile::remove(shell.run.WorkspaceRoot + u"#QEMU.log"_s);
    QProcess killed;
    start(killed, u"1"_s);
    ASSERT_TRUE(waitForRunning()) << log().toStdString();
    const Ran children = runProgram(u"pgrep"_s, {u"-P"_s, QString::number(killed.processId())});
    const qint64 machinePid = children.out.trimmed().toLongLong();
    killed.kill();
    EXPECT_TRUE(killed.waitForFinished(5000));
    ASSERT_GT(machinePid, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !processRuns(machinePid); }, 5000));
}

TEST_F(QemuBridge, AGuestThatDiesOfKvmStartsAgainWithoutIt)
{
    if (QStandardPaths::findExecutable(u"qemu-system-x86_64"_s).isEmpty())
        GTEST_SKIP() << "qemu-system-x86 is not installed";
    environment.insert(u"FENNEL_QEMU_KVM"_s, u"1"_s);
    environment.insert(u"PATH"_s, QString::fromUtf8(dyingQemu(shell) + ':' + qgetenv("PATH")));
    EXPECT_EQ(run(u"1"_s), 0) << log().toStdString();
    EXPECT_TRUE(log().contains(u"KVM failed: again without it."_s));
    EXPECT_EQ(bytesOf(shell.run.WorkspaceRoot + u"starts"_s), "kvm tcg ");
}

TEST_F(QemuBridge, WhatMustNotBeBootedIsRefused)
{
    // Disk 0 by its number in every spelling, and numbers that are none.
    for (const QString& disk :
         {u"0"_s, u"00"_s, u"-1"_s, u"+1"_s, u"1x"_s, u""_s, u" 1"_s, u"4294967297"_s, u"sdb"_s})
        EXPECT_EQ(run(disk), 2) << disk.toStdString();
    EXPECT_TRUE(log().contains(u"\"sdb\" is no disk number."_s));
    EXPECT_EQ(run(u"2"_s), 2); // gone
    EXPECT_TRUE(log().contains(u"There is no disk 2"_s));
    // A built-in disk that has taken over the number of a stick.
    machine.disk(u"sdaa"_s, u"65:160"_s, u"ata2"_s, 8);
    image(u"sdaa"_s, writingGuest);
    EXPECT_EQ(run(u"2"_s), 2);
    EXPECT_TRUE(log().contains(u"Disk 2 (/dev/sdaa) is built in"_s)) << log().toStdString();
    // Where the system's disk is not known, no fixed disk can be reached.
    machine.unmount(u"/"_s);
    EXPECT_EQ(run(u"2"_s), 2);
    // A folder, or nothing, where the disk should be.
    ASSERT_TRUE(QFile::remove(machine.root() + u"/dev/sdb"_s));
    EXPECT_EQ(run(u"1"_s), 2);
    EXPECT_TRUE(log().contains(u"could not be opened"_s));
    ASSERT_TRUE(QDir().mkpath(machine.root() + u"/dev/sdb"_s));
    EXPECT_EQ(run(u"1"_s), 2);
    EXPECT_TRUE(log().contains(u"is not the disk 1"_s));
    EXPECT_EQ(run(u"1"_s, u"EGA"_s), 2);
}

TEST_F(QemuBridge, TheLogTellsWhatIsMissing)
{
    environment.remove(u"FENNEL_QEMU_DISPLAY"_s);
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    const QString path = environment.value(u"PATH"_s);
    environment.insert(u"PATH"_s, shell.path(u"empty"_s));
    EXPECT_EQ(run(u"1"_s), 2);
    EXPECT_TRUE(log().contains(u"install the package qemu-system-x86"_s));
    environment.insert(u"PATH"_s, path);
    environment.insert(u"FENNEL_QEMU_DISPLAY"_s, u"none"_s);
    // No right to read the disk. Root may read everything.
    if (::geteuid() == 0)
        return;
    QFile::setPermissions(machine.root() + u"/dev/sdb"_s, QFile::WriteOwner);
    EXPECT_EQ(run(u"1"_s), 2);
    EXPECT_TRUE(log().contains(u"Become a member of the group"_s));
}

} // namespace
