// SPDX-License-Identifier: MIT
#include "params/cfg_keep.h"

#include "base/text.h"

#include <optional>
#include <vector>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// A line of the file as it stands there, and what the list shows of it.
struct FileLine {
    QByteArray raw;              // blanks, tabs and all
    QByteArray ending;           // none behind the last one
    QString text;                // of `raw`
    std::optional<CfgLine> read; // none: an empty line, which no list shows
};

struct FileText {
    QByteArray mark; // of the encoding
    std::vector<FileLine> lines;

    [[nodiscard]] QByteArray encoded(const QString& text) const
    {
        return mark.isEmpty() ? toCp1251(text) : text.toUtf8();
    }
};

// Line by line: bytes that the encoding does not allow come back in all lines but an edited one.
FileText fileText(const QByteArray& bytes)
{
    FileText file;
    if (decodeText(bytes).TextIsUtf8)
        file.mark = encodeText({}, true);
    for (qsizetype at = file.mark.size(); at < bytes.size();) {
        qsizetype end = at;
        while (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r')
            ++end;
        FileLine line;
        line.raw = bytes.mid(at, end - at);
        line.ending = bytes.mid(end, 1);
        line.text = file.mark.isEmpty() ? fromCp1251(line.raw) : QString::fromUtf8(line.raw);
        line.read = cfgLineFrom(line.text);
        file.lines.push_back(std::move(line));
        at = end + 1;
    }
    return file;
}

bool edited(const CfgLine& was, const CfgLine& now)
{
    return was.on != now.on || was.value != now.value;
}

// From behind "=" to the comment or the end of the line, the blanks around it left out.
struct Span {
    qsizetype from = 0;
    qsizetype to = 0;
};

Span valueSpan(const QString& line)
{
    const auto blank = [&](qsizetype at) { return line[at] == u' ' || line[at] == u'\t'; };
    Span span;
    span.from = line.indexOf(u'=') + 1;
    span.to = line.indexOf(u'#', span.from);
    if (span.to < 0)
        span.to = line.size();
    while (span.to > span.from && blank(span.to - 1))
        --span.to;
    while (span.from < span.to && blank(span.from))
        ++span.from;
    return span;
}

QString editedText(const FileLine& line, const CfgLine& now)
{
    QString text = line.text;
    if (line.read->value != now.value) {
        const Span span = valueSpan(text);
        text.replace(span.from, span.to - span.from, now.value.text());
    }
    if (line.read->on == now.on)
        return text;
    // Whatever stands around the name may be what switches it off.
    return now.on ? now.name + text.mid(text.indexOf(u'=')) : u'#' + text;
}

// The lines of the list that stand for lines of the file, in their order; nothing if they are those
// of another file.
std::optional<std::vector<const CfgLine*>> paired(const FileText& file, const CfgLines& lines)
{
    std::vector<const CfgLine*> shown;
    for (const CfgLine& line : lines) {
        if (line.kind != CfgKindOfLine::Hidden && line.kind != CfgKindOfLine::Separator)
            shown.push_back(&line);
    }
    std::size_t next = 0;
    for (const FileLine& line : file.lines) {
        if (!line.read)
            continue;
        if (next == shown.size() || shown[next]->name != line.read->name)
            return {};
        ++next;
    }
    return next == shown.size() ? std::optional(shown) : std::nullopt;
}

// Hidden parameters become lines when they are edited, ended as the file ends its first line.
void addNewLines(const FileText& file, const CfgLines& lines, QByteArray& bytes)
{
    CfgLines added;
    for (const CfgLine& line : lines) {
        if (line.kind == CfgKindOfLine::Hidden &&
            (line.on || line.value.text() != valueOf(CfgDefault(line.name)).text()))
            added.append(line);
    }
    if (added.isEmpty())
        return;
    const QByteArray crLf = "\r\n";
    const bool plain = bytes.contains('\n') && !bytes.contains(crLf);
    const QByteArray ending = plain ? QByteArray("\n") : crLf;
    QByteArray text = file.encoded(cfgTextFrom(added)).replace(crLf, ending);
    const bool open = !file.lines.empty() && file.lines.back().ending.isEmpty();
    bytes += open ? ending + text : text + ending;
}

// Whoever else reads the file takes ";" for the beginning of a comment, too.
bool isComment(const QString& text)
{
    const QStringView start = QStringView(text).trimmed();
    return start.startsWith(u'#') || start.startsWith(u';');
}

// Whether a value says less once it has the form that lists show.
bool losesValue(const QString& text, const CfgLine& line)
{
    const Span span = valueSpan(text);
    const QString value = text.mid(span.from, span.to - span.from);
    const QString listed = line.value.text();
    if (value.compare(listed, Qt::CaseInsensitive) == 0)
        return false;
    bool number = false;
    const bool hex = value.startsWith(u"0x", Qt::CaseInsensitive);
    const bool same = hex ? value.mid(2).toLongLong(&number, 16) == line.value.number
                          : value.toDouble(&number) == listed.toDouble();
    return !number || !same;
}

bool loses(const FileLine& line)
{
    switch (line.read->kind) {
    case CfgKindOfLine::Text:
        return !isComment(line.text);
    case CfgKindOfLine::Wrong:
        return true;
    default:
        return (!line.read->on && !isComment(line.text)) || losesValue(line.text, *line.read);
    }
}

} // namespace

QByteArray keptCfg(const QByteArray& bytes, const CfgLines& lines)
{
    const FileText file = fileText(bytes);
    const auto shown = paired(file, lines);
    if (!shown)
        return encodeText(cfgTextFrom(lines), !file.mark.isEmpty());
    QByteArray kept = file.mark;
    auto now = shown->begin();
    for (const FileLine& line : file.lines) {
        const bool changed = line.read && edited(*line.read, **now);
        kept += changed ? file.encoded(editedText(line, **now)) : line.raw;
        kept += line.ending;
        if (line.read)
            ++now;
    }
    addNewLines(file, lines, kept);
    return kept;
}

QStringList cfgLosses(const QByteArray& bytes, const CfgLines& lines)
{
    const FileText file = fileText(bytes);
    const auto shown = paired(file, lines);
    QStringList losses;
    if (!shown)
        return losses;
    auto now = shown->begin();
    for (const FileLine& line : file.lines) {
        if (!line.read)
            continue;
        if (!edited(*line.read, **now) && loses(line))
            losses.append(line.text.simplified() + u"   \u2192   "_s +
                          cfgTextFrom({**now}).section(u'\t', 0, 0).simplified());
        ++now;
    }
    return losses;
}

} // namespace fennel
