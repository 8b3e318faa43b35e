// SPDX-License-Identifier: MIT
#include "fonts/face_measure.h"

#include "fonts/freetype_face.h"
#include "fonts/installed_fonts.h"

#include <QStringList>

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

FaceMeasure::FaceMeasure(const FontRecord& record)
    : m_face(std::make_unique<FreetypeFace>(pathOfFace(record).toStdString()))
{
}

FaceMeasure::~FaceMeasure() = default;

std::optional<std::vector<LetterSize>>
FaceMeasure::letters(int size, std::span<const char32_t> characters) const
{
    constexpr FT_Pos pixel = 64; // FreeType counts in 26.6 fixed point
    const FT_Face face = m_face->get();
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
