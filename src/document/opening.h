// SPDX-License-Identifier: MIT
// Turns a message file into the open gfxboot of the run: extracted, classified, and read into the
// document. Needs no window; one that there is follows as a listener.
#pragma once

#include "document/document.h"
#include "fonts/scan_fonts.h"

#include <optional>

namespace fennel {

// The parts of a gfxboot that are read one after the other. Lists come before what is drawn from
// them, fonts before the stage that measures text with them, the generation before the tabs that
// show its objects.
enum class OpenStep {
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

// Follows an open; the window shows with it what has been read.
class OpenListener {
public:
    virtual ~OpenListener() = default;
    virtual void openBegins() {}
    // The members are in place, and the run state names the new gfxboot: what is shown of the one
    // before goes.
    virtual void extracted() {}
    // The user was told that the main background is no picture.
    virtual void backgroundRefused() {}
    // Run state, document and fonts hold what the step is about.
    virtual void reached(OpenStep step) { Q_UNUSED(step) }
    // Engine and first font are those of this program now.
    virtual void engineUpgraded() {}
    // The user called it off: what openBegins() took off the screen comes back.
    virtual void openCanceled() {}
    // The last call, whatever happened.
    virtual void openEnds(bool opened) { Q_UNUSED(opened) }
};

// Where a gfxboot is opened into. What it refers to outlives it.
struct OpenTarget {
    const Shell& shell;
    Document& document; // made with the table of `fonts`; its catalogue is loaded
    FontState& fonts;
    const FontScanSettings& fontSettings;
    // Whether an older engine is upgraded; without it the user is asked.
    std::optional<bool> upgrade;
};

// The path is in short form. True if the gfxboot is now open; otherwise the user was told why, and
// the run state still names the gfxboot that was open before, whose files are untouched.
bool gfxboot_open(const OpenTarget& target, const QString& path, OpenListener& listener);

// Puts the template into WorkspaceRoot for gfxboot_open(). The path is empty if that failed and the
// user was told.
QString newGfxboot(const Shell& shell);

// Sets BackWidth and BackHeight from back.jpg of the Workspace; false if it is no picture that can
// be shown, and counts with the size below.
bool measureBackground(const Shell& shell);

// The size that a background counts with if its picture cannot be read.
inline constexpr int fallbackBackWidth = 800;
inline constexpr int fallbackBackHeight = 600;

} // namespace fennel
