// SPDX-License-Identifier: MIT
// What will not boot as meant, told for people and for scripts.
#include "command/commands.h"

#include "base/files.h"
#include "checks/problems.h"
#include "document/session.h"

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

// The editor's own open reads a file; what comes from standard input is put into one.
Result<QString> fileFor(const Shell& shell, const QString& path, const QByteArray& bytes)
{
    if (path != dash)
        return path;
    const QString folder = shell.run.WorkspaceRoot + u"~input/"_s;
    Result<void> written = shell.files.makeFolder(folder);
    if (written)
        written = shell.files.write(folder + u"message"_s, bytes);
    return written ? Result<QString>(folder + u"message"_s) : written.failure();
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
    // Read before it is opened: a broken file is told in the words of the reader.
    const Result<QByteArray> bytes = readInput(file);
    const Result<MessageFile> message = bytes ? readMessage(*bytes) : bytes.failure();
    if (!message)
        return run.fail(file, message.failure());
    KeptPrompts prompts;
    Session session(prompts, run.appPath());
    if (const Result<void> made = session.made(); !made)
        return run.fail(file, made.failure());
    const Result<QString> path = fileFor(session.shell(), file, *bytes);
    if (!path)
        return run.fail(file, path.failure());
    if (!session.open(*path))
        return run.fail(file, {FailureKind::ToolFailed, prompts.told().join(u' ').toStdString()});
    CheckInput input{
        session.document().run(), session.document().state(), session.fonts().table, {}, menu};
    for (const MessageMember& member : message->members)
        input.members.push_back({shownName(member.name), member.data});
    return showProblems(run, file, session, findProblems(input));
}

} // namespace

Status runCheck(CommandRun& run)
{
    std::optional<QString> menu;
    if (const QString path = run.option(u"menu"_s); !path.isEmpty()) {
        const Result<QByteArray> bytes = readInput(path);
        if (!bytes)
            return run.fail(path, bytes.failure());
        menu = textForScreen(*bytes);
    }
    Status status = Status::Done;
    for (const QString& file : run.arguments())
        status = worse(status, checkFile(run, file, menu));
    return status;
}

} // namespace fennel
