// SPDX-License-Identifier: MIT
// What the commands of the window do, a file for each menu or area. The add… functions put their
// commands into the window's table; the others are what commands of different files share.
#pragma once

#include "document/opening.h"

#include <QPoint>
#include <QString>

#include <vector>

namespace fennel {

class MainWindow;
struct PopupEntry;
struct StepPlace;

void addFileCommands(MainWindow& window);
void addRestoreCommands(MainWindow& window);
void addViewCommands(MainWindow& window);
void addEditCommands(MainWindow& window);
void addToolCommands(MainWindow& window);
void addPictureCommands(MainWindow& window);
void addComponentCommands(MainWindow& window);
void addArchiveCommands(MainWindow& window);
void connectTextButtons(MainWindow& window);
void addFlashCommands(MainWindow& window);
void addHelpCommands(MainWindow& window);
void addFontCommands(MainWindow& window);
void addObjectCommands(MainWindow& window);
void connectLists(MainWindow& window);
// The button that deletes, and the menus of rows and tabs.
void connectMemberRows(MainWindow& window);
void showListMenu(MainWindow& window, const std::vector<PopupEntry>& entries, QPoint place);
// The menu of an object on the stage; false if it has no command.
bool fillObjectMenu(MainWindow& window, int object);
// Entries of arrays that never change, once the menus stand.
void showFixedEntries(MainWindow& window);

// The languages in their menu, with the one in force marked.
void showLanguages(MainWindow& window);
// The box CheckFromMenu, usable only with a menu file chosen.
void showMenuLevelBox(MainWindow& window);
// Everything that is shown, in the language of the run.
void retranslate(MainWindow& window);
void addLanguageCommands(MainWindow& window);
// Brings one part of a gfxboot that is being opened to the window.
void showStep(MainWindow& window, OpenStep step);
void showUpgradedEngine(MainWindow& window);
// The gfxboot became one of another generation: every list and object anew.
void showGeneration(MainWindow& window);
// The fixed tabs and the views of all tabs, as ParamLists has them now.
void rebuildTabs(MainWindow& window);
// Fills one of the fixed lists anew and shows it.
void refillList(MainWindow& window, int tab);
// After members came or went: #.lst, the lists, the thumbnails. A pattern names what is new.
void membersChanged(MainWindow& window, const QString& addedPattern);
// The same for members that changed only: #.lst stays, with the order of the archive.
void refillMembers(MainWindow& window);
// The pictures Logo_??.jpg of the Workspace go to the stage.
void loadLogos(MainWindow& window);
// Replaces the member of a row by a picture of the user's choice.
void changeBackground(MainWindow& window, const QString& name);
void changeLogo(MainWindow& window, const QString& name);
void changePicture(MainWindow& window, const QString& name);
// Opens the text member of the current row in the text editor; false if the row is none.
[[nodiscard]] bool EditTextFile(MainWindow& window);
// Whether the editor's frame may be used for something else: a changed text in it is asked about.
[[nodiscard]] bool mayLeaveText(MainWindow& window);
// A text is in work that differs from its member.
[[nodiscard]] bool textModified(MainWindow& window);
// Such a text goes into its member, as a step. False if that failed; the user was told.
[[nodiscard]] bool commitText(MainWindow& window);
// Shows the logo of that name on the stage; without such a member nothing happens.
void showLogoMember(MainWindow& window, const QString& name);
// The object shows the text of a member on the stage, now or when it is next seen.
void showTextMember(MainWindow& window, int object, const QString& name);
// Gives the stage the entries of the menu in force, and the lists what it overrides.
void MenuApply(MainWindow& window);
// The view of the run before, as it boots in the first.
void showStoredView(MainWindow& window);
// Makes a menu file of the Current Flash the menu in force; empty, or if it cannot be read: the
// embedded menu.
void takeMenu(MainWindow& window, const QString& file);
// Checks the row of the menu in force alone.
void markMenuRow(MainWindow& window);
// Takes the menu inside the gfxboot and marks its row.
void takeEmbeddedMenu(MainWindow& window);
// CheckFromMenu: the stage shows what the menu imposes, or the values of the lists again.
void switchLevels(MainWindow& window, bool fromMenu);

// Shows a tab with everything that depends on it: stage, thumbnails, buttons.
void selectTab(MainWindow& window, int tab);
// The same by the user's own choice: the tab's object is marked, or none.
void activateTab(MainWindow& window, int tab);
// The tab, the row, the object of a step or of a problem.
void showPlace(MainWindow& window, const StepPlace& place);
// Files of the Workspace have other bytes than what is shown of them.
void showMembers(MainWindow& window);
// From here on whatever changes in the document is shown, and where an undo took place.
void connectDocument(MainWindow& window);
// Undo and redo as the history has them, and the mark for changes that are not saved.
void showHistory(MainWindow& window);
void addHistoryCommands(MainWindow& window);
// Enabled state of the buttons beside the list and of the edit buttons of the toolbar.
void updateRowButtons(MainWindow& window);
// Marks a row, from 1, of a tab's list and makes it the one that commands work on.
void selectRow(MainWindow& window, int tab, int row);
// Name and value of the chosen row of gfxboot.cfg in the status line.
void showCfgStatus(MainWindow& window);
// Takes the typed value if the value editor is open. False if it fits no file: the user was told,
// and the editor stays open.
[[nodiscard]] bool CommitValue(MainWindow& window);
// Closes the value editor without taking the value.
void CloseEditor(MainWindow& window);
// CloseEditor(), but a text in work stays open with what was typed.
void closeValueEditor(MainWindow& window);

// A background of the Workspace becomes the one in use: a step, where the gfxboot keeps the choice.
void chooseBackground(MainWindow& window, const QString& name);
// Brings the parameters from the lists into their files.
bool writeParameters(MainWindow& window);

// Shows the selected font's sample, if its panel is on screen.
void showFontSample(MainWindow& window);
// A row of the fonts' list was clicked: its file is scanned and its sample shown.
void showFontRow(MainWindow& window, int row);
// The characters of the row's font file over the stage, if the row stands for a file.
void openFontContent(MainWindow& window, const QString& name);

// Brings the last used list to its menu.
void showLastUsed(MainWindow& window);
// Fills the menu of unsaved work that was left.
void showLeftWork(MainWindow& window);
// Shows the background that the parameters choose, if another one is shown.
void showChosenBackground(MainWindow& window);

} // namespace fennel
