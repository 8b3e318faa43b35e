// SPDX-License-Identifier: MIT
// Fonts: the texts of the character set, the page of the dialog.
#include "editor/fonts/char_page.h"
#include "fonts/font_dialog.h"
#include "fonts/installed_fonts.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// The worst set: every other code, 32,768 tokens.
CharSelected everyOther()
{
    CharSelected set;
    for (std::size_t code = 1; code < set.size(); code += 2)
        set[code] = true;
    return set;
}

void formatRanges(benchmark::State& state)
{
    const CharSelected set = everyOther();
    for (auto step : state)
        benchmark::DoNotOptimize(FormatCharacterRanges(set));
}
BENCHMARK(formatRanges)->Unit(benchmark::kMicrosecond);

void parseRanges(benchmark::State& state)
{
    const QString text = FormatCharacterRanges(everyOther());
    for (auto step : state)
        benchmark::DoNotOptimize(ParseCharacterRanges(text));
}
BENCHMARK(parseRanges)->Unit(benchmark::kMicrosecond);

// The installed font with the most characters.
QString largestFont()
{
    QString largest;
    std::size_t most = 0;
    for (const InstalledFont& font : installedFonts()) {
        const std::size_t characters = charactersOf(QRawFont(font.path, 15)).count();
        if (characters > most) {
            most = characters;
            largest = font.path;
        }
    }
    return largest;
}

// The page on screen: from the scroll bar's move to painted pixels, each page for the first time.
void turnPage(benchmark::State& state)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    std::array<char, 6> name{"bench"};
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QApplication app(count, arguments.data());
    const CharSelected set = startingCharacters();
    CharPage shown(set, nullptr);
    const QString path = largestFont();
    const QRawFont face(path, 15);
    const CharSelected there = charactersOf(face);
    shown.setFace(face, QFont(), there);
    shown.show();
    QApplication::processEvents();
    QPixmap screen(shown.size());
    int page = 0;
    double slowest = 0;
    for (auto step : state) {
        QElapsedTimer timer;
        timer.start();
        page = (page + 1) % pageCount;
        shown.setPage(page);
        shown.render(&screen);
        slowest = std::max(slowest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    state.SetLabel(path.section(u'/', -1).toStdString());
    state.counters["characters"] = static_cast<double>(there.count());
    state.counters["slowest_ms"] = slowest;
}
BENCHMARK(turnPage)->Iterations(pageCount)->Unit(benchmark::kMillisecond);

} // namespace
