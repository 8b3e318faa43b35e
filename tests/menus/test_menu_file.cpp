// SPDX-License-Identifier: MIT
// Menu files as texts: titles, the gfxmenu line, data titles and the layer that they fill.
#include "menus/menu_file.h"
#include "menus/menu_overlay.h"
#include "params/catalogue.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

constexpr int data = 3; // title lines in `stick`
const QString stick =
    QStringLiteral("# a stick\r\ncolor white/blue\r\n  gfxmenu   "
                   "(hd0,0)/boot/message  \r\ntitle Windows\\nfrom the hard disk\r\n"
                   "map (hd1) (hd0)\r\n title [W] Linux\r\n"
                   "title [zuk0003] :22=0x00ff00 :23=15\\nnot shown\r\n");

// A table in which parameters 1 to 99 of levels 0 to 8 exist.
ZUKarr table()
{
    ZUKarr made;
    for (int level = 0; level <= 8; ++level) {
        for (int param = 1; param <= zukParamCount; ++param)
            made.at(level, param).DefValue = 0;
    }
    return made;
}

// "3:22=65280 3:23=15"
QString imposed(const ZUKarr& arr)
{
    QStringList parts;
    for (int level = 0; level < zukFileCount; ++level) {
        for (int param = 1; param <= zukParamCount; ++param) {
            if (const auto value = arr.at(level, param).LstValue)
                parts.append(u"%1:%2=%3"_s.arg(level).arg(param).arg(*value));
        }
    }
    return parts.join(u' ');
}

QString overlay(const QString& text)
{
    ZUKarr arr = table();
    MenuOverlay(text, true, arr);
    return imposed(arr);
}

TEST(MenuFile, EntriesOfAPlainBootScreen)
{
    EXPECT_EQ(MenuEntries(stick, false, 15), u"Windows|[W] Linux|[zuk0003] :22=0x00ff00 :23=15|"_s);
    EXPECT_EQ(MenuEntries({}, false, 15), QString());
    EXPECT_EQ(MenuEntries(u"title "_s + QString(9999, u'x'), false, 0).size(), 4096 + 1);
    EXPECT_EQ(MenuEntries(u"no title\nmy title x"_s, false, 15), QString());
    // The text begins at the seventh character, whatever the sixth is; "titles" is a title too.
    EXPECT_EQ(MenuEntries(u"title\tTab\ntitles of\ntitle\ntitle  two"_s, false, 0),
              u"Tab| of|| two|"_s);
    EXPECT_EQ(MenuEntries(u"title a|b\nTitle c\n\ttitle d"_s, false, 0), u"a|"_s);
}

TEST(MenuFile, TechnicalEntriesAreHidden)
{
    EXPECT_EQ(MenuEntries(stick, true, 1), u"Windows| Linux|"_s);
    EXPECT_EQ(MenuEntries(stick, true, 0), u"Windows| Linux| :22=0x00ff00 :23=15|"_s);
    EXPECT_EQ(MenuEntries(stick, true, data - 1), u"Windows|"_s);
    // No more titles than that: all are shown, and the piece behind the last of them.
    EXPECT_EQ(MenuEntries(stick, true, data), u"Windows| Linux| :22=0x00ff00 :23=15||"_s);
    EXPECT_EQ(MenuEntries(stick, true, 15), MenuEntries(stick, true, data));
    EXPECT_EQ(MenuEntries(u"default 0"_s, true, 15), QString());
    EXPECT_EQ(MenuEntries(u"title [open\ntitle x"_s, true, 1), u"[open|"_s);

    ZUKarr arr = table();
    EXPECT_EQ(technicalEntries(ZUKarr()), 15);
    arr.at(0, 77).DefValue = 15;
    EXPECT_EQ(technicalEntries(arr), 15);
    arr.at(0, 77).LevelValue = 2;
    EXPECT_EQ(technicalEntries(arr), 2);
}

TEST(MenuFile, PrimaryStandsBeforeTheFirstTitle)
{
    EXPECT_EQ(MenuPrimary(stick), u"(hd0,0)/boot/message"_s);
    EXPECT_EQ(MenuPrimary(u"title a\ngfxmenu /message"_s), QString());
    EXPECT_EQ(MenuPrimary(u"gfxmenu /one\ngfxmenu /two"_s), u"/one"_s);
    EXPECT_EQ(MenuPrimary(u"gfxmenu"_s), QString());
    EXPECT_EQ(MenuPrimary(u"gfxmenu=/message"_s), u"=/message"_s);
}

TEST(MenuFile, CountsOfTitles)
{
    EXPECT_EQ(MenuCounts(stick), u"3/1/1"_s);
    EXPECT_EQ(MenuCounts(u"title a\ntitle b"_s), u"2/0/0"_s);
    EXPECT_EQ(MenuCounts({}), u"0/0/0"_s);
    // In capitals, too short, or with the bracket elsewhere it is none.
    EXPECT_EQ(MenuCounts(u"title [ZUK0003] :1=1\ntitle [zuk003] :1=1\ntitle [zuk0003\n"
                         "title [zukabcd]"_s),
              u"4/3/1"_s);
}

TEST(MenuOverlay, ItemsOfADataTitle)
{
    EXPECT_EQ(overlay(stick), u"3:22=65280 3:23=15"_s);
    EXPECT_EQ(overlay(u"title [zuk0000] :99=2"_s), u"0:99=2"_s);
    EXPECT_EQ(overlay(u"title [zuk0001]"_s), QString());
    EXPECT_EQ(overlay(u"title [zuk0001] :5=0XFF :6= 0x0a :7=12abc :8=x :9 :10=1=2"_s),
              u"1:5=255 1:6=10 1:7=12 1:8=0 1:9=0 1:10=1"_s);
    // Numbers that are no parameters, and values beyond what a cell holds.
    EXPECT_EQ(overlay(u"title [zuk0001] :0=1 :100=1 :99999=1 :-3=1 :abc=1 :2=99999999999999"_s),
              u"1:2=99999999999999"_s);
    EXPECT_EQ(overlay(u"title   [zuk0002] :1=5"_s), u"2:1=5"_s);
}

TEST(MenuOverlay, LevelsOverrideItemByItem)
{
    EXPECT_EQ(overlay(u"title [zuk0001] :1=1 :2=2\ntitle x\ntitle [zuk0001] :2=3 :4=4"_s),
              u"1:1=1 1:2=3 1:4=4"_s);
    EXPECT_EQ(overlay(u"title [zuk0009] :1=1\ntitle [zuk0015] :1=1\ntitle [zuk0016] :1=1\n"
                      "title [zuk9999] :1=1\ntitle [zuk-001] :1=1\ntitle [zuk 1.5] :1=1\n"
                      "title [ZUK0001] :1=1"_s),
              QString());
    EXPECT_EQ(overlay(u"title [zukabcd] :1=1"_s), u"0:1=1"_s); // text counts as 0

    ZUKarr arr = table();
    MenuOverlay(u"title [zuk0001] :1=1"_s, true, arr);
    MenuOverlay(u"title [zuk0002] :1=1"_s, true, arr);
    EXPECT_EQ(imposed(arr), u"2:1=1"_s);
    MenuOverlay(u"title [zuk0003] :1=1"_s, false, arr);
    EXPECT_EQ(imposed(arr), u"2:1=1"_s);
    MenuOverlayClear(arr);
    EXPECT_EQ(imposed(arr), QString());
    arr.at(15, 3).LevelValue = 1; // a file makes the level exist
    MenuOverlay(u"title [zuk0015] :4=1"_s, true, arr);
    EXPECT_EQ(imposed(arr), u"15:4=1"_s);
}

} // namespace
