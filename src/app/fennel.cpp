// SPDX-License-Identifier: MIT
#include "app/schematic.h"
#include "base/file_names.h"
#include "command/command_table.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <csignal>
#include <memory>

namespace {

// The toolkit's letters need more of it than all else, and no display.
std::unique_ptr<QCoreApplication> application(int& argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--schematic") != 0)
            continue;
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return std::make_unique<QGuiApplication>(argc, argv);
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    // A reader that goes away is a failed write, and told as one.
    (void)std::signal(SIGPIPE, SIG_IGN);
    // As the system gave them: the toolkit's own words lose what is no UTF-8, and it takes some
    // out.
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(fennel::pathOfBytes(argv[i]));
    const std::unique_ptr<QCoreApplication> app = application(argc, argv);
    return static_cast<int>(fennel::runCommandLine(QCoreApplication::applicationDirPath(), words,
                                                   {fennel::schematicPicture}));
}
