// SPDX-License-Identifier: MIT
#include "tools/child_process.h"

#include <QProcess>

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

namespace fennel {

void endWithParent(QProcess& process, std::initializer_list<int> kept)
{
    const pid_t parent = ::getpid();
    process.setChildProcessModifier([parent, descriptors = std::vector<int>(kept)] {
        (void)::setpgid(0, 0);
        (void)::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent) // it died before the line above
            ::_exit(1);
        for (const int descriptor : descriptors)
            (void)::fcntl(descriptor, F_SETFD, 0);
    });
}

void killGroup(QProcess& process)
{
    constexpr int patienceMs = 1000;
    process.disconnect();
    if (process.state() == QProcess::NotRunning)
        return;
    // Not waited for yet, so the number cannot have passed to another process.
    if (process.state() == QProcess::Running)
        (void)::kill(-static_cast<pid_t>(process.processId()), SIGKILL);
    process.kill();
    process.waitForFinished(patienceMs);
}

} // namespace fennel
