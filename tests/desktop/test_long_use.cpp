// SPDX-License-Identifier: MIT
// Hours of work in a row: what is dragged and scaled leaves nothing behind in memory. The variable
// FENNEL_LONG_USE sets how often (1000 for a thorough run).
#include "desktop/story.h"

#include "frame/stage_link.h"
#include "stage/scale_commands.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include <malloc.h>
#include <unistd.h>

using namespace fennel;
using namespace fennel::test;

namespace {

constexpr int timeObject = 5;
constexpr int usualRounds = 30;
constexpr qint64 allowedGrowth = 1024 * 1024; // caches of glyphs may still fill

int rounds()
{
    const int wanted = qEnvironmentVariableIntValue("FENNEL_LONG_USE");
    return wanted > 0 ? wanted : usualRounds;
}

qint64 residentBytes()
{
    ::malloc_trim(0);
    const QByteArray pages = bytesOf(QStringLiteral("/proc/self/statm")).split(' ').value(1);
    return pages.toLongLong() * ::sysconf(_SC_PAGESIZE);
}

} // namespace

TEST(LongUse, DragsAndScalesLeaveNothingBehind)
{
    Story story;
    story.makeNew();
    Stage& stage = story.window.stageLink().stage();
    const auto dragRound = [&] {
        story.drag(story.middleOf(timeObject), story.middleOf(timeObject) + QPoint(9, 5));
        story.drag(story.middleOf(timeObject), story.middleOf(timeObject) - QPoint(9, 5));
    };
    // A user's change of scale ends in the event loop, where what was put off is done.
    const auto scaleRound = [&](int i) {
        mnuView_scale(stage, i % 2 == 0 ? 75 : 125);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    for (int i = 0; i < 20; ++i) {
        dragRound();
        scaleRound(i);
    }
    const qint64 before = residentBytes();
    for (int i = 0; i < rounds(); ++i)
        dragRound();
    const qint64 dragged = residentBytes();
    for (int i = 0; i < rounds(); ++i)
        scaleRound(i);
    const qint64 scaled = residentBytes();
    RecordProperty("growthByDrags", std::to_string(dragged - before));
    RecordProperty("growthByScales", std::to_string(scaled - dragged));
    EXPECT_LT(dragged - before, allowedGrowth);
    EXPECT_LT(scaled - dragged, allowedGrowth);
}
