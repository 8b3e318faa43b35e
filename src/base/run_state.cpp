// SPDX-License-Identifier: MIT
#include "base/run_state.h"

namespace fennel {

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
