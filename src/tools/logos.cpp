// SPDX-License-Identifier: MIT
#include "tools/logos.h"

#include "base/picture_tool.h"
#include "base/text.h"
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"
#include "tools/image_tool.h"
#include "tools/picture_import.h"
#include "tools/picture_shape.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

bool pictureKindHasNoAlpha(const QString& file)
{
    return file.endsWith(u".jpg", Qt::CaseInsensitive) ||
           file.endsWith(u".jpeg", Qt::CaseInsensitive);
}

bool maskThere(const Shell& shell)
{
    if (FileExists(shell.run.Workspace + logoMaskName))
        return true;
    shell.prompts.ShowMessage(Words::tr("File ") + logoMaskName + Words::tr(" not found"));
    return false;
}

// How opaque the picture is, as a file in WorkspaceRoot; empty if it is so everywhere.
QString outlineOf(const Shell& shell, const QString& file, QSize size, QStringList options)
{
    QString made = shell.run.WorkspaceRoot + u"~outline.jpg"_s;
    options += {u"-extract"_s, u"alpha"_s};
    if (!ResizeJpg(shell, size.width(), size.height(), shortForm(file), made, options))
        return {};
    const Result<FilePicture> read = shell.readPicture({made});
    if (!read)
        return {};
    constexpr int opaqueFrom = 240; // the losses of the format aside
    for (int y = 0; y < read->image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(read->image.constScanLine(y));
        if (std::any_of(line, line + read->image.width(),
                        [](QRgb pixel) { return qGreen(pixel) < opaqueFrom; }))
            return made;
    }
    (void)shell.files.remove(made);
    return {};
}

// A JPEG has no transparency; the boot screen keeps that of a logo in the mask that all logos
// share. False: the user cancelled, or it failed.
bool keepOutline(const Shell& shell, FileSteps& steps, const QString& file, QSize size,
                 const QStringList& options)
{
    const QString mask = shell.run.Workspace + logoMaskName;
    if (pictureKindHasNoAlpha(file) || !FileExists(mask))
        return true;
    const QString outline = outlineOf(shell, file, size, options);
    if (outline.isEmpty())
        return true;
    enum OutlineAnswer { TakeOutline, KeepMask, CancelOutline };
    Choice choice;
    choice.title = Words::tr("Transparent logo");
    choice.text =
        Words::tr("%1 has transparent parts.\n"
                  "Its outline can become the shape of all logos (%2, where half transparent\n"
                  "pixels stay half transparent). Otherwise the present shape stays, and what is\n"
                  "transparent becomes black.")
            .arg(namePart(file), logoMaskName);
    choice.answers = {Words::tr("Take its outline"), Words::tr("Keep the shape"),
                      Words::tr("Cancel")};
    choice.cancel = CancelOutline;
    const int answer = shell.prompts.choose(choice);
    if (answer == TakeOutline)
        return shell.told(steps.replace(outline, mask));
    (void)shell.files.remove(outline);
    return answer == KeepMask;
}

// `target` becomes the picture in the size of `model`.
bool ImportLogo(const Shell& shell, PictureHost& host, FileSteps& steps, const QString& file,
                const QString& model, const QString& target)
{
    // Read before the target changes, as model and target may be the same file.
    const std::optional<QSize> size = knownSize(shell, model);
    if (!size)
        return false;
    const std::optional<ShapeAnswer> shape = askForShape(shell, file, *size, false);
    if (!shape)
        return false;
    const Waiting waiting(host);
    return keepOutline(shell, steps, file, *size, shape->options) &&
           importPicture(shell, steps, shortForm(file), *size, target, shape->options);
}

void showLogos(PictureHost& host)
{
    host.refillLogos();
    host.ShowBackground();
    host.refreshPanels();
}

// A length in pixels, a signed 16-bit number.
int lengthFrom(QStringView text)
{
    return roundToEven(std::clamp(leadingNumber(text), -32768.0, 32767.0));
}

// The size that the user types, or nothing to stop.
std::optional<QSize> askForLogoSize(const Shell& shell, QSize present)
{
    const QString proposed = u"%1x%2"_s.arg(present.width()).arg(present.height());
    QString answer =
        shell.prompts
            .input(Words::tr("Specify the dimensions of LOGO.\nFormat:   WIDTH x HEIGHT"),
                   Words::tr("LOGO Resize"), proposed)
            .value_or(QString());
    answer = answer.toLower().remove(u' ');
    const qsizetype cross = answer.indexOf(u'x');
    // The present size, an empty answer or no size at all: nothing to do.
    if (cross < 0 || answer == proposed)
        return std::nullopt;
    const QStringView text(answer);
    return QSize(lengthFrom(text.left(cross)), lengthFrom(text.mid(cross + 1)));
}

} // namespace

void ChangeLogoMember(const Shell& shell, PictureHost& host, const QString& name)
{
    if (!shell.run.GfxHasZuk)
        return;
    if (!FileExists(shell.run.Workspace + name))
        shell.prompts.ShowMessage(Words::tr("File ") + name + Words::tr(" not found"));
    else if (maskThere(shell))
        ChangePictureMember(shell, host, name);
}

void ChangePictureMember(const Shell& shell, PictureHost& host, const QString& name)
{
    const QString logo = shell.run.Workspace + name;
    const QString chosen = askForPicture(shell);
    FileSteps steps(shell);
    if (chosen.isEmpty() || !ImportLogo(shell, host, steps, chosen, logo, logo))
        return;
    steps.keep();
    showLogos(host);
}

void mnuEDIT_ADDLogo(const Shell& shell, PictureHost& host)
{
    if (!shell.run.GfxHasZuk || !maskThere(shell))
        return;
    const QString number = nextNumber(shell, host.logoRows(), logoPattern, logoMaskName, 100);
    if (number.isEmpty())
        return;
    const QString chosen = askForPicture(shell);
    if (chosen.isEmpty())
        return;
    const QString& folder = shell.run.Workspace;
    const QString bare = u"Logo_"_s + number;
    const QString logo = bare + u".jpg"_s;
    const QString text = bare + u".txt"_s;
    // A text that is left from a deleted logo stays as it is.
    const bool newText = !FileExists(folder + text);
    FileSteps steps(shell);
    if (!ImportLogo(shell, host, steps, chosen, folder + logoMaskName, folder + logo))
        return;
    if (newText &&
        !shell.told(steps.write(folder + text,
                                toCp1251(Words::tr("This txt-file is associated with ") + logo))))
        return;
    // One rewriting of "#.lst" takes in the logo, and the text if that is new too.
    // Inside the steps: a logo that is in no list would be missing after the save.
    if (!RebuildMemberList(shell, newText ? bare + u".???"_s : logo))
        return;
    steps.keep();
    host.refillMembers();
    showLogos(host);
}

void mnuEdit_ResizeLOGO(const Shell& shell, PictureHost& host)
{
    const QString mask = shell.run.Workspace + logoMaskName;
    if (!shell.run.GfxOpened || !maskThere(shell))
        return;
    const std::optional<QSize> present = knownSize(shell, mask);
    const std::optional<QSize> wanted =
        present ? askForLogoSize(shell, *present) : std::optional<QSize>();
    if (!wanted)
        return;
    {
        const Waiting waiting(host);
        if (!resizeAll(shell, u"Logo_*.jpg"_s, *wanted))
            return;
    }
    // A length of 0 has followed from the other one.
    if (const std::optional<QSize> size = knownSize(shell, mask))
        host.setLogoSize(*size);
    host.refillMembers();
    showLogos(host);
}

} // namespace fennel
