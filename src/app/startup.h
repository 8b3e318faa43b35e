// SPDX-License-Identifier: MIT
// The phases of a run, as far as they need no window: the start before the window exists, the
// temporary root that the window's building makes, the test that the settings file is there, and
// the end. The order of their steps is fixed.
#pragma once

#include "base/settings_file.h"
#include "base/shell_context.h"
#include "base/user_store.h"

#include <functional>

namespace fennel {

struct StartInput {
    QString executableFolder;
    QStringList words; // the command line behind the program's name
    qint64 buildTime = 0;
    std::function<QString()> fontList;        // asked for only if the settings file has to be made
    std::function<void()> languageKnown = {}; // before the first word that may be shown
};

// Sets the paths, the language and the log, and makes the settings file, the Tools folder and the
// LOGs folder if they are missing. The test for another copy comes before it. A folder that cannot
// be written to stops nothing here: settingsFileThere() tells of it.
NextStep Form_Initialize(const Shell& shell, UserStore& store, const StartInput& input);

// True if the first word, in any case, is "-logfile". Words are what blanks separate.
bool wantsLog(const QStringList& words);
// The message file that the command line names: its first word that is no switch, or the first
// behind "--". A relative path is one of the folder. Empty if there is none.
QString fileToOpen(const QStringList& words, const QString& folder);
// The language code under `DefaultLang`, in upper-case hexadecimal without leading zeros; "0409",
// which is then stored, if there is none or it is no number above zero.
QString storedLanguage(UserStore& store);

// What is in force when the window comes up: nothing open, no drive chosen, scale 1.
void resetRun(RunState& run);

// Where WorkspaceRoot may lie, best first: "FENNEL-GFX", then the same with the user's number, then
// with the number of a copy, in the folder that the environment variable "Temp" names, else in the
// system's temporary folder.
QStringList workspaceRootNames();
// Sets WorkspaceRoot to the first of these names that takeRoot() gets. What a crashed run left
// inside stays. Without any such place the user is told why.
NextStep makeWorkspaceRoot(const Shell& shell);

// Removes WorkspaceRoot with everything in it, and what crashed runs left under the other names. A
// failure does not stop the exit. Drive tracking has been ended and the font dialog closed before.
void Form_Unload(const Shell& shell);

} // namespace fennel
