// SPDX-License-Identifier: MIT
// The boot test from the editor's side: who is started with what, and what the user hears. Scripts
// stand in for the bridge.
#include "support/machine_tree.h"
#include "support/test_shell.h"
#include "tools/flash_qemu.h"
#include "tools/video_bios.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString strange = QStringLiteral("Strange! It took about 5 seconds, \nand QEMU does not "
                                       "start. \nPerhaps there was an error.");

class RecordingQemuHost : public QemuHost {
public:
    std::vector<bool> enabled;
    std::vector<qint64> raised;
    void enableQemuStart(bool on) override { enabled.push_back(on); }
    void bringToFront(qint64 pid) override { raised.push_back(pid); }
    bool askFlashDisk() override
    {
        ++asked;
        return !answer || answer();
    }
    int asked = 0;
    std::function<bool()> answer; // none: the number is still right
};

class QemuTest : public testing::Test {
protected:
    QemuTest()
    {
        shell.run.CurrentFlashDisk = 2;
        shell.run.CurrentFlashChar = 'K';
    }
    ~QemuTest() override
    {
        qemu.closeQemu();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !alive(); }, 3000));
    }

    // The script gets the arguments of the bridge; "$4" is the folder, "$5" the log.
    void bridge(const QByteArray& text)
    {
        shell.run.ToolQemu = shell.script(u"bridge"_s, "echo $$ > \"$4/pid\"\n" + text);
    }
    [[nodiscard]] qint64 scriptPid() const
    {
        QFile file(shell.run.WorkspaceRoot + u"pid"_s);
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toLongLong() : 0;
    }
    [[nodiscard]] bool alive() const { return processRuns(scriptPid()); }

    TestShell shell;
    RecordingQemuHost host;
    FolderDriveSource system;
    QemuRun qemu{shell.shell, system, host, {.startMs = 1500, .closeMs = 300}};
};

constexpr char runs[] =
    "printf '%s|' \"$@\" > \"$4/said\"; echo $FENNEL_FLASH_LETTER >> \"$4/said\"\n"
    "echo 'QEMU is running.' >> \"$4/$5\"\nexec sleep 30\n";

TEST_F(QemuTest, RunsOnceAndEndsOnRequest)
{
    bridge(runs);
    QSignalSpy started(&qemu, &QemuRun::started);
    QSignalSpy ended(&qemu, &QemuRun::ended);
    qemu.RunQemu(2);
    ASSERT_TRUE(started.wait(3000));
    EXPECT_EQ(bytesOf(shell.run.WorkspaceRoot + u"said"_s),
              "2|VGA2|RAM256|" + shell.run.WorkspaceRoot.toUtf8() + "|#QEMU.log|,1|K\n");
    EXPECT_TRUE(qemu.isRunning());
    // A second start, whatever its mode, only shows the first.
    qemu.RunQemu(1);
    EXPECT_EQ(host.raised, std::vector<qint64>{qemu.processId()});
    EXPECT_EQ(host.asked, 1);
    EXPECT_EQ(qemu.processId(), scriptPid());
    qemu.closeQemu();
    EXPECT_FALSE(qemu.isRunning());
    ASSERT_TRUE(ended.wait(1000));
    EXPECT_FALSE(alive());
}

TEST_F(QemuTest, AProcessThatIgnoresTheRequestIsKilled)
{
    bridge("trap '' TERM\necho 'QEMU is running.' >> \"$4/$5\"\nwhile :; do sleep 0.1; done\n");
    QSignalSpy started(&qemu, &QemuRun::started);
    QSignalSpy ended(&qemu, &QemuRun::ended);
    qemu.RunQemu(2);
    ASSERT_TRUE(started.wait(3000));
    qemu.closeQemu();
    EXPECT_FALSE(ended.wait(100));
    EXPECT_TRUE(ended.wait(2000));
    EXPECT_FALSE(alive());
}

TEST_F(QemuTest, FailuresShowTheEndOfTheLog)
{
    bridge("for i in 1 2 3 4 5 6 7 8 9 10 11 12; do echo line$i >> \"$4/$5\"; done; exit 1\n");
    QSignalSpy ended(&qemu, &QemuRun::ended);
    shell.prompts.expectMessage(strange + u"\n\nline3\nline4"_s);
    qemu.RunQemu(2);
    EXPECT_TRUE(!ended.empty() || ended.wait(3000));
    EXPECT_TRUE(shell.prompts.texts.last().endsWith(u"line12"_s));
    EXPECT_FALSE(qemu.isRunning());
}

TEST_F(QemuTest, AHangingStartIsToldAndReplacedByTheNext)
{
    bridge("echo hangs >> \"$4/$5\"\nexec sleep 30\n");
    shell.prompts.expectMessage(strange + u"\n\nhangs"_s);
    qemu.RunQemu(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell.prompts.texts.size() == 1; }, 4000));
    const qint64 first = qemu.processId();
    EXPECT_TRUE(qemu.isRunning()); // it may yet come
    QFile::remove(shell.run.ToolQemu);
    bridge(runs);
    QSignalSpy started(&qemu, &QemuRun::started);
    qemu.RunQemu(2);
    EXPECT_TRUE(started.wait(3000));
    EXPECT_NE(qemu.processId(), first);
    EXPECT_TRUE(host.raised.empty());
}

// What an earlier run of the editor started, by links or not, and what is another program.
TEST_F(QemuTest, OneThatRunsAlreadyIsTakenOver)
{
    const QString program = shell.path(u"QEMU_bridge"_s);
    ASSERT_TRUE(QFile::copy(QFileInfo(u"/bin/sleep"_s).canonicalFilePath(), program));
    shell.run.ToolQemu = shell.path(u"link"_s);
    ASSERT_TRUE(QFile::link(program, shell.run.ToolQemu));
    QProcess running;
    QProcess second;
    QProcess stranger;
    running.start(program, {u"30"_s});
    stranger.start(u"/bin/sleep"_s, {u"30"_s});
    ASSERT_TRUE(running.waitForStarted() && stranger.waitForStarted());
    qemu.RunQemu(2);
    EXPECT_EQ(host.raised, std::vector<qint64>{running.processId()});

    second.start(program, {u"30"_s});
    ASSERT_TRUE(second.waitForStarted());
    qemu.closeQemu();
    EXPECT_TRUE(running.waitForFinished(3000));
    EXPECT_TRUE(second.waitForFinished(3000));
    EXPECT_FALSE(qemu.isRunning());
    EXPECT_EQ(stranger.state(), QProcess::Running);
    stranger.kill();
    stranger.waitForFinished();
}

TEST_F(QemuTest, TheSystemDiskIsRefused)
{
    bridge(runs);
    for (const int disk : {0, -1}) {
        shell.run.CurrentFlashDisk = disk;
        shell.prompts.expectMessage(
            u"For the safety of your Operating System FENNEL-GFX can\nrun QEMU only for removable "
            "disks.\n\nChoose one of them as \"Current Flash\" from menu \"Flash\""_s);
        qemu.RunQemu(2);
        EXPECT_FALSE(qemu.isRunning());
    }
    EXPECT_EQ(host.asked, 0);
    // The drive went since it was chosen; or nobody can tell, which the user has heard.
    shell.run.CurrentFlashDisk = 2;
    host.answer = [this] {
        shell.run.CurrentFlashDisk = 0;
        return true;
    };
    shell.prompts.expectMessage(u"run QEMU only for removable disks."_s);
    qemu.RunQemu(2);
    shell.run.CurrentFlashDisk = 2;
    host.answer = [] { return false; };
    qemu.RunQemu(2);
    EXPECT_FALSE(qemu.isRunning());
    EXPECT_EQ(host.enabled, std::vector<bool>({false, false, false}));
    shell.run.ToolQemu = u"/no/such/bridge"_s;
    shell.prompts.expectMessage(u"/no/such/bridge not found!"_s);
    qemu.RunQemu(2);
}

class VideoBiosTest : public testing::Test {
protected:
    VideoBiosTest()
    {
        shell.run.ToolsPath = shell.path(u"Tools/"_s);
        EXPECT_TRUE(DiskFiles().makeFolder(shell.run.ToolsPath + u"QEMU"_s).ok());
    }
    void bios(const QString& name, int length)
    {
        shell.file(u"Tools/QEMU/"_s + name, QByteArray(length, 'b'));
    }
    [[nodiscard]] QString states() const
    {
        QString text;
        for (const BiosState& state : biosStates(shell.run))
            text += QString(state.enabled ? u'e' : u'-') + (state.checked ? u'c' : u'-') + u' ';
        return text.trimmed();
    }
    TestShell shell;
};

TEST_F(VideoBiosTest, ChoosingOneCopiesItsFile)
{
    bios(u"vgabios-cirrus.bin"_s, 20);
    bios(u"vgabios800x600-24bit-1mb.bin"_s, 10);
    bios(u"vgabios.bin"_s, 10);
    BiosStates known = biosStates(shell.run);
    chooseBios(shell.shell, VideoBios::Standart, known); // checked already: nothing happens
    shell.prompts.expectMessage(u"memory, press \"Ins\" key, while the gfxboot @ZUK-MOSA@\nis"_s);
    chooseBios(shell.shell, VideoBios::Cirrus, known);
    EXPECT_EQ(states(), u"e- ec --"_s);
    EXPECT_TRUE(known[1].checked);
    EXPECT_FALSE(known[0].checked);
    // Installed, the choice is the user's own, and what lies beside the bridge stays.
    shell.run.Installed = true;
    shell.run.SettingsPath = shell.path(u"user"_s);
    EXPECT_TRUE(shell.files.makeFolder(shell.run.SettingsPath).ok());
    shell.prompts.expectMessage(u"memory"_s);
    chooseBios(shell.shell, VideoBios::Standart, known);
    EXPECT_EQ(states(), u"ec e- --"_s);
    shell.run.Installed = false;
    known = biosStates(shell.run);
    EXPECT_EQ(states(), u"e- ec --"_s);
    // A copy that fails leaves the old one in force.
    shell.files.failAt = shell.files.calls + 1;
    shell.prompts.expectMessage(u"No space left"_s);
    chooseBios(shell.shell, VideoBios::Standart, known);
    EXPECT_EQ(states(), u"e- ec --"_s);
    EXPECT_TRUE(known[1].checked);
}

} // namespace
