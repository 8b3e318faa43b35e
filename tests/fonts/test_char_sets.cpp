// SPDX-License-Identifier: MIT
#include "fonts/char_sets.h"

#include "fonts/font_dialog.h"
#include "fonts/font_substitution.h"
#include "fonts/installed_fonts.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

QString formatted(const QString& ranges)
{
    const Result<CharSelected> set = ParseCharacterRanges(ranges);
    EXPECT_TRUE(set.ok()) << ranges.toStdString();
    return set ? FormatCharacterRanges(*set) : QString();
}

} // namespace

TEST(CharacterRanges, AreReadInEveryFormAndWrittenInOne)
{
    const std::pair<QString, QString> cases[] = {
        {u"0x20-0x7e, 0x0410-0x044f"_s, u"0x20-0x7E 0x410-0x44F"_s},
        {u"0x20-0x7e_0x0410-0x044f"_s, u"0x20-0x7E 0x410-0x44F"_s},
        {u"0x41"_s, u"0x41"_s},
        {u"65-67 &H44"_s, u"0x41-0x44"_s}, // decimal, the other prefix, adjacent codes merge
        {u"0x43,0x41_0x42"_s, u"0x41-0x43"_s},
        {u"0x20-0x30-0x40"_s, u"0x20-0x30"_s}, // only what begins behind the first dash counts
        {u"0x7e-0x20"_s, u""_s},               // last below first
        {u"abc"_s, u""_s},                     // 0, and U+0000 is never written
        {u"-"_s, u""_s},
        {u""_s, u""_s},
        {u"0x20--0x30"_s, u""_s}, // "-0x30" reads as 0
        {u"0-0xffff"_s, u"0x1-0xFFFF"_s},
        {u"64.5 66.5"_s, u"0x40 0x42"_s}, // ties to even
        {u"0xffff"_s, u"0xFFFF"_s},
        {u"65abc"_s, u"0x41"_s},
        {u"Ж0x41"_s, u""_s},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(formatted(text), expected) << text.toStdString();
    }
    EXPECT_EQ(FormatCharacterRanges(startingCharacters()), u"0x20-0x7E 0x410-0x451"_s);
}

TEST(CharacterRanges, OutsideThe65536CodesAreToldAndChangeNothing)
{
    for (const QString& text : {u"0x20-0xfffff"_s, u"70000"_s, u"0x41,0x10000"_s, u"-5"_s,
                                u"99999999999999999999999999"_s, u"0xffffffffffffffffff"_s}) {
        const Result<CharSelected> set = ParseCharacterRanges(text);
        ASSERT_FALSE(set.ok()) << text.toStdString();
        EXPECT_EQ(set.failure().kind, FailureKind::Malformed);
    }
    const Result<CharSelected> named = ParseCharacterRanges(u"0x41,0x10000"_s);
    EXPECT_NE(named.failure().text.find("0x10000"), std::string::npos);
}

TEST(CharacterRanges, AreTypedAsCodesRunsAndLetters)
{
    const std::pair<QString, QString> rows[] = {
        {u"0x41-0x5A"_s, u"0x41-0x5A"_s},          {u"0x41-5A"_s, u"0x41-0x5A"_s},
        {u"u+105, 65-66"_s, u"0x41-0x42 0x105"_s}, {u"ąęł"_s, u"0x105 0x119 0x142"_s},
        {u"a-c 5"_s, u"0x35 0x61-0x63"_s},         {u" "_s, {}}};
    for (const auto& [typed, set] : rows)
        EXPECT_EQ(FormatCharacterRanges(*typedCharacters(typed)), set) << typed.toStdString();
    EXPECT_FALSE(typedCharacters(u"0x10000"_s));
}

TEST(CharacterRanges, ComeFromAFontOrFromTheDefaultFontsName)
{
    QByteArray font("\x06\x8E\x82\xD2\x03\0\0\0\x0A\x02\x0C", 11);
    font += QByteArray("\x41\0\0\x02\0\x16\x04\0\x02\0", 10); // U+0041, U+0416, and one cut off
    EXPECT_EQ(ReadFontCharacters(font), u"&H0041 &H0416 &H0000"_s);
    EXPECT_EQ(formatted(rangesOfFont(font)), u"0x41 0x416"_s);
    EXPECT_EQ(ReadFontCharacters({}), QString());
    EXPECT_EQ(rangesOfDefault(u"DejaVu\tSans Mono"_s), u"DejaVuSansMono"_s);
    EXPECT_EQ(formatted(rangesOfDefault(u"Tahoma"_s)), QString());
    EXPECT_EQ(formatted(rangesOfDefault(u"8514 oem"_s)), u"0x2142"_s);
}

TEST(FontDialog, ListsTrueTypeFilesOnceWithTheirStyle)
{
    const auto fonts = fontFiles(u"Arial (TrueType)>ARIAL.TTF\nArial Bold (TrueType)>arialbd.ttf\n"
                                 "Nimbus (TrueType)>n.otf\nArial (TrueType)>x/other.ttf\n"
                                 "A>B Bold Italic (TrueType)>c:\\Fonts\\b i.Ttf\nbroken line\n"_s);
    ASSERT_EQ(fonts.size(), 3U);
    EXPECT_EQ(fonts[0].rowText(), u"Arial > ARIAL.TTF"_s);
    EXPECT_TRUE(fonts[1].bold());
    EXPECT_FALSE(fonts[1].italic());
    EXPECT_EQ(fonts[2].name, u"A>B Bold Italic"_s);
    EXPECT_EQ(fonts[2].fileName, u"b i.Ttf"_s);
    EXPECT_TRUE(fonts[2].italic());
    EXPECT_EQ(placeOfFont(fonts, u"Arial Bold"_s), 1);
    EXPECT_EQ(placeOfFont(fonts, u"Tahoma"_s), 0);
    EXPECT_EQ(placeOfFont(fonts, u"Tahoma"_s, u"Arial Bold"_s), 1);
    EXPECT_EQ(placeOfFont({}, QString()), 0);
    EXPECT_EQ(firstTrueTypeName(u"A Math (TrueType)>a.ttf\nB (TrueType)>b.ttf"_s), u"B"_s);
    // What a tag says of a face leads back to it.
    const auto styled = fontFiles(u"D Sans (TrueType)>a.ttf\nD Sans Bold Oblique (TrueType)>b.ttf\n"
                                  "D Sans ExtraLight (TrueType)>c.ttf\n"_s);
    for (int place = 0; place < 3; ++place) {
        const FontFile& font = styled[static_cast<std::size_t>(place)];
        const QString style = font.bold() ? u" Bold"_s : QString();
        EXPECT_EQ(placeOfFont(styled, tagFamily(font, u"D Sans"_s) + style), place);
    }
    EXPECT_EQ(tagFamily(styled[1], u"D Sans"_s), u"D Sans Oblique"_s);
}

TEST(FontSubstitution, ShowsTheNearestInstalledFamilyAndSaysSo)
{
    const QStringList debian{u"DejaVu Sans"_s, u"Liberation Sans"_s};
    EXPECT_EQ(shownFamily(u"arial"_s, debian).family, u"Liberation Sans"_s);
    EXPECT_EQ(shownFamily(u"dejavu sans"_s, debian).note, QString());
    const ShownFamily tahoma = shownFamily(u"Tahoma"_s, debian);
    EXPECT_TRUE(tahoma.note.contains(u"Tahoma"_s) && tahoma.note.contains(tahoma.family));
}
