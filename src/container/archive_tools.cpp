// SPDX-License-Identifier: MIT
#include "container/archive_tools.h"

#include "base/file_names.h"
#include "base/posix_file.h"
#include "base/tool_output.h"
#include "base/words.h"
#include "container/gzip.h"
#include "container/member_list.h"
#include "container/member_table.h"

#include <array>
#include <limits>

namespace fennel {

namespace {

// The last argument of every bridge that is waited for.
const QString suffix = QStringLiteral(",0");
const QString sevenZipLog = QStringLiteral("#7zip.log");
// Twelve characters; 7-Zip's report pads the word so, in English only, and the bridge keeps to it.
const QByteArray extracting = QByteArrayLiteral("Extracting  ");

// The reason that a run left no file: what the runner found, else what the tool said.
Failure reasonOf(const Shell& shell, const Result<void>& ran, const QString& missing)
{
    if (!ran)
        return ran.failure();
    const QString said = shell.tools.lastErrorOutput();
    return {FailureKind::ToolFailed, (said.isEmpty() ? missing : said).toStdString()};
}

Result<bool> beginsAsGzip(const QString& path)
{
    constexpr qsizetype most = 16; // more than its mark has
    const Result<QByteArray> front = readFront(path, most);
    return front ? Result<bool>(isGzip(spanOf(*front))) : front.failure();
}

// The name behind the last "Extracting  " of the report. Lines end at a line end or at a comma.
QString unwrappedName(QByteArray report)
{
    QByteArray name;
    // The last such line wins; a name with a comma in it is cut there.
    report.replace('\r', '\n').replace(',', '\n');
    for (const QByteArray& line : report.split('\n')) {
        if (line.startsWith(extracting))
            name = line.mid(extracting.size()).trimmed();
    }
    return memberName(name).text;
}

} // namespace

Result<void> CpioInfoExtract(const Shell& shell, const QString& archive, const QString& folder)
{
    const QString& tool = shell.run.ToolCpio;
    if (Result<void> there = shell.toolThere(tool); !there)
        return there;
    const QString list = withSeparator(folder) + memberListName;
    // What the tool should leave is removed first, or an older one would pass for its work.
    if (Result<void> removed = shell.files.remove(list); !removed)
        return removed;
    Result<void> ran = shell.tools.RunToolAndWait(
        {tool, QStringLiteral("INFO"), archive, folder, memberListName, suffix});
    // What a tool left that was killed or stopped may be a part of the list.
    if (!ran || !FileExists(list))
        return reasonOf(shell, ran, archive + Words::tr(" is no cpio archive."));
    ran = shell.tools.RunToolAndWait(
        {tool, QStringLiteral("EXTR"), archive, folder, memberListName, suffix});
    // Members need no fixed names, so there is no one file to look for: any complaint counts.
    if (!ran || !shell.tools.lastErrorOutput().isEmpty())
        return reasonOf(shell, ran, {});
    return {};
}

Result<void> CpioAssemble(const Shell& shell, const QString& archive, const QString& folder)
{
    const QString& tool = shell.run.ToolCpio;
    if (Result<void> there = shell.toolThere(tool); !there)
        return there;
    if (Result<void> removed = shell.files.remove(archive); !removed)
        return removed;
    Result<void> ran = shell.tools.RunToolAndWait(
        {tool, QStringLiteral("ASSM"), archive, folder, memberListName, suffix});
    if (!ran)
        dropOutput(shell.files, archive);
    if (!FileExists(archive))
        return reasonOf(shell, ran, Words::tr("CPIO Error"));
    return ran;
}

// An empty name means a file that is not wrapped. So does a missing tool: a plain archive can be
// opened without it.
Result<QString> SevenZipExtract(const Shell& shell, const QString& file, const QString& folder)
{
    const QString& tool = shell.run.Tool7Zip;
    if (!shell.toolThere(tool))
        return QString();
    const Result<bool> gzip = beginsAsGzip(file);
    if (!gzip)
        return gzip.failure();
    if (!*gzip)
        return QString();
    const QString log = withSeparator(folder) + sevenZipLog;
    if (Result<void> removed = shell.files.remove(log); !removed)
        return removed.failure();
    // It is tested as it is unwrapped, before the first byte is written; a test of its own would
    // unwrap it twice.
    const Result<void> ran = shell.tools.RunToolAndWait(
        {tool, QStringLiteral("EXTR"), file, folder, sevenZipLog, suffix});
    const Result<QByteArray> report = readBytes(log);
    if (!ran || !report || !shell.tools.lastErrorOutput().isEmpty())
        return reasonOf(shell, ran, file + Words::tr(" could not be unwrapped."));
    const QByteArray tail = QByteArrayLiteral("Tail Size: ");
    if (const qsizetype at = report->indexOf(tail); at >= 0)
        shell.prompts.ShowMessage(
            Words::tr("%1: %2 bytes behind the end of the gzip data are ignored.")
                .arg(file, QString::fromLatin1(report->mid(at + tail.size()).split('\r').first())));
    return unwrappedName(*report);
}

Result<QString> SevenZipPack(const Shell& shell, const QString& input, const QString& outputFolder,
                             const QString& outputName)
{
    const QString& tool = shell.run.Tool7Zip;
    if (const Result<void> there = shell.toolThere(tool); !there)
        return there.failure();
    const QString standard = withSeparator(outputFolder) + QStringLiteral("#message.gz");
    const QString output =
        outputName.isEmpty() ? standard : withSeparator(outputFolder) + outputName;
    if (Result<void> removed = shell.files.remove(output); !removed)
        return removed.failure();
    const Result<void> ran =
        shell.tools.RunToolAndWait({tool, QStringLiteral("ASSM"), input, output, suffix});
    if (!ran)
        dropOutput(shell.files, output);
    if (!FileExists(output))
        return reasonOf(shell, ran, Words::tr("7-Zip Error"));
    // The standard name whatever was asked for: only callers that gave no name use it.
    return standard;
}

} // namespace fennel
