// SPDX-License-Identifier: MIT
#include "document/session.h"

#include "base/program_paths.h"
#include "container/gfx_save.h"

namespace fennel {

Answer KeptPrompts::ShowMessage(const QString& text, MessageType type, const QString& /*title*/)
{
    m_told.append(text);
    switch (type) {
    case MessageType::YesNo:
    case MessageType::YesNoCancel:
        return m_yes ? Answer::Yes : Answer::No;
    case MessageType::OkCancel:
        return m_yes ? Answer::Ok : Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

Session::Session(Prompts& prompts, const QString& appPath, const QString& defaultFont)
    : m_folder(temporaryFolder() + programTitle() + QStringLiteral("-session-XXXXXX")),
      m_shell{m_run, m_log, m_files, prompts, m_tools}
{
    // QTemporaryDir cannot remove files whose names have no QString.
    m_folder.setAutoRemove(false);
    m_run.AppPath = shortForm(appPath);
    m_run.CurrentLang = QStringLiteral("0409");
    setToolPaths(m_run);
    m_fontSettings.defaultFontName = defaultFont;
    m_run.WorkspaceRoot = withSeparator(m_folder.path());
}

Session::~Session()
{
    if (m_folder.isValid())
        (void)m_files.removeFolder(m_folder.path());
}

Result<void> Session::made() const
{
    if (m_folder.isValid())
        return {};
    return Failure{FailureKind::Io, "Cannot make a folder in " + temporaryFolder().toStdString() +
                                        ": " + m_folder.errorString().toStdString()};
}

bool Session::open(const QString& path)
{
    if (!m_catalogue)
        m_document.loadCatalogue();
    m_catalogue = true;
    OpenListener nobody;
    return gfxboot_open({m_shell, m_document, m_fonts, m_fontSettings, {}}, shortForm(path),
                        nobody);
}

bool Session::openNew()
{
    const QString path = newGfxboot(m_shell);
    return !path.isEmpty() && open(path);
}

bool Session::save()
{
    if (!GfxSave(m_shell, [this] { return m_document.writeParameters(); }))
        return false;
    m_document.markSaved();
    return true;
}

bool Session::saveAs(const QString& path)
{
    const RunState before = m_run;
    m_run.GfxPath = shortForm(path);
    m_run.GfxFileName = namePart(m_run.GfxPath);
    if (save())
        return true;
    m_run.GfxPath = before.GfxPath;
    m_run.GfxFileName = before.GfxFileName;
    return false;
}

} // namespace fennel
