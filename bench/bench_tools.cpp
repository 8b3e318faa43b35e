// SPDX-License-Identifier: MIT
// The picture bridge with the start of its process, beside ImageMagick's `convert` on the same
// picture. Limits: a change of scale of a 1600x1200 background under 60 ms, the import of a 12
// megapixel photograph under 400 ms, 20 backgrounds to 1024x768 under 1.5 s.
#include "shell/tool_runner.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QTemporaryDir>

#include <cmath>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

const QString bridge = QStringLiteral(FENNEL_BIN_DIR "/Tools/nconvert/nconvert_bridge");
const QString convertProgram = u"/usr/bin/convert"_s;

// Waves with some grain: about as hard to encode as a photograph.
const QString& photo(int width, int height)
{
    static const QTemporaryDir folder;
    static QHash<int, QString> made;
    QString& path = made[width];
    if (!path.isEmpty())
        return path;
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
    path = folder.filePath(QString::number(width) + u".jpg"_s);
    picture.save(path, "jpeg", 90);
    return path;
}

void run(benchmark::State& state, const QStringList& line, int times = 1)
{
    ProcessToolRunner runner;
    for (auto _ : state) {
        for (int i = 0; i < times; ++i) {
            if (!runner.RunToolAndWait(line) || !runner.lastErrorOutput().isEmpty())
                state.SkipWithError("the tool failed");
        }
    }
}

QStringList bridgeLine(const QString& source, int width, int height)
{
    return {bridge,
            u"-out"_s,
            u"jpeg"_s,
            u"-overwrite"_s,
            u"-resize"_s,
            QString::number(width),
            QString::number(height),
            u"-q"_s,
            u"85"_s,
            u"-dpi"_s,
            u"72"_s,
            u"-rexifthumb"_s,
            u"-rmeta"_s,
            u"-o"_s,
            source + u".out.jpg"_s,
            source,
            u",0"_s};
}

QStringList convertLine(const QString& source, int width, int height)
{
    return {convertProgram,         source,
            u"-resize"_s,           QString::number(width) + u'x' + QString::number(height) + u'!',
            u"-quality"_s,          u"85"_s,
            source + u".out2.jpg"_s};
}

// The arguments are a picture's width and the percentage of the scale.
void scale(benchmark::State& state)
{
    const int width = static_cast<int>(state.range(0));
    const int height = width * 3 / 4;
    const int percent = static_cast<int>(state.range(1));
    run(state, bridgeLine(photo(width, height), width * percent / 100, height * percent / 100));
}
BENCHMARK(scale)
    ->Args({1600, 50})
    ->Args({1600, 66})
    ->Args({1600, 90})
    ->Args({1600, 125})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void scaleByConvert(benchmark::State& state)
{
    const int width = static_cast<int>(state.range(0));
    const int height = width * 3 / 4;
    const int percent = static_cast<int>(state.range(1));
    run(state, convertLine(photo(width, height), width * percent / 100, height * percent / 100));
}
BENCHMARK(scaleByConvert)
    ->Args({1600, 50})
    ->Args({1600, 66})
    ->Args({1600, 90})
    ->Args({1600, 125})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void import12Megapixels(benchmark::State& state)
{
    run(state, bridgeLine(photo(4000, 3000), 1024, 768));
}
BENCHMARK(import12Megapixels)->Unit(benchmark::kMillisecond)->UseRealTime();

void import12MegapixelsByConvert(benchmark::State& state)
{
    run(state, convertLine(photo(4000, 3000), 1024, 768));
}
BENCHMARK(import12MegapixelsByConvert)->Unit(benchmark::kMillisecond)->UseRealTime();

void resize20Backgrounds(benchmark::State& state)
{
    run(state, bridgeLine(photo(1600, 1200), 1024, 768), 20);
}
BENCHMARK(resize20Backgrounds)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
