// SPDX-License-Identifier: MIT
// What the font dialog shows and decides, without its window: the list of fonts, the page of 256
// characters, the captions of its switches.
#pragma once

#include "fonts/char_sets.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace fennel {

// A row of the list of fonts.
struct FontFile {
    QString name;     // such as "DejaVu Sans Bold"
    QString fileName; // such as "DejaVuSans-Bold.ttf"

    [[nodiscard]] QString rowText() const { return name + QStringLiteral(" > ") + fileName; }
    [[nodiscard]] bool bold() const { return name.contains(QStringLiteral(" Bold")); }
    [[nodiscard]] bool italic() const { return name.contains(QStringLiteral(" Italic")); }
};

// The rows from a list of installed fonts (a line "Name (TrueType)>file" each): those whose file is
// a ".ttf" in any case, every name once, in the order of the list.
std::vector<FontFile> fontFiles(const QString& fontList);

// The place of a font by its name, from 0, the words " Bold" and " Italic" standing anywhere in it.
// An unknown name gives that of `usual`, the sans of the system, or 0.
int placeOfFont(const std::vector<FontFile>& fonts, const QString& fontStyleName,
                const QString& usual = {});

// What a font's tag calls it: the words bold and italic have places of their own there, all others
// stay in the name, so that it leads back to the font. `family` is what the system calls it.
QString tagFamily(const FontFile& font, const QString& family);
// The words that the name has behind the family, bold and italic left out.
QString extraStyle(const FontFile& font, const QString& family);

// The family by which the system shows a font of that name: the name itself, or what is left when
// " Bold", " Italic" and " Обычный" are taken away one after the other, the last of them that is
// installed; otherwise the longest installed family with which the name begins. Empty: none.
QString familyOfName(const QString& name, const QStringList& families);

// "Font name: …" and "Font file: …", a line each.
QString fontExampleText(const FontFile& font);

// The font tool gets a file's name without its ending ".TTF".
inline constexpr qsizetype fontEndingLength = 4;

inline constexpr int pageCount = 256;
inline constexpr int cellCount = 256; // of a page
inline constexpr int cellColumns = 32;

// The glyphs of all cells, a line feed behind every row.
QString pageText(int page);
// "U+0400 - U+04FF".
QString pageRange(int page);
// The hint over a cell: "Unicode: U+0410,  UTF-8: D0 90". Codes from U+0800 on are given by the
// same two-byte form, though UTF-8 has three bytes for them: the first number then leaves the byte
// range.
QString cellHint(int page, int cell);
// The character of a cell; empty for U+007F to U+00A0, a blank below U+0020.
QString cellGlyph(int page, int cell);

inline constexpr int viewCount = 4;
enum DialogView { WindowsView, ScaledView, PageView, SelectedView };

// The captions of the four view switches.
QString viewCaption(int view, int page, double previewScale);
// The size in points of the shown text.
double viewFontSize(int view, double size, double previewScale);
// Pixels of so many points on a display of 96 dots per inch, 1 at least.
int facePixels(double points);
// Whether "Load From ..." and "Load Default" are offered.
bool offersFromFont(int view, const QString& title);
bool offersDefault(int view);

// Titles of the dialog, by what it is for.
QString addFontTitle();
// The title tells which member is edited; addFontTitle() stands for none.
QString editFontTitle(const QString& member);
// The button "Load From ..." by the dialog's title.
QString fromFontCaption(const QString& title);
QString fromFontHint(const QString& title);
// The member that a caption of that button names.
QString memberOfCaption(const QString& caption);

// By what the font tool finds the file at `path`: its bare name if the tool's search by that name,
// without its last four characters, finds no other of `files`, the paths of all font files of the
// system; otherwise the path.
QString nameForTool(const QString& path, const QStringList& files);

// What the user chose. Sizes are points, spacings boot-screen pixels.
struct FontChoice {
    QString family;
    bool bold = false;
    bool italic = false;
    double size = 14;
    QString fileName; // of the TrueType file, as nameForTool() has it
    qint16 FontSpaceWidth = 4;
    qint16 FontLineSpace = 0;
    qint16 FontLetterSpace = 0;
};

} // namespace fennel
