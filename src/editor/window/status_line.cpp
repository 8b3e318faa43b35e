// SPDX-License-Identifier: MIT
#include "editor/window/status_line.h"

#include "base/file_names.h"
#include "base/words.h"

namespace fennel {

namespace {

// "old version ?" also stands there while nothing is open.
QString generationText(const RunState& run)
{
    if (run.GfxOpened && run.GfxHasZuk)
        return QStringLiteral("@ZUK-MOSA@");
    if (run.GfxOpened && run.GfxHasCfg)
        return Words::tr("custom");
    return Words::tr("old version ?");
}

QString hintText(const RunState& run)
{
    if (!run.GfxOpened)
        return Words::tr("Select the gfxboot using File/Open");
    if (run.CurrentFlashChar == noFlash)
        return Words::tr("Specify the Current Flash Drive using the Flash/Choose");
    return {};
}

} // namespace

void Status_set(const Shell& shell, StatusFields& fields)
{
    const RunState& run = shell.run;
    shell.WriteLog(QStringLiteral(" Status.set"));
    // A blank and a colon while no drive is chosen.
    fields.field(1) = QChar(static_cast<char16_t>(run.CurrentFlashChar)) + QLatin1Char(':');
    fields.field(2) = run.GfxOpened ? shownPath(run.GfxFileName) : Words::tr("no current gfxboot");
    fields.field(3) = generationText(run);
    // With a gfxboot open these fields belong to the stage and keep what it wrote.
    if (!run.GfxOpened) {
        fields.field(4) = Words::tr("gfxboot size");
        fields.field(5) = Words::tr("gfxboot Object");
        fields.field(6) = Words::tr("(x;y), WxH, transp");
        fields.field(7).clear();
    }
    fields.field(8) = hintText(run);
}

// The bar lies over the second field with a pixel of the line's frame free above and below.
QRect progressPlace(const QRect& statusLine, const QRect& secondField)
{
    return {secondField.left(), statusLine.top() + 1, secondField.width(),
            std::max(0, statusLine.height() - 2)};
}

QRect ProgressBar_reset(const Shell& shell, const QRect& statusLine, const QRect& secondField)
{
    shell.WriteLog(QStringLiteral(" ProgressBar_reset"));
    return progressPlace(statusLine, secondField);
}

} // namespace fennel
