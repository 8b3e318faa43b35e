// SPDX-License-Identifier: MIT
#include "base/tool_runner.h"

#include "base/file_names.h"
#include "base/files.h"
#include "base/words.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <csignal>
#include <memory>
#include <unistd.h>
#include <vector>

namespace fennel {

namespace {
constexpr int keptErrorCharacters = 2000;

Failure toolFailure(const QString& tool, const QString& what, const QString& said)
{
    QString text = namePart(tool) + QLatin1Char(' ') + what;
    if (!said.isEmpty())
        text += QLatin1Char('\n') + said;
    return {FailureKind::ToolFailed, text.toStdString()};
}

// The words of a command as the system takes them: a path may be bytes of no encoding, which
// QProcess would change.
class Command {
public:
    explicit Command(const QStringList& words)
    {
        for (const QString& word : words)
            m_words.push_back(bytesOfPath(word));
        for (QByteArray& word : m_words)
            m_pointers.push_back(word.data());
        m_pointers.push_back(nullptr);
    }
    // Comes back only if the tool cannot be started.
    void become() const { (void)::execv(m_pointers.front(), m_pointers.data()); }

private:
    std::vector<QByteArray> m_words;
    std::vector<char*> m_pointers;
};

void prepare(QProcess& process, const QStringList& commandLine, const QString& outputFile,
             bool listened)
{
    if (outputFile.isEmpty() && !listened) {
        // Nobody reads it, and a full pipe would stop the tool for ever.
        process.setStandardOutputFile(QProcess::nullDevice());
    } else if (!outputFile.isEmpty()) {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardOutputFile(outputFile);
    }
    // A tool that asks a question gets an end of file instead of hanging.
    process.setStandardInputFile(QProcess::nullDevice());
    // A group of its own, so that what the tool starts can be ended with it. QProcess goes on, and
    // tells the reason, where the tool cannot be started.
    process.setChildProcessModifier([command = std::make_shared<Command>(commandLine)] {
        (void)::setpgid(0, 0);
        command->become();
    });
}

// Bridges tell how far they are in lines like "share 37"; the last one counts.
void showShare(QProcess& process, Progress& progress)
{
    const QByteArray said = process.readAllStandardOutput();
    const QByteArray word = QByteArrayLiteral("share ");
    const qsizetype at = said.lastIndexOf(word);
    bool good = false;
    const int percent = said.mid(at + word.size()).split('\n').first().toInt(&good);
    if (at >= 0 && good)
        progress.setShare(percent / 100.0);
}

void killGroup(QProcess& process)
{
    // Not waited for yet, so the number cannot have passed to another process.
    if (process.state() == QProcess::Running)
        (void)::kill(-static_cast<pid_t>(process.processId()), SIGKILL);
    process.kill();
    process.waitForFinished(1000);
}

} // namespace

Failure canceledByUser()
{
    return {FailureKind::Canceled, "Canceled by user"};
}

PictureTool& ToolRunner::pictures(const QString& tool)
{
    if (!m_pictures || m_pictures->tool() != tool)
        m_pictures = std::make_unique<PictureTool>(tool);
    return *m_pictures;
}

Result<void> ProcessToolRunner::RunToolAndWait(const QStringList& commandLine)
{
    return run(commandLine, {});
}

Result<void> ProcessToolRunner::runIntoFile(const QStringList& commandLine,
                                            const QString& outputFile)
{
    return run(commandLine, outputFile);
}

// A tool's exit code is never looked at: callers judge by the file it should have left, since the
// tools behind the bridges return codes of many meanings. Only a tool that did not start, hung or
// crashed is a failure here.
Result<void> ProcessToolRunner::run(const QStringList& commandLine, const QString& outputFile)
{
    m_errorOutput.clear();
    if (commandLine.isEmpty())
        return toolFailure(QStringLiteral("tool"), Words::tr("has no name."), {});
    if (m_log != nullptr)
        m_log->WriteLog(QStringLiteral("      ") + commandLine.join(QLatin1Char(' ')));
    const QString& tool = commandLine.first();
    QProcess process;
    prepare(process, commandLine, outputFile, !m_progress.isNull());
    process.start(tool, commandLine.mid(1), QIODevice::ReadOnly);
    if (!process.waitForStarted(m_timeLimitMs))
        return toolFailure(tool, Words::tr("could not be started."), process.errorString());
    const End end = waitFor(process, tool);
    if (end != End::ByItself)
        killGroup(process);
    if (outputFile.isEmpty())
        m_errorOutput =
            QString::fromUtf8(process.readAllStandardError()).right(keptErrorCharacters).trimmed();
    if (end == End::Canceled)
        return canceledByUser();
    if (end == End::OutOfTime)
        return toolFailure(tool, Words::tr("did not end in time and was stopped."), m_errorOutput);
    if (process.exitStatus() == QProcess::CrashExit)
        return toolFailure(tool, Words::tr("crashed."), m_errorOutput);
    return {};
}

ProcessToolRunner::End ProcessToolRunner::waitFor(QProcess& process, const QString& tool)
{
    if (m_progress.isNull())
        return process.waitForFinished(m_timeLimitMs) ? End::ByItself : End::OutOfTime;
    // Taken for this run: should anything in the event loop run a further tool, that one is waited
    // for in silence.
    Progress& progress = *m_progress;
    m_progress.clear();
    progress.begin(Words::tr("Waiting for ") + namePart(tool));
    const End end = turnLoop(process, progress);
    progress.end();
    m_progress = &progress;
    return end;
}

// For as long as nothing is shown the user's input waits in the window system's queue, so that what
// is typed during a short run is not lost.
ProcessToolRunner::End ProcessToolRunner::turnLoop(QProcess& process, Progress& progress) const
{
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&progress, &Progress::cancelRequested, &loop, &QEventLoop::quit);
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &loop, [&] {
        showShare(process, progress);
        // What goes on is not hung; the time without a sign of it counts.
        if (limit.isActive() && limit.interval() > Progress::patienceMs)
            limit.start();
    });
    const auto turn = [&](int timeMs, QEventLoop::ProcessEventsFlags flags) {
        // It may have ended before the loop listened.
        if (process.state() == QProcess::NotRunning || progress.cancelled())
            return;
        limit.start(timeMs);
        loop.exec(flags);
    };
    const int patience = std::min(Progress::patienceMs, m_timeLimitMs);
    turn(patience, QEventLoop::ExcludeUserInputEvents);
    if (m_timeLimitMs > patience && !limit.isActive())
        turn(m_timeLimitMs - patience, QEventLoop::AllEvents);
    if (process.state() == QProcess::NotRunning)
        return End::ByItself;
    // A loop that was left for any other reason was left because the program ends.
    return limit.isActive() || progress.cancelled() ? End::Canceled : End::OutOfTime;
}

} // namespace fennel
