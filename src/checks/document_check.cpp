// SPDX-License-Identifier: MIT
#include "checks/document_check.h"

#include "base/file_names.h"
#include "base/files.h"
#include "base/posix_file.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "params/cfg_keep.h"
#include "params/level_files.h"

#include <QFile>

#include <algorithm>

namespace fennel {

namespace {

// A member that no check reads is there with its name, its beginning and its size.
bool isRead(const QString& name)
{
    switch (memberKind(name)) {
    case MemberKind::Sound:
    case MemberKind::Unknown:
        return name == cfgMemberName;
    default:
        return true;
    }
}

QByteArray bytesOf(const RunState& run, const MemberName& name)
{
    QByteArray bytes;
    const QByteArray path = QFile::encodeName(run.Workspace) + name.bytes;
    if (!readWhole(path.toStdString(), readLimit, bytes))
        return {};
    return bytes;
}

// Enough to know a boot program by.
QByteArray beginningOf(const RunState& run, const MemberName& name)
{
    constexpr qint64 head = 16;
    const Result<QByteArray> front = readFront(run.Workspace + pathOfBytes(name.bytes), head);
    return front ? *front : QByteArray();
}

// As it will be, since the lists are ahead of the files.
QByteArray savedBytes(const CheckedDocument& checked, const MemberName& name)
{
    QByteArray bytes = bytesOf(checked.run, name);
    if (name.text == cfgMemberName && !checked.config.bytes.isEmpty())
        return keptCfg(checked.config.bytes, checked.config.lines);
    for (int file = 0; checked.run.GfxHasZuk && file < zukFileCount; ++file) {
        if (name.text == levelFileName(file))
            return keptRecords(bytes, checked.state.ZUKarr, file);
    }
    return bytes;
}

bool lists(const PanelRec& panel, const ParamKey& key)
{
    return panel.Enabled && levelFileOf(panel) == key.file &&
           std::ranges::find(panel.Ids, key.number, &PanelParam::number) != panel.Ids.end();
}

} // namespace

CheckedDocument checkedDocument(const Document& document, const FontTable& fonts)
{
    CheckedDocument checked{document.run(), document.state(), fonts, document.config(), {}, {}};
    checked.run.rootLock.reset();
    GatherListValues(checked.state.ZUKarr);
    return checked;
}

std::vector<Problem> findProblems(const CheckedDocument& checked, const std::atomic<bool>& stopped)
{
    CheckInput input{checked.run, checked.state, checked.fonts, std::nullopt};
    if (!checked.menuFile.isEmpty()) {
        if (const Result<QString> text = readMenu(checked.drive, checked.menuFile))
            input.menu = *text;
    }
    const Result<QByteArray> list = readBytes(checked.run.Workspace + memberListName);
    for (const MemberName& name : list ? memberNames(*list) : std::vector<MemberName>()) {
        if (stopped)
            return {};
        if (isRead(name.text))
            input.add(name.text, savedBytes(checked, name));
        else
            input.add(name.text, beginningOf(checked.run, name),
                      memberSize(checked.run.Workspace, name.bytes));
    }
    return findProblems(input, &stopped);
}

StepPlace placeOf(const ParamState& state, const Problem& problem)
{
    StepPlace place;
    place.object = problem.object;
    if (problem.param.number > 0) {
        place.param = problem.param;
        for (int row = 0; place.object < 0 && row < static_cast<int>(state.PanelArr.size());
             ++row) {
            if (lists(*state.object(row), problem.param))
                place.object = row;
        }
    }
    if (place.param.number == 0 || place.object < 0)
        place.member = problem.member;
    if (problem.member == cfgMemberName && !problem.parameter.isEmpty())
        place.cfgName = problem.parameter;
    return place;
}

} // namespace fennel
