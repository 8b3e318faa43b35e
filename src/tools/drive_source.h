// SPDX-License-Identifier: MIT
// Where the program learns what drives the system has: the mount table, sysfs and udev's database.
// All three are files, so one interface serves them, rooted at "/" or, in a test, at a folder that
// holds the files of another machine.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace fennel {

// Paths are absolute as the described system sees them, such as "/sys/block/sda/removable".
class DriveSource {
public:
    virtual ~DriveSource() = default;
    // The bytes of a file, at most sourceFileLimit of them; empty if it is not there or not for us.
    [[nodiscard]] virtual QByteArray read(const QString& path) const = 0;
    // What a folder holds, without "." and "..", in no particular order.
    [[nodiscard]] virtual QStringList names(const QString& folder) const = 0;
    // Where the path ends up once every link is followed; empty if that is nowhere.
    [[nodiscard]] virtual QString resolved(const QString& path) const = 0;
    // The path by which this process opens it.
    [[nodiscard]] virtual QString place(const QString& path) const = 0;
};

inline constexpr qint64 sourceFileLimit = 8LL * 1024 * 1024; // a mount table of 40,000 lines
inline const QString mountTablePath = QStringLiteral("/proc/self/mountinfo");
// Names the folder that stands in for "/" in the bridges; meant for tests and for disk images.
inline constexpr char systemRootVariable[] = "FENNEL_SYSTEM_ROOT";

class FolderDriveSource : public DriveSource {
public:
    // Links within the tree are followed as long as they stay in it.
    explicit FolderDriveSource(const QString& root = QStringLiteral("/"));
    // The tree that systemRootVariable names, or the real one.
    static FolderDriveSource fromEnvironment();

    [[nodiscard]] QByteArray read(const QString& path) const override;
    [[nodiscard]] QStringList names(const QString& folder) const override;
    [[nodiscard]] QString resolved(const QString& path) const override;
    [[nodiscard]] QString place(const QString& path) const override;
    [[nodiscard]] bool isReal() const { return m_root.isEmpty(); }

private:
    QString m_root; // canonical, no "/" at its end; empty for the real system
};

} // namespace fennel
