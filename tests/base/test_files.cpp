// SPDX-License-Identifier: MIT
#include "base/posix_file.h"
#include "support/long_run.h"
#include "support/test_shell.h"

#include <QDir>
#include <QFileInfo>

#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Files, PatternsOfDos)
{
    TestShell t;
    for (const auto& name : {u"back_10.jpg"_s, u"BACK_02.JPG"_s, u"back_aa.jpg"_s, u"back.jpg"_s})
        t.member(name, "x");
    EXPECT_EQ(numberedFiles(t.run.Workspace, u"back_??.jpg"_s),
              (QStringList{u"BACK_02.JPG"_s, u"back_10.jpg"_s}));
    const struct {
        const char* pattern;
        const char* fitting;
        const char* other;
    } cases[] = {{"*", "", nullptr},
                 {"*.jpg", "a.b.JPG", "a.jpg.b"},
                 {"*.jpg", ".jpg", "jpg"},
                 {"a*b*c", "aXbbXbcbc", "aXbXcX"},
                 {"a**c", "ac", "a"},
                 {"a(?).*", "a(1).x", nullptr},
                 {"??", "ЖЖ", "Ж"},
                 {"ЛОГО*", "лого_1", "лог"},
                 {"", "", "a"},
                 {"ZUK????.CFG", "zuk0001.cfg", "ZUK001.CFG"}};
    for (const auto& c : cases) {
        const QString pattern = QString::fromUtf8(c.pattern);
        EXPECT_TRUE(fitsPattern(QString::fromUtf8(c.fitting), pattern)) << c.pattern;
        EXPECT_FALSE(c.other != nullptr && fitsPattern(QString::fromUtf8(c.other), pattern))
            << c.other;
    }
}

// The folder belongs to somebody who swaps the new file for a link as soon as it shows.
TEST(Files, NoLinkPutInTheWayOfASaveReachesAnotherFile)
{
    TestShell t;
    const QString victim = t.file(u"victim"_s, "mine");
    const QDir folder(t.folder(u"open"_s));
    const QString target = t.file(u"open/message"_s, "old");
    ASSERT_TRUE(QFile::setPermissions(victim, QFile::ReadOwner | QFile::WriteOwner));
    std::atomic<bool> over = false;
    std::atomic<int> swaps = 0;
    std::thread attacker([&] {
        while (!over) {
            for (const QString& name :
                 folder.entryList({u".fennel*"_s}, QDir::Files | QDir::Hidden))
                if (QFile::rename(folder.filePath(name), folder.filePath(u"caught"_s)))
                    swaps += QFile::link(victim, folder.filePath(name)) ? 1 : 0;
            QFile::remove(folder.filePath(u"caught"_s));
        }
    });
    const std::vector<std::uint8_t> bytes(100'000, 'x');
    for (int play = 0; play < rounds(60, 1000); ++play) {
        (void)replaceWhole(target.toStdString(), bytes);
        ASSERT_EQ(QFileInfo(victim).permissions() & QFile::ReadOther, 0) << play;
        if (QFileInfo(target).isSymLink() && QFile::remove(target))
            t.file(u"open/message"_s, "old");
    }
    over = true;
    attacker.join();
    EXPECT_GT(swaps, 0);
    ASSERT_TRUE(QFile::link(victim, t.folder(u"copy"_s) + u"/message"_s));
    EXPECT_TRUE(t.files.copyFolder(folder.path(), t.path(u"copy"_s)));
    EXPECT_EQ(bytesOf(victim), "mine");
}

TEST(Files, TheNextSaveRemovesWhatAKilledOneLeft)
{
    TestShell t;
    const QString folder = t.folder(u"stick"_s);
    const std::string target = t.file(u"stick/message"_s, "old").toStdString();
    const std::vector<std::uint8_t> bytes(300'000, 'x');
    for (int kill = 0; kill < rounds(20, 500); ++kill) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0); // or the kill below would reach every process
        if (child == 0)
            for (;;)
                (void)replaceWhole(target, bytes);
        ::usleep(static_cast<useconds_t>(kill * 137 % 4000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_TRUE(replaceWhole(target, bytes).ok());
        ASSERT_EQ(plainFiles(folder), QByteArrayList{"message"}) << kill;
    }
}
