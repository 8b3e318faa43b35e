// SPDX-License-Identifier: MIT
#include "tools/backgrounds.h"

#include "base/text.h"
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "tools/picture_import.h"
#include "tools/picture_shape.h"

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// back.jpg is kept as back.#pg, which no list takes for a picture.
QString backupOf(const QString& back)
{
    const QString folder = folderPart(back);
    return folder +
           nameBesideMembers(folder, namePart(back).toLower().replace(u".jpg"_s, u".#pg"_s));
}

// Places are reckoned from it, so it changes with all backgrounds.
bool giveScreenSize(const Shell& shell, QSize size)
{
    if (!resizeAll(shell, u"back*.jpg"_s, size))
        return false;
    shell.run.BackWidth = size.width();
    shell.run.BackHeight = size.height();
    return true;
}

// `target` gets the picture; what it was is kept as the shown background's backup.
bool replaceBack(const Shell& shell, PictureHost& host, FileSteps& steps, const QString& file,
                 const QString& target)
{
    const std::optional<QSize> size = knownSize(shell, target);
    if (!size)
        return false;
    const std::optional<ShapeAnswer> shape = askForShape(shell, file, *size, true);
    if (!shape)
        return false;
    // Not before the size is known: a picture that cannot be read is told without waiting.
    const Waiting waiting(host);
    if (shape->wholeScreen && !giveScreenSize(shell, *shape->wholeScreen))
        return false;
    const QString backup = backupOf(shell.run.BackFile);
    QString source = shortForm(file);
    const bool ofBackup = source == shortForm(backup);
    const QString aside = shell.run.WorkspaceRoot + u"~backup.jpg"_s;
    // The chosen picture may be the backup, which this very command replaces.
    if (ofBackup && !shell.told(shell.files.copy(source, aside)))
        return false;
    // The new file is made from the backup if the background is put onto itself.
    source = ofBackup ? aside : source == shortForm(target) ? backup : source;
    // The backup first: it may be the very source of the new picture.
    const bool done = shell.told(steps.copy(target, backup)) &&
                      importPicture(shell, steps, source, shape->wholeScreen.value_or(*size),
                                    target, shape->options);
    if (ofBackup)
        (void)shell.files.remove(aside);
    return done;
}

void showImported(PictureHost& host, bool refresh)
{
    host.refillBackgrounds();
    host.ShowBackground();
    if (refresh)
        host.UpdateInterface();
}

bool isThere(const Shell& shell, const QString& path)
{
    if (FileExists(path))
        return true;
    shell.prompts.ShowMessage(Words::tr("File ") + namePart(path) + Words::tr(" not found"));
    return false;
}

struct ScreenMode {
    int number;
    QSize size;
};

// The modes that the question below names.
constexpr std::array screenModes = {
    ScreenMode{1, {320, 200}},  ScreenMode{2, {640, 480}},   ScreenMode{3, {800, 600}},
    ScreenMode{4, {1024, 768}}, ScreenMode{5, {1280, 1024}},
};

// Nothing if the user cancelled. A number that is no mode gives 0x0, which the tool refuses.
std::optional<QSize> askForMode(const Shell& shell)
{
    const std::optional<QString> answer = shell.prompts.input(
        Words::tr("All Boot Managers (such Grub4DOS) allow VESA-compatible graphics modes only.\n"
                  "   1. 320x200\n"
                  "   2. 640x480\n"
                  "   3. 800x600\n"
                  "   4. 1024x768\n"
                  "   5. 1280x1024\n"
                  "Specify number of graphics mode."),
        Words::tr("Gfxboot Resize"), u"3"_s);
    const double number = leadingNumber(answer.value_or(QString()));
    // A closed dialog, an empty answer and a typed 0 all mean "no".
    if (number == 0.0)
        return std::nullopt;
    for (const ScreenMode& mode : screenModes) {
        if (number == mode.number)
            return mode.size;
    }
    return QSize(0, 0);
}

struct MonitorRow {
    const char16_t* caption;
    double proportion;
};
constexpr std::array<MonitorRow, 3> monitorRows = {{
    {u"16:9", 16.0 / 9},
    {u"16:10", 16.0 / 10},
    {u"21:9", 21.0 / 9},
}};

// By how much pictures must be taller so that they look right on such a monitor; nothing if the
// user cancelled or the screen is as wide already.
std::optional<double> askForMonitor(const Shell& shell, QSize screen)
{
    Choice choice;
    choice.title = Words::tr("16:9 support");
    choice.text =
        Words::tr("On which monitor will the screen of %1 x %2 be shown?\n"
                  "All backgrounds and logos are stretched vertically for it; what a background\n"
                  "loses above and below is cut off. Undo brings them back.")
            .arg(screen.width())
            .arg(screen.height());
    for (const MonitorRow& row : monitorRows)
        choice.answers.append(QString::fromUtf16(row.caption));
    choice.answers.append(Words::tr("Cancel"));
    choice.cancel = static_cast<int>(monitorRows.size());
    const int answer = shell.prompts.choose(choice);
    if (answer < 0 || answer >= choice.cancel)
        return std::nullopt;
    const double shape = static_cast<double>(screen.width()) / std::max(1, screen.height());
    const double factor = monitorRows[static_cast<std::size_t>(answer)].proportion / shape;
    constexpr double visible = 1.01;
    if (factor > visible)
        return factor;
    shell.prompts.ShowMessage(
        Words::tr("The screen is as wide as that monitor: there is nothing to do."));
    return std::nullopt;
}

} // namespace

bool ImportBack(const Shell& shell, PictureHost& host, const QString& file, bool refresh)
{
    const QString chosen = file.isEmpty() ? askForPicture(shell) : file;
    // Asked again behind the dialog, during which the gfxboot may have gone.
    if (chosen.isEmpty() || !shell.run.GfxOpened || !FileExists(shell.run.BackFile))
        return false;
    FileSteps steps(shell);
    if (!replaceBack(shell, host, steps, chosen, shell.run.BackFile))
        return false;
    // From here on nothing can fail that would have to be taken back.
    steps.keep();
    showImported(host, refresh);
    return true;
}

void ChangeBackMember(const Shell& shell, PictureHost& host, const QString& name)
{
    const QString member = shell.run.Workspace + name;
    if (!shell.run.GfxHasZuk || !isThere(shell, member) || !isThere(shell, shell.run.BackFile))
        return;
    const QString chosen = askForPicture(shell);
    if (chosen.isEmpty() || !shell.run.GfxOpened)
        return;
    FileSteps steps(shell);
    if (!replaceBack(shell, host, steps, chosen, member))
        return;
    steps.keep();
    showImported(host, false);
}

void mnuEDIT_ADDBack(const Shell& shell, PictureHost& host)
{
    if (!shell.run.GfxHasZuk || !shell.run.GfxOpened)
        return;
    const QString first = shell.run.Workspace + mainBackName;
    const QString number = nextNumber(shell, host.backgroundRows(), backPattern, mainBackName, 101);
    if (number.isEmpty() || !isThere(shell, first))
        return;
    const QString chosen = askForPicture(shell);
    if (chosen.isEmpty())
        return;
    const QString name = u"back_"_s + number + u".jpg"_s;
    // The run follows the new member while it is made and comes back if that fails.
    const QString before = shell.run.BackFile;
    FileSteps steps(shell);
    // The new member starts as the first background, which gives it the size.
    bool done = shell.told(steps.copy(first, shell.run.Workspace + name));
    shell.run.BackFile = shell.run.Workspace + name;
    done = done && replaceBack(shell, host, steps, chosen, shell.run.BackFile) &&
           RebuildMemberList(shell, name);
    if (!done) {
        shell.run.BackFile = before;
        return;
    }
    steps.keep();
    host.refillMembers();
    showImported(host, true);
}

void mnuEdit_ChangeBack(const Shell& shell, PictureHost& host)
{
    ImportBack(shell, host, {}, true);
}

void mnuEdit_ge_Clipboard(const Shell& shell, PictureHost& host, const PictureClipboard& clipboard)
{
    // The user has been told if there is none.
    if (PictureFromClipboard(shell, clipboard))
        ImportBack(shell, host, shell.run.WorkspaceRoot + clipboardJpgName, true);
}

void mnuEdit_Resize(const Shell& shell, PictureHost& host)
{
    if (!shell.run.GfxOpened)
        return;
    shell.prompts.ShowMessage(
        Words::tr("It is planned that this menu item will be scaled to all the components\n"
                  "(panels, images, fonts).\n"
                  "Currently offered to scale the background only.\n"));
    const std::optional<QSize> size = askForMode(shell);
    if (!size || *size == QSize(shell.run.BackWidth, shell.run.BackHeight))
        return;
    {
        // Ended by the braces: the waiting cursor must be gone before the window is laid out anew.
        const Waiting waiting(host);
        if (!giveScreenSize(shell, *size))
            return;
    }
    host.refillMembers();
    host.refillBackgrounds();
    host.mnuView_fill();
}

void mnuEdit_16x9Support(const Shell& shell, PictureHost& host)
{
    shell.prompts.ShowMessage(
        Words::tr("When the gfxboot is used on a wide-screen monitors without \n"
                  "resolution with the proportion of 16:9 (or 16:10, or ...), we\n"
                  "can see the geometric distortion of the graphics.\n"
                  "This occurs because the gfxboot works outside of the operating\n"
                  "system and has no support from the drivers. The gfxboot can\n"
                  "use only the VESA-modes.\n"
                  "To remove distortions, is necessary to stretch the images \n"
                  "vertically in the process of preparing."));
    if (!shell.run.GfxOpened)
        return;
    const QSize screen(shell.run.BackWidth, shell.run.BackHeight);
    const std::optional<double> factor = askForMonitor(shell, screen);
    if (!factor)
        return;
    const Waiting waiting(host);
    // What is taller by the factor and keeps its middle is that middle part, pulled to the height.
    const int part = std::clamp(roundToEven(screen.height() / *factor), 1, screen.height());
    const QStringList middle = {u"-crop"_s, u"0"_s, QString::number((screen.height() - part) / 2),
                                QString::number(screen.width()), QString::number(part)};
    if (!resizeAll(shell, u"back*.jpg"_s, screen, middle))
        return;
    const QString mask = shell.run.Workspace + logoMaskName;
    if (shell.run.GfxHasZuk && FileExists(mask)) {
        const std::optional<QSize> logo = knownSize(shell, mask);
        const QSize taller =
            logo ? QSize(logo->width(), roundToEven(logo->height() * *factor)) : QSize();
        if (logo && resizeAll(shell, u"Logo_*.jpg"_s, taller))
            host.setLogoSize(taller);
        host.refillLogos();
    }
    host.refillMembers();
    showImported(host, true);
}

} // namespace fennel
