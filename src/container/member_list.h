// SPDX-License-Identifier: MIT
// The file "#.lst" of the Workspace: the only record of which files are members and in which order.
#pragma once

#include "base/shell_context.h"

namespace fennel {

inline const QString memberListName = QStringLiteral("#.lst");

// Rewrites "#.lst": known members first, in the order of member_table.h, the others behind them in
// the order they had; names without a file drop out. A file that was no member becomes one only if
// it fits `addedPattern` (a name or pattern, empty for none). Every failure is told; without
// "#.lst" it is "Gfxboot info is lost!".
Result<void> RebuildMemberList(const Shell& shell, const QString& addedPattern);

// Replaces a file of the Workspace as a whole or not at all. The new one is made outside: no name
// in the Workspace is free of members.
[[nodiscard]] Result<void> putMember(const Shell& shell, const QString& name,
                                     const QByteArray& bytes);

// Whether the "#.lst" of a folder, which ends in "/", names that member; not without a "#.lst".
[[nodiscard]] bool isListed(const QString& folder, const QString& name);

// The name for a file that lies in the folder and is no member: `name`, with as many "#" before it
// as keep it from being that of one.
[[nodiscard]] QString nameBesideMembers(const QString& folder, const QString& name);

} // namespace fennel
