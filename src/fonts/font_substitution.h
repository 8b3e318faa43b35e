// SPDX-License-Identifier: MIT
// Which installed family shows the text of a family that the system lacks.
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

namespace fennel {

struct ShownFamily {
    QString family; // as installed; the wanted one if nothing is known to stand in for it
    QString note;   // a sentence that names the family shown; empty if it is the wanted one
    QString style;  // words behind the family in the wanted name, such as "Oblique"
};

// The wanted family if it is installed (in any case), also with words of style behind it, else the
// first installed one of those made to the same widths of letters, or that come nearest to them. An
// empty name is left as it is.
ShownFamily shownFamily(const QString& wanted, const QStringList& families);

// Gives a font that family and style, bold and italic beside them. An empty family changes none.
void setFace(QFont& font, const ShownFamily& face, bool bold, bool italic);

} // namespace fennel
