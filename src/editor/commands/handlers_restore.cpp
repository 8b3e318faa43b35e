// SPDX-License-Identifier: MIT
// File / Restore unsaved work.
#include "base/words.h"
#include "document/restore.h"
#include "editor/commands/handlers.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"

#include <QLocale>
#include <QScopedValueRollback>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString captionOf(const LeftWork& work)
{
    const QString when = QLocale::c().toString(work.when.toLocalTime(), u"yyyy-MM-dd HH:mm:ss"_s);
    const QString place =
        work.sourcePath.isEmpty() ? Words::tr("never saved") : folderPart(work.sourcePath);
    const QString caption =
        work.name.isEmpty() ? when : u"%1   (%2)   %3"_s.arg(work.name, place, when);
    return work.damaged ? caption + Words::tr("   damaged") : caption;
}

bool openRestored(MainWindow& window, const Restoring& restoring)
{
    const QScopedValueRollback answer(window.workbench().upgradeAnswer, restoring.upgraded);
    return window.openGfxboot(restoring.path);
}

// The source is named again, and the title has the mark.
void showRestored(MainWindow& window, const Restorable& found)
{
    Workbench& bench = window.workbench();
    if (found.values)
        restoreValues(bench.document, bench.shell.run, *found.values);
    bench.journal.adopt(found.values ? found.values->source : JournalSource());
    bench.document.markUnsaved();
    showChosenBackground(window);
    window.UpdateInterface();
}

void restore(MainWindow& window, int index)
{
    Workbench& bench = window.workbench();
    const LeftWork work = bench.leftWork.at(static_cast<std::size_t>(index));
    // Locked until the work stands in a journal again: nobody else restores or removes it.
    std::optional<JournalFolder> folder = JournalFolder::take(work.folder);
    if (!folder) {
        bench.shell.prompts.ShowMessage(Words::tr("This work is gone, or another window has it."));
        showLeftWork(window);
        return;
    }
    const Restorable found = readJournal(work.folder);
    Result<Restoring> restoring = prepareRestore(bench.shell, found);
    if (!restoring) {
        (void)bench.shell.told(restoring.failure());
        return;
    }
    const bool opened = !restoring->path.isEmpty() && openRestored(window, *restoring);
    if (opened) {
        showRestored(window, found);
        if (bench.journal.flush()) {
            if (found.faults.isEmpty())
                folder->removeAll();
            else
                restoring->words.append(
                    Words::tr("What was found is put aside in %1.").arg(folder->putAside()));
        }
    } else {
        restoring->words.append(Words::tr("It stays in %1.").arg(work.folder));
    }
    folder.reset();
    showLeftWork(window);
    if (!restoring->words.isEmpty())
        bench.shell.prompts.ShowMessage(restoring->words.join(u'\n'), MessageType::Ok,
                                        Words::tr("Restore unsaved work"));
}

} // namespace

void showLeftWork(MainWindow& window)
{
    Workbench& bench = window.workbench();
    bench.leftWork = bench.journal.leftWork();
    std::vector<Menus::Entry> entries;
    for (const LeftWork& work : bench.leftWork) {
        const QString caption = captionOf(work);
        entries.push_back({static_cast<int>(entries.size()),
                           QString(caption).replace(u'&', u"&&"_s), true, std::nullopt,
                           work.sourcePath});
    }
    window.menus().setEntries("mnuFile_RestoreArr", entries);
    window.menus().setEnabled("mnuFile_Restore", !entries.empty());
}

void addRestoreCommands(MainWindow& window)
{
    window.commands().addArray("mnuFile_RestoreArr",
                               [&window](int index) { restore(window, index); });
}

} // namespace fennel
