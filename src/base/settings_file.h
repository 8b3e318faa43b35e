// SPDX-License-Identifier: MIT
// The settings file, beside the executable or the user's own, and the reader of every other file of
// "key=value" lines: plain text in code page 1251 or UTF-8 with a mark, no sections, lines ended by
// CR LF. Keys are matched without regard to case, blanks and tabs; the first fitting line wins. A
// value ends at a
// "|" or at the line's end.
#pragma once

#include "base/shell_context.h"

namespace fennel {

// The key of the run's language.
inline const QString languageSetting = QStringLiteral("Default Language");

// Path of "FENNEL.ini" in the folder. It is one file in whatever case somebody spelled it: one that
// is there under another case is that file.
QString settingsFile(const QString& folder);
// That of the run: in SettingsPath, or in AppPath as long as no folder of its own is set.
QString settingsFile(const RunState& run);

// The trimmed value of a key in the text of such a file; empty if no line has the key.
QString iniValue(const QString& text, const QString& key);

// The same from a file. An empty name means the settings file. A missing file is told to the user
// as "File not found: " and its path, and gives an empty value.
QString IniRead(const Shell& shell, const QString& key, const QString& file = {});

// Adds raw text at the end of a file, in the encoding that the file has.
Result<void> IniAppend(const Shell& shell, const QString& file, const QString& text);
// Adds a line of its own, also behind a last line that was left without an end.
Result<void> IniAppendLine(const Shell& shell, const QString& file, const QString& line);

// Gives a key of the settings file another value: in the line that counts, or in a new one.
Result<void> IniWrite(const Shell& shell, const QString& key, const QString& value);

// Writes the settings file of a first run: its four keys in their order. `language` has four
// digits. After a failure no part of the file is left behind.
Result<void> createSettingsFile(const Shell& shell, const QString& fontName,
                                const QString& language);

enum class NextStep { GoOn, EndProcess };

// Without the settings file, which the first run could not write, it shows "Is Not Admin". An
// installed program does without: its defaults count where a home cannot be written to.
NextStep settingsFileThere(const Shell& shell);

} // namespace fennel
