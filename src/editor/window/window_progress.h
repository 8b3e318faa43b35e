// SPDX-License-Identifier: MIT
// How the window stands while a tool runs: it paints, and takes no input but "Cancel" and Escape.
// Work that lasts shows in the status line.
#pragma once

#include "base/progress.h"

#include <QTimer>

#include <functional>
#include <vector>

class QWidget;

namespace fennel {

class StatusBar;

class WindowProgress : public Progress {
    Q_OBJECT
public:
    // Both outlive this. Closing `window`, or a request that the program ends, calls the work off
    // and is carried out once the work is over.
    WindowProgress(QWidget& window, StatusBar& line);
    ~WindowProgress() override;

    void begin(const QString& what) override;
    void setShare(std::optional<double> share) override;
    void end() override;
    [[nodiscard]] bool cancelled() const override { return m_cancelled; }

    [[nodiscard]] bool busy() const { return m_busy; }
    // Does it now, or once no work is under way: for what comes from elsewhere than the user, such
    // as a drive that was plugged in.
    void whenIdle(std::function<void()> action);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void show();
    void cancel();
    void doWaiting();
    bool isForCancel(const QObject* receiver) const;

    QWidget& m_window;
    StatusBar& m_line;
    QTimer m_patience;
    QString m_what;
    std::optional<double> m_share;
    std::vector<std::function<void()>> m_waiting;
    bool m_busy = false;
    bool m_shown = false;
    bool m_cancelled = false;
    bool m_ending = false; // the program is to end after the work
};

} // namespace fennel
