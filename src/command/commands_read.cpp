// SPDX-License-Identifier: MIT
// The commands that only read: from the archive in memory, without a folder of members.
#include "command/commands.h"

#include "base/files.h"
#include "container/jpeg_check.h"
#include "container/member_table.h"
#include "fonts/fnt_codec.h"
#include "params/cfg_table.h"
#include "params/message_values.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSize>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array generationNames{u"", u"old version", u"gfxboot.cfg", u"@ZUK-MOSA@"};

// What each generation calls the place of the menu and the number of its entries.
struct MenuNames {
    QStringView place;
    QStringView second; // y, where x has a name of its own
    QStringView entries;
};
constexpr std::array menuNames{
    MenuNames{u"s.menu.start.x", u"s.menu.start.y", u"s.menu.max.entries"},
    MenuNames{cfgDialects[0].left, cfgDialects[0].top, cfgDialects[0].entries},
    MenuNames{u"mainmenu.pos", u"", u"mainmenu.entries"},
};

// Several files are told apart as `head` does it.
void printHeading(CommandRun& run, const QString& file, qsizetype files)
{
    if (files > 1)
        run.print(u"==> %1 <==\n"_s.arg(file));
}

QSize sizeOfPicture(const QByteArray& bytes)
{
    const auto head = readJpegHead({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return head ? QSize(head->width, head->height) : QSize(0, 0);
}

QString engineOf(CommandRun& run, const QByteArray& engine)
{
    const Result<QByteArray> own = readBytes(run.appPath() + u"/data/INIT"_s);
    // The file of this program has fill bytes behind the engine.
    const bool same = own && !engine.isEmpty() && own->startsWith(engine) &&
                      own->mid(engine.size()).count('\0') == own->size() - engine.size();
    return same ? u"FENNEL-GFX"_s : engine.isEmpty() ? u"none"_s : u"another"_s;
}

QJsonArray fontsOf(const MessageFile& message)
{
    QJsonArray fonts;
    for (const MessageMember& member : message.members) {
        if (kindName(member.name) != "font"_L1)
            continue;
        QJsonObject font{{u"name"_s, shownName(member.name)}};
        const auto header =
            readFntHeader({reinterpret_cast<const std::uint8_t*>(member.data.constData()),
                           static_cast<std::size_t>(member.data.size())});
        if (header && header->magic == fntMagic) {
            font[u"characters"_s] = static_cast<qint64>(header->entries);
            font[u"height"_s] = header->fontHeight;
        }
        fonts.append(font);
    }
    return fonts;
}

QJsonObject menuOf(CommandRun& run, const MessageFile& message)
{
    QJsonObject menu;
    for (const MenuNames& names : menuNames) {
        const auto value = [&](QStringView name) {
            return namedValue(message, run.catalogue(), name.toString());
        };
        const auto place = value(names.place);
        if (!place)
            continue;
        menu[u"place"_s] = names.second.isEmpty()
                               ? *place
                               : *place + u',' + value(names.second).value_or(QString());
        menu[u"entries"_s] = value(names.entries).value_or(QString());
        // What a section of newer files says comes before the defaults of the old names.
        if (names.second.isEmpty())
            break;
    }
    return menu;
}

QJsonObject infoOf(CommandRun& run, const QString& file, const MessageFile& message)
{
    qint64 size = 0;
    for (const MessageMember& member : message.members)
        size += member.data.size();
    const QString number =
        message.generation() == 3
            ? namedValue(message, run.catalogue(), u"s.back.jpg.num"_s).value_or(QString())
            : QString();
    QByteArray back = "back_" + QByteArray::number(100 + number.toInt()).right(2) + ".jpg";
    if (message.find(back) == nullptr)
        back = "back.jpg";
    const QSize picture = sizeOfPicture(message.bytesOf(back));
    return {{u"file"_s, file},
            {u"generation"_s, message.generation()},
            {u"gzip"_s, message.gzip.has_value()},
            {u"engine"_s, engineOf(run, message.bytesOf("init"))},
            {u"size"_s, size},
            {u"members"_s, static_cast<qint64>(message.members.size())},
            {u"background"_s, QJsonObject{{u"name"_s, QString::fromLatin1(back)},
                                          {u"width"_s, picture.width()},
                                          {u"height"_s, picture.height()}}},
            {u"fonts"_s, fontsOf(message)},
            {u"menu"_s, menuOf(run, message)}};
}

void printInfo(CommandRun& run, const QJsonObject& info)
{
    const int generation = info[u"generation"].toInt();
    const QJsonObject back = info[u"background"].toObject();
    run.print(u"generation  %1 (%2)%3\n"_s.arg(
        QString::number(generation),
        QString::fromUtf16(generationNames[static_cast<std::size_t>(generation)]),
        info[u"gzip"].toBool() ? u", gzip"_s : QString()));
    run.print(u"engine      %1\n"_s.arg(info[u"engine"].toString()));
    run.print(u"members     %1, %2 bytes\n"_s.arg(info[u"members"].toInt())
                  .arg(info[u"size"].toInteger()));
    run.print(u"background  %1, %2x%3\n"_s.arg(back[u"name"].toString())
                  .arg(back[u"width"].toInt())
                  .arg(back[u"height"].toInt()));
    const QJsonArray fonts = info[u"fonts"].toArray();
    for (const auto& value : fonts) {
        const QJsonObject font = value.toObject();
        run.print(u"font        %1, %2 characters, %3 pixels\n"_s.arg(font[u"name"].toString())
                      .arg(font[u"characters"].toInt())
                      .arg(font[u"height"].toInt()));
    }
    const QJsonObject menu = info[u"menu"].toObject();
    if (!menu.isEmpty())
        run.print(u"menu        at %1, %2 entries\n"_s.arg(menu[u"place"].toString(),
                                                           menu[u"entries"].toString()));
}

QJsonObject listOf(CommandRun& run, const QString& file, const MessageFile& message)
{
    QJsonArray members;
    for (const MessageMember& member : message.members) {
        const QString name = shownName(member.name);
        const QString kind = kindName(member.name);
        members.append(
            QJsonObject{{u"name"_s, name}, {u"size"_s, member.data.size()}, {u"kind"_s, kind}});
        run.print(u"%1 %2 %3\n"_s.arg(QString::number(member.data.size()).rightJustified(9),
                                      kind.leftJustified(7), name));
    }
    return {{u"file"_s, file}, {u"members"_s, members}};
}

Status eachFile(CommandRun& run, void (*show)(CommandRun&, const QString&, const MessageFile&))
{
    Status status = Status::Done;
    for (const QString& file : run.arguments()) {
        const std::optional<MessageFile> message = run.read(file, status);
        if (!message)
            continue;
        printHeading(run, file, run.arguments().size());
        show(run, file, *message);
    }
    return status;
}

} // namespace

QString shownName(const QByteArray& name)
{
    return memberName(name).text;
}

QString kindName(const QByteArray& name)
{
    switch (memberKind(shownName(name))) {
    case MemberKind::Engine:
        return u"engine"_s;
    case MemberKind::Font:
        return u"font"_s;
    case MemberKind::Levels:
        return u"levels"_s;
    case MemberKind::Picture:
        return u"picture"_s;
    case MemberKind::Text:
        return u"text"_s;
    case MemberKind::Sound:
        return u"sound"_s;
    default:
        return u"other"_s;
    }
}

Status runInfo(CommandRun& run)
{
    return eachFile(run, [](CommandRun& each, const QString& file, const MessageFile& message) {
        const QJsonObject info = infoOf(each, file, message);
        printInfo(each, info);
        each.add(info);
    });
}

Status runList(CommandRun& run)
{
    return eachFile(run, [](CommandRun& each, const QString& file, const MessageFile& message) {
        each.add(listOf(each, file, message));
    });
}

Status runGet(CommandRun& run)
{
    Status status = Status::Done;
    const QString file = run.arguments().first();
    const std::optional<MessageFile> message = run.read(file, status);
    if (!message)
        return status;
    std::vector<NamedValue> values;
    for (const QString& name : run.arguments().mid(1)) {
        const std::optional<QString> value = namedValue(*message, run.catalogue(), name);
        if (!value)
            return run.wrongUse(file, unknownName(*message, run.catalogue(), name));
        values.push_back({name, *value});
    }
    if (run.arguments().size() == 1)
        values = namedValues(*message, run.catalogue());
    QJsonObject object;
    for (const NamedValue& value : values) {
        run.print(value.name + u'=' + value.value + u'\n');
        object[value.name] = value.value;
    }
    run.add(object);
    return Status::Done;
}

} // namespace fennel
