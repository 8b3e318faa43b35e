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

TEST(IniFile, IsOneFileWhateverTheCaseOfItsName)
{
    TestShell t;
    EXPECT_EQ(settingsFile(t.run.AppPath), t.path(u"FENNEL.ini"_s));
    const QString lower = t.file(u"fennel.INI"_s, "Default Font Name=Sans\r\n");
    EXPECT_EQ(settingsFile(t.run.AppPath), lower);
    EXPECT_EQ(IniRead(t.shell, u"Default Font Name"_s), u"Sans"_s);
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

TEST(IniFile, FirstRunWritesFourKeysInOrderOrNothing)
{
    TestShell t;
    t.files.failAt = 1;
    EXPECT_FALSE(createSettingsFile(t.shell, u"Arial"_s, u"0409"_s).ok());
    EXPECT_FALSE(FileExists(t.path(u"FENNEL.ini"_s))) << "half a file must not stay";

    EXPECT_TRUE(createSettingsFile(t.shell, u"Arial %2"_s, u"0409"_s).ok());
    EXPECT_EQ(bytesOf(t.path(u"FENNEL.ini"_s)), "Monitoring USB connections=1\r\n"
                                                "Default Font Name=Arial %2\r\n"
                                                "Default Character Set=0x20-0x7e, 0x0410-0x044f\r\n"
                                                "Default Language=0409\r\n");
    EXPECT_TRUE(createSettingsFile(t.shell, u"等线"_s, u"0409"_s).ok());
    EXPECT_EQ(IniRead(t.shell, u"Default Font Name"_s), u"等线"_s);
}

TEST(Fonts, ListIsSortedOfWholeNamesWithoutFolders)
{
    const QString list = fontListText({{u"Zeta"_s, u"Bold Italic"_s, u"/f/z.ttf"_s},
                                       {u"Alpha"_s, u"Regular"_s, u"/f/a.ttc"_s},
                                       {u"Alpha"_s, u"Regular"_s, u"/g/a.ttc"_s},
                                       {u"Beta"_s, u"Book"_s, u"/f/b.TTF"_s}});
    EXPECT_EQ(list, u"Alpha (TrueType)>a.ttc\nBeta (TrueType)>b.TTF\n"
                    "Zeta Bold Italic (TrueType)>z.ttf"_s);
    EXPECT_EQ(firstTrueTypeName(list), u"Beta"_s) << "a collection is no .TTF";
    EXPECT_EQ(firstTrueTypeName(u"Plain>/x.ttf/plain.otf\nNo mark>a.Ttf"_s), u"No mark"_s);
    EXPECT_EQ(firstTrueTypeName(u"no file\n"_s), QString());
}

TEST(Fonts, SystemListHoldsTrueTypeOutlinesOnly)
{
    const auto fonts = installedFonts();
    ASSERT_FALSE(fonts.empty());
    for (const InstalledFont& font : fonts) {
        EXPECT_FALSE(font.family.isEmpty());
        const QByteArray start = bytesOf(font.path).left(4);
        // sfnt versions of TrueType outlines, and of a collection.
        EXPECT_TRUE(start == QByteArray("\0\1\0\0", 4) || start == "true" || start == "ttcf")
            << font.path.toStdString();
    }
    // The judge counts every face with such outlines.
    const Ran judge = runProgram(
        u"fc-list"_s, {u":fontformat=TrueType:variable=false:outline=true"_s, u"file"_s});
    ASSERT_EQ(judge.code, 0);
    EXPECT_LE(fonts.size(), static_cast<std::size_t>(judge.out.count('\n')));
}

TEST(Fonts, FirstRunTakesTheLastOfThreeNamesThatIsThere)
{
    const std::pair<QString, QString> lists[] = {
        {u"Arial (TrueType)>a.ttf\nZ (TrueType)>z.ttf"_s, u"Arial"_s},
        {u"Arial (TrueType)>a.ttf\nTahoma (TrueType)>t.ttf"_s, u"Tahoma"_s},
        {u"Arial Unicode MS>u.ttf\nTahoma>t.ttf"_s, u"Arial Unicode MS"_s},
        {u"Z (TrueType)>z.ttf\nB (TrueType)>b.ttf"_s, u"B"_s},
        {QString(), QString()},
    };
    for (const auto& [list, name] : lists)
        EXPECT_EQ(firstRunFontName(list), name);
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

TEST(LastUsedList, OpensFromTheStoreUntilAShortCaptionGoesBack)
{
    TestShell t;
    ASSERT_TRUE(t.files.makeFolder(t.path(u"a folder"_s)).ok());
    const QString path = t.file(u"a folder/message"_s, "x");
    UserStore store(t.path(u"store.conf"_s));
    store.save(menuSection, u"0"_s, path);
    LastUsed list(store);
    list.Recreate_LastUsed(t.shell);
    EXPECT_EQ(list.clicked(t.shell, 0), shortForm(path));

    list.LastUsedAdd(t.shell, u"/new"_s);
    EXPECT_EQ(store.get(menuSection, u"1"_s), lastUsedCaption(path));
    t.prompts.expectMessage(u"not available at this time.\nMaybe this file has been moved or "
                            "deleted.\n\nFile Path: /"_s);
    EXPECT_FALSE(list.clicked(t.shell, 1).has_value());
    EXPECT_TRUE(t.prompts.texts.last().endsWith(u"\nFile Name: message"_s));
    EXPECT_EQ(captions(list).size(), 2);
}

TEST(LastUsedList, StandsAnyStore)
{
    TestShell t;
    UserStore store(t.file(u"store.conf"_s, "[Menu]\n0=/a\n5=/f\n10=/x\n-1=/y\nabc=/z\n01=/w\n"));
    LastUsed list(store);
    list.Recreate_LastUsed(t.shell);
    EXPECT_EQ(captions(list), (QStringList{u"/a"_s, u"/f"_s}));
    list.LastUsedAdd(t.shell, u"/b"_s);
    EXPECT_EQ(captions(list), (QStringList{u"/b"_s, u"/a"_s, u"/f"_s}));
    EXPECT_EQ(store.get(menuSection, u"6"_s), u"/f"_s);
    EXPECT_EQ(store.listAll(menuSection).size(), 3U);
}
