// SPDX-License-Identifier: MIT
#include "app/end_signals.h"
#include "app/single_instance.h"
#include "app/startup.h"
#include "base/build_time.h"
#include "base/file_names.h"
#include "base/words.h"
#include "editor/window/file_drop.h"
#include "editor/window/main_window.h"
#include "editor/window/qt_prompts.h"
#include "editor/window/window_progress.h"
#include "fonts/installed_fonts.h"

#include <QApplication>
#include <QTimer>

using namespace fennel;

namespace {

// Brings the copy that runs already to the front. It opens the file; without one, or if it does not
// answer, the user is told why there is no second window.
void yieldToOther(const SingleInstance& instance, Prompts& prompts, const QString& file)
{
    // Read first: the token belongs to the user's action that started this copy.
    const QString token = activationToken();
    if (!file.isEmpty() && sendToInstance(instanceFolder(), {token, file}))
        return;
    prompts.ShowMessage(Words::tr("One copy of %1 is already running").arg(programTitle()),
                        MessageType::Stop, Words::tr("ERROR"));
    (void)instance.askOtherToRaise(token);
}

// Behind the program's name, as the system gave them: the toolkit's own words lose what is no
// UTF-8.
QStringList wordsOf(int argc, char** argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(pathOfBytes(argv[i]));
    return words;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(programTitle());
    QApplication::setOrganizationName(programTitle());
    QApplication::setDesktopFileName(QStringLiteral("fennel-gfx"));
    QApplication::setQuitOnLastWindowClosed(true);

    RunState run;
    Log log;
    DiskFiles files;
    QtPrompts prompts;
    ProcessToolRunner tools;
    tools.logTo(log);
    prompts.setPictures([&]() -> PictureTool& { return tools.pictures(run.ToolNConvert); });
    SingleInstance instance;
    const QStringList words = wordsOf(argc, argv);
    const QString file = fileToOpen(words, currentFolder());
    if (!instance.acquire()) {
        yieldToOther(instance, prompts, file);
        return 0;
    }
    UserStore store;
    Workbench workbench({run, log, files, prompts, tools}, store);
    run.BuildTime = buildTime();
    const StartInput input{QApplication::applicationDirPath(), words, run.BuildTime,
                           [] { return installedFontList(); },
                           [&workbench] { workbench.useLanguage(); }};
    if (Form_Initialize(workbench.shell, store, input) == NextStep::EndProcess)
        return 0;
    log.WriteLog(QStringLiteral("Form_Load Start"));
    resetRun(run);
    if (makeWorkspaceRoot(workbench.shell) == NextStep::EndProcess)
        return 1;
    workbench.fontSettings.defaultFontName = DefaultFontName(workbench.shell, installedFontList());
    MainWindow window(workbench);
    prompts.setParent(&window);
    tools.showIn(window.progress());
    FileDrop drops(window);
    QObject::connect(&instance, &SingleInstance::raiseRequested, &window,
                     [&window](const QString& token) { raiseWindow(window, token); });
    QObject::connect(&instance, &SingleInstance::openRequested, &window,
                     [&window](const QString& path) { window.openFromElsewhere(path); });
    log.WriteLog(QStringLiteral("Form_Load End"));
    const EndSignals signals;
    QObject::connect(&signals, &EndSignals::endRequested, &app, &QApplication::quit);
    int result = 0;
    if (settingsFileThere(workbench.shell) == NextStep::GoOn) {
        window.show();
        // The first picture need not wait for the bridge.
        QTimer::singleShot(0, &window, [&] { workbench.shell.pictures().start(); });
        if (!file.isEmpty())
            QTimer::singleShot(0, &window, [&] { window.openFromElsewhere(file); });
        result = QApplication::exec();
    }
    // Nothing was asked, and nothing is lost.
    (void)workbench.journal.flush();
    Form_Unload(workbench.shell);
    return result;
}
