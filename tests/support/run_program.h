// SPDX-License-Identifier: MIT
// Runs a bridge or a judge (GNU cpio, bsdcpio, gzip, 7za) and takes what it says.
#pragma once

#include "support/bin_folder.h"
#include "support/test_shell.h"

#include <QDir>
#include <QProcess>

#include <functional>

namespace fennel::test {

struct Ran {
    int code = -1; // -1: not started, or ended by a signal
    QByteArray out;
    QByteArray err;
};

inline Ran runProgram(const QString& program, const QStringList& arguments,
                      const QString& folder = {}, const QByteArray& input = {},
                      const std::function<void()>& inChild = {})
{
    QProcess process;
    process.setWorkingDirectory(folder);
    if (inChild)
        process.setChildProcessModifier(inChild);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(60'000);
    const bool ended = process.state() == QProcess::NotRunning &&
                       process.error() == QProcess::UnknownError &&
                       process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

// A bridge of this build, called with the suffix that ends every call.
inline Ran runBridge(const char* bridge, QStringList arguments,
                     const std::function<void()>& inChild = {})
{
    arguments << QStringLiteral(",0");
    return runProgram(fennel::test::binFolder() + QStringLiteral("/Tools/") +
                          QString::fromUtf8(bridge),
                      arguments, {}, {}, inChild);
}

// Names and contents of all files of a folder, links by what they point to.
inline QMap<QByteArray, QByteArray> contentsOf(const QString& folder)
{
    QMap<QByteArray, QByteArray> contents;
    const auto entries = QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                    QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        const QByteArray name = QFile::encodeName(entry.fileName());
        if (entry.isSymLink())
            contents[name] = "-> " + QFile::encodeName(entry.symLinkTarget());
        else
            contents[name] = entry.isDir() ? QByteArray("folder") : bytesOf(entry.filePath());
    }
    return contents;
}

// The message files of Debian's boot screens.
inline QStringList debianMessages()
{
    const QDir themes(QStringLiteral("/etc/bootsplash/themes"));
    QStringList found;
    for (const QString& theme : themes.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        found << themes.filePath(theme + QStringLiteral("/bootloader/message"));
    return found;
}

} // namespace fennel::test
