// SPDX-License-Identifier: MIT
// The language: how it is chosen, and how everything that is shown takes it on.
#include "base/settings_file.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/problems/problem_link.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"

namespace fennel {

namespace {

// Kept where the next start looks for it: the settings file wins over the store.
void chooseLanguage(MainWindow& window, int index)
{
    Workbench& bench = window.workbench();
    const Language& language = languageTable()[static_cast<std::size_t>(index)];
    bench.shell.run.CurrentLang = QString::fromUtf16(language.code);
    bench.store.save(langsSection, languageKey, bench.shell.run.CurrentLang);
    (void)bench.shell.told(IniWrite(bench.shell, languageSetting, bench.shell.run.CurrentLang));
    bench.useLanguage();
    showLanguages(window);
}

// The lists keep their rows and what is selected.
void retranslateLists(MainWindow& window)
{
    ParamLists& lists = window.workbench().params;
    std::vector<ParamTab> fixed = fixedTabs();
    for (int tab = TabMenu; tab <= lists.tabCount(); ++tab) {
        ParamTab& shown = lists.tabs[static_cast<std::size_t>(tab)];
        shown = tab < FirstObjectTab ? fixed[static_cast<std::size_t>(tab)]
                                     : objectTab(*lists.object(shown.object), shown.object);
        if (window.shell().run.GfxOpened)
            refillList(window, tab);
    }
    rebuildTabs(window);
}

} // namespace

void showLanguages(MainWindow& window)
{
    std::vector<Menus::Entry> entries;
    for (const Language& language : languageTable())
        entries.push_back({static_cast<int>(entries.size()),
                           QString::fromUtf16(language.name),
                           true,
                           window.shell().run.CurrentLang == QStringView(language.code),
                           {}});
    window.menus().setEntries("mnuView_LanguageArr", entries);
}

void retranslate(MainWindow& window)
{
    ParamLists& lists = window.workbench().params;
    const int tab = lists.CurrentTab;
    closeValueEditor(window);
    window.document().loadCatalogue();
    window.menus().retranslate();
    retranslateLists(window);
    window.UpdateInterface();
    showHistory(window);
    showMenuLevelBox(window);
    window.problemLink().check();
    showLeftWork(window);
    selectTab(window, tab);
    // What is said of the selected row, and what can be done with it.
    if (lists.CurrentRow > 0)
        Q_EMIT window.rightPanel().rowSelected(tab, lists.CurrentRow, false);
    if (!window.shell().run.GfxOpened)
        window.showWelcome();
    window.refreshThumbnails();
    window.ShowBackground();
}

void addLanguageCommands(MainWindow& window)
{
    window.commands().addArray("mnuView_LanguageArr",
                               [&window](int index) { chooseLanguage(window, index); });
}

} // namespace fennel
