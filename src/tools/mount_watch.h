// SPDX-License-Identifier: MIT
// News of the mount table: a drive came or went.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace fennel {

// Tells that the mount table of this process changed. The kernel wakes the event loop; nothing is
// polled and no privilege is needed. A burst of changes is told once.
class MountWatch : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~MountWatch() override;
    // False if this system has no mount table.
    bool start();
    void stop();
    [[nodiscard]] bool isOn() const { return m_notifier != nullptr; }

Q_SIGNALS:
    void changed();

private:
    int m_table = -1; // file descriptor
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_calm;
};

} // namespace fennel
