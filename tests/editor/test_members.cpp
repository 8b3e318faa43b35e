// SPDX-License-Identifier: MIT
// Backgrounds, logos and texts changed in a whole window: files, lists and stage say the same.
#include "container/member_list.h"
#include "document/open_fixture.h"
#include "editor/commands/handlers.h"
#include "editor/lists/list_actions.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/menus.h"
#include "params/object_table.h"
#include "support/run_program.h"
#include "window_fixture.h"

#include <QImageReader>

namespace fennel::test {

namespace {

class Members : public WindowTest {
protected:
    Members() { openTemplate(); }
    QString member(const QString& name) const { return shell.run.Workspace + name; }
    QStringList texts(int tab)
    {
        QStringList all;
        for (const ListRow& row : bench.params.list(tab)->rows)
            all << itemText(bench.document, *bench.params.list(tab), row);
        return all;
    }
    void selectRow(int tab, const QString& name)
    {
        Q_EMIT window.rightPanel().tabClicked(tab);
        const auto number = static_cast<int>(texts(tab).indexOf(name)) + 1;
        ASSERT_GT(number, 0) << name.toStdString();
        window.rightPanel().view(tab)->select(number);
        Q_EMIT window.rightPanel().rowSelected(tab, number, false);
    }
    QSize sizeOf(const QString& name) const { return QImageReader(member(name)).size(); }
    int logoTab() { return bench.params.TabIndex(LogoPanelRow); }
};

TEST_F(Members, LogosComeWithTheirTextsInTheSizeOfTheMask)
{
    selectRow(logoTab(), u"Logo_00.jpg"_s);
    shell.prompts.expectOpen(shell.picture(u"logo.png"_s, {300, 300}, qRgb(255, 255, 0)));
    window.rightPanel().addButton().click();
    EXPECT_TRUE(texts(logoTab()).contains(u"Logo_01.jpg"_s));
    EXPECT_EQ(sizeOf(u"Logo_01.jpg"_s), sizeOf(u"Logo_msk.jpg"_s));
    EXPECT_EQ(stage().logoCount(), 2);
    EXPECT_TRUE(texts(bench.params.TabIndex(HelpPanelRow)).contains(u"Logo_01.txt"_s));

    shell.prompts.expectInput(u"80 X 60"_s);
    runCommand("mnuEdit_ResizeLOGO");
    EXPECT_EQ(stage().panel(LogoPanelRow).rect.size(), QSize(80, 60));
    // A gap in the numbers is none on the stage.
    QFile::remove(member(u"Logo_00.jpg"_s));
    membersChanged(window, {});
    stage().LogoIndex = 7;
    showLogoMember(window, u"Logo_01.jpg"_s);
    EXPECT_EQ(stage().LogoIndex, 0);
}

TEST_F(Members, ATextIsEditedOverTheStageAndSaved)
{
    const int tab = bench.params.TabIndex(HelpPanelRow);
    selectRow(tab, u"ZUK_Read.txt"_s);
    shell.member(u"Logo_07.txt"_s, "other");
    membersChanged(window, u"Logo_??.txt"_s);
    selectRow(tab, u"ZUK_Read.txt"_s);
    window.rightPanel().editButton().click();
    ValueEditor& editor = window.rightPanel().editor();
    ASSERT_TRUE(editor.textEditMode());
    // It grows over the whole stage, and stays there when that changes its size.
    const QWidget& port = *window.surface().parentWidget();
    const auto coversStage = [&] {
        return editor.geometry() == QRect(port.mapTo(&window.area(), QPoint()), port.size());
    };
    EXPECT_TRUE(QTest::qWaitFor(coversStage));
    const QSize before = port.size();
    window.commands().runEntry(u"mnuView_scale"_s, 50);
    EXPECT_NE(port.size(), before);
    EXPECT_TRUE(coversStage());
    // Enter makes a line, Escape and the loss of the focus do nothing.
    editor.setText(u"first"_s);
    editor.box().moveCursor(QTextCursor::End);
    QTest::keyClick(&editor.box(), Qt::Key_Return);
    QTest::keyClicks(&editor.box(), u"second"_s);
    QTest::keyClick(&editor.box(), Qt::Key_Escape);
    window.surface().setFocus();
    selectRow(tab, u"Logo_07.txt"_s); // the text goes back to where it came from all the same
    selectObject(LogoPanelRow);
    const QString other = record(LogoPanelRow).Text;
    ASSERT_TRUE(editor.textEditMode() && editor.isVisible());
    find<QPushButton>(u"ComFr6ForTXT(1)"_s).click();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "first\r\nsecond");
    EXPECT_EQ(bytesOf(member(u"Logo_07.txt"_s)), "other");
    EXPECT_EQ(record(LogoPanelRow).Text, other);
    EXPECT_EQ(record(HelpPanelRow).Text, u"first\r\nsecond"_s);
    EXPECT_FALSE(stage().panel(HelpPanelRow).visible);
    selectRow(tab, u"ZUK_Read.txt"_s);
    EXPECT_EQ(record(HelpPanelRow).Text, u"first\r\nsecond"_s);

    // A file that cannot be written keeps the text open.
    window.rightPanel().editButton().click();
    editor.setText(u"Ж"_s);
    shell.files.calls = 0;
    shell.files.failAt = 1;
    shell.prompts.expectMessage({});
    find<QPushButton>(u"ComFr6ForTXT(1)"_s).click();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "first\r\nsecond");
    shell.files.failAt = 0;
    // Neither a row nor a file that cannot be opened throws it away.
    QTest::keyClicks(&editor.box(), u"typed"_s);
    const QString typed = editor.text();
    shell.prompts.expectMessage(u"not saved"_s, Answer::No);
    Q_EMIT window.rightPanel().rowActivated(tab, 1);
    shell.prompts.expectOpen(shell.file(u"none"_s, "no message"));
    shell.prompts.expectMessage(u"not saved"_s, Answer::Yes);
    shell.prompts.expectMessage(u"ERROR. File back.jpg not found!"_s);
    runCommand("mnuFile_Open");
    EXPECT_TRUE(editor.textEditMode() && editor.text() == typed);
    find<QPushButton>(u"ComFr6ForTXT(2)"_s).click(); // reload
    EXPECT_EQ(editor.text(), u"first\nsecond"_s);
    // A save takes it along and leaves it open.
    QTest::keyClicks(&editor.box(), u"the "_s);
    EXPECT_TRUE(textModified(window) && window.isWindowModified() && commitText(window));
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "the first\r\nsecond");
    EXPECT_TRUE(editor.isVisible() && !textModified(window));
    find<QPushButton>(u"ComFr6ForTXT(0)"_s).click();
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(Members, TheSplashImageIsAGzippedXpm)
{
    shell.prompts.expectSave(shell.path(u"My splash"_s));
    runCommand("mnuFile_Splash");
    const Ran xpm = runProgram(u"gzip"_s, {u"-dc"_s, shell.path(u"My splash.xpm.gz"_s)});
    EXPECT_EQ(runProgram(u"identify"_s, {u"-format"_s, u"%wx%h"_s, u"xpm:-"_s}, {}, xpm.out).out,
              "640x480");
    EXPECT_FALSE(FileExists(shell.run.WorkspaceRoot + u"~splash.xpm"_s));
    shell.prompts.expectSave({});
    shell.prompts.expectMessage(u"Canceled by user"_s);
    runCommand("mnuFile_Splash");
}

// The pop-up's "delete all" takes the numbered members and no other.
TEST_F(Members, DeletingAllAsksAndKeepsWhatIsRequired)
{
    for (const QString& name : {u"16x16_01.fnt"_s, u"16x16_07.fnt"_s})
        shell.member(name, bytesOf(member(u"16x16.fnt"_s)));
    membersChanged(window, u"16x16_??.fnt"_s);
    const auto fonts = [this] { return filesLike(shell.run.Workspace, u"16x16*.fnt"_s); };
    selectRow(TabFonts, u"16x16.fnt"_s);
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        EXPECT_EQ(fonts().size(), 3);
        Q_EMIT window.rightPanel().tabMenuAsked(TabFonts, {5, 5});
        window.menus().menu(u"mnu_Context_ListView1Popup"_s)->close();
        shell.prompts.expectMessage(u"Do you really want to delete all files?"_s, answer);
        for (QAction* entry : window.menus().entries("ListView1Popup")) {
            if (entry->objectName().endsWith(u"_%1"_s.arg(popupDeleteAll)))
                entry->trigger();
        }
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(fonts(), QStringList{u"16x16.fnt"_s});
    EXPECT_FALSE(bytesOf(member(u"#.lst"_s)).contains("16x16_"));
    // What is required goes by no button either.
    selectRow(TabFonts, u"16x16.fnt"_s);
    shell.prompts.expectMessage(u"File \"16x16.fnt\" can not be removed."_s);
    window.rightPanel().deleteButton().click();
    EXPECT_EQ(fonts(), QStringList{u"16x16.fnt"_s});
}

// An old engine is replaced by the template's own, whole, and only on Yes.
TEST_F(Members, AnObsoleteEngineIsReplacedByTheTemplatesOwn)
{
    RawCpio archive = smallMessage(800, 600);
    archive.add({.name = "Logo_msk.jpg", .data = jpegBytes(9, 9)});
    archive.add({.name = "ZUK0000.CFG", .data = std::string("\1\0\0\1", 4)});
    const QString old = shell.file(u"old"_s, QByteArray::fromStdString(archive.close()));
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        shell.prompts.expectMessage(u"is obsolete!"_s, answer);
        ASSERT_TRUE(window.openGfxboot(old));
        const bool upgraded = answer == Answer::Yes;
        EXPECT_EQ(bytesOf(member(u"init"_s)),
                  upgraded ? bytesOf(shell.run.AppPath + u"/data/INIT"_s) : "engine");
        EXPECT_EQ(isListed(shell.run.Workspace, u"16x16.fnt"_s), upgraded);
    }
}

} // namespace

} // namespace fennel::test
