// SPDX-License-Identifier: MIT
// The built template taken apart for the tests, by GNU cpio and zlib's format as Qt reads it: not
// by the code that put it together.
#pragma once

#include "support/bin_folder.h"
#include "support/run_program.h"

namespace fennel::test {

using namespace Qt::StringLiterals;

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

inline TemplateParts templateParts()
{
    TemplateParts parts;
    const QTemporaryDir folder;
    parts.gzip = fileBytes(fennel::test::binFolder() + QStringLiteral("/data/GFX.GZ"));
    parts.archive = runProgram(u"gzip"_s, {u"-dc"_s}, {}, parts.gzip).out;
    const Ran list = runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, parts.archive);
    parts.order = QString::fromLatin1(list.out).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(runProgram(u"cpio"_s, {u"-id"_s, u"--quiet"_s}, folder.path(), parts.archive).code,
              0);
    for (const QString& name : parts.order)
        parts.members[name] = fileBytes(folder.filePath(name));
    return parts;
}

} // namespace fennel::test
