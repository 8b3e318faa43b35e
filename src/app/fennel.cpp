// SPDX-License-Identifier: MIT
#include "command/command_table.h"

#include <QCoreApplication>

#include <csignal>

int main(int argc, char** argv)
{
    // A reader that goes away is a failed write, and told as one.
    (void)std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication app(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    return static_cast<int>(fennel::runCommandLine(QCoreApplication::applicationDirPath(), words));
}
