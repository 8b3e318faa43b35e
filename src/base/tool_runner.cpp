// SPDX-License-Identifier: MIT
#include "base/tool_runner.h"

#include "base/files.h"

#include <QProcess>

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

} // namespace

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
        return toolFailure(QStringLiteral("tool"), QStringLiteral("has no name."), {});
    if (m_log != nullptr)
        m_log->WriteLog(QStringLiteral("      ") + commandLine.join(QLatin1Char(' ')));
    const QString& tool = commandLine.first();
    QProcess process;
    if (outputFile.isEmpty()) {
        // Nobody reads it, and a full pipe would stop the tool for ever.
        process.setStandardOutputFile(QProcess::nullDevice());
    } else {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardOutputFile(outputFile);
    }
    // A tool that asks a question gets an end of file instead of hanging.
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(tool, commandLine.mid(1), QIODevice::ReadOnly);
    if (!process.waitForStarted(m_timeLimitMs))
        return toolFailure(tool, QStringLiteral("could not be started."), process.errorString());
    const bool ended = process.waitForFinished(m_timeLimitMs);
    if (!ended) {
        process.kill();
        process.waitForFinished(1000);
    }
    if (outputFile.isEmpty())
        m_errorOutput =
            QString::fromUtf8(process.readAllStandardError()).right(keptErrorCharacters).trimmed();
    if (!ended)
        return toolFailure(tool, QStringLiteral("did not end in time and was stopped."),
                           m_errorOutput);
    if (process.exitStatus() == QProcess::CrashExit)
        return toolFailure(tool, QStringLiteral("crashed."), m_errorOutput);
    return {};
}

} // namespace fennel
