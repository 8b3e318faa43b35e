// SPDX-License-Identifier: MIT
#include "editor/problems/problem_link.h"

#include "base/files.h"
#include "base/words.h"
#include "checks/document_check.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "editor/commands/handlers.h"
#include "editor/lists/list_actions.h"
#include "editor/problems/problem_window.h"
#include "editor/window/flash_link.h"
#include "editor/window/main_window.h"
#include "editor/window/status_bar.h"
#include "editor/window/window_progress.h"
#include "params/object_table.h"
#include "tools/image_tool.h"

#include <QIcon>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int restMs = 10; // several changes of one command are checked once
const QString mendedName = u"~mended.jpg"_s;

} // namespace

ProblemLink::ProblemLink(MainWindow& window) : m_window(window)
{
    m_thread.setMaxThreadCount(1);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restMs);
    connect(&m_rest, &QTimer::timeout, this, &ProblemLink::start);
    connect(&window.document(), &Document::changed, this, [this](const DocumentChange& change) {
        // A drag is looked at when it ends.
        if (!change.live)
            check();
    });
}

ProblemLink::~ProblemLink()
{
    m_stopped = true;
    m_thread.waitForDone();
}

void ProblemLink::check()
{
    if (m_shown != nullptr)
        m_shown->setCurrent(false);
    if (!m_rest.isActive())
        m_rest.start();
}

void ProblemLink::start()
{
    if (m_running) {
        m_again = true;
        m_stopped = true;
        return;
    }
    if (m_window.progress().busy()) {
        m_window.progress().whenIdle([this] { check(); });
        return;
    }
    if (!m_window.shell().run.GfxOpened) {
        take({});
        return;
    }
    CheckedDocument checked =
        checkedDocument(m_window.document(), m_window.workbench().fonts.table);
    checked.drive = m_window.flashLink().menuDrive();
    checked.menuFile = m_window.workbench().params.CurrentMenuFile;
    m_running = true;
    m_again = false;
    m_stopped = false;
    m_thread.start([this, checked = std::move(checked)] {
        std::vector<Problem> found = findProblems(checked, m_stopped);
        QMetaObject::invokeMethod(
            this, [this, found = std::move(found)]() mutable { take(std::move(found)); },
            Qt::QueuedConnection);
    });
}

void ProblemLink::take(std::vector<Problem> found)
{
    m_running = false;
    if (m_again) {
        check();
        return;
    }
    m_problems = std::move(found);
    show();
    Q_EMIT checked();
}

QString ProblemLink::whereIs(const Problem& problem) const
{
    if (const PanelRec* panel = m_window.document().object(problem.object))
        return objectCaption(panel->Name);
    const bool known = problem.parameter.isEmpty() || problem.member == problem.parameter;
    return known ? problem.member : problem.parameter;
}

void ProblemLink::show()
{
    StatusBar& line = m_window.statusFields();
    const auto worst = m_problems.empty() ? std::optional<Severity>() : m_problems[0].severity;
    line.setProblems(severityIcon(line, worst),
                     m_window.shell().run.GfxOpened ? QString::number(m_problems.size())
                                                    : QString(),
                     countText(m_problems) + u" (F7)"_s);
    if (m_shown == nullptr)
        return;
    std::vector<ShownProblem> rows;
    for (const Problem& problem : m_problems)
        rows.push_back({problem.severity, problem.sentence, problem.advice, whereIs(problem),
                        problem.mend ? problem.mend->what : QString()});
    m_shown->setWindowTitle(Words::tr("Problems: %1").arg(countText(m_problems)));
    m_shown->showProblems(rows);
    m_shown->setCurrent(current());
}

void ProblemLink::toggle()
{
    if (m_shown == nullptr) {
        m_shown = new ProblemWindow(&m_window);
        connect(m_shown, &ProblemWindow::chosen, this, &ProblemLink::goTo);
        connect(m_shown, &ProblemWindow::mendWanted, this, &ProblemLink::mend);
        m_shown->placeBeside();
        show();
    }
    m_shown->setVisible(!m_shown->isVisible());
    m_shown->activateWindow();
}

void ProblemLink::goTo(int problem)
{
    if (problem < 0 || problem >= static_cast<int>(m_problems.size()) ||
        m_window.progress().busy() || m_window.document().inGesture())
        return;
    showPlace(m_window,
              placeOf(m_window.document().state(), m_problems[static_cast<std::size_t>(problem)]));
}

void ProblemLink::mend(int problem)
{
    if (problem < 0 || problem >= static_cast<int>(m_problems.size()) || !current() ||
        m_window.progress().busy() || !CommitValue(m_window))
        return;
    const Problem mended = m_problems[static_cast<std::size_t>(problem)];
    // What was typed is another document: its problems are not known yet.
    if (!mended.mend || !current())
        return;
    Document& document = m_window.document();
    if (!mended.mend->change.params.empty() && document.menuLevelShown()) {
        m_window.shell().prompts.ShowMessage(overlappedText(), MessageType::Ok,
                                             Words::tr("MenuLevel data"));
        return;
    }
    const StepPlace place = placeOf(document.state(), mended);
    const StepInfo info{Words::tr("mending of %1").arg(whereIs(mended)), place, {}};
    const bool members = !mended.mend->picture.isEmpty() || !mended.mend->first.isEmpty();
    if (!members)
        (void)document.apply(mended.mend->change, info);
    else if (document.changeMembers(info, [&] {
                 return mended.mend->first.isEmpty() ? mendPicture(*mended.mend)
                                                     : mendOrder(*mended.mend);
             }))
        showMembers(m_window);
    showPlace(m_window, place);
}

bool ProblemLink::mendPicture(const Mend& mend)
{
    const Shell& shell = m_window.shell();
    const QString member = shell.run.Workspace + mend.picture;
    const QString made = shell.run.WorkspaceRoot + mendedName;
    return ResizeJpg(shell, mend.size.width(), mend.size.height(), member, made) &&
           shell.told(shell.files.rename(made, member));
}

bool ProblemLink::mendOrder(const Mend& mend)
{
    const Shell& shell = m_window.shell();
    const Result<QByteArray> list = readBytes(shell.run.Workspace + memberListName);
    if (!list)
        return shell.told(list.failure());
    QByteArray first;
    QByteArray others;
    for (const MemberName& name : memberNames(*list))
        (name.text == mend.first && first.isEmpty() ? first : others) += name.bytes + "\r\n";
    return shell.told(putMember(shell, memberListName, first + others));
}

} // namespace fennel
