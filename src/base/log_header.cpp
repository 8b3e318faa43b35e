// SPDX-License-Identifier: MIT
#include "base/log_header.h"

#include "base/language_names.h"
#include "base/run_state.h"
#include "base/text.h"

#include <QDateTime>
#include <QTimeZone>

#include <sys/utsname.h>

namespace fennel {

namespace {

constexpr int ruleLength = 72;

// Several files may hold the value, the first that has it counts: /etc overrules what the system
// was shipped with.
QString firstAssigned(const QStringList& files, const QString& name)
{
    for (const QString& file : files) {
        QString value = assignedValue(FileReadAll(file).text, name);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

QString userLocale()
{
    // In the order in which the system itself decides on the language of messages.
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        QString value = qEnvironmentVariable(name);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

} // namespace

// The shell syntax of os-release and the locale files, as far as they use it: one assignment a
// line, quoted or not.
QString assignedValue(const QString& text, const QString& name)
{
    const QString start = name + QLatin1Char('=');
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QString trimmed = line.trimmed();
        if (!trimmed.startsWith(start))
            continue;
        const QString value = trimmed.mid(start.size());
        const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                            (value.front() == u'"' || value.front() == u'\'');
        return quoted ? value.mid(1, value.size() - 2) : value;
    }
    return {};
}

SystemFacts systemFacts()
{
    SystemFacts facts;
    utsname kernel = {};
    if (::uname(&kernel) == 0) {
        facts.kernel = QString::fromLocal8Bit(kernel.release);
        // The kernel decides: a 32-bit program may run on a 64-bit system.
        facts.is64Bit = QByteArrayView(kernel.machine).endsWith("64") || sizeof(void*) == 8;
    }
    const QStringList releases{QStringLiteral("/etc/os-release"),
                               QStringLiteral("/usr/lib/os-release")};
    facts.name = firstAssigned(releases, QStringLiteral("NAME"));
    if (facts.name.isEmpty())
        facts.name = QString::fromLocal8Bit(kernel.sysname);
    facts.version = firstAssigned(releases, QStringLiteral("VERSION_ID"));
    const QStringList locales{QStringLiteral("/etc/default/locale"),
                              QStringLiteral("/etc/locale.conf")};
    facts.installLang = languageOfLocale(firstAssigned(locales, QStringLiteral("LANG")));
    facts.defaultLang = languageOfLocale(userLocale());
    return facts;
}

QString compiledAt(qint64 buildTime)
{
    const QDateTime time = QDateTime::fromSecsSinceEpoch(buildTime, QTimeZone::utc());
    return QStringLiteral("Compiled at ") + time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")) +
           QStringLiteral(" (GMT)");
}

QStringList logHeader(const SystemFacts& system, qint64 buildTime)
{
    // The order is fixed, people compare logs side by side. An entry may be several lines.
    return {QStringLiteral("\r\n") + QString(ruleLength, QLatin1Char('-')),
            windowTitle(),
            compiledAt(buildTime),
            QStringLiteral("OS: %1\r\nVersion:%2\r\nBuild: %3")
                .arg(system.name, system.version, system.kernel),
            QStringLiteral("x64/x86: ") +
                (system.is64Bit ? QStringLiteral("x64") : QStringLiteral("x86")),
            QStringLiteral("InstallLang: ") + languageName(system.installLang),
            QStringLiteral("DefaultLang: ") + languageName(system.defaultLang)};
}

} // namespace fennel
