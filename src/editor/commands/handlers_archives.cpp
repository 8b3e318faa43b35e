// SPDX-License-Identifier: MIT
// Commands on archives, what is told about the open gfxboot, and the entries that are planned.
#include "base/text.h"
#include "base/words.h"
#include "container/archive_commands.h"
#include "container/picture_size.h"
#include "editor/commands/handlers.h"
#include "editor/lists/list_actions.h"
#include "editor/window/main_window.h"
#include "tools/splash_command.h"

#include <QGuiApplication>

namespace fennel {

namespace {

QString backgroundText(const Shell& shell)
{
    const RunState& run = shell.run;
    const Result<QSize> size = pictureSize(shell, run.BackFile);
    const QString measure =
        size ? QStringLiteral("%1x%2").arg(size->width()).arg(size->height()) : QStringLiteral("?");
    return QStringLiteral("%1, %2, %3 byte")
        .arg(namePart(run.BackFile), measure)
        .arg(fileSize(run.BackFile));
}

void showInfo(MainWindow& window)
{
    const RunState& run = window.shell().run;
    const ListRows& members = *window.workbench().params.list(TabGfxboot);
    qint64 bytes = 0;
    for (const ListRow& row : members.rows)
        bytes += row.size;
    window.shell().prompts.ShowMessage(
        Words::tr("Gfxboot: %1\nPath: %2\nGeneration: %3\nCompressed: %4\n"
                  "Files: %5, %6 byte\nBackground: %7")
            .arg(run.GfxFileName, run.GfxPath)
            .arg(run.gfxboot_var)
            .arg(run.GfxIsGz ? QStringLiteral("gZip") : Words::tr("no"))
            .arg(members.count())
            .arg(bytes)
            .arg(backgroundText(window.shell())),
        MessageType::Ok, Words::tr("Get INFO"));
}

using ArchiveCommand = void (*)(const Shell& shell);

void add(MainWindow& window, const char* name, ArchiveCommand command)
{
    window.commands().add(name, [&window, command] {
        if (!CommitValue(window))
            return;
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        command(window.shell());
        QGuiApplication::restoreOverrideCursor();
    });
}

} // namespace

void addArchiveCommands(MainWindow& window)
{
    add(window, "mnuEdit_Extract", mnuEdit_Extract);
    add(window, "mnuT_CPIO_Extract", mnuEdit_Extract);
    add(window, "mnuEdit_Assemble", mnuEdit_Assemble);
    add(window, "mnuT_CPIO_Assemble", mnuEdit_Assemble);
    add(window, "mnuT_GZip_Extract", mnuT_GZip_Extract);
    add(window, "mnuT_GZip_Pack", mnuT_GZip_Pack);
    add(window, "mnuFile_Splash", mnuFile_Splash);
    window.commands().add("mnuEdit_GetINFO", [&window] { showInfo(window); });
    for (const char* planned : {"mnuEdit_Sound", "aaa", "bbb", "ccc", "ddd", "eee", "fff"})
        window.commands().add(planned,
                              [&window] { window.shell().prompts.ShowMessage(plannedText()); });
}

} // namespace fennel
