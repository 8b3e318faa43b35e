// SPDX-License-Identifier: MIT
// ListUsbDrives [LETTER:=FOLDER ...] [,0]: tells about every mounted removable drive on standard
// output. The editor names the letters that it has given to the mount folders; without them the
// letters are counted as at a fresh start. FENNEL_SYSTEM_ROOT names a folder that stands in for the
// system's files.
#include "report.h"

#include <QFile>

#include <cstdio>

namespace {

QHash<QString, QChar> lettersFrom(int count, char** arguments)
{
    QHash<QString, QChar> letters;
    for (int i = 1; i < count; ++i) {
        const QString text = QFile::decodeName(arguments[i]);
        // Anything else, such as the suffix ",0", is passed over.
        const bool sound = text.size() > 3 && text.at(0) >= u'A' && text.at(0) <= u'Z' &&
                           text.mid(1, 2) == QStringLiteral(":=");
        if (sound)
            letters[text.mid(3)] = text.at(0);
    }
    return letters;
}

} // namespace

int main(int argc, char** argv)
{
    const auto source = fennel::FolderDriveSource::fromEnvironment();
    const QByteArray report = fennel::usbReport(source, lettersFrom(argc, argv)).toUtf8();
    // A report that is cut short must not pass for a whole one.
    const bool written = std::fwrite(report.constData(), 1, static_cast<std::size_t>(report.size()),
                                     stdout) == static_cast<std::size_t>(report.size());
    return written && std::fflush(stdout) == 0 ? 0 : 1;
}
