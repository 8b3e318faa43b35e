// SPDX-License-Identifier: MIT
// The font dialog as a person uses it: real clicks and keys on its controls.
#include "editor/fonts/font_window.h"

#include "fonts/fnt_codec.h"
#include "support/test_shell.h"

#include <QTest>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// The centre of the cell of a code on its own page.
QPoint cellOf(int code)
{
    return CharGrid::cellRect(code % 256).center();
}

class FontWindowTest : public ::testing::Test {
protected:
    void open(const QString& title)
    {
        FontDialogStart start;
        start.title = title;
        start.FontStyleName = u"DejaVu Sans Bold"_s;
        start.size = 15.75;
        start.wholeSize = 16;
        shell.run.PreviewScale = 0.5;
        window = std::make_unique<FontWindow>(shell.shell, start, set, u"DejaVu Sans"_s, nullptr);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    FontWindowTest() { open(u"Font. Edit 16x16.fnt"_s); }

    template <class T>
    T* part(const QString& name)
    {
        T* found = window->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    CharGrid* grid() { return part<CharGrid>(u"Kvadrat"_s); }
    QScrollBar* pages() { return part<QScrollBar>(u"VScrollUnicode"_s); }
    void click(int code)
    {
        pages()->setValue(code / 256);
        QTest::mouseClick(grid(), Qt::LeftButton, {}, cellOf(code));
    }
    void press(const QString& button)
    {
        QTest::mouseClick(part<QPushButton>(button), Qt::LeftButton);
    }
    QString text(const QString& name) { return part<QPlainTextEdit>(name)->toPlainText(); }
    QString ranges() { return text(u"LabelFNTSet"_s); }
    void choose(const QString& name)
    {
        auto* list = part<QComboBox>(u"Combo1"_s);
        const int place = list->findText(name + u" > "_s, Qt::MatchStartsWith);
        ASSERT_GE(place, 0) << name.toStdString();
        list->setCurrentIndex(place);
    }
    // The colour of the ground in a corner of a cell.
    QColor ground(int code)
    {
        const QImage picture = grid()->grab().toImage();
        const qreal ratio = picture.devicePixelRatio();
        return picture.pixelColor(
            ((CharGrid::cellRect(code % 256).topLeft() + QPoint(3, 3)) * ratio));
    }

    TestShell shell;
    CharSelected set = startingCharacters();
    std::unique_ptr<FontWindow> window;
};

} // namespace

TEST_F(FontWindowTest, BeginsWithTheFontUnderEdit)
{
    FontChoice choice = window->choice();
    EXPECT_EQ(choice.family + u'|' + choice.fileName, u"DejaVu Sans|DejaVuSans-Bold.ttf"_s);
    EXPECT_TRUE(choice.bold && !choice.italic && choice.size == 16 && choice.FontSpaceWidth == 4);
    auto* size = part<QLineEdit>(u"Text2"_s);
    size->selectAll();
    QTest::keyClicks(size, u"14.5"_s);
    EXPECT_EQ(window->choice().size, 14) << "a font has whole points";
    EXPECT_EQ(part<QPlainTextEdit>(u"TextExample3"_s)->font().pixelSize(), 19);
    part<QDoubleSpinBox>(u"UpDown1"_s)->setValue(500);
    EXPECT_EQ(window->choice().size, 191); // 254.7 pixels
    EXPECT_TRUE(part<QLabel>(u"LabelCount"_s)->text().contains(u"too wide"_s));
}

TEST_F(FontWindowTest, TogglesWhatLiesAboveTheFixedCharacters)
{
    for (const int code : {0x41, 0x9F, 0xA0, 0xA1})
        click(code);
    EXPECT_EQ(ranges(), u"0x20-0x7E 0xA0-0xA1 0x410-0x451"_s);
    EXPECT_EQ(ground(0xA1), QColor(Qt::white));
    click(0xA0);
    EXPECT_EQ(ground(0xA0), window->palette().color(QPalette::Button));
    EXPECT_EQ(ranges(), u"0x20-0x7E 0xA1 0x410-0x451"_s);
}

TEST_F(FontWindowTest, KeysMoveOverTheCellsAndToggle)
{
    pages()->setValue(4);
    grid()->setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down})
        QTest::keyClick(grid(), key);
    EXPECT_EQ(part<QLabel>(u"TextCode"_s)->text(), u"Unicode: U+0421"_s);
    EXPECT_EQ(part<QLabel>(u"Obrazec"_s)->text(), u"С"_s);
    QTest::keyClick(grid(), Qt::Key_Space);
    EXPECT_EQ(ranges(), u"0x20-0x7E 0x410-0x420 0x422-0x451"_s);
    QTest::mouseMove(grid(), cellOf(0x40F));
    QTest::mouseMove(grid(), cellOf(0x410));
    EXPECT_EQ(part<QLabel>(u"TextCode"_s)->text(), u"Unicode: U+0410"_s);
    pages()->setValue(0x4E); // no Chinese in this font
    EXPECT_TRUE(part<QLabel>(u"TextCode"_s)->text().contains(u"not in this font"_s));
}

TEST_F(FontWindowTest, LoadsTheSetOfAFontAndTheOneOfTheSettings)
{
    FntFont font;
    for (const std::uint32_t code : {0x41U, 0x42U, 0x43U, 0x444U})
        font.glyphs.push_back({code, 0, 0, 0, 0, 3, {}});
    const auto bytes = encodeFnt(font);
    ASSERT_TRUE(bytes);
    shell.member(u"16x16.fnt"_s, QByteArray(reinterpret_cast<const char*>(bytes->data()),
                                            static_cast<qsizetype>(bytes->size())));
    press(u"Perekluchatel_3"_s);
    EXPECT_EQ(part<QPushButton>(u"SetFromFNT"_s)->text(), u"from 16x16.fnt"_s);
    press(u"SetFromFNT"_s);
    EXPECT_EQ(ranges(), u"0x41-0x43 0x444"_s);
    EXPECT_EQ(text(u"TextSelected"_s), u" A B C ф"_s);
    EXPECT_EQ(part<QLabel>(u"LabelCount"_s)->text(), u"4 characters selected"_s);
    EXPECT_NE(ground(0x44), QColor(Qt::white));
    press(u"SetFromIni"_s);
    EXPECT_EQ(ranges(), QString());
    EXPECT_EQ(set.count(), 1U); // U+0000, which no font gets

    QFile::remove(shell.run.Workspace + u"16x16.fnt"_s);
    click(0xA1);
    shell.prompts.expectMessage(u"16x16.fnt"_s);
    press(u"SetFromFNT"_s);
    EXPECT_EQ(ranges(), u"0xA1"_s); // the set stays
    EXPECT_TRUE(part<QLabel>(u"LabelCount"_s)->text().contains(u"no Latin letters"_s));
}

TEST_F(FontWindowTest, EnterAppliesAndEscapeCancelsWhereverTheKeyboardIs)
{
    for (const QString& name : {u"Combo1"_s, u"TextExample3"_s, u"Kvadrat"_s, u"Text2"_s,
                                u"SetFromIni"_s, u"LabelFNTSet"_s}) {
        for (const auto& [key, result] : {std::pair{Qt::Key_Return, int{QDialog::Accepted}},
                                          {Qt::Key_Escape, int{QDialog::Rejected}}}) {
            open(u"Font. Add"_s);
            press(u"Perekluchatel_3"_s);
            auto* at = part<QWidget>(name);
            at->setFocus();
            QTest::keyClick(at, key);
            EXPECT_FALSE(window->isVisible()) << name.toStdString();
            EXPECT_EQ(window->result(), result) << name.toStdString();
        }
    }
    EXPECT_EQ(FormatCharacterRanges(set), u"0x20-0x7E 0x410-0x451"_s);
    open(u"Font. Add"_s);
    window->close();
    EXPECT_EQ(window->result(), int{QDialog::Rejected});
    open(u"Font. Add"_s);
    press(u"butОК"_s);
    EXPECT_EQ(window->result(), int{QDialog::Accepted});
}
