// SPDX-License-Identifier: MIT
// The boot-screen objects: which parameters of which level file place and colour each of them,
// which parameters its tab lists, and how they look before any parameter is read.
#pragma once

#include "params/param_state.h"

#include <QSize>
#include <QStringView>

namespace fennel {

struct RunState;

struct Shell;

// Rows of PanelArr that other parts speak of by name. A row number is the identity of an object
// everywhere: in the tabs, on the stage.
enum ObjectRow {
    MenuPanelRow = 0,
    MenuBarRow = 1,
    ButtonsPanelRow = 2,
    OptionsPanelRow = 3,
    LogoPanelRow = 4,
    HelpPanelRow = 8,
    FirstSparkleRow = 11,
    LastSparkleRow = 18,
    RunLineRow = 22,
    GlassesRow = 23,
    AnimationRow = 28,
    GeneralRow = 39,
};
inline constexpr int zukObjectCount = 40; // rows in generation 3

[[nodiscard]] inline bool isSparkle(int row)
{
    return row >= FirstSparkleRow && row <= LastSparkleRow;
}

// The menu that is shown until a menu file is read; entries end in "|".
extern const QString embeddedMenu;

// The words of a menu as the stage prints them.
struct MenuTexts {
    QString bar;  // the first entry
    QString menu; // the others, behind a blank line that lies under the bar
};
// Entries end in "|"; a text without one is all bar.
MenuTexts menuTexts(const QString& entries);

// The name as tabs and menus show it: "Linear|Timer" is Linear Timer, "Glasses|Panel" is Glasses.
QString objectCaption(const QString& name);

// Sizes the help panel for the background of the run.
void fitHelpPanel(const RunState& run, PanelRec& help);

// Fills PanelArr with RunState::ObjectCount rows. Needs BackWidth and
// BackHeight, and in generation 3 the LevelValues and the Workspace, whose Logo_msk.jpg gives the
// size of the logo; without a readable one the user is told and the logo is 100 by 50.
void BuildPanels(const Shell& shell, ParamState& state);

} // namespace fennel
