// SPDX-License-Identifier: MIT
// A new boot screen from its making to the file and back.
#include "support/story.h"

#include "params/object_table.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Generation3, ValuesOfEveryKindComeBackFromTheFile)
{
    Story story;
    story.makeNew();
    ASSERT_TRUE(story.run().GfxHasZuk);
    const auto before = membersOf(story.run().GfxPath);

    story.goToAllTabs();

    story.goToTab(u"Time"_s);
    story.type(u":02:="_s, u"123"_s);
    story.type(u":06:="_s, u"0xff00"_s);
    EXPECT_EQ(story.value(u":06:="_s), u"0x00FF00"_s);
    story.type(u":03:="_s, u"45abc"_s);
    story.type(u":08:="_s, u"0x1234567"_s);
    EXPECT_EQ(story.value(u":08:="_s), u"0x234567"_s);
    EXPECT_EQ((*story.lists().object(5)).BackColor, qRgb(0, 255, 0));
    story.goToTab(u"Date"_s);
    story.type(u":11:="_s, u"0"_s);
    EXPECT_EQ(story.list().row(2)->colour, greyRow);
    story.goToTab(u"Animation"_s);
    story.type(u":01:="_s, u"nonsense"_s);

    const QString path = story.shell.path(u"saved file"_s);
    story.saveAs(path, true);
    const QString saved = story.shell.path(u"saved_file.gz"_s);
    ASSERT_TRUE(FileExists(saved));
    EXPECT_EQ(story.run().GfxFileName, u"saved_file.gz"_s);

    auto members = membersOf(saved);
    const auto general = recordsOf(members[u"ZUK0000.CFG"_s]);
    EXPECT_EQ(general.at(2), 123);
    EXPECT_EQ(general.at(3), 45);
    EXPECT_EQ(general.at(6), 0x00ff00);
    EXPECT_EQ(general.at(8), 0x234567);
    EXPECT_EQ(general.at(11), 0);
    EXPECT_EQ(recordsOf(members[u"ZUK0008.CFG"_s]).at(1), 0);
    for (const auto& name : {u"ZUK0001.CFG"_s, u"ZUK0002.CFG"_s, u"ZUK0003.CFG"_s, u"ZUK0006.CFG"_s,
                             u"ZUK0015.CFG"_s, u"init"_s, u"back.jpg"_s})
        EXPECT_EQ(members[name], before.at(name)) << name.toStdString();

    Story other;
    other.open(saved);
    EXPECT_TRUE(other.run().GfxIsGz);
    other.goToTab(u"Time"_s);
    EXPECT_EQ(other.value(u":02:="_s), u"123"_s);
    EXPECT_EQ(other.value(u":06:="_s), u"0x00FF00"_s);
    other.goToTab(u"Date"_s);
    EXPECT_EQ(other.value(u":11:="_s), u"0"_s);
}
