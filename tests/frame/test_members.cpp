// SPDX-License-Identifier: MIT
// Backgrounds, logos and texts changed in a whole window: files, lists and stage say the same.
#include "container/open_fixture.h"
#include "frame/handlers.h"
#include "frame/menus.h"
#include "params/list_actions.h"
#include "params/object_table.h"
#include "stage/stage_surface.h"
#include "support/run_program.h"
#include "window_fixture.h"

#include <QClipboard>
#include <QImageReader>

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
    CommitValue(*window);
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
    // A gap in the numbers is none on the stage.
    QFile::remove(member(u"Logo_00.jpg"_s));
    membersChanged(*window, {});
    stage().LogoIndex = 7;
    showLogoMember(*window, u"Logo_01.jpg"_s);
    EXPECT_EQ(stage().LogoIndex, 0);
}

TEST_F(Members, ATextIsEditedOverTheStageAndSaved)
{
    const int tab = record(HelpPanelRow).TabIndex;
    selectRow(tab, u"ZUK_Read.txt"_s);
    shell.member(u"Logo_07.txt"_s, "other");
    membersChanged(*window, u"Logo_??.txt"_s);
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
    const QSize before = port.size();
    window->commands().runEntry(u"mnuView_scale"_s, 50);
    EXPECT_NE(port.size(), before);
    EXPECT_TRUE(coversStage());
    // Enter makes a line, Escape and the loss of the focus do nothing.
    editor.setText(u"first"_s);
    editor.box().moveCursor(QTextCursor::End);
    QTest::keyClick(&editor.box(), Qt::Key_Return);
    QTest::keyClicks(&editor.box(), u"second"_s);
    QTest::keyClick(&editor.box(), Qt::Key_Escape);
    window->surface().setFocus();
    selectRow(tab, u"Logo_07.txt"_s); // the text goes back to where it came from all the same
    ASSERT_TRUE(editor.textEditMode() && editor.isVisible());
    child<QPushButton>(u"ComFr6ForTXT(1)"_s).click();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(bytesOf(member(u"ZUK_Read.txt"_s)), "first\r\nsecond");
    EXPECT_EQ(bytesOf(member(u"Logo_07.txt"_s)), "other");
    selectRow(tab, u"ZUK_Read.txt"_s);
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

// Reads an XPM as the loaders of that time do: byte by byte, quotation mark by quotation mark, with
// fixed places in each line and no word for a colour. Null if the picture is none for them.
class OldLoader {
public:
    explicit OldLoader(QByteArray file) : m_file(std::move(file)) {}
    QImage read()
    {
        nextText();
        const int width = number();
        const int height = number();
        const int colours = number();
        if (QSize(width, height) != QSize(640, 480) || colours < 1 || colours > 14 || number() != 1)
            return {};
        std::map<char, QRgb> palette;
        for (int i = 0; i < colours; ++i) {
            const QByteArray line = nextText();
            bool hexadecimal = false;
            const QRgb colour = line.mid(5).toUInt(&hexadecimal, 16);
            if (line.size() != 11 || line.mid(1, 4) != " c #" || !hexadecimal)
                return {};
            palette[line[0]] = colour | 0xff000000U;
        }
        QImage picture(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y) {
            const QByteArray line = nextText();
            for (int x = 0; x < width; ++x) {
                if (line.size() != width || !palette.contains(line[x]))
                    return {};
                picture.setPixel(x, y, palette[line[x]]);
            }
        }
        return picture;
    }

private:
    // Between the next two quotation marks.
    QByteArray nextText()
    {
        const qsizetype begin = m_file.indexOf('"', m_at) + 1;
        const qsizetype end = m_file.indexOf('"', begin);
        m_at = end + 1;
        m_numbers = m_file.mid(begin, end - begin).split(' ');
        return m_file.mid(begin, end - begin);
    }
    int number() { return m_numbers.isEmpty() ? 0 : m_numbers.takeFirst().toInt(); }
    QByteArray m_file;
    QByteArrayList m_numbers;
    qsizetype m_at = 0;
};

TEST_F(Members, TheSplashImageIsWhatOldLoadersParse)
{
    shell.prompts.expectSave(shell.path(u"My splash"_s));
    runCommand("mnuFile_Splash");
    const Ran judge = runProgram(u"gzip"_s, {u"-dc"_s, shell.path(u"My splash.xpm.gz"_s)});
    const QImage splash = OldLoader(judge.out).read();
    ASSERT_FALSE(splash.isNull());
    // In few colours and blurred, but still the background.
    const QImage background(shell.run.BackFile);
    qint64 difference = 0;
    for (const QPoint& at : {QPoint(5, 5), QPoint(30, 9), QPoint(9, 30), QPoint(31, 31)}) {
        const auto small = [&at](const QImage& image) {
            return qGray(
                image.scaled(40, 40, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(at));
        };
        difference = std::max<qint64>(difference, std::abs(small(splash) - small(background)));
    }
    EXPECT_LT(difference, 32);
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
    membersChanged(*window, u"16x16_??.fnt"_s);
    const auto fonts = [this] { return filesLike(shell.run.Workspace, u"16x16*.fnt"_s); };
    selectRow(TabFonts, u"16x16.fnt"_s);
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        EXPECT_EQ(fonts().size(), 3);
        Q_EMIT window->rightPanel().tabMenuAsked(TabFonts, {5, 5});
        window->menus().menu(u"mnu_Context_ListView1Popup"_s)->close();
        shell.prompts.expectMessage(u"Do you really want to delete all files?"_s, answer);
        for (QAction* entry : window->menus().entries("ListView1Popup")) {
            if (entry->objectName().endsWith(u"_%1"_s.arg(popupDeleteAll)))
                entry->trigger();
        }
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(fonts(), QStringList{u"16x16.fnt"_s});
    EXPECT_FALSE(bytesOf(member(u"#.lst"_s)).contains("16x16_"));
    // What is required goes by no button either.
    selectRow(TabFonts, u"16x16.fnt"_s);
    shell.prompts.expectMessage(u"File 16x16.fnt can not be removed."_s);
    window->rightPanel().deleteButton().click();
    EXPECT_EQ(fonts(), QStringList{u"16x16.fnt"_s});
}

// An old engine is replaced by the template's own, whole, and only on Yes.
TEST_F(Members, AnObsoleteEngineIsReplacedByTheTemplatesOwn)
{
    RawCpio archive = smallMessage(800, 600);
    archive.add({.name = "16x16.fnt", .data = "old font"});
    archive.add({.name = "Logo_msk.jpg", .data = jpegBytes(9, 9)});
    archive.add({.name = "ZUK0000.CFG", .data = std::string("\1\0\0\1", 4)});
    const QString old = shell.file(u"old"_s, QByteArray::fromStdString(archive.close()));
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        shell.prompts.expectMessage(u"is obsolete!"_s, answer);
        ASSERT_TRUE(window->openGfxboot(old));
        const bool upgraded = answer == Answer::Yes;
        EXPECT_EQ(bytesOf(member(u"init"_s)),
                  upgraded ? bytesOf(shell.run.AppPath + u"/data/INIT"_s) : "engine");
        EXPECT_NE(bytesOf(member(u"16x16.fnt"_s)) == "old font", upgraded);
    }
}

} // namespace

} // namespace fennel::test
