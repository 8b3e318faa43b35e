// SPDX-License-Identifier: MIT
// Message files that are broken or meant to do harm, opened through the whole program.
#include "desktop/hostile_messages.h"
#include "screen/background.h"
#include "support/run_program.h"
#include "support/story.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int filesPerRun = 50; // then the program ends and starts again
constexpr qint64 allowedMemory = 500LL * 1024 * 1024;
constexpr qint64 allowedTime = 2000;              // ms to open a file and look at everything
constexpr int slowness = memoryIsCounted ? 1 : 5; // the sanitizer takes its time, too

QFileInfoList entriesOf(const QString& folder)
{
    return QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                      QDir::NoDotAndDotDot);
}

// A run of the program over hostile files, in a folder that holds nothing but them.
class HostileRun {
public:
    HostileRun()
    {
        story.user().answerRest = [](const QString& text, MessageType) {
            return text.contains(u"obsolete"_s) ? Answer::No : Answer::Ok;
        };
        EXPECT_TRUE(story.shell.files.makeFolder(story.shell.path(u"in"_s)).ok());
        story.store.save(langsSection, u"DefaultLang"_s, u"0409"_s); // the file is there
        m_before = outside();
    }
    // Opens the file and, if that is wanted, looks at everything that it shows and saves a copy;
    // returns the milliseconds of processor time.
    qint64 tryOut(const HostileMessage& message, bool thoroughly)
    {
        const QString path = story.shell.file(u"in/"_s + message.name, message.bytes);
        const qsizetype told = story.user().texts.size();
        const QString former = story.run().Workspace;
        const qint64 before = processorTime();
        story.user().expectOpen(path);
        story.choose("mnuFile_Open");
        const bool opened = story.run().GfxOpened && story.run().GfxPath == shortForm(path);
        if (opened && thoroughly)
            look();
        const qint64 time = processorTime() - before;
        if (!opened) {
            EXPECT_GT(story.user().texts.size(), told);
            EXPECT_EQ(story.run().Workspace, former);
        }
        m_opened += opened ? 1 : 0;
        checkFolders(message.name);
        EXPECT_TRUE(QFile::remove(path));
        return time;
    }
    void end()
    {
        story.close();
        EXPECT_FALSE(FolderExists(story.run().WorkspaceRoot));
        EXPECT_EQ(outside(), m_before);
    }
    [[nodiscard]] int opened() const { return m_opened; }

    Story story;

private:
    // Everything that may lie beside the program's temporary folder.
    std::string outside() const
    {
        QString names;
        for (const QString& folder : {story.shell.path(u""_s), QDir::homePath(), u"."_s}) {
            for (const QFileInfo& entry : entriesOf(folder))
                names += entry.fileName() == u"root"_s ? QString() : entry.fileName() + u' ';
        }
        return names.toStdString();
    }
    void look()
    {
        story.goToAllTabs();
        (void)story.window.grab();
        const QString copy = story.shell.path(u"in/copy"_s);
        const qsizetype told = story.user().texts.size();
        story.user().expectSave(copy);
        story.choose("mnuFile_SaveAs");
        // A copy of half of it would be worse than none.
        EXPECT_TRUE(FileExists(copy) ? membersOf(copy).size() > 1
                                     : story.user().texts.size() > told + 1);
        (void)QFile::remove(copy);
    }
    void checkFolders(const QString& name)
    {
        EXPECT_EQ(outside(), m_before);
        m_names.insert(name);
        for (const QFileInfo& entry : entriesOf(story.run().WorkspaceRoot))
            EXPECT_TRUE(entry.isDir()
                            ? !entry.isSymLink() && m_names.contains(entry.fileName())
                            : entry.fileName() == scaledBackName || entry.fileName() == u".lock"_s)
                << entry.fileName().toStdString();
        for (const QFileInfo& entry : entriesOf(story.run().WorkspaceRoot + name))
            EXPECT_TRUE(entry.isFile() && !entry.isSymLink()) << entry.fileName().toStdString();
    }

    std::string m_before;
    QSet<QString> m_names{u"message"_s,
                          u"copy"_s}; // of the shell's own folder, and of the files so far
    int m_opened = 0;
};

} // namespace

TEST(HostileMessages, AreRefusedOrShownAndLeaveNothingBehind)
{
    const unsigned first = seed();
    const int count = rounds(200, 10'000);
    const QString forbidden =
        QDir::tempPath() + u"/fennel-forbidden-%1"_s.arg(QCoreApplication::applicationPid());
    const HostileMessages messages(forbidden);
    Dice dice(first);
    qint64 slowest = 0;
    qint64 sum = 0;
    int opened = 0;
    for (int done = 0; done < count && !testing::Test::HasFailure();) {
        HostileRun run;
        for (int i = 0; i < filesPerRun && done < count; ++i, ++done) {
            const HostileMessage message = messages.next(dice);
            const std::string what = "seed " + std::to_string(first) + ", file " +
                                     std::to_string(done) + " (" + message.kind.toStdString() + ")";
            SCOPED_TRACE(what);
            const Watchdog dog((longRun() ? 10U : 60U) * slowness); // a busy machine is slow, too
            const qint64 time = run.tryOut(message, done % 10 == 0);
            EXPECT_TRUE(!longRun() || time < allowedTime * slowness) << time << " ms";
            sum += time;
            if (time > slowest)
                std::cout << what << ": " << time << " ms\n" << std::flush;
            slowest = std::max(slowest, time);
        }
        opened += run.opened();
        run.end();
    }
    std::cout << "seed " << first << ": " << count << " files, " << opened << " opened, slowest "
              << slowest << " ms, mean " << sum / count << " ms, memory " << peakBytes() / 1048576
              << " MiB\n";
    EXPECT_TRUE(slowness > 1 || peakBytes() < allowedMemory);
    EXPECT_FALSE(FileExists(forbidden));
}

// A sentence and nothing written, or the work done: what happens to a file is never half.
TEST(HostileMessages, GoThroughEveryCommand)
{
    const QTemporaryDir folder;
    const QString at = folder.path() + u'/';
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"tmp"_s) && QDir(folder.path()).mkdir(u"in"_s));
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", (at + u"tmp"_s).toUtf8());
    const QString good = at + u"in/good"_s;
    const auto run = [&](const QStringList& words) {
        return runProgram(binFolder() + u"/fennel"_s, words, at + u"in"_s);
    };
    ASSERT_EQ(run({u"new"_s, good}).code, 0);
    const QString bad = at + u"in/bad"_s;
    const QString out = at + u"out"_s;
    const QStringList commands[] = {
        {u"info"_s, bad},
        {u"list"_s, bad},
        {u"get"_s, bad},
        {u"check"_s, u"--json"_s, bad},
        {u"set"_s, bad, u"0:2=5"_s, u"-o"_s, out},
        {u"replace"_s, bad, u"back.jpg="_s + binFolder() + u"/data/GFX.GZ"_s, u"-o"_s, out},
        {u"add"_s, bad, u"note="_s + good, u"-o"_s, out},
        {u"remove"_s, bad, u"languages"_s, u"-o"_s, out},
        {u"font"_s, bad, u"--face"_s, u"DejaVu Sans"_s, u"--size"_s, u"9"_s, u"-o"_s, out},
        {u"extract"_s, bad, out},
        {u"upgrade"_s, bad, u"-o"_s, out},
        {u"render"_s, bad, u"-o"_s, out},
        {u"diff"_s, bad, good, u"-o"_s, out},
        // Refused before a guest or the editor starts.
        {u"boot"_s, bad},
        {u"compare"_s, bad, u"--at"_s, u"x"_s}};
    const HostileMessages messages(folder.path() + u"/forbidden"_s);
    Dice dice(seed());
    for (int round = 0; round < rounds(6, 300) && !testing::Test::HasFailure(); ++round) {
        const HostileMessage message = messages.next(dice);
        ASSERT_TRUE(DiskFiles().write(bad, message.bytes).ok());
        for (const QStringList& words : commands) {
            SCOPED_TRACE(
                (words.first() + u", seed %1, round %2: "_s.arg(seed()).arg(round) + message.kind)
                    .toStdString());
            const Ran ran = run(words);
            EXPECT_TRUE(ran.code >= 0 && ran.code <= 4) << ran.code;
            EXPECT_EQ(ran.code >= 2, ran.err.startsWith("fennel: ")) << ran.err.toStdString();
            EXPECT_TRUE(ran.code < 2 || !QFileInfo::exists(out));
            EXPECT_EQ(contentsOf(at + u"in"_s)["bad"], message.bytes);
            EXPECT_TRUE(QDir(at + u"tmp"_s).isEmpty());
            QDir(out).removeRecursively();
            QFile::remove(out);
        }
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList({u"in"_s, u"tmp"_s}));
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}
