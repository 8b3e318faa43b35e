// SPDX-License-Identifier: MIT
#include "app/end_signals.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace fennel {

namespace {

// A signal handler has nothing else to reach its process by. Blocking the signals and reading them
// as a descriptor would need none, but tools that the program starts would inherit the blocking and
// could no longer be asked to end.
std::atomic<int> writeEnd{-1};

void onSignal(int number)
{
    const auto byte = static_cast<char>(number);
    (void)!::write(writeEnd.load(), &byte, 1);
}

constexpr int handledSignals[] = {SIGTERM, SIGINT, SIGHUP};

} // namespace

EndSignals::EndSignals()
{
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their usual, abrupt meaning
    writeEnd = m_pipe[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &EndSignals::endRequested);
    for (const int number : handledSignals)
        (void)std::signal(number, onSignal);
}

EndSignals::~EndSignals()
{
    if (m_pipe[0] < 0)
        return;
    for (const int number : handledSignals)
        (void)std::signal(number, SIG_DFL);
    for (const int end : m_pipe)
        ::close(end);
}

} // namespace fennel
