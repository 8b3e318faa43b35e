// SPDX-License-Identifier: MIT
#include "base/user_folders.h"

#include "base/files.h"

#include <QDir>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString homeOf(const char* variable, const QString& usual)
{
    const QString named = qEnvironmentVariable(variable);
    return withSeparator(QDir::isAbsolutePath(named) ? named : QDir::homePath() + usual);
}

} // namespace

QString configHome()
{
    return homeOf("XDG_CONFIG_HOME", u"/.config"_s);
}

QString stateHome()
{
    return homeOf("XDG_STATE_HOME", u"/.local/state"_s);
}

bool isInstalled(const QString& programFolder)
{
    return FileExists(withSeparator(programFolder) + u"installed"_s);
}

void setUserFolders(RunState& run)
{
    run.Installed = isInstalled(run.AppPath);
    run.SettingsPath = run.Installed ? configHome() + programTitle() : run.AppPath;
    run.LogPath = run.Installed ? stateHome() + u"fennel-gfx"_s : run.AppPath;
}

} // namespace fennel
