// SPDX-License-Identifier: MIT
#include "editor/window/menu_table.h"

#include "base/file_names.h"

#include <array>

namespace fennel {

namespace {

using enum MenuKind;
using enum Enabled;

// Name, parent, caption, kind, when it is enabled, separator before it, short cut. Parents stand
// before their children, and captions stand as people know them, misspellings and blanks included.
constexpr auto items = std::to_array<MenuItem>({
    {"mnuFile", "", u"&File", Menu},
    {"mnuFile_Open", "mnuFile", u"Open gfxboot...", Command, Always, false, "Ctrl+O"},
    {"mnuFile_ReOpen", "mnuFile", u"ReOpen ...", Command, Opened, false, "F5"},
    {"mnuFile_New", "mnuFile", u"New", Command, Always, false, "Ctrl+N"},
    {"mnuFile_Save", "mnuFile", u"Save", Command, Opened, true, "Ctrl+S"},
    {"mnuFile_SaveAs", "mnuFile", u"Save  gfxboot as ...", Command, Opened, false, "Ctrl+Shift+S"},
    {"mnuFile_SaveStick", "mnuFile", u"Save to stick...", Command, Opened},
    {"mnuFile_Splash", "mnuFile", u"Save current background as splashimage", Command, Opened},
    {"mnuFile_Upgrade", "mnuFile", u"Upgrade gfxboot to @ZUK-MOSA@", Command, OpenedOlder},
    {"mnuFile_LastUsed", "mnuFile", u"Last used", Menu, ByOthers, true},
    {"mnuFile1", "mnuFile_LastUsed", u"", Array},
    {"mnuFile_Clear", "mnuFile", u"Clear the list", Command, ByOthers},
    {"mnuFile_Restore", "mnuFile", u"Restore unsaved work", Menu, ByOthers},
    {"mnuFile_RestoreArr", "mnuFile_Restore", u"", Array},
    {"mnuFile_Exit", "mnuFile", u"Exit", Command, Always, true, "Ctrl+Q"},

    {"mnuView", "", u"&View", Menu},
    {"mnuView_AsItBoots", "mnuView", u"As it boots", Check, Always, false, "F6"},
    {"mnuView_Schematic", "mnuView", u"Schematic", Check, Always, false, "Shift+F6"},
    {"mnuView_Try", "mnuView", u"Try the menu", Check, Opened, false, "Ctrl+M"},
    {"mnuView_Moment", "mnuView", u"Moment of the boot...", Command, OpenedZuk},
    {"mnuView_Problems", "mnuView", u"Problems", Command, Opened, false, "F7"},
    {"mnuView_Snap", "mnuView", u"Snap while dragging (not with Alt)", Check},
    {"mnuView_Names", "mnuView", u"Names of parameters", Check},
    {"mnuView_scale1", "mnuView", u"Scale 1:1 (100%)", Command, Opened, true, "Ctrl+1"},
    {"mnuView_fill", "mnuView", u"Fill the screen", Command, Opened, false, "Ctrl+0"},
    {"mnuView_ZoomIn", "mnuView", u"Zoom in", Command, Opened, false, "Ctrl++;Ctrl+="},
    {"mnuView_ZoomOut", "mnuView", u"Zoom out", Command, Opened, false, "Ctrl+-"},
    {"mnuView_custom", "mnuView", u"Custom scale...", Command, Opened},
    {"mnuView_scales", "mnuView", u"Scales", Menu, Opened},
    {"mnuView_scale", "mnuView_scales", u"", Array},
    {"mnuView_Follow", "mnuView", u"Window follows the picture", Check},
    {"mnuView_Splash", "mnuView", u"SplashImage view", Check, Opened, true},

    {"mnuEDIT", "", u"&Edit", Menu},
    {"mnuEdit_Undo", "mnuEDIT", u"Undo", Command, ByOthers, false, "Ctrl+Z"},
    {"mnuEdit_Redo", "mnuEDIT", u"Redo", Command, ByOthers, false, "Ctrl+Shift+Z;Ctrl+Y"},
    {"mnuEdit_GetINFO", "mnuEDIT", u"Get INFO", Command, Opened, true},
    {"mnuEdit_Replace", "mnuEDIT", u"Replace any gfxboot's components", Command, Opened},
    {"mnuEdit_Extract", "mnuEDIT", u"Extract components of some gfxboot into folder...", Command,
     Always, true},
    {"mnuEdit_Assemble", "mnuEDIT", u"Assemble gfxboot from component folder..."},
    {"mnuEdit_Gfxboot2", "mnuEDIT", u"Gfxboot without gfxboot.cfg", Command, Always, true},
    {"mnuEdit_ChangeBack", "mnuEDIT", u" - change back.jpg...", Command, Opened},
    {"mnuEdit_gfxboot3", "mnuEDIT", u"Gfxboot v.3-3 custom", Command, Always, true},
    {"mnuEdit_EditCFG", "mnuEDIT", u" - EDIT gfxboot.cfg...", Command, OpenedCfg},
    {"mnuEDIT_NEWFont", "mnuEDIT", u" - change FONT", Command, OpenedCfg},
    {"mnuEdit_ZUK", "mnuEDIT", u"Gfxboot @ZUK-MOSA@", Menu, OpenedZuk, true},
    {"mnuEdit_ZUK_arr", "mnuEdit_ZUK", u"", Array},
    {"mnuEdit_Sound", "mnuEDIT", u" - SOUND", Command, OpenedZuk},
    {"mnuEDIT_ADDFont", "mnuEDIT", u" - add FONT...", Command, OpenedZuk},
    {"mnuEDIT_ADDBack", "mnuEDIT", u" - add BACK...", Command, OpenedZuk},
    {"mnuEDIT_ADDLogo", "mnuEDIT", u" - add LOGO...", Command, OpenedZuk},
    {"mnuEdit_Resize", "mnuEDIT", u" Resize...", Command, OpenedZuk},
    {"mnuEdit_ResizeLOGO", "mnuEDIT", u" Resize LOGO", Command, OpenedZuk},
    {"mnuEdit_16x9Support", "mnuEDIT", u" 16:9 support...", Command, OpenedZuk},
    {"mnuEdit_ge_Clipboard", "mnuEDIT", u"Set Clipboard as background", Command, Opened, true,
     "Ctrl+Shift+V"},

    {"mnuFlash", "", u"F&lash", Menu, FlashThere},
    {"mnuFlash_Choose", "mnuFlash", u"Check Flash Drive as \"Current Flash\" for QEMU"},
    {"mnuFlash_FlashArr", "mnuFlash", u"", Array},
    {"mnuFlash_UnCheckAll", "mnuFlash", u"UnCheck all Drives"},
    {"mnuFlash_Monitor", "mnuFlash", u"Monitor Flash connections", Check, Always, true},
    {"mnuFlash_GetINFO", "mnuFlash", u"Get INFO about all Flash Drives"},

    {"mnuMenuLST", "", u"&Menu.lst", Menu},
    {"mnuMenu_Embedded", "mnuMenuLST", u"Show Embedded menu.lst", Check},
    {"mnuMenu_select", "mnuMenuLST", u"Select MENU from X:", Menu, ByOthers},
    {"mnuMenu_fromFlash", "mnuMenu_select", u"", Array},

    {"mnuTools", "", u"&Tools", Menu},
    {"mnuT_s4", "mnuTools", u"tools set is empty", Heading},
    {"mnuT_Boot", "mnuTools", u"Boot test", Command, Opened, false, "F8"},
    {"mnuT_Boot_Loader", "mnuTools", u"Loader of the boot test..."},
    {"mnuT_Image", "mnuTools", u"Image file as Current Flash..."},
    {"mnuT_Qemu", "mnuTools", u"QEMU", Menu, FlashChosen, true},
    {"mnuT_Qemu_Start", "mnuT_Qemu", u"Start QEMU with Current Flash Drive", Command, ByOthers,
     false, "F9"},
    {"mnuT_Qemu_BIOS", "mnuT_Qemu", u"Select Video BIOS for QEMU", Command, Always, true},
    {"mnuT_Qemu_BIOS_standart", "mnuT_Qemu", u"  - Standart VGABIOS (1M VideoRAM)", Check,
     ByOthers},
    {"mnuT_Qemu_BIOS_Cirrus", "mnuT_Qemu", u"  - Cirrus Logic VGABIOS (4M VideoRAM)", Check,
     ByOthers},
    {"mnuT_Qemu_BIOS_16", "mnuT_Qemu", u"  - NonStandard VGABIOS (16M VideoRAM)", Check, ByOthers},
    {"mnuT_NConvert", "mnuTools", u"NConvert", Menu},
    {"mnuT_NConvert_Convert", "mnuT_NConvert", u"Convert picture to jpg..."},
    {"mnuT_NConvert_Clipboard", "mnuT_NConvert", u"Save Clipboard as jpg..."},
    {"mnuT_NConvert_Resize", "mnuT_NConvert", u"Resize picture..."},
    {"mnuT_NConvert_Crop", "mnuT_NConvert", u"Crop picture..."},
    {"mnuT_GZip", "mnuTools", u"7-Zip (7za.exe)", Menu},
    {"mnuT_GZip_Extract", "mnuT_GZip", u"Extract the contents from gz-archive..."},
    {"mnuT_GZip_Pack", "mnuT_GZip", u"Pack file into gz-arhive..."},
    {"mnuT_CPIO", "mnuTools", u"CPIO", Menu},
    {"mnuT_CPIO_GetINFO", "mnuT_CPIO", u"Get list files of gfxboot..."},
    {"mnuT_CPIO_Extract", "mnuT_CPIO", u"Extract components of some gfxboot into folder..."},
    {"mnuT_CPIO_Assemble", "mnuT_CPIO", u"Assemble gfxboot from component folder..."},

    {"mnuHelp", "", u"&Help", Menu},
    {"mnuHelpAboutZukMosa", "mnuHelp", u"@ZUK-MOSA@", Menu},
    {"mnuHelpEn", "mnuHelpAboutZukMosa", u" - English forum"},
    {"mnuHelpRu", "mnuHelpAboutZukMosa", u" - Russian forum"},
    {"mnuHelp_FAQ", "mnuHelpAboutZukMosa", u" - On-line FAQ", Command, Always, false, "F1"},
    {"mnuHelpYouTube", "mnuHelpAboutZukMosa", u" - @ZUK-MOSA@ on YouTube"},
    {"mnuHelpAboutFennel", "mnuHelp", u"FENNEL-GFX with GUI", Menu},
    {"mnuHelpEnFennel", "mnuHelpAboutFennel", u" - English forum"},
    {"mnuHelpLessons", "mnuHelpAboutFennel", u" - Video Lessons on YouTube"},
    {"mnuHelp_About", "mnuHelp", u"About", Command, Always, true},

    {"mnupopup_0", "", u"", Popup},
    {"aaa", "mnupopup_0", u"ПЛАН: контекст1"},
    {"bbb", "mnupopup_0", u"ПЛАН: контекст2"},
    {"ccc", "mnupopup_0", u"ПЛАН: контекст3"},
    {"mnupopup_1", "", u"", Popup},
    {"ddd", "mnupopup_1", u"ПЛАН: ddd"},
    {"eee", "mnupopup_1", u"ПЛАН: eee"},
    {"fff", "mnupopup_1", u"ПЛАН: fff"},
    {"mnupopup_2", "", u"", Popup},
    {"mnupopup_OnOff_1", "mnupopup_2", u"F1 Button On/Off"},
    {"mnupopup_OnOff_3", "mnupopup_2", u"F2 Button On/Off"},
    {"mnupopup_OnOff_5", "mnupopup_2", u"F9 Button On/Off"},
    {"mnupopup_OnOff_7", "mnupopup_2", u"F10 Button On/Off"},
    {"mnu_Context_picture1", "", u"", Popup},
    {"mnu_Context_picture1_cfg", "mnu_Context_picture1", u"EDIT gfxboot.cfg...", Command,
     OpenedCfg},
    {"mnu_Context_picture1_change_back", "mnu_Context_picture1", u"Change current back...", Command,
     Opened},
    {"mnu_Context_picture1_Clipboard", "mnu_Context_picture1", u"Set Clipboard as background",
     Command, OpenedCfg},
    {"mnu_Context_picture1_169", "mnu_Context_picture1", u"16:9 support"},
    {"mnu_Context_object", "", u"", Popup},
    {"ObjectPopup", "mnu_Context_object", u"", Array},
    {"mnu_Context_ListView1Popup", "", u"", Popup},
    {"ListView1Popup", "mnu_Context_ListView1Popup", u"", Array},
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
    return run.GfxOpened
               ? QStringLiteral("ReOpen ") + shownPath(run.GfxFileName) + QStringLiteral("  ")
               : QStringLiteral("ReOpen ...");
}

} // namespace fennel
