// SPDX-License-Identifier: MIT
// Unsaved work comes back: what is opened for it, and what is brought over it then.
#pragma once

#include "base/shell_context.h"
#include "document/document.h"
#include "document/journal_files.h"

namespace fennel {

// What a journal gives back, and what there is to say of it.
struct Restoring {
    QString path;      // to open; empty: nothing can be restored
    QString name;      // of the message file, as the title shows it
    QStringList words; // for the user: what is missing, and of the source file
    // Whether the engine was upgraded before; without it that is asked as ever.
    std::optional<bool> upgraded;
};

// The members are put as a message file into WorkspaceRoot. Without them the values go into the
// source file, as long as that is the one they were made for. Fails if the file cannot be written.
Result<Restoring> prepareRestore(const Shell& shell, const Restorable& found);

// The opened file is the unsaved work again, and a save goes to its source; nothing of it is a
// step.
void restoreValues(Document& document, RunState& run, const JournalValues& values);

} // namespace fennel
