// SPDX-License-Identifier: MIT
// The picture of a boot where no boot can show it: broken members, hostile titles, 16 bits. That it
// is the boot's own picture is for tests/boot/test_agreement.py.
#include "params/object_table.h"
#include "screen/boot_jpeg.h"
#include "screen/boot_members.h"
#include "screen/boot_screen.h"
#include "support/long_run.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// One letter "A": a block of 6 by 10 full pixels, advance 8.
QByteArray blockFont()
{
    Glyph block{'A', 6, 10, 0, 0, 8, std::vector<std::uint8_t>(60, fullInk)};
    const auto bytes = encodeFnt({10, 0, 12, {block}}).value();
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

struct Flat : TestShell {
    ParamState state;
    BootScreen screen;

    explicit Flat(const QString& cfg = {}, const QByteArray& font = blockFont())
    {
        state.cfg = cfgLinesFrom(cfg, {}).value();
        member(u"16x16.fnt"_s, font);
        member(u"init"_s, "menu_start_x");
    }
    QRgb at(int x, int y) const { return screen.picture().pixel(x, y) & 0xFFFFFF; }
    QRegion draw(const QStringList& titles, int chosen = 0)
    {
        BootRequest request{state, run.Workspace, 2, titles};
        request.chosen = chosen;
        return screen.update(request);
    }
};

} // namespace

TEST(BootScreen, OnlyLinesInForceCountAndTheListScrolls)
{
    Flat flat(
        u"menu_start_x=100\n#menu_start_y=50\nmenu_max_entries=2\nmenu_text_normal=0xff0000"_s);
    (void)flat.draw({u"A"_s, u"A"_s, u"A"_s}, 2);
    EXPECT_EQ(flat.screen.objects().at(MenuPanelRow), QRect(100, 170, 300, 30));
    // The second entry is in the first line, in its own colour; the bar lies on the line below.
    EXPECT_EQ(flat.at(112, 175), 0xff0000U);
    EXPECT_GT(qGreen(flat.at(300, 190)), 150);
    EXPECT_EQ(flat.at(300, 175), 0U);
    // A step of the bar draws its two lines and nothing else.
    EXPECT_TRUE(flat.draw({u"A"_s, u"A"_s, u"A"_s}, 2).isEmpty());
    const QRect step = flat.draw({u"A"_s, u"A"_s, u"A"_s}, 0).boundingRect();
    EXPECT_TRUE(QRect(100, 170, 300, 45).contains(step)) << step.height();
}

TEST(BootScreen, SixteenBitsCutEveryChannel)
{
    Flat flat(u"menu_text_normal=0x123456"_s);
    (void)flat.draw({u"A"_s, u"A"_s});
    EXPECT_EQ(flat.at(265, 190), 0x103452U);
}

TEST(BootScreen, PicturesThatWereLookedAtAreNotKept)
{
    TestShell t;
    BootMembers members;
    members.setFolder(t.shell.run.Workspace);
    const qint64 before = residentBytes();
    for (int i = 0; i < 8; ++i) {
        const QString name = u"back_%1.jpg"_s.arg(i, 2, 10, QChar(u'0'));
        t.member(name, jpegOf({2800, 2800}));
        EXPECT_EQ(members.picture(name).width(), 2800);
    }
    EXPECT_LT(residentBytes() - before, 160'000'000) << "of 250 MB";
}

TEST(BootScreen, BrokenMembersAndHostileTitlesLeaveAPicture)
{
    for (const QByteArray& font :
         {QByteArray(), QByteArray("\x06\x8e\x82\xd2 short"), blockFont().chopped(5)}) {
        Flat flat({}, font);
        flat.member(u"back.jpg"_s, jpegOf({640, 400}).chopped(200));
        (void)flat.draw({QString(4000, u'A'), u"\x01\n\t|"_s, QString(QChar(0xD800)), {}}, 99);
        EXPECT_EQ(flat.screen.picture().size(), QSize(800, 600));
        EXPECT_EQ(flat.screen.lettersMissing(), font.size() < 20);
        EXPECT_FALSE(flat.screen.picture().isNull());
    }
    const QByteArray jpeg = jpegOf({64, 64});
    const qsizetype scan = jpeg.indexOf("\xFF\xDA");
    EXPECT_FALSE(bootable(jpeg.left(scan) + jpeg.mid(scan).chopped(2).repeated(2000)));
    Flat none;
    QFile::remove(none.run.Workspace + u"init"_s);
    (void)none.draw({});
    EXPECT_FALSE(none.screen.rulesKnown());
}
