// SPDX-License-Identifier: MIT
#include "document/restore.h"

#include "base/words.h"
#include "container/gfx_save.h"
#include "params/cfg_table.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// The name becomes a folder in WorkspaceRoot, and the journal is a file that anyone can edit.
QString plainName(const std::optional<JournalValues>& values)
{
    const QString name = values ? namePart(values->name) : QString();
    return name.isEmpty() || name == "."_L1 || name == ".."_L1 || name.startsWith(u'~')
               ? unsavedGfxName
               : name;
}

Result<QString> messageFile(const Shell& shell, const QByteArray& message, const QString& name)
{
    const QString folder = shell.run.WorkspaceRoot + u"~restore/"_s;
    Result<void> done = shell.files.makeFolder(folder);
    if (done)
        done = shell.files.write(folder + name, message);
    return done ? Result<QString>(shortForm(folder + name)) : done.failure();
}

void sayOfSource(const JournalSource& source, QStringList& words)
{
    if (source.path.isEmpty() || isUnchanged(source))
        return;
    if (FileExists(source.path))
        words.append(
            Words::tr("%1 has changed since it was opened. A save replaces it.").arg(source.path));
    else
        words.append(
            Words::tr("%1 is not there any more. A save writes it anew.").arg(source.path));
}

void restoreParams(Document& document, const JournalValues& values, Change& change)
{
    for (const auto& [key, value] : values.params) {
        const auto& shown = document.state().ZUKarr.at(key.file, key.number).Value;
        if (shown && *shown != value)
            change.params[key] = value;
    }
}

// One change brings one parameter of the lines to the objects.
void restoreConfig(Document& document, const CfgLines& lines)
{
    const CfgLines before = document.state().cfg;
    if (!document.run().GfxHasCfg || lines.isEmpty() || lines == before)
        return;
    Change change;
    change.cfg = lines;
    (void)document.apply(change, {});
    for (const CfgParam& param : cfgParams) {
        if (CfgValue(before, param.name) == CfgValue(lines, param.name))
            continue;
        change.cfgKey = param.name.toString();
        (void)document.apply(change, {});
    }
}

} // namespace

Result<Restoring> prepareRestore(const Shell& shell, const Restorable& found)
{
    Restoring restoring{{}, plainName(found.values), found.faults, {}};
    if (found.message) {
        const Result<QString> path = messageFile(shell, *found.message, restoring.name);
        if (!path)
            return path.failure();
        restoring.path = *path;
        if (found.values)
            restoring.upgraded = found.values->upgradeChoice == 1;
        else
            restoring.words.append(
                Words::tr("The files are restored, without values that were not written "
                          "into them."));
    } else if (found.values && isUnchanged(found.values->source)) {
        restoring.path = found.values->source.path;
        restoring.words.append(Words::tr("The values are restored into %1.").arg(restoring.path));
    } else {
        restoring.words.append(Words::tr("Nothing of it can be restored."));
    }
    if (found.values)
        sayOfSource(found.values->source, restoring.words);
    return restoring;
}

void restoreValues(Document& document, RunState& run, const JournalValues& values)
{
    if (!values.source.path.isEmpty()) {
        run.GfxPath = values.source.path;
        run.GfxIsGz = values.gz;
        // That it had changed was told.
        run.GfxMark = markOf(run.GfxPath);
    }
    Change change;
    restoreParams(document, values, change);
    (void)document.apply(change, {});
    restoreConfig(document, values.cfg.lines);
    document.beginHistory();
}

} // namespace fennel
