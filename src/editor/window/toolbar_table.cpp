// SPDX-License-Identifier: MIT
#include "editor/window/toolbar_table.h"

#include <array>

namespace fennel {

namespace {

using enum Enabled;

constexpr ToolbarButton separator;

// Number, tool tip, command, when it is enabled; then what it shows, by which picture and tips.
constexpr auto buttons = std::to_array<ToolbarButton>({
    {NewButton, u"New Gfxboot @ZUK-MOSA@", "mnuFile_New"},
    {OpenButton, u"Open Gfxboot", "mnuFile_Open"},
    {SaveButton, u"Save Gfxboot", "mnuFile_Save"},
    separator,
    {UndoButton, u"Undo", "mnuEdit_Undo", ByOthers},
    {RedoButton, u"Redo", "mnuEdit_Redo", ByOthers},
    separator,
    {FullScaleButton, u"Scale 1:1 (100%)", "mnuView_scale1", Opened},
    {FillButton, u"Fill Screen", "mnuView_fill", Opened},
    {RightPanelButton, u"HideTabsPanel", "ComFrame1", Opened, Shows::RightPanel, 37,
     u"Hide Right Panel", u"Show Right Panel"},
    {BottomPanelButton, u"HidePreviewPanel", "ComFrame2", Opened, Shows::BottomPanel, 38,
     u"Hide Bottom Panel", u"Show Bottom Panel"},
    separator,
    {ChangeBackButton, u"Change Current Back", "mnuEdit_ChangeBack", Opened},
    {ClipboardButton, u"Get Picture From Clipboard", "mnuEdit_ge_Clipboard", Opened},
    {FontEditButton, u"FNT-edit", "mnuEDIT_NEWFont", ByOthers},
    {TextEditButton, u"TXT-edit", "ComEdit", ByOthers},
    {PictureEditButton, u"JPG-edit", "ComEdit", ByOthers},
    {ResizeButton, u"Resize Gfxboot", "mnuEdit_Resize", OpenedZuk},
    {WideButton, u"16:9 Support", "mnuEdit_16x9Support", OpenedZuk},
    separator,
    {FlashButton, u"Current Flash", "CurrentFlashInfo", Always, Shows::CurrentFlash, FlashButton,
     u"Current Flash Drive Info", u"All USB Drives INFO", true},
    {MonitorButton, u"MonitoringIsOff", "mnuFlash_Monitor", Always, Shows::Monitor, 49,
     u"USB-Monitoring is ON", u"USB-Monitoring is OFF"},
    separator,
    {BootButton, u"Boot test", "mnuT_Boot", Opened},
    {QemuButton, u"Run QEMU", "mnuT_Qemu_Start"},
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
        return {button.id, QString::fromUtf16(button.toolTip)};
    const bool on = isCase(button.shows, run, flags);
    return {on ? button.imageOn : button.id, QString::fromUtf16(on ? button.tipOn : button.tipOff)};
}

QString undefinedButtonText(int id)
{
    return QStringLiteral("Button ID=%1\nFunction is not defined!").arg(id);
}

} // namespace fennel
