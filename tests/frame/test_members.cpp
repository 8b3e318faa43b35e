// SPDX-License-Identifier: MIT
// Backgrounds, logos and texts changed in a whole window: files, lists and stage say the same.
#include "frame/handlers.h"
#include "params/object_table.h"
#include "stage/stage_surface.h"
#include "window_fixture.h"

#include <QClipboard>
#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>

namespace fennel::test {

namespace {

class Members : public WindowTest {
protected:
    Members() { openTemplate(); }
    QString picture(const QString& name, QSize size, QRgb colour)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(shell.path(name)));
        return shell.path(name);
    }
    QString member(const QString& name) const { return shell.run.Workspace + name; }
    QStringList texts(int tab)
    {
        QStringList all;
        for (const ListRow& row : bench.params.list(tab)->rows)
            all << row.text();
        return all;
    }
    void selectRow(int tab, const QString& name)
    {
        Q_EMIT window->rightPanel().tabClicked(tab);
        const auto number = static_cast<int>(texts(tab).indexOf(name)) + 1;
        ASSERT_GT(number, 0) << name.toStdString();
        window->rightPanel().view(tab)->select(number);
        Q_EMIT window->rightPanel().rowSelected(tab, number, false);
    }
    QSize sizeOf(const QString& name) const { return QImageReader(member(name)).size(); }
    static bool near(QRgb a, QRgb b)
    {
        return qAbs(qRed(a) - qRed(b)) < 6 && qAbs(qGreen(a) - qGreen(b)) < 6 &&
               qAbs(qBlue(a) - qBlue(b)) < 6;
    }
    int logoTab() { return record(LogoPanelRow).TabIndex; }
};

TEST_F(Members, AnAddedBackgroundIsShownListedAndAMember)
{
    selectRow(TabBackgrounds, u"back.jpg"_s);
    shell.prompts.expectOpen(picture(u"red.png"_s, {50, 40}, qRgb(255, 0, 0)));
    window->rightPanel().addButton().click();
    EXPECT_TRUE(shell.prompts.fileQuestions.back().picture);
    EXPECT_EQ(texts(TabBackgrounds), (QStringList{u"back.jpg"_s, u"back_01.jpg"_s}));
    EXPECT_TRUE(texts(TabGfxboot).contains(u"back_01.jpg"_s));
    EXPECT_TRUE(bytesOf(member(u"#.lst"_s)).contains("back_01.jpg\r\n"));
    EXPECT_EQ(sizeOf(u"back_01.jpg"_s), QSize(800, 600));
    EXPECT_TRUE(near(stage().background().pixel(5, 5), qRgb(255, 0, 0)));
    EXPECT_EQ(bench.params.CurrentTab, TabBackgrounds);
    // The button "edit" gives the member another picture.
    selectRow(TabBackgrounds, u"back_01.jpg"_s);
    shell.prompts.expectOpen(picture(u"blue.png"_s, {9, 9}, qRgb(0, 0, 255)));
    window->rightPanel().editButton().click();
    EXPECT_TRUE(near(stage().background().pixel(5, 5), qRgb(0, 0, 255)));
}

TEST_F(Members, TheClipboardBecomesTheBackground)
{
    QGuiApplication::clipboard()->setText(u"no picture"_s);
    shell.prompts.expectMessage(u"Perhaps the Clipboard is empty"_s);
    const QByteArray before = bytesOf(member(u"back.jpg"_s));
    runCommand("mnuEdit_ge_Clipboard");
    EXPECT_EQ(bytesOf(member(u"back.jpg"_s)), before);
    QImage green(30, 30, QImage::Format_RGB32);
    green.fill(qRgb(0, 200, 0));
    QGuiApplication::clipboard()->setImage(green);
    runCommand("mnu_Context_picture1_Clipboard");
    EXPECT_TRUE(near(stage().background().pixel(5, 5), qRgb(0, 200, 0)));
    EXPECT_EQ(bytesOf(member(u"back.#pg"_s)), before);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Members, ResizeScalesTheScreenAndTheHelpPanel)
{
    shell.prompts.expectMessage(u"It is planned"_s);
    shell.prompts.expectInput(u"4"_s);
    runCommand("mnuEdit_Resize");
    EXPECT_EQ(sizeOf(u"back.jpg"_s), QSize(1024, 768));
    EXPECT_EQ(shell.run.BackWidth, 1024);
    EXPECT_EQ(record(HelpPanelRow).Width, 1024 - 160);
    EXPECT_EQ(record(HelpPanelRow).Height, 768 - 120);
    for (const char* answer : {"0", ""}) {
        shell.prompts.expectMessage(u"It is planned"_s);
        shell.prompts.expectInput(QString::fromLatin1(answer));
        runCommand("mnuEdit_Resize");
        EXPECT_EQ(sizeOf(u"back.jpg"_s), QSize(1024, 768));
    }
}

TEST_F(Members, LogosComeWithTheirTextsAndKeepWhatWasTyped)
{
    selectRow(logoTab(), u"Logo_00.jpg"_s);
    // A value that was typed and not yet saved survives the new list.
    const int x = record(LogoPanelRow).LeftParam;
    editRow(LogoPanelRow, x);
    window->rightPanel().editor().setText(u"321"_s);
    commitEditor(*window);
    selectRow(logoTab(), u"Logo_00.jpg"_s);
    shell.prompts.expectOpen(picture(u"logo.png"_s, {300, 300}, qRgb(255, 255, 0)));
    window->rightPanel().addButton().click();
    EXPECT_TRUE(texts(logoTab()).contains(u"Logo_01.jpg"_s));
    EXPECT_EQ(bytesOf(member(u"Logo_01.txt"_s)), "This txt-file is associated with Logo_01.jpg");
    EXPECT_EQ(sizeOf(u"Logo_01.jpg"_s), sizeOf(u"Logo_msk.jpg"_s));
    EXPECT_EQ(stage().logoCount(), 2);
    EXPECT_EQ(shown(LogoPanelRow, x), u"321"_s);
    EXPECT_EQ(record(LogoPanelRow).Left, 321);
    EXPECT_TRUE(texts(record(HelpPanelRow).TabIndex).contains(u"Logo_01.txt"_s));

    shell.prompts.expectInput(u"80 X 60"_s);
    runCommand("mnuEdit_ResizeLOGO");
    for (const char* name : {"Logo_00.jpg", "Logo_01.jpg", "Logo_msk.jpg"})
        EXPECT_EQ(sizeOf(QString::fromLatin1(name)), QSize(80, 60)) << name;
    EXPECT_EQ(stage().panel(LogoPanelRow).rect.size(), QSize(80, 60));
}

TEST_F(Members, ATextIsEditedOverTheStageAndSaved)
{
    const int tab = record(HelpPanelRow).TabIndex;
    selectRow(tab, u"ZUK_Read.txt"_s);
    window->rightPanel().editButton().click();
    ValueEditor& editor = window->rightPanel().editor();
    ASSERT_TRUE(editor.textEditMode());
    // It grows over the whole stage, and stays there when that changes its size.
    const QWidget& port = *window->surface().parentWidget();
    const auto coversStage = [&] {
        return editor.geometry() == QRect(port.mapTo(&window->area(), QPoint()), port.size());
    };
    EXPECT_TRUE(QTest::qWaitFor(coversStage));
    window->commands().runEntry(u"mnuView_scale"_s, 75);
    EXPECT_EQ(port.size(), QSize(600, 450));
    EXPECT_TRUE(coversStage());
    // Enter makes a line, Escape and the loss of the focus do nothing.
    editor.setText(u"first"_s);
    editor.box().moveCursor(QTextCursor::End);
    QTest::keyClick(&editor.box(), Qt::Key_Return);
    QTest::keyClicks(&editor.box(), u"second"_s);
    QTest::keyClick(&editor.box(), Qt::Key_Escape);
    window->surface().setFocus();
    ASSERT_TRUE(editor.textEditMode() && editor.isVisible());
    child<QPushButton>(u"ComFr6ForTXT(1)"_s).click();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "first\r\nsecond");
    EXPECT_EQ(record(HelpPanelRow).Text, u"first\r\nsecond"_s);

    // A file that cannot be written keeps the text open.
    window->rightPanel().editButton().click();
    editor.setText(u"Ж"_s);
    shell.files.calls = 0;
    shell.files.failAt = 1;
    shell.prompts.expectMessage({});
    child<QPushButton>(u"ComFr6ForTXT(1)"_s).click();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "first\r\nsecond");
    shell.files.failAt = 0;
    child<QPushButton>(u"ComFr6ForTXT(2)"_s).click(); // reload
    EXPECT_EQ(editor.text(), u"first\nsecond"_s);
    child<QPushButton>(u"ComFr6ForTXT(0)"_s).click();
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(Members, TheTextEditorConvertsOnlyWhatHasNoMark)
{
    const int tab = record(HelpPanelRow).TabIndex;
    shell.member(u"ZUK_Read.txt"_s, "\xD0\x96");
    selectRow(tab, u"ZUK_Read.txt"_s);
    runCommand("ComEdit");
    ValueEditor& editor = window->rightPanel().editor();
    EXPECT_EQ(editor.text(), u"Р–"_s);
    child<QPushButton>(u"ComFr6ForTXT(3)"_s).click();
    EXPECT_EQ(editor.text(), u"Ж"_s);
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "\xD0\x96");
    child<QPushButton>(u"ComFr6ForTXT(1)"_s).click();
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "\xEF\xBB\xBF\xD0\x96");
    runCommand("ComEdit");
    shell.prompts.expectMessage(u"File already uses UTF-8 encoding"_s);
    child<QPushButton>(u"ComFr6ForTXT(3)"_s).click();
    EXPECT_EQ(editor.text(), u"Ж"_s);
    EXPECT_EQ(shell.prompts.titles.back(), u"UTF-8"_s);
}

TEST_F(Members, EditOnTheListOfMembersSendsWhereItBelongs)
{
    selectRow(TabGfxboot, u"back.jpg"_s);
    shell.prompts.expectMessage(u"Use a special tab for this item"_s);
    runCommand("ComEdit");
    selectRow(TabGfxboot, u"init"_s);
    shell.prompts.expectMessage(u"This file is not a text file"_s);
    runCommand("Toolbar1_13");
    shell.prompts.expectMessage(u"ПЛАН"_s);
    runCommand("mnuEdit_Sound");
    shell.prompts.expectMessage(u"800x600"_s);
    runCommand("mnuEdit_GetINFO");
    shell.prompts.expectMessage(u"wide-screen"_s);
    shell.prompts.expectMessage(u"Planned..."_s);
    runCommand("mnu_Context_picture1_169");
}

TEST_F(Members, TheSplashImageIsWhatOldLoadersParse)
{
    shell.prompts.expectSave(shell.path(u"My splash"_s));
    runCommand("mnuFile_Splash");
    QProcess judge;
    judge.start(u"gzip"_s, {u"-dc"_s, shell.path(u"My splash.xpm.gz"_s)});
    ASSERT_TRUE(judge.waitForFinished());
    const QStringList lines =
        QString::fromLatin1(judge.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    const auto header = lines.filter(QRegularExpression(u"^\"640 480 \\d+ 1"_s));
    ASSERT_EQ(header.size(), 1);
    const int colours = header[0].section(u' ', 2, 2).toInt();
    EXPECT_LE(colours, 14);
    EXPECT_EQ(lines.filter(QRegularExpression(u"^\". c #[0-9A-Fa-f]{6}\""_s)).size(), colours);
    EXPECT_EQ(lines.filter(QRegularExpression(u"^\".{640}\""_s)).size(), 480);
    EXPECT_FALSE(FileExists(shell.run.WorkspaceRoot + u"~splash.xpm"_s));
    shell.prompts.expectSave({});
    shell.prompts.expectMessage(u"Canceled by user"_s);
    runCommand("mnuFile_Splash");
}

} // namespace

} // namespace fennel::test
