// SPDX-License-Identifier: MIT
// QEMU_bridge: boots a drive in qemu-system-x86_64 to see its boot screen. The drive is opened for
// reading only, and what the guest writes goes to a temporary file. See request.h for the command
// line. Variables: FENNEL_FLASH_LETTER (for the window's name), FENNEL_FLASH_IMAGE (a file that is
// booted in the place of the disk), FENNEL_QEMU_DISPLAY (QEMU's
// -display), FENNEL_SYSTEM_ROOT (a folder that stands in for the system's files, so that a disk can
// be an image file).
#include "machine.h"
#include "supervisor.h"

#include "base/files.h"
#include "tools/flash_qemu.h"
#include "tools/kvm.h"
#include "tools/qemu_advice.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdio>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr int refusedCode = 2; // nothing was started
const QString qemuProgram = QStringLiteral("qemu-system-x86_64");

void say(int log, const QString& text)
{
    const QByteArray bytes = text.toUtf8() + '\n';
    // A log that cannot be written must not stop the guest.
    (void)!::write(log, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

// Told in the log, where the editor looks for the reason.
int refuse(int log, const std::string& text)
{
    say(log, QString::fromStdString(text));
    return refusedCode;
}

// Of the bridge itself, wherever it is called from.
QString besideBridge(const QString& name)
{
    return folderPart(QFileInfo(u"/proc/self/exe"_s).canonicalFilePath()) + name;
}

QString biosInForce()
{
    const QString named = qEnvironmentVariable(videoBiosVariable);
    if (!named.isEmpty())
        return FileExists(named) ? named : QString();
    const QString bios = besideBridge(u"vgabios.bin"_s);
    return FileExists(bios) ? bios : QString();
}

// The card of VGA2 has the memory that its BIOS is made for, which is known by its length.
int videoMemory(const MachineRequest& request, const QString& bios)
{
    constexpr int whole = 16;
    const QFileInfo small(besideBridge(u"vgabios800x600-24bit-1mb.bin"_s));
    const bool other = small.exists() && !bios.isEmpty() && QFileInfo(bios).size() != small.size();
    return request.videoMiB == 1 && other ? whole : request.videoMiB;
}

void sayEnd(int log, const QString& logPath, const QemuEnd& end)
{
    if (end.signal != 0)
        say(log, u"QEMU was ended by signal %1."_s.arg(end.signal));
    else if (end.code != 0)
        say(log, u"QEMU ended with code %1."_s.arg(end.code));
    const Result<QByteArray> text = readBytes(logPath);
    const QString hint = text ? qemuAdvice(QString::fromUtf8(*text)) : QString();
    // A guest that ended well may have said such words too.
    if (!hint.isEmpty() && end.code != 0)
        say(log, hint);
}

QemuEnd runMachine(const QString& program, const MachineRequest& request, MachineParts parts,
                   int log)
{
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0) {
        say(log, u"The control socket of QEMU could not be made."_s);
        return {refusedCode, 0};
    }
    parts.control = pair[1];
    const QStringList arguments = machineArguments(request, parts);
    say(log, qemuProgram + u' ' + arguments.join(u' '));
    return superviseQemu({program, arguments, request.folder, log, parts.disk.descriptor,
                          parts.control, pair[0], parts.kvm});
}

int boot(MachineRequest request, int log)
{
    const QString program = QStandardPaths::findExecutable(qemuProgram);
    if (program.isEmpty())
        return refuse(log,
                      "qemu-system-x86_64 was not found: install the package qemu-system-x86.");
    MachineParts parts;
    parts.display = wantedDisplay();
    if (parts.display.isEmpty())
        return refuse(log,
                      "There is no display for QEMU's window: start the editor from a desktop.");
    const QString image = qEnvironmentVariable(flashImageVariable);
    const Result<OpenDisk> disk = image.isEmpty()
                                      ? openDisk(FolderDriveSource::fromEnvironment(), request.disk)
                                      : openImage(image);
    if (!disk)
        return refuse(log, disk.failure().text);
    parts.disk = *disk;
    parts.bios = biosInForce();
    request.videoMiB = videoMemory(request, parts.bios);
    parts.kvm = kvmWorks();
    QemuEnd end = runMachine(program, request, parts, log);
    if (end.kvmDied) {
        say(log, kvmDiedLine);
        parts.kvm = false;
        end = runMachine(program, request, parts, log);
    }
    sayEnd(log, request.log, end);
    return end.signal != 0 ? 1 : end.code;
}

int openLog(const QString& path)
{
    // O_APPEND, as QEMU writes to the same file; O_NOFOLLOW, as the folder may be guessed by
    // others.
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_NOFOLLOW | O_CLOEXEC;
    const int log = ::open(QFile::encodeName(path).constData(), flags, 0600);
    return log >= 0 ? log : STDERR_FILENO;
}

int run(int argc, char** argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QFile::decodeName(argv[i]));
    // A request that is refused is told in the log too, if there is a place for it.
    const bool placed = words.size() >= 5 && FolderExists(words[3]) && !words[4].contains(u'/');
    const int log = placed ? openLog(withSeparator(words[3]) + words[4]) : STDERR_FILENO;
    const Result<MachineRequest> request =
        machineRequest(words, qEnvironmentVariable(flashLetterVariable));
    return request ? boot(*request, log) : refuse(log, request.failure().text);
}

} // namespace

} // namespace fennel

int main(int argc, char** argv)
{
    return fennel::run(argc, argv);
}
