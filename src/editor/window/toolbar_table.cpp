// SPDX-License-Identifier: MIT
#include "editor/window/toolbar_table.h"

#include <QStringList>

#include <array>

namespace fennel {

namespace {

// Three lists side by side, one place a button from 1 on, "-" for "nothing": style 3 is a
// separator, 5 a button with a list.
const QString styles = QStringLiteral("0;-;-;-;3;-;-;-;-;3;-;-;-;-;-;-;-;3;5;-;3;-;");
const QString ids = QStringLiteral("-;1;2;3;-;5;6;7;8;-;10;11;12;13;14;15;16;-;18;19;-;21");
const QString toolTips = QStringLiteral(
    "-;New Gfxboot @ZUK-MOSA@;Open Gfxboot;Save Gfxboot;"
    "-;Scale 1:1 (100%);Fill Screen;HideTabsPanel;HidePreviewPanel;"
    "-;Change Current Back;Get Picture From Clipboard;FNT-edit;TXT-edit;JPG-edit;Resize Gfxboot;"
    "16:9 Support;"
    "-;Current Flash;MonitoringIsOff;"
    "-;Run QEMU;-;-;-;-;-;-;-;-;-;");

// Buttons that stand for a menu command are enabled and carried out as it is.
struct IdCommand {
    int id;
    const char16_t* command;
};

constexpr auto commands = std::to_array<IdCommand>({
    {1, u"mnuFile_New"},
    {2, u"mnuFile_Open"},
    {3, u"mnuFile_Save"},
    {5, u"mnuView_scale1"},
    {6, u"mnuView_fill"},
    {10, u"mnuEdit_ChangeBack"},
    {11, u"mnuEdit_ge_Clipboard"},
    {12, u"mnuEDIT_NEWFont"},
    {15, u"mnuEdit_Resize"},
    {16, u"mnuEdit_16x9Support"},
    {19, u"mnuFlash_Monitor"},
    {21, u"mnuT_Qemu_Start"},
});

QString valueAt(const QStringList& list, qsizetype i)
{
    const QString text = i < list.size() ? list[i] : QString();
    return text == QLatin1String("-") ? QString() : text;
}

// Ids that no rule names are always enabled.
bool enabledFor(int id, const RunState& run)
{
    if (id >= 5 && id <= 11)
        return run.GfxOpened;
    if (id == 12)
        return run.GfxOpened && run.gfxboot_var >= 2;
    if (id >= 13 && id <= 16)
        return run.GfxOpened && run.GfxHasZuk;
    return true;
}

} // namespace

std::vector<ToolbarEntry> toolbarEntries()
{
    const QStringList styleList = styles.split(QLatin1Char(';'));
    const QStringList idList = ids.split(QLatin1Char(';'));
    const QStringList tipList = toolTips.split(QLatin1Char(';'));
    std::vector<ToolbarEntry> entries;
    for (qsizetype i = 1; i < idList.size(); ++i) {
        ToolbarEntry entry;
        entry.style = static_cast<ButtonStyle>(valueAt(styleList, i).toInt());
        entry.id = valueAt(idList, i).toInt();
        entry.toolTip = valueAt(tipList, i);
        entries.push_back(entry);
    }
    return entries;
}

ButtonState buttonState(const ToolbarEntry& entry, const RunState& run, const WindowFlags& flags)
{
    ButtonState state{enabledFor(entry.id, run), entry.id, entry.toolTip};
    // Buttons that switch something show by picture and tip what is the case.
    const auto shows = [&state](bool on, int imageOn, const char16_t* tipOn,
                                const char16_t* tipOff) {
        if (on)
            state.image = imageOn;
        state.toolTip = QString::fromUtf16(on ? tipOn : tipOff);
    };
    switch (entry.id) {
    case 7:
        shows(flags.rightPanelShown, 37, u"Hide Right Panel", u"Show Right Panel");
        break;
    case 8:
        shows(flags.bottomPanelShown, 38, u"Hide Bottom Panel", u"Show Bottom Panel");
        break;
    case 18:
        shows(run.CurrentFlashChar != noFlash, 18, u"Current Flash Drive Info",
              u"All USB Drives INFO");
        break;
    case 19:
        shows(flags.MonitorOn, 49, u"USB-Monitoring is ON", u"USB-Monitoring is OFF");
        break;
    default:
        break;
    }
    return state;
}

QString toolbarCommandName(int id)
{
    for (const IdCommand& entry : commands) {
        if (entry.id == id)
            return QString::fromUtf16(entry.command);
    }
    return {};
}

QString undefinedButtonText(int id)
{
    return QStringLiteral("Button ID=%1\nFunction is not defined!").arg(id);
}

} // namespace fennel
