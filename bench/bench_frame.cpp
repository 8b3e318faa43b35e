// SPDX-License-Identifier: MIT
// What people wait for: a message file until it is shown, and the program until its window is
// painted. Beside them, in the same run, what the plain tools need for the same file. The files are
// Debian's, made larger with backgrounds; the window is real, its screen is not.
#include "container/cpio.h"
#include "container/gzip.h"
#include "frame/main_window.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QBuffer>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>
#include <sys/resource.h>

namespace {

using namespace fennel;
using namespace Qt::StringLiterals;

using Bytes = std::vector<std::uint8_t>;

const QString program = QStringLiteral(FENNEL_BIN_DIR "/fennel-gfx");
const QString debianMessage = u"/etc/bootsplash/themes/upstream/bootloader/message"_s;

class QuietPrompts : public Prompts {
public:
    using Prompts::ShowMessage;
    Answer ShowMessage(const QString& text, MessageType, const QString&) override
    {
        qFatal("%s", qPrintable(text));
    }
    QString openFile(const FileQuestion&) override { return {}; }
    QString saveFile(const FileQuestion&) override { return {}; }
    QString ChooseFolder(const QString&) override { return {}; }
    std::optional<QString> input(const QString&, const QString&, const QString&) override
    {
        return {};
    }
    std::optional<QColor> colour(const QColor&) override { return {}; }
};

// One run of the program, as main makes it.
class Editor {
public:
    Editor()
    {
        run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
        run.CurrentLang = u"0409"_s;
        run.ToolCpio = run.AppPath + u"/Tools/CPIO/cpio_bridge"_s;
        run.Tool7Zip = run.AppPath + u"/Tools/7-Zip/7zip_bridge"_s;
        run.WorkspaceRoot = folder.filePath(u"root/"_s);
        (void)files.makeFolder(run.WorkspaceRoot);
        window = std::make_unique<MainWindow>(bench);
        window->show();
        QCoreApplication::processEvents();
    }
    QTemporaryDir folder;
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    SettingsStore store{folder.filePath(u"settings.ini"_s)};
    Workbench bench{{run, log, files, prompts, tools}, store};
    std::unique_ptr<MainWindow> window;
};

// A background of about 200 KB.
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

// A gzipped message whose archive has about `size` bytes.
void writeMessage(const QString& path, qint64 size)
{
    const QByteArray file = *readBytes(debianMessage);
    const Bytes archive(file.begin(), file.end());
    std::vector<CpioMember> members = *readCpio(archive);
    std::vector<std::unique_ptr<Bytes>> pictures;
    qint64 total = file.size();
    for (int number = 1; total < size && number < 100; ++number) {
        pictures.push_back(std::make_unique<Bytes>(background(number)));
        const QString name = u"back_%1.jpg"_s.arg(number, 2, 10, QLatin1Char('0'));
        members.push_back({name.toStdString(), 0, *pictures.back()});
        total += static_cast<qint64>(pictures.back()->size());
    }
    const auto packed = *gzipCompress(*writeCpio(members), "#message", 0, 6);
    (void)DiskFiles().write(path, QByteArray(reinterpret_cast<const char*>(packed.data()),
                                             static_cast<qsizetype>(packed.size())));
}

QString messageOf(const QTemporaryDir& folder, qint64 size)
{
    const QString path = folder.filePath(u"message.gz"_s);
    writeMessage(path, size);
    return path;
}

// Processor time of this process and of the tools that it waited for; unlike the time that passed,
// it tells the same on a busy machine.
double processorMs()
{
    double sum = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage = {};
        getrusage(who, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            sum += static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    }
    return sum;
}

void openToShown(benchmark::State& state)
{
    if (!FileExists(debianMessage))
        return state.SkipWithError("no message file of Debian here");
    const QTemporaryDir folder;
    const QString path = messageOf(folder, state.range(0));
    Editor editor;
    const double before = processorMs();
    for (auto _ : state) {
        if (!editor.window->openGfxboot(path))
            return state.SkipWithError("not opened");
        editor.window->repaint();
        QCoreApplication::processEvents();
        state.PauseTiming();
        (void)editor.files.removeFolder(editor.run.Workspace); // the next open is a first one too
        state.ResumeTiming();
    }
    state.counters["processorMs"] =
        (processorMs() - before) / static_cast<double>(state.iterations());
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peakMB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

void plainTools(benchmark::State& state)
{
    if (!FileExists(debianMessage))
        return state.SkipWithError("no message file of Debian here");
    const QTemporaryDir folder;
    const QString path = messageOf(folder, state.range(0));
    const double before = processorMs();
    for (auto _ : state) {
        const QTemporaryDir out;
        QProcess shell;
        shell.setWorkingDirectory(out.path());
        shell.start(u"sh"_s, {u"-c"_s, u"gzip -dc '%1' | cpio -i --quiet"_s.arg(path)});
        shell.waitForFinished();
    }
    state.counters["processorMs"] =
        (processorMs() - before) / static_cast<double>(state.iterations());
}

// Qt tells when a window's pixels are handed to the window system.
void startToPainted(benchmark::State& state)
{
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_RUNTIME_DIR"_s, u"Temp"_s})
        environment.insert(name, folder.path());
    environment.insert(u"QT_LOGGING_RULES"_s, u"qt.widgets.painting=true"_s);
    environment.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
    for (auto _ : state) {
        QProcess editor;
        editor.setProcessEnvironment(environment);
        editor.setProcessChannelMode(QProcess::MergedChannels);
        editor.start(program, QStringList());
        QByteArray said;
        while (!said.contains("Flushing") && editor.waitForReadyRead(5000))
            said += editor.readAll();
        state.PauseTiming();
        if (!said.contains("Flushing"))
            state.SkipWithError("no window");
        editor.kill();
        editor.waitForFinished();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(startToPainted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(openToShown)->Arg(450'000)->Arg(4'400'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(plainTools)->Arg(450'000)->Arg(4'400'000)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
