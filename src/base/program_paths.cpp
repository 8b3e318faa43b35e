// SPDX-License-Identifier: MIT
#include "base/program_paths.h"

#include "base/files.h"

#include <QDir>

namespace fennel {

void setToolPaths(RunState& run)
{
    run.ToolsPath = run.AppPath + QStringLiteral("/Tools/");
    run.ToolNConvert = run.ToolsPath + QStringLiteral("nconvert/nconvert_bridge");
    run.ToolCpio = run.ToolsPath + QStringLiteral("CPIO/cpio_bridge");
    run.ToolQemu = run.ToolsPath + QStringLiteral("QEMU/QEMU_bridge");
    run.Tool7Zip = run.ToolsPath + QStringLiteral("7-Zip/7zip_bridge");
    run.ToolListUsb = run.ToolsPath + QStringLiteral("ListUsb/ListUsbDrives");
    run.ToolMkFont = run.ToolsPath + QStringLiteral("MakeFont/mkfnt_bridge");
}

QString temporaryFolder()
{
    const QString named = qEnvironmentVariable("Temp");
    return withSeparator(
        shortForm(!named.isEmpty() && FolderExists(named) ? named : QDir::tempPath()));
}

} // namespace fennel
