// SPDX-License-Identifier: MIT
// How a tool is waited for, by a command line and by something that shows it.
#include "support/test_shell.h"

#include <QTest>
#include <QTimer>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class Shown : public Progress {
public:
    int begun = 0;
    int ended = 0;
    bool off = false;
    void begin(const QString&) override { ++begun; }
    void setShare(std::optional<double>) override {}
    void end() override { ++ended; }
    [[nodiscard]] bool cancelled() const override { return off; }
    void cancel()
    {
        off = true;
        Q_EMIT cancelRequested();
    }
};

// Starts a process of its own, and hangs.
class HungTool : public testing::Test, public TestShell {
protected:
    const QString tool = script(u"tool"_s, "sleep 60 & echo $! >\"$1\"; echo busy >&2; wait"_ba);
    const QString number = path(u"number"_s);
    // A process that has ended has no command line, even if nobody has taken note of its end.
    bool childGone()
    {
        const QString child = u"/proc/"_s + QString::fromLatin1(bytesOf(number).trimmed());
        return QTest::qWaitFor([&] {
            const Result<QByteArray> words = readBytes(child + u"/cmdline"_s);
            return !words || words->isEmpty();
        });
    }
};

} // namespace

TEST_F(HungTool, EndsWithAllItStartedWhenItsTimeIsUp)
{
    Shown shown;
    for (const bool visible : {false, true}) {
        ProcessToolRunner runner(200);
        if (visible)
            runner.showIn(shown);
        const Result<void> ran = runner.RunToolAndWait({tool, number});
        ASSERT_FALSE(ran.ok());
        EXPECT_EQ(ran.failure().kind, FailureKind::ToolFailed);
        EXPECT_EQ(ran.failure().text, "tool did not end in time and was stopped.\nbusy");
        EXPECT_TRUE(childGone()) << visible;
    }
    EXPECT_EQ(shown.begun + shown.ended, 2);
}

TEST_F(HungTool, EndsWhenCalledOffAndTheEventLoopTurnsUntilThen)
{
    Shown shown;
    ProcessToolRunner runner;
    runner.showIn(shown);
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        // Before and behind the moment from which the work is shown.
        if (++ticks == 40)
            shown.cancel();
    });
    timer.start(20);
    const Result<void> ran = runner.RunToolAndWait({tool, number});
    ASSERT_FALSE(ran.ok());
    EXPECT_EQ(ran.failure().kind, FailureKind::Canceled);
    EXPECT_EQ(ticks, 40);
    EXPECT_TRUE(childGone());
    // Called off before it began.
    EXPECT_EQ(runner.RunToolAndWait({tool, number}).failure().kind, FailureKind::Canceled);
}
