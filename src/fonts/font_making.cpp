// SPDX-License-Identifier: MIT
#include "fonts/font_making.h"

#include "container/member_list.h"
#include "fonts/fnt_bytes.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_tag.h"
#include "shell/text.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr double pointsPerInch = 72.0;
const QString errorTitle = u"Font creating error"_s;

// The points are rounded before they become pixels: 14.5 points make the pixels of 14.
int pixelSize(double points, int logPixelsY)
{
    return roundToEven(roundToEven(points) * logPixelsY / pointsPerInch);
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
    if (!said.isEmpty())
        return said;
    return run ? QString() : QString::fromStdString(run.failure().text);
}

void tellFailure(const Shell& shell, const Failure& failure)
{
    // NotFound means here: a font came out that has no character.
    const bool empty = failure.kind == FailureKind::NotFound;
    QString text =
        empty ? u"ERROR. The character set is empty"_s : u"ERROR. File could not be created"_s;
    if (!failure.text.empty())
        text += u'\n' + QString::fromStdString(failure.text);
    shell.prompts.ShowMessage(text, MessageType::Ok, errorTitle);
}

// Puts the tag behind the tool's output; a part of it must not stay.
Result<void> appendTag(const Shell& shell, const QString& output, const FontChoice& choice)
{
    Result<void> appended = shell.files.append(output, toCp1251(fontTagText(choice)));
    if (!appended)
        (void)shell.files.remove(output);
    return appended;
}

// The first font of generation 2: the old one stays as backup. It is copied and not moved, so that
// there is a first font at every moment.
Result<void> replaceFirstFont(const Shell& shell)
{
    const QString first = inWorkspace(shell, fontFileName(firstFontNumber));
    if (FileExists(first)) {
        Result<void> kept = shell.files.replaceWhole(first, inWorkspace(shell, fontBackupFile));
        if (!kept)
            return kept;
    }
    return shell.files.rename(inWorkspace(shell, newFontFile), first);
}

Result<QString> installChanged(const Shell& shell, const QString& rowText)
{
    Result<void> done;
    QString component;
    if (shell.run.gfxboot_var == 2) {
        component = fontFileName(firstFontNumber);
        done = replaceFirstFont(shell);
    } else if (shell.run.gfxboot_var == 3) {
        component = rowText;
        // In generation 3 the selected font is replaced without a backup.
        done = shell.files.rename(inWorkspace(shell, newFontFile), inWorkspace(shell, component));
    }
    return done ? Result<QString>(component) : done.failure();
}

// A font that cannot be registered would be lost at the next save, so it does not stay either. The
// failure has no text if the user knows already.
Result<QString> installAdded(const Shell& shell, const QString& name)
{
    const QString path = inWorkspace(shell, name);
    const Result<void> moved = shell.files.rename(inWorkspace(shell, newFontFile), path);
    if (!moved)
        return moved.failure();
    if (!RebuildMemberList(shell, name)) {
        (void)shell.files.remove(path);
        return Failure{FailureKind::Io, {}};
    }
    return name;
}

// What would make the command's result useless, found before the user chooses a font.
QString refusal(const Shell& shell, const FontState& fonts, const FontCommand& command)
{
    if (command.AddFontMode)
        return nextFontName(fonts.rows).isEmpty() ? u"There is no number left for a further font."_s
                                                  : QString();
    const ListRow* row = fonts.rows.row(command.row);
    const QString name = row != nullptr ? row->text().trimmed() : QString();
    const bool plain = !name.isEmpty() && !name.contains(u'/') && !name.startsWith(u'.');
    return shell.run.gfxboot_var == 3 && !plain ? u"Select the font to be changed first."_s
                                                : QString();
}

} // namespace

int mostFontPoints(int logPixelsY)
{
    // Half a pixel more is rounded away, by some sizes.
    int points = static_cast<int>((fntLargestSize + 0.5) * pointsPerInch / logPixelsY);
    while (pixelSize(points, logPixelsY) > fntLargestSize)
        --points;
    return points;
}

FontDialogStart fontDialogStart(const FontState& fonts, int row, bool AddFontMode, int logPixelsY)
{
    const ListRow* selected = fonts.rows.row(row);
    FontDialogStart start;
    start.rowTag = selected != nullptr ? selected->tag : QString();
    const FontRecord& record = fonts.table[static_cast<std::size_t>(recordOfTag(start.rowTag))];
    start.title = AddFontMode ? addFontTitle()
                              : editFontTitle(selected != nullptr ? selected->text() : QString());
    start.FontStyleName = record.FontName;
    // The dialog lists faces by their full names.
    if (record.Bold)
        start.FontStyleName += u" Bold"_s;
    if (record.Italic)
        start.FontStyleName += u" Italic"_s;
    start.size = record.Size;
    start.wholeSize = roundToEven(record.Size);
    start.mostPoints = mostFontPoints(logPixelsY);
    return start;
}

QStringList fontMakerCommand(const Shell& shell, const CharSelected& set, const FontChoice& choice,
                             int logPixelsY)
{
    // The order of the arguments is the bridge's contract.
    return {shell.run.ToolMkFont,
            FormatCharacterRanges(set).replace(u' ', u'_'),
            fontArgument(choice.fileName),
            QString::number(pixelSize(choice.size, logPixelsY)),
            QString::number(choice.FontSpaceWidth),
            QString::number(choice.FontLineSpace),
            QString::number(choice.FontLetterSpace),
            inWorkspace(shell, newFontFile),
            u",0"_s};
}

QString nextFontName(const ListRows& fontRows)
{
    int next = firstFontNumber + 1;
    for (const ListRow& row : fontRows.rows) {
        const QString name = row.text();
        if (!name.endsWith(u".fnt"_s, Qt::CaseInsensitive) || name == fontFileName(firstFontNumber))
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
    const QString output = inWorkspace(shell, newFontFile);
    Result<void> removed =
        shell.files.remove(output); // an earlier run's must not pass for this one's
    if (!removed)
        return removed;
    // No text: the user has been told.
    if (!shell.toolThere(shell.run.ToolMkFont))
        return Failure{FailureKind::ToolFailed, {}};
    const Result<void> run =
        shell.tools.RunToolAndWait(fontMakerCommand(shell, set, choice, logPixelsY));
    if (!run || !FileExists(output)) {
        (void)shell.files.remove(output);
        return Failure{FailureKind::ToolFailed, toolReason(shell, run).toStdString()};
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
        shell.prompts.ShowMessage(refused, MessageType::Ok, errorTitle);
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
        (void)shell.files.remove(inWorkspace(shell, newFontFile));
        tellFailure(shell, built.failure());
        return std::nullopt;
    }
    const ListRow* row = fonts.rows.row(command.row);
    const Result<QString> component =
        command.AddFontMode
            ? installAdded(shell, nextFontName(fonts.rows))
            : installChanged(shell, row != nullptr ? row->text().trimmed() : QString());
    if (!component) {
        (void)shell.files.remove(inWorkspace(shell, newFontFile));
        if (!component.failure().text.empty())
            tellFailure(shell, {FailureKind::Io, component.failure().text});
        return std::nullopt;
    }
    return FontChange{*choice, *component};
}

} // namespace fennel
