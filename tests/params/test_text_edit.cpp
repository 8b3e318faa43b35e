// SPDX-License-Identifier: MIT
// Text members: what the editor shows of a file, what bytes come back.
#include "params/text_edit.h"
#include "support/test_shell.h"

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

const QByteArray mark = "\xEF\xBB\xBF";

struct TextEdit : testing::Test {
    TestShell shell;
    QString shown(const QByteArray& bytes)
    {
        const auto file = readTextMember(shell.member(u"a.txt"_s, bytes));
        EXPECT_TRUE(file.ok());
        utf8 = file->TextIsUtf8;
        return file->text;
    }
    bool utf8 = false;
};

TEST_F(TextEdit, ShowsTheLinesOfCrAndCrLfAndNoOthers)
{
    EXPECT_EQ(shown("one\r\ntwo\rthree\nfour"), u"one\r\ntwo\r\nthreefour"_s);
    EXPECT_FALSE(utf8);
    EXPECT_EQ(shown("a\nb\nc\n"), u"abc"_s);
    EXPECT_EQ(shown(""), QString());
    EXPECT_EQ(shown(mark + "\xD0\x96"), u"Ж"_s);
    EXPECT_TRUE(utf8);
    EXPECT_EQ(shown("\xC6"), u"Ж"_s); // code page 1251
    EXPECT_FALSE(readTextMember(shell.run.Workspace + u"none.txt"_s).ok());
}

TEST_F(TextEdit, SavesAsciiPlainAndAllElseBehindTheMark)
{
    EXPECT_EQ(textMemberBytes(u"a\nb\r\nc\rd"_s), "a\r\nb\r\nc\r\nd");
    EXPECT_EQ(textMemberBytes(u"Ж\n"_s), mark + "\xD0\x96\r\n");
    EXPECT_EQ(textMemberBytes(QString(u"a\0b"_s + QChar(0) + u'c')), "abc");
    EXPECT_EQ(textMemberBytes(QString()), "");
    // What is neither kind of character survives a round trip.
    const QString odd = u"\u00a0\u2028😀"_s;
    EXPECT_EQ(decodeText(textMemberBytes(odd)).text, odd);
}

TEST_F(TextEdit, SavesTheWholeFileOrLeavesTheOldOne)
{
    const QString path = shell.member(u"a.txt"_s, "a much longer text that was there before");
    for (int step = 1; step <= 2; ++step) {
        shell.files.calls = 0;
        shell.files.failAt = step;
        EXPECT_FALSE(saveTextMember(shell.files, path, u"new"_s).ok());
        EXPECT_EQ(bytesOf(path), "a much longer text that was there before");
        EXPECT_EQ(filesLike(shell.run.Workspace, u"*"_s), QStringList{u"a.txt"_s});
    }
    shell.files.failAt = 0;
    EXPECT_TRUE(saveTextMember(shell.files, path, u"new"_s).ok());
    EXPECT_EQ(bytesOf(path), "new");
}

} // namespace

} // namespace fennel::test
