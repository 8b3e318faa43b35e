// SPDX-License-Identifier: MIT
#include "tools/process_handle.h"

#include <QFileInfo>

#include <csignal>
#include <unistd.h>

// This header of glibc 2.36 does not say by itself that its functions are C.
extern "C" {
#include <sys/pidfd.h>
}

namespace fennel {

std::vector<qint64> processesOf(const DriveSource& system, const QString& program)
{
    std::vector<qint64> found;
    const QString wanted = QFileInfo(program).canonicalFilePath();
    for (const QString& name : system.names(QStringLiteral("/proc"))) {
        const QString folder = QStringLiteral("/proc/") + name;
        const qint64 pid = name.toLongLong(); // 0 for what is no process
        if (pid > 0 && QFileInfo(system.place(folder)).ownerId() == ::geteuid() &&
            !wanted.isEmpty() && system.resolved(folder + QStringLiteral("/exe")) == wanted)
            found.push_back(pid);
    }
    return found;
}

ProcessHandle::~ProcessHandle()
{
    // Before the descriptor is closed that it listens to.
    m_notifier.reset();
    if (m_handle >= 0)
        ::close(m_handle);
}

bool ProcessHandle::open(qint64 pid)
{
    m_pid = pid;
    // A handle and not the number: numbers are given out again, and a signal must never hit a
    // stranger.
    m_handle = pid > 0 ? ::pidfd_open(static_cast<pid_t>(pid), 0) : -1;
    if (m_handle < 0)
        return false;
    // The handle becomes readable when the process ends.
    m_notifier = std::make_unique<QSocketNotifier>(m_handle, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ProcessHandle::onEnd);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &ProcessHandle::kill);
    return true;
}

void ProcessHandle::signalProcess(int number) const
{
    // Gone once the process has ended.
    if (m_notifier)
        (void)::pidfd_send_signal(m_handle, number, nullptr, 0);
}

void ProcessHandle::close(int limitMs)
{
    signalProcess(SIGTERM);
    // A guest that does not listen is killed when its time is up.
    m_patience.start(limitMs);
}

void ProcessHandle::kill()
{
    signalProcess(SIGKILL);
}

void ProcessHandle::onEnd()
{
    m_patience.stop();
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // it is the sender
    Q_EMIT ended();
}

} // namespace fennel
