// SPDX-License-Identifier: MIT
// What two message files, or a message file and what is meant, have apart.
#include "command/commands.h"

#include "command/screens.h"
#include "params/message_values.h"

#include <QJsonArray>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// One line of the difference: what only A has, what only B has, or both where they differ.
struct Difference {
    QString name;
    std::optional<QString> a;
    std::optional<QString> b;
};

void show(CommandRun& run, const QString& kind, const std::vector<Difference>& differences,
          QJsonObject& object)
{
    QJsonArray list;
    for (const Difference& each : differences) {
        QJsonObject entry{{u"name"_s, each.name}};
        if (each.a)
            entry[u"a"_s] = *each.a;
        if (each.b)
            entry[u"b"_s] = *each.b;
        list.append(entry);
        const QString change = each.a && each.b ? *each.a + u" -> "_s + *each.b
                               : each.a         ? u"only in A: "_s + *each.a
                                                : u"only in B: "_s + *each.b;
        run.print(u"%1 %2: %3\n"_s.arg(kind, each.name, change));
    }
    object[kind + u's'] = list;
}

// By name; what both have alike is left out.
template <class Item, class Text>
std::vector<Difference> differences(const std::vector<Item>& a, const std::vector<Item>& b,
                                    const Text& text)
{
    std::vector<Difference> found;
    for (const Item& item : a) {
        const auto other = std::ranges::find(b, item.name, &Item::name);
        if (other == b.end())
            found.push_back({QString(item.name), text(item), std::nullopt});
        else if (!(*other == item))
            found.push_back({QString(item.name), text(item), text(*other)});
    }
    for (const Item& item : b) {
        if (std::ranges::find(a, item.name, &Item::name) == a.end())
            found.push_back({QString(item.name), std::nullopt, text(item)});
    }
    return found;
}

struct NamedBytes {
    QString name;
    QByteArray data;
    bool operator==(const NamedBytes&) const = default;
};

std::vector<NamedBytes> membersOf(const MessageFile& message)
{
    std::vector<NamedBytes> members;
    for (const MessageMember& member : message.members)
        members.push_back({shownName(member.name), member.data});
    return members;
}

QStringList orderOf(const MessageFile& message)
{
    QStringList names;
    for (const MessageMember& member : message.members)
        names.append(shownName(member.name));
    return names;
}

// Both screens beside each other; what they have apart is told by the parts above.
Status showScreens(CommandRun& run, QJsonObject& object)
{
    Status status = Status::Done;
    const Result<QString> menu = menuText(run);
    if (!menu)
        return run.fail(run.option(u"menu"_s), menu.failure());
    std::vector<QImage> screens;
    for (const QString& file : run.arguments()) {
        if (const auto opened = openFile(run, file, status))
            screens.push_back(drawnScreen(*opened, {*menu, 0, {}}));
    }
    if (status != Status::Done)
        return status;
    const double share = 100 * equalShare(screens[0], screens[1]);
    run.print(u"screen: %1 % of the pixels are equal\n"_s.arg(share, 0, 'f', 3));
    object[u"equal"_s] = share;
    return writePicture(run, sideBySide(screens[0], screens[1]));
}

} // namespace

Status runDiff(CommandRun& run)
{
    Status status = Status::Done;
    const std::optional<MessageFile> a = run.read(run.arguments()[0], status);
    const std::optional<MessageFile> b = run.read(run.arguments()[1], status);
    if (!a || !b)
        return status;
    const auto values =
        differences(namedValues(*a, run.catalogue()), namedValues(*b, run.catalogue()),
                    [](const NamedValue& value) { return value.value; });
    const auto members = differences(membersOf(*a), membersOf(*b), [](const NamedBytes& member) {
        return u"%1 bytes"_s.arg(member.data.size());
    });
    QStringList namesA = orderOf(*a);
    QStringList namesB = orderOf(*b);
    const bool moved = namesA != namesB && (namesA.sort(), namesB.sort(), namesA == namesB);
    QJsonObject object;
    show(run, u"parameter"_s, values, object);
    show(run, u"member"_s, members, object);
    object[u"order"_s] = moved;
    if (moved)
        run.print(u"the order of the members differs\n"_s);
    if (run.has(u"output"_s))
        status = showScreens(run, object);
    run.add(object);
    const bool same = values.empty() && members.empty() && !moved;
    return worse(status, same ? Status::Done : Status::Differs);
}

} // namespace fennel
