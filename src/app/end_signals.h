// SPDX-License-Identifier: MIT
// Lets the program end as by its menu when the session or a terminal tells it to (SIGTERM, SIGINT,
// SIGHUP), so that the temporary root goes then too.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <memory>

namespace fennel {

// One for a process. The signal handler only writes into a pipe; the event loop does the rest.
class EndSignals : public QObject {
    Q_OBJECT
public:
    EndSignals();
    ~EndSignals() override;

Q_SIGNALS:
    void endRequested();

private:
    std::array<int, 2> m_pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace fennel
