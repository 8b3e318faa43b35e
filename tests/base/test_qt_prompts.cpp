// SPDX-License-Identifier: MIT
// The real dialogs: a button pressed for No must never reach the program as Yes.
#include "editor/window/qt_prompts.h"
#include "support/test_shell.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QTimer>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// What the user does when a dialog of that kind stands.
template <class Dialog>
void whenShown(const std::function<void(Dialog&)>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        act(*dialog);
    });
}

} // namespace

TEST(QtPrompts, EveryButtonGivesItsOwnAnswerAndNoneGivesNoConsent)
{
    QtPrompts prompts;
    const std::tuple<MessageType, QMessageBox::StandardButton, Answer> cases[] = {
        {MessageType::Ok, QMessageBox::Ok, Answer::Ok},
        {MessageType::OkCancel, QMessageBox::Ok, Answer::Ok},
        {MessageType::OkCancel, QMessageBox::Cancel, Answer::Cancel},
        {MessageType::YesNo, QMessageBox::Yes, Answer::Yes},
        {MessageType::YesNo, QMessageBox::No, Answer::No},
        {MessageType::YesNoCancel, QMessageBox::Yes, Answer::Yes},
        {MessageType::YesNoCancel, QMessageBox::No, Answer::No},
        {MessageType::YesNoCancel, QMessageBox::Cancel, Answer::Cancel},
    };
    for (const auto& [type, pressed, answer] : cases) {
        whenShown<QMessageBox>([button = pressed](QMessageBox& box) {
            EXPECT_EQ(box.text(), u"Delete <b>a</b>?"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            box.button(button)->click();
        });
        EXPECT_EQ(prompts.ShowMessage(u"Delete <b>a</b>?"_s, type, {}), answer) << int(pressed);
    }
    // The program is told to end while the question stands.
    for (const auto& [type, answer] : {std::pair{MessageType::OkCancel, Answer::Cancel},
                                       {MessageType::YesNoCancel, Answer::Cancel},
                                       {MessageType::YesNo, Answer::No},
                                       {MessageType::Ok, Answer::Ok}}) {
        whenShown<QMessageBox>([](QMessageBox& box) { box.reject(); });
        EXPECT_EQ(prompts.ShowMessage(u"Sure?"_s, type, {}), answer);
    }
}

TEST(QtPrompts, ACancelledInputIsNotAnEmptyOne)
{
    QtPrompts prompts;
    whenShown<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(prompts.input(u"Size"_s, {}, u"3"_s), std::nullopt);
    whenShown<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), u"3"_s);
        dialog.setTextValue({});
        dialog.accept();
    });
    EXPECT_EQ(prompts.input(u"Size"_s, {}, u"3"_s), QString());
}

TEST(QtPrompts, FiltersTakeNamesInCapitalsAndWithoutADot)
{
    EXPECT_EQ(qtFilter(u"Pictures |*.jpg;*.bmp|jpg-files (*.jpg)|*.jpg|All|*.*|"_s),
              u"Pictures (*.jpg *.JPG *.bmp *.BMP);;jpg-files (*.jpg *.JPG);;All (*)"_s);
}
