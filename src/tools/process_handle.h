// SPDX-License-Identifier: MIT
// A running process that is no child of ours, held so that its number cannot come to mean another
// process.
#pragma once

#include "tools/drive_source.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <vector>

namespace fennel {

// The running processes of this user whose program is that file, links followed. A program that was
// deleted or replaced since is none of them.
std::vector<qint64> processesOf(const DriveSource& system, const QString& program);

class ProcessHandle : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~ProcessHandle() override; // the process goes on
    // False if there is no such process any more.
    bool open(qint64 pid);
    [[nodiscard]] qint64 pid() const { return m_pid; }
    [[nodiscard]] bool isRunning() const { return m_notifier != nullptr; }
    // Asks the process to end; what is still there after `limitMs` is killed.
    void close(int limitMs);
    // Ends the process at once; ended() follows as for any other end.
    void kill();

Q_SIGNALS:
    // Once, whatever ended the process.
    void ended();

private:
    void signalProcess(int number) const;
    void onEnd();

    qint64 m_pid = 0;
    int m_handle = -1; // pidfd
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_patience;
};

} // namespace fennel
