// SPDX-License-Identifier: MIT
#include "fonts/fnt_bytes.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_judge.h"
#include "support/run_program.h"

#include <QFile>
#include <QtEndian>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class Bridge : public ::testing::Test {
protected:
    // Runs the bridge with the arguments before the output's path.
    Ran make(const QStringList& arguments)
    {
        return runBridge("MakeFont/mkfnt_bridge", arguments + QStringList{output});
    }
    // Of one size and with the least spacings.
    Ran makeOf(const QString& ranges, const QString& font = dejaVuSans,
               const QString& size = u"19"_s)
    {
        return make({ranges, font, size, u"4"_s, u"0"_s, u"0"_s});
    }
    void expectNoFont(const QString& font, const char* reason)
    {
        expectRefused({u"0x41"_s, font, u"19"_s, u"4"_s, u"0"_s, u"0"_s}, reason);
    }
    void expectRefused(const QStringList& arguments, const char* reason)
    {
        EXPECT_TRUE(DiskFiles().write(output, "of an earlier run").ok());
        const Ran run = make(arguments);
        EXPECT_EQ(run.code, 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.contains(reason)) << run.err.constData();
        EXPECT_EQ(run.err.count('\n'), 1);
        EXPECT_FALSE(FileExists(output));
    }
    FntFont made() { return *decodeFnt(asSpan(bytesOf(output))); }

    TestShell shell;
    QString output = shell.path(u"out put.fnt"_s);
};

const QString manyRanges = u"0x20-0x7e_0x370-0x3ff_0x410-0x451_0xfe70-0xfefc"_s;

std::vector<std::uint32_t> manyCodes()
{
    std::vector<std::uint32_t> codes;
    for (const auto& [first, last] :
         {std::pair{0x20U, 0x7eU}, {0x370U, 0x3ffU}, {0x410U, 0x451U}, {0xfe70U, 0xfefcU}}) {
        for (std::uint32_t code = first; code <= last; ++code)
            codes.push_back(code);
    }
    return codes;
}

} // namespace

// gfxboot-font reads every character as FreeType draws it; only the blank has the ordered width.
TEST_F(Bridge, WritesWhatFreeTypeDraws)
{
    for (const QString& font : {dejaVuSans, liberationBold}) {
        for (const int size : {9, 14, 19, 40}) {
            const Ran run = makeOf(manyRanges, font, QString::number(size));
            ASSERT_EQ(run.code, 0) << run.err.constData();
            const JudgedFont judged = judgedFont(output);
            auto expected = freeTypeGlyphs(font, size, manyCodes());
            ASSERT_GT(expected.size(), 200U);
            expected.at(0x20).advance = 4;
            ASSERT_EQ(judged.glyphs.size(), expected.size());
            int lowest = 0;
            int highest = 0;
            for (const auto& [code, glyph] : expected) {
                ASSERT_TRUE(judged.glyphs.contains(code)) << code;
                EXPECT_EQ(judged.glyphs.at(code), glyph) << code;
                lowest = std::min(lowest, glyph.yOffset);
                highest = std::max(highest, glyph.yOffset + glyph.height);
            }
            EXPECT_EQ(judged.height, highest - lowest);
            EXPECT_EQ(judged.baseline, -lowest);
            EXPECT_EQ(judged.lineHeight, judged.height + 2);
        }
    }
}

TEST_F(Bridge, AppliesSpacings)
{
    ASSERT_EQ(make({u"0x20-0x41"_s, u"DejaVuSans"_s, u"19"_s, u"7"_s, u"3"_s, u"-2"_s}).code, 0);
    const auto plain = freeTypeGlyphs(dejaVuSans, 19, {0x21, 0x41});
    const JudgedFont judged = judgedFont(output);
    EXPECT_EQ(judged.glyphs.size(), 34U);
    EXPECT_EQ(judged.glyphs.at(0x20).advance, 5);
    EXPECT_EQ(judged.glyphs.at(0x41).advance, plain.at(0x41).advance - 2);
    EXPECT_EQ(judged.glyphs.at(0x21).xOffset, plain.at(0x21).xOffset);
    EXPECT_EQ(judged.lineHeight, judged.height + 5);
}

TEST_F(Bridge, FindsAFontByItsNameOrPath)
{
    const QString copy = shell.path(u"a #&$ font.TTF"_s);
    ASSERT_TRUE(QFile::copy(dejaVuSans, copy));
    QByteArray first;
    for (const QString& font : {u"DejaVuSans"_s, u"dejavusans"_s, u"DejaVuSans.ttf"_s, dejaVuSans,
                                dejaVuSans.chopped(4), copy, copy.chopped(4)}) {
        ASSERT_EQ(makeOf(u"0x41"_s, font).code, 0) << font.toStdString();
        if (first.isEmpty())
            first = bytesOf(output);
        EXPECT_EQ(bytesOf(output), first) << font.toStdString();
    }
    EXPECT_FALSE(first.isEmpty());
}

TEST_F(Bridge, ReadsRangesAsTheEditorDoes)
{
    constexpr std::size_t many = 5000;
    const std::pair<QString, std::size_t> cases[] = {
        {u"0x42_65_0x41-0x42"_s, 2}, // mixed, doubled, not in order
        {u"0x41 0x43,0x45"_s, 3},    // the other separators
        {u"0x7e-0x20_0x41"_s, 1},    // a range the wrong way round names nothing
        {u"0x20-0xfffff"_s, many},   // above the editor's limit, within Unicode's
        {u"0x41_0xfffe"_s, 1},       // a character that the font lacks
    };
    for (const auto& [ranges, count] : cases) {
        ASSERT_EQ(makeOf(ranges).code, 0) << ranges.toStdString();
        const FntFont font = made();
        EXPECT_EQ(std::min(font.glyphs.size(), many), count) << ranges.toStdString();
        EXPECT_TRUE(std::ranges::is_sorted(font.glyphs, {}, &Glyph::code));
    }
}

TEST_F(Bridge, RefusesBadArguments)
{
    // Ranges, size, the spacings of blanks, lines and letters, and the reason.
    const QString table = uR"(
        ;19;4;0;0;list of characters is empty
        0x110000;19;4;0;0;no character with the number
        0xe000-0xe010;19;4;0;0;none of the characters
        0x41;0;4;0;0;size "0" is out of range
        0x41;99999999999;4;0;0;size "99999999999" is out of range, which is 1 to 255.
        0x41;14.5;4;0;0;size "14.5" is no whole number from 1 to 255.
        0x41;255;4;0;0;no character fits
        0x41;19;100000;0;0;space width
        0x41;19;4;0;-128;letter space
        0x41;19;4;0;127;no character fits)"_s;
    for (const QString& line : table.split(u'\n', Qt::SkipEmptyParts)) {
        QStringList arguments = line.trimmed().split(u';');
        const QByteArray reason = arguments.takeLast().toUtf8();
        expectRefused(arguments.mid(0, 1) + QStringList{u"DejaVuSans"_s} + arguments.mid(1),
                      reason);
    }
    // DejaVu Sans at 80 pixels needs far more than 512 KiB for all that it has.
    expectRefused({u"0x20-0x7e_0x400-0x4ff_0x1e00-0x1fff_0x2200-0x27ff"_s, u"DejaVuSans"_s, u"80"_s,
                   u"4"_s, u"0"_s, u"0"_s},
                  "512 KiB");
    EXPECT_EQ(makeOf(u"0x41"_s, dejaVuSans, u"1"_s).code, 0);
    EXPECT_EQ(make({u"0x41"_s}).code, 1);
}

// A collection of one face: the header, and every place in the table of tables moved behind it.
TEST_F(Bridge, TakesTheFirstFaceOfACollection)
{
    QByteArray face = bytesOf(dejaVuSans);
    constexpr char moved = 16;
    const int tables = byteAt(face, 4) * 256 + byteAt(face, 5);
    for (int i = 0; i < tables; ++i) {
        const int place = 12 + 16 * i + 8;
        const quint32 offset = qFromBigEndian<quint32>(face.constData() + place) + moved;
        qToBigEndian(offset, face.data() + place);
    }
    const QByteArray head("ttcf\0\1\0\0\0\0\0\1\0\0\0\x10", moved);
    const QString path = shell.file(u"a collection.ttc"_s, head + face);
    const Ran run = makeOf(u"0x41-0x5a"_s, path.chopped(4));
    ASSERT_EQ(run.code, 0) << run.err.constData();
    const QByteArray collected = bytesOf(output);
    ASSERT_EQ(makeOf(u"0x41-0x5a"_s).code, 0);
    EXPECT_EQ(collected, bytesOf(output));
}

TEST_F(Bridge, RefusesWhatIsNoOutlineFont)
{
    expectNoFont(shell.file(u"cut.ttf"_s, bytesOf(dejaVuSans).left(20000)), "cut.ttf");
    expectNoFont(u"NoSuchFont"_s, "no font file NoSuchFont");
    expectNoFont({}, "no font file");
}
