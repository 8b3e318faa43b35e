// SPDX-License-Identifier: MIT
#include "tools/video_bios.h"

#include "base/words.h"

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

struct BiosRow {
    const char* item;
    const char16_t* file;
};
// In the order of VideoBios.
constexpr std::array<BiosRow, 3> biosRows = {
    {{"mnuT_Qemu_BIOS_standart", u"vgabios800x600-24bit-1mb.bin"},
     {"mnuT_Qemu_BIOS_Cirrus", u"vgabios-cirrus.bin"},
     {"mnuT_Qemu_BIOS_16", u"vgabios800x600-32bit-16mb.bin"}}};

std::size_t index(VideoBios bios)
{
    return static_cast<std::size_t>(bios);
}

QString inBiosFolder(const RunState& run, const QString& name)
{
    return run.ToolsPath + u"QEMU/"_s + name;
}

// Where a choice is kept.
QString chosenBios(const RunState& run)
{
    const QString name = u"vgabios.bin"_s;
    return run.Installed ? withSeparator(run.SettingsPath) + name : inBiosFolder(run, name);
}

} // namespace

const char* biosMenuItem(VideoBios bios)
{
    return biosRows[index(bios)].item;
}

QString biosFile(const RunState& run, VideoBios bios)
{
    return inBiosFolder(run, QString::fromUtf16(biosRows[index(bios)].file));
}

QString biosInForce(const RunState& run)
{
    const QString own = chosenBios(run);
    return FileExists(own) ? own : inBiosFolder(run, u"vgabios.bin"_s);
}

BiosStates biosStates(const RunState& run)
{
    BiosStates states;
    const QString inForce = biosInForce(run);
    for (std::size_t i = 0; i < states.size(); ++i) {
        const QString file = biosFile(run, static_cast<VideoBios>(i));
        states[i].enabled = FileExists(file);
        // Told apart by size alone: the three files differ in it, and that is enough for a check
        // mark.
        states[i].checked =
            states[i].enabled && FileExists(inForce) && fileSize(file) == fileSize(inForce);
    }
    return states;
}

void chooseBios(const Shell& shell, VideoBios bios, BiosStates& states)
{
    if (states[index(bios)].checked)
        return;
    // The check marks follow only if the file is in place.
    if (!shell.told(shell.files.replaceWhole(biosFile(shell.run, bios), chosenBios(shell.run))))
        return;
    for (BiosState& state : states)
        state.checked = false;
    states[index(bios)].checked = true;
    mnuT_Qemu_BIOS(shell);
}

void mnuT_Qemu_BIOS(const Shell& shell)
{
    shell.prompts.ShowMessage(
        Words::tr("Some gfxboots, for example @ZUK-MOSA@, use video memory.\n"
                  "If video memory is not sufficient, then gfxboot @ZUK-MOSA@\n"
                  "disables some visual effects.\n"
                  "To receive a report about the amount of main and graphics\n"
                  "memory, press \"Ins\" key, while the gfxboot @ZUK-MOSA@\n"
                  "is working"));
}

// Of the other two, whether the standard BIOS is there decides, chosen or not.
int qemuMode(const BiosStates& states)
{
    if (states[index(VideoBios::Cirrus)].checked)
        return 1;
    return states[index(VideoBios::Standart)].enabled ? 2 : 3;
}

} // namespace fennel
