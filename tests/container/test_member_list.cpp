// SPDX-License-Identifier: MIT
#include "container/member_list.h"
#include "container/member_table.h"
#include "support/long_run.h"
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class MemberList : public testing::Test {
protected:
    void members(const QByteArrayList& names)
    {
        for (const QByteArray& name : names)
            ASSERT_TRUE(m_disk.write(t.run.Workspace + QString::fromUtf8(name), name).ok());
    }
    void list(const QByteArrayList& names) { t.member(u"#.lst"_s, text(names)); }
    static QByteArray text(const QByteArrayList& names)
    {
        return names.isEmpty() ? QByteArray() : names.join("\r\n") + "\r\n";
    }
    QByteArray rebuilt(const QString& addedPattern = {})
    {
        EXPECT_TRUE(RebuildMemberList(t.shell, addedPattern).ok());
        return bytesOf(t.run.Workspace + u"#.lst"_s);
    }

    TestShell t;
    DiskFiles m_disk;
};

} // namespace

TEST_F(MemberList, KnownMembersComeInTheirOrderAndTheOthersBehindThemAsTheyWere)
{
    const QByteArrayList ordered = {
        "init",         "16x16.fnt",    "ZUK0000.CFG",    "ZUK0001.CFG",  "back.jpg",
        "en.tr",        "languages",    "Logo_msk.jpg",   "ZUK_Read.txt", "RLineDef.txt",
        "16x16_01.fnt", "16x16_02.fnt", "Logo_01.jpg",    "Logo_02.jpg",  "Logo_01.txt",
        "glass_01.jpg", "ani_01.jpg",   "ani_01_msk.jpg", "HAPPY.mod",    "back_01.jpg",
        "back_07.jpg"};
    const QByteArrayList others = {"zeta", "gfxboot.cfg", "alpha.hlp"};
    members(ordered + others);
    members({"#.lst.new"}); // is left alone: it may be a member
    QByteArrayList opened = others + ordered;
    std::reverse(opened.begin() + others.size(), opened.end());
    list(opened);
    EXPECT_EQ(rebuilt(), text(ordered + others));
    EXPECT_EQ(rebuilt(), text(ordered + others)); // and stay so
    EXPECT_TRUE(FileExists(t.run.Workspace + u"#.lst.new"_s));
}

TEST_F(MemberList, OnlyTheAddedPatternMakesAFileAMember)
{
    members({"init", "back.jpg", "ZUK0001.CFG", "ZUK0002.CFG", "back_02.jpg", "notes", "#message"});
    list({"back.jpg", "init"});
    EXPECT_EQ(rebuilt(), text({"init", "back.jpg"}));
    EXPECT_EQ(rebuilt(u"*.CFG"_s), text({"init", "ZUK0001.CFG", "ZUK0002.CFG", "back.jpg"}));
    EXPECT_EQ(rebuilt(u"back_02.jpg"_s),
              text({"init", "ZUK0001.CFG", "ZUK0002.CFG", "back.jpg", "back_02.jpg"}));
    EXPECT_EQ(rebuilt(u"notes"_s), // it is in no pattern of the catalogue
              text({"init", "ZUK0001.CFG", "ZUK0002.CFG", "back.jpg", "back_02.jpg"}));
}

TEST_F(MemberList, NamesWithoutAFileDropOut)
{
    members({"init", "note"});
    ASSERT_TRUE(m_disk.makeFolder(t.run.Workspace + u"folder"_s).ok());
    list({"gone", "init", "back.jpg", "folder", "note", "gone.txt"});
    EXPECT_EQ(rebuilt(), text({"init", "note"}));
    ASSERT_TRUE(m_disk.remove(t.run.Workspace + u"init"_s).ok());
    ASSERT_TRUE(m_disk.remove(t.run.Workspace + u"note"_s).ok());
    EXPECT_EQ(rebuilt(), QByteArray());
}

TEST_F(MemberList, ANameThatEndsLikeAKnownOneIsAnother)
{
    members({"back.jpg", "my_back.jpg", "tail"});
    list({"my_back.jpg", "tail", "back.jpg", "back.jpg"});
    EXPECT_EQ(rebuilt(), text({"back.jpg", "my_back.jpg", "tail"}));
}

TEST_F(MemberList, AsManyNamesAsAnArchiveHoldsAreNotSearchedOneByOne)
{
    QByteArrayList names;
    for (int number = 0; number < 60'000; ++number)
        names += "ZUK" + QByteArray::number(0x10000 + number, 16).last(4) + ".CFG";
    members(names);
    list(names);
    const Watchdog dog(20);
    EXPECT_EQ(rebuilt(), text(names));
}

TEST_F(MemberList, LineEndsCaseAndForeignNames)
{
    members({"init", "BACK.JPG", "Logo_03.JPG", "note"});
    // Without a carriage return no known name is found; all stay as the tail.
    t.member(u"#.lst"_s, "note\ninit\n\nBACK.JPG");
    EXPECT_EQ(rebuilt(), text({"note", "init", "BACK.JPG"}));
    EXPECT_EQ(rebuilt(u"logo_03.jpg"_s), text({"init", "BACK.JPG", "Logo_03.JPG", "note"}));
    // 8-bit names keep their bytes.
    const QByteArray name = "\xcb\xee\xe3\xee.txt";
    const QByteArray path = QFile::encodeName(t.run.Workspace) + name;
    FILE* file = std::fopen(path.constData(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("12345", file);
    std::fclose(file);
    list({name, "init"});
    EXPECT_EQ(rebuilt(), text({"init", name}));
}
