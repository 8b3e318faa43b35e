// SPDX-License-Identifier: MIT
// The built template taken apart for the tests, by GNU cpio and zlib's format as Qt reads it: not
// by the code that put it together.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QMap>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace fennel::test {

struct TemplateParts {
    QByteArray gzip;
    QByteArray archive;
    QStringList order;
    QMap<QString, QByteArray> members;
};

inline QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray outputOf(const QString& program, const QStringList& arguments,
                           const QByteArray& input, const QString& folder = {})
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
        << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

inline TemplateParts templateParts()
{
    TemplateParts parts;
    const QTemporaryDir folder;
    const QString cpio = QStringLiteral("cpio");
    parts.gzip = fileBytes(QStringLiteral(FENNEL_BIN_DIR "/data/GFX.GZ"));
    parts.archive = outputOf(QStringLiteral("gzip"), {QStringLiteral("-dc")}, parts.gzip);
    const QByteArray list =
        outputOf(cpio, {QStringLiteral("-it"), QStringLiteral("--quiet")}, parts.archive);
    parts.order = QString::fromLatin1(list).split(u'\n', Qt::SkipEmptyParts);
    outputOf(cpio, {QStringLiteral("-id"), QStringLiteral("--quiet")}, parts.archive,
             folder.path());
    for (const QString& name : parts.order)
        parts.members[name] = fileBytes(folder.filePath(name));
    return parts;
}

} // namespace fennel::test
