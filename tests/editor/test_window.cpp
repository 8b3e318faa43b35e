// SPDX-License-Identifier: MIT
// The whole window on real files, with mouse and menu.
#include "document/open_fixture.h"
#include "editor/lists/list_view.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tab_strip.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/status_bar.h"
#include "editor/window/thumbnail_strip.h"
#include "editor/window/toolbar.h"
#include "params/object_table.h"
#include "support/run_program.h"
#include "support/story.h"

#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>
#include <QWindow>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString debian = u"/etc/bootsplash/themes/openSUSE/bootloader/message"_s;
const QString prefix = u"FENNEL-GFX (v. 3.3.1011). "_s;

// A small message, which leaves room on the desktop of the tests.
QString smallFile(Story& w, const QString& name, int width = 400, int height = 300,
                  const std::vector<std::string>& more = {})
{
    RawCpio archive = smallMessage(width, height);
    for (const std::string& member : more)
        archive.add({.name = member, .data = jpegBytes(30, 20)});
    return w.shell.file(name, QByteArray::fromStdString(archive.close()));
}

// Drags with the left button by so many pixels of the screen; the bar itself may move meanwhile.
void drag(QWidget& bar, QPoint distance)
{
    const QPoint start = bar.mapToGlobal(bar.rect().center());
    QTest::mousePress(&bar, Qt::LeftButton, {}, bar.mapFromGlobal(start));
    for (int step = 1; step <= 4; ++step)
        QTest::mouseMove(&bar, bar.mapFromGlobal(start + distance * step / 4));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, bar.mapFromGlobal(start + distance));
    QCoreApplication::processEvents();
}

void expectOnDesktop(Story& w)
{
    EXPECT_TRUE(w.window.screen()->availableGeometry().contains(w.window.frameGeometry()))
        << w.window.frameGeometry().right() << ' ' << w.window.frameGeometry().bottom();
}

// As the desktop gets it.
QString title(Story& w)
{
    return w.window.windowHandle()->title();
}

bool shown(Story& w, const QString& name)
{
    return w.find<QWidget>(name).isVisible();
}

} // namespace

TEST(Window, StatusTextsWithoutRoomAreCutAndTheToolTipHasThemWhole)
{
    StatusBar bar(nullptr);
    bar.show();
    const QString free = u"This gfxboot includes 6 images called *.jpg"_s;
    const QString hint = u"Specify the Current Flash Drive using the Flash/Choose"_s;
    bar.setField(1, u" :"_s);
    bar.setField(7, free);
    bar.setField(8, hint);
    const auto& seven = *bar.findChild<QLabel*>(u"StatusBar1_7"_s);
    const auto& eight = *bar.findChild<QLabel*>(u"StatusBar1_8"_s);
    const int whole = 260 + seven.fontMetrics().horizontalAdvance(free + hint);
    bar.resize(whole, bar.height());
    EXPECT_EQ(seven.text() + eight.text(), free + hint);
    bar.resize(whole - 150, bar.height()); // the hint stays readable the longest
    EXPECT_TRUE(seven.text().endsWith(u'…'));
    EXPECT_EQ(eight.text(), hint);
    EXPECT_GE(eight.width(), eight.sizeHint().width());
    EXPECT_EQ(seven.toolTip(), free);
}

TEST(Window, OpensAGzippedMessageOfDebian)
{
    Story w;
    const QByteArray archive = bytesOf(debian);
    w.open(w.shell.file(u"my message[*].gz"_s, runProgram(u"gzip"_s, {u"-9c"_s}, {}, archive).out));
    ASSERT_TRUE(w.shell.run.GfxOpened && w.shell.run.GfxIsGz && w.window.area().isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(title(w), prefix + u"my message[*].gz"_s);
    EXPECT_EQ(
        QStringList({w.bench.status.field(2), w.bench.status.field(3), w.bench.status.field(4)})
            .join(u'|'),
        u"my message[*].gz|custom|800x600, Scale=100%"_s);
    EXPECT_EQ(w.action(u"mnuFile_ReOpen"_s).text(), u"ReOpen my message[*].gz  "_s);
    EXPECT_EQ(w.window.surface().size(), QSize(800, 600));
    EXPECT_TRUE(shown(w, u"Frame7RDMessage"_s));
    EXPECT_EQ(w.bench.params.list(TabBackgrounds)->row(1)->name, u"back.jpg"_s);
    EXPECT_TRUE(w.action(u"mnuFile_LastUsed"_s).isEnabled());
    expectOnDesktop(w);
}

TEST(Window, AFileThatIsNoneLeavesTheWindowUsableAndTheTitleTrue)
{
    Story w;
    w.open(smallFile(w, u"good"_s));
    w.open(w.shell.file(u"bad"_s, "no archive"), u"ERROR. File back.jpg not found!"_s);
    EXPECT_TRUE(w.window.area().isEnabled() && w.window.menuBar()->isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(title(w), prefix + u"good"_s);
    EXPECT_EQ(w.window.menus().entries("mnuFile1").size(), 1U);
    // One message for one broken background.
    RawCpio odd;
    odd.add({.name = "back.jpg", .data = "text"});
    w.open(w.shell.file(u"odd"_s, QByteArray::fromStdString(odd.close())),
           u"back.jpg is not a picture"_s);
    w.open(w.shell.path(u"good"_s));
    // A cancelled dialog says nothing.
    w.shell.prompts.expectOpen({});
    w.choose("mnuFile_Open");
    EXPECT_EQ(w.shell.prompts.fileQuestions.back().folder, w.shell.path({}) + u'/');
}

TEST(Window, PanelsHideAndComeBackByEitherButton)
{
    Story w;
    w.open(smallFile(w, u"good"_s, 700, 300));
    const QSize whole = w.window.size();
    const int panel = w.shell.run.RightPanelWidth;
    const std::tuple<QString, QString, QString, QString> sides[] = {
        {u"ComFrame1"_s, u"Toolbar1_7"_s, u"Frame1Vkladki"_s, u"Right"_s},
        {u"ComFrame2"_s, u"Toolbar1_8"_s, u"Frame2Podval"_s, u"Bottom"_s}};
    for (const auto& [edge, tool, frame, name] : sides) {
        auto& button = w.find<QToolButton>(edge);
        auto& inToolbar = w.find<QToolButton>(tool);
        const Qt::ArrowType arrow = button.arrowType();
        EXPECT_EQ(button.toolTip(), u"Hide %1 Panel"_s.arg(name));
        w.click(button);
        EXPECT_FALSE(shown(w, frame) || shown(w, u"Frame7RDMessage"_s));
        EXPECT_EQ(button.toolTip(), u"Show %1 Panel"_s.arg(name));
        EXPECT_EQ(inToolbar.toolTip(), button.toolTip());
        EXPECT_NE(button.arrowType(), arrow);
        EXPECT_NE(w.window.size(), whole);
        EXPECT_EQ(w.window.surface().size(), QSize(700, 300));
        EXPECT_TRUE(w.window.surface().hasFocus());
        // Without a mouse: into the list and back, and out of the stage.
        QTest::keyClick(&w.window.surface(), Qt::Key_Return);
        EXPECT_EQ(w.window.focusWidget() != &w.window.surface(), frame == u"Frame2Podval");
        QTest::keyClick(w.window.focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(w.window.surface().hasFocus());
        QTest::keyClick(&w.window.surface(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_FALSE(w.window.surface().hasFocus());
        w.click(inToolbar);
        EXPECT_TRUE(shown(w, frame));
        EXPECT_EQ(w.window.size(), whole);
    }
    EXPECT_EQ(w.shell.run.RightPanelWidth, panel);
}

TEST(Window, SplittersMoveTheEdgesWithinTheirLimits)
{
    Story w;
    w.open(smallFile(w, u"good"_s, 360, 280));
    const QSize before = w.window.size();
    const int width = w.shell.run.RightPanelWidth;
    const int height = w.shell.run.BottomPanelHeight;
    auto& vertical = w.find<QWidget>(u"Frame3Vertical"_s);
    auto& horizontal = w.find<QWidget>(u"Frame4Horizontal"_s);
    drag(vertical, {60, 0});
    EXPECT_EQ(w.window.size(), before + QSize(60, 0));
    EXPECT_EQ(w.shell.run.RightPanelWidth, width + 60);
    drag(horizontal, {0, 40});
    EXPECT_EQ(w.window.size(), before + QSize(60, 40));
    EXPECT_EQ(w.shell.run.BottomPanelHeight, height + 40);
    EXPECT_EQ(w.window.surface().size(), QSize(360, 280));
    drag(vertical, {-5000, 0});
    EXPECT_EQ(w.window.width(), w.window.toolbar().MinWindowWidth());
    drag(horizontal, {0, -5000});
    EXPECT_EQ(w.shell.run.BottomPanelHeight, minBottomPanelHeight);
    drag(vertical, {5000, 0});
    drag(horizontal, {0, 5000});
    expectOnDesktop(w);
    EXPECT_EQ(w.window.surface().visibleRegion().boundingRect().size(), QSize(360, 280));
}

// A message that comes up by itself takes the release of the button away.
TEST(Window, AMessageDuringADragEndsIt)
{
    Story w;
    RawCpio archive = smallMessage(360, 280);
    archive.add({.name = "gfxboot.cfg", .data = "menu_start_x=100\r\nmenu_start_y=100"});
    w.open(w.shell.file(u"good"_s, QByteArray::fromStdString(archive.close())));
    w.window.stageLink().stage().ActivatePanel(MenuPanelRow);
    const QPoint menu = w.window.stageLink().stage().panel(MenuPanelRow).rect.topLeft();
    const QSize size = w.window.size();
    const std::pair<QWidget*, QPoint> dragged[] = {{&w.find<QWidget>(u"Frame3Vertical"_s), {1, 9}},
                                                   {&w.window.surface(), menu + QPoint(3, 3)}};
    for (const auto& [widget, place] : dragged) {
        QTest::mousePress(widget, Qt::LeftButton, {}, place);
        EXPECT_EQ(w.bench.document.inGesture(), widget == &w.window.surface());
        QDialog message(&w.window);
        message.open();
        EXPECT_FALSE(w.bench.document.inGesture());
        message.close();
        QTest::mouseMove(widget, place + QPoint(30, 0));
        EXPECT_EQ(w.window.size(), size);
    }
    EXPECT_TRUE(w.window.stageLink().stage().markerVisible());
    // F5 waits for the end of a drag.
    const QPoint place = w.window.surface().mapTo(&w.window, menu + QPoint(3, 3));
    QTest::mousePress(w.window.windowHandle(), Qt::LeftButton, {}, place);
    ASSERT_TRUE(w.bench.document.inGesture());
    w.action(u"mnuFile_ReOpen"_s).trigger();
    EXPECT_TRUE(w.bench.document.inGesture());
    QTest::mouseRelease(w.window.windowHandle(), Qt::LeftButton, {}, place);
    w.shell.prompts.expectMessage(u"Your changes will be lost."_s, Answer::Yes);
    w.action(u"mnuFile_ReOpen"_s).trigger();
    w.window.stageLink().stage().ActivatePanel(MenuPanelRow);
    QTest::keyClick(&w.window.surface(), Qt::Key_Tab);
    EXPECT_NE(w.window.stageLink().stage().SelectedPanel, MenuPanelRow);
}

TEST(Window, TheLastUsedFileOpensAgainAndALostOneIsTold)
{
    Story w;
    w.open(smallFile(w, u"first"_s));
    const auto openEntry = [&w] {
        w.window.menus().entries("mnuFile1").front()->trigger();
        QCoreApplication::processEvents();
    };
    ASSERT_EQ(w.window.menus().entries("mnuFile1").size(), 1U);
    ASSERT_TRUE(w.shell.files.remove(w.shell.run.Workspace + u"init"_s).ok());
    openEntry();
    EXPECT_TRUE(FileExists(w.shell.run.Workspace + u"init"_s));
    ASSERT_TRUE(w.shell.files.remove(w.shell.path(u"first"_s)).ok());
    w.shell.prompts.expectMessage(u"The specified file is not available at this time."_s);
    openEntry();
    EXPECT_EQ(title(w), prefix + u"first"_s);
    w.choose("mnuFile_Clear");
    EXPECT_TRUE(w.window.menus().entries("mnuFile1").empty());
    EXPECT_FALSE(w.action(u"mnuFile_LastUsed"_s).isEnabled());
    EXPECT_FALSE(w.action(u"mnuFile_Clear"_s).isEnabled());
}

TEST(Window, FromGenerationToGenerationMenusToolsAndListsFollow)
{
    Story w;
    w.choose("mnuFile_New");
    ASSERT_EQ(w.shell.run.gfxboot_var, 3);
    EXPECT_EQ(title(w), prefix + u"@ZUK-MOSA@.gz"_s);
    EXPECT_EQ(w.bench.status.field(3), u"@ZUK-MOSA@"_s);
    EXPECT_TRUE(shown(w, u"Frame5RDPanelTools"_s) && !shown(w, u"Frame7RDMessage"_s));
    EXPECT_GT(w.bench.params.tabCount(), FirstObjectTab - 1);
    // The swatch of a selected row is not tinted.
    w.goToTab(u"Time"_s);
    const QModelIndex row = w.view().model()->index(w.goToRow(u":06:="_s) - 1, 0);
    const auto swatch = row.data(Qt::DecorationRole).value<QIcon>();
    EXPECT_EQ(swatch.pixmap(16, QIcon::Selected).toImage(), swatch.pixmap(16).toImage());
    EXPECT_FALSE(swatch.isNull());
    w.open(smallFile(w, u"old"_s));
    EXPECT_EQ(w.bench.status.field(3), u"old version ?"_s);
    EXPECT_TRUE(!shown(w, u"Frame5RDPanelTools"_s) && shown(w, u"Frame7RDMessage"_s));
    EXPECT_EQ(w.bench.params.tabCount(), FirstObjectTab - 1);
    EXPECT_FALSE(w.action(u"mnuEdit_ZUK"_s).isEnabled());
    EXPECT_TRUE(
        w.find<QLabel>(u"LabelINFO"_s)
            .text()
            .startsWith(
                u"This gfxboot is not @ZUK-MOSA@\nSo some features of the FENNEL-GFX (GUI)"_s));
}

// The file has no row for the left edge, the engine knows none: a drag could not be saved.
TEST(Window, AMenuWithoutAPlaceInGfxbootCfgStaysAndAnEditMovesTheMarker)
{
    Story w;
    RawCpio archive = smallMessage(400, 300);
    archive.add(
        {.name = "gfxboot.cfg", .data = "menu_start_y=100\r\nwelcome=1\r\nmenu_bar_min_width=50"});
    w.open(w.shell.file(u"custom"_s, QByteArray::fromStdString(archive.close())));
    w.goToTab(u"Config"_s);
    const Stage& stage = w.window.stageLink().stage();
    const PanelRec& menu = *w.lists().object(MenuPanelRow);
    const QPoint bar = w.middleOf(MenuBarRow);
    w.drag(bar, bar - QPoint(30, 0));
    ASSERT_EQ(menu.Left, 253);
    w.shell.log.start(w.shell.path(u"log"_s));
    w.type(u"welcome"_s, u"0"_s);
    EXPECT_EQ(menu.Left, 253);
    EXPECT_FALSE(bytesOf(w.shell.path(u"log"_s)).contains("gfxboot_var")) << "of an open";
    const QPoint marker = stage.marker().topLeft();
    w.type(u"menu_start_y"_s, u"60"_s);
    EXPECT_EQ(menu.Left, 253);
    EXPECT_TRUE(stage.markerVisible());
    EXPECT_EQ(stage.marker().topLeft(), marker - QPoint(0, 40));
}

TEST(Window, TabsOfALowPanelScrollInsteadOfCoveringTheList)
{
    QWidget panel;
    auto* strip = new TabStrip(&panel);
    auto* room = new TabRoom(*strip, &panel);
    auto* list = new QTreeView(&panel);
    auto* column = new QVBoxLayout(&panel);
    column->addWidget(room);
    column->addWidget(list, 1);
    strip->setTabs(std::vector<TabStrip::Tab>(20, {u"Numerical Timer"_s, {}}));
    panel.resize(400, 600);
    panel.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(room->height(), strip->height()) << "all lines, where there is room";
    panel.resize(400, 160);
    QCoreApplication::processEvents();
    EXPECT_LT(room->geometry().bottom(), list->geometry().top());
    EXPECT_LT(room->height(), strip->height());
    strip->mark(20);
    room->showMarked();
    const QRect last = strip->place(20).translated(strip->pos());
    EXPECT_TRUE(room->viewport()->rect().contains(last));
}

// Markup in a name would fetch its pictures.
TEST(Window, NamesFromFilesAreNowhereMarkup)
{
    Story w;
    const QString evil = u"<img src='back.jpg'>"_s;
    w.open(smallFile(w, evil, 400, 300, {"back_02.jpg", evil.toStdString() + ".jpg"}));
    w.goToAllTabs();
    w.window.statusFields().setField(5, evil);
    const auto isMarkup = [](const QString& text) {
        return Qt::mightBeRichText(text) &&
               (!text.startsWith("<qt>"_L1) || text.contains("<img"_L1));
    };
    for (const QWidget* widget : w.window.findChildren<QWidget*>()) {
        EXPECT_FALSE(isMarkup(widget->toolTip())) << widget->objectName().toStdString();
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (label != nullptr && label->textFormat() != Qt::PlainText) {
            EXPECT_FALSE(isMarkup(label->text())) << widget->objectName().toStdString();
        }
    }
    for (const QAction* action : w.window.findChildren<QAction*>())
        EXPECT_FALSE(isMarkup(action->toolTip())) << action->objectName().toStdString();
    for (int row = 0; row < w.view().model()->rowCount(); ++row)
        EXPECT_FALSE(isMarkup(w.view().model()->index(row, 0).data(Qt::ToolTipRole).toString()));
}
