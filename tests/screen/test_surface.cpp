// SPDX-License-Identifier: MIT
// Picture1 as a widget: real events in, painted pixels out, and no work while nothing moves.
#include "editor/colour/pipette.h"
#include "editor/stage/stage_surface.h"
#include "stage_fixture.h"

#include <QLabel>
#include <QTest>
#include <QWindow>

#include <cmath>

using namespace fennel;
using namespace fennel::test;

namespace {

class SurfaceTest : public StageTest {
protected:
    SurfaceTest()
    {
        openZuk();
        surface.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&surface));
    }
    void moveHeld(QPoint at)
    {
        QMouseEvent event(QEvent::MouseMove, at, surface.mapToGlobal(at), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&surface, &event);
    }
    StageSurface surface{stage};
};

// Counts the paint events of a widget and adds up what they cover.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion painted;
};

} // namespace

TEST_F(SurfaceTest, DragByRealEventsRepaintsOldAndNewPlaceOnly)
{
    QTest::mousePress(&surface, Qt::LeftButton, {}, {30, 40});
    QTest::qWait(20);
    PaintWatch watch(surface);
    moveHeld({130, 90});
    QTest::qWait(20);
    EXPECT_EQ(watch.painted, QRegion(20, 30, 72, 22) + QRegion(120, 80, 72, 22));
    QTest::mouseRelease(&surface, Qt::LeftButton, {}, {130, 90});
    EXPECT_EQ(rec(5).Left, 120);
    EXPECT_EQ(surface.grab().toImage().convertToFormat(QImage::Format_RGB32), painted());
}

// Also run at scale factors, where a position in a child is rounded and the one in its window is
// not.
TEST_F(SurfaceTest, EveryPixelOfTheScreenIsReached)
{
    QWidget window;
    window.resize(900, 700);
    surface.setParent(&window);
    surface.move(37, 21);
    window.show();
    surface.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    const double ratio = surface.devicePixelRatioF();
    const auto scene = [ratio](QPoint pixel) {
        return QPointF((std::ceil(37 * ratio) + pixel.x()) / ratio,
                       (std::ceil(21 * ratio) + pixel.y()) / ratio);
    };
    for (int pixel = 0; pixel < 200; ++pixel)
        ASSERT_EQ(surface.toPicture(scene({pixel, pixel + 1})), QPoint(pixel, pixel + 1)) << ratio;
    const auto send = [&](QEvent::Type type, QPoint pixel, Qt::MouseButtons buttons) {
        const QPointF place = scene(pixel);
        const QPointF local = (place - QPointF(37, 21)).toPoint();
        QMouseEvent event(type, local, place, window.pos() + place,
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&surface, &event);
    };
    int left = rec(5).Left;
    for (const int distance : {1, 3, 5, 13}) {
        send(QEvent::MouseButtonPress, {left + 5, 40}, Qt::LeftButton);
        send(QEvent::MouseMove, {left + 5 + distance, 40}, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, {left + 5 + distance, 40}, Qt::NoButton);
        left += distance;
        EXPECT_EQ(rec(5).Left, left) << ratio;
    }
    surface.setParent(nullptr);
}

// At scale factors, too: the window system tells whole logical pixels, the events tell all.
TEST(PipetteTest, PicksEveryPixelOfTheScreen)
{
    // The platform without a screen finds windows by logical places and pixels of the screen alike,
    // so the window reaches further than the points.
    constexpr int side = 300;
    QLabel shown(nullptr, Qt::FramelessWindowHint);
    const double ratio = shown.devicePixelRatioF();
    QImage pattern(QSize(side, side) * ratio, QImage::Format_RGB32);
    for (int y = 0; y < pattern.height(); ++y) {
        for (int x = 0; x < pattern.width(); ++x)
            pattern.setPixel(x, y, qRgb(x & 255, y & 255, 77));
    }
    pattern.setDevicePixelRatio(ratio);
    shown.setPixmap(QPixmap::fromImage(pattern));
    shown.setGeometry(0, 0, side, side);
    shown.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown));
    Pipette pipette(nullptr);
    QPointF mouse;
    pipette.setScreen(grabAround, [&] { return QPointF(mouse.toPoint()); });
    for (int pixel = 7; pixel < 250; pixel += 10) {
        mouse = QPointF(pixel, pixel + 2) / ratio;
        pipette.start();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(), mouse, Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(pipette.windowHandle(), &event);
        }
        EXPECT_FALSE(pipette.working());
        EXPECT_EQ(QColor(pipette.colour()), QColor(pixel, pixel + 2, 77)) << ratio;
    }
}

TEST_F(SurfaceTest, PulseRunsOnlyWhileTheMarkerCanBeSeen)
{
    EXPECT_FALSE(surface.pulsing());
    QTest::qWait(30);
    PaintWatch watch(surface);
    QTest::qWait(60);
    EXPECT_TRUE(watch.painted.isEmpty()) << "an idle stage paints nothing";
    stage.ActivatePanel(22);
    EXPECT_TRUE(surface.pulsing());
    QTest::qWait(20);
    watch.painted = {};
    QTest::qWait(200);
    EXPECT_TRUE(watch.painted.contains(stage.marker().center()));
    EXPECT_FALSE(watch.painted.contains(QPoint(250, 410))) << "marker and frame, nothing else";
    QTest::mousePress(&surface, Qt::LeftButton, {}, {10, 590});
    EXPECT_FALSE(surface.pulsing()) << "a button is down";
    QTest::mouseRelease(&surface, Qt::LeftButton, {}, {10, 590});
    EXPECT_TRUE(surface.pulsing());
    surface.hide();
    EXPECT_FALSE(surface.pulsing());
    surface.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&surface));
    QTRY_VERIFY(surface.pulsing());
    stage.ShowMarker(-1, -1);
    EXPECT_FALSE(surface.pulsing());
}
