// SPDX-License-Identifier: MIT
#include "document/config_file.h"

#include "base/text.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "params/cfg_keep.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

Result<void> writeKept(const Shell& shell, const QByteArray& old, const CfgLines& lines)
{
    const QByteArray bytes = keptCfg(old, lines);
    return bytes == old ? Result<void>() : putConfig(shell, bytes);
}

// The mark of the old file decides on the encoding. The tail of a longer file stays.
Result<void> writeListed(const Shell& shell, const QByteArray& old, const QString& text)
{
    const QByteArray bytes = encodeText(text, decodeText(old).TextIsUtf8);
    return putConfig(shell, bytes + old.mid(bytes.size()));
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
    return putMember(shell, cfgMemberName, bytes);
}

} // namespace fennel
