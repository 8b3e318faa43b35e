// SPDX-License-Identifier: MIT
// What nearly every procedure of the program uses, in one bundle that is passed as an argument. The
// referenced objects outlive it; main or a test owns them.
#pragma once

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
    // True if the tool is there; otherwise the user is shown its path and " not found!".
    [[nodiscard]] bool toolThere(const QString& tool) const;
    // The log's line for an error: the number is that of the kind, from 1.
    void logFailure(const Failure& failure) const;
    // Logs and shows a failure's sentence; true if there was none.
    bool told(const Result<void>& result) const;
};

} // namespace fennel
