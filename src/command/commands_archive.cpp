// SPDX-License-Identifier: MIT
// Between a message file and a folder of its members, and the template.
#include "command/commands.h"

#include "base/file_names.h"
#include "base/files.h"
#include "base/posix_file.h"
#include "container/member_list.h"
#include "container/member_name.h"
#include "container/member_table.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// What the headers of an archive from elsewhere say, a line of numbers for each member, its name
// behind them. Without it the members are packed as the editor does it.
const QString factsName = QString::fromLatin1(cpioFactsName.data(), cpioFactsName.size());

QByteArray factsLine(const CpioFacts& facts)
{
    QByteArray line;
    for (const std::uint16_t fact : facts)
        line += QByteArray::number(fact) + ' ';
    return line;
}

QByteArray factsText(const MessageFile& message)
{
    QByteArray text;
    bool usual = true;
    std::uint16_t inode = 0;
    for (const MessageMember& member : message.members) {
        const CpioFacts expected = newCpioFacts(++inode);
        usual = usual && member.facts == expected;
        text += factsLine(member.facts.value_or(expected)) + member.name + '\n';
    }
    return usual ? QByteArray() : text;
}

void readFacts(const QByteArray& text, MessageFile& message)
{
    for (const QByteArray& line : text.split('\n')) {
        CpioFacts facts = {};
        qsizetype at = 0;
        for (std::uint16_t& fact : facts) {
            const qsizetype blank = line.indexOf(' ', at);
            fact = line.mid(at, blank - at).toUShort();
            at = blank + 1;
        }
        const auto found = std::ranges::find(message.members, line.mid(at), &MessageMember::name);
        if (at > 0 && found != message.members.end())
            found->facts = facts;
    }
}

// Names are bytes of an unknown code page, so the system's own calls take them.
Result<void> writeMember(const QByteArray& folder, const MessageMember& member)
{
    const QByteArray path = folder + member.name;
    Result<void> done = writeFile(path.toStdString(), O_WRONLY | O_CREAT | O_EXCL,
                                  {reinterpret_cast<const std::uint8_t*>(member.data.constData()),
                                   static_cast<std::size_t>(member.data.size())});
    if (done) {
        const timespec times[2] = {{0, UTIME_OMIT}, {static_cast<time_t>(member.mtime), 0}};
        // A file system that keeps no times is no reason to fail.
        (void)::utimensat(AT_FDCWD, path.constData(), times, 0);
    }
    return done;
}

Result<void> writeAllMembers(const MessageFile& message, const QString& folder)
{
    const QByteArray path = bytesOfPath(withSeparator(folder));
    QByteArray names;
    for (const MessageMember& member : message.members) {
        if (Result<void> done = writeMember(path, member); !done)
            return done;
        names += member.name + "\r\n";
    }
    DiskFiles files;
    Result<void> done = files.write(withSeparator(folder) + memberListName, names);
    if (const QByteArray facts = factsText(message); done && !facts.isEmpty())
        done = files.write(withSeparator(folder) + factsName, facts);
    return done;
}

// "#.lst" as it stands, or all plain files sorted in the order of an archive.
std::vector<QByteArray> namesIn(const QString& folder)
{
    std::vector<QByteArray> names;
    if (const Result<QByteArray> list = readBytes(withSeparator(folder) + memberListName)) {
        for (const MemberName& name : memberNames(*list))
            names.push_back(name.bytes);
        return names;
    }
    for (const QByteArray& name : plainFiles(folder)) {
        if (!isWorkingFile(name.toStdString()))
            names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
}

Result<MessageMember> readMember(const QByteArray& folder, const QByteArray& name)
{
    // A line of the list could lead out of the folder.
    if (const std::string_view reason = whyNoMemberName(name.toStdString()); !reason.empty())
        return Failure{FailureKind::Malformed, "the member name " +
                                                   printableName(name.toStdString()) + ' ' +
                                                   std::string(reason)};
    MessageMember member{name, {}};
    const Result<struct stat> facts =
        readWhole((folder + name).toStdString(), maxCpioArchive, member.data);
    if (!facts)
        return facts.failure();
    member.mtime = static_cast<std::uint32_t>(facts->st_mtim.tv_sec);
    return member;
}

Result<MessageFile> packed(const QString& folder, bool gzip)
{
    MessageFile message;
    const QByteArray path = bytesOfPath(withSeparator(folder));
    std::uint32_t newest = 0;
    for (const QByteArray& name : namesIn(folder)) {
        Result<MessageMember> member = readMember(path, name);
        if (!member)
            return member.failure();
        newest = std::max(newest, member->mtime);
        message.members.push_back(std::move(*member));
    }
    if (const Result<QByteArray> facts = readBytes(withSeparator(folder) + factsName))
        readFacts(*facts, message);
    if (message.find("back.jpg") == nullptr)
        return Failure{FailureKind::Unsupported, "no gfxboot: it holds no back.jpg"};
    // The time of its contents: the same folder gives the same file whenever it is packed.
    if (gzip)
        message.gzip = MessageFile::Wrapping{std::string(wrappedName), newest};
    return message;
}

} // namespace

Status runExtract(CommandRun& run)
{
    Status status = Status::Done;
    const QString folder = run.arguments()[1];
    if (FileExists(folder) ||
        !QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        return run.wrongUse(folder, u"this is no new or empty folder"_s);
    const std::optional<MessageFile> message = run.read(run.arguments().first(), status);
    if (!message)
        return status;
    Result<void> done = DiskFiles().makeFolder(folder);
    if (done)
        done = writeAllMembers(*message, folder);
    return done ? Status::Done : run.fail(folder, done.failure());
}

Status runPack(CommandRun& run)
{
    const QString folder = run.arguments().first();
    if (!FolderExists(folder))
        return run.wrongUse(folder, u"there is no such folder"_s);
    const Result<MessageFile> message = packed(folder, run.has(u"gzip"_s));
    return message ? run.write(run.arguments()[1], *message) : run.fail(folder, message.failure());
}

Status runNew(CommandRun& run)
{
    const QString source = run.appPath() + u"/data/GFX.GZ"_s;
    const Result<QByteArray> bytes = readBytes(source);
    if (!bytes)
        return run.fail(source, bytes.failure());
    const QString target = run.arguments().first();
    if (run.has(u"gzip"_s))
        return run.write(target, *bytes);
    Result<MessageFile> message = readMessage(*bytes);
    if (!message)
        return run.fail(source, message.failure());
    message->gzip.reset();
    return run.write(target, *message);
}

} // namespace fennel
