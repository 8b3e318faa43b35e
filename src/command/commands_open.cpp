// SPDX-License-Identifier: MIT
// Handing a file over to the editor.
#include "command/commands.h"

#include "base/files.h"
#include "base/running_copy.h"

#include <QProcess>
#include <QThread>

#include <unistd.h>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// A start asks the machine for much; the file waits for it.
constexpr int startTimeMs = 30'000;
constexpr int stepMs = 100;

// The editor outlives the command: a script that reads what `fennel open` says must not wait for
// it.
bool startEditor(const QString& path)
{
    QProcess editor;
    editor.setProgram(path);
    editor.setStandardInputFile(QProcess::nullDevice());
    editor.setStandardOutputFile(QProcess::nullDevice());
    if (::isatty(STDERR_FILENO) == 0)
        editor.setStandardErrorFile(QProcess::nullDevice());
    return editor.startDetached();
}

Status startAndSend(CommandRun& run, const InstanceRequest& request)
{
    const QString editor = run.appPath() + u"/fennel-gfx"_s;
    if (!FileExists(editor) || !startEditor(editor))
        return run.fail(editor, {FailureKind::ToolFailed, "the editor cannot be started"});
    for (int waited = 0; waited < startTimeMs; waited += stepMs) {
        QThread::msleep(stepMs);
        if (sendToInstance(instanceFolder(), request))
            return Status::Done;
    }
    return run.fail(editor, {FailureKind::ToolFailed, "the editor does not answer"});
}

} // namespace

Status runOpen(CommandRun& run)
{
    const QString file = run.arguments().first();
    Status status = Status::Done;
    // Told here, where somebody reads it, and not in a window that comes up for it.
    if (file == dash || !run.read(file, status))
        return file == dash ? run.wrongUse(file, u"the editor opens files only"_s) : status;
    const InstanceRequest request{activationToken(), shortForm(file)};
    return sendToInstance(instanceFolder(), request) ? Status::Done : startAndSend(run, request);
}

} // namespace fennel
