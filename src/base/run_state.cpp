// SPDX-License-Identifier: MIT
#include "base/run_state.h"

#include "base/file_names.h"

namespace fennel {

QString workspaceOf(const RunState& run, const QString& name)
{
    const bool taken = QStringView(u"~#.=").contains(name.isEmpty() ? QChar(u'=') : name.front()) ||
                       name.endsWith(QStringLiteral(".jpg"), Qt::CaseInsensitive);
    // Tools take it as it stands, whatever the file is called.
    return run.WorkspaceRoot + (taken ? QStringLiteral("=") : QString()) + shownPath(name) +
           QLatin1Char('/');
}

QString versionText()
{
    return QStringLiteral("3.3.1011");
}

QString windowTitle()
{
    return programTitle() + QStringLiteral(" (v. ") + versionText() +
           QStringLiteral(") /Component of @ZUK-MOSA@ project/");
}

QString programTitle()
{
    return QStringLiteral("FENNEL-GFX");
}

} // namespace fennel
