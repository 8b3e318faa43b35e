// SPDX-License-Identifier: MIT
// The folders in which unsaved work is kept, one for a gfxboot, all in one folder of the user's:
//   new-…   being written for the first time; not to be read
//   work-…  a journal: "values" (journal_values.h), the members it names, and "lock", on which a
//           living process holds a lock
//   kept-…  journals that could not be read whole, put aside for their owner
//   gone-…  on their way out
// Every file is replaced whole, so that a journal is good at any moment.
#pragma once

#include "base/result.h"
#include "document/journal_values.h"

#include <optional>
#include <vector>

namespace fennel {

// At the end of an hour's work people look for the last ones, not for a history.
inline constexpr int unsavedLimit = 5;

// $XDG_STATE_HOME, or ~/.local/state, and "/fennel-gfx/unsaved/".
QString unsavedRoot();

// A journal's folder, locked while this lives; the lock goes with the process, however that ends.
// Usable from any one thread.
class JournalFolder {
public:
    // Makes one; its name is "new-…" until the first replace() of "values".
    static Result<JournalFolder> make(const QString& root);
    // One that is there; nothing if another one holds it, or it is gone.
    static std::optional<JournalFolder> take(const QString& path);
    ~JournalFolder();
    JournalFolder(JournalFolder&& other) noexcept;
    JournalFolder& operator=(JournalFolder&& other) noexcept;

    [[nodiscard]] QString path() const { return m_path; } // ends in "/"
    // Puts the whole bytes on the disk, in place of an older file of that name.
    Result<void> replace(const QString& name, const QByteArray& bytes);
    void removeFile(const QString& name) const;
    // Removes the folder at one stroke, or puts it aside; then the object is used up.
    void removeAll();
    // Returns where it lies now.
    QString putAside();

private:
    JournalFolder(const QString& path, int lock) : m_path(path), m_lock(lock) {}
    QString renamed(const QString& start);

    QString m_path;
    int m_lock = -1;
};

// Work that was left by a process that is gone, or by this one.
struct LeftWork {
    QString folder;
    QDateTime when;
    QString name;       // of the message file; empty if it cannot be read
    QString sourcePath; // empty: never saved
    bool damaged = false;
};

// Newest first, at most five. Of those that can be read only the last five are kept.
std::vector<LeftWork> leftWork(const QString& root);

// What can be restored of a journal, and what is wrong with the rest.
struct Restorable {
    std::optional<JournalValues> values;
    // A plain message file of the members, gfxboot.cfg as it was last.
    std::optional<QByteArray> message;
    QStringList faults; // sentences
};
Restorable readJournal(const QString& folder);

// How it is with a source file now; `checked`: down to its bytes, otherwise by size and time.
JournalSource sourceNow(const QString& path, bool checked);
// Whether the file is still the one that the journal began with.
bool isUnchanged(const JournalSource& source);

} // namespace fennel
