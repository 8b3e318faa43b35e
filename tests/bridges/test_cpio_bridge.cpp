// SPDX-License-Identifier: MIT
#include "container/raw_cpio.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

using Contents = QMap<QByteArray, QByteArray>;

Ran cpioBridge(const QString& verb, const QString& archive, const QString& folder,
               const std::function<void()>& inChild = {})
{
    return runBridge("CPIO/cpio_bridge", {verb, archive, folder, u"#.lst"_s}, inChild);
}

void fill(const QString& folder, const Contents& contents)
{
    for (auto it = contents.begin(); it != contents.end(); ++it) {
        QFile file(folder + u'/' + QFile::decodeName(it.key()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(it.value());
    }
}

QByteArray listOf(const QByteArrayList& names)
{
    return names.join("\r\n") + "\r\n";
}

// What a judge extracts.
Contents extractedBy(const QString& judge, const QByteArray& archive, const QString& folder)
{
    const Ran ran = runProgram(judge, {u"-i"_s}, folder, archive);
    EXPECT_EQ(ran.code, 0) << judge.toStdString() << ran.err.toStdString();
    return contentsOf(folder);
}

// The child may write this much into one file; more fails, as on a full disk.
void limitFileSize()
{
    const rlimit limit{100'000, 100'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
}

const Contents sample{{"init", QByteArray(70'001, 'i')},
                      {"back.jpg", "jpeg"},
                      {"empty", ""},
                      {"with blank's #1 \"&$.txt", "x\0y"_ba},
                      {"\xd0\xbf\xd1\x80.hlp", "cyrillic"}};
const QByteArrayList sampleOrder{"with blank's #1 \"&$.txt", "init", "\xd0\xbf\xd1\x80.hlp",
                                 "empty", "back.jpg"};

} // namespace

TEST(CpioBridge, WrittenArchivesAreReadTheSameByBothJudgesAndPackAgainTheSame)
{
    TestShell t;
    const QString from = t.folder(u"a folder #1"_s);
    fill(from, sample);
    fill(from, {{"#.lst", listOf(sampleOrder)}, {"not listed", "x"}, {"#7zip.log", "log"}});
    const QString archive = from + u"/#message"_s;
    const Ran ran = cpioBridge(u"ASSM"_s, archive, from);
    ASSERT_EQ(ran.code, 0) << ran.err.toStdString();
    const QByteArray bytes = bytesOf(archive);

    EXPECT_EQ(runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, bytes).out,
              sampleOrder.join('\n') + '\n');
    EXPECT_EQ(extractedBy(u"cpio"_s, bytes, t.folder(u"gnu"_s)), sample);
    EXPECT_EQ(extractedBy(u"bsdcpio"_s, bytes, t.folder(u"bsd"_s)), sample);

    const QString again = t.folder(u"again"_s);
    ASSERT_EQ(cpioBridge(u"INFO"_s, archive, again).code, 0);
    EXPECT_EQ(bytesOf(again + u"/#.lst"_s), listOf(sampleOrder));
    ASSERT_EQ(cpioBridge(u"EXTR"_s, archive, again).code, 0);
    ASSERT_EQ(cpioBridge(u"ASSM"_s, t.path(u"second"_s), again).code, 0);
    EXPECT_EQ(bytesOf(t.path(u"second"_s)), bytes); // members keep their times too
}

TEST(CpioBridge, FaultyArchivesLeaveTheFolderAsItWas)
{
    const RawMember good{.name = "init", .data = "good"};
    const struct {
        const char* what;
        std::string archive;
        const char* shown;
    } cases[] = {
        {"above", RawCpio().add(good).add({.name = "../evil", .data = "x"}).close(), "../evil"},
        {"size", RawCpio().add(good).add({.name = "b", .fileSize = 99}).close(), "larger"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        TestShell t;
        const QString archive = t.file(u"the archive"_s, QByteArray::fromStdString(c.archive));
        const QString folder = t.folder(u"folder"_s);
        fill(folder, {{"init", "old"}, {"#.lst", "old list"}});
        const Ran extracted = cpioBridge(u"EXTR"_s, archive, folder);
        EXPECT_EQ(extracted.code, 1);
        EXPECT_EQ(contentsOf(folder), (Contents{{"init", "old"}, {"#.lst", "old list"}}));
        EXPECT_EQ(extracted.err.count('\n'), 1);
        EXPECT_TRUE(extracted.err.contains("the archive")) << extracted.err.toStdString();
        EXPECT_TRUE(extracted.err.contains(c.shown)) << extracted.err.toStdString();
        // The list is what tells of success, so that no old one stays.
        EXPECT_EQ(cpioBridge(u"INFO"_s, archive, folder).code, 1);
        EXPECT_EQ(contentsOf(folder), (Contents{{"init", "old"}}));
    }
}

TEST(CpioBridge, LinksInTheFolderAreReplacedNotWrittenThrough)
{
    TestShell t;
    const QString outside = t.file(u"outside"_s, "kept");
    const QString folder = t.folder(u"folder"_s);
    for (const QString& name : {u"init"_s, u"#.lst"_s})
        ASSERT_TRUE(QFile::link(outside, folder + u'/' + name));
    const QString archive =
        t.file(u"archive"_s,
               QByteArray::fromStdString(RawCpio().add({.name = "init", .data = "new"}).close()));
    EXPECT_EQ(cpioBridge(u"INFO"_s, archive, folder).code, 0);
    EXPECT_EQ(cpioBridge(u"EXTR"_s, archive, folder).code, 0);
    EXPECT_EQ(bytesOf(outside), "kept");
    EXPECT_EQ(contentsOf(folder), (Contents{{"init", "new"}, {"#.lst", "init\r\n"}}));

    const QString target = t.folder(u"target"_s);
    ASSERT_TRUE(QFile::link(outside, t.path(u"#message"_s)));
    EXPECT_EQ(cpioBridge(u"ASSM"_s, t.path(u"#message"_s), folder).code, 0);
    EXPECT_EQ(bytesOf(outside), "kept");
}

TEST(CpioBridge, AssemblesWholeArchivesOrNone)
{
    const struct {
        const char* list; // null: no list at all
        const char* shown;
    } cases[] = {
        {"init\r\nlost.jpg\r\n", "\"lost.jpg\""},
        {"init\r\nsub\r\n", "\"sub\""},
        {"init\r\npipe\r\n", "\"pipe\""},
        {"init\r\nbig\r\n", "archive"},
        {"init\r\n../outside\r\n", "\"../outside\""},
        {"init\r\n#message\r\n", "\"#message\""},
        {"init\r\ninit\r\n", "\"init\""},
        {"\r\n\r\n", "no member"},
        {nullptr, "#.lst"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.shown);
        TestShell t;
        t.file(u"outside"_s, "x");
        const QString folder = t.folder(u"folder"_s);
        const QString output = t.folder(u"output"_s);
        fill(folder, {{"init", "x"}, {"big", QByteArray(200'000, 'b')}});
        if (c.list != nullptr)
            fill(folder, {{"#.lst", c.list}});
        QDir(folder).mkdir(u"sub"_s);
        runProgram(u"mkfifo"_s, {folder + u"/pipe"_s});
        const Ran ran = cpioBridge(u"ASSM"_s, output + u"/archive"_s, folder, limitFileSize);
        EXPECT_EQ(ran.code, 1);
        EXPECT_TRUE(ran.err.contains(c.shown)) << ran.err.toStdString();
        EXPECT_EQ(contentsOf(output), Contents());
    }
}

TEST(CpioBridge, AssemblyRemovesTheOldOutputButNeverAMember)
{
    TestShell t;
    const QString folder = t.folder(u"folder"_s);
    fill(folder, {{"init", "x"}, {"#.lst", "init\nlost"}, {"out", "old"}});
    EXPECT_EQ(cpioBridge(u"ASSM"_s, folder + u"/out"_s, folder).code, 1);
    EXPECT_FALSE(QFile::exists(folder + u"/out"_s));
    EXPECT_EQ(cpioBridge(u"ASSM"_s, folder + u"/../folder/init"_s, folder).code, 1);
    EXPECT_EQ(bytesOf(folder + u"/init"_s), "x");
    fill(folder, {{"#.lst", "init"}}); // a list without a last line end, as people write them
    EXPECT_EQ(cpioBridge(u"ASSM"_s, folder + u"/out"_s, folder).code, 0);
    EXPECT_EQ(bytesOf(folder + u"/out"_s).size(), 512);
}
