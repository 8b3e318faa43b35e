// SPDX-License-Identifier: MIT
#include "document/config_file.h"

#include "base/text.h"
#include "params/cfg_keep.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Made beside the file and renamed over it, so that a failure leaves the old file whole.
template <class Fill>
Result<void> replaced(const Shell& shell, const Fill& fill)
{
    const QString work = shell.run.Workspace + u"#cfg.new"_s;
    Result<void> done = fill(work);
    if (done)
        done = shell.files.rename(work, shell.run.Workspace + cfgMemberName);
    if (!done)
        (void)shell.files.remove(work);
    return done;
}

Result<void> writeKept(const Shell& shell, const QByteArray& old, const CfgLines& lines)
{
    const QByteArray bytes = keptCfg(old, lines);
    return bytes == old ? Result<void>() : putConfig(shell, bytes);
}

Result<void> writeListed(const Shell& shell, const QByteArray& old, const QString& text)
{
    return replaced(shell, [&](const QString& work) {
        Result<void> written = shell.files.write(work, old);
        // The mark of the old file decides on the encoding of the new bytes.
        if (written)
            written =
                shell.files.overwriteStart(work, encodeText(text, decodeText(old).TextIsUtf8));
        return written;
    });
}

} // namespace

Result<CfgState> readConfig(const Shell& shell)
{
    const Result<QByteArray> bytes = readBytes(shell.run.Workspace + cfgMemberName, cfgSizeLimit);
    if (!bytes)
        return bytes.failure();
    const Result<QByteArray> engine = readBytes(shell.run.Workspace + u"init"_s);
    const Result<CfgLines> lines =
        cfgLinesFrom(decodeText(*bytes).text, engine ? *engine : QByteArray());
    return lines ? Result<CfgState>(CfgState{*lines, *bytes}) : lines.failure();
}

Result<CfgState> writeConfig(const Shell& shell, const CfgLines& lines, SaveForm form)
{
    const QString path = shell.run.Workspace + cfgMemberName;
    const QString text = cfgTextFrom(lines);
    if (text.isEmpty())
        return CfgState{lines, {}};
    QByteArray old;
    if (FileExists(path)) {
        const Result<QByteArray> read = readBytes(path, cfgSizeLimit);
        if (!read)
            return read.failure();
        old = *read;
    }
    const Result<void> done =
        form == SaveForm::Kept ? writeKept(shell, old, lines) : writeListed(shell, old, text);
    if (!done)
        return done.failure();
    return readConfig(shell);
}

Result<void> putConfig(const Shell& shell, const QByteArray& bytes)
{
    return replaced(shell, [&](const QString& work) { return shell.files.write(work, bytes); });
}

} // namespace fennel
