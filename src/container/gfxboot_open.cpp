// SPDX-License-Identifier: MIT
#include "container/gfxboot_open.h"

#include "container/archive_tools.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "container/staging.h"

#include <QImageReader>

#include <array>

namespace fennel {

namespace {

using Step = OpenHost::Step;
// The order matters: lists before what is drawn from them, fonts before the stage that measures
// text with them, the generation before the tabs that show its objects.
constexpr std::array<Step, 9> fillSteps = {Step::Menus,       Step::Members, Step::Config,
                                           Step::Backgrounds, Step::Fonts,   Step::Stage,
                                           Step::Generation,  Step::Tabs,    Step::Logos};

// People know the file that they chose, not what was unwrapped from it.
Failure aboutFile(const Failure& failure, const QString& archive, const QString& path)
{
    QString text = QString::fromStdString(failure.text);
    return {failure.kind, text.replace(archive, path).toStdString(), failure.told};
}

// Unwraps and extracts `path` into an empty folder. True if it was wrapped.
Result<bool> extract(const Shell& shell, const QString& path, const QString& folder)
{
    const Result<QString> inner = SevenZipExtract(shell, path, folder);
    if (!inner && inner.failure().kind == FailureKind::Canceled)
        return inner.failure();
    const bool wrapped = inner && !inner->isEmpty();
    const QString archive = wrapped ? withSeparator(folder) + *inner : path;
    // Tried also if the unwrapping failed: a plain archive needs no 7-Zip.
    const Result<void> extracted = CpioInfoExtract(shell, archive, folder);
    if (!extracted && extracted.failure().kind == FailureKind::Canceled)
        return extracted.failure();
    // Why a file cannot be unwrapped says more than that it is no archive.
    if (!extracted && !inner)
        return inner.failure();
    // A tool that is missing was told; what an earlier run left in the folder may still serve.
    if (!extracted && !extracted.failure().told)
        return aboutFile(extracted.failure(), archive, path);
    return wrapped;
}

// Everything is extracted beside the Workspace first, so that a broken file spoils nothing.
Result<bool> fillFolder(const Shell& shell, const QString& path, const QString& folder)
{
    const Staging staging(shell, QStringLiteral("#open"));
    if (Result<void> made = staging.made(); !made)
        return made.failure();
    Result<bool> wrapped = extract(shell, path, staging.path());
    if (!wrapped)
        return wrapped;
    // Members of an earlier open under this name that the new file lacks stay there.
    if (Result<void> delivered = shell.files.moveFiles(staging.path(), folder); !delivered)
        return delivered.failure();
    return wrapped;
}

void showFailure(const Shell& shell, const QString& reason)
{
    QString text = QStringLiteral(
        "ERROR. File back.jpg not found!\n"
        "              This is really a \"gfxboot message\"-file?\n"
        "\n"
        "\"Gfxboot message\" is a cpio-archive, but additionally it can be compressed with gZip.\n"
        "You can specify only those variants!");
    if (!reason.isEmpty())
        text += QStringLiteral("\n\n") + reason;
    shell.prompts.ShowMessage(text);
}

// Whether the gfxboot has that member: what another file of the same name left in the folder is
// none.
bool holds(const QString& folder, const QString& name)
{
    return FileExists(folder + name) &&
           (!FileExists(folder + memberListName) || isListed(folder, name));
}

// Only after the members are in place: until then the run still shows the gfxboot before.
void setRunState(const Shell& shell, const QString& path, const QString& folder, bool wrapped)
{
    RunState& run = shell.run;
    run.GfxIsGz = wrapped;
    run.GfxPath = path;
    run.Workspace = folder;
    run.GfxFileName = namePart(path);
    run.GfxOpened = true;
    run.BackFile = folder + mainBackName;
    run.GfxHasCfg = holds(folder, cfgMemberName);
    run.GfxHasZuk = holds(folder, QStringLiteral("ZUK0000.CFG"));
    // The newest sign wins: a generation 3 file may still hold the cfg of generation 2.
    run.gfxboot_var = run.GfxHasZuk ? 3 : run.GfxHasCfg ? 2 : 1;
    run.ObjectCount = run.GfxHasZuk ? 40 : 4;
}

void measureBack(const Shell& shell, OpenHost& host)
{
    if (measureBackground(shell.run))
        return;
    shell.prompts.ShowMessage(QStringLiteral("%1 is not a picture that can be shown.\n"
                                             "The screen counts as %2x%3 until it is changed.")
                                  .arg(namePart(shell.run.BackFile))
                                  .arg(fallbackBackWidth)
                                  .arg(fallbackBackHeight));
    host.backgroundRefused();
}

void fillAll(const Shell& shell, OpenHost& host)
{
    // Objects of the gfxboot before must not flash up over the new background.
    host.hideObjects();
    measureBack(shell, host);
    host.fill(Step::Pictures);
    if (shell.run.GfxHasZuk) {
        host.fill(Step::Levels);
        // The level files say which background is shown, so they are read before it is.
        shell.run.BackFile = backgroundFile(shell.run.Workspace, host.chosenBackground());
    }
    for (const Step step : fillSteps) {
        if (step != Step::Logos || shell.run.GfxHasZuk)
            host.fill(step);
    }
    host.fill(Step::Show);
}

} // namespace

bool measureBackground(RunState& run)
{
    // From the picture's header alone. Places on the screen are kept in 16 bits.
    const QSize size = QImageReader(run.Workspace + QStringLiteral("back.jpg")).size();
    constexpr int limit = 32767;
    const bool readable = size.isValid() && size.width() <= limit && size.height() <= limit;
    run.BackWidth = readable ? size.width() : fallbackBackWidth;
    run.BackHeight = readable ? size.height() : fallbackBackHeight;
    return readable;
}

bool gfxboot_open(const Shell& shell, const QString& path, OpenHost& host)
{
    shell.WriteLog(QStringLiteral("gfxboot_open -----v\n"));
    host.openBegins();
    const QString folder = shell.run.WorkspaceRoot + namePart(path) + QLatin1Char('/');
    const Result<bool> wrapped = fillFolder(shell, path, folder);
    // "back.jpg" is what every generation has: an archive without it is no boot screen.
    const bool opened = wrapped && FileExists(folder + mainBackName);
    if (opened) {
        setRunState(shell, path, folder, *wrapped);
        fillAll(shell, host);
        shell.WriteLog(QStringLiteral("gfxboot_open -----^"));
    } else {
        const Failure failure = wrapped ? Failure{FailureKind::Unsupported, {}} : wrapped.failure();
        (void)shell.tell(failure, [&](const QString& reason) { showFailure(shell, reason); });
        if (failure.kind == FailureKind::Canceled)
            host.openCanceled();
    }
    host.openEnds(opened);
    return opened;
}

} // namespace fennel
