// SPDX-License-Identifier: MIT
// What is left behind by a tool that was killed, or called off by the user.
#pragma once

#include "base/files.h"

namespace fennel {

// Removes a tool's output, and the unfinished one beside it, as far as they are there. What cannot
// be removed goes with the Workspace.
void dropOutput(Files& files, const QString& output);

} // namespace fennel
