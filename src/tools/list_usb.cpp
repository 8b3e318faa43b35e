// SPDX-License-Identifier: MIT
// The part of Drives that asks the tool ListUsbDrives.
#include "base/words.h"
#include "tools/drives.h"
#include "tools/list_usb_report.h"

#include <utility>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

const QString reportName = QStringLiteral("#ListUSB");

} // namespace

// The tool would find letters of its own; it is told ours, as arguments such as
// "E:=/media/user/STICK", and the suffix stays the last argument.
QStringList Drives::listUsbCommand() const
{
    // As of now: the folder of a drive that went may have passed to another one.
    const Letters letters = assigned();
    QStringList command{m_shell.run.ToolListUsb};
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (letters[i])
            command.append(m_table[i].Letter + u":="_s + letters[i]->mountFolder);
    }
    command.append(u",0"_s);
    return command;
}

Result<void> Drives::runListUsb(int driveChar, bool setDisk)
{
    if (Result<void> there = m_shell.toolThere(m_shell.run.ToolListUsb); !there)
        return there;
    // Removed first, or the report of an earlier run would be read again.
    const QString report = m_shell.run.WorkspaceRoot + reportName;
    if (Result<void> removed = m_shell.files.remove(report); !removed)
        return m_shell.tell(removed.failure());
    const Result<void> ran = m_shell.tools.runIntoFile(listUsbCommand(), report);
    // Half a report could name the wrong disk.
    if (!ran || !FileExists(report)) {
        (void)m_shell.files.remove(report);
        const Failure failure = ran ? Failure{FailureKind::ToolFailed, {}} : ran.failure();
        return m_shell.tell(failure, [this](const QString& reason) {
            m_shell.prompts.ShowMessage(reason.isEmpty() ? Words::tr("ERROR...")
                                                         : Words::tr("ERROR...\n") + reason);
        });
    }
    const Result<QByteArray> bytes = readBytes(report);
    if (!bytes)
        return m_shell.tell(bytes.failure(),
                            [this](const QString& reason) { m_shell.prompts.ShowMessage(reason); });
    takeReport(QString::fromUtf8(*bytes), driveChar, setDisk);
    return {};
}

bool Drives::askFlashDisk()
{
    return askDisk() && m_shell.run.CurrentFlashDisk >= 0;
}

Result<void> Drives::askDisk()
{
    // An image is no disk of the system; the boot test gets its path besides.
    constexpr int imageDisk = 1;
    if (flashImage() != nullptr) {
        m_shell.run.CurrentFlashDisk = imageDisk;
        return {};
    }
    // Unknown until the tool has answered, so that no old number is booted.
    const int before = std::exchange(m_shell.run.CurrentFlashDisk, -1);
    Result<void> asked = runListUsb(m_shell.run.CurrentFlashChar, true);
    // Called off: it is asked again before anything boots.
    if (!asked && asked.failure().kind == FailureKind::Canceled)
        m_shell.run.CurrentFlashDisk = before;
    return asked;
}

void Drives::takeReport(const QString& text, int driveChar, bool setDisk)
{
    const UsbReport report = readUsbReport(text, driveChar);
    m_list1 = report.lines;
    // No block at all means that the drive is no USB disk: 0, never booted.
    if (setDisk && driveChar >= 'A')
        m_shell.run.CurrentFlashDisk = report.blocks.empty() ? 0 : report.blocks.back().disk;
    // Choosing a drive shows nothing; only the information command does.
    if (setDisk)
        return;
    for (const UsbBlock& block : report.blocks) {
        QString shown = block.text;
        for (const int disk : block.disks)
            shown.prepend(u"PhysicalDrive= %1\n"_s.arg(disk));
        m_shell.prompts.ShowMessage(shown, MessageType::Ok,
                                    Words::tr("FENNEL-GFX. USB Drives INFO"));
    }
}

} // namespace fennel
