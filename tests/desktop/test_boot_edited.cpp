// SPDX-License-Identifier: MIT
// A new gfxboot whose background, logo, text and font were changed with mouse and dialogs, on the
// real boot screen: the picture pixel by pixel, the menu where the stage has it, its letters as the
// new font's bits say, Cyrillic included.
#include "desktop/boot.h"
#include "desktop/boot_letters.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/char_page.h"
#include "editor/lists/right_panel.h"
#include "params/object_table.h"
#include "screen/blend.h"
#include "support/story.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// Dark, so that the menu's white letters stand out, with edges and a gradient.
QString picture(TestShell& shell)
{
    QImage image(1000, 700, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 90 / 1000, y * 60 / 700, (x / 100 + y / 100) % 2 * 70));
    EXPECT_TRUE(image.save(shell.path(u"night sky.png"_s)));
    return shell.path(u"night sky.png"_s);
}

void clickButton(QWidget& parent, const QString& name)
{
    auto* button = parent.findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name.toStdString();
    QTest::mouseClick(button, Qt::LeftButton);
}

// What the user does in the dialog that opens next; it must end itself.
void inNextDialog(const std::function<void(QDialog&)>& work)
{
    auto* waiting = new QTimer(qApp);
    QObject::connect(waiting, &QTimer::timeout, waiting, [waiting, work] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        waiting->deleteLater();
        waiting->stop();
        work(*dialog);
    });
    waiting->start(5);
}

// DejaVu Serif, bold, and one character more than the set that it begins with.
void chooseSerif(QDialog& dialog)
{
    auto* fonts = dialog.findChild<QComboBox*>(u"Combo1"_s);
    ASSERT_NE(fonts, nullptr);
    fonts->setFocus();
    fonts->setCurrentIndex(fonts->findText(u"DejaVu Serif Bold > "_s, Qt::MatchStartsWith));
    dialog.findChild<QScrollBar*>(u"VScrollUnicode"_s)->setValue(4);
    auto* grid = dialog.findChild<CharGrid*>(u"Kvadrat"_s);
    QTest::mouseClick(grid, Qt::LeftButton, {}, CharGrid::cellRect(0x54).center()); // U+0454
    clickButton(dialog, u"butОК"_s);
}

const QString readMe = u"Дальше — 20 €\nsecond line"_s;

void editMembers(Story& story)
{
    story.user().expectOpen(picture(story.shell));
    story.user().expectChoice(u"another shape"_s, u"Stretch"_s);
    story.choose("mnuEdit_ChangeBack");
    story.user().expectOpen(story.shell.picture(u"logo.png"_s, {90, 90}, qRgb(250, 120, 0)));
    story.editRow(u"LOGO"_s, u"Logo_00.jpg"_s);
    story.editRow(u"HelpPanel"_s, u"ZUK_Read.txt"_s);
    story.window.rightPanel().editor().setText(readMe);
    clickButton(story.window, u"ComFr6ForTXT(1)"_s);
    inNextDialog(chooseSerif);
    story.editRow(u"Font(s)"_s, u"16x16.fnt"_s);
}

// The background with the grounds of menu and bar over it, as letters find it.
QImage menuGround(const QImage& background, const PanelRec& menu, const PanelRec& bar)
{
    QImage ground = background.convertToFormat(QImage::Format_RGB32);
    const QImage clean = ground;
    QPainter painter(&ground);
    for (const PanelRec* panel : {&menu, &bar}) {
        const QRect area(panel->Left, panel->Top, panel->Width, panel->Height);
        QImage mixed;
        blendPanel(clean, area, panel->BackColor, panel->Transp, mixed);
        painter.drawImage(area.topLeft(), mixed);
    }
    return ground;
}

const QStringList entries{u"Boot from this stick"_s, u"Boot from hard disk"_s, u"Проверка памяти"_s,
                          u"Перезагрузка є"_s};

} // namespace

TEST(BootEdited, ShowsTheNewBackgroundAndTheMenuInTheNewFont)
{
    Story story;
    story.makeNew();
    const auto before = membersOf(story.run().GfxPath);
    editMembers(story);
    const QString path = story.shell.path(u"edited"_s);
    story.saveAs(path, false);
    auto members = membersOf(path);
    QString changed;
    for (const auto& [name, bytes] : before) {
        if (members[name] != bytes)
            changed += name + u' ';
    }
    // ZUK0000.CFG: which background is shown.
    EXPECT_EQ(changed.toStdString(), "16x16.fnt Logo_00.jpg ZUK0000.CFG ZUK_Read.txt back.jpg ");
    EXPECT_EQ(members.size(), before.size());
    EXPECT_EQ(members[u"ZUK_Read.txt"_s],
              "\xEF\xBB\xBF" + QString(readMe).replace(u'\n', u"\r\n"_s).toUtf8());
    const QImage oldLogo = QImage::fromData(before.at(u"Logo_00.jpg"_s));
    const QImage logo = QImage::fromData(members[u"Logo_00.jpg"_s]);
    EXPECT_EQ(logo.size(), oldLogo.size());
    EXPECT_LT(difference(logo.pixel(logo.rect().center()), qRgb(250, 120, 0)), 8);

    const Boot booted = boot(path, QStringList{u"--menu"_s} + entries);
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    const QImage background = engineDecoded(members[u"back.jpg"_s]);
    for (const QRect& part : bareParts())
        EXPECT_LE(difference(booted.screen, background, part), decoderRounding);
    const PanelRec& menu = *story.lists().object(MenuPanelRow);
    const QImage ground = menuGround(background, menu, *story.lists().object(MenuBarRow));
    const QRect panel(menu.Left, menu.Top, 60, 200); // where lines may begin
    const FntFont font = fontOf(members[u"16x16.fnt"_s]);
    std::vector<QPoint> places;
    for (const QString& entry : entries.mid(1)) { // the first stands on the bar
        const TextLine line(font, entry);
        EXPECT_EQ(line.letters(), entry.size());
        const auto found = line.find(booted.screen, ground, panel);
        EXPECT_LE(found.misfit, 8) << entry.toStdString();
        places.push_back(found.at);
    }
    EXPECT_LT(places[0].x() - panel.left(), 20);
    EXPECT_EQ(places[1] - places[0], places[2] - places[1]);
    EXPECT_EQ(places[1].x(), places[0].x());
    // The measure would tell other words, and the same words spaced otherwise.
    const auto misfit = [&](const FntFont& used, const QString& text) {
        return TextLine(used, text).find(booted.screen, ground, panel).misfit;
    };
    EXPECT_GT(misfit(font, u"Проверка почты"_s), 60);
    FntFont wider = font;
    for (Glyph& glyph : wider.glyphs)
        ++glyph.advance;
    EXPECT_GT(misfit(wider, entries[2]), 60);
}
