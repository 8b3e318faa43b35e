// SPDX-License-Identifier: MIT
// The fonts of the system, and the choice of the font that shows boot-screen text when nothing
// names one. The list is one text, a line "Family Style (TrueType)>file.ttf" for each font, sorted
// by code unit, lines separated by "\n"; the styles "Regular" and "Book" are left out. Only fonts
// with TrueType outlines are on it, since only they can be made into boot-screen fonts.
#pragma once

#include "base/shell_context.h"

#include <vector>

namespace fennel {

struct InstalledFont {
    QString family; // the English name if the font has one
    QString style;  // such as "Bold Italic"
    QString path;   // the full path of the file

    // "Family Style", without "Regular" and "Book".
    [[nodiscard]] QString fullName() const;
};

// Asks fontconfig. One entry for each face; of a variable font only its default instance.
std::vector<InstalledFont> installedFonts();
// The paths of all font files of the system, whatever their format, each once.
QStringList installedFontFiles();
// The fonts as list text, without doubles. Files stand without their folder.
QString fontListText(const std::vector<InstalledFont>& fonts);
// fontListText() of installedFonts().
QString installedFontList();

// The full name of what the system takes for sans-serif, of TrueType fonts; empty if there are
// none.
QString naturalSans();

// naturalSans() if the list has it. Otherwise the name of the first line, in sorted order, whose
// file name holds ".TTF" in any case, up to " (TrueType)", mathematical faces last. Empty if there
// is none.
QString firstTrueTypeName(const QString& fontList);

// The name that a first run writes into the settings file: "Arial", "Tahoma" or "Arial Unicode MS",
// the last of them that the list holds anywhere, otherwise firstTrueTypeName().
QString firstRunFontName(const QString& fontList);

// The family that shows text where a font file names none: the settings file's "Default Font Name"
// if that text occurs anywhere in the list (an empty value does), otherwise firstTrueTypeName().
QString DefaultFontName(const Shell& shell, const QString& fontList);

} // namespace fennel
