// SPDX-License-Identifier: MIT
// Members as bad or as many as they may be, through the window: texts of every kind, 99 logos and
// backgrounds and one more, numbers of modes that are none.
#include "editor/lists/right_panel.h"
#include "params/object_table.h"
#include "support/story.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray mark = "\xEF\xBB\xBF";

} // namespace

TEST(TextMembers, ComeOutOfTheEditorAsItShowsThem)
{
    constexpr int convert = 3;
    const QByteArray long10Mb =
        QByteArray("A line of a text that explains what stands in the menu.\r\n").repeated(184'000);
    const struct {
        const char* what;
        QByteArray file;
        int button;
        QByteArray saved;
    } cases[] = {
        {"LF only", "one\ntwo\n", -1, "onetwo"},
        {"CR only", "one\rtwo", -1, "one\r\ntwo"},
        {"NULs", QByteArray("a\0b\0\0c\r\nd", 9), -1, "abc\r\nd"},
        {"code page 1251", "\xC6\xF3\xEA", -1, mark + "\xD0\x96\xD1\x83\xD0\xBA"},
        {"UTF-8 without its mark", "\xD0\x96\xD1\x83", convert, mark + "\xD0\x96\xD1\x83"},
        {"UTF-8 with its mark", mark + "\xD0\x96", -1, mark + "\xD0\x96"},
        {"a mark and nothing else", mark, -1, ""},
        {"nothing", "", -1, ""},
        {"10 MB", long10Mb, -1, long10Mb},
    };
    Story story;
    story.makeNew();
    const QString path = story.run().Workspace + u"ZUK_Read.txt"_s;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(story.shell.files.write(path, c.file).ok());
        story.editRow(u"HelpPanel"_s, u"ZUK_Read.txt"_s);
        ASSERT_TRUE(story.window.rightPanel().editor().textEditMode());
        if (c.button >= 0)
            story.click(story.find<QPushButton>(u"ComFr6ForTXT(%1)"_s.arg(c.button)));
        story.click(story.find<QPushButton>(u"ComFr6ForTXT(1)"_s));
        EXPECT_FALSE(story.window.rightPanel().editor().isVisible());
        EXPECT_TRUE(bytesOf(path) == c.saved) << bytesOf(path).left(40).toStdString();
    }
}

TEST(ManyPictures, NinetyNineAreTakenAndOneMoreIsRefused)
{
    Story first;
    first.makeNew();
    auto members = membersOf(first.run().GfxPath);
    const QByteArray picture = jpegOf({16, 12});
    for (int i = 1; i < 100; ++i) {
        for (const QString& name : {u"back_%1.jpg"_s, u"Logo_%1.jpg"_s})
            members[name.arg(i, 2, 10, QChar(u'0'))] = picture;
    }
    Story story;
    story.open(messageOf(story.shell, members));
    ASSERT_TRUE(story.run().GfxHasZuk);
    story.goToTab(u"Background(s)"_s);
    EXPECT_EQ(story.list().count(), 100);
    for (const char* command : {"mnuEDIT_ADDBack", "mnuEDIT_ADDLogo"}) {
        story.user().expectMessage(u"no free number"_s);
        story.choose(command);
    }
    story.choose("mnuFile_Save");
    const auto saved = membersOf(story.run().GfxPath);
    EXPECT_EQ(saved.size(), members.size());
    for (const auto& [name, bytes] : members)
        EXPECT_TRUE(name.endsWith(u".CFG"_s) || saved.at(name) == bytes) << name.toStdString();

    // Modes that are none leave all hundred as they are.
    for (const QString& mode : {u"0"_s, u"6"_s, u"9"_s, u"abc"_s}) {
        story.user().expectMessage(u"It is planned"_s);
        story.user().expectInput(mode);
        if (mode == u"6"_s || mode == u"9"_s)
            story.user().expectMessage(u"Perhaps nconvert error..."_s);
        story.choose("mnuEdit_Resize");
    }
    EXPECT_EQ(bytesOf(story.run().Workspace + u"back_99.jpg"_s), picture);
    EXPECT_EQ(story.run().BackWidth, 800);
}
