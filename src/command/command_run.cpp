// SPDX-License-Identifier: MIT
#include "command/command_run.h"

#include "base/file_names.h"
#include "base/files.h"
#include "base/posix_file.h"
#include "base/text.h"
#include "container/template.h"
#include "params/catalogue.h"

#include <QFile>
#include <QJsonDocument>

#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

namespace {

void say(const QString& about, const QString& text)
{
    QString line = QStringLiteral("fennel: ");
    if (!about.isEmpty())
        line += about + QStringLiteral(": ");
    // One line each, whatever a file is called.
    line = (line + text).trimmed().replace(u'\n', u' ') + u'\n';
    (void)writeAll(STDERR_FILENO, spanOf(line.toLocal8Bit()));
}

Status statusOf(FailureKind kind)
{
    const bool bad = kind == FailureKind::Malformed || kind == FailureKind::TooLarge ||
                     kind == FailureKind::Unsupported;
    return bad ? Status::BadFile : Status::NotDone;
}

Result<QByteArray> readStandardInput()
{
    QByteArray bytes;
    constexpr qsizetype step = 1 << 20;
    for (std::ptrdiff_t got = 1; got > 0;) {
        const qsizetype had = bytes.size();
        if (had > readLimit)
            return tooLarge("standard input", readLimit);
        bytes.resize(had + step);
        got = readInto(STDIN_FILENO, {reinterpret_cast<std::uint8_t*>(bytes.data()) + had,
                                      static_cast<std::size_t>(step)});
        if (got < 0)
            return systemFailure("read", "standard input", errno);
        bytes.resize(had + static_cast<qsizetype>(got));
    }
    return bytes;
}

// A device or a pipe is written into: nothing may be put in its place.
bool isStream(const QByteArray& path)
{
    struct stat facts = {};
    return ::stat(path.constData(), &facts) == 0 && !S_ISREG(facts.st_mode) &&
           !S_ISDIR(facts.st_mode);
}

} // namespace

Result<QByteArray> readInput(const QString& path)
{
    return path == dash ? readStandardInput() : readBytes(path);
}

void CommandRun::print(const QString& text)
{
    if (!has(QStringLiteral("json")))
        m_out += text.toUtf8();
}

void CommandRun::progress(qsizetype done, qsizetype all)
{
    constexpr qint64 patienceMs = 500;
    if (all < 2 || ::isatty(STDERR_FILENO) == 0)
        return;
    if (!m_shown.isValid())
        m_shown.start();
    const bool over = done >= all;
    if (!over && m_shown.elapsed() < patienceMs)
        return;
    m_shown.restart();
    const QByteArray line =
        over ? QByteArray("\r\33[K")
             : '\r' + QByteArray::number(done) + " of " + QByteArray::number(all) + "\33[K";
    (void)writeAll(STDERR_FILENO, spanOf(line));
}

Status CommandRun::finish(Status status)
{
    if (has(QStringLiteral("json")) && !m_objects.isEmpty())
        m_out = (m_objects.size() == 1 ? QJsonDocument(m_objects.first().toObject())
                                       : QJsonDocument(m_objects))
                    .toJson();
    if (m_out.isEmpty() || writeAll(STDOUT_FILENO, spanOf(m_out)))
        return status;
    return fail(QStringLiteral("standard output"),
                systemFailure("write", "standard output", errno));
}

Status CommandRun::wrongUse(const QString& about, const QString& text)
{
    say(about, text);
    return Status::WrongUse;
}

Status CommandRun::fail(const QString& about, const Failure& failure)
{
    if (!failure.told)
        say(about, QString::fromStdString(failure.text));
    return statusOf(failure.kind);
}

std::optional<MessageFile> CommandRun::read(const QString& path, Status& status)
{
    const Result<QByteArray> bytes = readInput(path);
    Result<MessageFile> message = bytes ? readMessage(*bytes) : bytes.failure();
    if (message)
        return std::move(*message);
    status = worse(status, fail(path, message.failure()));
    return std::nullopt;
}

Status CommandRun::write(const QString& path, const QByteArray& bytes)
{
    const QByteArray name = bytesOfPath(path);
    if (path == dash) {
        m_out += bytes;
        return Status::Done;
    }
    const Result<void> done = isStream(name)
                                  ? writeFile(name.toStdString(), O_WRONLY, spanOf(bytes))
                                  : replaceWhole(name.toStdString(), spanOf(bytes));
    return done ? Status::Done : fail(path, done.failure());
}

Status CommandRun::write(const QString& path, const MessageFile& message)
{
    const Result<QByteArray> bytes = writeMessage(message);
    return bytes ? write(path, *bytes) : fail(path, bytes.failure());
}

const ZUKarr& CommandRun::catalogue()
{
    if (!m_catalogue) {
        m_catalogue.emplace();
        const Result<QByteArray> bytes =
            readBytes(m_appPath + QStringLiteral("/data/0409_SETTINGS"));
        if (bytes)
            parseCatalogue(decodeText(*bytes).text, *m_catalogue);
        else
            (void)fail(QStringLiteral("catalogue"), bytes.failure());
    }
    return *m_catalogue;
}

} // namespace fennel
