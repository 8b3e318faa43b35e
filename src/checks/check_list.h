// SPDX-License-Identifier: MIT
// The checks, one function each. A check adds what it finds; the table in problems.cpp names it and
// says how bad that is.
#pragma once

#include "checks/problems.h"
#include "screen/boot_layout.h"

namespace fennel {

// Sentence and advice, and what they speak of. Nobody reads a thousand of one kind: from the limit
// on they are counted.
class Findings {
public:
    static constexpr std::size_t limit = 100;

    void push_back(const Problem& problem)
    {
        if (m_told.size() < limit)
            m_told.push_back(problem);
        else
            ++m_untold;
    }
    [[nodiscard]] std::vector<Problem> take();

private:
    std::vector<Problem> m_told;
    qsizetype m_untold = 0;
};

// What a check tells, of an object (row of PanelArr) or of a member; "" is none.
Problem aboutObject(int row, const QString& sentence, const QString& advice);
Problem aboutMember(const QString& member, const QString& sentence, const QString& advice);

// Pictures, fonts and texts come from the folder of the run.
struct DrawnScreen {
    BootMembers members;
    BootRequest request;
    BootLayout layout;
};

// --- checks_screen.cpp
void checkOutside(const CheckInput& input, Findings& found);
void checkCut(const CheckInput& input, Findings& found);
void checkSamePlace(const CheckInput& input, Findings& found);
void checkEntriesFit(const CheckInput& input, Findings& found);
void checkContrast(const CheckInput& input, Findings& found);
void checkComponents(const CheckInput& input, Findings& found);

// None for an object without a switch.
std::optional<Mend> switchedOff(const CheckInput& input, const PanelRec& panel);

// --- checks_hidden.cpp
void checkHidden(const CheckInput& input, Findings& found);

// --- checks_members.cpp
void checkBlackPictures(const CheckInput& input, Findings& found);
void checkPictureSizes(const CheckInput& input, Findings& found);
void checkScreenSize(const CheckInput& input, Findings& found);
void checkNumbers(const CheckInput& input, Findings& found);
void checkRequired(const CheckInput& input, Findings& found);
void checkEngine(const CheckInput& input, Findings& found);
void checkWrapped(const CheckInput& input, Findings& found);
void checkOrder(const CheckInput& input, Findings& found);
void checkMemory(const CheckInput& input, Findings& found);

// --- checks_fonts.cpp
void checkBrokenFonts(const CheckInput& input, Findings& found);
void checkLargeFonts(const CheckInput& input, Findings& found);
void checkFontTags(const CheckInput& input, Findings& found);

// --- checks_values.cpp
void checkCfgNames(const CheckInput& input, Findings& found);
void checkCfgDoubled(const CheckInput& input, Findings& found);
void checkCfgValues(const CheckInput& input, Findings& found);
void checkCfgOff(const CheckInput& input, Findings& found);
void checkLevelRecords(const CheckInput& input, Findings& found);
void checkLevelValues(const CheckInput& input, Findings& found);

// --- checks_texts.cpp
void checkLetters(const CheckInput& input, Findings& found);
void checkTitleWidths(const CheckInput& input, Findings& found);
void checkTextRoom(const CheckInput& input, Findings& found);
void checkNoEntries(const CheckInput& input, Findings& found);
void checkDataTitles(const CheckInput& input, Findings& found);
void checkTechnical(const CheckInput& input, Findings& found);

} // namespace fennel
