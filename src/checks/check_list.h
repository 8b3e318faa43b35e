// SPDX-License-Identifier: MIT
// The checks, one function each. A check adds what it finds; the table in problems.cpp names it and
// says how bad that is.
#pragma once

#include "checks/problems.h"

namespace fennel {

// Sentence and advice, and what they speak of.
using Findings = std::vector<Problem>;

// --- checks_screen.cpp
void checkOutside(const CheckInput& input, Findings& found);
void checkCut(const CheckInput& input, Findings& found);
void checkSamePlace(const CheckInput& input, Findings& found);
void checkEntriesFit(const CheckInput& input, Findings& found);
void checkContrast(const CheckInput& input, Findings& found);
void checkComponents(const CheckInput& input, Findings& found);

// --- checks_members.cpp
void checkBlackPictures(const CheckInput& input, Findings& found);
void checkPictureSizes(const CheckInput& input, Findings& found);
void checkNumbers(const CheckInput& input, Findings& found);
void checkBrokenFonts(const CheckInput& input, Findings& found);
void checkLargeFonts(const CheckInput& input, Findings& found);
void checkRequired(const CheckInput& input, Findings& found);
void checkEngine(const CheckInput& input, Findings& found);
void checkWrapped(const CheckInput& input, Findings& found);

// --- checks_values.cpp
void checkCfgNames(const CheckInput& input, Findings& found);
void checkCfgDoubled(const CheckInput& input, Findings& found);
void checkCfgValues(const CheckInput& input, Findings& found);
void checkLevelRecords(const CheckInput& input, Findings& found);
void checkLevelValues(const CheckInput& input, Findings& found);

// --- checks_texts.cpp
void checkLetters(const CheckInput& input, Findings& found);
void checkTitleWidths(const CheckInput& input, Findings& found);
void checkNoEntries(const CheckInput& input, Findings& found);
void checkDataTitles(const CheckInput& input, Findings& found);

} // namespace fennel
