// SPDX-License-Identifier: MIT
#include "fonts/font_making.h"

#include "fonts/fnt_bytes.h"
#include "fonts/font_judge.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class FontMaking : public ::testing::Test {
protected:
    FontMaking()
    {
        choice.family = u"DejaVu Sans"_s;
        choice.fileName = u"DejaVuSans.ttf"_s;
        command.row = 1;
        command.askUser = [this](const FontDialogStart& start) {
            asked = start;
            return answer ? std::optional<FontChoice>(choice) : std::nullopt;
        };
        command.characters = [this]() -> const CharSelected& { return set; };
        generation(3);
        shell.member(u"16x16.fnt"_s, "old font 0");
        shell.member(u"#.lst"_s, members);
        rescan();
    }
    void generation(int number)
    {
        shell.run.gfxboot_var = number;
        shell.run.GfxHasCfg = number == 2;
        shell.run.GfxHasZuk = number == 3;
    }
    void rescan() { ScanFonts(fonts, shell.run, {u"Verdana"_s, 96}, u"?"_s, keepInspection); }
    std::optional<FontChange> run() { return ChangeFont(shell.shell, fonts, command); }
    QByteArray member(const QString& name) { return bytesOf(shell.run.Workspace + name); }
    bool has(const QString& name) { return FileExists(shell.run.Workspace + name); }
    // A tool of ours in place of the bridge.
    void toolIs(const QByteArray& text) { shell.run.ToolMkFont = shell.script(u"tool"_s, text); }

    const QByteArray members = "16x16.fnt\r\n";
    TestShell shell;
    FontState fonts;
    FontCommand command;
    FontChoice choice;
    CharSelected set = startingCharacters();
    bool answer = true;
    FontDialogStart asked;
};

} // namespace

TEST_F(FontMaking, OrdersWhatTheToolTakes)
{
    choice.size = 15.5;
    EXPECT_EQ(fontMakerCommand(shell.shell, {}, choice, 120)[3], u"27"_s); // 16 points: 26.7
    choice.fileName = u"/a b/Foo.ttf"_s; // beside it may lie a Foo.otf, or a plain Foo
    EXPECT_EQ(fontMakerCommand(shell.shell, set, choice, 96)[2], u"/a b/Foo.ttf"_s);
    for (const auto& [dots, most] : {std::pair{96, 191}, {72, 255}, {120, 153}, {144, 127}})
        EXPECT_EQ(mostFontPoints(dots), most);
}

// The tool takes the first file of a name, so a name that others have too is not enough.
TEST(FontFileName, GivesThePathOfAFileWhoseNameFindsAnother)
{
    const QStringList files{u"/a/Regular.ttf"_s, u"/b/regular.TTF"_s,  u"/a/Foo.otf"_s,
                            u"/b/Foo.ttf"_s,     u"/a/Foo-Bold.ttf"_s, u"/a/Bar.ttf"_s,
                            u"/a/Bar.ttf.pfb"_s, u"/a/New.ttf.old"_s};
    for (const QString& path : {files[0], files[1], files[3], files[7]})
        EXPECT_EQ(nameForTool(path, files), path);
    EXPECT_EQ(nameForTool(files[4], files), u"Foo-Bold.ttf"_s);
    EXPECT_EQ(nameForTool(files[5], files), u"Bar.ttf"_s);
}

TEST_F(FontMaking, NumbersGrowPastAnyGap)
{
    const std::pair<QString, QString> cases[] = {
        {QString(), u"16x16_01.fnt"_s},
        {u"16x16.fnt Length"_s, u"16x16_01.fnt"_s},
        {u"16x16.fnt 16x16_01.fnt Set 16x16_03.FNT"_s, u"16x16_04.fnt"_s},
        {u"16x16_98.fnt"_s, u"16x16_99.fnt"_s},
        {u"16x16_99.fnt"_s, QString()},
    };
    for (const auto& [names, next] : cases) {
        ListRows list;
        for (const QString& name : names.split(u' ')) {
            ListRow& row = list.rows.emplace_back();
            row.name = name;
            row.kind = name.contains(u'.') ? RowKind::Font : RowKind::FontFact;
        }
        EXPECT_EQ(nextFontName(list), next);
    }
}

TEST_F(FontMaking, ChangesTheSelectedFontOfGeneration3)
{
    shell.member(u"16x16_02.fnt"_s, "old font 2 TAG|Arial\t Bold|size\t12 px");
    rescan();
    command.row = fonts.rows.count() - 2; // a row of the second font that is no heading
    ASSERT_EQ(fonts.rows.row(command.row)->number, 2);
    while (fonts.rows.row(command.row)->kind != RowKind::Font)
        --command.row;
    choice.bold = true;
    const auto change = run();
    ASSERT_TRUE(change);
    EXPECT_EQ(asked.title, u"Font. Edit 16x16_02.fnt"_s);
    EXPECT_EQ(asked.FontStyleName, u"Arial Bold"_s);
    EXPECT_EQ(asked.wholeSize, 12);
    EXPECT_EQ(change->component, u"16x16_02.fnt"_s);
    EXPECT_EQ(member(u"16x16.fnt"_s), "old font 0");
    EXPECT_FALSE(has(u"#.#nt"_s));
    const JudgedFont judged = judgedFont(shell.run.Workspace + u"16x16_02.fnt"_s);
    EXPECT_EQ(judged.glyphs.size(), 161U);
    EXPECT_EQ(judged.glyphs.at(0x20).advance, 4);
    EXPECT_TRUE(
        member(u"16x16_02.fnt"_s)
            .endsWith("TAG@ZUK-MOSA@:>Created by the Fennel-GFX(GUI) using the MKBLFONT "
                      "utility|DejaVu Sans\t Bold|size\t14 px|space\t4 px|letter space\t0 px|"
                      "line space\t0 px"));
    rescan();
    EXPECT_EQ(fonts.table[2].FontName, u"DejaVu Sans"_s);
    EXPECT_TRUE(fonts.table[2].Bold);
    EXPECT_EQ(fonts.table[2].Size, 14);
}

// What is in no list would not be saved.
TEST_F(FontMaking, AFontOfAnUnlistedNameBecomesAMember)
{
    command.row = 2;
    ASSERT_EQ(fonts.rows.row(2)->texts.first(), u"Length"_s);
    for (int times = 0; times < 2; ++times)
        ASSERT_TRUE(run());
    EXPECT_EQ(asked.title, u"Font. Edit Length"_s);
    EXPECT_EQ(FontSymbolCount(member(u"Length"_s)), 161);
    EXPECT_EQ(member(u"16x16.fnt"_s), "old font 0");
    EXPECT_EQ(member(u"#.lst"_s), members + "Length\r\n");

    generation(2);
    EXPECT_TRUE(shell.files.remove(shell.run.Workspace + u"16x16.fnt"_s).ok());
    shell.member(u"init"_s, {});
    shell.member(u"#.lst"_s, "Length\r\ninit\r\n");
    rescan();
    ASSERT_TRUE(run());
    EXPECT_EQ(member(u"#.lst"_s), "init\r\n16x16.fnt\r\nLength\r\n");
}

TEST_F(FontMaking, MembersThatAreCalledAsItsOwnFilesStay)
{
    shell.member(u"#.#nt"_s, "a member");
    shell.member(u"#16x16.#nt"_s, "another");
    shell.member(u"#.lst"_s, members + "#.#nt\r\n#16x16.#nt\r\n");
    generation(2);
    ASSERT_TRUE(run());
    EXPECT_EQ(member(u"#.#nt"_s) + member(u"#16x16.#nt"_s), "a memberanother");
    EXPECT_EQ(member(u"##16x16.#nt"_s), "old font 0");
}

// The tool's own reason reaches the user with the program's message.
TEST_F(FontMaking, TellsWhyTheToolMadeNothing)
{
    set.reset();
    shell.prompts.expectMessage(
        u"ERROR. File could not be created\nThe list of characters is empty."_s);
    EXPECT_FALSE(run());
    set = startingCharacters();
    choice.fileName = u"NoSuchFont.ttf"_s;
    shell.prompts.expectMessage(u"There is no font file NoSuchFont."_s);
    EXPECT_FALSE(run());
    EXPECT_EQ(shell.prompts.titles.last(), u"Font creating error"_s);
    // An output of an earlier run must not pass for this one's.
    shell.member(u"#.#nt"_s, "stale font");
    toolIs("exit 0\n");
    shell.prompts.expectMessage(u"ERROR. File could not be created"_s);
    EXPECT_FALSE(run());
    EXPECT_FALSE(has(u"#.#nt"_s));
    EXPECT_EQ(member(u"16x16.fnt"_s), "old font 0");
}

TEST_F(FontMaking, RefusesWhatCouldNotBeKept)
{
    answer = false;
    shell.files.calls = 0;
    EXPECT_FALSE(run());
    EXPECT_EQ(shell.files.calls, 0) << "cancelled";
    answer = true;
    asked = {};
    command.row = 0;
    shell.prompts.expectMessage(u"Select the font to be changed first."_s);
    EXPECT_FALSE(run());
    command.AddFontMode = true;
    shell.member(u"16x16_99.fnt"_s, "font");
    rescan();
    shell.prompts.expectMessage(u"no number left"_s);
    EXPECT_FALSE(run());
    EXPECT_TRUE(asked.title.isEmpty());
    // A font that cannot be registered does not stay.
    EXPECT_TRUE(shell.files.remove(shell.run.Workspace + u"16x16_99.fnt"_s).ok());
    rescan();
    EXPECT_TRUE(shell.files.remove(shell.run.Workspace + u"#.lst"_s).ok());
    shell.prompts.expectMessage(u"Gfxboot info is lost!"_s);
    EXPECT_FALSE(run());
    EXPECT_FALSE(has(u"16x16_01.fnt"_s));
}
