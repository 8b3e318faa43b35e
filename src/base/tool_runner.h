// SPDX-License-Identifier: MIT
// Starts the bridges in the Tools folder and waits for them. Results are judged by the files that
// the tools leave, never by exit codes; what a tool says on standard error is kept for the message.
#pragma once

#include "base/log.h"
#include "base/picture_tool.h"
#include "base/progress.h"
#include "base/result.h"

#include <QPointer>
#include <QString>
#include <QStringList>

class QProcess;

namespace fennel {

// Whether a tool is there at all is asked, and told to the user, by Shell::toolThere().
class ToolRunner {
public:
    virtual ~ToolRunner() = default;
    // `commandLine`: the tool's path, its arguments, and last the suffix ",0". Nothing goes through
    // a shell. The result says whether the tool could be started, ended by itself and was not
    // killed by a signal; a tool that runs longer than the limit is ended, with all that it
    // started. The failure's text holds the last lines of the tool's standard error. An exit code
    // other than 0 is no failure. A tool that the user called off is a failure of the kind
    // Canceled.
    virtual Result<void> RunToolAndWait(const QStringList& commandLine) = 0;
    // The same with standard output and standard error written into a file.
    virtual Result<void> runIntoFile(const QStringList& commandLine, const QString& outputFile) = 0;
    // What the last run wrote to standard error, trimmed, at most 2,000 characters.
    [[nodiscard]] virtual QString lastErrorOutput() const = 0;
    // The picture bridge, which stays; Shell::pictures() names it.
    [[nodiscard]] PictureTool& pictures(const QString& tool);
    // Where work that lasts is shown; null if nowhere.
    [[nodiscard]] virtual Progress* progress() const { return nullptr; }

private:
    std::unique_ptr<PictureTool> m_pictures;
};

// "Canceled by user".
[[nodiscard]] Failure canceledByUser();

// The time after which a tool counts as hung.
inline constexpr int toolTimeLimitMs = 120'000;

class ProcessToolRunner : public ToolRunner {
public:
    explicit ProcessToolRunner(int timeLimitMs = toolTimeLimitMs) : m_timeLimitMs(timeLimitMs) {}
    Result<void> RunToolAndWait(const QStringList& commandLine) override;
    Result<void> runIntoFile(const QStringList& commandLine, const QString& outputFile) override;
    [[nodiscard]] QString lastErrorOutput() const override { return m_errorOutput; }
    // From now on every command line goes into the log, joined with blanks. The log must outlive
    // the runner.
    void logTo(Log& log) { m_log = &log; }
    // From now on the event loop turns while a tool runs, and the tool can be called off. Whoever
    // shows the progress keeps the user's input from the rest of the program meanwhile.
    void showIn(Progress& progress) { m_progress = &progress; }
    [[nodiscard]] Progress* progress() const override { return m_progress; }

private:
    enum class End { ByItself, OutOfTime, Canceled };
    Result<void> run(const QStringList& commandLine, const QString& outputFile);
    End waitFor(QProcess& process, const QString& tool);
    End turnLoop(QProcess& process, Progress& progress) const;
    int m_timeLimitMs;
    Log* m_log = nullptr;
    QPointer<Progress> m_progress;
    QString m_errorOutput;
};

} // namespace fennel
