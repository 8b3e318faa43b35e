// SPDX-License-Identifier: MIT
#include "base/file_names.h"
#include "command/command_table.h"

#include <QCoreApplication>

#include <csignal>

int main(int argc, char** argv)
{
    // A reader that goes away is a failed write, and told as one.
    (void)std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication app(argc, argv);
    // As the system gave them: the toolkit's own words lose what is no UTF-8.
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(fennel::pathOfBytes(argv[i]));
    return static_cast<int>(fennel::runCommandLine(QCoreApplication::applicationDirPath(), words));
}
