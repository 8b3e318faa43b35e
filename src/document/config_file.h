// SPDX-License-Identifier: MIT
// gfxboot.cfg between the Workspace and the document.
#pragma once

#include "base/shell_context.h"
#include "document/change.h"
#include "params/save_form.h"

namespace fennel {

// The lines of the file and its bytes; the engine is "init" in the Workspace, and without one no
// hidden parameter is offered. NotFound if there is no such file.
Result<CfgState> readConfig(const Shell& shell);

// Writes the lines, in the encoding that the file has, and reads it again, as the lines are what
// the file says and not what was meant. Kept: what was edited changes in its place, see keptCfg(),
// and a file of which nothing was edited is not written. Listed: over the start of the file; a
// longer old one is not cut, its tail stays, and comes back as lines. No lines never empty the
// file. On a failure the file is as it was.
Result<CfgState> writeConfig(const Shell& shell, const CfgLines& lines, SaveForm form);

// The bytes as they are, in place of the file.
Result<void> putConfig(const Shell& shell, const QByteArray& bytes);

} // namespace fennel
