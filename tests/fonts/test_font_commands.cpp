// SPDX-License-Identifier: MIT
// Changing, adding and looking into fonts in the whole window: menu, buttons, lists, dialog.
#include "document/open_fixture.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/font_window.h"
#include "editor/fonts/inspection_list.h"
#include "editor/lists/right_panel.h"
#include "support/bin_folder.h"
#include "support/story.h"

#include <QListView>
#include <QTest>
#include <QTimer>
#include <QTreeView>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class FontCommands : public ::testing::Test {
protected:
    // Without a tag and with four bytes of glyphs, of U+0041 and U+0416.
    static std::string oldFont()
    {
        return {"\x06\x8E\x82\xD2\x02\0\0\0\x10\x03\x12\x41\0\xA0\x02\0\x16\x04\xE0\x02\0abcd", 25};
    }
    void openGeneration(int number)
    {
        if (number == 3) {
            w.open(w.shell.file(u"template"_s, bytesOf(fennel::test::binFolder() +
                                                       QStringLiteral("/data/GFX.GZ"))));
            return;
        }
        RawCpio archive = smallMessage(400, 300);
        archive.add({.name = "16x16.fnt", .data = oldFont()});
        if (number == 2)
            archive.add({.name = "gfxboot.cfg", .data = "foreground=0xFFFFFF\r\n"});
        w.open(w.shell.file(u"message"_s, QByteArray::fromStdString(archive.close())));
    }
    // What the user does when the dialog stands.
    void inDialog(const std::function<void(FontWindow&)>& act)
    {
        QTimer::singleShot(0, &w.window, [this, act] {
            auto* dialog = qobject_cast<FontWindow*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            titles << dialog->windowTitle();
            act(*dialog);
        });
    }
    void applyInDialog(const QString& font = u"DejaVu Serif"_s)
    {
        inDialog([font](FontWindow& dialog) {
            auto* list = dialog.findChild<QComboBox*>(u"Combo1"_s);
            list->setCurrentIndex(list->findText(font + u" > "_s, Qt::MatchStartsWith));
            QTest::keyClick(list, Qt::Key_Return);
        });
    }
    void run(const QString& command)
    {
        w.window.commands().run(command);
        QCoreApplication::processEvents();
    }
    // A click on a row of the fonts' list.
    void clickRow(int row, bool twice = false)
    {
        ListView* list = w.window.rightPanel().view(TabFonts);
        QWidget* port = list->findChild<QTreeView*>()->viewport();
        const QPoint at = port->mapFrom(list, list->cellRect(row, 0).center());
        QTest::mouseClick(port, Qt::LeftButton, {}, at);
        if (twice)
            QTest::mouseDClick(port, Qt::LeftButton, {}, at);
        QCoreApplication::processEvents();
    }
    void goToFonts() { w.click(w.find<QWidget>(u"TabStrip1_%1"_s.arg(int{TabFonts}))); }
    QByteArray member(const QString& name) { return bytesOf(w.shell.run.Workspace + name); }
    bool has(const QString& name) { return FileExists(w.shell.run.Workspace + name); }
    QString example() { return w.find<QLabel>(u"FontExample"_s).text(); }

    Story w;
    QStringList titles; // of the dialogs that came
};

} // namespace

TEST_F(FontCommands, Generation1KeepsItsFont)
{
    openGeneration(1);
    EXPECT_FALSE(w.action(u"mnuEDIT_NEWFont"_s).isEnabled());
    EXPECT_FALSE(w.action(u"mnuEDIT_ADDFont"_s).isEnabled());
    applyInDialog();
    run(u"mnuEDIT_NEWFont"_s);
    EXPECT_EQ(titles, QStringList{u"Font. Edit 16x16.fnt"_s});
    EXPECT_EQ(member(u"16x16.fnt"_s).toStdString(), oldFont());
    EXPECT_TRUE(has(u"#.#nt"_s));
    goToFonts();
    w.shell.prompts.expectMessage(u"Too old version of the gfxboot.\nFonts are not supported"_s);
    clickRow(1, true);
    EXPECT_FALSE(w.find<QWidget>(u"Frame_for_List1"_s).isVisible());
}

TEST_F(FontCommands, Generation3ChangesTheSelectedAndAddsFurtherFonts)
{
    openGeneration(3);
    goToFonts();
    EXPECT_FALSE(w.find<QWidget>(u"Font_change"_s).isEnabled());
    clickRow(1);
    applyInDialog();
    w.click(w.find<QWidget>(u"ComADD"_s));
    EXPECT_TRUE(has(u"16x16_01.fnt"_s));
    EXPECT_TRUE(member(u"#.lst"_s).contains("16x16_01.fnt"));
    const ListRows& list = *w.bench.params.list(TabFonts);
    ASSERT_GT(list.selected, 0);
    EXPECT_EQ(list.row(list.selected)->name, u"16x16_01.fnt"_s);
    const QByteArray first = member(u"16x16.fnt"_s);

    applyInDialog(u"Liberation Sans Bold"_s);
    w.click(w.find<QWidget>(u"Font_change"_s));
    EXPECT_TRUE(member(u"16x16_01.fnt"_s).contains("utility|Liberation Sans\t Bold|size\t14 px|"));
    EXPECT_EQ(member(u"16x16.fnt"_s), first);
    EXPECT_TRUE(w.find<QLabel>(u"FontExample"_s).font().bold());

    applyInDialog();
    w.click(w.find<QWidget>(u"Toolbar1_12"_s));
    EXPECT_EQ(titles, (QStringList{u"Font. Add"_s, u"Font. Edit 16x16_01.fnt"_s,
                                   u"Font. Edit 16x16_01.fnt"_s}));
    applyInDialog();
    w.choose("mnuEDIT_ADDFont");
    EXPECT_TRUE(has(u"16x16_02.fnt"_s));
}

TEST_F(FontCommands, TheCharactersOfAFontOverTheStage)
{
    openGeneration(2);
    goToFonts();
    clickRow(2, true);
    EXPECT_FALSE(w.find<QWidget>(u"Frame_for_List1"_s).isVisible()); // no heading row
    clickRow(1, true);
    auto& frame = w.find<InspectionList>(u"Frame_for_List1"_s);
    ASSERT_TRUE(frame.isVisible());
    EXPECT_TRUE(w.find<QWidget>(u"Font_change"_s).isEnabled());
    EXPECT_EQ(frame.geometry(), w.find<QWidget>(u"Picture1"_s).rect().adjusted(10, 9, -10, -9));
    EXPECT_EQ(w.find<QLabel>(u"LabelForList1"_s).text(), u"FNT-file content"_s);
    auto& list = w.find<QListView>(u"List1"_s);
    ASSERT_EQ(list.model()->rowCount(), 5);
    const auto click = [&](int row, Qt::MouseButton button) {
        QTest::mouseClick(list.viewport(), button, {},
                          list.visualRect(list.model()->index(row, 0)).center());
        QCoreApplication::processEvents();
    };
    w.shell.prompts.expectMessage(u"Position in set =4\n1604 E00200|Ж|"_s);
    click(4, Qt::LeftButton);
    EXPECT_TRUE(w.shell.prompts.texts.back().endsWith(u"representation:\n6364"_s));
    w.click(w.find<QWidget>(u"CommandList1Close"_s));
    EXPECT_FALSE(frame.isVisible());
    w.window.rightPanel().view(TabFonts)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(frame.isVisible());
    w.find<QWidget>(u"Picture1"_s).setFocus();
    QCoreApplication::processEvents();
    EXPECT_FALSE(frame.isVisible()) << "it goes with the focus";

    // Nothing of a font stays that is not there any more, or another one by now.
    const std::function<void()> changes[] = {
        [&] {
            applyInDialog();
            run(u"mnuEDIT_NEWFont"_s);
        },
        [&] { run(u"mnuFile_New"_s); },
    };
    for (const auto& change : changes) {
        openFontContent(w.window, u"16x16.fnt"_s);
        ASSERT_TRUE(frame.isVisible() && list.model()->rowCount() > 3);
        change();
        EXPECT_FALSE(frame.isVisible());
        EXPECT_EQ(list.model()->rowCount(), 0);
    }
}
