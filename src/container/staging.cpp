// SPDX-License-Identifier: MIT
#include "container/staging.h"

#include "base/workspace_root.h"

namespace fennel {

Staging::Staging(const Shell& shell, const QString& name)
    : m_shell(shell), m_root(needRoot(shell)),
      m_folder(shell.run.WorkspaceRoot + name + QStringLiteral("-XXXXXX"))
{
    // QTemporaryDir cannot remove files whose names have no QString.
    m_folder.setAutoRemove(false);
}

Staging::~Staging()
{
    if (m_folder.isValid())
        (void)m_shell.files.removeFolder(m_folder.path()); // what stays goes with WorkspaceRoot
}

Result<void> Staging::made() const
{
    if (!m_root || m_folder.isValid())
        return m_root;
    return Failure{FailureKind::Io, "Cannot make a folder in " +
                                        m_shell.run.WorkspaceRoot.toStdString() + ": " +
                                        m_folder.errorString().toStdString()};
}

} // namespace fennel
