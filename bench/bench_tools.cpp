// SPDX-License-Identifier: MIT
// The commands on pictures and texts in the window, from the choice to the painted frame.
#include "editor.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/problems/problem_link.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>

#include <cmath>

namespace {

using namespace fennel;
using namespace Qt::StringLiterals;

// Waves with some grain: about as hard to code as a photograph.
bool writePhoto(const QString& path, int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    quint32 grain = 1;
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) {
            grain = grain * 1664525 + 1013904223;
            const int wave = static_cast<int>(90 * std::sin(x * 0.01 + std::cos(y * 0.02)));
            const int value = 120 + wave + static_cast<int>(grain >> 28);
            line[x] = qRgb(value, 255 - value, (x + y) & 255);
        }
    }
    return picture.save(path, "jpeg", 90);
}

void import12Megapixels(benchmark::State& state)
{
    Editor editor;
    editor.prompts.chosen = editor.folder.filePath(u"photo.jpg"_s);
    if (!openTemplate(editor) || !writePhoto(editor.prompts.chosen, 4000, 3000))
        return state.SkipWithError("no photograph");
    for (auto _ : state) {
        editor.window->commands().run(u"mnuEdit_ChangeBack"_s);
        editor.paint();
    }
    if (!FileExists(editor.run.Workspace + u"back.#pg"_s))
        state.SkipWithError("not imported");
}
BENCHMARK(import12Megapixels)->Unit(benchmark::kMillisecond)->UseRealTime();

void resize20Backgrounds(benchmark::State& state)
{
    Editor editor;
    const QString photo = editor.folder.filePath(u"photo.jpg"_s);
    if (!openTemplate(editor) || !writePhoto(photo, 1600, 1200))
        return state.SkipWithError("no photograph");
    editor.prompts.typed = u"4"_s;
    for (auto _ : state) {
        state.PauseTiming();
        for (int i = 0; i < 20; ++i)
            (void)editor.files.copy(photo, editor.run.Workspace + u"back_%1.jpg"_s.arg(i + 10));
        (void)editor.files.copy(photo, editor.run.BackFile);
        editor.run.BackWidth = 1600;
        state.ResumeTiming();
        editor.window->commands().run(u"mnuEdit_Resize"_s);
        editor.paint();
    }
    if (QImage(editor.run.Workspace + u"back_29.jpg"_s).size() != QSize(1024, 768))
        state.SkipWithError("not resized");
}
BENCHMARK(resize20Backgrounds)->Unit(benchmark::kMillisecond)->UseRealTime();

// A text of 1 MB, opened until it is painted, saved until the lists show its length.
void textOpenedAndSaved(benchmark::State& state)
{
    Editor editor;
    if (!openTemplate(editor))
        return state.SkipWithError("no template");
    const QString path = editor.run.Workspace + u"ZUK_Read.txt"_s;
    (void)editor.files.write(
        path,
        QByteArray("A line of a text that explains what stands in the menu.\r\n").repeated(18'000));
    RightPanel& panel = editor.window->rightPanel();
    Q_EMIT panel.tabClicked(TabGfxboot);
    const ListRows& list = *editor.bench.params.list(TabGfxboot);
    const int number = list.findMember(u"ZUK_Read.txt"_s);
    for (auto _ : state) {
        panel.view(TabGfxboot)->select(number);
        Q_EMIT panel.rowSelected(TabGfxboot, number, false);
        if (!EditTextFile(*editor.window))
            return state.SkipWithError("no text");
        QCoreApplication::processEvents();
        editor.paint();
        Q_EMIT panel.editor().textButtonClicked(ValueEditor::SaveText);
        editor.paint();
    }
}
BENCHMARK(textOpenedAndSaved)->Unit(benchmark::kMillisecond)->UseRealTime();

// From a value to the list of problems that it makes and unmakes.
void problemsAfterEdit(benchmark::State& state)
{
    Editor editor;
    if (!openTemplate(editor))
        return state.SkipWithError("no template");
    ProblemLink& link = editor.window->problemLink();
    const auto settle = [&link] {
        while (!link.current())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    settle();
    int x = 700;
    for (auto _ : state) {
        Change change;
        change.params[{0, 2}] = ParamValue{x, false, {}}; // of the clock
        x = 1500 - x;
        (void)editor.bench.document.apply(change, {});
        settle();
    }
    if (link.problems().size() > 1)
        state.SkipWithError("other problems than that of the clock");
}
BENCHMARK(problemsAfterEdit)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
