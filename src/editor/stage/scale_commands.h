// SPDX-License-Identifier: MIT
// What the items of the View menu that change the scale do.
#pragma once

#include "editor/stage/stage.h"
#include "screen/scale_rules.h"

#include <optional>

namespace fennel {

// 100 %, never refused.
void mnuView_scale1(Stage& stage);
// An item of "Scales": refused with a message if the picture gets too small.
void mnuView_scale(Stage& stage, int percent);
// Asks for a percentage; fractions count.
void mnuView_custom(Stage& stage, QSize screen);
// The width that is left for the right panel, which the frame takes over before `stage` is scaled;
// nothing if the gfxboot has no back.jpg.
std::optional<FillResult> fillForStage(const Stage& stage, const FillRoom& room);
// The second half of "Fill the screen", after the window has moved.
// The picture at a scale that is accepted already.
void zoomTo(Stage& stage, double scale);
void applyFill(Stage& stage, const FillResult& fill);

} // namespace fennel
