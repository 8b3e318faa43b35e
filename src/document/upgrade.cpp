// SPDX-License-Identifier: MIT
#include "document/upgrade.h"

#include "base/files.h"
#include "container/cpio.h"
#include "container/gzip.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_tag.h"
#include "params/menu_fit.h"
#include "params/zuk_table.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int recordSize = 4; // value in three bytes, number in one

struct LevelValue {
    int file;
    int number;
    qint64 value;
};

// What the older engines do not show, and how they behave.
constexpr auto olderScreen = std::to_array<LevelValue>({
    {0, 1, 0},     // clock
    {0, 11, 0},    // date
    {0, 19, 0},    // help only on F1
    {0, 20, 0},    // until it is closed
    {0, 29, 0},    //
    {0, 31, 0},    // second hand
    {0, 39, 0},    // all in the one font that they have
    {0, 47, 255},  // no ground under the menu
    {0, 67, 0},    // windows hide what is under them
    {0, 69, 0},    //
    {0, 75, 0},    // Esc leaves the menu
    {0, 76, 0x1b}, //
    {0, 77, 0},    // all titles are entries
    {0, 79, 1},    //
    {0, 99, 0},    // back.jpg
    {2, 1, 0},     // running line
    {3, 1, 0},     // coloured glass
    {4, 1, 0},     // timers
    {5, 1, 0},     //
    {6, 1, 0},     //
    {7, 1, 1},     // a panel while something is loaded
    {7, 7, 0},     //
    {7, 9, 0},     //
    {8, 1, 0},     // animation
    {15, 1, 1},    // messages
    {15, 7, 0},    //
    {15, 9, 0},    //
});

// How the older engines lay out their menu, in pixels.
constexpr int letterInset = 10; // of an entry's letters in its bar
constexpr int barOver = 4;      // of the bar over the letters' height
constexpr int lineGap = 3;      // that our engine adds to a font's size

qint64 number(QRgb colour)
{
    return colour & 0xFFFFFFU;
}

void placeMenu(const CfgLook& look, std::map<int, qint64>& base)
{
    base[41] = std::max(1, look.entries);
    base[42] = std::max(0, look.menu.x());
    base[43] = std::max(0, look.menu.y());
    base[54] = std::max(0, look.barMinWidth);
    base[48] = number(look.normal);
    base[56] = number(look.bar);
    base[57] = std::clamp(look.barTransparency, 0, 255);
    base[58] = number(look.selected);
}

// The slit takes whole pixels of the distance between lines, the rest is kept beside it.
void fitLines(const CfgLook& look, const MenuFont& font, LevelRecords& levels)
{
    const int pitch = font.height * 3 / 2;
    const int quarters = std::max(0, 4 * (pitch - lineGap) - font.quarters);
    levels[0][40] = quarters / 4;
    levels[menuFitFile] = {{FitInsetX, letterInset},
                           {FitInsetY, barOver / 2},
                           {FitBarHeight, font.height + barOver},
                           {FitQuarters, quarters % 4},
                           {FitBeside, std::clamp(look.barBeside, 0, 255)},
                           {FitCentred, look.centred ? 1 : 0},
                           {FitOnlyOptions, 1}};
}

void placeOptions(const CfgLook& look, std::map<int, qint64>& base)
{
    base[22] = std::max(0, look.caret.x() + 1);
    base[23] = std::max(0, look.caret.y() + 1);
    base[24] = look.options ? std::max<qint64>(0, look.screen.width() - base[22]) : 0;
    base[28] = number(look.optionsText);
}

void colourWindows(const CfgLook& look, LevelRecords& levels)
{
    const qint64 back = number(look.windowBack);
    const qint64 text = number(look.windowText);
    levels[0][66] = levels[7][6] = levels[15][6] = back;
    levels[0][68] = levels[7][8] = levels[15][8] = levels[15][17] = text;
    levels[7][22] = number(look.progress);
}

std::map<int, qint64> recordsFrom(const QByteArray& bytes)
{
    std::map<int, qint64> records;
    for (qsizetype at = 0; at + recordSize <= bytes.size(); at += recordSize) {
        const auto byte = [&](int i) { return qint64{static_cast<std::uint8_t>(bytes[at + i])}; };
        if (byte(3) > 0)
            records[static_cast<int>(byte(3))] = byte(0) | byte(1) << 8 | byte(2) << 16;
    }
    return records;
}

QByteArray bytesOf(const std::map<int, qint64>& records)
{
    QByteArray bytes;
    for (const auto& [id, value] : records) {
        for (const int shift : {0, 8, 16})
            bytes.append(static_cast<char>(value >> shift & 0xff));
        bytes.append(static_cast<char>(id));
    }
    return bytes;
}

Result<std::map<QString, QByteArray>> templateMembers(const Shell& shell)
{
    const Result<QByteArray> packed = readBytes(shell.run.AppPath + u"/data/GFX.GZ"_s);
    if (!packed)
        return packed.failure();
    const Result<GzipContents> archive = gzipDecompress(spanOf(*packed));
    if (!archive)
        return archive.failure();
    const auto members = readCpio(archive->data);
    if (!members)
        return members.failure();
    std::map<QString, QByteArray> files;
    for (const CpioMember& member : *members)
        files[QString::fromStdString(member.name)] =
            QByteArray(reinterpret_cast<const char*>(member.data.data()),
                       static_cast<qsizetype>(member.data.size()));
    return files;
}

// A logo would be shown, a background or a further font might be.
bool isForObjects(const QString& name)
{
    const MemberKind kind = memberKind(name);
    return name == mainFontName || ((kind == MemberKind::Picture || kind == MemberKind::Text) &&
                                    name != mainBackName && !fitsPattern(name, backPattern) &&
                                    (name == logoMaskName || !fitsPattern(name, logoPattern)));
}

} // namespace

MenuFont menuFont(const QByteArray& file)
{
    const Result<FntHeader> header = readFntHeader(spanOf(file));
    if (!header || header->magic != fntMagic)
        return {22, 4 * 14};
    const int height = header->fontHeight;
    MenuFont font{height, 3 * (height - 2)};
    FontRecord record;
    if (const FoundTag tag = findTag(file); tag.found)
        applyTag(tag.tag, record);
    // The engine reads whole points.
    if (record.Size >= 1)
        font.quarters = 4 * static_cast<int>(std::min(record.Size, 255.0));
    return font;
}

LevelRecords levelsOfLook(const CfgLook& look, const MenuFont& font, LevelRecords base)
{
    for (const LevelValue& fixed : olderScreen)
        base[fixed.file][fixed.number] = fixed.value;
    placeMenu(look, base[0]);
    placeOptions(look, base[0]);
    fitLines(look, font, base);
    colourWindows(look, base);
    return base;
}

Result<std::map<QString, QByteArray>> upgradedFiles(const Shell& shell, const CfgLook& look)
{
    Result<std::map<QString, QByteArray>> brought = templateMembers(shell);
    if (!brought)
        return brought;
    const QString& folder = shell.run.Workspace;
    std::map<QString, QByteArray> files;
    LevelRecords levels;
    for (const auto& [name, bytes] : *brought) {
        if (memberKind(name) == MemberKind::Levels)
            levels[QStringView(name).sliced(3, 4).toInt()] = recordsFrom(bytes);
        else if (isForObjects(name) && !isListed(folder, name))
            files[name] = bytes;
    }
    files[u"init"_s] = (*brought)[u"init"_s];
    const auto standard = files.find(mainFontName);
    const Result<QByteArray> font =
        standard != files.end() ? standard->second : readBytes(folder + mainFontName);
    levels = levelsOfLook(look, menuFont(font ? *font : QByteArray()), std::move(levels));
    for (const auto& [file, records] : levels)
        files[levelFileName(file)] =
            records.empty() ? (*brought)[levelFileName(file)] : bytesOf(records);
    return files;
}

} // namespace fennel
