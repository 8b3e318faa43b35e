// SPDX-License-Identifier: MIT
#include "app/single_instance.h"

#include "base/files.h"
#include "base/run_state.h"

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

constexpr qint64 longestRequest = 16 * 1024; // bytes: a token, and a path of percent signs
constexpr int noLockPossible = -1;

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

SingleInstance::SingleInstance(QString folder)
    : m_folder(std::move(folder)),
      m_lockPath(withSeparator(m_folder) + programTitle() + QStringLiteral(".lock")),
      m_socketPath(instanceSocket(m_folder)), m_server(std::make_unique<QLocalServer>())
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
    if (m_folder == fallbackInstanceFolder())
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
        if (m_folder == fallbackInstanceFolder() && !DiskFiles().makePrivateFolder(m_folder))
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
        // At most longestRequest bytes are read, whoever sends.
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            const auto request = instanceRequest(socket->read(longestRequest));
            socket->deleteLater();
            if (!request)
                return;
            Q_EMIT raiseRequested(request->token);
            if (!request->path.isEmpty())
                Q_EMIT openRequested(request->path);
        });
    }
}

bool SingleInstance::askOtherToRaise(const QString& token) const
{
    return sendToInstance(m_folder, {token, {}});
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
