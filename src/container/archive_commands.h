// SPDX-License-Identifier: MIT
// The commands on archives that do not touch the open gfxboot: members into a folder and back, and
// gzip files of any content. Everything is made in WorkspaceRoot first; a failure is told and
// leaves the user's folders as they were.
#pragma once

#include "base/shell_context.h"

namespace fennel {

// Extracts a plain archive, with its "#.lst", into a folder of the user's choice, over files of the
// same names; never over the archive itself.
void mnuEdit_Extract(const Shell& shell);
// Assembles a folder in the order of its "#.lst"; one is made, and stays, if there is none. An
// archive whose proposed name was kept stays in WorkspaceRoot, and the user is told so.
void mnuEdit_Assemble(const Shell& shell);
// Unwraps a gzip file beside it. A file that is there already is replaced only after a question.
void mnuT_GZip_Extract(const Shell& shell);
// Compresses a file to a new one beside it with ".gz" at its name.
void mnuT_GZip_Pack(const Shell& shell);

inline const QString assembledName = QStringLiteral("###mess"); // in WorkspaceRoot

} // namespace fennel
