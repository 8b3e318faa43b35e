// SPDX-License-Identifier: MIT
// Every command of `fennel`, in one table: what it is called, what it takes, what it does. The
// help, the man page and the completions of the shells are made from it.
#pragma once

#include "command/command_run.h"

#include <QStringView>

#include <span>

namespace fennel {

struct CommandOption {
    QStringView name;
    QStringView value; // what it takes, empty for a flag
    QStringView text;
    char16_t letter = 0;
};

struct Command {
    QStringView name;
    QStringView arguments; // as the help shows them
    int least = 0;         // of the arguments
    int most = 0;          // -1: any number
    std::span<const CommandOption> options;
    QStringView text;
    Status (*run)(CommandRun&);
};

std::span<const Command> commandTable();

// Runs what the arguments, without the program's name, ask for.
Status runCommandLine(const QString& appPath, const QStringList& arguments,
                      const CommandParts& parts = {});

// "fennel set FILE... NAME=VALUE... [-o OUT]" with its options; all commands without a name.
QString helpText(const Command* command);
QString manPage();
// For "bash", "zsh" and "fish"; empty for another shell.
QString completionScript(QStringView shell);

} // namespace fennel
