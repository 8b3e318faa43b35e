// SPDX-License-Identifier: MIT
// The document alone, without a window: changes, their way back, what a save makes of them.
#include "document/document.h"

#include "container/member_list.h"
#include "container/member_table.h"
#include "document/place_change.h"
#include "params/object_table.h"
#include "support/bin_folder.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class DocumentTest : public testing::Test {
protected:
    DocumentTest()
    {
        shell.run.AppPath = fennel::test::binFolder();
        shell.run.GfxOpened = true;
        shell.run.BackWidth = 800;
        shell.run.BackHeight = 600;
        document.loadCatalogue();
        QObject::connect(&document, &Document::changed,
                         [this](const DocumentChange& change) { told.push_back(change); });
    }
    // Every record of the shipped catalogue with its own number as value, but no sparkles.
    void openLevels()
    {
        shell.run.GfxHasZuk = true;
        shell.run.gfxboot_var = 3;
        shell.run.ObjectCount = 40;
        shell.member(u"Logo_msk.jpg"_s, jpegOf({120, 80}));
        for (int file = 0; file < zukFileCount; ++file) {
            QByteArray bytes;
            for (int param = 1; param <= zukParamCount; ++param) {
                if (document.state().ZUKarr.at(file, param).DefValue && file != 1)
                    bytes += QByteArray(1, static_cast<char>(param)) + QByteArray(2, '\0') +
                             QByteArray(1, static_cast<char>(param));
            }
            if (!bytes.isEmpty())
                shell.member(levelFileName(file), bytes);
        }
        shell.member(u"#.lst"_s, "ZUK0000.CFG\r\n");
        document.readLevels();
        finish();
    }
    void openConfig(const QByteArray& cfg)
    {
        shell.run.GfxHasCfg = true;
        shell.run.gfxboot_var = 2;
        shell.run.ObjectCount = 4;
        shell.member(u"gfxboot.cfg"_s, cfg);
        shell.member(u"#.lst"_s, "gfxboot.cfg\r\n");
        finish();
    }
    void finish()
    {
        if (shell.run.GfxHasCfg)
            document.readConfigLines();
        document.buildObjects();
        document.listValues(false);
        document.beginHistory();
    }
    void type(ParamKey key, QStringView text, const QString& mergeKey = {})
    {
        Change change;
        change.params[key] = typedValue(text);
        ASSERT_TRUE(document.apply(change, {u"value"_s, {}, mergeKey}));
    }
    QString value(ParamKey key)
    {
        const auto& shown = document.state().ZUKarr.at(key.file, key.number).Value;
        return shown ? shown->text() : u"none"_s;
    }
    // What a save would write now, by name.
    std::map<QString, QByteArray> saved()
    {
        EXPECT_TRUE(document.writeParameters());
        std::map<QString, QByteArray> files;
        for (const QString& name : filesLike(shell.run.Workspace, u"*"_s))
            files[name] = bytesOf(shell.run.Workspace + name);
        return files;
    }

    TestShell shell;
    FontTable fonts{std::size_t{fontCount}};
    Document document{shell.shell, fonts};
    std::vector<DocumentChange> told;
};

constexpr ParamKey clockX{0, 2};
constexpr ParamKey menuX{0, 42};

} // namespace

TEST_F(DocumentTest, AValueGoesToItsObjectsAndBack)
{
    openLevels();
    const auto opened = saved();
    type(clockX, u"777");
    EXPECT_EQ(document.object(5)->Left, 777);
    EXPECT_EQ(told.back().params, std::set<ParamKey>{clockX});
    EXPECT_EQ(told.back().objects, std::set<int>{5});
    // Menu and bar share it.
    type(menuX, u"99");
    EXPECT_EQ(told.back().objects, (std::set<int>{0, 1}));
    EXPECT_EQ(document.object(1)->Left, 99);
    // It feeds no object; the row keeps what was typed, the file its 24 bits.
    type({4, 18}, u"3000000000");
    EXPECT_TRUE(told.back().objects.empty());
    const auto changed = saved();
    EXPECT_EQ(value({4, 18}), u"3000000000"_s);
    EXPECT_TRUE(changed.at(u"ZUK0004.CFG"_s).contains(QByteArray::fromHex("005ED012")));
    type(clockX, u"0x00GG00");
    EXPECT_EQ(value(clockX), u"0x00GG00"_s);
    EXPECT_TRUE(document.isModified());
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(document.undo());
    EXPECT_FALSE(document.undo() || document.isModified());
    EXPECT_EQ(document.object(5)->Left, 2);
    EXPECT_EQ(saved(), opened);
    while (document.canRedo())
        EXPECT_TRUE(document.redo());
    EXPECT_EQ(value(clockX), u"0x00GG00"_s);
    document.undo();
    EXPECT_EQ(saved(), changed);
}

TEST_F(DocumentTest, NothingIsNoStepAndRunsAreOne)
{
    openLevels();
    type(clockX, u"2");  // as it is
    type({0, 98}, u"1"); // no list shows it
    EXPECT_FALSE(document.canUndo() || document.isModified());
    document.beginGesture({u"move of Time"_s, {}, {}});
    type(clockX, u"300");
    EXPECT_TRUE(told.back().live && !document.canUndo());
    type(clockX, u"310");
    document.endGesture();
    EXPECT_EQ(document.undoText(), u"move of Time"_s);
    for (const char16_t* number : {u"1", u"12", u"123"})
        type({4, 7}, number, u"slider"_s);
    document.undo();
    EXPECT_EQ(value({4, 7}), u"7"_s);
    document.undo();
    EXPECT_EQ(value(clockX), u"2"_s);
    EXPECT_FALSE(document.canUndo());
    document.beginGesture({u"move"_s, {}, {}});
    type(clockX, u"5");
    document.cancelGesture();
    EXPECT_EQ(document.object(5)->Left, 2);
    EXPECT_EQ(document.redoText(), u"move of Time"_s); // Escape leaves what was undone, too
    // A saved state is never merged away.
    type({4, 7}, u"1", u"slider"_s);
    document.markSaved();
    EXPECT_FALSE(document.isModified());
    type({4, 7}, u"2", u"slider"_s);
    document.undo();
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(value({4, 7}), u"1"_s);
}

TEST_F(DocumentTest, ARecordGoesToTheParametersThatStoreIt)
{
    openLevels();
    PanelRec clock = *document.object(5);
    clock.Left = 100;
    clock.Width = 500; // a constant
    clock.BackColor = 0xff0a0b0c;
    Change change;
    addRecord(document.state(), 5, clock, change);
    EXPECT_EQ(change.params.size(), 2U);
    ASSERT_TRUE(document.apply(change, {u"x"_s, {}, {}}));
    EXPECT_EQ(value(clockX) + value({0, 6}), u"1000x0A0B0C"_s);
    EXPECT_EQ(document.object(5)->Width, 500);
    document.setText(5, u"words"_s);
    document.undo();
    EXPECT_EQ(document.object(5)->Width, 72);
    EXPECT_EQ(document.object(5)->Text, u"words"_s); // shown, and no part of the step
}

TEST_F(DocumentTest, AMenuLiesOverTheValuesUntilItIsTakenAway)
{
    openLevels();
    document.setMenuValues([](ZUKarr& table) { table.at(0, 2).LstValue = 400; });
    type(clockX, u"50");
    document.showMenuLevel(true);
    EXPECT_TRUE(document.menuLevelShown());
    EXPECT_EQ(document.object(5)->Left, 400);
    document.undo(); // the menu goes on lying over it
    EXPECT_EQ(document.object(5)->Left, 400);
    document.redo();
    document.showMenuLevel(false);
    EXPECT_EQ(document.object(5)->Left, 50);
}

TEST_F(DocumentTest, LinesOfTheConfigComeBackByteForByte)
{
    openConfig("menu_start_x=0x000064 # x\r\n#menu_start_y=20\r\nmenu_max_entries=5");
    const QByteArray file = bytesOf(shell.run.Workspace + u"gfxboot.cfg"_s);
    const auto opened = document.state().cfg;
    const PanelRec menu = *document.object(MenuPanelRow);
    EXPECT_TRUE(menu.Left == 100 && menu.Top == 20);
    // Typed: into the file at once.
    Change typed;
    typed.cfg = opened;
    (*typed.cfg)[0].value = typedValue(u"30");
    typed.writeCfg = true;
    typed.cfgKey = u"menu_start_x"_s;
    ASSERT_TRUE(document.apply(typed, {u"a"_s, {}, {}}));
    EXPECT_EQ(document.object(MenuBarRow)->Left, 30);
    EXPECT_TRUE(
        bytesOf(shell.run.Workspace + u"gfxboot.cfg"_s).startsWith("menu_start_x=30 # x\r"));
    // Dragged: with the next save.
    Change dragged;
    PanelRec moved = *document.object(MenuPanelRow);
    moved.Top = 77;
    dragged.objects[MenuPanelRow] = moved;
    addMenuPlace(document.state(), moved, dragged);
    ASSERT_TRUE(document.apply(dragged, {u"b"_s, {}, {}}));
    EXPECT_EQ(document.CfgValue(u"menu_start_y"), u"77"_s);
    const auto top = saved();
    EXPECT_TRUE(document.undo() && document.undo());
    EXPECT_EQ(document.state().cfg, opened);
    EXPECT_EQ(*document.object(MenuPanelRow), menu);
    EXPECT_EQ(bytesOf(shell.run.Workspace + u"gfxboot.cfg"_s), file);
    EXPECT_TRUE(document.redo() && document.redo());
    EXPECT_EQ(bytesOf(shell.run.Workspace + u"gfxboot.cfg"_s), top.at(u"gfxboot.cfg"_s));
    // A file that cannot be written is told, and the typed value stays for the next save.
    shell.files.failAt = shell.files.calls + 1;
    shell.prompts.expectMessage(u"Cannot write"_s);
    Change failing;
    failing.cfg = document.state().cfg;
    (*failing.cfg)[0].value = typedValue(u"31");
    failing.writeCfg = true;
    EXPECT_FALSE(document.apply(failing, {u"c"_s, {}, {}}));
    EXPECT_EQ(document.CfgValue(u"menu_start_x"), u"31"_s);
}

TEST_F(DocumentTest, ASaveAsksBeforeItLosesWhatNobodyEdited)
{
    const QByteArray bytes = "; a theme\n[base]\nmenu_start_x=5\ntheme=suse\n";
    openConfig(bytes);
    const auto file = [&] { return bytesOf(shell.run.Workspace + u"gfxboot.cfg"_s); };
    const auto type = [&](QStringView text) {
        Change typed;
        typed.cfg = withCfgNumber(document.state().cfg, u"menu_start_x", typedValue(text).number);
        typed.writeCfg = true;
        ASSERT_TRUE(document.apply(typed, {u"a"_s, {}, {}}));
    };
    EXPECT_TRUE(document.writeParameters()); // nothing was edited
    EXPECT_EQ(file(), bytes);
    type(u"30");
    shell.prompts.expectChoice(u"theme=suse"_s, u"Cancel"_s);
    EXPECT_FALSE(document.writeParameters());
    const QByteArray kept = QByteArray(bytes).replace("=5", "=30");
    shell.prompts.expectChoice(u"[base]"_s, u"Keep them as they are"_s);
    for (int save = 0; save < 10; ++save) {
        EXPECT_TRUE(document.writeParameters()); // asked once
        EXPECT_EQ(file(), kept);
    }
    document.beginHistory();
    type(u"31");
    shell.prompts.expectChoice(u"[base]"_s, u"Save as the lists show"_s);
    for (int save = 0; save < 10; ++save) {
        EXPECT_TRUE(document.writeParameters());
        EXPECT_TRUE(file().contains("#theme=0\t"));
    }
}

TEST_F(DocumentTest, FilesOfACommandAreOneStep)
{
    openLevels();
    shell.member(u"a.txt"_s, "old");
    const auto write = [&](const QByteArray& bytes) {
        return shell.files.write(shell.run.Workspace + u"a.txt"_s, bytes).ok();
    };
    const auto text = [&] { return bytesOf(shell.run.Workspace + u"a.txt"_s); };
    EXPECT_TRUE(document.changeMembers({u"text"_s, {}, {}}, [&] {
        type(clockX, u"9"); // belongs to it
        return document.changeMembers({u"inner"_s, {}, {}}, [&] { return write("new"); });
    }));
    EXPECT_EQ(document.undoText(), u"text"_s);
    EXPECT_TRUE(document.undo());
    EXPECT_EQ(text() + value(clockX).toUtf8(), "old2");
    EXPECT_EQ(told.back().members, std::set<QByteArray>{"a.txt"});
    EXPECT_TRUE(document.redo());
    EXPECT_EQ(text() + value(clockX).toUtf8(), "new9");
    // One that fails half way leaves nothing.
    EXPECT_FALSE(document.changeMembers({u"fails"_s, {}, {}}, [&] {
        type(clockX, u"10");
        (void)write("half");
        return false;
    }));
    EXPECT_EQ(text() + value(clockX).toUtf8(), "new9");
    EXPECT_EQ(document.undoText(), u"text"_s);
}

TEST_F(DocumentTest, AnOlderGfxbootBecomesTheNewestAndGoesBack)
{
    // 19 pixels high, without a tag: lines of 28 pixels are 3 + 12.75 + 12.25.
    shell.member(u"16x16.fnt"_s, QByteArray::fromHex("068e82d2000000001304120000"));
    openConfig("menu_start_x=100\r\n#menu_start_y=50\r\nmenu_bar_color=0x123456\r\n"
               "menu_max_entries=8");
    shell.member(u"#.lst"_s, "gfxboot.cfg\r\n16x16.fnt\r\n");
    Change entries; // not yet in the file
    addMenuEntries(document.state(), false, 5, entries);
    EXPECT_TRUE(document.apply(entries, {u"entries"_s, {}, {}}));
    EXPECT_TRUE(document.upgrade());
    EXPECT_EQ(document.generation(), Generation::Three);
    EXPECT_TRUE(told.back().generation && told.back().members.contains("gfxboot.cfg"));
    for (const auto& [number, wanted] :
         {std::pair{42, 100}, {43, 170}, {56, 0x123456}, {40, 12}, {41, 5}, {1, 0}, {47, 255}})
        EXPECT_EQ(document.state().ZUKarr.at(0, number).LevelValue, wanted) << number;
    EXPECT_EQ(bytesOf(shell.run.Workspace + u"ZUK0009.CFG"_s).toHex(),
              "0a000001020000021700000301000004160000050000000601000007");
    EXPECT_TRUE(isListed(shell.run.Workspace, u"ZUK0009.CFG"_s));
    EXPECT_FALSE(isListed(shell.run.Workspace, u"gfxboot.cfg"_s));
    EXPECT_TRUE(document.undo());
    EXPECT_EQ(document.generation(), Generation::Two);
    EXPECT_EQ(document.CfgValue(u"menu_max_entries"), u"5"_s);
    EXPECT_FALSE(FileExists(shell.run.Workspace + u"ZUK0000.CFG"_s));
    EXPECT_TRUE(document.redo());
    EXPECT_EQ(document.state().ZUKarr.at(0, 42).Value->number, 100);
    EXPECT_FALSE(FileExists(shell.run.Workspace + u"gfxboot.cfg"_s) || document.upgrade());
    // Without a font of its own there is one all the same.
    EXPECT_TRUE(document.undo() && shell.files.remove(shell.run.Workspace + mainFontName));
    EXPECT_TRUE(RebuildMemberList(shell.shell, {}));
    EXPECT_TRUE(document.upgrade() && FileExists(shell.run.Workspace + mainFontName));
    EXPECT_TRUE(isListed(shell.run.Workspace, mainFontName));
}

TEST_F(DocumentTest, TheHistoryIsBoundedInBytes)
{
    openLevels();
    shell.member(u"big"_s, {});
    const QByteArray large(60'000'000, 'x');
    for (char c = '1'; c <= '6'; ++c) {
        EXPECT_TRUE(document.changeMembers({QString(QLatin1Char(c)), {}, {}}, [&] {
            return shell.files.write(shell.run.Workspace + u"big"_s, large + c).ok();
        }));
    }
    int steps = 0;
    while (document.undo())
        ++steps;
    EXPECT_TRUE(steps >= 1 && steps <= 4) << steps;
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ(bytesOf(shell.run.Workspace + u"big"_s).back(), '6' - steps);
}
