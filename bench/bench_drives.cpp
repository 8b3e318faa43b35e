// SPDX-License-Identifier: MIT
// The drive list on a machine with 30 volumes, from the files of the system to the entries of the
// menu. Limit: 20 ms.
#include "quiet_prompts.h"
#include "tools/drives.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

constexpr int volumes = 30;

class SilentHost : public FlashHost {
public:
    void driveProgress(int, const QString&) override {}
    void driveProgressEnds() override {}
    void flashChanged() override {}
    void closeQemu() override {}
    void enableQemuStart(bool) override {}
    void showFlashMenus(const FlashMenus&) override {}
    void clearMenuFile() override {}
    void refillMenuList() override {}
    void chooseEmbeddedMenu() override {}
};

// Sticks with an encrypted partition each: the longest way from a mount to its disk.
class ManySticks {
public:
    ManySticks()
    {
        QByteArray table = "20 1 0:20 / / rw - ext4 /dev/root rw\n";
        for (int i = 0; i < volumes; ++i)
            table += stick(i);
        write(mountTablePath, table);
    }
    [[nodiscard]] QString root() const { return m_folder.path(); }

private:
    void write(const QString& path, const QByteArray& bytes)
    {
        QDir().mkpath(root() + folderPart(path));
        (void)DiskFiles().write(root() + path, bytes);
    }
    void device(const QString& name, const QString& number, const QString& path)
    {
        write(path + u"/dev"_s, number.toUtf8() + '\n');
        for (const QString& link : {u"/sys/class/block/"_s + name, u"/sys/dev/block/"_s + number}) {
            QDir().mkpath(root() + folderPart(link));
            QFile::link(u"../../.."_s + path, root() + link);
        }
    }
    QByteArray stick(int i)
    {
        const QString disk =
            u"sd"_s + QChar(static_cast<char16_t>(u'a' + i % 26)) + (i < 26 ? u""_s : u"x"_s);
        const QString path = u"/sys/devices/pci0000:00/usb1/1-%1/block/"_s.arg(i) + disk;
        device(disk, u"8:%1"_s.arg(16 * i), path);
        device(disk + u'1', u"8:%1"_s.arg(16 * i + 1), path + u'/' + disk + u'1');
        write(path + u"/removable"_s, "1\n");
        write(path + u'/' + disk + u"1/partition"_s, "1\n");
        const QString mapper = u"dm-%1"_s.arg(i);
        const QString virtualPath = u"/sys/devices/virtual/block/"_s + mapper;
        device(mapper, u"253:%1"_s.arg(i), virtualPath);
        write(virtualPath + u"/slaves/"_s + disk + u'1', {});
        write(virtualPath + u"/size"_s, "2048\n");
        write(u"/run/udev/data/b253:%1"_s.arg(i),
              "E:ID_FS_LABEL_ENC=STICK\\x20" + QByteArray::number(i) + '\n');
        return u"30 1 253:%1 / /media/stick%1 rw - vfat /dev/%2 rw\n"_s.arg(i).arg(mapper).toUtf8();
    }
    QTemporaryDir m_folder;
};

void DriveList(benchmark::State& state)
{
    const ManySticks machine;
    const FolderDriveSource source(machine.root());
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    SilentHost host;
    const Shell shell{run, log, files, prompts, tools};
    Drives drives(shell, source, host);
    for (auto step : state)
        drives.RefreshDriveInfo(false, false);
    state.counters["entries"] = static_cast<double>(drives.flashEntries().size());
}
BENCHMARK(DriveList)->Unit(benchmark::kMillisecond);

} // namespace
