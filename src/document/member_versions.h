// SPDX-License-Identifier: MIT
// Old and new versions of the files of the Workspace, for undo: kept in WorkspaceRoot as further
// links to the same files, which cost no bytes as long as files are replaced and never written
// over.
#pragma once

#include "base/shell_context.h"
#include "document/change.h"

#include <map>

namespace fennel {

class MemberVersions {
public:
    explicit MemberVersions(const Shell& shell) : m_shell(shell) {}

    struct Seen {
        VersionId version = 0;
        quint64 inode = 0;
        qint64 size = 0;
        qint64 changed = 0; // nanoseconds
        bool operator==(const Seen&) const = default;
    };
    // Every file of the Workspace by the bytes of its name, each kept as a version.
    using Snapshot = std::map<QByteArray, Seen>;

    // Fails if a version cannot be kept. Files that are as they were at the snapshot before are
    // kept already.
    Result<Snapshot> take();
    // What changed since a snapshot, which is used up. The versions of both sides stay kept.
    Result<std::map<QByteArray, BeforeAfter<VersionId>>> since(Snapshot&& before, qint64& bytes);
    // The files as they were at the snapshot, which is used up.
    Result<void> restore(Snapshot&& before);
    // Gives each file this version, all or nothing.
    Result<void> put(const std::map<QByteArray, VersionId>& versions);
    // A version that no step needs any more.
    void drop(VersionId version);
    // Nothing is kept any more.
    void clear();

    // Where a version lies; its bytes never change.
    [[nodiscard]] QString pathOf(VersionId version) const;

private:
    Result<VersionId> keep(const QByteArray& name);
    [[nodiscard]] bool unchanged(const Seen& was, const QByteArray& name, const Seen& now) const;
    [[nodiscard]] QByteArray inWorkspace(const QByteArray& name) const;

    const Shell& m_shell;
    VersionId m_last = 0;
    Snapshot m_kept; // of the last snapshot, what no step has
};

} // namespace fennel
