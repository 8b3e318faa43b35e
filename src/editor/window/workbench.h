// SPDX-License-Identifier: MIT
// Everything that one run of the program holds, owned together. main makes one; a test makes its
// own, two at once if it likes.
#pragma once

#include "base/languages.h"
#include "base/last_used.h"
#include "base/shell_context.h"
#include "base/user_store.h"
#include "document/journal.h"
#include "editor/lists/param_lists.h"
#include "editor/window/status_line.h"
#include "editor/window/toolbar_table.h"
#include "fonts/char_sets.h"
#include "fonts/scan_fonts.h"

namespace fennel {

struct Workbench {
    Shell shell;
    UserStore& store;
    Languages languages;
    LastUsed lastUsed;
    FontState fonts;
    Document document{shell, fonts.table};
    Journal journal{shell, document};
    std::vector<LeftWork> leftWork; // as mnuFile_RestoreArr lists it
    // Of work that is being restored: whether its engine was upgraded.
    std::optional<bool> upgradeAnswer;
    ParamLists params{document};
    FontScanSettings fontSettings;
    CharSelected characters = startingCharacters(); // for the next font that is made
    WindowFlags flags;
    StatusFields status;
    bool TextIsUtf8 = false; // the text in the text editor came from a file with the mark of UTF-8
    QString EditedText;      // the member that the text editor was last opened for
    int EditedObject = -1;   // the object that shows that text, -1 none

    // The shell's parts and the store outlive the workbench.
    Workbench(const Shell& shellParts, UserStore& userStore)
        : shell(shellParts), store(userStore), lastUsed(userStore)
    {
    }
    // The words of the run's language.
    void useLanguage()
    {
        languages.use(shell.run.CurrentLang, shell.run.AppPath + QStringLiteral("/data"));
    }
};

} // namespace fennel
