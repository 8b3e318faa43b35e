// SPDX-License-Identifier: MIT
#include "params/cfg_lines.h"

#include "base/text.h"
#include "base/words.h"

#include <utility>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// The whole text without a "#".
QString behindHash(const QString& text)
{
    return text.mid(text.indexOf(u'#') + 1);
}

// A line that gets its comment back behind "# " is the line that was read.
QString commentIn(const QString& text, const QString& name)
{
    const QString behind = text.contains(u'#') ? behindHash(text) : QString();
    const QStringView comment = trimBlanks(behind);
    return comment.isEmpty() ? CfgComment(name) : comment.toString();
}

CfgLine activeLine(const QString& line, const QString& name, const QString& value)
{
    const QString comment = commentIn(line, name);
    return {CfgKindOfLine::Known, name, valueOf(value), true, comment, comment, true};
}

// Shown and written back, but fixed: what the engine makes of such a line is not known here.
CfgLine wrongLine(const QString& name, const QString& value)
{
    return {
        CfgKindOfLine::Wrong, name, valueOf(value), true, Words::tr("<== WRONG PARAMETER NAME!"),
        CfgComment(name),     false};
}

CfgLine offLine(const QString& line, qsizetype equals, const QString& name, const QString& value)
{
    // The line's first "#" is mostly the one that switches it off, so the comment is looked for
    // behind the value.
    const QString comment = commentIn(line.mid(equals + 1), name);
    return {CfgKindOfLine::Known, name, valueOf(value), true, comment, behindHash(line), false};
}

// A line without blanks at its ends.
CfgLine lineFrom(const QString& line)
{
    const qsizetype equals = line.indexOf(u'=');
    // Fixed: a value typed into it would turn the text into a parameter.
    if (equals < 0)
        return {CfgKindOfLine::Text, {}, {}, false, line, {}, false};
    // Only an exact name is in force; a name with anything before or behind it is a parameter that
    // is switched off.
    const QString left = line.left(equals);
    const QString known = CfgKnownName(left);
    const QString value = CfgNormalise(QStringView(line).mid(equals + 1));
    if (left == known)
        return activeLine(line, left, value);
    return known.isEmpty() ? wrongLine(left, value) : offLine(line, equals, known, value);
}

// What a line mentions: its name, and all text behind "#", or without one the whole line, so that a
// parameter that a blank switches off is not offered a second time. A text mentions nothing.
QString mentionIn(const QString& line, const CfgLine& read)
{
    if (read.kind == CfgKindOfLine::Text)
        return {};
    return read.on ? u'|' + read.name : behindHash(line);
}

// What the engine knows and the file never mentions.
CfgLine hiddenLine(QStringView name)
{
    return {CfgKindOfLine::Hidden,
            name.toString(),
            valueOf(CfgDefault(name)),
            true,
            CfgComment(name),
            Words::tr("FENNEL-GFX: Perhaps this is a hidden parameter"),
            false};
}

void addHiddenLines(const QString& seen, const QByteArray& engine, CfgLines& lines)
{
    bool separated = false;
    for (const CfgParam& param : cfgParams) {
        // Any mention counts, even within a comment or a longer name.
        if (seen.contains(param.name))
            continue;
        // The separator comes with the first name that the file lacks, whatever the engine knows.
        if (!std::exchange(separated, true))
            lines.append({CfgKindOfLine::Separator, {}, {}, false, {}, {}, true});
        if (engine.contains(param.name.toLatin1()))
            lines.append(hiddenLine(param.name));
    }
}

// A line that is off goes behind "#", whatever kind it is.
QString textOf(const CfgLine& line)
{
    QString text = line.on ? QString() : u"#"_s;
    text += line.name;
    if (line.valued)
        text += u'=' + line.value.text();
    return text + u"\t\t# "_s + line.comment;
}

// Each line tidies the whole text so far once. No pattern crosses a line end, so a line with k
// lines from it to the end is tidied k times, or until nothing changes.
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

} // namespace

std::optional<CfgLine> cfgLineFrom(const QString& line)
{
    QString clean = line;
    clean.replace(u'\t', u' ');
    const QStringView text = trimBlanks(clean);
    return text.isEmpty() ? std::nullopt : std::optional(lineFrom(text.toString()));
}

Result<CfgLines> cfgLinesFrom(const QString& text, const QByteArray& engine)
{
    CfgLines lines;
    QString seen;
    QString clean = text;
    // A lone carriage return ends a line too; the empty lines this makes are left out with all
    // others.
    clean.replace(u'\r', u'\n');
    for (const QStringView part : QStringView(clean).tokenize(u'\n')) {
        const QString line = part.toString();
        const std::optional<CfgLine> read = cfgLineFrom(line);
        if (!read)
            continue;
        // A file this long is no list for people; nothing of it is shown, so that nothing can be
        // saved over it.
        if (lines.size() >= cfgLineLimit)
            return Failure{FailureKind::TooLarge, cfgMemberName.toStdString() + " has more than " +
                                                      std::to_string(cfgLineLimit) + " lines."};
        seen += mentionIn(line, *read);
        lines.append(*read);
    }
    addHiddenLines(seen, engine, lines);
    return lines;
}

QString cfgTextFrom(const CfgLines& lines)
{
    QStringList texts;
    for (const CfgLine& line : lines) {
        if (line.kind != CfgKindOfLine::Separator)
            texts.append(textOf(line));
    }
    // See tidied(): the first line is the one that is tidied most often.
    for (qsizetype i = 0; i < texts.size(); ++i)
        texts[i] = tidied(texts[i], texts.size() - i);
    return texts.join(u"\r\n"_s);
}

int cfgLineOf(const CfgLines& lines, QStringView name)
{
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].name == name)
            return static_cast<int>(i);
    }
    return -1;
}

const CfgDialect& cfgDialectOf(const CfgLines& lines)
{
    for (const CfgDialect& dialect : cfgDialects) {
        if (cfgLineOf(lines, dialect.left) >= 0)
            return dialect;
    }
    return cfgDialects.front();
}

QString CfgValue(const CfgLines& lines, QStringView name)
{
    const int line = cfgLineOf(lines, name);
    if (line < 0)
        return CfgDefault(name);
    return lines[line].valued ? lines[line].value.text() : QString();
}

CfgLines withCfgNumber(const CfgLines& lines, QStringView name, qint64 number)
{
    const int line = cfgLineOf(lines, name);
    if (line < 0 || (lines[line].value.number == number && lines[line].on))
        return lines;
    CfgLines changed = lines;
    if (changed[line].value.number != number)
        changed[line].value = {number, false, {}};
    // A value that was set and does nothing at boot would deceive.
    changed[line].on = true;
    return changed;
}

} // namespace fennel
