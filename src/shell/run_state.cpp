// SPDX-License-Identifier: MIT
#include "shell/run_state.h"

namespace fennel {

QString versionText()
{
    return QStringLiteral("3.3.1011");
}

QString programTitle()
{
    return QStringLiteral("FENNEL-GFX");
}

} // namespace fennel
