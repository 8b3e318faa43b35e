// SPDX-License-Identifier: MIT
#include "support/test_shell.h"
#include "support/bin_folder.h"

#include <QBuffer>
#include <QFile>

namespace fennel::test {

using namespace Qt::StringLiterals;

Failure FaultyFiles::failure(const QString& path) const
{
    const char* reason = kind == FailureKind::NoSpace ? ": No space left." : ": Permission denied.";
    return {kind, "Cannot write " + path.toStdString() + reason};
}

Result<void> FaultyFiles::write(const QString& path, const QByteArray& bytes)
{
    if (!fails())
        return DiskFiles::write(path, bytes);
    // A full disk takes a part of the bytes.
    if (kind == FailureKind::NoSpace)
        (void)DiskFiles::write(path, bytes.left(bytes.size() / 2));
    return failure(path);
}

Result<void> FaultyTools::RunToolAndWait(const QStringList& commandLine)
{
    m_lastWasHasty = false;
    if (++calls != failAt)
        return ProcessToolRunner::RunToolAndWait(commandLine);
    // The limit counts blocks of 512 bytes; beyond it comes a signal, or an error if that is
    // ignored.
    const auto limited = [&](const QString& limits) {
        return ProcessToolRunner::RunToolAndWait(
            QStringList{u"/bin/sh"_s, u"-c"_s, u"ulimit -c 0; "_s + limits + u"; exec \"$@\""_s,
                        u"sh"_s} +
            commandLine);
    };
    switch (fault) {
    case ToolFault::KilledAtOnce:
        return limited(u"ulimit -f 0"_s);
    case ToolFault::KilledHalfWay:
        return limited(u"ulimit -f 1"_s);
    case ToolFault::FullDisk:
        return limited(u"trap '' XFSZ; ulimit -f 1"_s);
    case ToolFault::Silent:
        return ProcessToolRunner::RunToolAndWait({u"/bin/false"_s});
    case ToolFault::Hung:
        m_lastWasHasty = true;
        return m_hasty.RunToolAndWait({u"/bin/sleep"_s, u"60"_s});
    default:
        return ProcessToolRunner::RunToolAndWait({commandLine.first() + u".gone"_s});
    }
}

QString FaultyTools::lastErrorOutput() const
{
    return m_lastWasHasty ? m_hasty.lastErrorOutput() : ProcessToolRunner::lastErrorOutput();
}

TestShell::TestShell()
{
    // Unsaved work is kept there.
    qputenv("XDG_STATE_HOME", QFile::encodeName(path(u"state"_s)));
    const QString folder = fennel::test::binFolder() + QStringLiteral("/Tools/");
    run.AppPath = m_folder.path();
    run.ToolsPath = folder;
    run.ToolNConvert = folder + QStringLiteral("nconvert/nconvert_bridge");
    run.ToolCpio = folder + QStringLiteral("CPIO/cpio_bridge");
    run.Tool7Zip = folder + QStringLiteral("7-Zip/7zip_bridge");
    run.ToolQemu = folder + QStringLiteral("QEMU/QEMU_bridge");
    run.ToolListUsb = folder + QStringLiteral("ListUsb/ListUsbDrives");
    run.ToolMkFont = folder + QStringLiteral("MakeFont/mkfnt_bridge");
    run.WorkspaceRoot = m_folder.filePath(QStringLiteral("root/"));
    run.Workspace = run.WorkspaceRoot + QStringLiteral("message/");
    EXPECT_TRUE(DiskFiles().makeFolder(run.Workspace).ok());
}

TestShell::~TestShell()
{
    // QTemporaryDir leaves files whose names are not UTF-8.
    (void)DiskFiles().removeFolder(m_folder.path());
}

void TestShell::install()
{
    run.AppPath = path(u"bin"_s);
    EXPECT_TRUE(DiskFiles().makeFolder(run.AppPath).ok());
    for (const QString& name : {u"/data"_s, u"/Cursors"_s, u"/docs"_s})
        EXPECT_TRUE(QFile::link(fennel::test::binFolder() + name, run.AppPath + name));
    file(u"bin/FENNEL.ini"_s, "Default Font Name=DejaVu Sans\r\n");
}

QString TestShell::file(const QString& name, const QByteArray& bytes)
{
    const QString where = path(name);
    EXPECT_TRUE(DiskFiles().write(where, bytes).ok());
    return where;
}

QString TestShell::folder(const QString& name)
{
    EXPECT_TRUE(DiskFiles().makeFolder(path(name)).ok());
    return path(name);
}

QString TestShell::script(const QString& name, const QByteArray& text)
{
    // Not even its owner may write to a tool that an earlier call left.
    QFile::remove(path(name));
    const QString where = file(name, "#!/bin/sh\n" + text + "\n");
    EXPECT_TRUE(QFile::setPermissions(where, QFile::ReadOwner | QFile::ExeOwner));
    return where;
}

QString TestShell::picture(const QString& name, QSize size, QRgb colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    EXPECT_TRUE(image.save(path(name)));
    return path(name);
}

QString TestShell::member(const QString& name, const QByteArray& bytes)
{
    const QString where = run.Workspace + name;
    EXPECT_TRUE(DiskFiles().write(where, bytes).ok());
    return where;
}

QByteArray jpegOf(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "JPG"));
    return buffer.data();
}

QByteArray bytesOf(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    EXPECT_TRUE(bytes.ok()) << path.toStdString();
    return bytes ? *bytes : QByteArray();
}

} // namespace fennel::test
