// SPDX-License-Identifier: MIT
#include "fonts/font_making.h"

#include "base/failure_words.h"
#include "base/file_steps.h"
#include "base/text.h"
#include "base/tool_output.h"
#include "base/words.h"
#include "container/member_list.h"
#include "fonts/fnt_bytes.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_tag.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

QString errorTitle()
{
    return Words::tr("Font creating error");
}

// A path goes whole: without its ending it could mean a neighbour.
QString fontArgument(const QString& fileName)
{
    if (fileName.contains(u'/'))
        return fileName;
    return fileName.chopped(std::min(fontEndingLength, fileName.size()));
}

QString inWorkspace(const Shell& shell, const QString& name)
{
    return shell.run.Workspace + name;
}

// The tool's own words, for the user; what the runner found wrong if it said nothing.
QString toolReason(const Shell& shell, const Result<void>& run)
{
    QString said = shell.tools.lastErrorOutput();
    const bool canceled = !run && run.failure().kind == FailureKind::Canceled;
    if (!said.isEmpty() && !canceled)
        return said;
    return run ? QString() : failureWords(run.failure());
}

void tellFailure(const Shell& shell, const Failure& failure)
{
    // NotFound means here: a font came out that has no character.
    const bool empty = failure.kind == FailureKind::NotFound;
    const QString text = empty ? Words::tr("ERROR. The character set is empty")
                               : Words::tr("ERROR. File could not be created");
    (void)shell.tell(failure, [&](const QString& reason) {
        shell.prompts.ShowMessage(reason.isEmpty() ? text : text + u'\n' + reason, MessageType::Ok,
                                  errorTitle());
    });
}

// Puts the tag behind the tool's output; a part of it must not stay.
Result<void> appendTag(const Shell& shell, const QString& output, const FontChoice& choice)
{
    Result<void> appended = shell.files.append(output, toCp1251(fontTagText(choice)));
    if (!appended)
        (void)shell.files.remove(output);
    return appended;
}

// The old first font stays as backup. It is copied and not moved, so that there is a first font at
// every moment.
Result<void> keepFirstFont(const Shell& shell)
{
    const QString first = inWorkspace(shell, fontFileName(firstFontNumber));
    if (!FileExists(first))
        return {};
    return shell.files.replaceWhole(
        first, shell.run.Workspace + nameBesideMembers(shell.run.Workspace, u"#16x16.#nt"_s));
}

// Makes the file a member.
Result<void> registerMember(const Shell& shell, FileSteps& steps, const QString& name)
{
    const QString list = inWorkspace(shell, memberListName);
    Result<void> saved = steps.save(list);
    if (!saved)
        return saved;
    if (Result<void> rebuilt = RebuildMemberList(shell, name); !rebuilt)
        return rebuilt;
    // A name that no pattern fits is taken in by no rebuilding, and kept at the end by each.
    return isListed(shell.run.Workspace, name) ? Result<void>()
                                               : shell.files.append(list, name.toUtf8() + "\r\n");
}

// Puts the new font where the name says. A file that was no member becomes one, as it would be lost
// at the next save; if it cannot, everything is as it was.
Result<QString> install(const Shell& shell, const QString& name)
{
    const QString path = inWorkspace(shell, name);
    const bool member = FileExists(path) && isListed(shell.run.Workspace, name);
    FileSteps steps(shell);
    Result<void> done = steps.replace(newFontFile(shell), path);
    // The order of the members stays when none is added.
    if (done && !member)
        done = registerMember(shell, steps, name);
    if (!done)
        return done.failure();
    steps.keep();
    return name;
}

Result<QString> installChanged(const Shell& shell, const QString& rowText)
{
    // In generation 3 the row's text is the name, without a backup, whatever the row tells.
    if (shell.run.gfxboot_var == 3)
        return install(shell, rowText);
    if (shell.run.gfxboot_var != 2)
        return QString();
    const Result<void> kept = keepFirstFont(shell);
    return kept ? install(shell, fontFileName(firstFontNumber)) : kept.failure();
}

// What would make the command's result useless, found before the user chooses a font.
QString refusal(const Shell& shell, const FontState& fonts, const FontCommand& command)
{
    if (command.AddFontMode)
        return nextFontName(fonts.rows).isEmpty()
                   ? Words::tr("There is no number left for a further font.")
                   : QString();
    const ListRow* row = fonts.rows.row(command.row);
    const QString name = row != nullptr ? row->texts.value(0).trimmed() : QString();
    const bool plain = !name.isEmpty() && !name.contains(u'/') && !name.startsWith(u'.');
    return shell.run.gfxboot_var == 3 && !plain ? Words::tr("Select the font to be changed first.")
                                                : QString();
}

} // namespace

QString newFontFile(const Shell& shell)
{
    return inWorkspace(shell, nameBesideMembers(shell.run.Workspace, u"#.#nt"_s));
}

// The points are rounded before they become pixels: 14.5 points make the pixels of 14.
int fontPixels(double points, int logPixelsY)
{
    return roundToEven(roundToEven(points) * logPixelsY / pointsPerInch);
}

int mostFontPoints(int logPixelsY)
{
    // Half a pixel more is rounded away, by some sizes.
    int points = static_cast<int>((fntLargestSize + 0.5) * pointsPerInch / logPixelsY);
    while (fontPixels(points, logPixelsY) > fntLargestSize)
        --points;
    return points;
}

FontDialogStart fontDialogStart(const FontState& fonts, int row, bool AddFontMode, int logPixelsY)
{
    const ListRow* selected = fonts.rows.row(row);
    FontDialogStart start;
    const FontRecord& record =
        fonts.table[static_cast<std::size_t>(selected != nullptr ? selected->number : 0)];
    start.title = AddFontMode
                      ? addFontTitle()
                      : editFontTitle(selected != nullptr ? selected->texts.value(0) : QString());
    start.FontStyleName = record.FontName;
    // The dialog lists faces by their full names.
    if (record.Bold)
        start.FontStyleName += u" Bold"_s;
    if (record.Italic)
        start.FontStyleName += u" Italic"_s;
    start.size = record.Size;
    start.wholeSize = roundToEven(record.Size);
    start.mostPoints = mostFontPoints(logPixelsY);
    start.logPixelsY = logPixelsY;
    return start;
}

QStringList fontMakerCommand(const Shell& shell, const CharSelected& set, const FontChoice& choice,
                             int logPixelsY)
{
    // The order of the arguments is the bridge's contract.
    return {shell.run.ToolMkFont,
            FormatCharacterRanges(set).replace(u' ', u'_'),
            fontArgument(choice.fileName),
            QString::number(fontPixels(choice.size, logPixelsY)),
            QString::number(choice.FontSpaceWidth),
            QString::number(choice.FontLineSpace),
            QString::number(choice.FontLetterSpace),
            newFontFile(shell),
            u",0"_s};
}

QString nextFontName(const ListRows& fontRows)
{
    int next = firstFontNumber + 1;
    for (const ListRow& row : fontRows.rows) {
        const QString name = row.member();
        if (name.isEmpty() || name == fontFileName(firstFontNumber))
            continue;
        const int number = roundToEven(leadingNumber(QStringView(name).right(6))) + firstFontNumber;
        // Counted up at every row, so gaps may stay: numbers of deleted fonts are not given out
        // while later ones exist.
        next = std::max(next, number) + 1;
    }
    return next > lastFontNumber ? QString() : fontFileName(next);
}

Result<void> BuildFont(const Shell& shell, const CharSelected& set, const FontChoice& choice,
                       int logPixelsY)
{
    const QString output = newFontFile(shell);
    Result<void> removed =
        shell.files.remove(output); // an earlier run's must not pass for this one's
    if (!removed)
        return removed;
    // Told by its path there; that no font was made is told behind it, as after any failure.
    if (!shell.toolThere(shell.run.ToolMkFont))
        return Failure{FailureKind::ToolFailed, {}};
    const Result<void> run =
        shell.tools.RunToolAndWait(fontMakerCommand(shell, set, choice, logPixelsY));
    if (!run || !FileExists(output)) {
        dropOutput(shell.files, output);
        const FailureKind kind = run ? FailureKind::ToolFailed : run.failure().kind;
        return Failure{kind, toolReason(shell, run).toStdString()};
    }
    Result<void> tagged = appendTag(shell, output, choice);
    if (!tagged)
        return tagged;
    const Result<QByteArray> font = readBytes(output);
    if (!font)
        return font.failure();
    // After the tag, since only the finished file is read.
    if (FontSymbolCount(*font) == 0)
        return Failure{FailureKind::NotFound, {}};
    return {};
}

std::optional<FontChange> ChangeFont(const Shell& shell, const FontState& fonts,
                                     const FontCommand& command)
{
    // Asked before the dialog, so that nobody chooses characters for nothing.
    const QString refused = refusal(shell, fonts, command);
    if (!refused.isEmpty()) {
        shell.prompts.ShowMessage(refused, MessageType::Ok, errorTitle());
        return std::nullopt;
    }
    const std::optional<FontChoice> choice = command.askUser(
        fontDialogStart(fonts, command.row, command.AddFontMode, command.logPixelsY));
    if (!choice)
        return std::nullopt;
    const Result<void> built = BuildFont(shell, command.characters(), *choice, command.logPixelsY);
    if (!built) {
        // What failed must not lie in the Workspace, where a later command would take it for its
        // own.
        (void)shell.files.remove(newFontFile(shell));
        tellFailure(shell, built.failure());
        return std::nullopt;
    }
    const ListRow* row = fonts.rows.row(command.row);
    const Result<QString> component =
        command.AddFontMode
            ? install(shell, nextFontName(fonts.rows))
            : installChanged(shell, row != nullptr ? row->texts.value(0).trimmed() : QString());
    if (!component) {
        (void)shell.files.remove(newFontFile(shell));
        // Whatever its kind, it is not that the font has no character.
        Failure failure = component.failure();
        failure.kind = FailureKind::Io;
        tellFailure(shell, failure);
        return std::nullopt;
    }
    return FontChange{*choice, *component};
}

} // namespace fennel
