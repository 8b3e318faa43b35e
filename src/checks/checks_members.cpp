// SPDX-License-Identifier: MIT
// Pictures and the archive itself.
#include "base/failure_words.h"
#include "base/files.h"
#include "base/words.h"
#include "checks/check_list.h"
#include "container/engine_info.h"
#include "container/jpeg_check.h"
#include "container/member_table.h"

#include <QSize>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString engineName = u"init"_s;

Result<JpegHead> headOf(const QByteArray& data)
{
    return readJpegHead({data.constData(), static_cast<std::size_t>(data.size())});
}

// The size of a picture member, empty if it is none.
QSize sizeOf(const CheckInput& input, const QString& name)
{
    const QByteArray* data = input.find(name);
    const Result<JpegHead> head = data == nullptr ? Failure{} : headOf(*data);
    return head ? QSize(head->width, head->height) : QSize();
}

template <class Visit>
void eachLike(const CheckInput& input, const QString& pattern, const Visit& visit)
{
    for (const CheckedMember& member : input.members) {
        if (fitsPattern(member.name, pattern))
            visit(member);
    }
}

// Those that fit `pattern` shall be as large as the member that `model` makes of their names.
template <class Model>
void checkSizes(const CheckInput& input, const QString& pattern, const Model& model,
                Findings& found)
{
    eachLike(input, pattern, [&](const CheckedMember& member) {
        const QString other = model(member.name);
        const QSize own = sizeOf(input, member.name);
        const QSize wanted = sizeOf(input, other);
        if (own.isEmpty() || wanted.isEmpty() || own == wanted || other == member.name)
            return;
        Problem problem = aboutMember(member.name,
                                      Words::tr("%1 is %2x%3, %4 is %5x%6.")
                                          .arg(member.name)
                                          .arg(own.width())
                                          .arg(own.height())
                                          .arg(other)
                                          .arg(wanted.width())
                                          .arg(wanted.height()),
                                      Words::tr("Give both the same size: replace one of them."));
        problem.mend = Mend{Words::tr("Scale it to %1x%2").arg(wanted.width()).arg(wanted.height()),
                            {},
                            member.name,
                            wanted,
                            {}};
        found.push_back(problem);
    });
}

} // namespace

void checkBlackPictures(const CheckInput& input, Findings& found)
{
    eachLike(input, u"*.jpg"_s, [&](const CheckedMember& member) {
        const Result<JpegHead> head = headOf(member.data);
        const Result<void> boots = head ? checkBootable(*head) : head.failure();
        if (boots)
            return;
        Problem problem =
            aboutMember(member.name,
                        Words::tr("%1 stays black on the boot screen: %2")
                            .arg(member.name, failureWords(boots.failure())),
                        Words::tr("Replace it by the same picture: it is converted."));
        // A JPEG of another kind; what has no head is no picture at all.
        if (head)
            problem.mend =
                Mend{Words::tr("Convert it"), {}, member.name, {head->width, head->height}, {}};
        found.push_back(problem);
    });
}

void checkPictureSizes(const CheckInput& input, Findings& found)
{
    checkSizes(
        input, backPattern, [](const QString&) { return mainBackName; }, found);
    checkSizes(
        input, logoPattern, [](const QString&) { return logoMaskName; }, found);
    checkSizes(
        input, u"ani_??_msk.jpg"_s, [](const QString& name) { return name.left(6) + u".jpg"_s; },
        found);
}

// The mode is the one that the picture or gfxboot.cfg asks for, if the machine has it; the picture
// lies in its upper left corner, never scaled.
void checkScreenSize(const CheckInput& input, Findings& found)
{
    const QByteArray* engine = input.find(engineName);
    if (engine == nullptr || engineOf(*engine).kind == BootEngine::Unknown)
        return;
    const DrawnScreen& drawn = input.drawn();
    const QString name = drawn.layout.list.background;
    const QSize screen = drawn.layout.list.screen;
    const QSize own = name.isEmpty() ? QSize() : sizeOf(input, name);
    if (own.isEmpty() || own == screen)
        return;
    const bool cut = own.width() > screen.width() || own.height() > screen.height();
    Problem problem = aboutMember(
        name,
        (cut ? Words::tr("%1 is %2x%3 and the screen becomes %4x%5: the rest of it is not seen.")
             : Words::tr("%1 is %2x%3 and the screen becomes %4x%5: the rest stays empty."))
            .arg(name)
            .arg(own.width())
            .arg(own.height())
            .arg(screen.width())
            .arg(screen.height()),
        Words::tr("Scale it to the size of a graphics mode, such as 800x600 or 1024x768."));
    problem.mend = Mend{Words::tr("Scale it to %1x%2").arg(screen.width()).arg(screen.height()),
                        {},
                        name,
                        screen,
                        {}};
    found.push_back(problem);
}

// The engine shows the logos until the first number that is missing.
void checkNumbers(const CheckInput& input, Findings& found)
{
    int expected = 0;
    QStringList names;
    eachLike(input, logoPattern, [&](const CheckedMember& member) { names.append(member.name); });
    names.removeAll(logoMaskName);
    names.sort(Qt::CaseInsensitive);
    for (const QString& name : names) {
        bool good = false;
        const int number = name.mid(5, 2).toInt(&good);
        if (good && number != expected)
            found.push_back(aboutMember(
                name, Words::tr("%1 follows a gap in the numbers of the logos.").arg(name),
                Words::tr("Number the logos from 00 without a gap.")));
        expected = number + 1;
    }
}

void checkRequired(const CheckInput& input, Findings& found)
{
    for (const QString& name : {engineName, mainFontName}) {
        if (input.find(name) == nullptr)
            found.push_back(aboutMember(name, Words::tr("The member %1 is missing.").arg(name),
                                        Words::tr("Add it; File / New has one.")));
    }
}

// An engine that never names the level files does not read them.
void checkEngine(const CheckInput& input, Findings& found)
{
    const QByteArray* engine = input.find(engineName);
    if (input.run.GfxHasZuk && engine != nullptr && !engineOf(*engine).readsLevels)
        found.push_back(aboutMember(engineName,
                                    Words::tr("The engine does not read the level files."),
                                    Words::tr("Upgrade the engine.")));
}

void checkWrapped(const CheckInput& input, Findings& found)
{
    if (input.run.GfxIsGz && input.run.gfxboot_var < 3)
        found.push_back(
            aboutMember({}, Words::tr("The file is gzipped: Grub4DOS reads it, syslinux does not."),
                        Words::tr("Save it without gzip for syslinux.")));
}

// The loader starts the first boot program of the archive, whatever it is called.
void checkOrder(const CheckInput& input, Findings& found)
{
    const QByteArray* engine = input.find(engineName);
    if (engine == nullptr || !isBootProgram(*engine))
        return;
    const CheckedMember& first = *std::ranges::find_if(
        input.members, [](const CheckedMember& member) { return isBootProgram(member.data); });
    if (first.name == engineName)
        return;
    Problem problem = aboutMember(
        first.name,
        Words::tr("%1 is a boot program and stands before init: it is what boots.").arg(first.name),
        Words::tr("Put init in front of it, or take it out."));
    problem.mend = Mend{Words::tr("Put init in front"), {}, {}, {}, engineName};
    found.push_back(problem);
}

// What the loader leaves the engine is what the archive does not take: measured by boots of growing
// archives under syslinux, on a machine with all the memory one could wish.
void checkMemory(const CheckInput& input, Findings& found)
{
    constexpr qint64 mostWithOurs = 2'740'000;
    constexpr qint64 mostWithOthers = 4'030'000;
    constexpr qint64 cpioHeader = 28; // with the zeros behind the name
    const QByteArray* engine = input.find(engineName);
    if (engine == nullptr)
        return;
    qint64 size = 0;
    for (const CheckedMember& member : input.members)
        size += cpioHeader + member.name.size() + member.size;
    const qint64 most = engineOf(*engine).kind == BootEngine::Own ? mostWithOurs : mostWithOthers;
    if (size <= most)
        return;
    const auto megabytes = [](qint64 bytes) {
        return QString::number(static_cast<double>(bytes) / 1e6, 'f', 2);
    };
    found.push_back(
        aboutMember({},
                    Words::tr("The archive is %1 MB; above %2 MB syslinux may have no memory "
                              "left for the boot screen.")
                        .arg(megabytes(size), megabytes(most)),
                    Words::tr("Take pictures out, or make them smaller.")));
}

} // namespace fennel
