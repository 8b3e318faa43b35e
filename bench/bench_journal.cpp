// SPDX-License-Identifier: MIT
// What an edit waits for while unsaved work is kept: the snapshot, at most once a second. The disk
// has a thread of its own. Limit: 1 ms.
#include "editor.h"

#include <benchmark/benchmark.h>

namespace {

using namespace fennel;
using namespace Qt::StringLiterals;

// Arguments: bytes of the archive (0: the template of generation 3), and whether members changed
// since the last time, too.
void snapshot(benchmark::State& state)
{
    Editor editor;
    const QString path = editor.folder.filePath(u"message.gz"_s);
    const bool opened = state.range(0) == 0 ? openTemplate(editor)
                                            : writeMessage(path, state.range(0)) &&
                                                  editor.window->openGfxboot(path);
    if (!opened)
        state.SkipWithError("no message file of Debian here");
    Workbench& bench = editor.bench;
    bench.document.markUnsaved();
    (void)bench.journal.flush();
    for (auto _ : state) {
        state.PauseTiming();
        (void)bench.journal.flush();
        if (state.range(1) != 0)
            (void)bench.shell.files.write(
                editor.run.Workspace + u"init"_s,
                QByteArray(static_cast<int>(state.iterations()) % 97, 'x'));
        state.ResumeTiming();
        bench.journal.write();
    }
    (void)bench.journal.flush();
}
BENCHMARK(snapshot)
    ->Args({0, 0})
    ->Args({0, 1})
    ->Args({4'400'000, 0})
    ->Args({4'400'000, 1})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(40);

} // namespace
