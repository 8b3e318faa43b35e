// SPDX-License-Identifier: MIT
// Keeps the list of problems in line with the document: checks it anew, beside the window's thread,
// a moment after every change, shows the count in the status line, goes to what was chosen, and
// mends.
#pragma once

#include "checks/problems.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <vector>

namespace fennel {

class MainWindow;
class ProblemWindow;
struct DocumentChange;

class ProblemLink : public QObject {
    Q_OBJECT
public:
    // The window outlives the link.
    explicit ProblemLink(MainWindow& window);
    ~ProblemLink() override;

    // Something else than the document changed that the checks look at.
    void check();
    // Shows the window of the problems, or hides it.
    void toggle();
    // As they were found last.
    [[nodiscard]] const std::vector<Problem>& problems() const { return m_problems; }
    // No change came since.
    [[nodiscard]] bool current() const { return !m_running && !m_rest.isActive(); }

Q_SIGNALS:
    void checked();

private:
    void start();
    void take(std::vector<Problem> found);
    void show();
    void goTo(int problem);
    void mend(int problem);
    bool mendPicture(const Mend& mend);
    bool mendOrder(const Mend& mend);
    [[nodiscard]] QString whereIs(const Problem& problem) const;

    MainWindow& m_window;
    std::vector<Problem> m_problems;
    ProblemWindow* m_shown = nullptr; // a child of the window
    QTimer m_rest;
    QThreadPool m_thread; // one
    std::atomic<bool> m_stopped = false;
    bool m_running = false;
    bool m_again = false;
};

} // namespace fennel
