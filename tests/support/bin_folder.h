// SPDX-License-Identifier: MIT
// Where the build under test has the programs. Found from the test's own place, so that what is
// compiled is the same in every build folder.
#pragma once

#include <QFileInfo>
#include <QString>

namespace fennel::test {

// The folder bin of the build; no separator at the end. The tests lie in its neighbour.
inline QString binFolder()
{
    static const QString folder =
        QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath() +
                  QStringLiteral("/../bin"))
            .canonicalFilePath();
    return folder;
}

} // namespace fennel::test
