// SPDX-License-Identifier: MIT
#include "base/running_copy.h"

#include "base/files.h"
#include "base/posix_file.h"
#include "base/run_state.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include <cstring>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace fennel {

namespace {

// A copy that is starting or hangs does not answer; whoever asks goes on all the same.
constexpr timeval answerTime{1, 0};

} // namespace

// The user's number in the name keeps users of one machine apart.
QString fallbackInstanceFolder()
{
    return withSeparator(QDir::tempPath()) + programTitle() + QStringLiteral("-run-") +
           QString::number(::geteuid());
}

// The variable may point to another user's folder, as after "su": a lock there would bind the wrong
// person.
QString instanceFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && isOwnFolder(runtime) ? runtime : fallbackInstanceFolder();
}

QString instanceSocket(const QString& folder)
{
    return withSeparator(folder) + programTitle() + QStringLiteral(".socket");
}

QString activationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

QByteArray instanceMessage(const InstanceRequest& request)
{
    QByteArray message = request.token.toUtf8() + '\n';
    if (!request.path.isEmpty())
        message += QUrl::toPercentEncoding(request.path) + '\n';
    return message;
}

std::optional<InstanceRequest> instanceRequest(const QByteArray& message)
{
    // The line end proves that the last part has come whole.
    if (!message.endsWith('\n'))
        return std::nullopt;
    const QByteArrayList lines = message.chopped(1).split('\n');
    return InstanceRequest{QString::fromUtf8(lines.value(0)),
                           QUrl::fromPercentEncoding(lines.value(1))};
}

bool sendToInstance(const QString& folder, const InstanceRequest& request)
{
    const QByteArray path = QFile::encodeName(instanceSocket(folder));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket.valid())
        return false;
    (void)::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &answerTime, sizeof answerTime);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    const QByteArray message = instanceMessage(request);
    return ::send(socket.get(), message.constData(), static_cast<std::size_t>(message.size()),
                  MSG_NOSIGNAL) == message.size();
}

} // namespace fennel
