// SPDX-License-Identifier: MIT
#include "container/raw_cpio.h"
#include "support/run_program.h"

#include <QRandomGenerator>

#include <csignal>
#include <sys/resource.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

Ran sevenZip(const QString& verb, const QString& file, const QString& folder)
{
    return runBridge("7-Zip/7zip_bridge", {verb, file, folder, u"#7zip.log"_s});
}

QByteArray gzipped(const QByteArray& data, const QStringList& options = {})
{
    return runProgram(u"gzip"_s, QStringList{u"-c"_s} + options, {}, data).out;
}

// Inputs of several kinds: nothing, text, noise, runs, and the files of a real message.
QList<QByteArray> samples()
{
    QRandomGenerator random(7);
    QByteArray noise(100'000, Qt::Uninitialized);
    for (char& c : noise)
        c = static_cast<char>(random.bounded(256));
    QByteArray text;
    for (int i = 0; i < 3000; ++i)
        text += "menu." + QByteArray::number(random.bounded(500)) + "=0x00ff00\r\n";
    QList<QByteArray> all{noise,
                          text,
                          noise.left(20'000) + text,
                          QByteArray(300'000, 'r'),
                          "",
                          "a",
                          "aaaaaaa",
                          "abababbababab",
                          "hello hello hello hello",
                          QByteArray(273, 'r')};
    for (const QString& message : debianMessages())
        all << bytesOf(message);
    return all;
}

} // namespace

TEST(SevenZipBridge, PackedFilesPleaseTheJudgesAndAreNeverLargerThanGzips)
{
    for (const QByteArray& data : samples()) {
        SCOPED_TRACE(data.size());
        TestShell t;
        const QString input = t.file(u"#message"_s, data);
        const QString output = t.path(u"out/"_s) + u"#message.gz"_s;
        QDir().mkpath(t.path(u"out"_s));
        ASSERT_EQ(runBridge("7-Zip/7zip_bridge", {u"ASSM"_s, input, output}).code, 0);
        EXPECT_EQ(runProgram(u"gzip"_s, {u"-t"_s, output}).code, 0);
        EXPECT_EQ(runProgram(u"7za"_s, {u"t"_s, output}).code, 0);
        EXPECT_TRUE(runProgram(u"7za"_s, {u"l"_s, output}).out.contains(" #message\n"));
        EXPECT_EQ(runProgram(u"gzip"_s, {u"-dc"_s, output}).out, data);
        const QByteArray judge = runProgram(u"gzip"_s, {u"-9c"_s, input}).out;
        EXPECT_LE(bytesOf(output).size(), judge.size());
    }
}

TEST(SevenZipBridge, AnythingElseGetsAReportWithoutAName)
{
    TestShell t;
    const QString folder = t.folder(u"folder"_s);
    const std::string archive = RawCpio().add({.name = "Testing     x"}).close();
    for (const QByteArray& bytes :
         {QByteArray::fromStdString(archive), QByteArray("Testing     y\n"), QByteArray()}) {
        const QString file = t.file(u"a,Testing     z"_s, bytes);
        EXPECT_EQ(sevenZip(u"INFO"_s, file, folder).code, 0);
        ASSERT_TRUE(QFile::exists(folder + u"/#7zip.log"_s));
        EXPECT_FALSE(bytesOf(folder + u"/#7zip.log"_s).contains("Testing     "));
        EXPECT_EQ(sevenZip(u"EXTR"_s, file, folder).code, 1);
        EXPECT_EQ(contentsOf(folder).size(), 0); // the old report is gone as well
    }
}

TEST(SevenZipBridge, DamagedFilesLeaveNoReportAndNoContents)
{
    TestShell t;
    const QString folder = t.folder(u"folder"_s);
    const QByteArray good = gzipped(QByteArray(50'000, 'a') + "tail");
    for (const QByteArray& bytes : {good.left(good.size() - 1), good.left(5)}) {
        const QString file = t.file(u"bad.gz"_s, bytes);
        QFile(folder + u"/#7zip.log"_s).open(QIODevice::WriteOnly);
        for (const QString& verb : {u"INFO"_s, u"EXTR"_s}) {
            const Ran ran = sevenZip(verb, file, folder);
            EXPECT_EQ(ran.code, 1);
            EXPECT_TRUE(ran.err.contains("bad.gz: ")) << ran.err.toStdString();
            EXPECT_EQ(ran.err.count('\n'), 1);
            EXPECT_EQ(contentsOf(folder).size(), 0);
        }
    }
}

TEST(SevenZipBridge, StaysInsideTheFolder)
{
    TestShell t;
    const QString outside = t.file(u"outside"_s, "kept");
    const QString folder = t.folder(u"folder"_s);
    ASSERT_TRUE(QFile::link(outside, folder + u"/message"_s));
    QByteArray file = gzipped("new", {u"-n"_s});
    file[3] = 8;
    file.insert(10, QByteArray("../message\0", 11));
    ASSERT_EQ(sevenZip(u"EXTR"_s, t.file(u"x.gz"_s, file), folder).code, 0);
    EXPECT_EQ(contentsOf(folder).value("message"), "new");
    EXPECT_EQ(bytesOf(outside), "kept");
    EXPECT_FALSE(QFile::exists(t.path(u"message"_s)));
}

TEST(SevenZipBridge, NeverReplacesItsOwnInput)
{
    TestShell t;
    const QString folder = t.folder(u"folder"_s);
    const QString input = t.file(u"folder/message"_s, "contents");
    runProgram(u"gzip"_s, {input});
    ASSERT_TRUE(QFile::rename(input + u".gz"_s, input)); // its inner name is "message" too
    const QByteArray before = bytesOf(input);
    EXPECT_EQ(sevenZip(u"EXTR"_s, input, folder).code, 1);
    EXPECT_EQ(runBridge("7-Zip/7zip_bridge", {u"ASSM"_s, input, folder + u"/./message"_s}).code, 1);
    EXPECT_EQ(bytesOf(input), before);
}

TEST(SevenZipBridge, AFailedPackLeavesNoOutput)
{
    TestShell t;
    const QString output = t.folder(u"out"_s);
    t.file(u"out/#message.gz"_s, "old");
    const auto pack = [&](const QString& input, const std::function<void()>& inChild = {}) {
        return runBridge("7-Zip/7zip_bridge", {u"ASSM"_s, input, output + u"/#message.gz"_s},
                         inChild);
    };
    const Ran lost = pack(t.path(u"no file"_s));
    EXPECT_EQ(lost.code, 1);
    EXPECT_TRUE(lost.err.contains("no file"));
    EXPECT_EQ(contentsOf(output).size(), 0);
    const Ran full = pack(t.file(u"noise"_s, samples().at(0)), [] {
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, SIG_IGN);
    });
    EXPECT_EQ(full.code, 1);
    EXPECT_EQ(contentsOf(output).size(), 0);
}
