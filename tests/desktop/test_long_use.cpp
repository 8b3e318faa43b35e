// SPDX-License-Identifier: MIT
// Hours of work in a row: what is dragged and scaled leaves nothing behind in memory.
#include "support/story.h"

#include "editor/stage/scale_commands.h"
#include "editor/stage/stage_link.h"
#include "support/long_run.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

using namespace fennel;
using namespace fennel::test;

namespace {

constexpr int timeObject = 5;
constexpr qint64 allowedGrowth = 1024 * 1024; // caches of glyphs may still fill

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
    const int count = rounds(30, 1000);
    const qint64 before = residentBytes();
    for (int i = 0; i < count; ++i)
        dragRound();
    const qint64 dragged = residentBytes();
    for (int i = 0; i < count; ++i)
        scaleRound(i);
    const qint64 scaled = residentBytes();
    RecordProperty("growthByDrags", std::to_string(dragged - before));
    RecordProperty("growthByScales", std::to_string(scaled - dragged));
    if (!memoryIsCounted)
        return;
    EXPECT_LT(dragged - before, allowedGrowth);
    EXPECT_LT(scaled - dragged, allowedGrowth);
}
