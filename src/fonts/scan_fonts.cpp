// SPDX-License-Identifier: MIT
#include "fonts/scan_fonts.h"

#include "base/files.h"
#include "base/text.h"
#include "base/words.h"
#include "container/member_table.h"
#include "fonts/fnt_bytes.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_inspection.h"
#include "fonts/font_tag.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb headingColour = 0xff800000;
constexpr QRgb calculatedColour = 0xff888888;

// What one file says of itself.
struct FontFileFacts {
    QString name;
    QByteArray bytes;
    qint64 length = 0;
    int entries = 0;
    int height = 0;
    int line = 0;
};

// What counts until the first font of the gfxboot is read, or if it has none.
FontRecord standardRecord(const QString& defaultFontName)
{
    FontRecord record;
    record.FontHeight = 23;
    record.LineHeight = 19;
    record.Symbols = u"175"_s;
    record.FontName = defaultFontName.isEmpty() ? u"Tahoma"_s : defaultFontName;
    record.Size = 14.0;
    return record;
}

bool fontsSupported(const RunState& run)
{
    return run.GfxHasCfg || run.GfxHasZuk;
}

// The later test wins: generation 3 may have a cfg file too.
QString versionText(const RunState& run, bool tagged)
{
    QString text = Words::tr("Gfxboot version is too old. Font in an unsupported format. ");
    if (run.GfxHasCfg)
        text = Words::tr("Gfxboot v3.3 custom. Supports one font. ");
    if (run.GfxHasZuk)
        text = Words::tr("Gfxboot @ZUK-MOSA@. Multi Font Support. ");
    if (tagged)
        return text;
    if (fontsSupported(run))
        text += Words::tr("\nTag @ZUK-MOSA@ is missing. ");
    return text + Words::tr("\nThe real font is undefined. Will be shown of calculated font.");
}

void addHeading(FontState& fonts, const RunState& run, const FontFileFacts& file)
{
    const int number =
        AddFontInfoRow(fonts, file.name, {}, {}, run.Workspace + file.name, headingColour);
    // The heading stands for the member: commands for files act on it.
    ListRow& row = *fonts.rows.row(number);
    row.kind = RowKind::Font;
    row.name = file.name;
}

// The record as far as it follows from the heights of the file.
void calculate(FontRecord& record, const FontFileFacts& file, const FontScanSettings& settings)
{
    const double inches = pointsPerInch / settings.logPixelsY;
    record.FontHeight = static_cast<qint16>(file.height);
    record.LineHeight = static_cast<qint16>(file.line);
    record.Symbols = QString::number(file.entries);
    record.FontName = settings.defaultFontName;
    // Two pixels of the height count as air around the letters.
    record.Size = (file.height - 2) * inches;
    record.LineSpace =
        static_cast<qint16>(std::max(0, roundToEven((file.line - file.height + 2) * inches)));
    record.LetterSpace = 0;
    record.Bold = false;
    record.Italic = false;
}

void addFacts(FontState& fonts, FontRecord& record, const RunState& run, const FontFileFacts& file,
              const FontScanSettings& settings)
{
    AddFontInfoRow(fonts, Words::tr("Length"), QString::number(file.length), Words::tr("bytes"));
    // Fonts of generation 1 have another format, so none of the fields below would mean anything.
    if (!fontsSupported(run)) {
        AddFontInfoRow(fonts, Words::tr("Unsupported"), u"fnt"_s, Words::tr("format"));
        return;
    }
    AddFontInfoRow(fonts, Words::tr("Set"), QString::number(file.entries), Words::tr("symbols"));
    AddFontInfoRow(fonts, Words::tr("Fontheight"), QString::number(file.height), Words::tr("px"));
    AddFontInfoRow(fonts, Words::tr("Lineheight"), QString::number(file.line), Words::tr("px"));
    calculate(record, file, settings);
}

void addCalculatedRows(FontState& fonts, const FontRecord& record)
{
    AddFontInfoRow(fonts, {}, Words::tr("DEFAULT"), record.FontName, {}, calculatedColour);
    AddFontInfoRow(fonts, {}, Words::tr("Calculated Size"),
                   QString::number(record.Size, 'g', std::numeric_limits<double>::digits10) +
                       Words::tr(" pt"),
                   {}, calculatedColour);
    AddFontInfoRow(fonts, {}, Words::tr("Calculated LineSpace"),
                   QString::number(record.LineSpace) + Words::tr(" px"), {}, calculatedColour);
}

// Keys that the program writes into tags; what another one wrote stands as it is.
[[maybe_unused]] constexpr const char* tagKeys[] = {Words::mark("size"), Words::mark("space"),
                                                    Words::mark("letter space"),
                                                    Words::mark("line space")};

void addTagRows(FontState& fonts, FontRecord& record, const FontFileFacts& file)
{
    const FoundTag found = findTag(file.bytes);
    if (!found.found) {
        AddFontInfoRow(fonts, u"@ZUK-MOSA@"_s, Words::tr("tag"), Words::tr("...MISSING"), {},
                       calculatedColour);
        addCalculatedRows(fonts, record);
        return;
    }
    const FontTag& tag = found.tag;
    AddFontInfoRow(fonts, tag.genuine ? u"@ZUK-MOSA@"_s : u"INFO"_s, Words::tr("TAG"),
                   tag.description);
    for (const TagItem& item : tag.items)
        AddFontInfoRow(fonts, {}, Words::tr(item.key.toUtf8().constData()),
                       QString(item.value).replace(u" px"_s, Words::tr(" px")));
    // Over the calculated values: the tag knows what the font was made from.
    applyTag(tag, record);
    if (tag.items.empty())
        addCalculatedRows(fonts, record);
}

void scanFile(FontState& fonts, const RunState& run, const FontScanSettings& settings,
              const FontFileFacts& file)
{
    fonts.FontVersionText = versionText(run, hasSignature(file.bytes));
    FontRecord& record = fonts.table[static_cast<std::size_t>(fonts.FontNumber - firstFontNumber)];
    addHeading(fonts, run, file);
    addFacts(fonts, record, run, file, settings);
    addTagRows(fonts, record, file);
}

FontFileFacts factsOf(const QString& name, const QString& path, QByteArray bytes)
{
    FontFileFacts file;
    file.name = name;
    file.length = fileSize(path);
    file.entries = FontSymbolCount(bytes);
    file.height = byteAt(bytes, 8);
    file.line = byteAt(bytes, 10);
    file.bytes = std::move(bytes);
    return file;
}

// The beginning of a file, as far as a font can reach; nothing if it cannot be read.
std::optional<QByteArray> fontBytes(const QString& path)
{
    const Result<QByteArray> front = readFront(path, fontReadLimit);
    return front ? std::optional(*front) : std::nullopt;
}

} // namespace

QString fontFileName(int fontNumber)
{
    if (fontNumber == firstFontNumber)
        return mainFontName;
    return u"16x16_"_s + QString::number(fontNumber).right(2) + u".fnt"_s;
}

void ScanFonts(FontState& fonts, const RunState& run, const FontScanSettings& settings,
               const QString& name, int mode)
{
    fonts.inspection.List1.clear();
    // Emptied first, so nothing of the gfxboot before stays, also if it has no font.
    fonts.rows = ListRows();
    fonts.rows.columns = {Words::tr("File"), Words::tr("Value"), Words::tr("Unit")};
    // Record n belongs to font number firstFontNumber + n; gaps stay empty records.
    fonts.table.assign(fontCount, FontRecord());
    fonts.table[0] = standardRecord(settings.defaultFontName);
    for (int number = firstFontNumber; number <= lastFontNumber; ++number) {
        const QString member = fontFileName(number);
        const QString path = run.Workspace + member;
        std::optional<QByteArray> bytes = fontBytes(path);
        if (!bytes)
            continue;
        fonts.FontNumber = number;
        const FontFileFacts file = factsOf(member, path, std::move(*bytes));
        // Only the font asked for goes into the inspection list.
        if (member == name)
            startInspection(fonts.inspection, member, file.bytes);
        scanFile(fonts, run, settings, file);
        if (member == name && mode == fillInspection)
            listCharacters(fonts.inspection, file.bytes, file.length);
    }
}

int AddFontInfoRow(FontState& fonts, const QString& column1, const QString& column2,
                   const QString& column3, const QString& iconFile, QRgb colour)
{
    ListRow row;
    row.kind = RowKind::FontFact;
    row.number = fonts.FontNumber - firstFontNumber;
    for (const QString& text : {column1, column2, column3})
        row.texts.append(trimBlanks(text).toString());
    row.tip = fonts.FontVersionText;
    if (colour != 0)
        row.colour = colour;
    row.iconFile = iconFile;
    fonts.rows.rows.push_back(std::move(row));
    return fonts.rows.count();
}

} // namespace fennel
