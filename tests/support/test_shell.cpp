// SPDX-License-Identifier: MIT
#include "support/test_shell.h"

namespace fennel::test {

Failure FaultyFiles::full(const QString& path)
{
    return {FailureKind::NoSpace, "Cannot write " + path.toStdString() + ": No space left."};
}

Result<void> FaultyFiles::write(const QString& path, const QByteArray& bytes)
{
    if (!fails())
        return DiskFiles::write(path, bytes);
    // A full disk takes a part of the bytes.
    (void)DiskFiles::write(path, bytes.left(bytes.size() / 2));
    return full(path);
}

TestShell::TestShell()
{
    const QString folder = QStringLiteral(FENNEL_BIN_DIR "/Tools/");
    run.AppPath = m_folder.path();
    run.ToolsPath = folder;
    run.ToolNConvert = folder + QStringLiteral("nconvert/nconvert_bridge");
    run.ToolCpio = folder + QStringLiteral("CPIO/cpio_bridge");
    run.Tool7Zip = folder + QStringLiteral("7-Zip/7zip_bridge");
    run.ToolQemu = folder + QStringLiteral("QEMU/QEMU_bridge");
    run.ToolListUsb = folder + QStringLiteral("ListUsb/ListUsbDrives");
    run.ToolMkFont = folder + QStringLiteral("MakeFont/mkfnt_bridge");
    run.WorkspaceRoot = m_folder.filePath(QStringLiteral("root/"));
    run.GfxFolderName = QStringLiteral("message");
    run.Workspace = run.WorkspaceRoot + QStringLiteral("message/");
    EXPECT_TRUE(DiskFiles().makeFolder(run.Workspace).ok());
}

TestShell::~TestShell()
{
    // QTemporaryDir leaves files whose names are not UTF-8.
    (void)DiskFiles().removeFolder(m_folder.path());
}

QString TestShell::file(const QString& name, const QByteArray& bytes)
{
    const QString where = path(name);
    EXPECT_TRUE(DiskFiles().write(where, bytes).ok());
    return where;
}

QString TestShell::member(const QString& name, const QByteArray& bytes)
{
    const QString where = run.Workspace + name;
    EXPECT_TRUE(DiskFiles().write(where, bytes).ok());
    return where;
}

QByteArray bytesOf(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    EXPECT_TRUE(bytes.ok()) << path.toStdString();
    return bytes ? *bytes : QByteArray();
}

} // namespace fennel::test
