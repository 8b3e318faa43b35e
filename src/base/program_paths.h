// SPDX-License-Identifier: MIT
// Where a run finds its tools and makes its work files.
#pragma once

#include "base/run_state.h"

namespace fennel {

// The paths of the tools, from AppPath.
void setToolPaths(RunState& run);

// What holds WorkspaceRoot: the folder that the variable "Temp" names, if it is there, or the
// system's. Ends in "/".
QString temporaryFolder();

} // namespace fennel
