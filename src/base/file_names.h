// SPDX-License-Identifier: MIT
// Paths of the system are bytes, ours are QStrings. Old disks have names in code pages of their
// time, and what the toolkit makes of such bytes leads nowhere.
#pragma once

#include <QByteArray>
#include <QString>

namespace fennel {

// Every string of bytes has a path that leads back to it: what is no UTF-8 becomes, byte by byte, a
// character of private use, U+EF80 to U+EFFF, and so do the bytes of these characters themselves.
// All other names are as everywhere.
QString pathOfBytes(const QByteArray& bytes);
QByteArray bytesOfPath(const QString& path);

// As people read it, odd bytes by code page 1251.
QString shownPath(const QString& path);

} // namespace fennel
