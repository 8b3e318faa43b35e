// SPDX-License-Identifier: MIT
// Pictures, fonts and the archive itself.
#include "base/failure_words.h"
#include "base/files.h"
#include "base/words.h"
#include "checks/check_list.h"
#include "container/engine_info.h"
#include "container/member_table.h"
#include "fonts/fnt_codec.h"
#include "screen/jpeg_check.h"

#include <QSize>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

Problem about(const QString& member, const QString& sentence, const QString& advice)
{
    Problem problem;
    problem.member = member;
    problem.sentence = sentence;
    problem.advice = advice;
    return problem;
}

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
        Problem problem = about(member.name,
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
                            wanted};
        found.push_back(problem);
    });
}

template <class Visit>
void eachFont(const CheckInput& input, const Visit& visit)
{
    for (const CheckedMember& member : input.members) {
        if (memberKind(member.name) == MemberKind::Font)
            visit(member);
    }
}

} // namespace

void checkBlackPictures(const CheckInput& input, Findings& found)
{
    eachLike(input, u"*.jpg"_s, [&](const CheckedMember& member) {
        const Result<JpegHead> head = headOf(member.data);
        const Result<void> boots = head ? checkBootable(*head) : head.failure();
        if (boots)
            return;
        Problem problem = about(member.name,
                                Words::tr("%1 stays black on the boot screen: %2")
                                    .arg(member.name, failureWords(boots.failure())),
                                Words::tr("Replace it by the same picture: it is converted."));
        // A JPEG of another kind; what has no head is no picture at all.
        if (head)
            problem.mend =
                Mend{Words::tr("Convert it"), {}, member.name, {head->width, head->height}};
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
            found.push_back(
                about(name, Words::tr("%1 follows a gap in the numbers of the logos.").arg(name),
                      Words::tr("Number the logos from 00 without a gap.")));
        expected = number + 1;
    }
}

void checkBrokenFonts(const CheckInput& input, Findings& found)
{
    eachFont(input, [&](const CheckedMember& member) {
        const auto font = decodeFnt(spanOf(member.data));
        if (!font && member.data.size() <= static_cast<qsizetype>(fntSizeLimit))
            found.push_back(about(
                member.name,
                Words::tr("%1 is no whole font: %2").arg(member.name, failureWords(font.failure())),
                Words::tr("Make the font again.")));
    });
}

void checkLargeFonts(const CheckInput& input, Findings& found)
{
    eachFont(input, [&](const CheckedMember& member) {
        if (member.data.size() > static_cast<qsizetype>(fntSizeLimit))
            found.push_back(about(
                member.name,
                Words::tr("%1 is larger than the 512 KB that can be reached.").arg(member.name),
                Words::tr("Make it with fewer characters or in a smaller size.")));
    });
}

void checkRequired(const CheckInput& input, Findings& found)
{
    for (const QString& name : {u"init"_s, mainFontName}) {
        if (input.find(name) == nullptr)
            found.push_back(about(name, Words::tr("The member %1 is missing.").arg(name),
                                  Words::tr("Add it; File / New has one.")));
    }
}

// An engine that never names the level files does not read them.
void checkEngine(const CheckInput& input, Findings& found)
{
    const QByteArray* engine = input.find(u"init"_s);
    if (input.run.GfxHasZuk && engine != nullptr && !engineOf(*engine).readsLevels)
        found.push_back(about(u"init"_s, Words::tr("The engine does not read the level files."),
                              Words::tr("Upgrade the engine.")));
}

void checkWrapped(const CheckInput& input, Findings& found)
{
    if (input.run.GfxIsGz && input.run.gfxboot_var < 3)
        found.push_back(
            about({}, Words::tr("The file is gzipped: Grub4DOS reads it, syslinux does not."),
                  Words::tr("Save it without gzip for syslinux.")));
}

} // namespace fennel
