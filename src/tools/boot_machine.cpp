// SPDX-License-Identifier: MIT
#include "tools/boot_machine.h"

#include "tools/child_process.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

#include <array>
#include <ctime>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr int memoryMiB = 128;
constexpr qsizetype keptWords = 2000;
constexpr qint64 moveBytesPerSecond = 10LL << 30U;
constexpr int moveDowntimeMs = 5000;

// The second number of /proc/PID/task/TID/schedstat, in ns, of all threads that are there.
qint64 waitedMs(qint64 process)
{
    const QString folder = u"/proc/%1/task"_s.arg(process);
    qint64 waited = 0;
    for (const QString& thread : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(folder + u'/' + thread + u"/schedstat"_s);
        if (file.open(QIODevice::ReadOnly))
            waited += file.readAll().split(' ').value(1).toLongLong();
    }
    return waited / 1'000'000;
}

QStringList machineArguments(const MachineStart& start, int control, const QString& moves)
{
    QStringList arguments{u"-name"_s, u"FENNEL-GFX boot test"_s};
    arguments << u"-accel"_s << (start.kvm ? u"kvm"_s : u"tcg"_s);
    arguments << u"-no-user-config"_s << u"-nodefaults"_s << u"-machine"_s << u"pc"_s;
    arguments << u"-m"_s << QString::number(memoryMiB) << u"-nic"_s << u"none"_s;
    arguments << u"-vga"_s << u"std"_s << u"-boot"_s << u"c"_s << u"-no-reboot"_s;
    arguments << u"-add-fd"_s << u"fd=%1,set=1"_s.arg(start.image);
    arguments
        << u"-drive"_s
        << u"file.driver=file,file.filename=/dev/fdset/1,format=raw,if=ide,index=0,media=disk,"
           "snapshot=on"_s;
    arguments << u"-display"_s << (start.window ? u"gtk"_s : u"none"_s);
    arguments << u"-chardev"_s << u"socket,id=control,fd=%1"_s.arg(control);
    arguments << u"-mon"_s << u"chardev=control,mode=control"_s;
    if (start.receives)
        arguments << u"-incoming"_s << moves;
    return arguments;
}

QByteArray contents(int descriptor)
{
    struct stat facts = {};
    if (::fstat(descriptor, &facts) != 0)
        return {};
    QByteArray bytes(facts.st_size, Qt::Uninitialized);
    const ssize_t count =
        ::pread(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()), 0);
    return bytes.left(std::max<ssize_t>(0, count));
}

} // namespace

BootMachine::BootMachine(QObject* parent)
    : QObject(parent), m_process(std::make_unique<QProcess>()),
      m_dump(::memfd_create("boot test", MFD_CLOEXEC))
{
}

BootMachine::~BootMachine()
{
    end();
}

void BootMachine::end()
{
    m_ready = false;
    if (m_link)
        m_link->hangUp();
    killGroup(*m_process);
    if (!m_moves.isEmpty())
        QFile::remove(m_process->workingDirectory() + u'/' + m_moves);
}

void BootMachine::start(const QString& program, const MachineStart& start)
{
    std::array<int, 2> pair{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0) {
        QMetaObject::invokeMethod(this, &BootMachine::onEnd, Qt::QueuedConnection);
        return;
    }
    m_link = std::make_unique<QmpLink>(pair[0]);
    const NamelessFile theirs(pair[1]); // QEMU has its own copy
    connect(m_link.get(), &QmpLink::ready, this, [this] {
        m_ready = true;
        Q_EMIT ready();
    });
    connect(m_link.get(), &QmpLink::happened, this, &BootMachine::onEvent);
    m_receives = start.receives;
    if (start.receives)
        m_moves = u"boot_test-"_s + QString::number(pair[0]) + u".move"_s;
    m_process->setProgram(program);
    m_process->setArguments(machineArguments(start, pair[1], u"unix:"_s + m_moves));
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardOutputFile(QProcess::nullDevice());
    // Relative to it the name of a socket is short, as it has to be.
    m_process->setWorkingDirectory(start.folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TMPDIR"_s, start.folder);
    m_process->setProcessEnvironment(environment);
    endWithParent(*m_process, {start.image, pair[1]});
    connect(m_process.get(), &QProcess::finished, this, &BootMachine::onEnd);
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            QMetaObject::invokeMethod(this, &BootMachine::onEnd, Qt::QueuedConnection);
    });
    m_process->start();
}

void BootMachine::onEnd()
{
    m_ready = false;
    Q_EMIT ended(QString::fromUtf8(m_process->readAllStandardError()).trimmed().right(keptWords));
}

void BootMachine::onEvent(const QString& name, const QJsonObject& data)
{
    if (name == u"STOP")
        Q_EMIT halted();
    else if (name == u"RESUME" && std::exchange(m_receives, false))
        Q_EMIT arrived();
    else if (name == u"SHUTDOWN" && data[u"guest"_s].toBool())
        Q_EMIT shutDown(data[u"reason"_s].toString() == u"guest-reset");
}

MachineTime BootMachine::time() const
{
    clockid_t clock = 0;
    timespec work = {};
    const qint64 process = processId();
    if (::clock_getcpuclockid(static_cast<pid_t>(process), &clock) != 0 ||
        ::clock_gettime(clock, &work) != 0)
        return {};
    return {static_cast<qint64>(work.tv_sec) * 1000 + work.tv_nsec / 1'000'000, waitedMs(process)};
}

// QEMU opens the file anew by this name and cuts it, so every answer stands at its beginning.
void BootMachine::intoFile(const QString& command, QJsonObject arguments, const QString& key,
                           const Bytes& done)
{
    arguments[key] = u"/proc/%1/fd/%2"_s.arg(::getpid()).arg(m_dump.descriptor());
    m_link->order(command, arguments, [this, done](const QJsonValue&, const QString& error) {
        done(error.isEmpty() ? contents(m_dump.descriptor()) : QByteArray(), error);
    });
}

void BootMachine::screenDump(const Bytes& done)
{
    intoFile(u"screendump"_s, {}, u"filename"_s, done);
}

void BootMachine::memory(quint32 address, quint32 size, const Bytes& done)
{
    intoFile(u"pmemsave"_s,
             {{u"val"_s, static_cast<qint64>(address)}, {u"size"_s, static_cast<qint64>(size)}},
             u"filename"_s, done);
}

void BootMachine::press(const QStringList& keys)
{
    QJsonArray held;
    for (const QString& key : keys)
        held.append(QJsonObject{{u"type"_s, u"qcode"_s}, {u"data"_s, key}});
    m_link->order(u"send-key"_s, {{u"keys"_s, held}});
}

void BootMachine::askFault(const std::function<void(bool)>& done)
{
    m_link->order(u"query-status"_s, {}, [done](const QJsonValue& answer, const QString&) {
        done(answer[u"status"_s].toString() == u"internal-error");
    });
}

void BootMachine::moveTo(const BootMachine& other,
                         const std::function<void(const QString&)>& failed)
{
    m_link->order(u"migrate-set-parameters"_s, {{u"max-bandwidth"_s, moveBytesPerSecond},
                                                {u"downtime-limit"_s, moveDowntimeMs}});
    m_link->order(u"migrate"_s, {{u"uri"_s, u"unix:"_s + other.m_moves}},
                  [failed](const QJsonValue&, const QString& error) {
                      if (!error.isEmpty())
                          failed(error);
                  });
}

} // namespace fennel
