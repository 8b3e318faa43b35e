// SPDX-License-Identifier: MIT
// The preview as it boots, on the template with a background of another size: a step of a drag from
// the mouse event to the painted frame, and the first picture of a long menu.
#include "container/cpio.h"
#include "container/gzip.h"
#include "editor/stage/stage_surface.h"
#include "fonts/fnt_bytes.h"
#include "quiet_prompts.h"
#include "silent_host.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <algorithm>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

bool unpackTemplate(const QString& folder, QSize size)
{
    DiskFiles files;
    QFile packed(QStringLiteral(FENNEL_BIN_DIR "/data/GFX.GZ"));
    if (!packed.open(QIODevice::ReadOnly))
        return false;
    const auto archive = gzipDecompress(asSpan(packed.readAll()));
    const auto members = archive ? readCpio(archive->data) : Result<std::vector<CpioMember>>({});
    if (!archive || !members)
        return false;
    for (const CpioMember& member : *members)
        (void)files.write(folder + QString::fromStdString(member.name),
                          {reinterpret_cast<const char*>(member.data.data()),
                           static_cast<qsizetype>(member.data.size())});
    const QString back = folder + u"back.jpg"_s;
    return QImage(back).scaled(size).save(back, "jpg", 90);
}

// A document on the template, opened as the window does.
struct Template {
    explicit Template(QSize size)
    {
        run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
        run.CurrentLang = u"0409"_s;
        run.Workspace = folder.path() + u'/';
        there = unpackTemplate(run.Workspace, size);
        run.GfxOpened = run.GfxHasZuk = true;
        run.gfxboot_var = 3;
        run.ObjectCount = 40;
        run.BackWidth = size.width();
        run.BackHeight = size.height();
        document.loadCatalogue();
        document.readLevels();
        document.buildObjects();
        document.listValues(false);
        QStringList titles;
        for (int i = 1; i <= 30; ++i)
            titles.append(u"Entry %1 of a menu that is longer than most"_s.arg(i));
        document.setMenuTitles(titles);
    }

    QTemporaryDir folder;
    bool there = false;
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    Shell shell{run, log, files, prompts, tools};
    FontTable fonts = FontTable(fontCount);
    Document document{shell, fonts};
};

void useApplication()
{
    static int argc = 1;
    static char name[] = "bench_boot";
    static char* argv[] = {name, nullptr};
    if (qApp == nullptr) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        new QApplication(argc, argv); // NOLINT: lives as long as the process
    }
}

void dragStep(benchmark::State& state)
{
    useApplication();
    const QSize size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Template opened(size);
    if (!opened.there)
        return state.SkipWithError("no template");
    SilentHost host;
    Stage stage(StageData{opened.shell, opened.document, opened.fonts, host, {}});
    stage.adoptPanels();
    stage.setBackground(QImage(opened.run.Workspace + u"back.jpg"_s));
    stage.showAsItBoots(true);
    StageSurface surface(stage);
    surface.show();
    QApplication::processEvents();
    const auto send = [&surface](QEvent::Type type, QPoint at, Qt::MouseButton button) {
        QMouseEvent event(type, at, at, button, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&surface, &event);
    };
    const int index = static_cast<int>(state.range(2));
    stage.raisePanel(index);
    QPoint at = stage.panel(index).rect.center();
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
    std::sort(steps.begin(), steps.end());
    state.counters["median_ms"] = steps[steps.size() / 2];
    state.counters["p99_ms"] = steps[steps.size() * 99 / 100];
    send(QEvent::MouseButtonRelease, at, Qt::LeftButton);
}

void firstPicture(benchmark::State& state)
{
    Template opened({800, 600});
    if (!opened.there)
        return state.SkipWithError("no template");
    for (auto _ : state) {
        BootScreen screen;
        (void)screen.update(
            {opened.document.state(), opened.run.Workspace, 3, opened.document.menuTitles()});
        benchmark::DoNotOptimize(screen.picture());
    }
}

} // namespace

BENCHMARK(dragStep)
    ->Args({1024, 768, 5})
    ->Args({1024, 768, 0})
    ->Args({2560, 1440, 5})
    ->Args({2560, 1440, 0})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(firstPicture)->Unit(benchmark::kMillisecond);
