// SPDX-License-Identifier: MIT
#include "tools/drives.h"

#include "base/text.h"
#include "base/words.h"

#include <algorithm>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr int rootIndex = 2;      // C
constexpr int firstFreeIndex = 3; // D
// Behind four blanks, see refreshLetter().
constexpr qsizetype letterPlace = 4; // of an entry's caption
// Compared without the blank that kindLabel() puts behind it.
QString removableLabel()
{
    return kindLabel(VolumeKind::Removable).trimmed();
}

QChar letterAt(int index)
{
    return QChar(static_cast<char16_t>(u'A' + index));
}

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

QString imageKey(const ImageDrive& image)
{
    return u"image:"_s + image.path;
}

QString toolTipOf(const Volume& volume)
{
    const QString size = sizeText(volume.size);
    return size.isEmpty() ? volume.mountFolder : volume.mountFolder + u", "_s + size;
}

} // namespace

Drives::Drives(const Shell& shell, const DriveSource& source, FlashHost& host)
    : m_shell(shell), m_source(source), m_host(host)
{
    for (int i = 0; i < letterCount; ++i)
        m_table[at(i)].Letter = letterAt(i);
}

// The letters of the volumes that are still there; those are taken out of the list.
Drives::Letters Drives::kept(std::vector<Volume>& volumes) const
{
    Letters letters;
    for (int i = 0; i < letterCount; ++i) {
        if (!m_letters[at(i)])
            continue;
        const auto same = [&](const Volume& volume) {
            // C belongs to the root alone; a volume that becomes the root moves there.
            return volume.key == m_letters[at(i)]->key && volume.root == (i == rootIndex);
        };
        const auto found = std::find_if(volumes.begin(), volumes.end(), same);
        if (found == volumes.end())
            continue;
        letters[at(i)] = std::move(*found);
        volumes.erase(found);
    }
    return letters;
}

Drives::Letters Drives::assigned() const
{
    std::vector<Volume> volumes = volumesOf(m_source);
    if (m_image) {
        Volume volume;
        volume.key = imageKey(*m_image);
        volume.kind = VolumeKind::Removable;
        volume.label = namePart(m_image->path);
        volume.mountFolder = m_image->folder;
        volume.source = m_image->path;
        volumes.push_back(volume);
    }
    Letters letters = kept(volumes);
    // Another volume under the letter of the Current Flash would pass for the chosen one.
    const int flash = m_shell.run.CurrentFlashChar - 'A';
    const auto firstFree = [&](bool evenJustFreed) {
        int i = firstFreeIndex;
        while (i < letterCount &&
               (letters[at(i)] || i == flash || (m_letters[at(i)] && !evenJustFreed)))
            ++i;
        return i;
    };
    for (Volume& volume : volumes) {
        int index = volume.root ? rootIndex : volume.floppy;
        if (index < 0 && flash >= firstFreeIndex && volume.key == m_flashKey)
            index = flash;
        // A letter that goes and comes in one look would hide that another drive is there.
        if (index < 0)
            index = firstFree(false);
        if (index == letterCount)
            index = firstFree(true);
        if (index == letterCount)
            m_shell.WriteLog(u"     no letter for "_s + volume.mountFolder);
        else
            letters[at(index)] = std::move(volume);
    }
    return letters;
}

void Drives::RefreshDriveInfo(bool notify, bool connected)
{
    // A message inside lets events in, and with them the next change of the drives.
    if (m_refreshing)
        return;
    const Letters letters = assigned();
    const bool changed = letters != m_letters;
    refreshFrom(letters, notify, connected);
    if (changed)
        disksChanged();
    // What came meanwhile is looked at now.
    if (m_pending)
        mountsChanged();
}

void Drives::refreshFrom(const Letters& letters, bool notify, bool connected)
{
    m_refreshing = true;
    m_shell.WriteLog(u" RefreshDriveInfo"_s);
    m_entries.clear();
    for (int i = 0; i < letterCount; ++i) {
        // From 20 to 80 over the 26 letters.
        m_host.driveProgress(roundToEven(i * 60.0 / 25.0) + 20, letterAt(i) + QString(u':'));
        refreshLetter(i, letters, notify, connected);
    }
    m_host.driveProgressEnds();
    m_refreshing = false;
    m_host.flashChanged();
}

void Drives::refreshLetter(int index, const Letters& letters, bool notify, bool connected)
{
    const std::optional<Volume>& volume = letters[at(index)];
    DriveRecord now{letterAt(index), volume ? volume->label : QString(),
                    volume ? kindLabel(volume->kind) : QString(), volume.has_value()};
    const DriveRecord before = m_table[at(index)];
    // The old record is told of a drive that goes: the new one is empty.
    if (notify && now.Present != before.Present) {
        tell(connected ? now : before, connected);
        // The chosen drive is gone, and with it its menu and QEMU's disk.
        if (!connected && m_shell.run.CurrentFlashChar == 'A' + index)
            mnuFlash_UnCheckAll();
    }
    if (now.DriveKind.trimmed() == removableLabel()) {
        m_entries.push_back({letterAt(index),
                             u"    "_s + letterAt(index) + u":   "_s + now.VolumeName,
                             toolTipOf(*volume), m_shell.run.CurrentFlashChar == 'A' + index});
    }
    // Last, as the message above may ask for the table as it was.
    m_table[at(index)] = std::move(now);
    m_letters[at(index)] = volume;
}

void Drives::tell(const DriveRecord& record, bool connected) const
{
    m_shell.prompts.ShowMessage(
        (connected ? Words::tr("Connected drive ") : Words::tr("Disconnected drive ")) +
        record.Letter + Words::tr(":\nType: ") + record.DriveKind.trimmed() +
        Words::tr("\nVolumeName: ") + record.VolumeName);
}

void Drives::mountsChanged()
{
    m_pending = true;
    if (m_refreshing)
        return;
    while (m_pending) {
        m_pending = false;
        notifyChanges();
    }
}

// Removals and arrivals are told one after the other, so that each gets its own words.
void Drives::notifyChanges()
{
    const Letters now = assigned();
    const bool changed = now != m_letters;
    Letters remaining = m_letters;
    // A volume that was exchanged under its letter counts as both.
    bool gone = false;
    bool came = false;
    for (int i = 0; i < letterCount; ++i) {
        const std::optional<Volume>& before = m_letters[at(i)];
        const bool stays = before && now[at(i)] && before->key == now[at(i)]->key;
        gone = gone || (before && !stays);
        came = came || (now[at(i)] && !stays);
        remaining[at(i)] = stays ? now[at(i)] : std::nullopt;
    }
    if (gone)
        refreshFrom(remaining, true, false);
    if (came)
        refreshFrom(now, true, true);
    else if (!gone && changed)
        refreshFrom(now, false, false);
    if (changed)
        disksChanged();
}

// A disk that goes or comes may move the numbers of the others. A tool that could not be asked when
// the drive was chosen is not asked again unbidden.
void Drives::disksChanged()
{
    if (m_shell.run.CurrentFlashChar != noFlash && m_shell.run.CurrentFlashDisk >= 0)
        (void)askFlashDisk();
}

void Drives::checkEntries()
{
    for (FlashEntry& entry : m_entries)
        entry.checked = m_shell.run.CurrentFlashChar == entry.letter.unicode();
}

void Drives::choose(int letter, const QString& key)
{
    m_shell.run.CurrentFlashChar = letter;
    m_flashKey = key;
    checkEntries();
    m_host.flashChanged();
}

void Drives::mnuFlash_FlashArr(int entry)
{
    if (entry < 0 || entry >= static_cast<int>(m_entries.size()))
        return;
    // The caption is what the user clicked, so the letter is taken from it.
    const QChar letter = m_entries[at(entry)].caption.at(letterPlace);
    RunState& run = m_shell.run;
    const int before = run.CurrentFlashChar;
    const QString keyBefore = m_flashKey;
    const std::optional<Volume>& volume = m_letters[at(letter.unicode() - 'A')];
    choose(letter.unicode(), volume ? volume->key : QString());
    const Result<void> asked = askDisk();
    if (!asked && asked.failure().kind == FailureKind::Canceled) {
        choose(before, keyBefore);
        return;
    }
    // QEMU runs on the drive before.
    if (before != letter.unicode())
        m_host.closeQemu();
    // 0 is a disk of the system, which is never booted.
    if (asked && run.CurrentFlashDisk > 0)
        m_host.enableQemuStart(true);
    showMenusOf(letter);
    if (run.GfxOpened)
        m_host.refillMenuList();
}

void Drives::showMenusOf(QChar letter)
{
    FlashMenus menus;
    menus.selectCaption = Words::tr("Select MENU from flash drive ") + letter + u':';
    const QString folder = folderOf(letter.unicode());
    if (!folder.isEmpty())
        menus.entries = filesLike(folder, u"*.lst"_s);
    menus.anyFile = !menus.entries.isEmpty();
    if (!menus.anyFile)
        menus.entries = {Words::tr("No \"*.lst\" files")};
    m_host.showFlashMenus(menus);
}

void Drives::mnuFlash_UnCheckAll()
{
    // The guest's disk may be gone; it must not go on writing to what comes next.
    m_host.closeQemu();
    m_shell.run.CurrentFlashChar = noFlash;
    checkEntries();
    m_host.clearMenuFile();
    m_host.showFlashMenus({});
    m_host.flashChanged();
    if (m_shell.run.GfxOpened)
        m_host.refillMenuList();
    m_host.chooseEmbeddedMenu();
    m_host.closeQemu();
}

void Drives::chooseImage(const ImageDrive& image)
{
    m_image = image;
    RefreshDriveInfo(false, false);
    for (std::size_t entry = 0; entry < m_entries.size(); ++entry) {
        const std::optional<Volume>& volume =
            m_letters[at(m_entries[entry].letter.unicode() - 'A')];
        if (volume && volume->key == imageKey(image))
            return mnuFlash_FlashArr(static_cast<int>(entry));
    }
}

const ImageDrive* Drives::flashImage() const
{
    const bool chosen =
        m_image && m_shell.run.CurrentFlashChar != noFlash && m_flashKey == imageKey(*m_image);
    return chosen ? &*m_image : nullptr;
}

void Drives::mnuFlash_Choose() const
{
    m_shell.prompts.ShowMessage(
        Words::tr("Just select one of the flash drive listed below.\nFor this flash drive (named "
                  "\"Current Flash\") you can run QEMU"));
}

void Drives::mnuFlash_GetINFO()
{
    RefreshDriveInfo(false, false);
    (void)CurrentFlashLabel();
    ListUsb(noFlash, false);
}

QString Drives::CurrentFlashLabel() const
{
    const int index = m_shell.run.CurrentFlashChar - 'A';
    return index >= 0 && index < letterCount ? m_table[at(index)].VolumeName : QString();
}

QString Drives::folderOf(int driveChar) const
{
    const int index = driveChar - 'A';
    if (index < 0 || index >= letterCount || !m_letters[at(index)])
        return {};
    if (m_image && m_letters[at(index)]->key == imageKey(*m_image))
        return m_image->folder;
    // The place as the program sees it, under another root too.
    return withSeparator(m_source.place(m_letters[at(index)]->mountFolder));
}

} // namespace fennel
