// SPDX-License-Identifier: MIT
#include "fonts/font_inspection.h"

#include "base/files.h"
#include "base/words.h"
#include "fonts/fnt_bytes.h"
#include "fonts/font_substitution.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Also the sign that there is no glyph to draw.
const QString noBitmap = u"---"_s;

QString decimalPadded(int value, int digits)
{
    return QString::number(value).rightJustified(digits, u'0').right(digits);
}

// Grouped as the fields are: magic, count, the three heights.
QString headerRow(const QByteArray& file)
{
    QString text;
    for (int i = 0; i < static_cast<int>(fntHeaderSize); ++i) {
        text += HexByte(byteAt(file, i));
        if (i == 3 || i == 7)
            text += u' ';
    }
    return text + u"..."_s;
}

// The character of a row, decoded by the table of the file as it is now.
std::optional<Glyph> glyphAt(const QByteArray& file, int index)
{
    const auto table = readFntTable(asSpan(file));
    if (!table || index < 0 || static_cast<std::size_t>(index) >= table->size())
        return std::nullopt;
    const Result<Glyph> glyph =
        decodeGlyph(asSpan(file), (*table)[static_cast<std::size_t>(index)]);
    return glyph ? std::optional<Glyph>(*glyph) : std::nullopt;
}

} // namespace

void startInspection(FontInspection& inspection, const QString& name, const QByteArray& file)
{
    inspection.component = name;
    inspection.List1 = {Words::tr("File name: ") + name,
                        Words::tr("Symbols in set: %1, Fontheight:%2px, Lineheight:%3px")
                            .arg(FontSymbolCount(file))
                            .arg(byteAt(file, 8))
                            .arg(byteAt(file, 10))};
}

QString characterRowText(const QByteArray& file, int index)
{
    const qsizetype place = entryPlace(index);
    const TableEntry entry = tableEntry(file, index);
    return HexBytes(file, 2, place) + u' ' + HexBytes(file, 3, place + 2) + u'|' +
           QChar(static_cast<char16_t>(entry.code)) + u"|UTF 0x"_s + hexPadded(entry.code, 4) +
           u'=' + decimalPadded(entry.code, 4) + u" | chr data="_s +
           decimalPadded(entry.offset, 5) + u" 0x"_s +
           QString::number(entry.chrData, 16).toUpper() + Words::tr(" ==> offset=0x") +
           hexPadded(entry.offset, 4);
}

void listCharacters(FontInspection& inspection, const QByteArray& file, qint64 fileLength)
{
    const int count = FontSymbolCount(file);
    inspection.List1.append(headerRow(file));
    inspection.FontBytes = file.left(static_cast<qsizetype>(fntHeaderSize) +
                                     count * static_cast<qsizetype>(fntEntrySize));
    inspection.FontOffsets.clear();
    for (int i = 0; i < count; ++i) {
        inspection.FontOffsets.push_back(tableEntry(file, i).offset);
        inspection.List1.append(characterRowText(file, i));
    }
    // The file's end closes the last glyph, so each has an end.
    inspection.FontOffsets.push_back(static_cast<int>(std::min<qint64>(fileLength, readLimit)));
}

QString GetChrBitmap(FontInspection& inspection, const RunState& run, int index)
{
    const std::vector<int>& offsets = inspection.FontOffsets;
    if (index < 1 || static_cast<std::size_t>(index) >= offsets.size())
        return noBitmap;
    const int start = offsets[static_cast<std::size_t>(index - 1)];
    const int end = offsets[static_cast<std::size_t>(index)];
    const Result<QByteArray> file = readBytes(run.Workspace + inspection.component);
    // Read again at each click: the member may have been replaced since the listing.
    inspection.FontBytes = file ? file->left(qsizetype{end} + 1) : QByteArray();
    const int count = std::min(end - start, shownGlyphBytes);
    const QString text = HexBytes(inspection.FontBytes, count, start);
    return end - start > shownGlyphBytes ? text + u"..."_s : text;
}

CharacterView clickOnCharacter(FontInspection& inspection, const RunState& run, int row)
{
    CharacterView view;
    QString bitmap = noBitmap;
    // The name in the first row tells whether the list is one of a font member.
    if (inspection.List1.value(0).contains(u"16x16"_s))
        bitmap = GetChrBitmap(inspection, run, row - characterRow + 1);
    view.message = Words::tr("Position in set =") + QString::number(row) + u'\n' +
                   inspection.List1.value(row) + Words::tr("\n\nChr bitmap representation:\n") +
                   bitmap;
    if (bitmap == noBitmap)
        return view;
    const Result<QByteArray> file = readBytes(run.Workspace + inspection.component);
    if (const auto header = file ? readFntHeader(asSpan(*file)) : file.failure(); header) {
        view.header = *header;
        view.glyph = glyphAt(*file, row - characterRow);
    }
    return view;
}

QString rightClickText(int row)
{
    return Words::tr("Planned: Calling PopupMenu for List1(%1)").arg(row);
}

QString middleClickText()
{
    return u"It's roll"_s;
}

FontSample fontSample(const FontState& fonts, int row, const QStringList& families)
{
    const ListRow* shown = fonts.rows.row(row);
    const int record = shown != nullptr ? shown->number : 0;
    FontSample sample;
    if (shown != nullptr)
        sample.text = shown->tip + u'\n';
    sample.record = fonts.table[static_cast<std::size_t>(record)];
    const ShownFamily family = shownFamily(sample.record.FontName, families);
    if (!family.note.isEmpty())
        sample.text += family.note + u'\n';
    // The stand-in is what is shown; the note above says so.
    sample.record.FontName = family.family;
    sample.face = family;
    sample.text += Words::tr(" This is an example of the font used.");
    return sample;
}

OpenInspection openInspection(const RunState& run, const QString& name)
{
    if (!run.GfxHasCfg && !run.GfxHasZuk)
        return {Words::tr("Too old version of the gfxboot.\nFonts are not supported"), {}};
    return {{}, name};
}

} // namespace fennel
