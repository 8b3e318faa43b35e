// SPDX-License-Identifier: MIT
#include "container/message_file.h"

#include "base/files.h"
#include "container/gzip.h"

#include <QDateTime>

#include <algorithm>

namespace fennel {

namespace {

QByteArray bytesFrom(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

Result<MessageFile> readArchive(std::span<const std::uint8_t> archive)
{
    const Result<std::vector<CpioMember>> members = readCpio(archive);
    if (!members)
        return members.failure();
    MessageFile message;
    message.members.reserve(members->size());
    for (const CpioMember& member : *members)
        message.members.push_back({QByteArray::fromStdString(member.name), bytesFrom(member.data),
                                   member.mtime, member.facts});
    if (message.find("back.jpg") == nullptr)
        return Failure{FailureKind::Unsupported, "no gfxboot: it holds no back.jpg"};
    return message;
}

} // namespace

const MessageMember* MessageFile::find(const QByteArray& name) const
{
    const auto found = std::ranges::find(members, name, &MessageMember::name);
    return found == members.end() ? nullptr : &*found;
}

QByteArray MessageFile::bytesOf(const QByteArray& name) const
{
    const MessageMember* member = find(name);
    return member == nullptr ? QByteArray() : member->data;
}

void MessageFile::put(const QByteArray& name, const QByteArray& data)
{
    const auto now = static_cast<std::uint32_t>(QDateTime::currentSecsSinceEpoch());
    const auto found = std::ranges::find(members, name, &MessageMember::name);
    if (found == members.end()) {
        members.push_back({name, data, now});
    } else if (found->data != data) {
        found->data = data;
        found->mtime = now;
    }
}

int MessageFile::generation() const
{
    return find("ZUK0000.CFG") != nullptr ? 3 : find("gfxboot.cfg") != nullptr ? 2 : 1;
}

Result<MessageFile> readMessage(const QByteArray& bytes)
{
    if (!isGzip(spanOf(bytes)))
        return readArchive(spanOf(bytes));
    const Result<GzipContents> contents = gzipDecompress(spanOf(bytes));
    if (!contents)
        return contents.failure();
    Result<MessageFile> message = readArchive(contents->data);
    if (message)
        message->gzip = MessageFile::Wrapping{contents->name, contents->mtime};
    return message;
}

Result<QByteArray> writeMessage(const MessageFile& message)
{
    std::vector<CpioMember> members;
    members.reserve(message.members.size());
    for (const MessageMember& member : message.members)
        members.push_back(
            {member.name.toStdString(), member.mtime, spanOf(member.data), member.facts});
    const Result<std::vector<std::uint8_t>> archive = writeCpio(members);
    if (!archive)
        return archive.failure();
    if (!message.gzip)
        return bytesFrom(*archive);
    const Result<std::vector<std::uint8_t>> packed =
        gzipCompress(*archive, message.gzip->name, message.gzip->mtime);
    return packed ? Result<QByteArray>(bytesFrom(*packed)) : packed.failure();
}

} // namespace fennel
