// SPDX-License-Identifier: MIT
// The part of Drives that asks the tool ListUsbDrives.
#include "tools/drives.h"
#include "tools/list_usb_report.h"

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

void Drives::ListUsb(int driveChar, bool setDisk)
{
    if (!m_shell.toolThere(m_shell.run.ToolListUsb))
        return;
    // Removed first, or the report of an earlier run would be read again.
    const QString report = m_shell.run.WorkspaceRoot + reportName;
    if (!m_shell.told(m_shell.files.remove(report)))
        return;
    const Result<void> ran = m_shell.tools.runIntoFile(listUsbCommand(), report);
    if (!FileExists(report)) {
        const QString reason = ran ? QString() : QString::fromStdString('\n' + ran.failure().text);
        m_shell.prompts.ShowMessage(u"ERROR..."_s + reason);
        return;
    }
    const Result<QByteArray> bytes = readBytes(report);
    if (bytes)
        takeReport(QString::fromUtf8(*bytes), driveChar, setDisk);
    else
        m_shell.prompts.ShowMessage(QString::fromStdString(bytes.failure().text));
}

bool Drives::askFlashDisk()
{
    // Unknown until the tool has answered, so that no old number is booted.
    m_shell.run.CurrentFlashDisk = -1;
    ListUsb(m_shell.run.CurrentFlashChar, true);
    return m_shell.run.CurrentFlashDisk >= 0;
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
        m_shell.prompts.ShowMessage(shown, MessageType::Ok, u"FENNEL-GFX. USB Drives INFO"_s);
    }
}

} // namespace fennel
