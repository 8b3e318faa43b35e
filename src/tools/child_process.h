// SPDX-License-Identifier: MIT
// Processes that must not outlive the program, however it ends.
#pragma once

#include <initializer_list>

class QProcess;

namespace fennel {

// To be called before the start. The process gets a group of its own and is killed by the system
// when the thread that starts it is gone. These descriptors stay open in it.
void endWithParent(QProcess& process, std::initializer_list<int> kept = {});

// Kills the process and all that it started, if it runs, and waits for its end.
void killGroup(QProcess& process);

} // namespace fennel
