// SPDX-License-Identifier: MIT
#include "machine.h"

#include <QProcessEnvironment>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

// A comma separates options, so a comma in a name is doubled.
QString quoted(QString name)
{
    return name.replace(u","_s, u",,"_s);
}

QString driveOption(const OpenDisk& disk)
{
    // QEMU gets the descriptor and not the name, so it boots the very disk that was checked.
    // "snapshot" sends the guest's writes to a temporary file.
    return u"file.driver=%1,file.filename=/dev/fdset/1,format=raw,if=ide,index=0,media=disk,"
           "snapshot=on"_s.arg(disk.isDevice ? u"host_device"_s : u"file"_s);
}

QString cardOption(const MachineRequest& request, const QString& bios)
{
    const QString card = u"%1,vgamem_mb=%2"_s.arg(request.card).arg(request.videoMiB);
    return bios.isEmpty() ? card : card + u",romfile="_s + quoted(bios);
}

} // namespace

QStringList machineArguments(const MachineRequest& request, const MachineParts& parts)
{
    QStringList arguments = {
        u"-name"_s,
        u"QEMU. Flash Drive - %1:   (press Ctrl+Alt to unlock mouse)"_s.arg(request.letter)};
    // Named first, tried first; the slow way follows in case it does not start.
    if (parts.kvm)
        arguments << u"-accel"_s << u"kvm"_s;
    arguments << u"-accel"_s << u"tcg"_s;
    // Nothing of the user's own QEMU settings may change the machine, and it has no network.
    arguments << u"-no-user-config"_s << u"-nodefaults"_s << u"-machine"_s << u"pc"_s;
    arguments << u"-m"_s << QString::number(request.ramMiB);
    arguments << u"-nic"_s << u"none"_s;
    arguments << u"-vga"_s << u"none"_s << u"-device"_s << cardOption(request, parts.bios);
    arguments << u"-add-fd"_s << u"fd=%1,set=1"_s.arg(parts.disk.descriptor);
    arguments << u"-drive"_s << driveOption(parts.disk);
    arguments << u"-boot"_s << u"c"_s << u"-display"_s << parts.display;
    arguments << u"-chardev"_s << u"socket,id=control,fd=%1"_s.arg(parts.control);
    arguments << u"-mon"_s << u"chardev=control,mode=control"_s;
    return arguments;
}

// Empty if there is none; the variable is for tests and for people with displays of another kind.
QString wantedDisplay()
{
    QString wish = qEnvironmentVariable("FENNEL_QEMU_DISPLAY");
    if (!wish.isEmpty())
        return wish;
    const bool there =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return there ? u"gtk"_s : QString();
}

} // namespace fennel
