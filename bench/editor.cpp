// SPDX-License-Identifier: MIT
#include "editor.h"

#include "container/cpio.h"
#include "container/gzip.h"
#include "editor/stage/stage_surface.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>

#include <algorithm>
#include <vector>

#include <sys/resource.h>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

using Bytes = std::vector<std::uint8_t>;

const QString debianMessage = u"/etc/bootsplash/themes/upstream/bootloader/message"_s;

// About 200 KB.
Bytes background(int number)
{
    QImage picture(800, 600, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            line[x] = qRgb((x * y + number * 31) % 256, (x * 7 + y * y / 9) % 256, (x ^ y) % 256);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "JPG", 60);
    return {bytes.begin(), bytes.end()};
}

class PaintCount : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    double paints = 0;
};

void send(StageSurface& surface, QEvent::Type type, QPoint at, Qt::MouseButton button)
{
    QMouseEvent event(type, at, at, button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&surface, &event);
}

double moved(StageSurface& surface, QPoint at)
{
    QElapsedTimer timer;
    timer.start();
    send(surface, QEvent::MouseMove, at, Qt::NoButton);
    QEvent paint(QEvent::UpdateRequest); // at once, as a screen's next frame would ask
    QApplication::sendEvent(surface.window(), &paint);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

Editor::Editor()
{
    run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
    run.CurrentLang = u"0409"_s;
    run.ToolCpio = run.AppPath + u"/Tools/CPIO/cpio_bridge"_s;
    run.Tool7Zip = run.AppPath + u"/Tools/7-Zip/7zip_bridge"_s;
    run.ToolNConvert = run.AppPath + u"/Tools/nconvert/nconvert_bridge"_s;
    run.WorkspaceRoot = folder.filePath(u"root/"_s);
    (void)files.makeFolder(run.WorkspaceRoot);
    window = std::make_unique<MainWindow>(bench);
    window->show();
    QCoreApplication::processEvents();
}

void Editor::paint()
{
    QEvent frame(QEvent::UpdateRequest); // at once, as a screen's next frame would ask
    QCoreApplication::sendEvent(window.get(), &frame);
}

OpenGfxboot::OpenGfxboot(QSize back)
{
    run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
    run.CurrentLang = u"0409"_s;
    run.Workspace = folder.path() + u'/';
    run.GfxOpened = run.GfxHasZuk = true;
    run.gfxboot_var = 3;
    run.ObjectCount = zukObjectCount;
    run.BackWidth = back.width();
    run.BackHeight = back.height();
}

QSize sizeOf(const benchmark::State& state)
{
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

void measureDrag(benchmark::State& state, Stage& stage, int object)
{
    StageSurface surface(stage);
    surface.show();
    QApplication::processEvents();
    PaintCount count;
    surface.installEventFilter(&count);
    stage.raisePanel(object);
    QPoint at = stage.panel(object).rect.center();
    send(surface, QEvent::MouseButtonPress, at, Qt::LeftButton);
    std::vector<double> steps;
    for (auto _ : state) {
        at += (steps.size() / 40) % 2 == 0 ? QPoint(3, 1) : QPoint(-3, -1);
        steps.push_back(moved(surface, at));
    }
    state.counters["frames_per_step"] = count.paints / static_cast<double>(steps.size());
    std::sort(steps.begin(), steps.end());
    state.counters["median_ms"] = steps[steps.size() / 2];
    state.counters["p99_ms"] = steps[steps.size() * 99 / 100];
    send(surface, QEvent::MouseButtonRelease, at, Qt::LeftButton);
}

bool writeMessage(const QString& path, qint64 size)
{
    const auto file = readBytes(debianMessage);
    if (!file)
        return false;
    const Bytes archive(file->begin(), file->end());
    std::vector<CpioMember> members = *readCpio(archive);
    std::vector<std::unique_ptr<Bytes>> pictures;
    qint64 total = file->size();
    for (int number = 1; total < size && number < 100; ++number) {
        pictures.push_back(std::make_unique<Bytes>(background(number)));
        const QString name = u"back_%1.jpg"_s.arg(number, 2, 10, QLatin1Char('0'));
        members.push_back({name.toStdString(), 0, *pictures.back()});
        total += static_cast<qint64>(pictures.back()->size());
    }
    const auto packed = *gzipCompress(*writeCpio(members), "#message", 0, 6);
    const auto* bytes = reinterpret_cast<const char*>(packed.data());
    return DiskFiles().write(path, {bytes, static_cast<qsizetype>(packed.size())}).ok();
}

bool openTemplate(Editor& editor)
{
    const QString path = editor.folder.filePath(u"template.gz"_s);
    return editor.files.copy(editor.run.AppPath + u"/data/GFX.GZ"_s, path) &&
           editor.window->openGfxboot(path);
}

double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

} // namespace fennel

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir state; // for unsaved work
    qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()));
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
