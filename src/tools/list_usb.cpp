// SPDX-License-Identifier: MIT
// The part of Drives that asks the tool ListUsbDrives and reads its report.
#include "shell/text.h"
#include "tools/drives.h"

#include <limits>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

// The labels of the report are 20 characters wide.
const QString mountLabel = QStringLiteral("MountPoint        = ");
const QString partitionLabel = QStringLiteral("Partition Name    = ");
const QString diskMark = QStringLiteral("\\Harddisk");
const QString reportName = QStringLiteral("#ListUSB");

// The number behind the mark. Without a mark it is looked for at the same distance from the start
// of the line, where the label stands: 0.
int diskNumberIn(const QString& line)
{
    const qsizetype mark = line.indexOf(diskMark, partitionLabel.size());
    const double number = leadingNumber(QStringView(line).mid(mark + diskMark.size()));
    constexpr double limit = std::numeric_limits<qint16>::max();
    return number >= 0 && number <= limit ? static_cast<int>(number) : 0;
}

struct Block {
    QString text;
    int disk = 0;
};

// Reads from the line `at`, the mount point, to the next empty line, which it leaves `at` on.
Block readBlock(const QStringList& lines, qsizetype& at, QStringList& list, bool withDisk)
{
    Block block{lines[at] + u'\n', 0};
    for (++at; at < lines.size() && !lines[at].trimmed().isEmpty(); ++at) {
        const QString& line = lines[at];
        list.append(line);
        block.text += line + u'\n';
        if (!line.startsWith(partitionLabel))
            continue;
        block.disk = diskNumberIn(line);
        if (withDisk)
            block.text.prepend(u"PhysicalDrive= %1\n"_s.arg(block.disk));
    }
    return block;
}

} // namespace

// The tool would find letters of its own; it is told ours, as arguments such as
// "E:=/media/user/STICK", and the suffix stays the last argument.
QStringList Drives::listUsbCommand() const
{
    QStringList command{m_shell.run.ToolListUsb};
    for (std::size_t i = 0; i < m_letters.size(); ++i) {
        if (m_letters[i])
            command.append(m_table[i].Letter + u":="_s + m_letters[i]->mountFolder);
    }
    command.append(u",0"_s);
    return command;
}

void Drives::ListUsb(int driveChar, bool setDisk)
{
    if (!m_shell.toolThere(m_shell.run.ToolListUsb))
        return;
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
        readReport(QString::fromUtf8(*bytes), driveChar, setDisk);
    else
        m_shell.prompts.ShowMessage(QString::fromStdString(bytes.failure().text));
}

void Drives::readReport(const QString& text, int driveChar, bool setDisk)
{
    const bool all = driveChar < 'A';
    QStringList lines = text.split(u'\n');
    lines.replaceInStrings(u"\r"_s, QString());
    m_list1.clear();
    int disk = 0;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (all)
            m_list1.append(lines[at]);
        const bool counted = lines[at].startsWith(mountLabel) &&
                             (all || lines[at].mid(mountLabel.size(), 1) == QChar(driveChar));
        if (!counted)
            continue;
        const Block block = readBlock(lines, at, m_list1, !setDisk);
        disk = block.disk;
        if (!setDisk) {
            m_shell.prompts.ShowMessage(block.text, MessageType::Ok,
                                        u"FENNEL-GFX. USB Drives INFO"_s);
        }
    }
    if (!all && setDisk)
        m_shell.run.CurrentFlashDisk = disk;
}

} // namespace fennel
