// SPDX-License-Identifier: MIT
// Writes the open gfxboot back as a message file. Until the last step the old file is whole; from
// then on the new one is.
#pragma once

#include "base/shell_context.h"

#include <functional>

namespace fennel {

// Brings the parameters from the lists into their files in the Workspace; false if that failed and
// the user was told.
using WriteParameters = std::function<bool()>;

// Saves under the name in the run state, gzipped if GfxIsGz. What somebody else wrote there since
// it was opened or saved is replaced only after a question. True if the file is written; otherwise
// the user was told why, and the old file is as it was.
bool GfxSave(const Shell& shell, const WriteParameters& writeParameters);

// Asks for a place, a name and whether to compress, and saves there. The run state names the new
// file only if it was written.
bool GfxSaveAs(const Shell& shell, const WriteParameters& writeParameters);

// Size and checksum of a file; without a path if it cannot be read.
FileMark markOf(const QString& path);

// The name that is proposed for a copy: the name up to its first point and "New", in every
// language: loaders do not read every letter.
QString proposedCopyName(const QString& name);
// The name of the file to write: no blanks, one ".gz" at the end if it is to be compressed; a ".gz"
// that was typed stays in any case.
QString savedName(const QString& chosen, bool compress);

// The common save dialog: its default title, "Canceled by user" for a cancelled one.
QString SaveDialog(const Shell& shell, const QString& folder, const QString& title,
                   const QString& proposedName);

// Asks before a file is replaced that the dialog did not ask about: `path` is what will be written,
// `chosen` what the user named.
bool mayReplace(const Shell& shell, const QString& path, const QString& chosen,
                const QString& title);

// Whether the open file may be read again: it is there, and the user gives up the changes.
bool mayReOpen(const Shell& shell);

} // namespace fennel
