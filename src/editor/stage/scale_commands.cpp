// SPDX-License-Identifier: MIT
#include "editor/stage/scale_commands.h"

#include "base/text.h"
#include "container/member_table.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

void setScale(Stage& stage, double scale)
{
    stage.run().PreviewScale = scale;
    stage.ApplyScale();
}

} // namespace

void mnuView_scale1(Stage& stage)
{
    setScale(stage, 1.0);
}

void mnuView_scale(Stage& stage, int percent)
{
    // Measured on the picture that is shown, which may differ from the scale's result by a
    // rounding.
    if (menuScaleAccepted(stage.pictureSize(), stage.run().PreviewScale, percent))
        setScale(stage, percent / 100.0);
    else
        stage.data().shell.prompts.ShowMessage(minimalSizeText());
}

void mnuView_custom(Stage& stage, QSize screen)
{
    const RunState& run = stage.run();
    Prompts& prompts = stage.data().shell.prompts;
    const QSize picture = stage.pictureSize();
    const std::optional<QString> typed = prompts.input(
        customScalePrompt(screen, {run.BackWidth, run.BackHeight}, run.PreviewScale, picture),
        customScaleTitle(), QString::number(roundToEven(run.PreviewScale * 100)));
    // 0 is outside what is accepted, so a closed dialog changes nothing and says nothing.
    const double percent = typed ? leadingNumber(*typed) : 0;
    switch (customScaleAnswer(picture, run.PreviewScale, percent)) {
    case ScaleAnswer::Ignored:
        break;
    case ScaleAnswer::TooSmall:
        prompts.ShowMessage(tooSmallText());
        break;
    case ScaleAnswer::Accepted:
        setScale(stage, percent / 100);
        break;
    }
}

std::optional<FillResult> fillForStage(const Stage& stage, const FillRoom& room)
{
    const RunState& run = stage.run();
    // Without a picture there is no size to fill the window with.
    if (!FileExists(run.Workspace + mainBackName) || run.BackWidth <= 0 || run.BackHeight <= 0)
        return {};
    return fillScale(room, run.BackWidth, run.BackHeight);
}

void zoomTo(Stage& stage, double scale)
{
    setScale(stage, scale);
}

void applyFill(Stage& stage, const FillResult& fill)
{
    setScale(stage, fill.scale);
}

} // namespace fennel
