// SPDX-License-Identifier: MIT
// What an edit costs: drawing one panel, all panels, and a step of a drag from the mouse event to
// the painted frame, each at 1024x768 and 2560x1440.
#include "editor/stage/stage_surface.h"
#include "quiet_prompts.h"
#include "screen/panel_text.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>

#include <algorithm>
#include <random>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// Rows as a list keeps them, so that a drag step pays for writing them.
class RowsHost : public StageHost {
public:
    explicit RowsHost(PanelArr& panels) : m_panels(panels) {}
    void PanelParamsToRow(int index) override
    {
        const PanelRec& rec = m_panels[static_cast<std::size_t>(index)];
        rows = {QString::number(rec.Left), QString::number(rec.Top), QString::number(rec.Width),
                QString::number(rec.Height)};
    }
    qint64 GetPanelParam(int, int) override { return 3; }
    QString CfgValue(const QString&) override { return u"0"_s; }
    void SetCfgValue(const QString&, const QString&) override {}
    void setBackgroundNumber(int) override {}
    int objectOfCurrentTab() override { return -1; }
    void selectTabOf(int) override {}
    void focusStage() override {}
    bool menuLevelShown() override { return false; }
    int pipettesOn() override { return 0; }
    void showColourControls(int) override {}
    void setStatus(int, const QString& text) override { status = text; }
    void refreshStatus() override {}
    void panelMenu(int, QPoint) override {}
    void backgroundMenu(QPoint) override {}
    void setOnOffCaption(int, const QString&) override {}
    void prepareBackground() override {}
    void layOutWindow() override {}
    void scaleApplied() override {}
    void beep(double, int) override {}
    QStringList rows;
    QString status;

private:
    PanelArr& m_panels;
};

void useApplication()
{
    static int argc = 1;
    static char name[] = "bench_stage";
    static char* argv[] = {name, nullptr};
    if (qApp == nullptr) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        new QApplication(argc, argv); // NOLINT: lives as long as the process
    }
}

// Forty objects, every one shown: the template's places for those that it names, a grid for the
// rest.
class Scene {
public:
    explicit Scene(QSize size)
    {
        std::mt19937 random(1);
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                picture.setPixel(x, y, static_cast<QRgb>(random()) | 0xff000000U);
        }
        run.GfxOpened = run.GfxHasZuk = true;
        run.gfxboot_var = 3;
        run.ObjectCount = 40;
        run.BackWidth = size.width();
        run.BackHeight = size.height();
        fonts[0].FontName = u"Liberation Sans"_s;
        fonts[0].Size = 14;
        fillPanels(size);
        stage.adoptPanels();
        stage.setBackground(picture);
        stage.setMenuEntries(embeddedMenu);
        stage.RefreshPanels();
    }

    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    PanelArr panels = PanelArr(40);
    FontTable fonts = FontTable(fontCount);
    int slit = 3;
    RowsHost host{panels};
    Stage stage{StageData{Shell{run, log, files, prompts, tools}, panels, fonts, slit, host, {}}};

private:
    void fillPanels(QSize size)
    {
        for (int i = 0; i < 40; ++i) {
            PanelRec& rec = panels[static_cast<std::size_t>(i)];
            rec.Name = u"Object %1"_s.arg(i);
            rec.Text = rec.Name + u'|';
            rec.Left = static_cast<qint16>(i % 8 * 120);
            rec.Top = static_cast<qint16>(i / 8 * 120);
            rec.LeftParam = 2;
            rec.TopParam = 3;
            rec.BackColor = qRgb(i * 6, 200 - i, 90);
            rec.Transp = static_cast<qint16>(60 + i * 4);
        }
        place(0, 253, 170, size.width() - 253, 340);
        place(1, 253, 170, size.width() - 253, 24);
        place(7, 0, size.height() - 24, size.width(), 24);
        place(8, 80, 60, size.width() - 160, size.height() - 120);
        place(9, 0, 0, size.width(), size.height());
        place(35, 100, 100, 575, 375);
    }
    void place(std::size_t index, int left, int top, int width, int height)
    {
        panels[index].Left = static_cast<qint16>(left);
        panels[index].Top = static_cast<qint16>(top);
        panels[index].Width = static_cast<qint16>(width);
        panels[index].Height = static_cast<qint16>(height);
    }
};

class PaintCount : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    double paints = 0;
};

QSize sizeOf(const benchmark::State& state)
{
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

// Panel 9 covers the whole screen: the dearest there is. Drawing ends with its finished picture.
void DrawPanelFullScreen(benchmark::State& state)
{
    useApplication();
    Scene scene(sizeOf(state));
    for (auto _ : state)
        scene.stage.DrawPanel(9);
}

void DrawPanelHelp(benchmark::State& state)
{
    useApplication();
    Scene scene(sizeOf(state));
    for (auto _ : state)
        scene.stage.DrawPanel(8);
}

void AllPanels(benchmark::State& state)
{
    useApplication();
    Scene scene(sizeOf(state));
    for (auto _ : state) {
        for (int i = 0; i < 40; ++i)
            scene.stage.ApplyPanel(i);
    }
}

// One mouse move of a drag with its rows and status, and the frame that shows it.
void DragStep(benchmark::State& state)
{
    useApplication();
    Scene scene(sizeOf(state));
    StageSurface surface(scene.stage);
    surface.show();
    QApplication::processEvents();
    PaintCount count;
    surface.installEventFilter(&count);
    const auto send = [&surface](QEvent::Type type, QPoint at, Qt::MouseButton button) {
        QMouseEvent event(type, at, at, button, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&surface, &event);
    };
    const int index = static_cast<int>(state.range(2));
    scene.stage.raisePanel(index);
    QPoint at = scene.stage.panel(index).rect.center();
    send(QEvent::MouseButtonPress, at, Qt::LeftButton);
    std::vector<double> steps;
    int turn = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        at += (turn++ / 40) % 2 == 0 ? QPoint(3, 1) : QPoint(-3, -1);
        send(QEvent::MouseMove, at, Qt::NoButton);
        QEvent paint(QEvent::UpdateRequest); // at once, as a screen's next frame would ask
        QApplication::sendEvent(surface.window(), &paint);
        steps.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    state.counters["frames_per_step"] = count.paints / static_cast<double>(steps.size());
    std::sort(steps.begin(), steps.end());
    state.counters["median_ms"] = steps[steps.size() / 2];
    state.counters["p99_ms"] = steps[steps.size() * 99 / 100];
    send(QEvent::MouseButtonRelease, at, Qt::LeftButton);
}

} // namespace

BENCHMARK(DrawPanelFullScreen)
    ->Args({1024, 768})
    ->Args({2560, 1440})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(DrawPanelHelp)->Args({1024, 768})->Args({2560, 1440})->Unit(benchmark::kMillisecond);
BENCHMARK(AllPanels)->Args({1024, 768})->Args({2560, 1440})->Unit(benchmark::kMillisecond);
// The menu with its bar (1), the help panel (8), a small object (5).
BENCHMARK(DragStep)
    ->Args({1024, 768, 5})
    ->Args({1024, 768, 1})
    ->Args({1024, 768, 8})
    ->Args({2560, 1440, 5})
    ->Args({2560, 1440, 1})
    ->Args({2560, 1440, 8})
    ->Unit(benchmark::kMillisecond);
