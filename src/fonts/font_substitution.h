// SPDX-License-Identifier: MIT
// Which installed family shows the text of a family that the system lacks.
#pragma once

#include <QString>
#include <QStringList>

namespace fennel {

struct ShownFamily {
    QString family; // as installed; the wanted one if nothing is known to stand in for it
    QString note;   // a sentence that names the family shown; empty if it is the wanted one
};

// The wanted family if it is installed (in any case), else the first installed one of those made to
// the same widths of letters, or that come nearest to them. An empty name is left as it is.
ShownFamily shownFamily(const QString& wanted, const QStringList& families);

} // namespace fennel
