// SPDX-License-Identifier: MIT
// One run of a command of `fennel`: what was asked, what it says, how it ends.
#pragma once

#include "base/result.h"
#include "container/message_file.h"
#include "document/session.h"
#include "params/zuk_table.h"

#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QStringList>

#include <functional>
#include <optional>

namespace fennel {

// What a script gets to know.
enum class Status {
    Done = 0,
    Differs = 1,  // a difference or a problem was found
    WrongUse = 2, // nothing was read or written
    BadFile = 3,  // a file that is no boot screen, or a broken one
    NotDone = 4,  // the system, or a tool, failed
};

// Stands for standard input and standard output.
inline const QString dash = QStringLiteral("-");

// What the program brings along that is above the commands.
struct CommandParts {
    // The editor's own picture of the open gfxboot, with the text of a menu.lst (empty: the menu
    // that it shows without one), at a share of its size. Null if there is no picture.
    std::function<QImage(Session& session, const QString& menu, double scale)> schematic;
};

class CommandRun {
public:
    // Tools and data lie in `appPath`. `options` holds what was given, flags with an empty value.
    CommandRun(QString appPath, QStringList arguments, QMap<QString, QString> options,
               CommandParts parts = {})
        : m_appPath(std::move(appPath)), m_arguments(std::move(arguments)),
          m_options(std::move(options)), m_parts(std::move(parts))
    {
    }
    [[nodiscard]] const CommandParts& parts() const { return m_parts; }

    [[nodiscard]] const QString& appPath() const { return m_appPath; }
    [[nodiscard]] const QStringList& arguments() const { return m_arguments; }
    [[nodiscard]] bool has(const QString& option) const { return m_options.contains(option); }
    [[nodiscard]] QString option(const QString& name, const QString& otherwise = {}) const
    {
        return m_options.value(name, otherwise);
    }

    // Text for standard output; with --json nothing.
    void print(const QString& text);
    // For a reader with --json: one object, or a list if the command was given several files.
    void add(const QJsonObject& object) { m_objects.append(object); }
    // "3 of 1000" in a line of its own on a terminal, if the command lasts; `done` of `all`: gone.
    void progress(qsizetype done, qsizetype all);
    // What was printed or added goes out.
    Status finish(Status status);

    // "fennel: FILE: what, why" on standard error; each returns the status of its name.
    Status wrongUse(const QString& about, const QString& text);
    Status fail(const QString& about, const Failure& failure);

    // The message file at a path or on standard input; told if that failed, with `status` set.
    std::optional<MessageFile> read(const QString& path, Status& status);
    // Replaces the file as a whole, or not at all; "-" is standard output.
    Status write(const QString& path, const QByteArray& bytes);
    Status write(const QString& path, const MessageFile& message);

    // Names and defaults of the parameters of generation 3.
    [[nodiscard]] const ZUKarr& catalogue();

private:
    QString m_appPath;
    QStringList m_arguments;
    QMap<QString, QString> m_options;
    CommandParts m_parts;
    QElapsedTimer m_shown; // since progress was told last
    QByteArray m_out;
    QJsonArray m_objects;
    std::optional<ZUKarr> m_catalogue;
};

// Bytes of a file or of standard input.
Result<QByteArray> readInput(const QString& path);
// The worse of two.
[[nodiscard]] inline Status worse(Status a, Status b)
{
    return std::max(a, b);
}

} // namespace fennel
