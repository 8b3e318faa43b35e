// SPDX-License-Identifier: MIT
// A folder in WorkspaceRoot for what a tool writes, so that a broken file spoils nothing. It goes
// with the object, with all that is left in it.
#pragma once

#include "base/shell_context.h"

#include <QTemporaryDir>

namespace fennel {

class Staging {
public:
    // `name` is the beginning of the folder's name.
    Staging(const Shell& shell, const QString& name);
    ~Staging();
    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;

    // Whether the folder could be made; to be asked first.
    [[nodiscard]] Result<void> made() const;
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    const Shell& m_shell;
    Result<void> m_root;
    QTemporaryDir m_folder;
};

} // namespace fennel
