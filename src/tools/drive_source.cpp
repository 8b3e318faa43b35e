// SPDX-License-Identifier: MIT
#include "tools/drive_source.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace fennel {

FolderDriveSource::FolderDriveSource(const QString& root)
    : m_root(QFileInfo(root).canonicalFilePath())
{
    // Paths begin with "/" already.
    if (m_root == QLatin1String("/"))
        m_root.clear();
    else if (m_root.isEmpty())
        m_root = root; // nothing is there: every question gets an empty answer
}

FolderDriveSource FolderDriveSource::fromEnvironment()
{
    const QString root = QFile::decodeName(qgetenv(systemRootVariable));
    return FolderDriveSource(root.isEmpty() ? QStringLiteral("/") : root);
}

QString FolderDriveSource::place(const QString& path) const
{
    return m_root + path;
}

QByteArray FolderDriveSource::read(const QString& path) const
{
    QFile file(place(path));
    // Files of the kernel claim a size of 0, so they are read up to a limit and not by their size.
    return file.open(QIODevice::ReadOnly) ? file.read(sourceFileLimit) : QByteArray();
}

QStringList FolderDriveSource::names(const QString& folder) const
{
    // With QDir::System, or links that lead nowhere would be missing.
    return QDir(place(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                   QDir::Unsorted);
}

QString FolderDriveSource::resolved(const QString& path) const
{
    QString target = QFileInfo(place(path)).canonicalFilePath();
    if (m_root.isEmpty())
        return target;
    // A link that leads out of the root tells of this machine and not of the one that is looked at.
    return target.startsWith(m_root + QLatin1Char('/')) ? target.mid(m_root.size()) : QString();
}

} // namespace fennel
