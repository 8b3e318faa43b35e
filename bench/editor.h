// SPDX-License-Identifier: MIT
// One run of the program, as main makes it, with a user who answers at once; and message files to
// open in it. The window is real, its screen is not.
#pragma once

#include "editor/window/main_window.h"
#include "quiet_prompts.h"

#include <QTemporaryDir>

#include <memory>

namespace fennel {

class Editor {
public:
    Editor();
    // The frame that is due, painted now.
    void paint();

    QTemporaryDir folder;
    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    UserStore store{folder.filePath(QStringLiteral("settings.ini"))};
    Workbench bench{{run, log, files, prompts, tools}, store};
    std::unique_ptr<MainWindow> window;
};

// Writes a gzipped message file of Debian's, made as large as asked for (bytes of its archive) with
// backgrounds of about 200 KB. False if this machine has none.
bool writeMessage(const QString& path, qint64 size);
// The template, open as a gfxboot of generation 3.
bool openTemplate(Editor& editor);

// The peak of this process's memory so far.
double peakMegabytes();

} // namespace fennel
