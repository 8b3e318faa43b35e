// SPDX-License-Identifier: MIT
#include "params/cfg_look.h"

#include "base/text.h"
#include "params/panel_rec.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int furthest = 32767; // pixels; what is further out is on no screen

int length(qint64 value)
{
    return static_cast<int>(std::clamp<qint64>(value, -furthest, furthest));
}

// The values of the lines in force.
class FlatValues {
public:
    explicit FlatValues(const CfgLines& lines) : m_lines(lines) {}
    [[nodiscard]] std::optional<qint64> active(QStringView name) const
    {
        for (const CfgLine& line : m_lines) {
            if (line.kind == CfgKindOfLine::Known && line.on && line.name == name)
                return line.value.number;
        }
        return std::nullopt;
    }
    [[nodiscard]] qint64 value(QStringView name) const
    {
        return active(name).value_or(numberFromText(CfgDefault(name)));
    }
    [[nodiscard]] int pixels(QStringView name) const { return length(value(name)); }
    [[nodiscard]] QRgb colour(QStringView name) const { return opaque(value(name)); }
    [[nodiscard]] bool shows(QStringView hideName) const { return value(hideName) == 0; }

private:
    const CfgLines& m_lines;
};

// What a hot key of the form with sections does, and what the screen says of it. What such an
// engine shows only on some machines is left out.
struct KeyUse {
    QStringView use;
    QStringView word;
    QStringView below;
};
constexpr KeyUse keyUses[] = {{u"lang", u"Language", u"English (US)"},
                              {u"keymap", u"Keyboard", u"English (US)"},
                              {u"otheropts", u"Init Program", u"Default"}};
constexpr int lastKey = 8; // F2 to F8 may have a use

using Section = std::map<QString, QString>;

bool isHeading(QStringView line)
{
    return line.startsWith(u'[') && line.endsWith(u']');
}

std::map<QString, Section> sectionsOf(const QString& text)
{
    std::map<QString, Section> sections;
    QString name;
    for (const QString& raw : text.split(u'\n')) {
        const QString line = raw.trimmed();
        const qsizetype equals = line.indexOf(u'=');
        if (isHeading(line))
            name = line.mid(1, line.size() - 2);
        else if (!line.startsWith(u';') && !line.startsWith(u'#') && equals > 0)
            sections[name].try_emplace(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return sections;
}

class SectionValues {
public:
    explicit SectionValues(const QString& text) : m_sections(sectionsOf(text))
    {
        m_order = m_sections[u"base"_s][u"layout"_s].split(u',', Qt::SkipEmptyParts);
        m_order.append(u"base"_s);
    }
    [[nodiscard]] QString text(const QString& name) const
    {
        for (const QString& section : m_order) {
            const auto found = m_sections.find(section);
            if (found == m_sections.end())
                continue;
            if (const auto value = found->second.find(name); value != found->second.end())
                return value->second;
        }
        return {};
    }
    [[nodiscard]] int number(const QString& name, int without) const
    {
        const QString found = text(name);
        return found.isEmpty() ? without : length(numberFromText(found));
    }
    [[nodiscard]] QRgb colour(const QString& name, QRgb without) const
    {
        const QString found = text(name);
        return found.isEmpty() ? without : opaque(numberFromText(found));
    }
    // "x,y"
    [[nodiscard]] QPoint point(const QString& name, QPoint without) const
    {
        const QStringList parts = text(name).split(u',');
        if (parts.size() != 2)
            return without;
        return {length(numberFromText(parts[0])), length(numberFromText(parts[1]))};
    }

private:
    std::map<QString, Section> m_sections;
    QStringList m_order;
};

} // namespace

CfgLook flatLook(const CfgLines& lines)
{
    const FlatValues values(lines);
    const CfgDialect& names = cfgDialectOf(lines);
    CfgLook look;
    const auto wide = values.active(u"custom_width");
    const auto high = values.active(u"custom_height");
    const auto bits = values.active(u"custom_depth");
    if (wide && high && bits) {
        look.screen = {length(*wide), length(*high)};
        look.bits = *bits > 16 ? 32 : 16;
    }
    look.menu = {values.pixels(names.left), values.pixels(names.top)};
    look.entries = values.pixels(names.entries);
    look.barMinWidth = values.pixels(names.barWidth);
    look.bar = values.colour(names.bar);
    look.normal = values.colour(names.normal);
    look.selected = values.colour(names.selected);
    look.key = values.colour(u"panel_high");
    look.word = values.colour(u"panel_normal");
    look.title = values.colour(u"panel_title");
    look.options = values.active(u"boot_show") == 1;
    look.optionsText = values.colour(u"boot_text_normal");
    look.windowBack = values.colour(u"infobox_bg");
    look.windowText = values.colour(u"infobox_text_normal");
    look.progress = values.colour(u"loading_color");
    if (values.shows(u"hide_help"))
        look.left.push_back({u"F1"_s, u"Help"_s, {}});
    if (values.shows(u"hide_lang"))
        look.left.push_back({u"F2"_s, u"Language"_s, u"English (UK)"_s});
    if (values.shows(u"hide_reboot"))
        look.right.push_back({u"F9"_s, u"Reboot"_s, {}});
    if (values.shows(u"hide_poweroff"))
        look.right.push_back({u"F10"_s, u"Poweroff"_s, {}});
    return look;
}

CfgLook sectionedLook(const QString& text)
{
    const SectionValues values(text);
    CfgLook look;
    look.bits = 32;
    const QPoint screen = values.point(u"screen.size"_s, {800, 600});
    look.screen = {screen.x(), screen.y()};
    if (const QString name = values.text(u"background"_s); !name.isEmpty())
        look.background = name;
    look.menu = values.point(u"mainmenu.pos"_s, look.menu);
    look.entries = values.number(u"mainmenu.entries"_s, look.entries);
    look.barMinWidth = values.number(u"mainmenu.bar.minwidth"_s, look.barMinWidth);
    look.barBeside = 46; // the sign of the timeout turns there
    look.centred = look.menu.x() == -1;
    if (look.centred)
        look.menu.setX((screen.x() - look.barMinWidth) / 2);
    look.bar = values.colour(u"mainmenu.bar.color"_s, look.bar);
    look.barTransparency = values.number(u"mainmenu.bar.transparency"_s, look.barTransparency);
    look.normal = values.colour(u"mainmenu.normal.fg"_s, look.normal);
    look.selected = values.colour(u"mainmenu.selected.fg"_s, look.selected);
    look.key = values.colour(u"panel.f-key.fg"_s, 0xff000000);
    look.word = values.colour(u"panel.fg"_s, look.word);
    look.title = values.colour(u"panel.title.fg"_s, look.title);
    look.options = true;
    look.caret = values.point(u"bootopt.pos"_s, {263, 480}) + QPoint(10, -1);
    look.optionsText = values.colour(u"bootopt.text.fg"_s, look.optionsText);
    look.windowBack = values.colour(u"window.bg"_s, look.windowBack);
    look.windowText = values.colour(u"window.fg"_s, look.windowText);
    look.progress = values.colour(u"progress.bar.color"_s, look.progress);
    look.optionsLabel = u"Boot Options"_s;
    look.left.push_back({u"F1"_s, u"Help"_s, {}});
    for (int i = 2; i <= lastKey; ++i) {
        const QString use = values.text(u"key.F%1"_s.arg(i));
        for (const KeyUse& known : keyUses) {
            if (known.use == use)
                look.left.push_back(
                    {u"F%1"_s.arg(i), known.word.toString(), known.below.toString()});
        }
    }
    return look;
}

CfgLook cfgLook(const QString& text, const CfgLines& lines)
{
    for (const QStringView line : QStringView(text).tokenize(u'\n')) {
        if (isHeading(line.trimmed()))
            return sectionedLook(text);
    }
    return flatLook(lines);
}

} // namespace fennel
