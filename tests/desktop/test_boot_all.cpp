// SPDX-License-Identifier: MIT
// Real boots of what else people save: Debian's themes opened and saved as they are, and one taken
// apart, changed and put together again. tests/desktop/boot_all runs them with all other boots.
#include "desktop/boot.h"
#include "desktop/boot_letters.h"
#include "editor/stage/stage_link.h"
#include "support/story.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

QString messageOf(const char* theme)
{
    return u"/etc/bootsplash/themes/%1/bootloader/message"_s.arg(QLatin1String(theme));
}

class BootTheme : public testing::TestWithParam<const char*> {};

class BootAssembled : public BootTheme {};

const QStringList entries{u"Boot from this stick"_s, u"Boot from hard disk"_s, u"Memory test"_s};

} // namespace

// A save leaves a theme as it is. With our engine in place of its own bar, letters and their places
// are those of the picture of its boot, also where the bar grows with a title.
TEST_P(BootTheme, ShowsTheSameMenuOnceItIsUpgraded)
{
    Story story;
    const QString copy = story.shell.path(u"message"_s);
    ASSERT_TRUE(story.shell.files.copy(messageOf(GetParam()), copy).ok());
    story.open(copy);
    const QStringList menu = QStringList(entries)
                             << u"A title that is wider than three hundred pixels"_s;
    story.bench.document.setMenuTitles(menu);
    Stage& stage = story.window.stageLink().stage();
    stage.showAsItBoots(true);
    const QImage before = stage.picture().copy();
    story.choose("mnuFile_Save");
    EXPECT_EQ(membersOf(copy), membersOf(messageOf(GetParam())));
    story.choose("mnuFile_Upgrade");
    story.choose("mnuFile_Save");
    const Boot upgraded = boot(copy, QStringList{u"--menu"_s} + menu);
    ASSERT_EQ(upgraded.code, 0) << upgraded.told.toStdString();
    EXPECT_LE(difference(before, upgraded.screen, QRect(0, 160, 800, 300)), 4);
}

// Taken apart by the program, with another background, font and place of the menu, and assembled.
TEST_P(BootAssembled, ShowsPictureFontAndPlaceOfTheMenu)
{
    Story story;
    const QString folder = story.shell.path(u"parts"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    story.user().expectOpen(messageOf(GetParam()));
    story.user().expectFolder(folder);
    story.choose("mnuEdit_Extract");
    QByteArray cfg = bytesOf(folder + u"/gfxboot.cfg"_s);
    ASSERT_TRUE(cfg.contains("mainmenu.pos=-1,170"));
    cfg.replace("mainmenu.pos=-1,170", "mainmenu.pos=90,330");
    ASSERT_TRUE(story.shell.files.write(folder + u"/gfxboot.cfg"_s, cfg).ok());
    const Message other; // the template's picture and font
    story.makeNew();
    for (const QString& name : {u"back.jpg"_s, u"16x16.fnt"_s})
        ASSERT_TRUE(
            story.shell.files.copy(story.run().Workspace + name, folder + u'/' + name).ok());
    const QString made = story.shell.path(u"assembled"_s);
    story.user().expectFolder(folder);
    story.user().expectSave(made);
    story.choose("mnuEdit_Assemble");

    Boot booted = boot(made, QStringList{u"--menu"_s} + entries);
    // By chance the theme begins with a screen that never rests.
    for (int again = 0; again < 2 && booted.told.contains("come to rest"); ++again)
        booted = boot(made, QStringList{u"--menu"_s} + entries);
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    EXPECT_LE(difference(booted.screen, other.background, QRect(400, 0, 400, 400)),
              decoderRounding);
    const FntFont font = fontOf(bytesOf(folder + u"/16x16.fnt"_s));
    std::vector<QPoint> places;
    for (const QString& entry : entries.mid(1)) {
        const auto found =
            TextLine(font, entry).find(booted.screen, other.background, QRect(60, 300, 200, 200));
        EXPECT_LE(found.misfit, 24) << entry.toStdString();
        places.push_back(found.at);
    }
    EXPECT_EQ(places[0].x(), places[1].x());
    EXPECT_NEAR(places[0].x(), 90, 20);
    EXPECT_GT(places[0].y(), 330);
    EXPECT_LT(places[0].y(), 330 + 2 * 30);
}

INSTANTIATE_TEST_SUITE_P(Debian, BootTheme,
                         testing::Values("KDE", "SLED", "SLES", "openSUSE", "upstream"));
INSTANTIATE_TEST_SUITE_P(Debian, BootAssembled, testing::Values("KDE"));
