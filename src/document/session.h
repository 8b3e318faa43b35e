// SPDX-License-Identifier: MIT
// A gfxboot that is open without a window: a run of its own, with a folder of its own for the
// members. Two can stand side by side.
#pragma once

#include "document/opening.h"

#include <QTemporaryDir>

namespace fennel {

// Prompts for a run that nobody watches: what is told is kept, a question of Yes or No has one
// answer, and every dialog is cancelled.
class KeptPrompts : public Prompts {
public:
    using Prompts::ShowMessage;
    explicit KeptPrompts(bool yes = false) : m_yes(yes) {}
    [[nodiscard]] const QStringList& told() const { return m_told; }

    Answer ShowMessage(const QString& text, MessageType type, const QString& title) override;
    QString openFile(const FileQuestion& /*question*/) override { return {}; }
    QString saveFile(const FileQuestion& /*question*/) override { return {}; }
    QString ChooseFolder(const QString& /*title*/) override { return {}; }
    std::optional<QString> input(const QString& /*prompt*/, const QString& /*title*/,
                                 const QString& /*initial*/) override
    {
        return std::nullopt;
    }
    std::optional<QColor> ChooseColour(const QColor& /*initial*/) override { return std::nullopt; }

private:
    bool m_yes;
    QStringList m_told;
};

class Session {
public:
    // Tools and data are those of the program in `appPath`. The prompts outlive the session.
    // `defaultFont` stands in for fonts that do not say what they are made of.
    Session(Prompts& prompts, const QString& appPath, const QString& defaultFont = {});
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Whether the folder for the members could be made; nothing else works without.
    [[nodiscard]] Result<void> made() const;
    [[nodiscard]] const Shell& shell() const { return m_shell; }
    [[nodiscard]] Document& document() { return m_document; }
    [[nodiscard]] const Document& document() const { return m_document; }
    [[nodiscard]] FontState& fonts() { return m_fonts; }

    // False if the prompts were told why not. An older engine is upgraded if they say so.
    bool open(const QString& path);
    bool openNew();
    // Back to the file that was opened, or to another one, wrapped as the opened one was. False if
    // the prompts were told why not; then the old file is as it was.
    bool save();
    bool saveAs(const QString& path);

private:
    QTemporaryDir m_folder;
    RunState m_run;
    Log m_log;
    DiskFiles m_files;
    ProcessToolRunner m_tools;
    Shell m_shell;
    FontState m_fonts;
    FontScanSettings m_fontSettings;
    Document m_document{m_shell, m_fonts.table};
    bool m_catalogue = false;
};

} // namespace fennel
