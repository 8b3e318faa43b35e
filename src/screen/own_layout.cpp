// SPDX-License-Identifier: MIT
#include "screen/own_layout.h"

#include "params/object_table.h"
#include "screen/boot_jpeg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int helpStart = 19; // s.f1.show
constexpr int helpSeconds = 20;
constexpr int startPanels = 79; // s.start.panel.show
constexpr QSize usualScreen(800, 600);

// The engine's table, of whole degrees.
std::array<int, 92> sineTable()
{
    std::array<int, 92> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double angle = std::min(90.0, static_cast<double>(i)) * std::numbers::pi / 180;
        table[i] = static_cast<int>(std::lround(1024 * std::sin(angle)));
    }
    return table;
}

int quarterSine(int angle)
{
    static const std::array<int, 92> table = sineTable();
    const auto degree = static_cast<std::size_t>(angle / 4);
    return table[degree] + (table[degree + 1] - table[degree]) * (angle % 4) / 4;
}

int lineStep4(const BootFont& font, int extra)
{
    // Without a font the distance is that of 14 points.
    return 4 * (3 + extra) + (font.there() ? font.size4() : 4 * 14);
}

QString chosenBackground(const OwnValues& values, BootMembers& members)
{
    const int number = values.at(GeneralFile, backgroundParam) % 100;
    for (const QString& name : {u"back_%1.jpg"_s.arg(number, 2, 10, QChar(u'0')), u"back.jpg"_s}) {
        if (!members.picture(name).isNull())
            return name;
    }
    return {};
}

// Which panel is open, with AsAtStart answered.
BootPanel openPanel(const OwnWork& work)
{
    if (work.request.panel != BootPanel::AsAtStart)
        return work.request.panel;
    const int wait = work.values.at(GeneralFile, helpSeconds);
    const bool help =
        work.values.at(GeneralFile, helpStart) != 0 && (wait == 0 || work.seconds() < wait);
    return help ? BootPanel::Help : BootPanel::None;
}

void layOutStanding(const OwnWork& work, const std::vector<OwnEntry>& entries)
{
    layOutLogo(work);
    layOutHand(work);
    layOutClock(work);
    layOutDate(work);
    layOutInfoLine(work, entries);
    layOutSparks(work);
    layOutRunLine(work);
    layOutGlass(work);
    layOutLinearTimer(work);
    layOutCircularTimer(work);
    layOutNumber(work);
    layOutAnimation(work);
}

} // namespace

int ownLineTop(const BootFont& font, int line, int extra, int quarters)
{
    return (line * (lineStep4(font, extra) + quarters) + 2) / 4;
}

int ownLinesFit(const BootFont& font, int height, int extra, int quarters)
{
    return 4 * height / std::max(1, lineStep4(font, extra) + quarters);
}

int ownSine(int angle)
{
    const int turn = ((angle % 1440) + 1440) % 1440;
    const int half = turn % 720;
    const int value = quarterSine(half > 360 ? 720 - half : half);
    return turn >= 720 ? -value : value;
}

OwnDrawing::OwnDrawing(const OwnObject& object, QSize size, QSize screen)
    : m_area(QRect(object.rect.topLeft(), size) & QRect(QPoint(), screen))
{
    m_object.row = object.row;
    m_object.rect = QRect(object.rect.topLeft(), size);
}

BootOp& OwnDrawing::add(BootOp::Kind kind, const QRect& area)
{
    BootOp& op = m_object.ops.emplace_back();
    op.kind = kind;
    op.area = area.translated(m_area.topLeft()) & m_area;
    return op;
}

void OwnDrawing::ground(const QRect& part, QRgb colour, int transparency)
{
    BootOp& op = add(BootOp::Ground, part);
    op.colour = colour;
    op.transparency = transparency;
}

void OwnDrawing::tint(const QRect& part, QRgb colour, int transparency)
{
    BootOp& op = add(BootOp::Tint, part);
    op.colour = colour;
    op.transparency = transparency;
}

void OwnDrawing::text(const QString& text, QPoint at, QRgb colour, int font)
{
    BootOp& op = add(BootOp::Text, {QPoint(), size()});
    op.text = text;
    op.at = at + m_area.topLeft();
    op.colour = colour;
    op.font = font;
}

BootOp& OwnDrawing::masked(const QString& picture, const QString& mask, QPoint at)
{
    BootOp& op = add(BootOp::Masked, {QPoint(), size()});
    op.text = picture;
    op.mask = mask;
    op.at = at + m_area.topLeft();
    return op;
}

void OwnDrawing::line(QPoint from, QPoint to, QRgb colour)
{
    BootOp& op = add(BootOp::Line, {QPoint(), size()});
    op.at = from + m_area.topLeft();
    op.to = to + m_area.topLeft();
    op.colour = colour;
}

BootOp& OwnDrawing::stroke(QPoint from, QPoint to)
{
    BootOp& op = add(BootOp::Stroke, {QPoint(), size()});
    op.at = from + m_area.topLeft();
    op.to = to + m_area.topLeft();
    return op;
}

void OwnWork::put(OwnDrawing& drawing) const
{
    if (drawing.seen())
        layout.list.objects.push_back(drawing.take());
}

BootLayout layOutOwn(const BootRequest& request, BootMembers& members)
{
    const OwnValues values(request);
    BootLayout layout;
    BootList& list = layout.list;
    list.bare = noPicture;
    list.background = chosenBackground(values, members);
    const QSize picture =
        list.background.isEmpty() ? QSize() : members.picture(list.background).size();
    list.screen = isVideoMode(picture) ? picture : usualScreen;

    const OwnWork work{request, members, values, layout};
    const std::vector<OwnEntry> entries = ownEntries(work);
    layout.entries = static_cast<int>(entries.size());
    layOutMenu(work, entries);
    if (request.moment.allShown || values.at(GeneralFile, startPanels) != 0)
        layOutStanding(work, entries);
    const BootPanel panel = openPanel(work);
    if (panel == BootPanel::Help)
        layOutHelp(work);
    else if (panel == BootPanel::Wait)
        layOutWait(work);
    else if (panel == BootPanel::Information)
        layOutInformation(work, entries);
    return layout;
}

} // namespace fennel
