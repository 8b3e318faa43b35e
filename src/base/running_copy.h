// SPDX-License-Identifier: MIT
// What another process says to the copy of the editor that runs: come to the front, perhaps with a
// file. The copy listens in a folder of this user's.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace fennel {

// Where the lock and the socket lie: XDG_RUNTIME_DIR if it is this user's own folder, otherwise a
// private folder in the temporary folder, which the last copy removes.
QString instanceFolder();
// The socket in such a folder.
QString instanceSocket(const QString& folder);
// Of those the private one.
QString fallbackInstanceFolder();

// The token with which the desktop started this process (XDG_ACTIVATION_TOKEN under Wayland,
// DESKTOP_STARTUP_ID under X11). Under Wayland a window may come to the front only with it. Empty
// if it was started from a terminal.
QString activationToken();

struct InstanceRequest {
    QString token;
    QString path; // a file to open; empty: only to the front
};
// A line for each part, the path percent-encoded, as a name may hold anything.
QByteArray instanceMessage(const InstanceRequest& request);
// Nothing if the message did not come whole.
std::optional<InstanceRequest> instanceRequest(const QByteArray& message);

// False if nobody listens in that folder; a copy that is busy gets it when it is done.
[[nodiscard]] bool sendToInstance(const QString& folder, const InstanceRequest& request);

} // namespace fennel
