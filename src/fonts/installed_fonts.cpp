// SPDX-License-Identifier: MIT
#include "fonts/installed_fonts.h"

#include "base/settings_file.h"

#include <QFile>

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>

namespace fennel {

namespace {

// Fontconfig hands out objects to be destroyed by a function of their own type each.
template <auto destroy>
struct Destroyer {
    template <class T>
    void operator()(T* object) const
    {
        destroy(object);
    }
};
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;
using ObjectSet = std::unique_ptr<FcObjectSet, Destroyer<FcObjectSetDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyer<FcFontSetDestroy>>;

const QString typeMark = QStringLiteral(" (TrueType)");

// Text number `index` of a property; empty if there is none.
const char* rawText(const FcPattern* pattern, const char* property, int index)
{
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, property, index, &text) != FcResultMatch)
        return "";
    return reinterpret_cast<const char*>(text);
}

// The text of a property in English, or its first one.
QString englishText(const FcPattern* pattern, const char* property, const char* languages)
{
    // The names of a property and their languages are two lists of the same order. English is
    // preferred: the name goes into settings and font names that must not change with the user's
    // language.
    for (int i = 0; *rawText(pattern, languages, i) != '\0'; ++i) {
        if (QByteArrayView(rawText(pattern, languages, i)) == QByteArrayView("en"))
            return QString::fromUtf8(rawText(pattern, property, i));
    }
    return QString::fromUtf8(rawText(pattern, property, 0));
}

// The upper half of a face's index numbers the instances of a variable font.
bool isPlainFace(const FcPattern* pattern)
{
    int index = 0;
    return FcPatternGetInteger(pattern, FC_INDEX, 0, &index) != FcResultMatch ||
           (static_cast<unsigned>(index) >> 16) == 0;
}

InstalledFont fontOf(const FcPattern* pattern)
{
    return {englishText(pattern, FC_FAMILY, FC_FAMILYLANG),
            englishText(pattern, FC_STYLE, FC_STYLELANG),
            QFile::decodeName(rawText(pattern, FC_FILE, 0))};
}

} // namespace

QString InstalledFont::fullName() const
{
    // Both words name the upright face of usual weight.
    if (style.isEmpty() || style == QLatin1String("Regular") || style == QLatin1String("Book"))
        return family;
    return family + QLatin1Char(' ') + style;
}

std::vector<InstalledFont> installedFonts()
{
    // Only outlines can be drawn at any size, which the font maker needs.
    const Pattern wanted(FcPatternBuild(nullptr, FC_FONTFORMAT, FcTypeString, "TrueType",
                                        FC_OUTLINE, FcTypeBool, FcTrue, nullptr));
    const ObjectSet asked(FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_STYLE, FC_STYLELANG,
                                           FC_FILE, FC_INDEX, nullptr));
    const FontSet found(FcFontList(nullptr, wanted.get(), asked.get()));
    std::vector<InstalledFont> fonts;
    for (int i = 0; found && i < found->nfont; ++i) {
        if (isPlainFace(found->fonts[i]))
            fonts.push_back(fontOf(found->fonts[i]));
    }
    return fonts;
}

QStringList installedFontFiles()
{
    const Pattern wanted(FcPatternCreate());
    const ObjectSet asked(FcObjectSetBuild(FC_FILE, nullptr));
    const FontSet found(FcFontList(nullptr, wanted.get(), asked.get()));
    QStringList paths;
    for (int i = 0; found && i < found->nfont; ++i)
        paths.append(QFile::decodeName(rawText(found->fonts[i], FC_FILE, 0)));
    paths.removeDuplicates();
    return paths;
}

QString fontListText(const std::vector<InstalledFont>& fonts)
{
    QStringList lines;
    for (const InstalledFont& font : fonts)
        lines.append(font.fullName() + typeMark + QLatin1Char('>') + namePart(font.path));
    // Several files may give the same line; the order must not hang on the one of the file system.
    lines.sort();
    lines.removeDuplicates();
    return lines.join(QLatin1Char('\n'));
}

QString installedFontList()
{
    return fontListText(installedFonts());
}

QString naturalSans()
{
    const Pattern wanted(FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, "sans-serif",
                                        FC_FONTFORMAT, FcTypeString, "TrueType", FC_OUTLINE,
                                        FcTypeBool, FcTrue, nullptr));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    return found ? fontOf(found.get()).fullName() : QString();
}

QString firstTrueTypeName(const QString& fontList)
{
    QString sans = naturalSans();
    if (!sans.isEmpty() && (u'\n' + fontList).contains(u'\n' + sans + typeMark))
        return sans;
    QStringList lines = fontList.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.sort();
    // Faces for formulas have letters for every alphabet, and none to read.
    std::stable_partition(lines.begin(), lines.end(), [](const QString& line) {
        return !line.contains(QLatin1String("Math"));
    });
    for (const QString& line : std::as_const(lines)) {
        const qsizetype split = line.lastIndexOf(QLatin1Char('>'));
        const QString file = namePart(line.mid(split + 1));
        // ".TTF" anywhere in the file's name counts, at its end or not.
        if (split < 0 || !file.contains(QLatin1String(".TTF"), Qt::CaseInsensitive))
            continue;
        QString name = line.left(split);
        const qsizetype mark = name.indexOf(typeMark);
        return mark >= 0 ? name.left(mark) : name;
    }
    return {};
}

QString firstRunFontName(const QString& fontList)
{
    // From the font with most characters down. The name may occur anywhere in the list, so "Arial
    // Narrow" stands for "Arial" as well.
    for (const char* name : {"Arial Unicode MS", "Tahoma", "Arial"}) {
        if (fontList.contains(QLatin1String(name)))
            return QString::fromLatin1(name);
    }
    return firstTrueTypeName(fontList);
}

QString DefaultFontName(const Shell& shell, const QString& fontList)
{
    if (FileExists(settingsFile(shell.run))) {
        // An empty value occurs in every list and is therefore taken as it is.
        QString name = IniRead(shell, QStringLiteral("Default Font Name"));
        if (!fontList.isEmpty() && fontList.contains(name))
            return name;
    }
    return firstTrueTypeName(fontList);
}

} // namespace fennel
