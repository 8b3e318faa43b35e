// SPDX-License-Identifier: MIT
#include "base/shell_context.h"

namespace fennel {

// Asked before every use of a tool, so that a missing one is told by its path instead of by a
// result that is not there.
bool Shell::toolThere(const QString& tool) const
{
    if (FileExists(tool))
        return true;
    prompts.ShowMessage(tool + QStringLiteral(" not found!"));
    return false;
}

void Shell::logFailure(const Failure& failure) const
{
    log.setPendingError(
        static_cast<int>(failure.kind) + 1, programTitle(),
        QString::fromStdString(failure.text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    (void)WriteLog(QStringLiteral("ERR"));
}

bool Shell::told(const Result<void>& result) const
{
    if (result)
        return true;
    logFailure(result.failure());
    prompts.ShowMessage(QString::fromStdString(result.failure().text), MessageType::Stop,
                        QStringLiteral("ERROR"));
    return false;
}

} // namespace fennel
