// SPDX-License-Identifier: MIT
// The list of problems, in a window of its own beside the editor's: the stage and the lists stay in
// sight while the problems are gone through. It shows what it is given and tells what was chosen.
#pragma once

#include "checks/problems.h"

#include <QWidget>

class QLabel;
class QTreeWidget;

namespace fennel {

struct ShownProblem {
    Severity severity = Severity::Warning;
    QString sentence;
    QString advice;
    QString where; // object, member or parameter
    QString mend;  // empty: nothing does it by itself
};

class ProblemWindow : public QWidget {
    Q_OBJECT
public:
    explicit ProblemWindow(QWidget* parent);

    // Whoever stands on a problem goes on standing on it, as long as it is there.
    void showProblems(const std::vector<ShownProblem>& problems);
    // Mending waits while the list is older than what it speaks of.
    void setCurrent(bool current);
    // Beside its parent or under it, where the desktop has room; else over its lower edge.
    void placeBeside();

Q_SIGNALS:
    void chosen(int problem);     // by its place in the list
    void mendWanted(int problem); // the same

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addRow(const ShownProblem& problem);
    void fitRows();
    void showAdvice();
    void mendCurrent();

    QTreeWidget* m_list;
    QLabel* m_advice;
};

// A picture of the style for a problem of that kind; of none for good news.
QIcon severityIcon(const QWidget& widget, std::optional<Severity> severity);
// "2 errors, 1 warning, 3 notes", or that there is none.
QString countText(const std::vector<Problem>& problems);

} // namespace fennel
