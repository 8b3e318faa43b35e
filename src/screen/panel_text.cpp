// SPDX-License-Identifier: MIT
#include "screen/panel_text.h"

#include "base/text.h"
#include "base/words.h"
#include "fonts/font_substitution.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Colours of the button bar's keys and words; no parameter sets them.
constexpr QRgb keyColour = qRgb(255, 255, 100);
constexpr QRgb wordColour = qRgb(250, 250, 230);
constexpr double smallestFont = 5;   // points: below, nobody could read it
constexpr double largestFont = 2000; // points: a font file may claim any size
// The name of the language stands below the word "Language".
constexpr int lowerRowItem = 4;

// A button of the bar: the key that hides it, and the place of its two items. `gone` is the item
// that moves it to the second place when hidden; -1: it never moves.
struct ButtonPlace {
    QLatin1StringView key;
    int x;
    int xWhenGone;
    int gone;
    bool fromRight;
};
constexpr std::array<ButtonPlace, buttonItems> buttons = {{
    {"hide_help"_L1, 10, 10, -1, false},
    {"hide_help"_L1, 33, 33, -1, false},
    {"hide_lang"_L1, 83, 10, 0, false},
    {"hide_lang"_L1, 108, 33, 0, false},
    {"hide_lang"_L1, 108, 33, 0, false},
    {"hide_reboot"_L1, 223, 125, 8, true},
    {"hide_reboot"_L1, 197, 91, 8, true},
    {"hide_poweroff"_L1, 125, 125, -1, true},
    {"hide_poweroff"_L1, 91, 91, -1, true},
}};

bool isItem(int item)
{
    return item >= 0 && item < buttonItems;
}

// A few letters more than pixels tell it for all texts but those of letters without a width.
bool tooWide(QStringView text, int limit, const MeasureText& measure)
{
    const qsizetype enough = std::max(0, limit) + 1;
    return measure(text.left(enough)) >= limit || (text.size() > enough && measure(text) >= limit);
}

// Appends the output lines of one source line, as long as any are wanted.
void wrapLine(QStringView line, int limit, const MeasureText& measure, int& wanted, QString& out)
{
    // Most lines fit: one measure instead of one for each word.
    qsizetype start = 0;
    for (; start < line.size() && tooWide(line.mid(start), limit, measure); --wanted) {
        if (wanted <= 0)
            return;
        qsizetype cut = -1;
        qsizetype blank = line.indexOf(u' ', start);
        while (blank >= 0 && measure(line.mid(start, blank - start)) < limit) {
            cut = blank;
            blank = line.indexOf(u' ', blank + 1);
        }
        if (cut < 0)
            cut = blank;
        if (cut < 0)
            break; // one word, however wide
        out.append(line.mid(start, cut - start)).append(u'|');
        start = cut + 1;
    }
    out.append(line.mid(start)).append(u'|');
    --wanted;
}

// The lines that can be seen on the panel; a text of megabytes has many more.
int linesSeen(const TextJob& job, const StageScale& scale)
{
    const double pitch = (job.size + 3 + job.spacing) * scale.factor();
    if (job.height <= 0 || job.index == ButtonsPanelRow || pitch <= 0)
        return allLines;
    const double room = job.height - job.offset.y() * scale.factor();
    return static_cast<int>(std::clamp(room / pitch, 0.0, 1e6)) + 1;
}

// The text up to the end of that many lines, whichever ends they have.
QString firstLines(const QString& text, int lines)
{
    qsizetype end = 0;
    for (; end < text.size() && lines > 0; ++end) {
        const QChar c = text[end];
        lines -= c == u'|' || c == u'\n' ? 1 : 0;
    }
    return text.left(end);
}

TextPiece buttonPiece(const TextJob& job, int item, const QString& line, const StageScale& scale,
                      const ButtonVisible& visible)
{
    // One line of the font further down, with the usual 3 pixels between lines.
    const double row = item == lowerRowItem ? job.size + 3 : 0;
    return {line,
            {scale.shown(ButtonX(item, job.backWidth, visible)),
             roundToEven((row + 1) * scale.factor())},
            line.startsWith(u'F') ? keyColour : wordColour};
}

} // namespace

QString hideKey(int item)
{
    return isItem(item) ? QString(buttons[static_cast<std::size_t>(item)].key) : QString();
}

int ButtonX(int item, int backWidth, const ButtonVisible& visible)
{
    if (!isItem(item))
        return 0;
    const ButtonPlace& place = buttons[static_cast<std::size_t>(item)];
    const int x = place.gone < 0 || visible(place.gone) ? place.x : place.xWhenGone;
    return place.fromRight ? backWidth - x : x;
}

QString onOffCaption(int item, bool visible)
{
    constexpr std::array<QLatin1StringView, 4> keys = {"F1"_L1, "F2"_L1, "F9"_L1, "F10"_L1};
    // Only the words have captions, not the keys before them.
    if (item < 1 || item > 7 || item % 2 == 0)
        return {};
    const QLatin1StringView key = keys[static_cast<std::size_t>(item / 2)];
    return (visible ? Words::tr("Hide %1 button") : Words::tr("Show %1 button")).arg(key);
}

QString WrapPanelText(const QString& text, int limit, const MeasureText& measure, int mostLines)
{
    QString out;
    for (const QStringView line : QStringView(text).split(u'|')) {
        if (mostLines <= 0)
            break;
        wrapLine(line, limit, measure, mostLines, out);
    }
    return out;
}

// Font 0 stands in for one that is missing.
int usableFont(const FontTable& fonts, qint64 wanted)
{
    const bool known = wanted >= 0 && wanted < static_cast<qint64>(fonts.size()) &&
                       !fonts[static_cast<std::size_t>(wanted)].FontName.isEmpty();
    return known ? static_cast<int>(wanted) : 0;
}

QFont panelFont(const FontRecord& record, const StageScale& scale, const QStringList& families)
{
    QFont font;
    setFace(font, shownFamily(record.FontName, families), record.Bold, record.Italic);
    const double points = std::clamp(record.Size * scale.factor(), smallestFont, largestFont);
    // Pixels, not points: the boot screen has 96 dots to the inch, whatever this screen has.
    font.setPixelSize(std::max(1, roundToEven(points * 96 / 72)));
    return font;
}

std::vector<TextPiece> layOutText(const TextJob& job, const StageScale& scale,
                                  const MeasureText& measure, const ButtonVisible& visible)
{
    const int seen = linesSeen(job, scale);
    QString text = firstLines(job.text, seen);
    // Texts come from members as well, with line ends of their own.
    text.remove(u'\r').replace(u'\n', u'|');
    const QStringList lines = WrapPanelText(text, job.width, measure, seen).split(u'|');
    std::vector<TextPiece> pieces;
    for (int i = 0; i < static_cast<int>(lines.size()); ++i) {
        const QString& line = lines[i];
        // Nothing to draw, but the line counts: the others keep their distance.
        if (line.isEmpty())
            continue;
        if (job.index == ButtonsPanelRow) {
            if (isItem(i) && visible(i))
                pieces.push_back(buttonPiece(job, i, line, scale, visible));
            continue;
        }
        // Line by line from the unscaled sizes, so that roundings do not add up.
        const double y = i * (job.size + 3 + job.spacing) + job.offset.y();
        pieces.push_back(
            {line, {scale.shown(job.offset.x()), roundToEven(y * scale.factor())}, job.colour});
    }
    return pieces;
}

} // namespace fennel
