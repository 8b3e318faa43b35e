// SPDX-License-Identifier: MIT
#include "base/last_used.h"
#include "base/settings_file.h"
#include "base/user_store.h"
#include "fonts/installed_fonts.h"
#include "support/run_program.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(IniFile, FindsAKeyWhateverItsSpacingCaseAndEncoding)
{
    TestShell t;
    t.file(u"FENNEL.ini"_s, "\xEF\xBB\xBFMonitoring USB connections= 1 \r\n\r\nno equals sign\r\n"
                            "Default   Language=0419\r\ndefault\tLANGUAGE=0409\r\n"
                            "a = b = c\r\npiped=x|y=z\n=nameless");
    const std::pair<QString, QString> keys[] = {{u"monitoringusbconnections"_s, u"1"_s},
                                                {u"Default Language"_s, u"0419"_s},
                                                {u" A\t"_s, u"b = c"_s},
                                                {u"piped"_s, u"x"_s},
                                                {u"y"_s, u"z"_s},
                                                {u"gone"_s, QString()}};
    for (const auto& [key, value] : keys)
        EXPECT_EQ(IniRead(t.shell, key), value);
    t.prompts.expectMessage(u"File not found: "_s + t.path(u"other"_s));
    EXPECT_EQ(IniRead(t.shell, u"a"_s, t.path(u"other"_s)), QString());
}

TEST(IniFile, AppendsALineOfItsOwn)
{
    TestShell t;
    const QString open = t.file(u"open"_s, "\xEF\xBB\xBF"
                                           "a=1");
    EXPECT_TRUE(IniAppendLine(t.shell, open, u"b=п"_s).ok());
    EXPECT_EQ(bytesOf(open), "\xEF\xBB\xBF"
                             "a=1\r\nb=\xD0\xBF\r\n");
    const QString ended = t.file(u"ended"_s, "a=1\r\n");
    EXPECT_TRUE(IniAppendLine(t.shell, ended, u"b=п"_s).ok());
    EXPECT_EQ(bytesOf(ended), "a=1\r\nb=\xEF\r\n");
}

TEST(Fonts, DefaultComesFromTheSettingsFileIfItIsInstalled)
{
    TestShell t;
    const QString list = u"B Bold (TrueType)>b.ttf\nZ (TrueType)>z.ttf"_s;
    EXPECT_EQ(DefaultFontName(t.shell, list), u"B Bold"_s) << "no file, and no message";
    // An empty value counts as found.
    for (const auto& [set, name] : {std::pair{"Z", u"Z"_s}, {"Gone", u"B Bold"_s}, {"", u""_s}}) {
        t.file(u"FENNEL.ini"_s, "Default Font Name=" + QByteArray(set) + "\r\n");
        EXPECT_EQ(DefaultFontName(t.shell, list), name);
    }
}

TEST(Settings, KeepsAnyTextAndReadsWhatPeopleTyped)
{
    TestShell t;
    const QString file = t.path(u"store.conf"_s);
    const QString odd = u"@/home/Анна, \"x\"; =%5C/a\\b #1"_s;
    {
        UserStore store(file);
        store.save(menuSection, u"0"_s, odd);
        store.save(menuSection, u"1"_s, u"/b"_s);
        store.save(langsSection, u"DefaultLang"_s, u"0419"_s);
    }
    UserStore again(file);
    EXPECT_EQ(again.get(menuSection, u"0"_s), odd);
    EXPECT_EQ(again.listAll(menuSection).size(), 2U);
    again.replaceSection(menuSection, {{u"3"_s, u"/c"_s}});
    EXPECT_EQ(again.get(menuSection, u"0"_s, u"*"_s), u"*"_s);
    again.deleteSection(menuSection);
    EXPECT_TRUE(again.listAll(menuSection).empty());
    EXPECT_EQ(again.get(langsSection, u"DefaultLang"_s), u"0419"_s);

    UserStore typed(t.file(u"typed.conf"_s, "[Menu]\n0=/a, b\n\x01\xff garbage [[\n"));
    EXPECT_EQ(typed.get(menuSection, u"0"_s), u"/a, b"_s);
    UserStore nowhere(t.file(u"plain"_s, "x") + u"/store"_s);
    nowhere.save(menuSection, u"0"_s, u"/a"_s);
}

namespace {

QStringList captions(const LastUsed& list)
{
    QStringList shown;
    for (const LastUsed::Entry& entry : list.entries()) {
        if (entry.visible)
            shown.append(entry.caption);
    }
    return shown;
}

} // namespace

TEST(LastUsedList, ShortensBehindTwentyCharacters)
{
    // The last separator at character 20, then at 21.
    EXPECT_EQ(lastUsedCaption(u"/home/someone/abcde/message"_s), u"/home/someone/abcde/message"_s);
    EXPECT_EQ(lastUsedCaption(u"/home/someone/abcdef/message"_s), u"/home/ ... /message"_s);
    EXPECT_EQ(lastUsedCaption(u"a-name-of-more-than-20/m"_s), u" ... /m"_s);
    EXPECT_EQ(lastUsedCaption(u"message"_s), u"message"_s);
}

TEST(LastUsedList, NewestIsFirstAndTheEleventhDropsTheOldest)
{
    TestShell t;
    UserStore store(t.path(u"store.conf"_s));
    LastUsed list(store);
    list.Recreate_LastUsed(t.shell);
    EXPECT_FALSE(list.enabled());
    QStringList expected;
    for (int i = 0; i < 11; ++i) {
        list.LastUsedAdd(t.shell, u"/m/%1"_s.arg(i));
        expected.prepend(u"/m/%1"_s.arg(i));
    }
    expected.removeLast();
    EXPECT_TRUE(list.enabled());
    EXPECT_EQ(captions(list), expected);
    list.LastUsedAdd(t.shell, u"/m/5"_s);
    EXPECT_EQ(captions(list), expected) << "a file that is on the list keeps its place";

    LastUsed restarted(store);
    std::vector<int> progress;
    restarted.Recreate_LastUsed(t.shell, [&](int value) { progress.push_back(value); });
    EXPECT_EQ(captions(restarted), expected);
    EXPECT_EQ(progress.front(), 10);
    EXPECT_EQ(progress.back(), 20);
    EXPECT_EQ(progress.size(), 11U);
    restarted.clear();
    EXPECT_FALSE(restarted.enabled());
    EXPECT_TRUE(captions(restarted).isEmpty());
    EXPECT_TRUE(store.listAll(menuSection).empty());
}
