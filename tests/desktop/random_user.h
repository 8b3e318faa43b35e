// SPDX-License-Identifier: MIT
// A user who does anything at any time, from a seed.
#pragma once

#include "desktop/agreement.h"
#include "editor/fonts/font_window.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/menus.h"
#include "support/bin_folder.h"
#include "support/long_run.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFileInfo>
#include <QTest>
#include <QTimer>

namespace fennel::test {

using namespace Qt::StringLiterals;

inline constexpr int clockOfFiles = 10;  // ms that the times of files may be behind
inline constexpr unsigned hangTime = 60; // seconds for one action

class RandomUser {
public:
    explicit RandomUser(unsigned seed) : m_dice(seed)
    {
        story.user().answerRest = [this](const QString& text, MessageType type) {
            return answer(text, type);
        };
        m_messages = {fennel::test::binFolder() + QStringLiteral("/data/GFX.GZ"),
                      u"/etc/bootsplash/themes/openSUSE/bootloader/message"_s,
                      u"/etc/bootsplash/themes/upstream/bootloader/message"_s, generation2()};
        for (int i = 0; i < m_messages.size(); ++i) {
            const QString copy = story.shell.path(u"message%1"_s.arg(i));
            EXPECT_TRUE(story.shell.files.copy(m_messages[i], copy).ok());
            m_messages[i] = copy;
        }
        const QSize sizes[] = {{900, 700}, {33, 200}, {640, 480}};
        for (int i = 0; i < 3; ++i)
            m_pictures.append(story.shell.picture(u"picture%1.png"_s.arg(i), sizes[i],
                                                  QColor::fromHsv(i * 100, 200, 200).rgb()));
        story.makeNew();
    }
    // Does something; returns what.
    const char* act() { return act(std::begin(actions), std::end(actions)); }
    // The same, but goes on with the gfxboot that is open.
    const char* actInside()
    {
        m_inside = true;
        return act(std::begin(actions) + openings, std::end(actions));
    }
    void makeNew() { story.makeNew(); }
    [[nodiscard]] const QStringList& messages() const { return m_messages; }

    Story story;
    bool saved = false; // by the last action

private:
    struct Action {
        const char* name;
        int weight;
        void (RandomUser::*run)();
    };
    const char* act(const Action* first, const Action* end);
    static const Action actions[23];
    static constexpr int openings = 3; // the first of them

    QString generation2()
    {
        const QString made =
            messageWith(story.shell, "menu_start_x=100\r\nmenu_start_y=60\r\n#boot_show=1\r\n");
        const QString path = story.shell.path(u"second"_s);
        EXPECT_TRUE(story.shell.files.rename(made, path).ok());
        return path;
    }
    Answer answer(const QString& text, MessageType type)
    {
        if (type == MessageType::Ok || type == MessageType::Stop)
            return Answer::Ok;
        // Deleting everything all the time would leave nothing to work on.
        if (text.contains(u"delete"_s) && m_dice.chance(70))
            return Answer::No;
        const Answer answers[] = {Answer::Yes, Answer::No, Answer::Yes, Answer::Ok};
        return m_dice.of(answers);
    }
    QString number()
    {
        const QString odd[] = {u"-5"_s,          u"0x123456"_s, u"abc"_s, u""_s,
                               u"99999999999"_s, u"0"_s,        u"1"_s};
        return m_dice.chance(30) ? m_dice.of(odd) : QString::number(m_dice.between(0, 700));
    }
    void run(const char* item)
    {
        const QAction* action = story.window.menus().action(QLatin1String(item));
        if (action != nullptr && action->isEnabled())
            story.choose(item);
    }
    void press(QAbstractButton& button)
    {
        if (button.isEnabled() && button.isVisible())
            QTest::mouseClick(&button, Qt::LeftButton);
    }
    QAbstractItemView& list() { return story.view(); }
    void clickRow(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QAbstractItemView& view = list();
        const QModelIndex index = view.model()->index(row - 1, 0);
        view.scrollTo(index);
        const QPoint place = view.visualRect(index).center();
        QTest::mousePress(view.viewport(), button, {}, place);
        // The pop-up of the right button takes the mouse.
        QWidget* popup = QApplication::activePopupWidget();
        QTest::mouseRelease(popup != nullptr ? popup : view.viewport(), button, {},
                            popup != nullptr ? QPoint(-9, -9) : place);
        closePopup();
    }
    static void closePopup()
    {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }
    QPoint anywhere()
    {
        const QSize size = story.window.stageLink().stage().pictureSize();
        return {m_dice.between(0, size.width() - 1), m_dice.between(0, size.height() - 1)};
    }
    // The middle of an object that can be seen, mostly.
    QPoint somewhere()
    {
        Stage& stage = story.window.stageLink().stage();
        std::vector<QPoint> seen;
        for (int object = 0; object < story.run().ObjectCount; ++object) {
            if (stage.isRow(object) && stage.panel(object).visible)
                seen.push_back(stage.panel(object).rect.center());
        }
        return seen.empty() || m_dice.chance(20) ? anywhere() : m_dice.of(seen);
    }

    void open()
    {
        story.user().expectOpen(m_dice.of(m_messages));
        story.choose("mnuFile_Open");
    }
    void reOpen() { run("mnuFile_ReOpen"); }
    void save()
    {
        // A save of what was opened changes what undo comes back to.
        if (!story.run().GfxOpened || (m_inside && !story.bench.document.canUndo()))
            return;
        const QDateTime start = QDateTime::currentDateTime().addMSecs(-clockOfFiles);
        if (story.run().GfxFileName == unsavedGfxName || m_dice.chance(30)) {
            const QString path = story.shell.path(u"saved%1"_s.arg(m_dice.below(3)));
            story.user().expectSave(path);
            story.choose("mnuFile_SaveAs");
            if (story.run().GfxPath.startsWith(path))
                m_messages.append(story.run().GfxPath);
        } else {
            story.choose("mnuFile_Save");
        }
        // The user may have answered the questions so that nothing was written.
        saved = QFileInfo(story.run().GfxPath).lastModified() >= start;
    }
    void tab()
    {
        const auto& tabs = story.lists().tabs;
        story.goToTab(
            tabs[static_cast<std::size_t>(m_dice.between(1, story.lists().tabCount()))].caption);
    }
    void row()
    {
        if (story.list().count() > 0)
            clickRow(m_dice.between(1, story.list().count()),
                     m_dice.chance(85) ? Qt::LeftButton : Qt::RightButton);
    }
    void doubleRow()
    {
        row();
        const QRect place = list().visualRect(list().currentIndex());
        if (list().currentIndex().isValid())
            QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, place.center());
        QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, place.center());
        endTyping(m_dice.chance(50));
    }
    // Types into the editor if it is open, or closes it.
    void endTyping(bool take)
    {
        ValueEditor& editor = story.window.rightPanel().editor();
        if (!editor.isVisible())
            return;
        if (editor.textEditMode()) {
            editor.setText(u"Text %1\nтекст"_s.arg(number()));
            press(*editor.findChild<QPushButton*>(take ? u"ComFr6ForTXT(1)"_s
                                                       : u"ComFr6ForTXT(0)"_s));
            return;
        }
        editor.setText(number());
        QTest::keyClick(&editor.box(), take ? Qt::Key_Return : Qt::Key_Escape);
    }
    void type()
    {
        if (m_dice.chance(60))
            tab();
        row();
        QTest::keyClick(&list(), Qt::Key_Return);
        endTyping(m_dice.chance(90));
    }
    void undo()
    {
        for (int steps = m_dice.between(1, 5); steps > 0; --steps)
            run("mnuEdit_Undo");
    }
    void redo()
    {
        for (int steps = m_dice.between(1, 5); steps > 0; --steps)
            run("mnuEdit_Redo");
    }
    void view()
    {
        run(story.window.stageLink().stage().asItBoots() ? "mnuView_Schematic"
                                                         : "mnuView_AsItBoots");
    }
    void check() { QTest::keyClick(&list(), Qt::Key_2); }
    void drag()
    {
        const QPoint from = somewhere();
        story.drag(from, m_dice.chance(50)
                             ? anywhere()
                             : from + QPoint(m_dice.between(-40, 40), m_dice.between(-40, 40)));
    }
    void size()
    {
        Stage& stage = story.window.stageLink().stage();
        story.click(somewhere());
        if (stage.markerVisible())
            story.drag(stage.marker().center(),
                       stage.marker().center() +
                           QPoint(m_dice.between(-90, 60), m_dice.between(-90, 60)));
    }
    void click()
    {
        const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        if (m_dice.chance(30))
            story.doubleClick(somewhere());
        else
            story.click(somewhere(), m_dice.of(buttons));
        closePopup();
    }
    void key()
    {
        const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,    Qt::Key_Down,
                                Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape};
        story.press(m_dice.of(keys), m_dice.chance(30) ? Qt::ShiftModifier : Qt::NoModifier);
    }
    void scale()
    {
        const char* items[] = {"mnuView_scale1", "mnuView_fill", "mnuView_custom"};
        const int percents[] = {25, 50, 75, 125, 150, 200};
        story.user().expectInput(QString::number(m_dice.between(20, 180)));
        if (m_dice.chance(50))
            run(m_dice.of(items));
        else if (story.run().GfxOpened)
            story.window.commands().runEntry(u"mnuView_scale"_s, m_dice.of(percents));
    }
    // The dialog that the next command may open.
    void expectFontDialog()
    {
        QTimer::singleShot(0, &story.window, [this] {
            auto* dialog = qobject_cast<FontWindow*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            press(*dialog->findChild<QPushButton*>(u"butОК"_s));
            dialog->reject();
        });
    }
    void font()
    {
        expectFontDialog();
        run(m_dice.chance(50) ? "mnuEDIT_NEWFont" : "mnuEDIT_ADDFont");
        QCoreApplication::processEvents();
    }
    void picture()
    {
        const char* items[] = {"mnuEDIT_ADDBack", "mnuEdit_ChangeBack", "mnuEDIT_ADDLogo",
                               "mnuEdit_Resize", "mnuEdit_ResizeLOGO"};
        const QString sizes[] = {u"2"_s, u"3"_s, u"50x40"_s, u"0"_s};
        const int which = static_cast<int>(m_dice.below(5));
        if (which < 3)
            story.user().expectOpen(m_dice.of(m_pictures));
        else
            story.user().expectInput(m_dice.of(sizes));
        run(items[which]);
    }
    void memberButton()
    {
        RightPanel& panel = story.window.rightPanel();
        if (m_dice.chance(50))
            story.user().expectOpen(m_dice.of(m_pictures));
        expectFontDialog();
        press(m_dice.chance(60)   ? panel.editButton()
              : m_dice.chance(50) ? panel.deleteButton()
                                  : panel.addButton());
        endTyping(m_dice.chance(70));
        QCoreApplication::processEvents(); // which ends the expectation
    }
    void editText()
    {
        tab();
        for (int row = 1; row <= story.list().count(); ++row) {
            if (story.look(row).text().endsWith(u".txt"_s)) {
                clickRow(row);
                press(story.window.rightPanel().editButton());
                break;
            }
        }
        endTyping(true);
    }
    void menu()
    {
        if (m_dice.chance(50))
            press(story.window.rightPanel().fromMenu());
        else
            run("mnuMenu_Embedded");
    }
    void layout()
    {
        if (m_dice.chance(50))
            story.window.resize(m_dice.between(400, 1400), m_dice.between(300, 1000));
        else
            story.window.toolbarCommand(m_dice.chance(50) ? 7 : 8);
    }

    Dice m_dice;
    bool m_inside = false;
    QStringList m_messages;
    QStringList m_pictures;
};

inline const RandomUser::Action RandomUser::actions[23] = {
    {"open", 3, &RandomUser::open},
    {"new", 3, &RandomUser::makeNew},
    {"re-open", 2, &RandomUser::reOpen},
    {"save", 6, &RandomUser::save},
    {"tab", 8, &RandomUser::tab},
    {"row", 8, &RandomUser::row},
    {"double click on a row", 6, &RandomUser::doubleRow},
    {"type", 15, &RandomUser::type},
    {"check", 3, &RandomUser::check},
    {"drag", 12, &RandomUser::drag},
    {"size", 6, &RandomUser::size},
    {"click", 6, &RandomUser::click},
    {"key", 10, &RandomUser::key},
    {"scale", 5, &RandomUser::scale},
    {"font", 2, &RandomUser::font},
    {"picture", 3, &RandomUser::picture},
    {"member button", 4, &RandomUser::memberButton},
    {"text", 3, &RandomUser::editText},
    {"menu", 3, &RandomUser::menu},
    {"layout", 3, &RandomUser::layout},
    {"undo", 8, &RandomUser::undo},
    {"redo", 5, &RandomUser::redo},
    {"view", 4, &RandomUser::view},
};

inline const char* RandomUser::act(const Action* first, const Action* end)
{
    saved = false;
    int sum = 0;
    for (const Action* action = first; action != end; ++action)
        sum += action->weight;
    qsizetype chosen = m_dice.below(sum);
    const Action* action = first;
    while (chosen >= action->weight)
        chosen -= (action++)->weight;
    (this->*action->run)();
    QCoreApplication::processEvents();
    story.user().forget();
    return action->name;
}

} // namespace fennel::test
