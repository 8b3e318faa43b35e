// SPDX-License-Identifier: MIT
// What will not boot as meant, told for people and for scripts.
#include "command/commands.h"

#include "checks/problems.h"
#include "command/opened_file.h"

#include <QJsonArray>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QJsonObject jsonOf(const Session& session, const Problem& problem)
{
    QJsonObject object{{u"name"_s, problem.name},
                       {u"severity"_s, severityName(problem.severity)},
                       {u"sentence"_s, problem.sentence},
                       {u"advice"_s, problem.advice}};
    if (const PanelRec* panel = session.document().object(problem.object))
        object[u"object"_s] = panel->Name;
    if (!problem.member.isEmpty())
        object[u"member"_s] = problem.member;
    if (!problem.parameter.isEmpty())
        object[u"parameter"_s] = problem.parameter;
    return object;
}

Status showProblems(CommandRun& run, const QString& file, const Session& session,
                    const std::vector<Problem>& problems)
{
    QJsonArray list;
    for (const Problem& problem : problems) {
        run.print(u"%1: %2: %3 %4 [%5]\n"_s.arg(file, severityName(problem.severity),
                                                problem.sentence, problem.advice, problem.name));
        list.append(jsonOf(session, problem));
    }
    run.add({{u"file"_s, file}, {u"problems"_s, list}});
    const bool bad = std::ranges::any_of(
        problems, [](const Problem& problem) { return problem.severity > Severity::Note; });
    return bad ? Status::Differs : Status::Done;
}

Status checkFile(CommandRun& run, const QString& file, const std::optional<QString>& menu)
{
    Status status = Status::Done;
    const auto opened = openFile(run, file, status);
    if (!opened)
        return status;
    Session& session = opened->session;
    CheckInput input{session.document().run(), session.document().state(), session.fonts().table,
                     menu};
    for (const MessageMember& member : opened->message.members)
        input.add(shownName(member.name), member.data);
    return showProblems(run, file, session, findProblems(input));
}

} // namespace

Status runCheck(CommandRun& run)
{
    const Result<QString> text = menuText(run);
    if (!text)
        return run.fail(run.option(u"menu"_s), text.failure());
    const auto menu = run.has(u"menu"_s) ? std::optional(*text) : std::nullopt;
    Status status = Status::Done;
    qsizetype done = 0;
    for (const QString& file : run.arguments()) {
        status = worse(status, checkFile(run, file, menu));
        run.progress(++done, run.arguments().size());
    }
    return status;
}

} // namespace fennel
