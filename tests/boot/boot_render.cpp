// SPDX-License-Identifier: MIT
// Draws a folder of members as it boots:
//     boot_render FOLDER PICTURE.png [--title TEXT]... [--chosen N] [--clock HH:MM:SS]
//                 [--date YYYY-MM-DD] [--ticks N] [--timeout SECONDS]
#include "../../bench/quiet_prompts.h"
#include "document/document.h"
#include "document/opening.h"
#include "menus/menu_overlay.h"
#include "screen/boot_screen.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

void openFolder(const Shell& shell, const QString& folder)
{
    RunState& run = shell.run;
    run.AppPath = QStringLiteral(FENNEL_BIN_DIR);
    run.CurrentLang = u"0409"_s;
    run.Workspace = QDir(folder).absolutePath() + u'/';
    run.GfxOpened = true;
    run.GfxHasCfg = QFileInfo::exists(run.Workspace + u"gfxboot.cfg"_s);
    run.GfxHasZuk = QFileInfo::exists(run.Workspace + u"ZUK0000.CFG"_s);
    run.gfxboot_var = run.GfxHasZuk ? 3 : run.GfxHasCfg ? 2 : 1;
    run.ObjectCount = run.GfxHasZuk ? 40 : 4;
    (void)measureBackground(shell);
}

// Everything that is not open yet is as File / Open leaves it.
void readDocument(Document& document)
{
    document.loadCatalogue();
    document.readLevels();
    document.readConfigLines();
    document.buildObjects();
    if (document.generation() == Generation::Three)
        document.listValues(false);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser words;
    words.addOptions({{u"title"_s, {}, u"text"_s},
                      {u"chosen"_s, {}, u"n"_s, u"0"_s},
                      {u"clock"_s, {}, u"time"_s, u"12:34:56"_s},
                      {u"date"_s, {}, u"date"_s, u"2025-01-31"_s},
                      {u"ticks"_s, {}, u"n"_s, u"0"_s},
                      {u"timeout"_s, {}, u"seconds"_s, u"0"_s}});
    words.process(application);
    if (words.positionalArguments().size() != 2)
        words.showHelp(2);

    RunState run;
    Log log;
    DiskFiles files;
    QuietPrompts prompts;
    ProcessToolRunner tools;
    const Shell shell{run, log, files, prompts, tools};
    const FontTable fonts(fontCount);
    openFolder(shell, words.positionalArguments()[0]);
    Document document(shell, fonts);
    readDocument(document);
    const QStringList titles = words.values(u"title"_s);
    document.setMenuValues([&](ZUKarr& table) {
        MenuOverlay(u"title "_s + titles.join("\ntitle "_L1), run.GfxHasZuk, table);
    });

    BootScreen screen;
    BootRequest request{document.state(), run.Workspace, run.gfxboot_var, titles};
    request.chosen = words.value(u"chosen"_s).toInt();
    request.menuValues = true;
    request.moment.ticks = words.value(u"ticks"_s).toInt();
    request.moment.timeout = words.value(u"timeout"_s).toInt();
    request.moment.clock = QTime::fromString(words.value(u"clock"_s), u"HH:mm:ss"_s);
    request.moment.date = QDate::fromString(words.value(u"date"_s), Qt::ISODate);
    (void)screen.update(request);
    for (const auto& [row, rect] : screen.objects())
        std::printf("%d %d %d %d %d\n", row, rect.x(), rect.y(), rect.width(), rect.height());
    return screen.picture().save(words.positionalArguments()[1]) ? 0 : 1;
}
