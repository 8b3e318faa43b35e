// SPDX-License-Identifier: MIT
#include "command/opened_file.h"

#include "base/files.h"
#include "checks/problems.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// The editor's own open reads a file; what comes from standard input is put into one.
Result<QString> fileFor(const Shell& shell, const QString& path, const QByteArray& bytes)
{
    if (path != dash)
        return path;
    const QString folder = shell.run.WorkspaceRoot + u"~input/"_s;
    Result<void> written = shell.files.makeFolder(folder);
    if (written)
        written = shell.files.write(folder + u"message"_s, bytes);
    return written ? Result<QString>(folder + u"message"_s) : written.failure();
}

Result<void> open(OpenedFile& opened, const QString& file)
{
    // Read before it is opened: a broken file is told in the words of the reader.
    const Result<QByteArray> bytes = readInput(file);
    const Result<MessageFile> message = bytes ? readMessage(*bytes) : bytes.failure();
    if (!message)
        return message.failure();
    opened.bytes = *bytes;
    opened.message = *message;
    if (Result<void> made = opened.session.made(); !made)
        return made;
    const Result<QString> path = fileFor(opened.session.shell(), file, *bytes);
    if (!path)
        return path.failure();
    if (opened.session.open(*path))
        return {};
    return Failure{FailureKind::ToolFailed, opened.prompts.told().join(u' ').toStdString()};
}

} // namespace

std::unique_ptr<OpenedFile> openFile(CommandRun& run, const QString& file, Status& status,
                                     const QString& defaultFont)
{
    auto opened = std::make_unique<OpenedFile>(run.appPath(), defaultFont);
    const Result<void> done = open(*opened, file);
    if (done)
        return opened;
    status = worse(status, run.fail(file, done.failure()));
    return nullptr;
}

Result<QString> menuText(const CommandRun& run)
{
    const QString path = run.option(u"menu"_s);
    if (path.isEmpty())
        return QString();
    const Result<QByteArray> bytes = readInput(path);
    return bytes ? Result<QString>(textForScreen(*bytes)) : bytes.failure();
}

} // namespace fennel
