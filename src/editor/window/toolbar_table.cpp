// SPDX-License-Identifier: MIT
#include "editor/window/toolbar_table.h"

#include "base/words.h"

#include <array>

namespace fennel {

namespace {

using enum Enabled;

constexpr ToolbarButton separator;

// Number, tool tip, command, when it is enabled; then what it shows, by which picture and tips.
constexpr auto buttons = std::to_array<ToolbarButton>({
    {NewButton, Words::mark("New Gfxboot @ZUK-MOSA@"), "mnuFile_New"},
    {OpenButton, Words::mark("Open Gfxboot"), "mnuFile_Open"},
    {SaveButton, Words::mark("Save Gfxboot"), "mnuFile_Save"},
    separator,
    {UndoButton, Words::mark("Undo"), "mnuEdit_Undo", ByOthers},
    {RedoButton, Words::mark("Redo"), "mnuEdit_Redo", ByOthers},
    separator,
    {FullScaleButton, Words::mark("Scale 1:1 (100%)"), "mnuView_scale1", Opened},
    {FillButton, Words::mark("Fill Screen"), "mnuView_fill", Opened},
    {RightPanelButton, Words::mark("HideTabsPanel"), "ComFrame1", Opened, Shows::RightPanel, 37,
     Words::mark("Hide Right Panel"), Words::mark("Show Right Panel")},
    {BottomPanelButton, Words::mark("HidePreviewPanel"), "ComFrame2", Opened, Shows::BottomPanel,
     38, Words::mark("Hide Bottom Panel"), Words::mark("Show Bottom Panel")},
    separator,
    {ChangeBackButton, Words::mark("Change Current Back"), "mnuEdit_ChangeBack", Opened},
    {ClipboardButton, Words::mark("Get Picture From Clipboard"), "mnuEdit_ge_Clipboard", Opened},
    {FontEditButton, Words::mark("FNT-edit"), "mnuEDIT_NEWFont", ByOthers},
    {TextEditButton, Words::mark("TXT-edit"), "ComEdit", ByOthers},
    {PictureEditButton, Words::mark("JPG-edit"), "ComEdit", ByOthers},
    {ResizeButton, Words::mark("Resize Gfxboot"), "mnuEdit_Resize", OpenedZuk},
    {WideButton, Words::mark("16:9 Support"), "mnuEdit_16x9Support", OpenedZuk},
    separator,
    {FlashButton, Words::mark("Current Flash"), "CurrentFlashInfo", Always, Shows::CurrentFlash,
     FlashButton, Words::mark("Current Flash Drive Info"), Words::mark("All USB Drives INFO"),
     true},
    {MonitorButton, Words::mark("MonitoringIsOff"), "mnuFlash_Monitor", Always, Shows::Monitor, 49,
     Words::mark("USB-Monitoring is ON"), Words::mark("USB-Monitoring is OFF")},
    separator,
    {BootButton, Words::mark("Boot test"), "mnuT_Boot", Opened},
    {QemuButton, Words::mark("Run QEMU"), "mnuT_Qemu_Start"},
});

bool isCase(Shows shown, const RunState& run, const WindowFlags& flags)
{
    switch (shown) {
    case Shows::RightPanel:
        return flags.rightPanelShown;
    case Shows::BottomPanel:
        return flags.bottomPanelShown;
    case Shows::CurrentFlash:
        return run.CurrentFlashChar != noFlash;
    case Shows::Monitor:
        return flags.MonitorOn;
    default:
        return false;
    }
}

} // namespace

std::span<const ToolbarButton> toolbarTable()
{
    return buttons;
}

const ToolbarButton* toolbarButton(int id)
{
    for (const ToolbarButton& button : buttons) {
        if (button.id == id && id != NoButton)
            return &button;
    }
    return nullptr;
}

ButtonLook lookOf(const ToolbarButton& button, const RunState& run, const WindowFlags& flags)
{
    if (button.shows == Shows::Nothing)
        return {button.id, Words::tr(button.toolTip)};
    const bool on = isCase(button.shows, run, flags);
    return {on ? button.imageOn : button.id, Words::tr(on ? button.tipOn : button.tipOff)};
}

QString undefinedButtonText(int id)
{
    return Words::tr("Button ID=%1\nFunction is not defined!").arg(id);
}

} // namespace fennel
