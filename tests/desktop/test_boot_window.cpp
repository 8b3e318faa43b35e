// SPDX-License-Identifier: MIT
// Tools, Boot test in the whole window: what is not saved yet is seen booted beside the preview.
#include "editor/boot/boot_link.h"
#include "editor/window_fixture.h"
#include "params/object_table.h"
#include "screen/picture_difference.h"

#include <QLabel>
#include <QPushButton>

using namespace fennel;
using namespace fennel::test;

namespace {

class BootWindowTest : public WindowTest {
protected:
    BootTest& test() { return window.bootLink().test(); }
    QWidget& boot() { return find<QWidget>(u"BootWindow"_s); }
    [[nodiscard]] double differing()
    {
        return find<QLabel>(u"BootDifference"_s).text().section(u' ', 0, 0).toDouble();
    }
    bool reaches(BootState state)
    {
        return QTest::qWaitFor([&] { return test().state() == state; }, 90'000);
    }
};

TEST_F(BootWindowTest, ShowsUnsavedEditsKeysAndCancel)
{
    if (!findProgram(u"qemu-system-x86_64"_s) || !findProgram(u"syslinux"_s))
        GTEST_SKIP() << "no QEMU or syslinux";
    openTemplate(0);
    const QByteArray saved = bytesOf(shell.run.GfxPath);
    drag(middleOf(0), middleOf(0) + QPoint(-120, 90));
    ASSERT_TRUE(window.document().isModified());
    choose("mnuT_Boot");
    ASSERT_TRUE(reaches(BootState::Standing)) << test().words().toStdString();
    // What moves differs, and nothing else; the menu at its old place would be a tenth.
    EXPECT_LT(differing(), 4);
    EXPECT_EQ(bytesOf(shell.run.GfxPath), saved);
    const QRect bar = window.stageLink().stage().panel(MenuBarRow).rect;
    const QImage before = test().picture().copy(bar);
    QSignalSpy rested(&test(), &BootTest::rested);
    // Until the loader listens, which on a busy computer is after its picture, keys are lost.
    double moved = 0;
    for (int presses = 0; moved < 0.5 && presses < 8; ++presses) {
        click(find<QWidget>(u"BootKey_down"_s));
        ASSERT_TRUE(rested.wait(60'000));
        moved = differenceOf(before, test().picture().copy(bar), 0).share;
    }
    EXPECT_GT(moved, 0.5);
    click(find<QPushButton>(u"BootCancel"_s));
    EXPECT_EQ(test().state(), BootState::None);
    EXPECT_FALSE(boot().isVisible());
}

} // namespace
