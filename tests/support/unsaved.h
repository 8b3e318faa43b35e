// SPDX-License-Identifier: MIT
// What a save of the open gfxboot would write, as one text to compare; and work to lose.
#pragma once

#include "container/member_list.h"
#include "container/member_table.h"
#include "document/journal_files.h"
#include "support/story.h"

#include <QFileInfo>

namespace fennel::test {

struct SavableState {
    QByteArray values;
    QByteArray members;
    bool operator==(const SavableState&) const = default;
};

// Members are read again only if their file is another one or has another time.
inline QByteArray memberDigest(const QString& path)
{
    static std::map<QString, QByteArray> known;
    const QFileInfo file(path);
    const QString key = path + u' ' + QString::number(file.size()) + u' ' +
                        QString::number(file.lastModified().toMSecsSinceEpoch());
    QByteArray& digest = known[key];
    if (digest.isEmpty())
        digest = checksumOf(bytesOf(path));
    return digest;
}

// Level files and gfxboot.cfg are written by a save only; until then the values count.
inline SavableState savableState(Story& story)
{
    const Document& document = story.bench.document;
    SavableState state;
    const bool levels = document.generation() == Generation::Three;
    for (int file = 0; levels && file < zukFileCount; ++file) {
        for (int number = 1; number <= zukParamCount; ++number) {
            if (const auto& value = document.state().ZUKarr.at(file, number).Value)
                state.values += QByteArray::number(file) + '/' + QByteArray::number(number) + '=' +
                                value->text().toUtf8() + '\n';
        }
    }
    for (const CfgLine& line : document.state().cfg)
        state.values += (line.on ? "" : "#") + line.name.toUtf8() + '=' +
                        line.value.text().toUtf8() + line.comment.toUtf8() + '\n';
    const QString folder = story.run().Workspace;
    for (const MemberName& name : memberNames(bytesOf(folder + memberListName))) {
        if (memberKind(name.text) != MemberKind::Levels && name.text != cfgMemberName)
            state.members += name.bytes + ' ' + memberDigest(folder + name.text) + '\n';
    }
    return state;
}

// Another value for a parameter of generation 3, or for a line of gfxboot.cfg.
inline bool changeValue(Story& story, qint64 number)
{
    Document& document = story.bench.document;
    Change change;
    if (document.generation() == Generation::Three) {
        const ParamKey key{0, 2};
        if (!document.state().ZUKarr.at(key.file, key.number).Value)
            return false;
        change.params[key] = {number, false, {}};
    } else {
        change.cfg = withCfgNumber(document.state().cfg, u"menu_start_x", number);
        change.cfgKey = QStringLiteral("menu_start_x");
        change.writeCfg = number % 2 == 0;
    }
    return document.apply(change, {QStringLiteral("change"), {}, {}});
}

// Another text in a member that comes with the first one.
inline bool changeMember(Story& story, int number)
{
    const QString name = QStringLiteral("Logo_98.txt");
    return story.bench.document.changeMembers({QStringLiteral("note"), {}, {}}, [&] {
        const QString work = story.run().Workspace + QStringLiteral("#note");
        return story.shell.files.write(work, QByteArray::number(number)).ok() &&
               story.shell.files.rename(work, story.run().Workspace + name).ok() &&
               RebuildMemberList(story.shell.shell, name).ok();
    });
}

} // namespace fennel::test
