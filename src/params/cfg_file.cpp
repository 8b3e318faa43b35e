// SPDX-License-Identifier: MIT
#include "params/cfg_file.h"

#include "base/text.h"

#include <algorithm>
#include <utility>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Known by its name again when the list is written, as it is no line of the file.
const QString separatorName = u"# Additional list ->"_s;

ListRow makeRow(const QString& name, const QString& value, const QString& comment, bool checked,
                QRgb colour)
{
    ListRow row;
    row.cells.resize(3);
    row.cells[CfgNameColumn].text = name;
    row.cells[CfgValueColumn].text = value;
    row.cells[CfgCommentColumn].text = comment;
    row.checked = checked;
    row.colour = colour;
    return row;
}

void setTip(ListRow& row, const QString& tip)
{
    row.cells[CfgNameColumn].toolTip = tip;
    row.cells[CfgCommentColumn].toolTip = tip;
}

// The whole text without a "#".
QString behindHash(const QString& text)
{
    return text.mid(text.indexOf(u'#') + 1);
}

QString commentOr(const QString& comment, const QString& name)
{
    return comment.isEmpty() ? CfgComment(name) : comment;
}

// A line without "=". Its row is fixed: a value typed into it would turn the text into a parameter.
ListRow textRow(const QString& line)
{
    ListRow row = makeRow({}, {}, line, false, fixedRow);
    row.cells[CfgCommentColumn].colour = blueRow;
    return row;
}

ListRow activeRow(const QString& line, const QString& name, const QString& value)
{
    // The added "#" stays in the comment of a line that has one; at writing "##" becomes "#" again.
    const QString comment = commentOr(behindHash(line + u'#'), name);
    ListRow row = makeRow(name, value, comment, true, cfgActiveRow);
    setTip(row, comment);
    row.tag = name;
    return row;
}

// Shown and written back, but fixed: what the engine makes of such a line is not known here.
ListRow wrongRow(const QString& name, const QString& value)
{
    ListRow row = makeRow(name, value, u"<== WRONG PARAMETER NAME!"_s, false, fixedRow);
    row.cells[CfgCommentColumn].colour = cfgWrongCell;
    setTip(row, CfgComment(name));
    return row;
}

ListRow offRow(const QString& line, qsizetype equals, const QString& name, const QString& value)
{
    // The line's first "#" is mostly the one that switches it off, so the comment is looked for
    // behind the value.
    const QString right = line.mid(equals + 1);
    const QString comment = commentOr(right.contains(u'#') ? behindHash(right) : QString(), name);
    ListRow row = makeRow(name, value, comment, false, cfgOffRow);
    setTip(row, behindHash(line));
    row.tag = name;
    return row;
}

// `seen` collects what the file mentions: names, and all text behind "#", or without one the whole
// line, so that a parameter that a blank switches off is not offered a second time.
ListRow rowOfLine(const QString& line, QString& seen)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return textRow(line);
    // Only an exact name is in force; a name with anything before or behind it is a parameter that
    // is switched off.
    const QString left = line.left(equals);
    const QString known = CfgKnownName(left);
    const QString value = CfgNormalise(QStringView(line).mid(equals + 1));
    if (left == known) {
        seen += u'|' + left;
        return activeRow(line, left, value);
    }
    seen += behindHash(line);
    return known.isEmpty() ? wrongRow(left, value) : offRow(line, equals, known, value);
}

// What the engine knows and the file never mentions. The blank behind the comment goes into the
// file with it.
ListRow hiddenRow(QStringView name)
{
    ListRow row =
        makeRow(name.toString(), CfgDefault(name), CfgComment(name) + u' ', false, cfgHiddenRow);
    setTip(row, u"FENNEL-GFX: Perhaps this is a hidden parameter"_s);
    row.tag = name.toString();
    return row;
}

void addHiddenRows(const QString& seen, const QByteArray& engine, ListRows& list)
{
    bool separated = false;
    for (const CfgParam& param : cfgParams) {
        // Any mention counts, even within a comment or a longer name.
        if (seen.contains(param.name))
            continue;
        // The separator comes with the first name that the file lacks, whatever the engine knows.
        if (!std::exchange(separated, true))
            list.rows.push_back(
                makeRow(separatorName, u"of HIDDEN ->"_s, u"parameters"_s, true, cfgHiddenRow));
        if (engine.contains(param.name.toLatin1()))
            list.rows.push_back(hiddenRow(param.name));
    }
}

// An unchecked row becomes a line behind "#", whatever kind of row it was.
QString lineOfRow(const ListRow& row)
{
    QString line = row.checked.value_or(false) ? QString() : u"#"_s;
    line += row.text(CfgNameColumn);
    if (!row.text(CfgValueColumn).isEmpty())
        line += u'=' + row.text(CfgValueColumn);
    return line + u"\t\t# "_s + row.text(CfgCommentColumn);
}

// Each row tidies the whole text so far once. No pattern crosses a line end, so a line with k rows
// from it to the end is tidied k times, or until nothing changes.
QString tidied(QString line, qsizetype times)
{
    for (; times > 0; --times) {
        const qsizetype before = line.size();
        // The order matters: what the first replacement joins, the others shorten.
        line.replace(u"#\t\t#"_s, u"#"_s).replace(u"# #"_s, u"#"_s).replace(u"##"_s, u"#"_s);
        if (line.size() == before)
            break;
    }
    return line;
}

// The new bytes over the start of the old ones, made beside the file and renamed over it, so that a
// failure leaves the old file whole.
Result<void> writeOverStart(const Shell& shell, const QString& path, const QString& text)
{
    QByteArray old;
    if (FileExists(path)) {
        const Result<QByteArray> read = readBytes(path, cfgSizeLimit);
        if (!read)
            return read.failure();
        old = *read;
    }
    const QString work = shell.run.Workspace + u"#cfg.new"_s;
    Result<void> done = shell.files.write(work, old);
    // The mark of the old file decides on the encoding of the new bytes.
    if (done)
        done = shell.files.overwriteStart(work, encodeText(text, decodeText(old).TextIsUtf8));
    if (done)
        done = shell.files.rename(work, path);
    if (!done)
        (void)shell.files.remove(work);
    return done;
}

// Rows move when additional ones have become lines, so the selection follows the name.
void selectAgain(ListRows& list, int number, const QString& name)
{
    const ListRow* const there = list.row(number);
    if (!name.isEmpty() && (!there || there->text() != name)) {
        if (const int moved = CfgRow(list, name); moved > 0)
            number = moved;
    }
    list.selected = std::min(number, list.count());
}

} // namespace

Result<void> cfgRowsFrom(const QString& text, const QByteArray& engine, ListRows& list)
{
    list.rows.clear();
    QString seen;
    QString clean = text;
    // A lone carriage return ends a line too; the empty lines this makes are left out with all
    // others.
    clean.replace(u'\t', u' ').replace(u'\r', u'\n');
    for (const QStringView part : QStringView(clean).tokenize(u'\n')) {
        const QStringView line = trimBlanks(part);
        if (line.isEmpty())
            continue;
        // A file this long is no list for people; nothing of it is shown, so that nothing can be
        // saved over it.
        if (list.count() >= cfgLineLimit) {
            list.rows.clear();
            return Failure{FailureKind::TooLarge, cfgMemberName.toStdString() + " has more than " +
                                                      std::to_string(cfgLineLimit) + " lines."};
        }
        list.rows.push_back(rowOfLine(line.toString(), seen));
    }
    addHiddenRows(seen, engine, list);
    return {};
}

QString cfgTextFrom(const ListRows& list)
{
    QStringList lines;
    for (const ListRow& row : list.rows) {
        if (row.text() != separatorName)
            lines.append(lineOfRow(row));
    }
    // See tidied(): the first line is the one that is tidied most often.
    for (qsizetype i = 0; i < lines.size(); ++i)
        lines[i] = tidied(lines[i], lines.size() - i);
    return lines.join(u"\r\n"_s);
}

void ConfigInListView(const Shell& shell, ListRows& list)
{
    shell.WriteLog(u"     3_Config_in_ListView"_s);
    list.columns = columnsFrom(u"Parameter|Value|Comment from the \""_s + cfgMemberName + u"\"|"_s);
    CfgFill(shell, shell.run.Workspace + cfgMemberName, list);
}

void CfgFill(const Shell& shell, const QString& path, ListRows& list)
{
    list.rows.clear();
    list.selected = 0;
    if (!FileExists(path)) {
        // With it off nothing is written back later, and the row below is only a notice.
        shell.run.GfxHasCfg = false;
        ListRow row;
        row.cells.push_back({u"File \""_s + cfgMemberName + u"\" is absent"_s, {}, {}, {}, false});
        row.colour = fixedRow;
        list.rows.push_back(row);
        return;
    }
    const Result<QByteArray> bytes = readBytes(path, cfgSizeLimit);
    if (!bytes) {
        (void)shell.told(bytes.failure());
        return;
    }
    // Without the engine no hidden parameter is known; the file's own lines are shown all the same.
    const Result<QByteArray> engine = readBytes(shell.run.Workspace + u"init"_s);
    (void)shell.told(cfgRowsFrom(decodeText(*bytes).text, engine ? *engine : QByteArray(), list));
}

bool CfgWrite(const Shell& shell, ListRows& list)
{
    const QString text = cfgTextFrom(list);
    // A list without lines never empties the file.
    if (!shell.run.GfxHasCfg || text.isEmpty())
        return true;
    const QString path = shell.run.Workspace + cfgMemberName;
    if (!shell.told(writeOverStart(shell, path, text)))
        return false;
    const int selected = list.selected;
    const ListRow* const row = list.row(selected);
    const QString name = row ? row->text() : QString();
    // Read again, as the list shows what the file says and not what was meant.
    CfgFill(shell, path, list);
    selectAgain(list, selected, name);
    return true;
}

int CfgRow(const ListRows& list, QStringView name)
{
    for (int number = 1; number <= list.count(); ++number) {
        if (list.row(number)->text() == name)
            return number;
    }
    return 0;
}

QString CfgValue(const ListRows& list, QStringView name)
{
    const ListRow* const row = list.row(CfgRow(list, name));
    return row ? row->text(CfgValueColumn) : CfgDefault(name);
}

void SetCfgValue(ListRows& list, QStringView name, const QString& value)
{
    ListRow* const row = list.row(CfgRow(list, name));
    if (row && row->cells.size() > CfgValueColumn)
        row->cells[CfgValueColumn].text = value;
}

} // namespace fennel
