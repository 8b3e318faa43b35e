// SPDX-License-Identifier: MIT
// Logo, second hand, clock and date, and the panels that come and go.
#include "params/object_table.h"
#include "screen/own_layout.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

enum PanelParamNumber {
    HandOn = 31,
    HandWidth = 34,
    HandHeight = 35,
    HandColour = 38,
    WaitColour2 = 22,
    InfoColour2 = 17,
};
enum PanelRow { ClockRow = 5, DateRow = 6, WaitRow = 27, InfoRow = 35 };
constexpr QSize smallPanel(72, 22);
constexpr QSize noMask(100, 50);
constexpr int logoNumbers = 100;
constexpr int logoSeconds = 5;
constexpr int mostRadius = 2048;
constexpr int mostLines = 400;
constexpr int helpX = 80;
constexpr int helpY = 60;
constexpr int progressHeight = 8;
constexpr int progressInset = 8;
const QString logoMask = u"Logo_msk.jpg"_s;

QSize logoSize(const OwnWork& work)
{
    const QImage mask = work.members.picture(logoMask);
    return mask.isNull() ? noMask : mask.size();
}

QString logoAt(const OwnWork& work, int turn)
{
    QStringList logos;
    for (int i = 0; i < logoNumbers; ++i) {
        const QString name = u"Logo_%1.jpg"_s.arg(i, 2, 10, QChar(u'0'));
        if (work.members.has(name) && !work.members.picture(name).isNull())
            logos.append(name);
    }
    return logos.isEmpty() ? QString() : logos[turn % logos.size()];
}

void layOutSmall(const OwnWork& work, int row, const QString& text, const QString& widest)
{
    const OwnObject panel = work.values.object(row);
    if (!panel.on)
        return;
    const BootFont& font = work.members.font(panel.font);
    OwnDrawing drawing(panel, smallPanel.expandedTo({font.width(widest), font.height()}),
                       work.screen());
    drawing.ground({QPoint(), smallPanel}, panel.back, 0);
    drawing.text(text, {}, panel.text, panel.font);
    if (!drawing.seen())
        return;
    BootObject object = drawing.take();
    object.rect.setSize(smallPanel);
    work.layout.list.objects.push_back(std::move(object));
}

} // namespace

void layOutLogo(const OwnWork& work)
{
    const OwnObject logo = work.values.object(LogoPanelRow);
    const QString picture = logoAt(work, work.seconds() / logoSeconds);
    if (picture.isEmpty() || work.members.picture(logoMask).isNull())
        return;
    OwnDrawing drawing(logo, logoSize(work), work.screen());
    drawing.masked(picture, logoMask, {});
    work.put(drawing);
}

void layOutHand(const OwnWork& work)
{
    if (work.values.at(GeneralFile, HandOn) == 0)
        return;
    const QSize logo = logoSize(work);
    const QPoint middle = work.values.object(LogoPanelRow).rect.topLeft() +
                          QPoint(logo.width() / 2, logo.height() / 2);
    const int wide = std::min(work.values.at(GeneralFile, HandWidth), mostRadius);
    const int high = std::min(work.values.at(GeneralFile, HandHeight), mostRadius);
    OwnObject hand;
    hand.row = GeneralRow;
    hand.rect.moveTopLeft({std::max(0, middle.x() - wide - 1), std::max(0, middle.y() - high - 1)});
    const QPoint corner = hand.rect.topLeft();
    const QPoint far = middle + QPoint(wide + 3, high + 3) - corner;
    OwnDrawing drawing(hand, {far.x(), far.y()}, work.screen());
    const int angle = work.request.moment.clock.second() * 24;
    const QPoint from = middle - corner;
    const QPoint to =
        from + QPoint(ownSine(angle) * wide / 1024, -(ownCosine(angle) * high / 1024));
    const bool upright = std::abs(ownCosine(angle)) >= std::abs(ownSine(angle));
    for (int i = -1; i <= 1; ++i)
        drawing.line(from + (upright ? QPoint(i, 0) : QPoint(0, i)), to,
                     work.values.colour(GeneralFile, HandColour));
    if (!drawing.seen())
        return;
    BootObject object = drawing.take();
    object.rect = {}; // the mouse takes the logo
    work.layout.list.objects.push_back(std::move(object));
}

void layOutClock(const OwnWork& work)
{
    layOutSmall(work, ClockRow, work.request.moment.clock.toString(u"HH:mm:ss"_s), u"00:00:00"_s);
}

void layOutDate(const OwnWork& work)
{
    const BootFont& font = work.members.font(work.values.object(DateRow).font);
    QString text = work.request.moment.date.toString(u"dd.MM.yyyy"_s);
    if (font.there() && font.width(text) > smallPanel.width())
        text = work.request.moment.date.toString(u"dd.MM.yy"_s);
    layOutSmall(work, DateRow, text, text);
}

void layOutHelp(const OwnWork& work)
{
    OwnObject help = work.values.object(HelpPanelRow);
    help.rect.moveTopLeft({helpX, helpY});
    const QSize size = work.screen() - QSize(2 * helpX, 2 * helpY);
    OwnDrawing drawing(help, size, work.screen());
    const BootFont& font = work.members.font(help.font);
    QString text = work.members.text(u"ZUK_Read.txt"_s);
    if (text.isNull())
        text = work.members.text(u"zuk_read.txt"_s);
    drawing.ground(help.back, help.transparency);
    const int rows = std::max(1, ownLinesFit(font, size.height(), 0));
    const QStringList lines = text.isNull()
                                  ? QStringList()
                                  : bootLines(text, font, size.width(), std::min(rows, mostLines));
    for (int i = 0; i < lines.size(); ++i)
        drawing.text(lines[i], {0, ownLineTop(font, i, 0)}, help.text, help.font);
    work.put(drawing);
}

void layOutWait(const OwnWork& work)
{
    const OwnObject wait = work.values.object(WaitRow);
    OwnDrawing drawing(wait, wait.rect.size(), work.screen());
    const QSize size = drawing.size();
    const QRgb second = work.values.colour(WaitFile, WaitColour2);
    const BootFont& font = work.members.font(wait.font);
    drawing.ground(wait.back, wait.transparency);
    drawing.text(u"Loading"_s, {}, wait.text, wait.font);
    drawing.text(u"vmlinuz"_s, {0, ownLineTop(font, 1, 0)}, second, wait.font);
    // As it stands when half of it is loaded.
    drawing.ground({progressInset, size.height() - progressHeight - 2,
                    std::max(0, size.width() - 2 * progressInset) / 2, progressHeight},
                   second, 0);
    work.put(drawing);
}

void layOutInformation(const OwnWork& work, const std::vector<OwnEntry>& entries)
{
    const OwnObject info = work.values.object(InfoRow);
    OwnDrawing drawing(info, info.rect.size(), work.screen());
    const BootFont& font = work.members.font(info.font);
    const QByteArray init = work.members.bytes(u"init"_s);
    const qsizetype mark = init.indexOf("FENNEL-GFX engine ");
    const int last = static_cast<int>(entries.size()) - 1;
    const QString entry =
        last < 0 ? QString()
                 : entries[static_cast<std::size_t>(std::clamp(work.request.chosen, 0, last))].text;
    // What is only known at boot is as on a usual machine.
    const QString text =
        u"Entry: %1\nBoot line: \nLoader: syslinux\nScreen: %2 x %3, 32 bits\nFree memory: 960 KB"_s
            .arg(entry)
            .arg(work.screen().width())
            .arg(work.screen().height());
    drawing.ground(info.back, info.transparency);
    drawing.text(mark < 0 ? QString() : QString::fromLatin1(init.constData() + mark), {},
                 work.values.colour(InfoFile, InfoColour2), info.font);
    const int rows = std::max(0, ownLinesFit(font, drawing.size().height(), 0) - 2);
    const QStringList lines = bootLines(text, font, drawing.size().width(), rows);
    for (int i = 0; i < lines.size(); ++i)
        drawing.text(lines[i], {0, ownLineTop(font, i + 2, 0)}, info.text, info.font);
    work.put(drawing);
}

} // namespace fennel
