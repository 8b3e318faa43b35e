// SPDX-License-Identifier: MIT
#include "support/long_run.h"

#include "support/test_shell.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

namespace fennel::test {

bool longRun()
{
    return qEnvironmentVariableIntValue("FENNEL_LONG") > 0;
}

int rounds(int usual, int thorough)
{
    const int wanted = qEnvironmentVariableIntValue("FENNEL_ROUNDS");
    return wanted > 0 ? wanted : longRun() ? thorough : usual;
}

unsigned seed()
{
    const int wanted = qEnvironmentVariableIntValue("FENNEL_SEED");
    return wanted > 0 ? static_cast<unsigned>(wanted) : 1;
}

qint64 residentBytes()
{
    ::malloc_trim(0);
    const QByteArray pages = bytesOf(QStringLiteral("/proc/self/statm")).split(' ').value(1);
    return pages.toLongLong() * ::sysconf(_SC_PAGESIZE);
}

namespace {

std::array<rusage, 2> used()
{
    std::array<rusage, 2> both = {};
    ::getrusage(RUSAGE_SELF, &both[0]);
    ::getrusage(RUSAGE_CHILDREN, &both[1]);
    return both;
}

} // namespace

qint64 peakBytes()
{
    qint64 most = 0;
    for (const rusage& one : used())
        most = std::max<qint64>(most, one.ru_maxrss * 1024LL);
    return most;
}

qint64 processorTime()
{
    qint64 sum = 0;
    for (const rusage& one : used())
        sum += (one.ru_utime.tv_sec + one.ru_stime.tv_sec) * 1000LL +
               (one.ru_utime.tv_usec + one.ru_stime.tv_usec) / 1000;
    return sum;
}

namespace {

extern "C" void bark(int)
{
    constexpr char text[] = "The watchdog ends a test that hangs.\n";
    (void)!::write(STDERR_FILENO, text, sizeof text - 1);
    ::abort();
}

} // namespace

Watchdog::Watchdog(unsigned seconds)
{
    ::signal(SIGALRM, bark);
    ::alarm(seconds);
}

Watchdog::~Watchdog()
{
    ::alarm(0);
}

} // namespace fennel::test
