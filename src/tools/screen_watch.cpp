// SPDX-License-Identifier: MIT
#include "tools/screen_watch.h"

#include "base/words.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <unordered_map>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr int columns = 80;
constexpr int textRows = 25;

// Processor time of QEMU, in ms, in which a guest would have gone on drawing: between the
// background and the menu on it an engine reckons for longer than one might think, on its own slow
// processor; and the number of equal dumps behind which it is believed to wait, as one that waits
// may use no time at all.
constexpr qint64 drawingWork = 900; // on a screen of 800x600; larger ones take longer
constexpr qint64 longestDrawing = 2000;
constexpr qint64 fastDrawing = 150; // by the computer's own processor
constexpr int equalDumps = 25;
// So long, in ms from one dump to the next, one that idles waits at most for a processor.
constexpr qint64 idleWaiting = 10;
// Some themes reckon for seven seconds before they draw anything on the empty screen.
constexpr qint64 emptyWork = 12'000;
constexpr int emptyDumps = 400;
// Clock, running line and animation never rest; nor is a menu drawn at one stroke.
constexpr double movingShare = 0.03;
constexpr double movingPatience = 1.1; // times as long as for a screen that does rest
// Between two lines a loader reads files and sets modes.
constexpr qint64 loadingWork = 1500;
constexpr int equalTexts = 60;

struct KnownText {
    const char16_t* part;
    const char* meaning; // see Words
    bool certain;
};
// The first that is found counts.
constexpr KnownText knownTexts[] = {
    {u"invalid file format",
     Words::mark("The loader does not take the message: it has no working boot engine (the member "
                 "init), or "
                 "is no plain archive. syslinux boots no gzipped message."),
     true},
    {u"Error setting up gfxboot",
     Words::mark(
         "The boot engine gave up: it found no screen mode that suits, or too little memory."),
     true},
    {u"Could not find kernel",
     Words::mark("The menu booted an entry; there is nothing behind it here."), true},
    {u"No bootable device",
     Words::mark("The menu booted an entry; there is nothing behind it here."), true},
    {u"gfxboot.c32: not a COM32R image",
     Words::mark("gfxboot.c32 and syslinux are of different versions."), true},
    {u"Failed to load", Words::mark("The loader could not load one of its own files."), true},
    {u"Missing operating system", Words::mark("The stick of the test does not boot."), true},
    {u"Out of memory", Words::mark("The message does not fit into the memory."), true},
    {u"boot:", Words::mark("The loader waits at its own prompt: the menu was left."), false},
    {u"grub>", Words::mark("The loader waits at its own prompt: the menu was left."), false},
};

// The next number of a PPM's head, and the place behind it.
int number(const QByteArray& file, qsizetype& at)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    while (at < file.size() && isSpace(file[at]))
        ++at;
    int value = 0;
    for (; at < file.size() && file[at] >= '0' && file[at] <= '9' && value < 100'000; ++at)
        value = value * 10 + (file[at] - '0');
    return value;
}

// The share of pieces of 64 pixels in which something differs.
double movedShare(const ScreenDump& one, const ScreenDump& other)
{
    constexpr qsizetype piece = qsizetype{3} * 64;
    const qsizetype size = one.file.size() - one.pixelsAt;
    qsizetype pieces = 0;
    qsizetype moved = 0;
    for (qsizetype at = 0; at < size; at += piece, ++pieces) {
        const auto length = static_cast<std::size_t>(std::min(piece, size - at));
        moved += std::memcmp(one.file.constData() + one.pixelsAt + at,
                             other.file.constData() + other.pixelsAt + at, length) != 0;
    }
    return pieces == 0 ? 0 : static_cast<double>(moved) / static_cast<double>(pieces);
}

bool hasOneColour(const ScreenDump& dump)
{
    if (dump.size.isEmpty())
        return true;
    const char* pixels = dump.file.constData() + dump.pixelsAt;
    const auto size = static_cast<std::size_t>(dump.file.size() - dump.pixelsAt);
    // Every pixel is equal to the one before.
    return std::memcmp(pixels, pixels + 3, size - 3) == 0;
}

// Code page 437 as far as loaders write it; frames and the like are no words.
QChar letter(char code)
{
    const auto byte = static_cast<unsigned char>(code);
    return byte > ' ' && byte < 0x7F ? QChar(char16_t{byte}) : QChar(u' ');
}

} // namespace

ScreenDump::ScreenDump(const QByteArray& ppm)
{
    qsizetype at = 2;
    if (!ppm.startsWith("P6"))
        return;
    const int width = number(ppm, at);
    const int height = number(ppm, at);
    const bool bytes = number(ppm, at) == 255;
    pixelsAt = at + 1;
    if (!bytes || ppm.size() - pixelsAt != qsizetype{3} * width * height)
        return;
    file = ppm;
    size = {width, height};
}

QStringList screenText(const QByteArray& memory)
{
    QStringList lines;
    for (int row = 0; row < textRows; ++row) {
        QString line;
        for (int column = 0; column < columns; ++column) {
            const qsizetype at = 2 * (qsizetype{row} * columns + column);
            line += at < memory.size() ? letter(memory[at]) : QChar(u' ');
        }
        while (line.endsWith(u' '))
            line.chop(1);
        if (!line.isEmpty())
            lines.append(line);
    }
    return lines;
}

TextMeaning meaningOf(const QStringList& text)
{
    for (const KnownText& known : knownTexts) {
        const QString part = QString::fromUtf16(known.part);
        const bool found = std::ranges::any_of(text, [&part](const QString& line) {
            return line.contains(part, Qt::CaseInsensitive);
        });
        if (found)
            return {Words::tr(known.meaning), known.certain};
    }
    return {};
}

double mostFrequentColour(const QImage& picture)
{
    constexpr int step = 3; // one pixel of nine tells enough
    std::unordered_map<QRgb, int> counts;
    int all = 0;
    int most = 0;
    for (int y = 0; y < picture.height(); y += step) {
        for (int x = 0; x < picture.width(); x += step, ++all)
            most = std::max(most, ++counts[picture.pixel(x, y)]);
    }
    return all == 0 ? 0 : static_cast<double>(most) / all;
}

void RestWatch::Still::count(bool equal, const MachineTime& now)
{
    // One that waits for the processor would have gone on.
    const bool held = now.waited - last.waited > idleWaiting;
    same = equal;
    idle = !equal ? 0 : held ? idle : idle + 1;
    if (!equal)
        since = now.work;
    last = now;
}

bool RestWatch::Still::lasts(qint64 needed, int enough) const
{
    return same && (last.work - since >= needed || idle >= enough);
}

void RestWatch::startOver()
{
    m_last = {};
    m_lastText.clear();
}

bool RestWatch::pictureRests(const ScreenDump& dump, const MachineTime& now)
{
    constexpr QSize unset(640, 480);
    m_begun = m_begun || (!dump.size.isEmpty() && dump.size != unset);
    const bool comparable =
        m_begun && !dump.isText() && dump.size == m_last.size && dump.pixelsAt == m_last.pixelsAt;
    const double moved = comparable ? movedShare(dump, m_last) : 1;
    m_equal.count(moved == 0, now);
    m_moving.count(moved <= movingShare, now);
    m_last = dump;
    m_empty = m_begun && hasOneColour(dump);
    if (m_empty)
        return m_equal.lasts(emptyWork, emptyDumps);
    const qint64 work = neededWork(dump.size);
    return m_equal.lasts(work, equalDumps) ||
           m_moving.lasts(std::lround(static_cast<double>(work) * movingPatience), 2 * equalDumps);
}

qint64 RestWatch::neededWork(QSize size) const
{
    if (m_fast)
        return fastDrawing;
    constexpr qint64 pixels = qint64{800} * 600;
    return std::clamp(drawingWork * size.width() * size.height() / pixels, drawingWork / 2,
                      longestDrawing);
}

bool RestWatch::textRests(const QStringList& text, const MachineTime& now)
{
    m_textual.count(!text.isEmpty() && text == m_lastText, now);
    m_lastText = text;
    return meaningOf(text).certain ? m_textual.same : m_textual.lasts(loadingWork, equalTexts);
}

} // namespace fennel
