// SPDX-License-Identifier: MIT
// One copy of the program for each user: a lock file that the first copy holds, and a local socket
// on which a second one asks the first to come to the front.
#pragma once

#include "base/running_copy.h"

#include <QObject>

#include <memory>
#include <optional>

class QLocalServer;
class QWidget;

namespace fennel {

class SingleInstance : public QObject {
    Q_OBJECT
public:
    // Only remembers where; nothing is made before acquire().
    explicit SingleInstance(QString folder = instanceFolder());
    ~SingleInstance() override; // gives the lock up

    // True if no other copy runs; this one then holds the lock and answers. The system itself drops
    // the lock of a process that ends in any way, so what a crashed run left keeps nobody out. A
    // place where no lock can be had at all counts as free.
    bool acquire();
    // Asks the copy that runs to raise its window. False if nobody listens there; a copy that is
    // busy gets the request when it is done.
    [[nodiscard]] bool askOtherToRaise(const QString& token) const;

Q_SIGNALS:
    // Another start of the program wants the window in front.
    void raiseRequested(const QString& token);
    // The same, to show this file.
    void openRequested(const QString& path);

private:
    // A locked file descriptor; nothing if another copy has the lock.
    [[nodiscard]] std::optional<int> lockFile();
    void listen();
    void onConnection();

    QString m_folder;
    QString m_lockPath;
    QString m_socketPath;
    std::unique_ptr<QLocalServer> m_server;
    int m_lock = -1;
    bool m_acquired = false;
};

// Brings a window to the front, with the token of the start that asked for it.
void raiseWindow(QWidget& window, const QString& token);

} // namespace fennel
