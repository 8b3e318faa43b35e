// SPDX-License-Identifier: MIT
// Turns a message file into the open gfxboot of the run.
#pragma once

#include "base/shell_context.h"

namespace fennel {

// What happens on screen while a gfxboot is opened. The window implements it.
class OpenHost {
public:
    // The lists and the rest of the window are filled in this order.
    enum class Step {
        Pictures,
        Levels, // generation 3 only
        Menus,
        Members,
        Config,
        Backgrounds,
        Fonts,
        Stage,
        Generation,
        Tabs,
        Logos, // generation 3 only
        Show,
    };

    virtual ~OpenHost() = default;
    // The window is disabled, shows the busy pointer and an empty stage.
    virtual void openBegins() = 0;
    // The objects of the gfxboot before go off the stage.
    virtual void hideObjects() = 0;
    // The user was told that the main background is no picture.
    virtual void backgroundRefused() {}
    // Fills one part of the window from the run state and the Workspace.
    virtual void fill(Step step) = 0;
    // Number of the background that the parameters choose; asked after Step::Levels.
    [[nodiscard]] virtual int chosenBackground() const = 0;
    // The user called it off: what openBegins() took off the screen comes back.
    virtual void openCanceled() {}
    // The window is enabled again, whatever happened.
    virtual void openEnds(bool opened) = 0;
};

// The path is in short form. True if the gfxboot is now open; otherwise the user was told why, and
// the run state still names the gfxboot that was open before, whose files are untouched.
bool gfxboot_open(const Shell& shell, const QString& path, OpenHost& host);

// Sets BackWidth and BackHeight from back.jpg of the Workspace; false if it is no picture that can
// be shown, and counts with the size below.
bool measureBackground(RunState& run);

// The size that a background counts with if its picture cannot be read.
inline constexpr int fallbackBackWidth = 800;
inline constexpr int fallbackBackHeight = 600;

} // namespace fennel
