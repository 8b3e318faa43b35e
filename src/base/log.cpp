// SPDX-License-Identifier: MIT
#include "base/log.h"

#include <QFile>

#include <cerrno>

namespace fennel {

void Log::start(const QString& path)
{
    m_path = path;
    m_on = true;
    // The log covers one run only.
    QFile::remove(path);
}

void Log::setPendingError(int number, const QString& source, const QString& description)
{
    m_number = number;
    m_source = source;
    m_description = description;
}

QString Log::WriteLog(const QString& text)
{
    // Kept before anything else, as opening the log file may change it.
    const int systemError = errno;
    if (!m_on)
        return text;
    QString line = text;
    if (text.compare(QLatin1String("ERR"), Qt::CaseInsensitive) == 0) {
        // Without a pending error the line still comes, with empty fields: readers count on its
        // place.
        const int lastError = m_number == 0 ? 0 : systemError;
        line = QStringLiteral("   ERROR %1 :%2 : %3 : %4")
                   .arg(QString::number(m_number), m_source, m_description,
                        QString::number(lastError));
        setPendingError(0, {}, {});
    }
    // Opened and closed for each line, so that a crash loses none. A log that cannot be written
    // must not stop the program that it describes.
    QFile file(m_path);
    if (file.open(QIODevice::Append))
        file.write(line.toUtf8() + "\r\n");
    return text;
}

} // namespace fennel
