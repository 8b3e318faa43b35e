// SPDX-License-Identifier: MIT
// The commands that show a screen: drawn, booted, both beside each other.
#include "command/commands.h"

#include "command/screens.h"
#include "fonts/installed_fonts.h"
#include "screen/geometry.h"
#include "tools/boot_once.h"
#include "tools/boot_stick.h"

#include <QDateTime>
#include <QDir>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr double largestScale = 800; // percent

std::optional<double> numberOf(CommandRun& run, const QString& option, double otherwise,
                               double least, double most)
{
    if (!run.has(option))
        return otherwise;
    bool good = false;
    const double number = run.option(option).toDouble(&good);
    if (good && number >= least && number <= most)
        return number;
    (void)run.wrongUse(
        u"--"_s + option,
        u"%1 is no number from %2 to %3"_s.arg(run.option(option)).arg(least).arg(most));
    return std::nullopt;
}

// Set if --menu could not be read.
QString menuOrFail(CommandRun& run, Status& status)
{
    const Result<QString> menu = menuText(run);
    if (menu)
        return *menu;
    status = run.fail(run.option(u"menu"_s), menu.failure());
    return {};
}

QString stateName(BootState state)
{
    switch (state) {
    case BootState::Standing:
        return u"standing"_s;
    case BootState::Text:
        return u"text"_s;
    case BootState::Ended:
        return u"ended"_s;
    default:
        return u"hanging"_s;
    }
}

// The order that the options make of a file. The loader's own menu.lst goes with its loader.
Result<BootOrder> orderOf(CommandRun& run, const OpenedFile& opened, const QString& menu, double at)
{
    const QString loader = run.option(u"loader"_s);
    const bool levels = opened.session.document().run().GfxHasZuk;
    Result<BootStick> stick = bootStick(
        opened.bytes, {menu, levels, loader.isEmpty() ? loader : QDir::current().filePath(loader)});
    if (!stick)
        return stick.failure();
    BootOrder order;
    order.stick = std::move(*stick);
    order.keys = run.option(u"keys"_s).split(u',', Qt::SkipEmptyParts);
    order.atSeconds = at;
    order.mayUseKvm = !run.has(u"no-kvm"_s);
    return order;
}

Status showBoot(CommandRun& run, const QString& file, const BootResult& boot)
{
    run.print(u"%1: %2 after %3 s\n"_s.arg(file, stateName(boot.state))
                  .arg(static_cast<double>(boot.bootMs) / 1000, 0, 'f', 1));
    for (const QString& line : boot.text)
        run.print(line + u'\n');
    if (!boot.words.isEmpty())
        run.print(boot.words + u'\n');
    run.add({{u"file"_s, file},
             {u"state"_s, stateName(boot.state)},
             {u"ms"_s, boot.bootMs},
             {u"kvm"_s, boot.kvm},
             {u"text"_s, QJsonArray::fromStringList(boot.text)},
             {u"words"_s, boot.words}});
    return boot.state == BootState::Standing ? Status::Done : Status::Differs;
}

// What the editor shows fonts in that do not say what they are made of.
QString editorFont(const CommandRun& run)
{
    KeptPrompts prompts;
    Session session(prompts, run.appPath());
    return DefaultFontName(session.shell(), installedFontList());
}

} // namespace

Status runRender(CommandRun& run)
{
    Status status = Status::Done;
    const QString file = run.arguments().first();
    const auto scale = numberOf(run, u"scale"_s, 100, 1, largestScale);
    const auto chosen = numberOf(run, u"select"_s, 1, 1, 10'000);
    if (!scale || !chosen)
        return Status::WrongUse;
    const ScreenWish wish{menuOrFail(run, status), static_cast<int>(*chosen) - 1, {}};
    if (status != Status::Done)
        return status;
    const bool schematic = run.has(u"schematic"_s);
    if (schematic && run.has(u"select"_s))
        return run.wrongUse(u"--select"_s,
                            u"the schematic preview has its bar on the first entry"_s);
    const auto opened = openFile(run, file, status, schematic ? editorFont(run) : QString());
    if (!opened)
        return status;
    if (schematic)
        return writePicture(run,
                            run.parts().schematic
                                ? run.parts().schematic(opened->session, wish.menu, *scale / 100)
                                : QImage());
    const QImage screen = drawnScreen(*opened, wish);
    return writePicture(run, atScale(screen, StageScale(*scale / 100)));
}

Status runBoot(CommandRun& run)
{
    Status status = Status::Done;
    const QString file = run.arguments().first();
    const auto at = numberOf(run, u"at"_s, 0, 0, 3600);
    for (const QString& key : run.option(u"keys"_s).split(u',', Qt::SkipEmptyParts)) {
        if (!bootKey(key))
            return run.wrongUse(u"--keys"_s, u"%1 is no key"_s.arg(key));
    }
    if (!at)
        return Status::WrongUse;
    const QString menu = menuOrFail(run, status);
    const auto opened = status == Status::Done ? openFile(run, file, status) : nullptr;
    if (!opened)
        return status;
    const Result<BootOrder> order = orderOf(run, *opened, menu, *at);
    const Result<BootResult> boot =
        order ? bootOnce(opened->session.shell(), *order, nullptr) : order.failure();
    if (!boot)
        return run.fail(file, {FailureKind::ToolFailed, boot.failure().text});
    status = showBoot(run, file, *boot);
    return boot->picture.isNull() ? status : worse(status, writePicture(run, boot->picture));
}

Status runCompare(CommandRun& run)
{
    Status status = Status::Done;
    const QString file = run.arguments().first();
    const auto least = numberOf(run, u"least"_s, 99.5, 0, 100);
    if (!least)
        return Status::WrongUse;
    const QString menu = menuOrFail(run, status);
    const auto opened = status == Status::Done ? openFile(run, file, status) : nullptr;
    if (!opened)
        return status;
    const Result<BootOrder> order = orderOf(run, *opened, menu, 0);
    const Result<BootResult> boot =
        order ? bootOnce(opened->session.shell(), *order, nullptr) : order.failure();
    if (!boot)
        return run.fail(file, {FailureKind::ToolFailed, boot.failure().text});
    if (boot->state != BootState::Standing)
        return showBoot(run, file, *boot);
    // The guest's clock is that of the world.
    const QImage drawn = drawnScreen(*opened, {menu, 0, QDateTime::currentDateTimeUtc().time()});
    const double share = 100 * equalShare(drawn, boot->picture);
    run.print(u"%1: %2 % of the pixels are equal\n"_s.arg(file).arg(share, 0, 'f', 3));
    run.add({{u"file"_s, file}, {u"equal"_s, share}});
    if (run.has(u"output"_s))
        status = writePicture(run, sideBySide(drawn, boot->picture));
    return worse(status, share >= *least ? Status::Done : Status::Differs);
}

} // namespace fennel
