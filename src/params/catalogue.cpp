// SPDX-License-Identifier: MIT
#include "params/catalogue.h"

#include "base/text.h"
#include "base/words.h"
#include "container/template.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Stands behind the "#" that is added to each line: it tells that "#" from the line's own ones.
constexpr QChar sentinel{u'\a'};

// What a line sets; all other fields of a cell belong to the level files and the lists.
struct CatalogueLine {
    int id = 0;
    ZukCell cell; // only the four fields of the catalogue
};

// A line that begins with ":", as in ":38:s.arrow.color=0X00ff00# - Color".
CatalogueLine parameterLine(const QString& bare)
{
    const QString whole = bare + u'#' + sentinel;
    const QStringView line = trimBlanks(whole);
    const qsizetype colon = line.indexOf(u':', 1);
    const qsizetype equals = line.indexOf(u'=', 1);

    CatalogueLine result;
    // Rounded like every number of these files, so "38.6" and "39" name the same parameter.
    result.id = roundToEven(leadingNumber(line.mid(1)));
    if (colon >= 0 && equals > colon)
        result.cell.Name = trimBlanks(line.mid(colon + 1, equals - colon - 1)).toString();
    // Without "=" the whole line is read, and its colon makes that 0.
    const QStringView value = trimBlanks(line.mid(equals + 1));
    result.cell.DefValue = numberFromText(value);
    result.cell.IsHex = value.startsWith(u"0x", Qt::CaseInsensitive);
    // Trimmed before the sentinel goes: blanks at the end of a comment are the comment's own.
    result.cell.Comment = trimBlanks(line.mid(line.indexOf(u'#') + 1)).toString();
    result.cell.Comment.remove(u"#\a"_s).remove(sentinel);
    return result;
}

void takeOver(const ZukCell& from, ZukCell& to)
{
    to.Name = from.Name;
    to.DefValue = from.DefValue;
    to.IsHex = from.IsHex;
    to.Comment = from.Comment;
}

} // namespace

// Lines are taken over one by one; a later line of the same parameter wins.
int parseCatalogue(const QString& text, ZUKarr& table)
{
    int leftOut = 0;
    int file = 0;
    QString clean = text;
    // A tab counts as two blanks, also within comments, which are shown as they come.
    clean.remove(u'\r').replace(u'\t', u"  "_s);
    for (QStringView raw : QStringView(clean).split(u'\n')) {
        while (raw.startsWith(u' '))
            raw = raw.mid(1);
        // "[ZUK0003]": the number behind the letters is the level file of all lines below it.
        if (raw.startsWith(u'['))
            file = roundToEven(leadingNumber(raw.mid(4)));
        if (!raw.startsWith(u':'))
            continue;
        const CatalogueLine line = parameterLine(raw.toString());
        if (ZUKarr::inRange(file, line.id))
            takeOver(line.cell, table.at(file, line.id));
        else
            ++leftOut;
    }
    return leftOut;
}

bool LoadCatalogue(const Shell& shell, ZUKarr& table)
{
    const QString path =
        shell.run.AppPath + u"/data/"_s + CatalogueLanguage(shell.run.CurrentLang) + u"_SETTINGS"_s;
    const Result<QByteArray> bytes = readBytes(path);
    if (!bytes)
        return shell.told(bytes.failure());
    // A catalogue with a wrong line still serves for its other lines, but people should know.
    const int leftOut = parseCatalogue(decodeText(*bytes).text, table);
    if (leftOut > 0)
        shell.prompts.ShowMessage(Words::tr("%1 lines of %2 name a parameter that cannot be.\n"
                                            "They are left out.")
                                      .arg(leftOut)
                                      .arg(path));
    return true;
}

} // namespace fennel
