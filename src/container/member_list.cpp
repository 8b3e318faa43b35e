// SPDX-License-Identifier: MIT
#include "container/member_list.h"

#include "container/member_table.h"

#include <algorithm>

namespace fennel {

namespace {

// Moves every known member of `old` to the result, in the order of member_table.h. The search is on
// the raw text: a name is also found, and taken out, as the end of a longer name on a line.
QByteArray takeKnownMembers(const QString& folder, const QString& addedPattern, QByteArray& old)
{
    QByteArray known;
    for (const MemberPattern& entry : memberPatterns) {
        for (const QString& name : filesLike(folder, QString::fromLatin1(entry.pattern))) {
            const QByteArray line = name.toUtf8() + "\r\n";
            // Only what the list had: working files and leftovers in the folder are no members.
            if (old.contains(line)) {
                known += line;
                old.replace(line, "");
            } else if (!addedPattern.isEmpty() && fitsPattern(name, addedPattern)) {
                known += line;
            }
        }
    }
    return known;
}

} // namespace

Result<void> RebuildMemberList(const Shell& shell, const QString& addedPattern)
{
    const QString& folder = shell.run.Workspace;
    const QString path = folder + memberListName;
    const Result<QByteArray> list = readBytes(path);
    if (!list) {
        const Failure lost{FailureKind::NotFound, "Gfxboot info is lost!"};
        return shell.tell(lost, [&](const QString& text) { shell.prompts.ShowMessage(text); });
    }
    QByteArray old = *list;
    QByteArray names = takeKnownMembers(folder, addedPattern, old);
    // Unknown members keep their order behind the known ones, as long as their file is there.
    for (const MemberName& name : memberNames(old)) {
        if (memberSize(folder, name.bytes) >= 0)
            names += name.bytes + "\r\n";
    }
    // Renamed over the old list: a save after half a list would lose members.
    const QString fresh = folder + QStringLiteral("#.lst.new");
    Result<void> done = shell.files.write(fresh, names);
    if (done)
        done = shell.files.rename(fresh, path);
    if (!done)
        (void)shell.files.remove(fresh);
    return done ? done : shell.tell(done.failure());
}

bool isListed(const QString& folder, const QString& name)
{
    const Result<QByteArray> list = readBytes(folder + memberListName);
    const std::vector<MemberName> names = list ? memberNames(*list) : std::vector<MemberName>();
    return std::ranges::find(names, name, &MemberName::text) != names.end();
}

} // namespace fennel
