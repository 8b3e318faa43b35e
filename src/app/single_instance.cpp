// SPDX-License-Identifier: MIT
#include "app/single_instance.h"

#include "base/run_state.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QWidget>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

namespace {

constexpr qint64 longestToken = 4096; // bytes
constexpr int answerTimeMs = 1000;
constexpr int noLockPossible = -1;

// The user's number in the name keeps users of one machine apart.
QString fallbackFolder()
{
    return withSeparator(QDir::tempPath()) + programTitle() + QStringLiteral("-run-") +
           QString::number(::geteuid());
}

// The copy before may have removed the file between our opening and locking it; such a lock would
// bind nobody.
bool isStillThere(int fd, const QByteArray& path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(fd, &opened) == 0 && ::lstat(path.constData(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

// The variable may point to another user's folder, as after "su": a lock there would bind the wrong
// person.
QString instanceFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && isOwnFolder(runtime) ? runtime : fallbackFolder();
}

QString activationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

SingleInstance::SingleInstance(QString folder)
    : m_folder(std::move(folder)),
      m_lockPath(withSeparator(m_folder) + programTitle() + QStringLiteral(".lock")),
      m_socketPath(withSeparator(m_folder) + programTitle() + QStringLiteral(".socket")),
      m_server(std::make_unique<QLocalServer>())
{
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server.get(), &QLocalServer::newConnection, this, &SingleInstance::onConnection);
}

SingleInstance::~SingleInstance()
{
    if (!m_acquired)
        return;
    m_server->close();
    if (m_lock >= 0) {
        // Removed before it is let go: the other way round one could remove the lock of a copy that
        // has just started.
        ::unlink(QFile::encodeName(m_lockPath).constData());
        ::close(m_lock);
    }
    if (m_folder == fallbackFolder())
        ::rmdir(QFile::encodeName(m_folder).constData());
}

bool SingleInstance::acquire()
{
    if (m_acquired)
        return true;
    const std::optional<int> lock = lockFile();
    if (!lock)
        return false;
    m_lock = *lock;
    m_acquired = true;
    listen();
    return true;
}

std::optional<int> SingleInstance::lockFile()
{
    constexpr int attempts = 10; // each is lost only to a copy that ends at this very moment
    const QByteArray path = QFile::encodeName(m_lockPath);
    for (int i = 0; i < attempts; ++i) {
        // Where no lock can be made at all the program runs unlocked: a second copy is a lesser
        // evil than none.
        if (m_folder == fallbackFolder() && !DiskFiles().makePrivateFolder(m_folder))
            return noLockPossible;
        // A lock of the kernel ends with the process, so a crash leaves no stale lock behind.
        const int fd = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (fd < 0 && errno != ENOENT)
            return noLockPossible;
        // The copy that ends has just removed the folder: try again from the start.
        if (fd < 0)
            continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            const bool held = errno == EWOULDBLOCK;
            ::close(fd);
            return held ? std::nullopt : std::optional<int>(noLockPossible);
        }
        if (isStillThere(fd, path))
            return fd;
        ::close(fd);
    }
    return noLockPossible;
}

void SingleInstance::listen()
{
    // Without the lock the socket may be another copy's.
    if (m_lock < 0)
        return;
    // A crash leaves the socket's file behind, and the holder of the lock is its only user.
    QLocalServer::removeServer(m_socketPath);
    m_server->listen(m_socketPath);
}

void SingleInstance::onConnection()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        // The line end proves that the token has come whole; at most longestToken bytes are read,
        // whoever sends.
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            const QByteArray sent = socket->read(longestToken);
            socket->deleteLater();
            if (sent.endsWith('\n'))
                Q_EMIT raiseRequested(QString::fromUtf8(sent.chopped(1)));
        });
    }
}

bool SingleInstance::askOtherToRaise(const QString& token) const
{
    QLocalSocket socket;
    socket.connectToServer(m_socketPath, QIODevice::WriteOnly);
    // A copy that is starting or hangs does not answer; the user is told of it all the same.
    if (!socket.waitForConnected(answerTimeMs))
        return false;
    socket.write(token.toUtf8() + '\n');
    const bool sent = socket.waitForBytesWritten(answerTimeMs) || socket.bytesToWrite() == 0;
    socket.disconnectFromServer();
    return sent;
}

void raiseWindow(QWidget& window, const QString& token)
{
    // Qt's Wayland plug-in takes the token from here when it activates a window.
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    if (window.isMinimized())
        window.showNormal();
    window.raise();
    window.activateWindow();
    // A token counts once, and tools started later must not inherit it.
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

} // namespace fennel
