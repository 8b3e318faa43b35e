// SPDX-License-Identifier: MIT
#include "base/shell_context.h"

#include "base/words.h"
#include "base/workspace_root.h"

namespace fennel {

// Asked before every use of a tool, so that a missing one is told by its path instead of by a
// result that is not there.
Result<void> Shell::toolThere(const QString& tool) const
{
    if (const Result<void> place = needRoot(*this); !place)
        return tell(place.failure());
    if (FileExists(tool))
        return {};
    const Failure missing{FailureKind::NotFound, (tool + Words::tr(" not found!")).toStdString()};
    return tell(missing, [this](const QString& text) { prompts.ShowMessage(text); });
}

void Shell::logFailure(const Failure& failure) const
{
    log.setPendingError(
        static_cast<int>(failure.kind) + 1, programTitle(),
        QString::fromStdString(failure.text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    (void)WriteLog(QStringLiteral("ERR"));
}

Failure Shell::tell(const Failure& failure) const
{
    return tell(failure, [&](const QString& text) {
        logFailure(failure);
        prompts.ShowMessage(text, MessageType::Stop, Words::tr("ERROR"));
    });
}

bool Shell::told(const Result<void>& result) const
{
    if (!result)
        (void)tell(result.failure());
    return result.ok();
}

} // namespace fennel
