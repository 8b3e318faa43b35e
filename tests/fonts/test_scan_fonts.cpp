// SPDX-License-Identifier: MIT
#include "fonts/scan_fonts.h"

#include "base/text.h"
#include "fonts/fnt_bytes.h"
#include "fonts/font_dialog.h"
#include "fonts/font_inspection.h"
#include "fonts/font_tag.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray referenceTag =
    "TAG@ZUK-MOSA@:>Created by the Fennel-GFX(GUI) using the MKBLFONT utility\t"
    "this is the DEFAULT font|Tahoma\t|size\t14 px|space\t4 px|letter space\t0 px|line space\t0 px";

// A file of 175 characters, U+0020 to U+007E and U+0410 to U+045F, whose header numbers are 23, 4
// and
// 19. All glyphs but the blank are an empty one.
QByteArray referenceFont(const QByteArray& tag)
{
    FntFont font{23, 4, 19, {}};
    for (std::uint32_t code = 0x20; code <= 0x7E; ++code)
        font.glyphs.push_back({code, 0, 0, 0, 0, code == 0x20 ? 4 : 9, {}});
    for (std::uint32_t code = 0x410; code <= 0x45F; ++code)
        font.glyphs.push_back({code, 0, 0, 0, 0, 9, {}});
    const auto bytes = *encodeFnt(font);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<qsizetype>(bytes.size())) +
           tag;
}

class FontScan : public ::testing::Test {
protected:
    FontScan()
    {
        shell.run.GfxHasZuk = true;
        shell.run.gfxboot_var = 3;
    }
    void scan(const QString& name = u"?"_s, int mode = keepInspection)
    {
        ScanFonts(fonts, shell.run, {defaultName, 96}, name, mode);
    }
    // The three columns of a row, from 1.
    QString row(int number)
    {
        const ListRow* shown = fonts.rows.row(number);
        return shown == nullptr ? QString() : shown->texts.join(u'|');
    }
    TestShell shell;
    FontState fonts;
    QString defaultName = u"Verdana"_s;
};

} // namespace

TEST_F(FontScan, ShowsTheReferenceFont)
{
    // Stored copies end in zero bytes.
    shell.member(u"16x16.fnt"_s, referenceFont(referenceTag + QByteArray(2, '\0')));
    scan();
    const FontRecord& record = fonts.table[0];
    EXPECT_EQ(record.FontName + u'|' + record.Symbols, u"Tahoma|175"_s);
    EXPECT_TRUE(record.Size == 14.0 && record.SpaceWidth == 4);
    EXPECT_TRUE(record.LetterSpace == 0 && record.LineSpace == 0);
}

TEST_F(FontScan, CalculatesWhatAFontWithoutTagDoesNotSay)
{
    shell.member(u"16x16_07.fnt"_s, referenceFont({}));
    scan();
    const FontRecord& record = fonts.table[7];
    EXPECT_TRUE(record.FontName == u"Verdana" && record.Size == 15.75 && record.LineSpace == 0);
    EXPECT_EQ(fonts.table[1].FontName, QString()); // gaps stay gaps
    EXPECT_TRUE(fonts.table[0].FontName == u"Verdana" && fonts.table[0].Size == 14.0);
    // Line space by 19 - 14 + 2 = 7 pixels of 96 to the inch: 5.25 points.
    QByteArray low = referenceFont({});
    low[8] = 14;
    shell.member(u"16x16_07.fnt"_s, low);
    defaultName.clear();
    scan();
    EXPECT_EQ(fonts.table[7].LineSpace, 5);
    EXPECT_EQ(fonts.table[0].FontName, u"Tahoma"_s);
}

TEST_F(FontScan, ReadsEveryKindOfTag)
{
    shell.member(u"16x16_01.fnt"_s,
                 referenceFont("TAG@ZUK-MOSA@:>no tab|Arial\t Bold Italic|Tahoma\t Italic|free "
                               "line|size\tbig|space\t99999|letter space\t-2.5 px|Size\t3"));
    shell.member(u"16x16_02.fnt"_s, referenceFont("TAG is here"));
    shell.member(u"16x16_03.fnt"_s, referenceFont(toCp1251(u"TAGx\tназвание|Шрифт\t Bold"_s)));
    // A "TAG" by chance among the glyphs hides the real one behind it.
    shell.member(u"16x16_04.fnt"_s, referenceFont("\x01TAG\xC0|" + referenceTag));
    scan();
    const FontRecord& full = fonts.table[1];
    EXPECT_EQ(full.FontName, u"Size"_s); // keys are exact, and the last family wins
    EXPECT_FALSE(full.Bold || full.Italic);
    EXPECT_EQ(full.Size, 0.0);
    EXPECT_EQ(full.SpaceWidth, 32767);
    EXPECT_EQ(full.LetterSpace, -2);
    EXPECT_EQ(fonts.table[3].FontName, u"Шрифт"_s);
    EXPECT_TRUE(fonts.table[3].Bold);
    EXPECT_EQ(fonts.table[4].FontName, u"Tahoma"_s);
}

// Nothing of a short or lying file is read beyond its end.
TEST_F(FontScan, SurvivesEveryShortFile)
{
    const QByteArray whole = referenceFont(referenceTag);
    for (int length = 0; length <= 20; ++length) {
        shell.member(u"16x16.fnt"_s, whole.left(length));
        scan(u"16x16.fnt"_s, fillInspection);
        EXPECT_EQ(row(2), u"Length|%1|bytes"_s.arg(length));
        for (int click = 0; click < 8; ++click)
            (void)clickOnCharacter(fonts.inspection, shell.run, click);
    }
    shell.member(u"16x16.fnt"_s, QByteArray(30, '\xFF'));
    scan(u"16x16.fnt"_s, fillInspection);
    EXPECT_EQ(fonts.inspection.List1.size(), 3 + 65535);
    EXPECT_EQ(fonts.inspection.FontOffsets.size(), 65536U);
    const CharacterView far = clickOnCharacter(fonts.inspection, shell.run, 3);
    EXPECT_FALSE(far.glyph);
    EXPECT_TRUE(far.message.startsWith(u"Position in set =3\n"_s));
}

TEST(FontTag, SaysHowTheFontWasMade)
{
    FontChoice choice{u"Ta|ho\tma"_s, true, true, 14.5, {}, 4, -1, 2};
    EXPECT_EQ(
        fontTagText(choice),
        u"TAG@ZUK-MOSA@:>Created by the Fennel-GFX(GUI) using the MKBLFONT utility|Ta ho ma\t "
        "Bold Italic|size\t15 px|space\t4 px|letter space\t2 px|line space\t-1 px"_s);
    FontRecord record;
    applyTag(findTag(toCp1251(fontTagText(choice))).tag, record);
    EXPECT_EQ(record.FontName, u"Ta ho ma"_s);
    EXPECT_EQ(record.Size, 15);
    EXPECT_EQ(record.LineSpace, -1);
    EXPECT_EQ(record.LetterSpace, 2);
}
