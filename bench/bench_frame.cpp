// SPDX-License-Identifier: MIT
// What people wait for: the program until its window is painted, a message file until it is shown,
// a value until it is seen, a save until the file is there. Beside open and save, in the same run,
// what the plain tools need for the same file.
#include "editor.h"
#include "editor/colour/colour_tools.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/row_cells.h"
#include "editor/stage/stage_link.h"
#include "large_menu.h"
#include "menus/menu_list.h"
#include "params/level_files.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>

namespace {

using namespace fennel;
using namespace Qt::StringLiterals;

const QString program = QStringLiteral(FENNEL_BIN_DIR "/fennel-gfx");
constexpr const char* noMessage = "no message file of Debian here";

// Qt tells when a window's pixels are handed to the window system.
void startToPainted(benchmark::State& state)
{
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name :
         {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_STATE_HOME"_s, u"XDG_RUNTIME_DIR"_s, u"Temp"_s})
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

void openToShown(benchmark::State& state)
{
    Editor editor;
    const QString path = editor.folder.filePath(u"message.gz"_s);
    if (!writeMessage(path, state.range(0)))
        return state.SkipWithError(noMessage);
    for (auto _ : state) {
        if (!editor.window->openGfxboot(path))
            return state.SkipWithError("not opened");
        editor.window->repaint();
        QCoreApplication::processEvents();
        state.PauseTiming();
        (void)editor.files.removeFolder(editor.run.Workspace); // the next open is a first one too
        state.ResumeTiming();
    }
    state.counters["peak_MB"] = peakMegabytes();
}

void runShell(benchmark::State& state, const QString& folder, const QString& line)
{
    QProcess shell;
    shell.setWorkingDirectory(folder);
    shell.start(u"sh"_s, {u"-c"_s, line});
    if (!shell.waitForFinished() || shell.exitCode() != 0)
        state.SkipWithError("the plain tools failed");
}

void openByPlainTools(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"message.gz"_s);
    if (!writeMessage(path, state.range(0)))
        return state.SkipWithError(noMessage);
    for (auto _ : state) {
        const QTemporaryDir out;
        runShell(state, out.path(), u"gzip -dc '%1' | cpio -i --quiet"_s.arg(path));
    }
}

double kilobytes(const QString& path)
{
    return static_cast<double>(QFileInfo(path).size()) / 1e3;
}

void saveWhole(benchmark::State& state)
{
    Editor editor;
    const QString path = editor.folder.filePath(u"message.gz"_s);
    if (!writeMessage(path, state.range(0)) || !editor.window->openGfxboot(path))
        return state.SkipWithError(noMessage);
    for (auto _ : state)
        editor.window->commands().run(u"mnuFile_Save"_s);
    state.counters["KB"] = kilobytes(path);
}

void saveByPlainTools(benchmark::State& state)
{
    Editor editor;
    const QString path = editor.folder.filePath(u"message.gz"_s);
    if (!writeMessage(path, state.range(0)) || !editor.window->openGfxboot(path))
        return state.SkipWithError(noMessage);
    const QString line =
        u"tr -d '\\r' < '#.lst' | cpio -o -H bin --quiet | gzip -9 > '%1'"_s.arg(path);
    for (auto _ : state)
        runShell(state, editor.run.Workspace, line);
    state.counters["KB"] = kilobytes(path);
}

// Runs the steps and tells of their times besides the mean the median and the slowest but for one
// in a hundred.
template <class Step>
void timeSteps(benchmark::State& state, const Step& step)
{
    std::vector<double> times;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        step();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["p99_ms"] = times[times.size() * 99 / 100];
}

void selectObject(Editor& editor, int object)
{
    Q_EMIT editor.window->rightPanel().tabClicked(editor.bench.params.TabIndex(object));
    editor.paint();
}

// The argument is the object: 22 is the running line, 8 the help panel, the largest that there is.
void sliderStep(benchmark::State& state)
{
    Editor editor;
    if (!openTemplate(editor))
        return state.SkipWithError("no template");
    selectObject(editor, static_cast<int>(state.range(0)));
    QSlider& slider = editor.window->colourTools().slider(0);
    timeSteps(state, [&] {
        slider.setValue((slider.value() + 1) % 256);
        editor.paint();
    });
}

void typedValue(benchmark::State& state)
{
    Editor editor;
    if (!openTemplate(editor))
        return state.SkipWithError("no template");
    selectObject(editor, 5);
    RightPanel& panel = editor.window->rightPanel();
    const int tab = editor.bench.params.CurrentTab;
    panel.view(tab)->select(4);
    Q_EMIT panel.rowSelected(tab, 4, false);
    int value = 0;
    timeSteps(state, [&] {
        Q_EMIT panel.rowActivated(tab, 4);
        panel.editor().setText(QString::number(++value % 200));
        Q_EMIT panel.editor().committed();
        editor.paint();
    });
    if (valueText(editor.bench.document, *editor.bench.params.list(tab)->row(4)) !=
        QString::number(value % 200))
        state.SkipWithError("the value did not reach the row");
}

// Undo and redo in turn of the clock moved, which lies over the menu then.
void undoOfMove(benchmark::State& state)
{
    Editor editor;
    constexpr int clock = 5;
    if (!openTemplate(editor))
        return state.SkipWithError("no template");
    Document& document = editor.bench.document;
    const PanelRec& panel = *document.object(clock);
    const int file = levelFileOf(panel);
    Change change;
    change.params[{file, panel.LeftParam}] = ParamValue{300, false, {}};
    change.params[{file, panel.TopParam}] = ParamValue{300, false, {}};
    if (!document.apply(change, {u"move"_s, {}, {}}))
        return state.SkipWithError("the clock did not move");
    editor.paint();
    bool back = false;
    timeSteps(state, [&] {
        back = !back;
        editor.window->commands().run(back ? u"mnuEdit_Undo"_s : u"mnuEdit_Redo"_s);
        editor.paint();
    });
}

void menuToShown(benchmark::State& state)
{
    Editor editor;
    const MenuDrive drive{u"E"_s, editor.folder.filePath(u"stick/"_s)};
    (void)editor.files.makeFolder(drive.folder);
    QString name = u"menu.lst"_s;
    (void)editor.files.write(drive.folder + name, largeMenu());
    if (!openTemplate(editor))
        return state.SkipWithError("no template");
    ParamLists& lists = editor.bench.params;
    for (auto _ : state) {
        MenuListFill(editor.bench.shell, drive, *lists.list(TabMenu));
        Document& document = editor.bench.document;
        document.setMenuValues([&](ZUKarr& table) {
            document.setMenuEntries(MenuApply(editor.bench.shell, drive, name, table));
        });
        editor.window->stageLink().stage().redraw(MenuPanelRow);
        for (int tab = TabMenu; tab <= lists.tabCount(); ++tab)
            editor.window->rightPanel().refreshList(tab);
        editor.paint();
    }
}

} // namespace

BENCHMARK(startToPainted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(openToShown)->Arg(450'000)->Arg(4'400'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(openByPlainTools)
    ->Arg(450'000)
    ->Arg(4'400'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(saveWhole)->Arg(4'400'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(saveByPlainTools)->Arg(4'400'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(sliderStep)->Arg(22)->Arg(8)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(undoOfMove)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(typedValue)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(menuToShown)->Unit(benchmark::kMillisecond)->UseRealTime();
