// SPDX-License-Identifier: MIT
#include "checks/problems.h"

#include "base/text.h"
#include "base/words.h"
#include "checks/check_list.h"
#include "tools/boot_stick.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace fennel {

namespace {

struct Check {
    QStringView name;
    Severity severity;
    void (*run)(const CheckInput& input, Findings& found);
};

constexpr std::array checks{
    Check{u"required-missing", Severity::Error, checkRequired},
    Check{u"picture-black", Severity::Error, checkBlackPictures},
    Check{u"engine-levels", Severity::Error, checkEngine},
    Check{u"engine-order", Severity::Error, checkOrder},
    Check{u"memory", Severity::Warning, checkMemory},
    Check{u"font-broken", Severity::Error, checkBrokenFonts},
    Check{u"font-large", Severity::Error, checkLargeFonts},
    Check{u"object-outside", Severity::Error, checkOutside},
    Check{u"object-hidden", Severity::Warning, checkHidden},
    Check{u"component-missing", Severity::Error, checkComponents},
    Check{u"menu-empty", Severity::Error, checkNoEntries},
    Check{u"menu-data", Severity::Warning, checkDataTitles},
    Check{u"menu-technical", Severity::Note, checkTechnical},
    Check{u"object-cut", Severity::Warning, checkCut},
    Check{u"same-place", Severity::Warning, checkSamePlace},
    Check{u"entries-fit", Severity::Warning, checkEntriesFit},
    Check{u"title-long", Severity::Warning, checkTitleWidths},
    Check{u"text-cut", Severity::Warning, checkTextRoom},
    Check{u"contrast", Severity::Warning, checkContrast},
    Check{u"letters", Severity::Warning, checkLetters},
    Check{u"font-tag", Severity::Warning, checkFontTags},
    Check{u"picture-size", Severity::Warning, checkPictureSizes},
    Check{u"screen-size", Severity::Warning, checkScreenSize},
    Check{u"number-gap", Severity::Note, checkNumbers},
    Check{u"cfg-value", Severity::Warning, checkCfgValues},
    Check{u"cfg-doubled", Severity::Warning, checkCfgDoubled},
    Check{u"cfg-unknown", Severity::Note, checkCfgNames},
    Check{u"cfg-off", Severity::Note, checkCfgOff},
    Check{u"level-value", Severity::Warning, checkLevelValues},
    Check{u"level-record", Severity::Note, checkLevelRecords},
    Check{u"gzip", Severity::Note, checkWrapped},
};

} // namespace

Problem aboutObject(int row, const QString& sentence, const QString& advice)
{
    Problem problem = aboutMember({}, sentence, advice);
    problem.object = row;
    return problem;
}

Problem aboutMember(const QString& member, const QString& sentence, const QString& advice)
{
    Problem problem;
    problem.member = member;
    problem.sentence = sentence;
    problem.advice = advice;
    return problem;
}

std::vector<Problem> Findings::take()
{
    if (m_untold > 0) {
        Problem rest;
        rest.sentence = Words::tr("There are %1 more of this kind.").arg(m_untold);
        m_told.push_back(rest);
    }
    return std::move(m_told);
}

const QByteArray* CheckInput::find(const QString& name) const
{
    const auto place = places.constFind(name);
    return place == places.cend() ? nullptr : &members[*place].data;
}

void CheckInput::add(const QString& name, const QByteArray& data, qint64 size)
{
    if (!places.contains(name))
        places.insert(name, members.size());
    members.push_back({name, data, size < 0 ? data.size() : size});
}

DrawnScreen& CheckInput::drawn() const
{
    if (laidOut != nullptr)
        return *laidOut;
    laidOut = std::make_shared<DrawnScreen>(
        DrawnScreen{{},
                    {state, run.Workspace, run.gfxboot_var,
                     bootTitles({menu.value_or(QString()), run.GfxHasZuk, {}})},
                    {}});
    DrawnScreen& screen = *laidOut;
    screen.request.panel = BootPanel::None;
    screen.request.moment = previewMoment();
    screen.members.setFolder(run.Workspace);
    const QByteArray* engine = find(QStringLiteral("init"));
    screen.layout = run.gfxboot_var == 3
                        ? layOutOwn(screen.request, screen.members)
                        : layOutCfg(screen.request, screen.members,
                                    engineOf(engine == nullptr ? QByteArray() : *engine).kind);
    return screen;
}

std::vector<Problem> findProblems(const CheckInput& input, const std::atomic<bool>* stopped)
{
    std::vector<Problem> problems;
    for (const Check& check : checks) {
        if (stopped != nullptr && *stopped)
            return {};
        Findings found;
        check.run(input, found);
        for (Problem& problem : found.take()) {
            problem.name = check.name.toString();
            problem.severity = check.severity;
            problems.push_back(std::move(problem));
        }
    }
    std::ranges::stable_sort(problems, std::ranges::greater(), &Problem::severity);
    return problems;
}

QString textForScreen(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    return utf8.hasError() ? decodeText(bytes).text : text;
}

QString severityName(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return Words::tr("error");
    case Severity::Warning:
        return Words::tr("warning");
    default:
        return Words::tr("note");
    }
}

} // namespace fennel
