// SPDX-License-Identifier: MIT
// The 26 drive letters of a run, the menu of removable drives, and the Current Flash: the drive
// whose menu files are shown and which the boot test starts from.
//
// Letters: the root file system is C; A and B are floppies; every other volume takes the first free
// letter from D on when it is first seen and keeps it until it goes. A volume beyond Z has none.
// The letter of the Current Flash waits for its own volume as long as that is chosen.
#pragma once

#include "base/shell_context.h"
#include "tools/image_drive.h"
#include "tools/volumes.h"

#include <array>
#include <optional>
#include <vector>

namespace fennel {

inline constexpr int letterCount = 26;

struct DriveRecord {
    QString Letter;
    QString VolumeName;
    QString DriveKind; // with a blank at its end; empty: no drive
    bool Present = false;
};
using DriveTable = std::array<DriveRecord, letterCount>; // index 0 is A

// One entry of mnuFlash_FlashArr.
struct FlashEntry {
    QChar letter;
    QString caption; // "    E:   NAME", as it is read; "&" stands for itself
    QString toolTip; // mount folder and size
    bool checked = false;
};

// What mnuMenu_select and its array mnuMenu_fromFlash show for the Current Flash.
struct FlashMenus {
    QString selectCaption; // empty: the caption of the start, as no drive is chosen
    QStringList entries;   // names of the *.lst files, or the one line that says that there is none
    bool anyFile = false;
};

// What the tracking of drives needs from the window.
class FlashHost {
public:
    virtual ~FlashHost() = default;
    // The progress bar (0 to 100) and panel 1 of the status bar while the letters are walked.
    virtual void driveProgress(int percent, const QString& panel1) = 0;
    // Panel 1 is " ", the bar is hidden.
    virtual void driveProgressEnds() = 0;
    // flashEntries() or the Current Flash changed: refill mnuFlash_FlashArr, update toolbars and
    // status bar.
    virtual void flashChanged() = 0;
    // Ends a running boot test without waiting for it.
    virtual void closeQemu() = 0;
    virtual void enableQemuStart(bool enabled) = 0; // mnuT_Qemu_Start
    // Fills mnuMenu_select; an entry can be chosen only with anyFile. Without entries the menu
    // cannot be opened.
    virtual void showFlashMenus(const FlashMenus& menus) = 0;
    virtual void clearMenuFile() = 0; // CurrentMenuFile becomes empty
    // A gfxboot is open: fill the first list anew, and if its tab is shown select its first row.
    virtual void refillMenuList() = 0;
    virtual void chooseEmbeddedMenu() = 0; // mnuMenu_Embedded
};

class Drives {
public:
    // The source and the host outlive this.
    Drives(const Shell& shell, const DriveSource& source, FlashHost& host);

    // Rebuilds the table and the entries. With `notify` the user is told of every letter that
    // changed, as connected or disconnected as `connected` says.
    void RefreshDriveInfo(bool notify, bool connected);
    // The mount table changed: tells what went, then what came. Nested calls, from the event loop
    // of a message, are caught up on at the end.
    void mountsChanged();

    void mnuFlash_FlashArr(int entry); // an index of flashEntries()
    // No drive is chosen any more: the embedded menu shows, a running boot test ends.
    void mnuFlash_UnCheckAll();
    // Only says what the entries below are for.
    void mnuFlash_Choose() const;
    // Looks at all drives anew, silently, and shows the report of each.
    void mnuFlash_GetINFO();

    // Runs ToolListUsb and reads what it wrote to "#ListUSB" in WorkspaceRoot. Below 65 the letter
    // stands for all drives. With `setDisk` the number goes to CurrentFlashDisk, otherwise each
    // drive of the report is shown in a message. A failure is told.
    void ListUsb(int driveChar, bool setDisk) { (void)runListUsb(driveChar, setDisk); }
    // Sets CurrentFlashDisk: the disk of the Current Flash as it is counted now, 0 if the drive is
    // gone. False and -1 if the tool could not be asked, which the user is told; false and the
    // number of before if the user called it off.
    bool askFlashDisk();
    // The volume label of the Current Flash, empty if there is none.
    [[nodiscard]] QString CurrentFlashLabel() const;

    [[nodiscard]] const DriveTable& table() const { return m_table; }
    [[nodiscard]] const std::vector<FlashEntry>& flashEntries() const { return m_entries; }
    // The folder that "X:\" stands for, with "/" at its end; empty if the letter has no drive.
    [[nodiscard]] QString folderOf(int driveChar) const;
    // The image is a removable drive from now on, in the place of one before, and the Current
    // Flash.
    void chooseImage(const ImageDrive& image);
    // Null if the Current Flash is no image.
    [[nodiscard]] const ImageDrive* flashImage() const;
    // The lines of the last report.
    [[nodiscard]] const QStringList& List1() const { return m_list1; }

    bool MonitorOn = false; // the user's choice in mnuFlash_Monitor

private:
    using Letters = std::array<std::optional<Volume>, letterCount>;
    void refreshFrom(const Letters& letters, bool notify, bool connected);
    void refreshLetter(int index, const Letters& letters, bool notify, bool connected);
    void tell(const DriveRecord& record, bool connected) const;
    void notifyChanges();
    void disksChanged();
    void checkEntries();
    Result<void> runListUsb(int driveChar, bool setDisk);
    Result<void> askDisk();
    void choose(int letter, const QString& key);
    void showMenusOf(QChar letter);
    [[nodiscard]] Letters kept(std::vector<Volume>& volumes) const;
    [[nodiscard]] Letters assigned() const;
    [[nodiscard]] QStringList listUsbCommand() const;
    void takeReport(const QString& text, int driveChar, bool setDisk);

    Shell m_shell;
    const DriveSource& m_source;
    FlashHost& m_host;
    DriveTable m_table;
    Letters m_letters;
    std::optional<ImageDrive> m_image;
    QString m_flashKey; // of the volume that was chosen as Current Flash
    std::vector<FlashEntry> m_entries;
    QStringList m_list1;
    bool m_refreshing = false;
    bool m_pending = false;
};

} // namespace fennel
