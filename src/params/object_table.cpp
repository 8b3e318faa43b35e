// SPDX-License-Identifier: MIT
#include "params/object_table.h"

#include "base/shell_context.h"
#include "base/text.h"
#include "base/words.h"
#include "container/picture_size.h"
#include "params/panel_values.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace fennel {

const QString embeddedMenu = QStringLiteral(
    "RECALL Menu.lst| BOOT DOS from this flash| BOOT WinXP from hard disk|   Call menu @IMA|"
    "   Call menu @MENU1|   Call menu @MENU2|REBOOT|SHUTDOWN PC|");

namespace {

constexpr int raster = 120; // pixels between the default places of objects
constexpr int noFile = -1;
constexpr int helpMarginX = 80;
constexpr int helpMarginY = 60;

// The fields of the same names in PanelRec.
enum ObjectFlags { Editable = 1, Roll = 2, OnlySelected = 4 };

// Sources in the order top, left, width, height, on, back, text, transparency, font.
struct ObjectSpec {
    int row;
    int count; // rows of this family; their geometry sources grow by 10 from row to row
    QStringView name;
    int file;
    std::array<int, 9> sources;
    int flags;
    QStringView ids;
    QStringView ids2 = {};
    QStringView component = {};
};

// What objectCaption() makes of the names of the table.
[[maybe_unused]] constexpr const char* captions[] = {
    Words::mark("MenuPanel"),
    Words::mark("MenuBar"),
    Words::mark("ButtonsPanel"),
    Words::mark("OptionsPanel"),
    Words::mark("LOGO"),
    Words::mark("Time"),
    Words::mark("Date"),
    Words::mark("InfoLine"),
    Words::mark("HelpPanel"),
    Words::mark("Sparkle №"),
    Words::mark("RunLine"),
    Words::mark("Glasses"),
    Words::mark("Linear Timer"),
    Words::mark("Circular Timer"),
    Words::mark("Numerical Timer"),
    Words::mark("WaitPanel"),
    Words::mark("Animation"),
    Words::mark("InfoPanel"),
    Words::mark("@ZUK-MOSA@"),
    Words::mark("nonamed Panel №"),
};

// LOGO and HelpPanel get their sizes from pictures, the sparkles their ids from their number.
constexpr ObjectSpec objectTable[] = {
    {0,
     1,
     u"MenuPanel",
     0,
     {43, 42, 54, -140, -1, 46, 48, 47, 39},
     Editable,
     u"39|40|41|42|43|46x|47|48x|54",
     u"40|41|"},
    {1,
     1,
     u"MenuBar",
     0,
     {43, 42, 54, -24, -1, 56, 58, 57, 39},
     Editable,
     u"39|42|43|54|56x|57|58x"},
    {2, 1, u"ButtonsPanel", noFile, {}, Roll, u""},
    {3, 1, u"OptionsPanel", noFile, {}, Roll, u""},
    {4,
     1,
     u"LOGO",
     0,
     {33, 32, 0, 0, -1, 0, 0, -255, 39},
     Editable,
     u"30|32|33",
     u"",
     u"Logo_??.jpg"},
    {5, 1, u"Time", 0, {3, 2, -72, -22, 1, 6, 8, 0, 9}, Editable, u"01|02|03|06x|08x|09"},
    {6, 1, u"Date", 0, {13, 12, -72, -22, 11, 16, 18, 0, 14}, Editable, u"11|12|13|14|16x|18x"},
    {7,
     1,
     u"InfoLine",
     0,
     {23, 22, 24, -24, -1, 26, 28, 0, 29},
     Editable | OnlySelected,
     u"22|23|24|26x|28x|29"},
    {8,
     1,
     u"HelpPanel",
     0,
     {-helpMarginY, -helpMarginX, 0, 0, -1, 66, 68, 67, 69},
     Editable | OnlySelected,
     u"19|20|66x|67|68x|69|79",
     u"",
     u"zuk_read.txt|Logo_??.txt"},
    {11, 8, u"Sparkle|№", 1, {3, 2, 4, 5, 1, 0, 0, -255, 0}, OnlySelected, u""},
    {22,
     1,
     u"RunLine",
     2,
     {3, 2, 4, 5, 1, 6, 8, 7, 19},
     Editable,
     u"01|02|03|04|05|06x|07|08x|09|19",
     u"",
     u"RLineDef.txt"},
    {23,
     1,
     u"Glasses|Panel",
     3,
     {3, 2, -100, -30, 1, 0, 0, -255, 0},
     Editable,
     u"01|02|03|19|20x|21x|22x|23x|24x|25x|26x|27x|28x|29x|30x|31x|32x|33x|34x|35x|36x|37x|38x|99",
     u"",
     u"glass_??.jpg"},
    {24,
     1,
     u"Linear|Timer",
     4,
     {3, 2, 4, 5, 1, 6, 0, 7, 0},
     Editable,
     u"01|02|03|04|05|06x|07|18|19|20|21x|22x|23|24|37|38"},
    {25,
     1,
     u"Circular|Timer",
     5,
     {3, 2, 4, 5, 1, 0, 0, -255, 0},
     Editable,
     u"01|02|03|04|05|17|18|19|21x|22x|23|24|36|37|38"},
    {26,
     1,
     u"Numerical|Timer",
     6,
     {3, 2, -27, -22, 1, 0, 8, -255, 9},
     Editable | OnlySelected,
     u"01|02|03|08x|09|38"},
    {27,
     1,
     u"WaitPanel",
     7,
     {3, 2, 4, 5, 1, 6, 8, 7, 9},
     Editable | OnlySelected,
     u"01|02|03|04|05|06x|07|08x|09|11|22x"},
    {28,
     1,
     u"Animation|Panel",
     8,
     {3, 2, 4, 5, 1, 0, 0, -255, 0},
     Editable | OnlySelected,
     u"01|02|03|04|05|11|12|13|18|19|99",
     u"",
     u"ani_*.jpg"},
    {35,
     1,
     u"InfoPanel",
     15,
     {3, 2, -575, -375, 1, 6, 8, 7, 9},
     Editable | OnlySelected,
     u"01|02|03|06x|07|08x|09|17x"},
    {39,
     1,
     u"@ZUK-MOSA@",
     0,
     {0, 0, 0, 0, -1, 0, 0, -255, 0},
     Editable | Roll,
     u"31|34|35|38x|75x|76x|77|99"},
};

// A family of like objects takes several rows; the rows between the families are placeholders.
const ObjectSpec* specOf(int row)
{
    const auto* found =
        std::find_if(std::begin(objectTable), std::end(objectTable), [row](const ObjectSpec& spec) {
            return row >= spec.row && row < spec.row + spec.count;
        });
    return found == std::end(objectTable) ? nullptr : found;
}

// The list of sparkle g: its six geometry and colour parameters behind one that the catalogue of
// its file does not have.
std::vector<PanelParam> sparkleIds(int g)
{
    std::vector<PanelParam> ids = {{19, false}};
    for (int digit = 2; digit <= 7; ++digit)
        ids.push_back({10 * g + digit, false});
    return ids;
}

// "01|06x|": numbers, hexadecimal with an x behind.
std::vector<PanelParam> idsOf(QStringView text)
{
    std::vector<PanelParam> ids;
    for (const QStringView element : text.split(u'|', Qt::SkipEmptyParts))
        ids.push_back({static_cast<int>(numberFromText(element)), element.endsWith(u'x')});
    return ids;
}

void setSources(PanelRec& panel, std::array<int, 9> sources, int step)
{
    const auto place = [&](std::size_t i) { return static_cast<qint16>(sources[i] + step); };
    const auto plain = [&](std::size_t i) { return static_cast<qint16>(sources[i]); };
    // Only the geometry moves on from one member of a family to the next. A fixed length is a
    // negative source.
    panel.TopParam = place(0);
    panel.LeftParam = place(1);
    panel.WidthParam = place(2);
    panel.HeightParam = place(3);
    panel.OnParam = plain(4);
    panel.BackParam = sources[5];
    panel.TextParam = sources[6];
    panel.TranspParam = plain(7);
    panel.FontParam = plain(8);
}

void setDefaultPlace(PanelRec& panel, int row, int backWidth)
{
    // The first four, which every generation has, lie in a row of their own above the others.
    const int place = row > 3 ? row - 4 : row;
    const int columns = std::max(1, backWidth / raster);
    const int below = row >= 4 ? raster * 5 / 2 : 0;
    panel.Left = clampToI16(place % columns * raster);
    panel.Top = clampToI16(place / columns * raster + below);
}

// Rows keep their numbers in all generations, so the unused ones are there too, switched off.
PanelRec placeholder(int row)
{
    PanelRec panel;
    panel.Name = QStringLiteral("nonamed Panel №") + QString::number(row);
    panel.Enabled = false;
    panel.OnlySelected = true;
    return panel;
}

PanelRec panelFrom(const ObjectSpec& spec, int row)
{
    const int member = row - spec.row;
    PanelRec panel;
    panel.Name = spec.name.toString();
    panel.Ids = idsOf(spec.ids);
    if (spec.count > 1) {
        panel.Name += QString::number(member + 1);
        panel.Ids = sparkleIds(member);
    }
    setSources(panel, spec.sources, member * 10);
    if (spec.file != noFile)
        panel.CfgFile = levelFileName(spec.file);
    for (const PanelParam& id : idsOf(spec.ids2))
        panel.Ids2.push_back(id.number);
    panel.Component = spec.component.toString();
    panel.Editable = (spec.flags & Editable) != 0;
    panel.Roll = (spec.flags & Roll) != 0;
    panel.OnlySelected = (spec.flags & OnlySelected) != 0;
    return panel;
}

void setLogoSize(const Shell& shell, PanelRec& logo)
{
    const Result<QSize> mask =
        pictureSize(shell, withSeparator(shell.run.Workspace) + QStringLiteral("Logo_msk.jpg"));
    QSize size = mask ? *mask : QSize();
    // Without a size the logo could not be seen or selected; the message says that it is a guess.
    if (size.isEmpty()) {
        size = {100, 50};
        shell.prompts.ShowMessage(Words::tr("Logo_msk.jpg is missing or is no picture.\n"
                                            "The logo is shown 100 by 50 pixels large."),
                                  MessageType::Ok, programTitle());
    }
    logo.WidthParam = clampToI16(-size.width());
    logo.HeightParam = clampToI16(-size.height());
}

// In generation 3 the engine has no button bar and no options line, and only as many sparkles as
// parameter 1 of their file says.
void finishGeneration3(const Shell& shell, ParamState& state)
{
    const int sparkles = state.ZUKarr.at(1, 1).LevelValue;
    for (int row = 0; row < static_cast<int>(state.PanelArr.size()); ++row) {
        PanelRec& panel = *state.object(row);
        if (row == ButtonsPanelRow || row == OptionsPanelRow)
            panel.Enabled = false;
        else if (isSparkle(row))
            // In 64 bits, as the count comes from a file and may be any number.
            panel.Enabled = qint64{sparkles} + FirstSparkleRow - 1 >= row;
        else if (row == LogoPanelRow)
            setLogoSize(shell, panel);
        else if (row == HelpPanelRow)
            fitHelpPanel(shell.run, panel);
    }
}

} // namespace

// Positive sources would be parameters, so a background smaller than the margins gives 0.
void fitHelpPanel(const RunState& run, PanelRec& help)
{
    help.WidthParam = clampToI16(std::min(0, 2 * helpMarginX - run.BackWidth));
    help.HeightParam = clampToI16(std::min(0, 2 * helpMarginY - run.BackHeight));
}

MenuTexts menuTexts(const QString& entries)
{
    const qsizetype end = entries.indexOf(QLatin1Char('|'));
    if (end < 0)
        return {entries, QStringLiteral(" ")};
    return {entries.left(end), QLatin1Char(' ') + entries.mid(end)};
}

QString objectCaption(const QString& name)
{
    QString caption = name;
    caption.remove(QStringLiteral("|Panel")).replace(QLatin1Char('|'), QLatin1Char(' '));
    // Of a family each has its number.
    const auto digits =
        std::find_if_not(caption.crbegin(), caption.crend(), [](QChar c) { return c.isDigit(); });
    const qsizetype words = caption.crend() - digits;
    return Words::tr(caption.left(words).toUtf8().constData()) + caption.mid(words);
}

void BuildPanels(const Shell& shell, ParamState& state)
{
    shell.WriteLog(QStringLiteral("     TEX&DEF"));
    state.PanelArr.clear();
    for (int row = 0; row < shell.run.ObjectCount; ++row) {
        const ObjectSpec* spec = specOf(row);
        state.PanelArr.push_back(spec ? panelFrom(*spec, row) : placeholder(row));
        PanelRec& panel = state.PanelArr.back();
        setDefaultPlace(panel, row, shell.run.BackWidth);
        // "|" ends a line of the text that is drawn in the object.
        panel.Text = panel.Name + QLatin1Char('|');
    }
    if (shell.run.gfxboot_var == 3)
        finishGeneration3(shell, state);
    const MenuTexts texts = menuTexts(embeddedMenu);
    if (PanelRec* menu = state.object(MenuPanelRow))
        menu->Text = texts.menu;
    if (PanelRec* bar = state.object(MenuBarRow))
        bar->Text = texts.bar;
}

} // namespace fennel
