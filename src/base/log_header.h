// SPDX-License-Identifier: MIT
// The first lines of a log: which program, built when, on which system.
#pragma once

#include <QString>
#include <QStringList>

namespace fennel {

struct SystemFacts {
    QString name;        // "Debian GNU/Linux"
    QString version;     // "12"
    QString kernel;      // "6.1.0-18-amd64"
    bool is64Bit = true; // of the system, not of the process
    QString installLang; // Windows language identifiers; empty if unknown
    QString defaultLang;
};

// From /etc/os-release, uname, the machine's locale (/etc/default/locale or /etc/locale.conf) and
// the user's locale (LC_ALL, LC_MESSAGES, LANG, the first that is set). What cannot be read is
// taken from uname or left empty.
SystemFacts systemFacts();

// The value of a variable in a file of shell assignments, without its quotes; empty if there is
// none.
QString assignedValue(const QString& text, const QString& name);

// "Compiled at 2024-05-06 07:08:09 (GMT)" for seconds since 1970-01-01 00:00:00 GMT.
QString compiledAt(qint64 buildTime);

// The header in order, an item for each WriteLog(). The third holds three lines.
QStringList logHeader(const SystemFacts& system, qint64 buildTime);

} // namespace fennel
