// SPDX-License-Identifier: MIT
// The report on removable drives: one block of "label = value" lines for each, labels padded to 18
// characters, an empty line behind each block.
#pragma once

#include "tools/drive_source.h"

#include <QHash>
#include <QString>

namespace fennel {

// `letters`: mount folders, as the system names them, with the letters that the caller uses for
// them. If it is empty, the letters are those of an editor that was started just now; otherwise
// drives without a letter are left out.
QString usbReport(const DriveSource& source, const QHash<QString, QChar>& letters);

} // namespace fennel
