// SPDX-License-Identifier: MIT
// The log file, beside the executable or in the user's folder, written only on request (switch
// "-logfile").
#pragma once

#include <QString>
#include <QStringList>

namespace fennel {

// One file for one run, no levels and no time stamps; the indentation shows the depth of the call.
// Each line opens and closes the file, so that a crash loses nothing. A log that cannot be written
// is given up silently: it must never stop the work.
class Log {
public:
    void start(const QString& path); // logging on; an old file is deleted
    [[nodiscard]] bool isOn() const { return m_on; }
    // The error that the next WriteLog("ERR") reports.
    void setPendingError(int number, const QString& source, const QString& description);
    // Adds the text and a line end, and returns the text. "ERR", in any case, writes the pending
    // error instead: "   ERROR number :source : description : last system error".
    QString WriteLog(const QString& text);

private:
    QString m_path;
    bool m_on = false;
    int m_number = 0;
    QString m_source;
    QString m_description;
};

} // namespace fennel
