// SPDX-License-Identifier: MIT
// The two tools of the container as the editor calls them: cpio and gzip, each through its bridge.
#pragma once

#include "base/shell_context.h"

namespace fennel {

// Writes the archive's "#.lst" and extracts its members into `folder` (two runs of the bridge). The
// result is a failure, with the tool's reason, if no list was left. A missing tool is told to the
// user at once, here and below.
Result<void> CpioInfoExtract(const Shell& shell, const QString& archive, const QString& folder);

// Assembles the members that `folder`/#.lst names into `archive`, which is removed first.
Result<void> CpioAssemble(const Shell& shell, const QString& archive, const QString& folder);

// Unwraps a gzip file into `folder` and returns the name of its member; an empty name if the file
// does not begin as one or the tool is missing, which is told. A failure means that the file could
// not be read, or that it cannot be unwrapped; it may still be a plain archive.
Result<QString> SevenZipExtract(const Shell& shell, const QString& file, const QString& folder);

// Compresses one file to `outputFolder` + `outputName` (empty: "#message.gz") and returns the path
// of
// "#message.gz" there, whatever name was given.
Result<QString> SevenZipPack(const Shell& shell, const QString& input, const QString& outputFolder,
                             const QString& outputName);

} // namespace fennel
