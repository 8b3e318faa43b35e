// SPDX-License-Identifier: MIT
#include "command/screens.h"

#include "menus/menu_overlay.h"
#include "screen/boot_screen.h"
#include "tools/boot_stick.h"

#include <QBuffer>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace fennel {

using namespace Qt::StringLiterals;

QImage drawnScreen(OpenedFile& opened, const ScreenWish& wish)
{
    Document& document = opened.session.document();
    const RunState& run = document.run();
    if (!wish.menu.isEmpty())
        document.setMenuValues(
            [&](ZUKarr& table) { MenuOverlay(wish.menu, run.GfxHasZuk, table); });
    BootRequest request{document.state(), run.Workspace, run.gfxboot_var,
                        bootTitles({wish.menu, run.GfxHasZuk, {}})};
    request.chosen = wish.chosen;
    request.menuValues = true;
    request.panel = BootPanel::None;
    request.moment = previewMoment();
    if (wish.clock) {
        request.panel = BootPanel::AsAtStart;
        request.moment = {};
        request.moment.clock = *wish.clock;
        request.moment.date = QDate::currentDate();
    }
    BootScreen screen;
    (void)screen.update(request);
    return screen.picture();
}

double equalShare(const QImage& a, const QImage& b)
{
    // What a 16-bit mode and its pattern make of a colour.
    constexpr int tolerance = 12;
    if (a.isNull() || a.size() != b.size())
        return 0;
    const QImage one = a.convertToFormat(QImage::Format_RGB32);
    const QImage other = b.convertToFormat(QImage::Format_RGB32);
    const auto near = [](QRgb p, QRgb q) {
        return std::abs(qRed(p) - qRed(q)) <= tolerance &&
               std::abs(qGreen(p) - qGreen(q)) <= tolerance &&
               std::abs(qBlue(p) - qBlue(q)) <= tolerance;
    };
    qint64 equal = 0;
    for (int y = 0; y < one.height(); ++y) {
        const auto* p = reinterpret_cast<const QRgb*>(one.constScanLine(y));
        const auto* q = reinterpret_cast<const QRgb*>(other.constScanLine(y));
        for (int x = 0; x < one.width(); ++x)
            equal += near(p[x], q[x]) ? 1 : 0;
    }
    return static_cast<double>(equal) / (static_cast<double>(one.width()) * one.height());
}

QImage sideBySide(const QImage& a, const QImage& b)
{
    QImage both(a.width() + b.width(), std::max(a.height(), b.height()), QImage::Format_RGB32);
    both.fill(Qt::black);
    QPainter painter(&both);
    painter.drawImage(0, 0, a);
    painter.drawImage(a.width(), 0, b);
    return both;
}

Status writePicture(CommandRun& run, const QImage& picture)
{
    const QString target = run.option(u"output"_s);
    // Less than half the usual level's time, for a tenth more bytes.
    constexpr int quality = 80;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!picture.save(&buffer, "PNG", quality))
        return run.fail(target, {FailureKind::Io, "there is no picture"});
    return run.write(target, bytes);
}

} // namespace fennel
