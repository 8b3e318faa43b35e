// SPDX-License-Identifier: MIT
#include "fonts/font_dialog.h"

#include "base/files.h"
#include "base/text.h"
#include "base/words.h"
#include "fonts/fnt_bytes.h"

#include <QSet>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString editTitle()
{
    return Words::tr("Font. Edit ");
}
QString fromWord()
{
    return Words::tr("from ");
}

// The name without the words that say bold and italic.
QString plainName(const QString& name)
{
    return QString(name).remove(u" Bold"_s).remove(u" Italic"_s).remove(QStringLiteral(" Обычный"));
}

int codeOf(int page, int cell)
{
    return page * cellCount + cell;
}

} // namespace

// Control characters have no glyph: drawn, they would show as boxes or break the line.
QString cellGlyph(int page, int cell)
{
    if (page == 0 && cell < 0x20)
        return u" "_s;
    if (page == 0 && cell >= 0x7F && cell <= 0xA0)
        return {};
    return QString(QChar(static_cast<char16_t>(codeOf(page, cell))));
}

std::vector<FontFile> fontFiles(const QString& fontList)
{
    std::vector<FontFile> fonts;
    QSet<QString> known;
    const QStringList lines = fontList.split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const qsizetype arrow = line.lastIndexOf(u'>');
        const QString file = line.mid(arrow + 1);
        if (arrow < 0 || !file.contains(u".ttf"_s, Qt::CaseInsensitive))
            continue;
        const QString value = line.left(arrow);
        const QString name = value.left(value.indexOf(u"(TrueType)"_s)).trimmed();
        // The first file of a name is the one that counts.
        if (known.contains(name))
            continue;
        known.insert(name);
        const qsizetype folder = std::max(file.lastIndexOf(u'/'), file.lastIndexOf(u'\\'));
        fonts.push_back({name, file.mid(folder + 1)});
    }
    return fonts;
}

int placeOfFont(const std::vector<FontFile>& fonts, const QString& fontStyleName,
                const QString& usual)
{
    auto found = std::ranges::find(fonts, fontStyleName, &FontFile::name);
    // A tag has bold and italic behind all other words.
    const FontFile wanted{fontStyleName, {}};
    if (found == fonts.end())
        found = std::ranges::find_if(fonts, [&](const FontFile& font) {
            return font.bold() == wanted.bold() && font.italic() == wanted.italic() &&
                   plainName(font.name) == plainName(wanted.name);
        });
    if (found == fonts.end())
        found = std::ranges::find(fonts, usual, &FontFile::name);
    return found == fonts.end() ? 0 : static_cast<int>(found - fonts.begin());
}

QString extraStyle(const FontFile& font, const QString& family)
{
    const QString plain = plainName(font.name);
    const bool begins = !family.isEmpty() && plain.startsWith(family + u' ');
    return begins ? plain.mid(family.size() + 1) : QString();
}

QString tagFamily(const FontFile& font, const QString& family)
{
    const bool whole = family.isEmpty() || !extraStyle(font, family).isEmpty();
    return whole ? plainName(font.name) : family;
}

QString familyOfName(const QString& name, const QStringList& families)
{
    QString family = families.contains(name) ? name : QString();
    QString candidate = name;
    // The words are taken off one after the other; the last family found is the barest.
    for (const QString& word : {u" Bold"_s, u" Italic"_s, QStringLiteral(" Обычный")}) {
        candidate.remove(word);
        if (families.contains(candidate))
            family = candidate;
    }
    if (!family.isEmpty())
        return family;
    for (const QString& installed : families) {
        // The longest fitting family: "DejaVu Sans Mono" before "DejaVu Sans".
        if (installed.size() > family.size() && name.startsWith(installed + u' '))
            family = installed;
    }
    return family;
}

QString nameForTool(const QString& path, const QStringList& files)
{
    // The tool tries these endings behind the name, in any case.
    constexpr std::array endings{"", ".ttf", ".otf", ".ttc"};
    const QString name = namePart(path);
    const QString wanted = name.chopped(std::min(fontEndingLength, name.size())).toLower();
    const auto fits = [&](const QString& file) {
        const QString other = namePart(file).toLower();
        return std::ranges::any_of(
            endings, [&](const char* end) { return other == wanted + QLatin1String(end); });
    };
    const bool taken =
        std::ranges::any_of(files, [&](const QString& file) { return file != path && fits(file); });
    return taken || !fits(path) ? path : name;
}

QString fontExampleText(const FontFile& font)
{
    return Words::tr("Font name: ") + font.name + u"\r\n"_s + Words::tr("Font file: ") +
           font.fileName;
}

QString pageText(int page)
{
    QString text;
    for (int cell = 0; cell < cellCount; ++cell) {
        text += cellGlyph(page, cell);
        if (cell % cellColumns == cellColumns - 1)
            text += u'\n';
    }
    return text;
}

QString pageRange(int page)
{
    const QString digits = hexPadded(page, 2);
    return u"U+"_s + digits + u"00 - U+"_s + digits + u"FF"_s;
}

QString cellHint(int page, int cell)
{
    const int code = codeOf(page, cell);
    // The two-byte form for all higher codes, as this hint always had it, also where UTF-8 needs
    // three.
    const QString utf8 =
        code < 0x80 ? upperHex(cell) : upperHex(code / 64 + 192) + u' ' + upperHex(code % 64 + 128);
    return u"Unicode: U+"_s + hexPadded(code, 4) + u",  UTF-8: "_s + utf8;
}

QString viewCaption(int view, int page, double previewScale)
{
    switch (view) {
    case WindowsView:
        return Words::tr("WinFontSize");
    case ScaledView:
        return Words::tr("Current scale (") + QString::number(roundToEven(previewScale * 100)) +
               u"%)"_s;
    case PageView:
        return Words::tr("Characters Page\n") + pageRange(page);
    default:
        return Words::tr("Selected Characters");
    }
}

double viewFontSize(int view, double size, double previewScale)
{
    return view == ScaledView ? size * previewScale : size;
}

int facePixels(double points)
{
    return std::max(1, roundToEven(points * 96 / 72));
}

// A font that is being added has no set yet.
bool offersFromFont(int view, const QString& title)
{
    return view == SelectedView && title != addFontTitle();
}

bool offersDefault(int view)
{
    return view == SelectedView;
}

QString addFontTitle()
{
    return Words::tr("Font. Add");
}

QString editFontTitle(const QString& member)
{
    return editTitle() + member;
}

QString fromFontCaption(const QString& title)
{
    return title.startsWith(editTitle()) ? fromWord() + title.mid(editTitle().size())
                                         : Words::tr("Load from...");
}

QString fromFontHint(const QString& title)
{
    return title.startsWith(editTitle()) ? Words::tr("Load Character Set ") + title : title;
}

QString memberOfCaption(const QString& caption)
{
    return caption.mid(fromWord().size());
}

} // namespace fennel
