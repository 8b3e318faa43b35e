// SPDX-License-Identifier: MIT
// What nearly every procedure of the program uses, in one bundle that is passed as an argument. The
// referenced objects outlive it; main or a test owns them.
#pragma once

#include "base/failure_words.h"
#include "base/files.h"
#include "base/log.h"
#include "base/prompts.h"
#include "base/run_state.h"
#include "base/tool_runner.h"

namespace fennel {

struct Shell {
    RunState& run;
    Log& log;
    Files& files;
    Prompts& prompts;
    ToolRunner& tools;

    QString WriteLog(const QString& text) const { return log.WriteLog(text); }
    // Otherwise the user is shown the tool's path and " not found!", and the failure is told.
    [[nodiscard]] Result<void> toolThere(const QString& tool) const;
    // Every picture of a file comes from there.
    [[nodiscard]] PictureTool& pictures() const { return tools.pictures(run.ToolNConvert); }
    // PictureTool::read(), shown as work that lasts.
    [[nodiscard]] Result<FilePicture> readPicture(const PictureWish& wish) const
    {
        return pictures().read(wish, tools.progress());
    }
    // The log's line for an error: the number is that of the kind, from 1.
    void logFailure(const Failure& failure) const;
    // Shows the failure to the user in words of the caller's own, once: the result counts as told.
    // `show` is not called for one that was told before, nor for what the user called off, which is
    // told in the same words everywhere.
    template <class Show>
    Failure tell(Failure failure, Show show) const
    {
        const QString text = failureWords(failure);
        if (!failure.told && failure.kind == FailureKind::Canceled)
            prompts.ShowMessage(text);
        else if (!failure.told)
            show(text);
        failure.told = true;
        return failure;
    }
    // The same in the failure's own words, and in the log.
    Failure tell(const Failure& failure) const;
    // tell(), if there was a failure; true if there was none.
    bool told(const Result<void>& result) const;
};

} // namespace fennel
