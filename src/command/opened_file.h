// SPDX-License-Identifier: MIT
// A message file that is open for a command: in a session of its own, without a window.
#pragma once

#include "command/command_run.h"
#include "document/session.h"

#include <memory>

namespace fennel {

struct OpenedFile {
    OpenedFile(const QString& appPath, const QString& defaultFont)
        : session(prompts, appPath, defaultFont)
    {
    }

    KeptPrompts prompts;
    Session session;
    QByteArray bytes; // as they were read
    MessageFile message;
};

// Null if that failed; then it was told, and `status` is at least as bad. `defaultFont`: see
// Session.
std::unique_ptr<OpenedFile> openFile(CommandRun& run, const QString& file, Status& status,
                                     const QString& defaultFont = {});

// The text of the menu that --menu names; empty without the option.
Result<QString> menuText(const CommandRun& run);

} // namespace fennel
