// SPDX-License-Identifier: MIT
#include "tools/list_usb_report.h"

#include "base/text.h"

#include <limits>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

// Labels letter for letter as the tool pads them.
const QString mountLabel = QStringLiteral("MountPoint        = ");
const QString partitionLabel = QStringLiteral("Partition Name    = ");
const QString diskMark = QStringLiteral("\\Harddisk");

// The number behind the mark. Without a mark it is looked for at the same distance from the start
// of the line, where the label stands: 0.
int diskNumberIn(const QString& line)
{
    const qsizetype mark = line.indexOf(diskMark);
    const double number = leadingNumber(QStringView(line).mid(mark + diskMark.size()));
    constexpr double limit = std::numeric_limits<qint16>::max();
    // A number that cannot be is 0, a disk that is never booted: the safe side.
    return number >= 0 && number <= limit ? static_cast<int>(number) : 0;
}

// Reads from the line `at`, the mount point, to the next empty line, which it leaves `at` on.
UsbBlock readBlock(const QStringList& lines, qsizetype& at, QStringList& seen)
{
    UsbBlock block;
    block.text = lines[at] + u'\n';
    for (++at; at < lines.size() && !lines[at].trimmed().isEmpty(); ++at) {
        seen.append(lines[at]);
        block.text += lines[at] + u'\n';
        if (lines[at].startsWith(partitionLabel))
            block.disks.push_back(diskNumberIn(lines[at]));
    }
    // The last line of a block wins.
    block.disk = block.disks.empty() ? 0 : block.disks.back();
    return block;
}

} // namespace

UsbReport readUsbReport(const QString& text, int driveChar)
{
    // The blank that stands for "no drive" asks for all of them.
    const bool all = driveChar < 'A';
    QStringList lines = text.split(u'\n');
    lines.replaceInStrings(u"\r"_s, QString());
    UsbReport report;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (all)
            report.lines.append(lines[at]);
        const bool counted = lines[at].startsWith(mountLabel) &&
                             (all || lines[at].mid(mountLabel.size(), 1) == QChar(driveChar));
        if (counted)
            report.blocks.push_back(readBlock(lines, at, report.lines));
    }
    return report;
}

} // namespace fennel
