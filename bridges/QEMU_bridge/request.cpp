// SPDX-License-Identifier: MIT
#include "request.h"

#include "base/files.h"

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

Failure refused(const QString& text)
{
    return {FailureKind::Malformed, text.toStdString()};
}

// Digits only: what is half a number may mean another disk.
int plainNumber(const QString& text, int largest)
{
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            return -1;
    }
    bool read = false;
    const int number = text.toInt(&read);
    return read && number <= largest ? number : -1;
}

bool setCard(MachineRequest& request, const QString& word)
{
    if (word == u"VGA1") {
        request.card = u"cirrus-vga"_s;
        request.videoMiB = 4;
        return true;
    }
    // Megabytes of video memory, as the editor's menu of video BIOSes names them.
    request.card = u"VGA"_s;
    request.videoMiB = word == u"VGA2" ? 1 : 16;
    return word.startsWith(u"VGA");
}

} // namespace

Result<MachineRequest> machineRequest(const QStringList& arguments, const QString& letter)
{
    if (arguments.size() < 5)
        return refused(u"Usage: QEMU_bridge DISK VGA1|VGA2|VGAxxx RAM256 FOLDER LOG ,1"_s);
    MachineRequest request;
    request.disk = plainNumber(arguments[0], largestDisk);
    // Refused here once more, whatever the caller has checked.
    if (request.disk == 0)
        return refused(u"Disk 0 holds the system and is never booted."_s);
    if (request.disk < 0)
        return refused(u"\"%1\" is no disk number."_s.arg(arguments[0]));
    if (!setCard(request, arguments[1]))
        return refused(u"\"%1\" is no video card: VGA1, VGA2 or VGAxxx."_s.arg(arguments[1]));
    request.ramMiB = plainNumber(arguments[2].mid(3), largestRamMiB);
    if (!arguments[2].startsWith(u"RAM") || request.ramMiB < 1)
        return refused(u"\"%1\" is no size of memory such as RAM256."_s.arg(arguments[2]));
    request.folder = withSeparator(arguments[3]);
    if (!FolderExists(request.folder))
        return refused(u"There is no folder %1."_s.arg(arguments[3]));
    // A plain name: the log must lie in the folder.
    if (arguments[4].isEmpty() || arguments[4].contains(u'/') || arguments[4].startsWith(u'.'))
        return refused(u"\"%1\" is no name of a log file."_s.arg(arguments[4]));
    request.log = request.folder + arguments[4];
    if (letter.size() == 1 && letter.at(0).isUpper())
        request.letter = letter;
    return request;
}

} // namespace fennel
