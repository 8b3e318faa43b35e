// SPDX-License-Identifier: MIT
#include "app/single_instance.h"
#include "support/test_shell.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(SingleInstance, SecondStartBringsTheFirstToTheFront)
{
    TestShell t;
    SingleInstance first(t.run.AppPath);
    SingleInstance second(t.run.AppPath);
    ASSERT_TRUE(first.acquire());
    EXPECT_TRUE(first.acquire());
    EXPECT_FALSE(second.acquire());
    const QSignalSpy asked(&first, &SingleInstance::raiseRequested);
    EXPECT_TRUE(second.askOtherToRaise(u"token-1_TIME5"_s));
    EXPECT_TRUE(second.askOtherToRaise({}));
    const QSignalSpy opened(&first, &SingleInstance::openRequested);
    EXPECT_TRUE(sendToInstance(t.run.AppPath, {{}, u"/a b\n%41"_s}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.count() == 3; }, 5000));
    EXPECT_EQ(opened.value(0).value(0).toString(), u"/a b\n%41"_s);
    EXPECT_EQ(asked.value(0).value(0).toString(), u"token-1_TIME5"_s);
    EXPECT_EQ(asked.value(1).value(0).toString(), QString());
}

TEST(SingleInstance, LeavesNothingBehindAndLetsTheNextOneIn)
{
    TestShell t;
    const QString folder = t.run.WorkspaceRoot;
    const auto left = [&] { return filesLike(folder, u"*"_s).size(); };
    {
        SingleInstance first(folder);
        SingleInstance loser(folder);
        ASSERT_TRUE(first.acquire());
        EXPECT_FALSE(loser.acquire());
    }
    EXPECT_EQ(left(), 0);
    EXPECT_FALSE(QFileInfo::exists(folder + u"FENNEL-GFX.socket"_s));
    SingleInstance next(folder);
    EXPECT_TRUE(next.acquire());
}

TEST(SingleInstance, CrashedRunKeepsNobodyOut)
{
    TestShell t;
    int ready[2] = {};
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        auto* held = new SingleInstance(t.run.AppPath);
        const char result = held->acquire() ? '1' : '0';
        (void)!::write(ready[1], &result, 1);
        ::pause();
        ::_exit(0);
    }
    char result = 0;
    ASSERT_EQ(::read(ready[0], &result, 1), 1);
    EXPECT_EQ(result, '1');
    SingleInstance here(t.run.AppPath);
    EXPECT_FALSE(here.acquire());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ready[0]);
    ::close(ready[1]);

    // The lock file and the socket are still there.
    ASSERT_TRUE(FileExists(t.path(u"FENNEL-GFX.lock"_s)));
    EXPECT_FALSE(here.askOtherToRaise({}));
    EXPECT_TRUE(here.acquire());
    const QSignalSpy asked(&here, &SingleInstance::raiseRequested);
    EXPECT_TRUE(SingleInstance(t.run.AppPath).askOtherToRaise(u"x"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.count() == 1; }, 5000));
}

TEST(SingleInstance, PrivateFolderReplacesARuntimeFolderOfAnotherUser)
{
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray temp = qgetenv("TMPDIR");
    TestShell t;
    qputenv("TMPDIR", QFile::encodeName(t.run.AppPath));
    EXPECT_EQ(instanceFolder(), QString::fromLocal8Bit(runtime));
    qputenv("XDG_RUNTIME_DIR", "/nowhere");
    {
        SingleInstance one;
        EXPECT_TRUE(one.acquire());
        EXPECT_TRUE(instanceFolder().startsWith(t.run.AppPath));
        EXPECT_EQ(QFile::permissions(instanceFolder()) & (QFile::ReadOther | QFile::ExeOther), 0);
        EXPECT_FALSE(SingleInstance().acquire());
    }
    EXPECT_FALSE(QFileInfo::exists(instanceFolder()));
    qputenv("XDG_RUNTIME_DIR", runtime);
    temp.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temp);
}
