// SPDX-License-Identifier: MIT
#include "supervisor.h"

#include "tools/flash_qemu.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <vector>

namespace fennel {

namespace {

// The shell's code for a program that could not be run.
constexpr int notStarted = 127;
constexpr int askAgainMs = 100;

// The control socket speaks JSON, one object a line: a greeting, then an answer to each question.
class Control {
public:
    Control(int socket, int log) : m_socket(socket), m_log(log) {}
    [[nodiscard]] int socket() const { return m_socket; }
    // A machine that is stopped before it ran is asked about again.
    [[nodiscard]] bool asking() const { return m_asking; }
    // The processor stands still because of a fault of its own.
    [[nodiscard]] bool failed() const { return m_failed; }
    [[nodiscard]] bool ran() const { return m_ran; }
    void ask() { send("{\"execute\":\"query-status\"}\n"); }

    void readable()
    {
        std::array<char, 4096> buffer{};
        const ssize_t count = ::recv(m_socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) {
            m_socket = -1; // poll() leaves it out; the end of the process tells the rest
            m_asking = false;
            return;
        }
        // Lines may come in pieces.
        m_text.append(buffer.data(), std::max<ssize_t>(0, count));
        for (qsizetype end = m_text.indexOf('\n'); end >= 0; end = m_text.indexOf('\n')) {
            const QByteArray line = m_text.left(end);
            m_text.remove(0, end + 1);
            answer(QJsonDocument::fromJson(line).object());
        }
    }

private:
    void send(const QByteArray& text) const
    {
        // A QEMU that is going away is noticed by its end.
        (void)::send(m_socket, text.constData(), static_cast<std::size_t>(text.size()),
                     MSG_NOSIGNAL);
    }

    void answer(const QJsonObject& object)
    {
        if (object.contains(QStringLiteral("QMP"))) {
            send("{\"execute\":\"qmp_capabilities\"}\n");
            ask();
            m_asking = true;
            return;
        }
        if (object[QStringLiteral("event")].toString() == QLatin1String("STOP"))
            ask();
        const QJsonObject status = object[QStringLiteral("return")].toObject();
        m_failed = m_failed ||
                   status[QStringLiteral("status")].toString() == QLatin1String("internal-error");
        if (!m_asking || !status[QStringLiteral("running")].toBool())
            return;
        // Said once: from here on only the guest's end matters.
        m_asking = false;
        m_ran = true;
        const QByteArray line = qemuRunningLine.toUtf8() + '\n';
        (void)!::write(m_log, line.constData(), static_cast<std::size_t>(line.size()));
    }

    int m_socket;
    int m_log;
    bool m_asking = false;
    bool m_failed = false;
    bool m_ran = false;
    QByteArray m_text;
};

// Taken through a descriptor, so that one poll() waits for signals and the socket alike.
sigset_t watchedSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
        sigaddset(&set, number);
    return set;
}

std::vector<QByteArray> commandLine(const QemuStart& start)
{
    std::vector<QByteArray> words{QFile::encodeName(start.program)};
    for (const QString& argument : start.arguments)
        words.push_back(QFile::encodeName(argument));
    return words;
}

// In the child; only calls that are allowed between fork and exec.
[[noreturn]] void becomeQemu(const QemuStart& start, char* const* words, pid_t parent)
{
    // A guest without its supervisor could be closed by nobody.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) // it died before the line above
        ::_exit(notStarted);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    ::dup2(start.log, STDOUT_FILENO);
    ::dup2(start.log, STDERR_FILENO);
    // These two are meant for QEMU; all others close on exec.
    ::fcntl(start.disk, F_SETFD, 0);
    ::fcntl(start.control, F_SETFD, 0);
    ::execv(words[0], words);
    ::_exit(notStarted);
}

pid_t startQemu(const QemuStart& start)
{
    std::vector<QByteArray> words = commandLine(start);
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    // The guest's writes go to the run's own folder, which is removed at its end.
    ::setenv("TMPDIR", QFile::encodeName(start.folder).constData(), 1);
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child == 0)
        becomeQemu(start, pointers.data(), parent);
    return child;
}

// True once the child is gone.
bool takeSignal(int descriptor, pid_t child, QemuEnd& end)
{
    signalfd_siginfo info{};
    if (::read(descriptor, &info, sizeof info) != static_cast<ssize_t>(sizeof info))
        return false;
    if (info.ssi_signo != SIGCHLD) {
        ::kill(child, SIGTERM); // QEMU takes this for the end of the session and cleans up
        return false;
    }
    int status = 0;
    if (::waitpid(child, &status, WNOHANG) != child)
        return false;
    end.code = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return true;
}

} // namespace

QemuEnd superviseQemu(const QemuStart& start)
{
    const sigset_t set = watchedSignals();
    ::sigprocmask(SIG_BLOCK, &set, nullptr);
    const int signalDescriptor = ::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    QemuEnd end{notStarted, 0};
    const pid_t child = signalDescriptor >= 0 ? startQemu(start) : -1;
    // QEMU has its own copy; with ours open its end would never be noticed on the socket.
    ::close(start.control);
    if (child < 0)
        return end;
    Control control(start.ours, start.log);
    for (bool gone = false; !gone;) {
        std::array<pollfd, 2> waits{{{signalDescriptor, POLLIN, 0}, {control.socket(), POLLIN, 0}}};
        // Without a time while nothing is asked: an idle supervisor costs nothing.
        const int ready = ::poll(waits.data(), waits.size(), control.asking() ? askAgainMs : -1);
        if (ready == 0)
            control.ask();
        if (waits[1].revents != 0)
            control.readable();
        if (waits[0].revents != 0)
            gone = takeSignal(signalDescriptor, child, end);
        if (start.kvm && control.failed() && !end.kvmDied) {
            end.kvmDied = true;
            ::kill(child, SIGKILL);
        }
    }
    ::close(signalDescriptor);
    ::close(start.ours);
    // Ended by somebody's wish it is not, and a window that cannot be opened says so again.
    end.kvmDied = end.kvmDied || (start.kvm && !control.ran() && end.code != 0);
    return end;
}

} // namespace fennel
