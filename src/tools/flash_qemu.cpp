// SPDX-License-Identifier: MIT
#include "tools/flash_qemu.h"

#include "base/words.h"
#include "tools/kvm.h"
#include "tools/video_bios.h"

#include <QProcess>

#include <algorithm>
#include <utility>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

const QString guestMemory = u"RAM256"_s; // in MB; the bridge gives it to the machine
constexpr int lookMs = 100;
// What fits into a message; the reason stands at the log's end.
constexpr qsizetype shownLines = 10;
constexpr qsizetype shownCharacters = 1500;
constexpr qint64 logLimit = 16LL * 1024 * 1024;

// The bridge's words for its video cards.
QString vgaWord(int mode)
{
    if (mode == 1)
        return u"VGA1"_s;
    return mode == 2 ? u"VGA2"_s : u"VGAxxx"_s;
}

QString lastLines(const QString& text)
{
    const QStringList lines = text.trimmed().split(u'\n');
    const qsizetype first = std::max<qsizetype>(0, lines.size() - shownLines);
    return lines.mid(first).join(u'\n').right(shownCharacters);
}

} // namespace

QemuRun::QemuRun(const Shell& shell, const DriveSource& source, QemuHost& host, QemuLimits limits,
                 QObject* parent)
    : QObject(parent), m_shell(shell), m_source(source), m_host(host), m_limits(limits)
{
    m_look.setInterval(lookMs);
    m_limit.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &QemuRun::lookAtLog);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        // A last look: the line may have come since the one before.
        lookAtLog();
        if (m_phase != Phase::Starting)
            return;
        m_look.stop();
        // It is left running, since a slow machine may still get there.
        m_phase = Phase::Late;
        tellFailure();
    });
}

QemuRun::~QemuRun() = default;

// Disk 0 is the system's: a guest writing to the running system's disk would destroy it.
bool QemuRun::mayBoot() const
{
    if (m_shell.run.CurrentFlashDisk >= 1)
        return true;
    m_shell.prompts.ShowMessage(
        Words::tr("For the safety of your Operating System FENNEL-GFX can\n"
                  "run QEMU only for removable disks.\n\n"
                  "Choose one of them as \"Current Flash\" from menu \"Flash\""));
    m_host.enableQemuStart(false);
    return false;
}

void QemuRun::RunQemu(int mode)
{
    if (!m_shell.toolThere(m_shell.run.ToolQemu) || !mayBoot())
        return;
    if (m_phase == Phase::Late && logText().contains(qemuRunningLine))
        m_phase = Phase::Running;
    // One guest at a time: two would write to the same disk.
    if ((m_process || adopt()) && m_phase != Phase::Late) {
        m_host.bringToFront(m_process->pid());
        return;
    }
    closeQemu(); // one that was started and never ran
    // Disks are counted in the order of their names: since the drive was chosen its number may have
    // passed to another disk.
    if (!m_host.askFlashDisk() || !mayBoot())
        return;
    const RunState& run = m_shell.run;
    m_arguments = {QString::number(run.CurrentFlashDisk),
                   vgaWord(mode),
                   guestMemory,
                   run.WorkspaceRoot,
                   qemuLogName,
                   u",1"_s};
    if (!m_shell.told(m_shell.files.remove(run.WorkspaceRoot + qemuLogName)))
        return;
    qint64 pid = 0;
    if (launch(pid))
        watch(pid);
}

bool QemuRun::launch(qint64& pid)
{
    QProcess process;
    process.setProgram(m_shell.run.ToolQemu);
    process.setArguments(m_arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    // Detached from our channels: the guest may outlive the program and must not write into a
    // closed pipe.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(flashLetterVariable),
                       QString(QChar(static_cast<char16_t>(m_shell.run.CurrentFlashChar))));
    environment.insert(QLatin1String(flashImageVariable), m_host.flashImagePath());
    if (m_shell.run.KvmFails)
        environment.insert(QLatin1String(kvmVariable), u"0"_s);
    environment.insert(QLatin1String(videoBiosVariable), biosInForce(m_shell.run));
    process.setProcessEnvironment(environment);
    if (process.startDetached(&pid))
        return true;
    m_shell.prompts.ShowMessage(namePart(m_shell.run.ToolQemu) +
                                Words::tr(" could not be started.\n") + process.errorString());
    return false;
}

bool QemuRun::hold(qint64 pid)
{
    m_process = new ProcessHandle(this);
    connect(m_process, &ProcessHandle::ended, this, &QemuRun::onEnd);
    return m_process->open(pid);
}

void QemuRun::watch(qint64 pid)
{
    m_phase = Phase::Starting;
    m_look.start();
    m_limit.start(m_limits.startMs);
    if (!hold(pid)) // it has ended already
        onEnd();
}

// Takes over a QEMU that is not ours yet; those that were asked to end are still ours.
bool QemuRun::adopt()
{
    const auto held = findChildren<ProcessHandle*>();
    for (const qint64 pid : processesOf(m_source, m_shell.run.ToolQemu)) {
        const bool ours = std::any_of(held.begin(), held.end(), [pid](const ProcessHandle* handle) {
            return handle->pid() == pid;
        });
        if (ours)
            continue;
        const bool open = hold(pid);
        // Looked at again: before the handle held it, the number may have changed hands.
        const auto now = processesOf(m_source, m_shell.run.ToolQemu);
        if (open && std::find(now.begin(), now.end(), pid) != now.end()) {
            m_phase = Phase::Running; // its log is gone, so nothing tells more
            return true;
        }
        delete std::exchange(m_process, nullptr);
    }
    return false;
}

void QemuRun::lookAtLog()
{
    if (m_phase != Phase::Starting || !logText().contains(qemuRunningLine))
        return;
    m_look.stop();
    m_limit.stop();
    m_phase = Phase::Running;
    noteKvm();
    Q_EMIT started();
}

// Remembered for the run: the next start is spared the attempt.
void QemuRun::noteKvm()
{
    if (m_shell.run.KvmFails || !logText().contains(kvmDiedLine))
        return;
    m_shell.run.KvmFails = true;
    m_shell.WriteLog(u"      "_s + kvmDiedLine);
}

void QemuRun::onEnd()
{
    lookAtLog();
    noteKvm();
    // A guest that ran and was closed by its user is no failure.
    const bool failed = m_phase == Phase::Starting;
    m_look.stop();
    m_limit.stop();
    // It is the sender.
    m_process->deleteLater();
    m_process = nullptr;
    m_phase = Phase::None;
    if (failed)
        tellFailure();
    Q_EMIT ended();
}

void QemuRun::tellFailure()
{
    const QString said = lastLines(logText());
    const QString text = Words::tr("Strange! It took about 5 seconds, \nand QEMU does not start. \n"
                                   "Perhaps there was an error.") +
                         (said.isEmpty() ? QString() : u"\n\n"_s + said);
    m_host.whenIdle([&prompts = m_shell.prompts, text] { prompts.ShowMessage(text); });
}

// A log that is not there yet reads as empty.
QString QemuRun::logText() const
{
    const Result<QByteArray> bytes = readBytes(m_shell.run.WorkspaceRoot + qemuLogName, logLimit);
    return bytes ? QString::fromUtf8(*bytes) : QString();
}

void QemuRun::closeQemu()
{
    while (m_process || adopt())
        letGo();
}

void QemuRun::letGo()
{
    ProcessHandle* leaving = m_process;
    // Let go at once: a new guest may be started while the old one still ends.
    m_process = nullptr;
    m_phase = Phase::None;
    m_look.stop();
    m_limit.stop();
    disconnect(leaving, &ProcessHandle::ended, this, nullptr);
    connect(leaving, &ProcessHandle::ended, this, &QemuRun::ended);
    connect(leaving, &ProcessHandle::ended, leaving, &QObject::deleteLater);
    leaving->close(m_limits.closeMs);
}

} // namespace fennel
