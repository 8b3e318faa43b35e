// SPDX-License-Identifier: MIT
// WorkspaceRoot belongs to one run: a lock in it says so, whoever else looks into the temporary
// folder.
#pragma once

#include "base/shell_context.h"

namespace fennel {

class Descriptor;

// Makes the folder, or takes the one that an ended run left, with what it holds: only this user can
// enter it, and the lock is this run's as long as the result lives. Fails for a folder of another
// user's, for one that this program did not make, and for one that another run holds.
Result<std::shared_ptr<Descriptor>> takeRoot(Files& files, const QString& path);

// The system clears its temporary folder at times. If the root is not there any more, or not this
// run's, it is taken again.
Result<void> needRoot(const Shell& shell);

// A root of this user's that a run left or holds.
bool isLeftRoot(const QString& path);
// Removes the root with everything in it if `lock` holds it, and gives the lock up.
Result<void> removeRoot(Files& files, const QString& path, const std::shared_ptr<Descriptor>& lock);

} // namespace fennel
