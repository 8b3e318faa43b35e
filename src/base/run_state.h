// SPDX-License-Identifier: MIT
// What one run of the program knows of itself and of the gfxboot that is open. Paths are absolute
// and canonical; folders end in "/" where the comment says so.
#pragma once

#include <QString>

#include <memory>

namespace fennel {

class Descriptor;

inline constexpr int noFlash = 32; // CurrentFlashChar while no drive is chosen: a blank

// The name that marks a gfxboot made from the template and never saved.
inline const QString unsavedGfxName = QStringLiteral("@ZUK-MOSA@.gz");

// What a file held when it was read or written; an empty path: not known.
struct FileMark {
    QString path;
    qint64 size = 0;
    quint32 checksum = 0;
};

struct RunState {
    QString AppPath;   // folder of the executable, no separator at the end
    QString ToolsPath; // AppPath + "/Tools/"
    // Folders of the settings file with the chosen video BIOS, and of the log, no separator at the
    // end. Empty or AppPath, unless the program is installed.
    QString SettingsPath;
    QString LogPath;
    bool Installed = false; // AppPath is nobody's to write
    QString ToolNConvert;
    QString ToolCpio;
    QString ToolQemu;
    QString Tool7Zip;
    QString ToolListUsb;
    QString ToolMkFont;
    QString CurrentLang;  // four digits, such as "0409"
    qint64 BuildTime = 0; // seconds since 1970-01-01 00:00:00 GMT

    QString WorkspaceRoot;                // ends in "/"; everything in it is removed at exit
    std::shared_ptr<Descriptor> rootLock; // held as long as the root is this run's
    QString Workspace;                    // ends in "/"; the extracted members of the open gfxboot
    QString GfxPath;                      // the open message file
    FileMark GfxMark;                     // as it was opened or saved last
    QString GfxFileName;                  // as shown in the title and the status line
    bool GfxOpened = false;
    bool GfxHasCfg = false; // Workspace holds gfxboot.cfg
    bool GfxHasZuk = false; // Workspace holds ZUK0000.CFG
    bool GfxIsGz = false;   // opened from gzip, and written so
    int gfxboot_var = 1;    // generation 1, 2 or 3
    int ObjectCount = 1;    // boot-screen objects: 1 with nothing open, 4 or 40
    QString BackFile;       // the background now shown
    int BackWidth = 0;      // pixels of back.jpg
    int BackHeight = 0;
    double PreviewScale = 1.0; // displayed pixels per boot-screen pixel

    bool KvmFails = false; // a guest died of KVM: the next ones do without

    int RightPanelWidth = 200;   // of Frame1Vkladki, logical pixels
    int BottomPanelHeight = 150; // of Frame2Podval

    int CurrentFlashChar = noFlash; // letter of the chosen drive
    int CurrentFlashDisk = -1;      // its physical disk number; -1 unknown, 0 never booted
};

// The folder for the members of a gfxboot of that name. Names of work files, which lie in the root
// too, begin with "~", "#" or a point, or are those of pictures: a gfxboot called so gets a "="
// before its name.
QString workspaceOf(const RunState& run, const QString& name);

// The version shown to people, as "major.minor.revision" with the revision padded to two digits.
QString versionText();
// versionText() in its usual frame: "FENNEL-GFX (v. 3.3.1011) /Component of ... project/".
QString windowTitle();
// "FENNEL-GFX": the title of the window and the name of the settings store.
QString programTitle();

} // namespace fennel
