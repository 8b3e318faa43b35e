// SPDX-License-Identifier: MIT
// What benchmarks open: one run of the program, as main makes it, with a user who answers at once,
// and message files for it; or a gfxboot without a window. A window is real, its screen is not.
#pragma once

#include "editor/stage/silent_host.h"
#include "editor/stage/stage.h"
#include "editor/window/main_window.h"
#include "quiet_prompts.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <memory>

namespace fennel {

// What a run stands on.
struct Run {
    QTemporaryDir folder;
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
};

class Editor : public Run {
public:
    Editor();
    // The frame that is due, painted now.
    void paint();

    UserStore store{folder.filePath(QStringLiteral("settings.ini"))};
    Workbench bench{{run, log, files, prompts, tools}, store};
    std::unique_ptr<MainWindow> window;
};

// A gfxboot of generation 3, open without a window; its Workspace is empty.
struct OpenGfxboot : Run {
    explicit OpenGfxboot(QSize back);

    Shell shell{run, log, files, prompts, tools};
    FontTable fonts = FontTable(fontCount);
    Document document{shell, fonts};
    SilentHost host;
};

// The size that a benchmark's first two numbers name.
QSize sizeOf(const benchmark::State& state);
// Steps of a drag of that object, from the mouse event to the painted frame: median_ms and p99_ms.
void measureDrag(benchmark::State& state, Stage& stage, int object);

// Writes a gzipped message file of Debian's, made as large as asked for (bytes of its archive) with
// backgrounds of about 200 KB. False if this machine has none.
bool writeMessage(const QString& path, qint64 size);
// The template, open as a gfxboot of generation 3.
bool openTemplate(Editor& editor);

// The peak of this process's memory so far.
double peakMegabytes();

} // namespace fennel
