// SPDX-License-Identifier: MIT
// An older boot screen goes over to our engine.
#include "command/commands.h"

#include "base/files.h"
#include "command/opened_file.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// What a save of the session makes, as bytes.
Result<QByteArray> savedBytes(OpenedFile& opened)
{
    const Shell& shell = opened.session.shell();
    const QString folder = shell.run.WorkspaceRoot + u"~output/"_s;
    if (const Result<void> made = shell.files.makeFolder(folder); !made)
        return made.failure();
    if (opened.session.saveAs(folder + u"message"_s))
        return readBytes(folder + u"message"_s);
    return Failure{FailureKind::ToolFailed, opened.prompts.told().join(u' ').toStdString()};
}

} // namespace

Status runUpgrade(CommandRun& run)
{
    Status status = Status::Done;
    const QString file = run.arguments().first();
    const auto opened = openFile(run, file, status);
    if (!opened)
        return status;
    Document& document = opened->session.document();
    if (document.generation() == Generation::Three)
        return run.wrongUse(file, u"it is of generation 3 already"_s);
    if (!document.upgrade())
        return run.fail(file,
                        {FailureKind::ToolFailed, opened->prompts.told().join(u' ').toStdString()});
    const Result<QByteArray> bytes = savedBytes(*opened);
    return bytes ? run.write(run.option(u"output"_s, file), *bytes)
                 : run.fail(file, bytes.failure());
}

} // namespace fennel
