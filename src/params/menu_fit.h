// SPDX-License-Identifier: MIT
// The level file that belongs to no object: how the menu of a gfxboot that was upgraded from an
// older engine is laid out, where no parameter says it. No list shows it, and a save leaves it as
// it is. docs/engine.md tells what the records mean; without the file all are 0.
#pragma once

namespace fennel {

inline constexpr int menuFitFile = 9;

enum MenuFitRecord {
    FitInsetX = 1,
    FitInsetY,
    FitBarHeight,
    FitQuarters, // of a pixel
    FitBeside,
    FitCentred,
    FitOnlyOptions,
};

} // namespace fennel
