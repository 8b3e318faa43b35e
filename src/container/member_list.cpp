// SPDX-License-Identifier: MIT
#include "container/member_list.h"

#include "container/member_table.h"

#include <QHash>

#include <algorithm>
#include <functional>
#include <set>

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

// Marks the names that are listed, and returns what else the list says. The result is that of a
// search for each name in turn in the raw text: a name is also found, and taken out, as the end of
// a longer one, and what is left of that line joins the next. With as many names as an archive can
// hold that search would take minutes, so each line is looked at once.
QByteArray takeKnownNames(const QByteArray& list, std::vector<KnownName>& names)
{
    constexpr qsizetype lineEnd = 2;
    QHash<QByteArrayView, std::size_t> numbers;
    std::set<qsizetype, std::greater<>> lengths;
    for (std::size_t number = 0; number < names.size(); ++number) {
        numbers.insert(names[number].bytes, number);
        lengths.insert(names[number].bytes.size());
    }
    QByteArray rest;
    qsizetype start = 0;      // of the line in `rest`
    qsizetype joint = 0;      // up to where it is left from lines before
    std::size_t joinedBy = 0; // the last name that had to be taken out for that
    const auto taken = [&](qsizetype length) {
        const qsizetype from = rest.size() - lineEnd - length;
        const auto found = from < start
                               ? numbers.cend()
                               : numbers.constFind(QByteArrayView(rest).sliced(from, length));
        // Over the joint stands only what its search still finds.
        if (found == numbers.cend() || (from < joint && *found <= joinedBy))
            return false;
        names[*found].listed = true;
        joinedBy = joint == start ? *found : std::max(joinedBy, *found);
        joint = from;
        rest.truncate(from);
        return true;
    };
    for (qsizetype at = 0; at < list.size();) {
        const qsizetype found = list.indexOf('\n', at);
        const qsizetype end = found < 0 ? list.size() : found + 1;
        rest += QByteArrayView(list).sliced(at, end - at);
        at = end;
        if (!rest.endsWith("\r\n") || std::ranges::none_of(lengths, taken))
            start = joint = rest.size();
    }
    return rest;
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

} // namespace fennel
