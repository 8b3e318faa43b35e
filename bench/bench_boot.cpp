// SPDX-License-Identifier: MIT
// The preview as it boots, on the template with a background of another size: a step of a drag from
// the mouse event to the painted frame, and the first picture of a long menu.
#include "container/cpio.h"
#include "container/gzip.h"
#include "editor.h"
#include "fonts/fnt_bytes.h"
#include "screen/boot_screen.h"

#include <QFile>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

bool unpackTemplate(const QString& folder, QSize size)
{
    DiskFiles files;
    QFile packed(QStringLiteral(FENNEL_BIN_DIR "/data/GFX.GZ"));
    if (!packed.open(QIODevice::ReadOnly))
        return false;
    const auto archive = gzipDecompress(asSpan(packed.readAll()));
    if (!archive)
        return false;
    const auto members = readCpio(archive->data);
    if (!members)
        return false;
    for (const CpioMember& member : *members)
        (void)files.write(folder + QString::fromStdString(member.name),
                          {reinterpret_cast<const char*>(member.data.data()),
                           static_cast<qsizetype>(member.data.size())});
    const QString back = folder + u"back.jpg"_s;
    return QImage(back).scaled(size).save(back, "jpg", 90);
}

// A document on the template, opened as the window does.
struct Template : OpenGfxboot {
    explicit Template(QSize size) : OpenGfxboot(size)
    {
        there = unpackTemplate(run.Workspace, size);
        document.loadCatalogue();
        document.readLevels();
        document.buildObjects();
        document.listValues(false);
        QStringList titles;
        for (int i = 1; i <= 30; ++i)
            titles.append(u"Entry %1 of a menu that is longer than most"_s.arg(i));
        document.setMenuTitles(titles);
    }

    bool there = false;
};

void dragStep(benchmark::State& state)
{
    Template opened(sizeOf(state));
    if (!opened.there)
        return state.SkipWithError("no template");
    Stage stage(StageData{opened.shell, opened.document, opened.fonts, opened.host, {}});
    stage.adoptPanels();
    stage.setBackground(QImage(opened.run.Workspace + u"back.jpg"_s));
    stage.showAsItBoots(true);
    measureDrag(state, stage, static_cast<int>(state.range(2)));
}

void firstPicture(benchmark::State& state)
{
    Template opened({800, 600});
    if (!opened.there)
        return state.SkipWithError("no template");
    for (auto _ : state) {
        BootScreen screen;
        (void)screen.update(
            {opened.document.state(), opened.run.Workspace, 3, opened.document.menuTitles()});
        benchmark::DoNotOptimize(screen.picture());
    }
}

} // namespace

BENCHMARK(dragStep)
    ->Args({1024, 768, 5})
    ->Args({1024, 768, 0})
    ->Args({2560, 1440, 5})
    ->Args({2560, 1440, 0})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(firstPicture)->Unit(benchmark::kMillisecond);
