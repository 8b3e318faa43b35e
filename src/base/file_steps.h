// SPDX-License-Identifier: MIT
// A command that changes several files, all or nothing: every step first keeps what it is about to
// change, and unless keep() is called the destructor puts everything back, newest step first.
#pragma once

#include "base/shell_context.h"

#include <vector>

namespace fennel {

// The kept copies lie in WorkspaceRoot under names that begin with "~undo_". One object at a time
// for the same files. A file that cannot be put back is named in a message together with its copy,
// which then stays.
class FileSteps {
public:
    explicit FileSteps(const Shell& shell) : m_shell(shell) {}
    ~FileSteps();
    FileSteps(const FileSteps&) = delete;
    FileSteps& operator=(const FileSteps&) = delete;

    // Each fails with the sentence of the file layer. `target` may or may not exist; `source` is
    // moved by replace() and stays in copy().
    Result<void> replace(const QString& source, const QString& target);
    // The target is replaced if it is there.
    Result<void> copy(const QString& source, const QString& target);
    // All the bytes, over an existing file.
    Result<void> write(const QString& target, const QByteArray& bytes);
    // Removing what is not there is no failure.
    Result<void> remove(const QString& target);
    // For a file that other code is about to change.
    Result<void> save(const QString& target);

    // The command succeeded: the changes stay.
    void keep();

private:
    struct Saved {
        QString target;
        QString copy; // empty: there was no such file
    };
    void undo();
    const Shell& m_shell;
    std::vector<Saved> m_saved;
};

} // namespace fennel
