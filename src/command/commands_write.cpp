// SPDX-License-Identifier: MIT
// The commands that change a message file: in memory, and then the whole file is replaced.
#include "command/commands.h"

#include "base/files.h"
#include "command/member_making.h"
#include "container/member_table.h"
#include "params/message_values.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

struct Assignment {
    QString name;
    QString value;
};

// "FILE... NAME=VALUE...": the first argument is a file whatever it is called.
struct FilesAndValues {
    QStringList files;
    std::vector<Assignment> values;
};

std::optional<FilesAndValues> split(CommandRun& run)
{
    FilesAndValues parts;
    for (const QString& argument : run.arguments()) {
        const qsizetype equals = argument.indexOf(u'=');
        if (parts.files.isEmpty() || (equals < 1 && parts.values.empty())) {
            parts.files.append(argument);
        } else if (equals < 1) {
            (void)run.wrongUse(argument, u"there is no = in it; files stand first"_s);
            return std::nullopt;
        } else {
            parts.values.push_back({argument.left(equals), argument.mid(equals + 1)});
        }
    }
    if (parts.values.empty()) {
        (void)run.wrongUse({}, u"what is it to be? Give NAME=VALUE behind the file"_s);
        return std::nullopt;
    }
    if (parts.files.size() > 1 && (run.has(u"output"_s) || parts.files.contains(dash))) {
        (void)run.wrongUse({}, u"with an output, or standard input, there is one FILE"_s);
        return std::nullopt;
    }
    return parts;
}

// Reads, changes and writes one file. What `change` leaves as it was is not written again.
template <class Change>
Status changeFile(CommandRun& run, const QString& file, const Change& change)
{
    Status status = Status::Done;
    std::optional<MessageFile> message = run.read(file, status);
    if (!message)
        return status;
    const MessageFile before = *message;
    status = change(*message);
    if (status != Status::Done)
        return status;
    const QString target = run.option(u"output"_s, file);
    const bool same = std::ranges::equal(before.members, message->members,
                                         [](const MessageMember& a, const MessageMember& b) {
                                             return a.name == b.name && a.data == b.data;
                                         });
    return same && target == file && file != dash ? Status::Done : run.write(target, *message);
}

// Of several files none is written if a value does not fit one of them; a bad file among them is
// told, and the others are done.
template <class Change>
Status changeFiles(CommandRun& run, const QStringList& files, const Change& change)
{
    Status status = Status::Done;
    QStringList good = files;
    for (const QString& file : files.size() > 1 ? files : QStringList()) {
        Status one = Status::Done;
        std::optional<MessageFile> message = run.read(file, one);
        if (message)
            one = change(file, *message);
        if (one == Status::WrongUse)
            return one;
        if (one != Status::Done)
            good.removeAll(file);
        status = worse(status, one);
    }
    qsizetype done = 0;
    for (const QString& file : good) {
        status = worse(status, changeFile(run, file, [&](MessageFile& message) {
                           return change(file, message);
                       }));
        run.progress(++done, good.size());
    }
    return status;
}

int memberRank(const QByteArray& name)
{
    const QString shown = shownName(name);
    const auto* const found = std::ranges::find_if(memberPatterns, [&](const MemberPattern& entry) {
        return fitsPattern(shown, QString::fromLatin1(entry.pattern));
    });
    return static_cast<int>(found - memberPatterns.begin());
}

// Where the editor would put it: known members in the order of their patterns, others behind.
void addInOrder(MessageFile& message, const QByteArray& name, const QByteArray& data)
{
    message.put(name, data);
    const int rank = memberRank(name);
    const auto place = std::ranges::find_if(message.members, [&](const MessageMember& member) {
        return memberRank(member.name) > rank;
    });
    if (place < message.members.end() - 1)
        std::rotate(place, message.members.end() - 1, message.members.end());
}

QString noMember(const MessageFile& message, const QString& name)
{
    QStringList names;
    for (const MessageMember& member : message.members)
        names.append(shownName(member.name));
    const QStringList near = nearNames(names, name);
    return u"there is no member %1"_s.arg(name) +
           (near.isEmpty() ? QString() : u"; near are "_s + near.join(u", "_s));
}

Status putMembers(CommandRun& run, bool add)
{
    const std::optional<FilesAndValues> parts = split(run);
    if (!parts)
        return Status::WrongUse;
    MemberMaking pictures(run.appPath());
    return changeFiles(run, parts->files, [&](const QString& file, MessageFile& message) {
        for (const Assignment& put : parts->values) {
            const QByteArray name = put.name.toUtf8();
            const bool there = message.find(name) != nullptr;
            if (!add && !there)
                return run.wrongUse(file, noMember(message, put.name));
            if (add && there)
                return run.wrongUse(file, u"%1 is there already; replace it"_s.arg(put.name));
            const Result<QByteArray> data = pictures.memberFrom(put.value, message, name);
            if (!data)
                return run.fail(put.value, data.failure());
            if (there)
                message.put(name, *data);
            else
                addInOrder(message, name, *data);
        }
        return Status::Done;
    });
}

} // namespace

QString unknownName(const MessageFile& message, const ZUKarr& catalogue, const QString& name)
{
    const QStringList near = nearNames(message, catalogue, name);
    return u"there is no parameter %1"_s.arg(name) +
           (near.isEmpty() ? QString() : u"; near are "_s + near.join(u", "_s));
}

Status runSet(CommandRun& run)
{
    const std::optional<FilesAndValues> parts = split(run);
    if (!parts)
        return Status::WrongUse;
    return changeFiles(run, parts->files, [&](const QString& file, MessageFile& message) {
        for (const Assignment& value : parts->values) {
            const Result<void> set = setValue(message, run.catalogue(), value.name, value.value);
            if (!set && set.failure().kind == FailureKind::NotFound)
                return run.wrongUse(file, unknownName(message, run.catalogue(), value.name));
            if (!set)
                return run.wrongUse(file, QString::fromStdString(set.failure().text));
        }
        return Status::Done;
    });
}

Status runReplace(CommandRun& run)
{
    return putMembers(run, false);
}

Status runAdd(CommandRun& run)
{
    return putMembers(run, true);
}

Status runRemove(CommandRun& run)
{
    const QString file = run.arguments().first();
    return changeFile(run, file, [&](MessageFile& message) {
        for (const QString& name : run.arguments().mid(1)) {
            const auto found =
                std::ranges::find(message.members, name.toUtf8(), &MessageMember::name);
            if (found == message.members.end())
                return run.wrongUse(file, noMember(message, name));
            if (IsRequiredMember(name))
                return run.wrongUse(file, u"%1 is required; it can be replaced"_s.arg(name));
            message.members.erase(found);
        }
        return Status::Done;
    });
}

Status runFont(CommandRun& run)
{
    const QString file = run.arguments().first();
    const QString member = run.option(u"member"_s, mainFontName);
    bool good = false;
    const double size = run.option(u"size"_s, u"14"_s).toDouble(&good);
    if (!good || size < 1 || size > mostFontPoints(FontScanSettings().logPixelsY))
        return run.wrongUse(file, u"%1 is no size in points"_s.arg(run.option(u"size"_s)));
    if (!run.has(u"face"_s) || memberKind(member) != MemberKind::Font)
        return run.wrongUse(file, u"--face NAME is missing, or %1 is no font"_s.arg(member));
    const FontRequest request{run.option(u"face"_s), size, run.option(u"chars"_s)};
    QStringList near;
    const Result<QByteArray> font = makeFont(run.appPath(), request, near);
    if (!font && font.failure().kind == FailureKind::NotFound)
        return run.wrongUse(
            request.face, QString::fromStdString(font.failure().text) +
                              (near.isEmpty() ? QString() : u"; near are "_s + near.join(u", "_s)));
    if (!font)
        return run.fail(request.face, font.failure());
    return changeFile(run, file, [&](MessageFile& message) {
        if (message.find(member.toUtf8()) != nullptr)
            message.put(member.toUtf8(), *font);
        else
            addInOrder(message, member.toUtf8(), *font);
        return Status::Done;
    });
}

} // namespace fennel
