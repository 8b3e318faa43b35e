// SPDX-License-Identifier: MIT
// A mount table of any bytes on a machine with one disk: no drive has an empty mount folder, labels
// hold no control characters, and no two volumes are the same.
#include "tools/mount_table.h"
#include "tools/volumes.h"

#include <QSet>

#include <cstdlib>

using namespace fennel;

namespace {

// Nothing but the table; every device number leads to the same stick.
class TableSource : public DriveSource {
public:
    explicit TableSource(QByteArray table) : m_table(std::move(table)) {}
    [[nodiscard]] QByteArray read(const QString& path) const override
    {
        if (path == mountTablePath)
            return m_table;
        if (path.endsWith(QStringLiteral("/removable")))
            return "1\n";
        return path.startsWith(QStringLiteral("/run/udev")) ? m_table : QByteArray();
    }
    [[nodiscard]] QStringList names(const QString&) const override { return {}; }
    [[nodiscard]] QString resolved(const QString& path) const override
    {
        return path.endsWith(QLatin1Char('1')) ? QStringLiteral("/sys/devices/usb1/1-1/sda")
                                               : QString();
    }
    [[nodiscard]] QString place(const QString& path) const override { return path; }

private:
    QByteArray m_table;
};

bool sound(const Volume& volume)
{
    for (const QChar c : volume.label) {
        if (c.category() == QChar::Other_Control)
            return false;
    }
    return volume.mountFolder.startsWith(QLatin1Char('/')) && volume.label.size() <= 255;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const TableSource source(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    QSet<QString> keys;
    for (const Volume& volume : volumesOf(source)) {
        if (!sound(volume) || keys.contains(volume.key))
            std::abort();
        keys.insert(volume.key);
        (void)sizeText(volume.size);
    }
    return 0;
}
