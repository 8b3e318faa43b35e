// SPDX-License-Identifier: MIT
#include "container/member_list.h"

#include "container/member_table.h"

#include <QHash>

#include <algorithm>

namespace fennel {

namespace {

struct KnownName {
    QByteArray bytes;
    QString text;
    std::size_t place = 0; // in the catalogue
    bool listed = false;
};

// The files of a folder that the catalogue knows, in its order.
std::vector<KnownName> knownNames(const QString& folder)
{
    std::vector<KnownName> names;
    for (const QByteArray& bytes : plainFiles(folder)) {
        const QString text = QString::fromUtf8(bytes);
        const std::size_t place = memberPlace(text);
        if (bytes.isValidUtf8() && place < memberPatterns.size())
            names.push_back({bytes, text, place});
    }
    std::ranges::sort(names, [](const KnownName& a, const KnownName& b) {
        const int order = a.text.compare(b.text, Qt::CaseInsensitive);
        if (a.place != b.place)
            return a.place < b.place;
        return order != 0 ? order < 0 : a.text < b.text;
    });
    return names;
}

// Marks the names that have a line, and returns the other lines. Only a line with a carriage return
// is one of a list that was made here.
QByteArray takeKnownNames(const QByteArray& list, std::vector<KnownName>& names)
{
    QHash<QByteArrayView, KnownName*> known;
    for (KnownName& name : names)
        known.insert(name.bytes, &name);
    QByteArray others;
    for (const QByteArray& line : list.split('\n')) {
        KnownName* name = line.endsWith('\r') ? known.value(line.chopped(1)) : nullptr;
        if (name != nullptr)
            name->listed = true;
        else
            others += line + '\n';
    }
    return others;
}

} // namespace

Result<void> RebuildMemberList(const Shell& shell, const QString& addedPattern)
{
    const QString& folder = shell.run.Workspace;
    const Result<QByteArray> list = readBytes(folder + memberListName);
    if (!list) {
        const Failure lost{FailureKind::NotFound, "Gfxboot info is lost!"};
        return shell.tell(lost, [&](const QString& text) { shell.prompts.ShowMessage(text); });
    }
    std::vector<KnownName> known = knownNames(folder);
    const QByteArray others = takeKnownNames(*list, known);
    QByteArray names;
    // Only what the list had: working files and leftovers in the folder are no members.
    for (const KnownName& name : known) {
        if (name.listed || (!addedPattern.isEmpty() && fitsPattern(name.text, addedPattern)))
            names += name.bytes + "\r\n";
    }
    // Unknown members keep their order behind the known ones, as long as their file is there.
    for (const MemberName& name : memberNames(others)) {
        if (memberSize(folder, name.bytes) >= 0)
            names += name.bytes + "\r\n";
    }
    const Result<void> done = putMember(shell, memberListName, names);
    return done ? done : shell.tell(done.failure());
}

Result<void> putMember(const Shell& shell, const QString& name, const QByteArray& bytes)
{
    const QString fresh = shell.run.WorkspaceRoot + QStringLiteral("~member");
    Result<void> done = shell.files.write(fresh, bytes);
    if (done)
        done = shell.files.rename(fresh, shell.run.Workspace + name);
    if (!done)
        (void)shell.files.remove(fresh);
    return done;
}

bool isListed(const QString& folder, const QString& name)
{
    const Result<QByteArray> list = readBytes(folder + memberListName);
    const std::vector<MemberName> names = list ? memberNames(*list) : std::vector<MemberName>();
    return std::ranges::find(names, name, &MemberName::text) != names.end();
}

QString nameBesideMembers(const QString& folder, const QString& name)
{
    QString free = name;
    while (isListed(folder, free))
        free.prepend(QLatin1Char('#'));
    return free;
}

} // namespace fennel
