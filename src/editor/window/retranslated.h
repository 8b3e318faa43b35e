// SPDX-License-Identifier: MIT
// Texts of a widget that stand as long as it does, and change with the language.
#pragma once

#include <functional>

class QAbstractButton;
class QWidget;

namespace fennel {

// Calls `say`, which gives the widget its texts, now and whenever the language has changed.
void retranslated(QWidget* widget, const std::function<void()>& say);

// A text of a table or a Words::mark() as caption of a button.
void sayText(QAbstractButton* button, const char* text);
// A name that a screen reader says, for what shows none.
void sayName(QWidget* widget, const char* text);
// The same as tool tip, which is also the name that a screen reader says.
void sayTip(QWidget* widget, const char* text);

} // namespace fennel
