// SPDX-License-Identifier: MIT
// Fonts.
#include "base/failure_words.h"
#include "base/posix_file.h"
#include "base/words.h"
#include "checks/check_list.h"
#include "container/member_table.h"
#include "fonts/face_measure.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_making.h"
#include "fonts/font_tag.h"
#include "fonts/scan_fonts.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace fennel {

namespace {

constexpr int usualDpi = 96;

template <class Visit>
void eachFont(const CheckInput& input, const Visit& visit)
{
    for (const CheckedMember& member : input.members) {
        if (memberKind(member.name) == MemberKind::Font)
            visit(member);
    }
}

// Letters and digits of the Latin alphabet, which every face has.
struct Sample {
    std::vector<char32_t> characters;
    std::vector<LetterSize> letters;
};

Sample sampleOf(const FntFont& font)
{
    Sample sample;
    for (const Glyph& glyph : font.glyphs) {
        const bool usual = (glyph.code >= u'0' && glyph.code <= u'9') ||
                           (glyph.code >= u'A' && glyph.code <= u'Z') ||
                           (glyph.code >= u'a' && glyph.code <= u'z');
        if (!usual)
            continue;
        sample.characters.push_back(glyph.code);
        sample.letters.push_back({glyph.advance, glyph.height});
    }
    return sample;
}

double sumOf(const std::vector<LetterSize>& letters, int LetterSize::*length)
{
    double sum = 0;
    for (const LetterSize& letter : letters)
        sum += letter.*length;
    return sum;
}

// What a font says of itself beside what its letters are.
class TagCheck {
public:
    TagCheck(const FntFont& font, const FontRecord& tag)
        : m_tag(tag), m_sample(sampleOf(font)), m_face(tag)
    {
    }
    // Whether it can be told at all: small letters of all faces are alike.
    [[nodiscard]] bool known() const
    {
        constexpr std::size_t enough = 20;
        constexpr int small = 12;
        return m_sample.characters.size() >= enough && tagged() >= small &&
               m_face.letters(tagged(), m_sample.characters).has_value();
    }
    // Pixels are whole, and every tool rounds in its own way.
    [[nodiscard]] bool fits() const { return fits(tagged(), 1); }
    // The size in points in which the face gives just these letters; 0: in none.
    [[nodiscard]] double points() const
    {
        const auto face = *m_face.letters(tagged(), m_sample.characters);
        const double share = sumOf(m_sample.letters, &LetterSize::advance) /
                             std::max(1.0, sumOf(face, &LetterSize::advance));
        const int likely = static_cast<int>(std::lround(share * tagged()));
        for (const int size : {likely, likely - 1, likely + 1}) {
            if (fits(size, 0))
                return size * pointsPerInch / usualDpi;
        }
        return 0;
    }

private:
    [[nodiscard]] int tagged() const
    {
        return fontPixels(std::clamp<double>(m_tag.Size, 0, fntLargestSize), usualDpi);
    }
    [[nodiscard]] bool fits(int size, int tolerance) const
    {
        constexpr double likeHeight = 0.05;
        const auto face = m_face.letters(size, m_sample.characters);
        std::size_t others = 0;
        for (std::size_t i = 0; face && i < face->size(); ++i) {
            const int advance = (*face)[i].advance + m_tag.LetterSpace;
            others += std::abs(advance - m_sample.letters[i].advance) > tolerance ? 1 : 0;
        }
        const double high = sumOf(m_sample.letters, &LetterSize::height);
        return face && others * 10 <= face->size() &&
               (tolerance > 0 ||
                std::abs(sumOf(*face, &LetterSize::height) - high) <= likeHeight * high);
    }

    const FontRecord& m_tag;
    Sample m_sample;
    FaceMeasure m_face;
};

void checkTag(const QString& member, const FntFont& font, const FontRecord& tag, Findings& found)
{
    const TagCheck check(font, tag);
    if (!check.known() || check.fits())
        return;
    const double points = check.points();
    const QString face = tag.FontName + (tag.Bold ? QStringLiteral(" Bold") : QString()) +
                         (tag.Italic ? QStringLiteral(" Italic") : QString());
    if (points <= 0)
        found.push_back(aboutMember(
            member,
            Words::tr("%1 says that it is made of %2, and its letters are of another face or size.")
                .arg(member, face),
            Words::tr("Make the font again, so that it is shown as it boots.")));
    else
        found.push_back(aboutMember(
            member,
            Words::tr("%1 says %2 points, and its letters have about %3: the distance of the "
                      "lines follows the first.")
                .arg(member)
                .arg(tag.Size)
                .arg(std::lround(points)),
            Words::tr("Make the font again, in the size that is meant.")));
}

} // namespace

void checkBrokenFonts(const CheckInput& input, Findings& found)
{
    eachFont(input, [&](const CheckedMember& member) {
        const auto font = decodeFnt(spanOf(member.data));
        if (!font && member.data.size() <= static_cast<qsizetype>(fntSizeLimit))
            found.push_back(aboutMember(
                member.name,
                Words::tr("%1 is no whole font: %2").arg(member.name, failureWords(font.failure())),
                Words::tr("Make the font again.")));
    });
}

void checkLargeFonts(const CheckInput& input, Findings& found)
{
    eachFont(input, [&](const CheckedMember& member) {
        if (member.data.size() > static_cast<qsizetype>(fntSizeLimit))
            found.push_back(aboutMember(
                member.name,
                Words::tr("%1 is larger than the 512 KB that can be reached.").arg(member.name),
                Words::tr("Make it with fewer characters or in a smaller size.")));
    });
}

void checkFontTags(const CheckInput& input, Findings& found)
{
    eachFont(input, [&](const CheckedMember& member) {
        const FoundTag tag = findTag(member.data);
        const auto font = tag.found && tag.tag.genuine ? decodeFnt(spanOf(member.data))
                                                       : Result<FntFont>(Failure{});
        if (!font)
            return;
        FontRecord record;
        applyTag(tag.tag, record);
        checkTag(member.name, *font, record, found);
    });
}

} // namespace fennel
