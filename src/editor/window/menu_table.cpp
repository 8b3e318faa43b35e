// SPDX-License-Identifier: MIT
#include "editor/window/menu_table.h"

#include "base/file_names.h"
#include "base/words.h"

#include <array>

namespace fennel {

namespace {

using enum MenuKind;
using enum Enabled;

// Name, parent, caption, kind, when it is enabled, separator before it, short cut. Parents stand
// before their children, and captions stand as people know them, misspellings and blanks included.
constexpr auto items = std::to_array<MenuItem>({
    {"mnuFile", "", Words::mark("&File"), Menu},
    {"mnuFile_Open", "mnuFile", Words::mark("Open gfxboot..."), Command, Always, false, "Ctrl+O"},
    {"mnuFile_ReOpen", "mnuFile", Words::mark("ReOpen ..."), Command, Opened, false, "F5"},
    {"mnuFile_New", "mnuFile", Words::mark("New"), Command, Always, false, "Ctrl+N"},
    {"mnuFile_Save", "mnuFile", Words::mark("Save"), Command, Opened, true, "Ctrl+S"},
    {"mnuFile_SaveAs", "mnuFile", Words::mark("Save  gfxboot as ..."), Command, Opened, false,
     "Ctrl+Shift+S"},
    {"mnuFile_SaveStick", "mnuFile", Words::mark("Save to stick..."), Command, Opened},
    {"mnuFile_Splash", "mnuFile", Words::mark("Save current background as splashimage"), Command,
     Opened},
    {"mnuFile_Upgrade", "mnuFile", Words::mark("Upgrade gfxboot to @ZUK-MOSA@"), Command,
     OpenedOlder},
    {"mnuFile_LastUsed", "mnuFile", Words::mark("Last used"), Menu, ByOthers, true},
    {"mnuFile1", "mnuFile_LastUsed", "", Array},
    {"mnuFile_Clear", "mnuFile", Words::mark("Clear the list"), Command, ByOthers},
    {"mnuFile_Restore", "mnuFile", Words::mark("Restore unsaved work"), Menu, ByOthers},
    {"mnuFile_RestoreArr", "mnuFile_Restore", "", Array},
    {"mnuFile_Exit", "mnuFile", Words::mark("Exit"), Command, Always, true, "Ctrl+Q"},

    {"mnuView", "", Words::mark("&View"), Menu},
    {"mnuView_AsItBoots", "mnuView", Words::mark("As it boots"), Check, Always, false, "F6"},
    {"mnuView_Schematic", "mnuView", Words::mark("Schematic"), Check, Always, false, "Shift+F6"},
    {"mnuView_Try", "mnuView", Words::mark("Try the menu"), Check, Opened, false, "Ctrl+M"},
    {"mnuView_Moment", "mnuView", Words::mark("Moment of the boot..."), Command, OpenedZuk},
    {"mnuView_Problems", "mnuView", Words::mark("Problems"), Command, Opened, false, "F7"},
    {"mnuView_Snap", "mnuView", Words::mark("Snap while dragging (not with Alt)"), Check},
    {"mnuView_Names", "mnuView", Words::mark("Names of parameters"), Check},
    {"mnuView_scale1", "mnuView", Words::mark("Scale 1:1 (100%)"), Command, Opened, true, "Ctrl+1"},
    {"mnuView_fill", "mnuView", Words::mark("Fill the screen"), Command, Opened, false, "Ctrl+0"},
    {"mnuView_ZoomIn", "mnuView", Words::mark("Zoom in"), Command, Opened, false, "Ctrl++;Ctrl+="},
    {"mnuView_ZoomOut", "mnuView", Words::mark("Zoom out"), Command, Opened, false, "Ctrl+-"},
    {"mnuView_custom", "mnuView", Words::mark("Custom scale..."), Command, Opened},
    {"mnuView_scales", "mnuView", Words::mark("Scales"), Menu, Opened},
    {"mnuView_scale", "mnuView_scales", "", Array},
    {"mnuView_Follow", "mnuView", Words::mark("Window follows the picture"), Check},
    {"mnuView_Language", "mnuView", Words::mark("Language"), Menu, Always, true},
    {"mnuView_LanguageArr", "mnuView_Language", "", Array},
    {"mnuView_Splash", "mnuView", Words::mark("SplashImage view"), Check, Opened, true},

    {"mnuEDIT", "", Words::mark("&Edit"), Menu},
    {"mnuEdit_Undo", "mnuEDIT", Words::mark("Undo"), Command, ByOthers, false, "Ctrl+Z"},
    {"mnuEdit_Redo", "mnuEDIT", Words::mark("Redo"), Command, ByOthers, false,
     "Ctrl+Shift+Z;Ctrl+Y"},
    {"mnuEdit_GetINFO", "mnuEDIT", Words::mark("Get INFO"), Command, Opened, true},
    {"mnuEdit_Replace", "mnuEDIT", Words::mark("Replace any gfxboot's components"), Command,
     Opened},
    {"mnuEdit_Extract", "mnuEDIT", Words::mark("Extract components of some gfxboot into folder..."),
     Command, Always, true},
    {"mnuEdit_Assemble", "mnuEDIT", Words::mark("Assemble gfxboot from component folder...")},
    {"mnuEdit_Gfxboot2", "mnuEDIT", Words::mark("Gfxboot without gfxboot.cfg"), Command, Always,
     true},
    {"mnuEdit_ChangeBack", "mnuEDIT", Words::mark(" - change back.jpg..."), Command, Opened},
    {"mnuEdit_gfxboot3", "mnuEDIT", Words::mark("Gfxboot v.3-3 custom"), Command, Always, true},
    {"mnuEdit_EditCFG", "mnuEDIT", Words::mark(" - EDIT gfxboot.cfg..."), Command, OpenedCfg},
    {"mnuEDIT_NEWFont", "mnuEDIT", Words::mark(" - change FONT"), Command, OpenedCfg},
    {"mnuEdit_ZUK", "mnuEDIT", Words::mark("Gfxboot @ZUK-MOSA@"), Menu, OpenedZuk, true},
    {"mnuEdit_ZUK_arr", "mnuEdit_ZUK", "", Array},
    {"mnuEdit_Sound", "mnuEDIT", Words::mark(" - SOUND"), Command, OpenedZuk},
    {"mnuEDIT_ADDFont", "mnuEDIT", Words::mark(" - add FONT..."), Command, OpenedZuk},
    {"mnuEDIT_ADDBack", "mnuEDIT", Words::mark(" - add BACK..."), Command, OpenedZuk},
    {"mnuEDIT_ADDLogo", "mnuEDIT", Words::mark(" - add LOGO..."), Command, OpenedZuk},
    {"mnuEdit_Resize", "mnuEDIT", Words::mark(" Resize..."), Command, OpenedZuk},
    {"mnuEdit_ResizeLOGO", "mnuEDIT", Words::mark(" Resize LOGO"), Command, OpenedZuk},
    {"mnuEdit_16x9Support", "mnuEDIT", Words::mark(" 16:9 support..."), Command, OpenedZuk},
    {"mnuEdit_ge_Clipboard", "mnuEDIT", Words::mark("Set Clipboard as background"), Command, Opened,
     true, "Ctrl+Shift+V"},

    {"mnuFlash", "", Words::mark("F&lash"), Menu, FlashThere},
    {"mnuFlash_Choose", "mnuFlash", Words::mark("Check Flash Drive as \"Current Flash\" for QEMU")},
    {"mnuFlash_FlashArr", "mnuFlash", "", Array},
    {"mnuFlash_UnCheckAll", "mnuFlash", Words::mark("UnCheck all Drives")},
    {"mnuFlash_Monitor", "mnuFlash", Words::mark("Monitor Flash connections"), Check, Always, true},
    {"mnuFlash_GetINFO", "mnuFlash", Words::mark("Get INFO about all Flash Drives")},

    {"mnuMenuLST", "", Words::mark("&Menu.lst"), Menu},
    {"mnuMenu_Embedded", "mnuMenuLST", Words::mark("Show Embedded menu.lst"), Check},
    {"mnuMenu_select", "mnuMenuLST", Words::mark("Select MENU from X:"), Menu, ByOthers},
    {"mnuMenu_fromFlash", "mnuMenu_select", "", Array},

    {"mnuTools", "", Words::mark("&Tools"), Menu},
    {"mnuT_s4", "mnuTools", Words::mark("tools set is empty"), Heading},
    {"mnuT_Boot", "mnuTools", Words::mark("Boot test"), Command, Opened, false, "F8"},
    {"mnuT_Boot_Loader", "mnuTools", Words::mark("Loader of the boot test...")},
    {"mnuT_Image", "mnuTools", Words::mark("Image file as Current Flash...")},
    {"mnuT_Qemu", "mnuTools", Words::mark("QEMU"), Menu, FlashChosen, true},
    {"mnuT_Qemu_Start", "mnuT_Qemu", Words::mark("Start QEMU with Current Flash Drive"), Command,
     ByOthers, false, "F9"},
    {"mnuT_Qemu_BIOS", "mnuT_Qemu", Words::mark("Select Video BIOS for QEMU"), Command, Always,
     true},
    {"mnuT_Qemu_BIOS_standart", "mnuT_Qemu", Words::mark("  - Standart VGABIOS (1M VideoRAM)"),
     Check, ByOthers},
    {"mnuT_Qemu_BIOS_Cirrus", "mnuT_Qemu", Words::mark("  - Cirrus Logic VGABIOS (4M VideoRAM)"),
     Check, ByOthers},
    {"mnuT_Qemu_BIOS_16", "mnuT_Qemu", Words::mark("  - NonStandard VGABIOS (16M VideoRAM)"), Check,
     ByOthers},
    {"mnuT_NConvert", "mnuTools", Words::mark("NConvert"), Menu},
    {"mnuT_NConvert_Convert", "mnuT_NConvert", Words::mark("Convert picture to jpg...")},
    {"mnuT_NConvert_Clipboard", "mnuT_NConvert", Words::mark("Save Clipboard as jpg...")},
    {"mnuT_NConvert_Resize", "mnuT_NConvert", Words::mark("Resize picture...")},
    {"mnuT_NConvert_Crop", "mnuT_NConvert", Words::mark("Crop picture...")},
    {"mnuT_GZip", "mnuTools", Words::mark("7-Zip (7za.exe)"), Menu},
    {"mnuT_GZip_Extract", "mnuT_GZip", Words::mark("Extract the contents from gz-archive...")},
    {"mnuT_GZip_Pack", "mnuT_GZip", Words::mark("Pack file into gz-arhive...")},
    {"mnuT_CPIO", "mnuTools", Words::mark("CPIO"), Menu},
    {"mnuT_CPIO_GetINFO", "mnuT_CPIO", Words::mark("Get list files of gfxboot...")},
    {"mnuT_CPIO_Extract", "mnuT_CPIO",
     Words::mark("Extract components of some gfxboot into folder...")},
    {"mnuT_CPIO_Assemble", "mnuT_CPIO", Words::mark("Assemble gfxboot from component folder...")},

    {"mnuHelp", "", Words::mark("&Help"), Menu},
    {"mnuHelp_Guide", "mnuHelp", Words::mark("User's guide"), Command, Always, false, "F1"},
    {"mnuHelpAboutZukMosa", "mnuHelp", Words::mark("@ZUK-MOSA@"), Menu, Always, true},
    {"mnuHelpEn", "mnuHelpAboutZukMosa", Words::mark(" - English forum")},
    {"mnuHelpRu", "mnuHelpAboutZukMosa", Words::mark(" - Russian forum")},
    {"mnuHelp_FAQ", "mnuHelpAboutZukMosa", Words::mark(" - On-line FAQ")},
    {"mnuHelpYouTube", "mnuHelpAboutZukMosa", Words::mark(" - @ZUK-MOSA@ on YouTube")},
    {"mnuHelpAboutFennel", "mnuHelp", Words::mark("FENNEL-GFX with GUI"), Menu},
    {"mnuHelpEnFennel", "mnuHelpAboutFennel", Words::mark(" - English forum")},
    {"mnuHelpLessons", "mnuHelpAboutFennel", Words::mark(" - Video Lessons on YouTube")},
    {"mnuHelp_About", "mnuHelp", Words::mark("About"), Command, Always, true},

    {"mnupopup_0", "", "", Popup},
    {"aaa", "mnupopup_0", Words::mark("PLANNED: context 1")},
    {"bbb", "mnupopup_0", Words::mark("PLANNED: context 2")},
    {"ccc", "mnupopup_0", Words::mark("PLANNED: context 3")},
    {"mnupopup_1", "", "", Popup},
    {"ddd", "mnupopup_1", Words::mark("PLANNED: ddd")},
    {"eee", "mnupopup_1", Words::mark("PLANNED: eee")},
    {"fff", "mnupopup_1", Words::mark("PLANNED: fff")},
    {"mnupopup_2", "", "", Popup},
    {"mnupopup_OnOff_1", "mnupopup_2", Words::mark("F1 Button On/Off")},
    {"mnupopup_OnOff_3", "mnupopup_2", Words::mark("F2 Button On/Off")},
    {"mnupopup_OnOff_5", "mnupopup_2", Words::mark("F9 Button On/Off")},
    {"mnupopup_OnOff_7", "mnupopup_2", Words::mark("F10 Button On/Off")},
    {"mnu_Context_picture1", "", "", Popup},
    {"mnu_Context_picture1_cfg", "mnu_Context_picture1", Words::mark("EDIT gfxboot.cfg..."),
     Command, OpenedCfg},
    {"mnu_Context_picture1_change_back", "mnu_Context_picture1",
     Words::mark("Change current back..."), Command, Opened},
    {"mnu_Context_picture1_Clipboard", "mnu_Context_picture1",
     Words::mark("Set Clipboard as background"), Command, OpenedCfg},
    {"mnu_Context_picture1_169", "mnu_Context_picture1", Words::mark("16:9 support")},
    {"mnu_Context_object", "", "", Popup},
    {"ObjectPopup", "mnu_Context_object", "", Array},
    {"mnu_Context_ListView1Popup", "", "", Popup},
    {"ListView1Popup", "mnu_Context_ListView1Popup", "", Array},
});

} // namespace

std::span<const MenuItem> menuTable()
{
    return items;
}

const MenuItem* menuItem(QStringView name)
{
    for (const MenuItem& item : items) {
        if (name == QLatin1String(item.name))
            return &item;
    }
    return nullptr;
}

bool holds(Enabled rule, const RunState& run, bool flashThere)
{
    switch (rule) {
    case Opened:
        return run.GfxOpened;
    case OpenedCfg:
        return run.GfxOpened && run.GfxHasCfg;
    case OpenedFonts:
        return run.GfxOpened && run.gfxboot_var >= 2;
    case OpenedZuk:
        return run.GfxOpened && run.GfxHasZuk;
    case OpenedOlder:
        return run.GfxOpened && !run.GfxHasZuk;
    case FlashThere:
        return flashThere;
    case FlashChosen:
        // A letter from "A" on; the blank that means none lies below.
        return run.CurrentFlashChar > 64;
    default:
        return true;
    }
}

QString reopenCaption(const RunState& run)
{
    return run.GfxOpened ? Words::tr("ReOpen %1  ").arg(shownPath(run.GfxFileName))
                         : Words::tr("ReOpen ...");
}

} // namespace fennel
