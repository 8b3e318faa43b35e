// SPDX-License-Identifier: MIT
// The File menu.
#include "base/words.h"
#include "container/gfx_save.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"

#include <QDir>
#include <QTextDocument>

namespace fennel {

namespace {

void open(MainWindow& window)
{
    const Shell& shell = window.shell();
    if (!shell.run.GfxOpened)
        shell.prompts.ShowMessage(
            Words::tr("\"Gfxboot message\" (then simply \"gfxboot\") is a cpio-archive , \n"
                      "but additionally it can be compressed with gZip.\n"
                      "\n"
                      "You can choose any of the variants."));
    FileQuestion question;
    question.folder = shell.run.GfxOpened ? folderPart(shell.run.GfxPath) : QDir::homePath();
    question.title = Words::tr("File open....");
    question.filter = Words::tr("All Files (*.*)|*.*|");
    const QString path = shell.prompts.openFile(question);
    if (!path.isEmpty())
        window.openChosen(path);
}

void openLastUsed(MainWindow& window, int index)
{
    const auto path = window.workbench().lastUsed.clicked(window.shell(), index);
    if (path)
        window.openGfxboot(*path);
}

void clearLastUsed(MainWindow& window)
{
    window.workbench().lastUsed.clear();
    showLastUsed(window);
}

void makeNew(MainWindow& window)
{
    if (const QString path = newGfxboot(window.shell()); !path.isEmpty())
        window.openGfxboot(path);
}

void saveAs(MainWindow& window)
{
    const Shell& shell = window.shell();
    const QString shown = namePart(shell.run.BackFile);
    if (!commitText(window))
        return;
    if (!GfxSaveAs(shell, [&window] { return writeParameters(window); })) {
        // The list was filled from the copy, which is gone.
        if (shell.run.GfxOpened)
            refillList(window, TabGfxboot);
        return;
    }
    window.workbench().lastUsed.LastUsedAdd(shell, shell.run.GfxPath);
    window.document().markSaved();
    window.UpdateInterface();
    // A copy begins with its first background; the one in use is still another.
    showChosenBackground(window);
    if (namePart(shell.run.BackFile) != shown)
        window.ShowBackground();
}

void save(MainWindow& window)
{
    if (window.shell().run.GfxFileName == unsavedGfxName)
        saveAs(window);
    else if (commitText(window) &&
             GfxSave(window.shell(), [&window] { return writeParameters(window); }))
        window.document().markSaved();
}

void upgrade(MainWindow& window)
{
    if (!CommitValue(window))
        return;
    closeValueEditor(window);
    if (window.document().upgrade())
        window.shell().WriteLog(QStringLiteral("         ==> Upgrade to @ZUK-MOSA@"));
}

void reOpen(MainWindow& window)
{
    if (!mayReOpen(window.shell()))
        return;
    // That the changes are lost was agreed to; a text in work is one of them.
    window.rightPanel().editor().box().document()->setModified(false);
    window.openGfxboot(window.shell().run.GfxPath);
}

} // namespace

bool writeParameters(MainWindow& window)
{
    if (!CommitValue(window))
        return false;
    const bool done = window.document().writeParameters();
    if (window.shell().run.GfxHasZuk || window.shell().run.GfxHasCfg)
        refillList(window, TabGfxboot); // other lengths, perhaps another order
    return done;
}

void showLastUsed(MainWindow& window)
{
    const LastUsed& list = window.workbench().lastUsed;
    std::vector<Menus::Entry> entries;
    for (int i = 0; i < lastUsedLimit; ++i) {
        const LastUsed::Entry& entry = list.entries()[static_cast<std::size_t>(i)];
        if (entry.visible)
            entries.push_back({i, QString(entry.caption).replace(u'&', QStringLiteral("&&")), true,
                               std::nullopt, entry.caption});
    }
    window.menus().setEntries("mnuFile1", entries);
    window.menus().setEnabled("mnuFile_LastUsed", list.enabled());
    window.menus().setEnabled("mnuFile_Clear", list.enabled());
}

void addFileCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    commands.add("mnuFile_Open", [&window] { open(window); });
    commands.add("mnuFile_New", [&window] { makeNew(window); });
    commands.add("mnuFile_Save", [&window] { save(window); });
    commands.add("mnuFile_SaveAs", [&window] { saveAs(window); });
    commands.add("mnuFile_Upgrade", [&window] { upgrade(window); });
    commands.add("mnuFile_ReOpen", [&window] { reOpen(window); });
    commands.addArray("mnuFile1", [&window](int index) { openLastUsed(window, index); });
    commands.add("mnuFile_Clear", [&window] { clearLastUsed(window); });
    commands.add("mnuFile_Exit", [&window] { window.close(); });
}

} // namespace fennel
