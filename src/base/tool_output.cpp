// SPDX-License-Identifier: MIT
#include "base/tool_output.h"

#include "base/posix_file.h"

namespace fennel {

void dropOutput(Files& files, const QString& output)
{
    (void)files.remove(output);
    (void)files.remove(QString::fromStdString(unfinishedName(output.toStdString())));
}

} // namespace fennel
