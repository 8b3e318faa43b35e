// SPDX-License-Identifier: MIT
#include "fonts/face_measure.h"

#include "fonts/installed_fonts.h"

#include <QFile>
#include <QStringList>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>

namespace fennel {

namespace {

// The words of a name in an order of their own: bold and italic stand anywhere in it.
QStringList wordsOf(const QString& name)
{
    QStringList words = name.toLower().split(u' ', Qt::SkipEmptyParts);
    words.sort();
    return words;
}

QString pathOfFace(const FontRecord& record)
{
    QString name = record.FontName;
    if (record.Bold)
        name += QStringLiteral(" Bold");
    if (record.Italic)
        name += QStringLiteral(" Italic");
    const QStringList wanted = wordsOf(name);
    for (const InstalledFont& font : installedFonts()) {
        if (wordsOf(font.fullName()) == wanted)
            return font.path;
    }
    return {};
}

} // namespace

// The library and the first face of a file; both go with it.
struct FaceMeasure::Opened {
    explicit Opened(const QByteArray& path)
    {
        if (path.isEmpty() || FT_Init_FreeType(&library) != 0)
            library = nullptr;
        else if (FT_New_Face(library, path.constData(), 0, &face) != 0)
            face = nullptr;
    }
    ~Opened()
    {
        if (library != nullptr)
            FT_Done_FreeType(library); // takes the face along
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    FT_Library library = nullptr;
    FT_Face face = nullptr;
};

FaceMeasure::FaceMeasure(const FontRecord& record)
    : m_opened(std::make_unique<Opened>(QFile::encodeName(pathOfFace(record))))
{
}

FaceMeasure::~FaceMeasure() = default;

std::optional<std::vector<LetterSize>>
FaceMeasure::letters(int size, std::span<const char32_t> characters) const
{
    constexpr FT_Pos pixel = 64; // FreeType counts in 26.6 fixed point
    const FT_Face face = m_opened->face;
    if (face == nullptr || size < 1 || FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(size)) != 0)
        return std::nullopt;
    std::vector<LetterSize> letters;
    for (const char32_t code : characters) {
        const FT_UInt index = FT_Get_Char_Index(face, code);
        if (index == 0 || FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP) != 0)
            return std::nullopt;
        const auto whole = [](FT_Pos length) {
            return static_cast<int>((length + pixel / 2) / pixel);
        };
        letters.push_back({whole(face->glyph->advance.x), whole(face->glyph->metrics.height)});
    }
    return letters;
}

} // namespace fennel
