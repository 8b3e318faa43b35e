// SPDX-License-Identifier: MIT
// The whole window on real files, with mouse and menu.
#include "support/test_window.h"
#include "container/open_fixture.h"
#include "frame/status_bar.h"
#include "frame/thumbnail_strip.h"
#include "frame/toolbar.h"
#include "params/right_panel.h"
#include "params/tab_strip.h"
#include "stage/stage_surface.h"
#include "support/run_program.h"

#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString debian = u"/etc/bootsplash/themes/openSUSE/bootloader/message"_s;
const QString prefix = u"FENNEL-GFX (v. 3.3.1011). "_s;

// A small message, which leaves room on the desktop of the tests.
QString smallFile(TestWindow& w, const QString& name, int width = 400, int height = 300,
                  const std::vector<std::string>& more = {})
{
    RawCpio archive = smallMessage(width, height);
    for (const std::string& member : more)
        archive.add({.name = member, .data = jpegBytes(30, 20)});
    return w.t.file(name, QByteArray::fromStdString(archive.close()));
}

QStringList column(const ListRows& list, std::size_t cell)
{
    QStringList texts;
    for (const ListRow& row : list.rows)
        texts << row.cells[cell].text;
    return texts;
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

void expectOnDesktop(TestWindow& w)
{
    EXPECT_TRUE(w.window.screen()->availableGeometry().contains(w.window.frameGeometry()))
        << w.window.frameGeometry().right() << ' ' << w.window.frameGeometry().bottom();
}

bool shown(TestWindow& w, const QString& name)
{
    return w.find<QWidget>(name).isVisible();
}

} // namespace

TEST(Window, WithNothingOpenItSaysWhatToDo)
{
    TestWindow w;
    EXPECT_EQ(w.window.windowTitle(), prefix + u"/Component of @ZUK-MOSA@ project/"_s);
    EXPECT_EQ(w.field(8), u"Select the gfxboot using File/Open"_s);
    EXPECT_TRUE(shown(w, u"Frame1Vkladki"_s) && shown(w, u"Frame2Podval"_s));
    EXPECT_FALSE(shown(w, u"ProgressBar1"_s) || shown(w, u"Frame7RDMessage"_s) ||
                 shown(w, u"Frame5RDPanelTools"_s));
    for (const QString& item : {u"mnuFile_LastUsed"_s, u"mnuFile_Clear"_s, u"mnuMenu_select"_s})
        EXPECT_FALSE(w.action(item).isEnabled()) << item.toStdString();
    EXPECT_TRUE(w.action(u"mnuMenu_Embedded"_s).isChecked());
    expectOnDesktop(w);
}

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
    for (const int width : {40, 100, 300}) {
        bar.resize(width, bar.height());
        EXPECT_EQ(bar.field(8), hint);
        EXPECT_LE(eight.geometry().right(), bar.bottomButton().x());
    }
}

TEST(Window, OpensAGzippedMessageOfDebian)
{
    TestWindow w;
    const QByteArray archive = bytesOf(debian);
    w.open(w.t.file(u"my message.gz"_s, runProgram(u"gzip"_s, {u"-9c"_s}, {}, archive).out));
    ASSERT_TRUE(w.t.run.GfxOpened && w.t.run.GfxIsGz && w.window.isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(w.window.windowTitle(), prefix + u"my message.gz"_s);
    EXPECT_EQ(QStringList({w.field(2), w.field(3), w.field(4)}).join(u'|'),
              u"my message.gz|custom|800x600, Scale=100%"_s);
    EXPECT_EQ(w.action(u"mnuFile_ReOpen"_s).text(), u"ReOpen my message.gz  "_s);
    EXPECT_EQ(w.window.surface().size(), QSize(800, 600));
    EXPECT_TRUE(shown(w, u"Frame7RDMessage"_s));
    const QByteArray listed = runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, archive).out;
    EXPECT_EQ(column(*w.bench.params.list(TabGfxboot), 0).join(u'\n') + u'\n',
              QString::fromUtf8(listed));
    for (const ListRow& row : w.bench.params.list(TabGfxboot)->rows) {
        EXPECT_EQ(row.cells[1].text,
                  QString::number(fileSize(w.t.run.Workspace + row.cells[0].text)));
    }
    EXPECT_EQ(column(*w.bench.params.list(TabBackgrounds), 0).first(), u"back.jpg"_s);
    EXPECT_TRUE(w.action(u"mnuFile_LastUsed"_s).isEnabled());
    expectOnDesktop(w);
}

TEST(Window, AFileThatIsNoneLeavesTheWindowUsableAndTheTitleTrue)
{
    TestWindow w;
    w.open(smallFile(w, u"good"_s));
    w.open(w.t.file(u"bad"_s, "no archive"), u"ERROR. File back.jpg not found!"_s);
    EXPECT_TRUE(w.window.isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(w.t.run.InterfaceReady);
    EXPECT_EQ(w.window.windowTitle(), prefix + u"good"_s);
    EXPECT_EQ(w.window.menus().entries("mnuFile1").size(), 1U);
    // A cancelled dialog says nothing.
    w.t.prompts.expectOpen({});
    w.choose(u"mnuFile_Open"_s);
    EXPECT_EQ(w.t.prompts.fileQuestions.back().folder, w.t.path({}) + u'/');
}

TEST(Window, PanelsHideAndComeBackByEitherButton)
{
    TestWindow w;
    w.open(smallFile(w, u"good"_s, 700, 300));
    const QSize whole = w.window.size();
    const int panel = w.t.run.RightPanelWidth;
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
        w.click(inToolbar);
        EXPECT_TRUE(shown(w, frame));
        EXPECT_EQ(w.window.size(), whole);
    }
    EXPECT_TRUE(w.t.run.RightPanelWidth == panel && w.t.run.InterfaceReady);
}

TEST(Window, SplittersMoveTheEdgesWithinTheirLimits)
{
    TestWindow w;
    w.open(smallFile(w, u"good"_s, 360, 280));
    const QSize before = w.window.size();
    const int width = w.t.run.RightPanelWidth;
    const int height = w.t.run.BottomPanelHeight;
    auto& vertical = w.find<QWidget>(u"Frame3Vertical"_s);
    auto& horizontal = w.find<QWidget>(u"Frame4Horizontal"_s);
    drag(vertical, {60, 0});
    EXPECT_EQ(w.window.size(), before + QSize(60, 0));
    EXPECT_EQ(w.t.run.RightPanelWidth, width + 60);
    drag(horizontal, {0, 40});
    EXPECT_EQ(w.window.size(), before + QSize(60, 40));
    EXPECT_EQ(w.t.run.BottomPanelHeight, height + 40);
    EXPECT_EQ(w.window.surface().size(), QSize(360, 280));
    drag(vertical, {-5000, 0});
    EXPECT_EQ(w.window.width(), w.window.toolbar().MinWindowWidth());
    drag(horizontal, {0, -5000});
    EXPECT_EQ(w.t.run.BottomPanelHeight, minBottomPanelHeight);
    drag(vertical, {5000, 0});
    drag(horizontal, {0, 5000});
    expectOnDesktop(w);
    EXPECT_EQ(w.window.surface().visibleRegion().boundingRect().size(), QSize(360, 280));
}

TEST(Window, SpinControlsSetTheSameWidths)
{
    TestWindow w;
    w.open(smallFile(w, u"good"_s));
    auto& width = w.find<QSpinBox>(u"UpDown1"_s);
    auto& height = w.find<QSpinBox>(u"UpDown2"_s);
    EXPECT_EQ(width.minimum(), 200);
    EXPECT_EQ(height.minimum(), 60);
    EXPECT_EQ(width.value(), w.t.run.RightPanelWidth);
    const QSize before = w.window.size();
    const int panel = width.value();
    width.setValue(panel + 30);
    height.setValue(90);
    EXPECT_EQ(w.t.run.RightPanelWidth, panel + 30);
    EXPECT_EQ(w.t.run.BottomPanelHeight, 90);
    EXPECT_EQ(w.window.size(), before + QSize(30, 90 - 150));
    width.setValue(100'000);
    height.setValue(100'000);
    expectOnDesktop(w);
}

TEST(Window, ABackgroundLargerThanTheDesktopGetsScrollBars)
{
    TestWindow w;
    w.open(smallFile(w, u"large"_s, 1600, 1200));
    EXPECT_EQ(w.window.surface().size(), QSize(1600, 1200));
    EXPECT_EQ(w.field(4), u"1600x1200, Scale=100%"_s);
    expectOnDesktop(w);
    w.open(smallFile(w, u"tiny"_s, 40, 30)); // the narrowest window
    EXPECT_EQ(w.window.surface().size(), QSize(40, 30));
    EXPECT_EQ(w.window.width(), w.window.toolbar().MinWindowWidth());
    EXPECT_GE(w.window.height(), 200);
}

TEST(Window, TheLastUsedFileOpensAgainAndALostOneIsTold)
{
    TestWindow w;
    w.open(smallFile(w, u"first"_s));
    const auto openEntry = [&w] {
        w.window.menus().entries("mnuFile1").front()->trigger();
        QCoreApplication::processEvents();
    };
    ASSERT_EQ(w.window.menus().entries("mnuFile1").size(), 1U);
    ASSERT_TRUE(w.t.files.remove(w.t.run.Workspace + u"init"_s).ok());
    openEntry();
    EXPECT_TRUE(FileExists(w.t.run.Workspace + u"init"_s));
    ASSERT_TRUE(w.t.files.remove(w.t.path(u"first"_s)).ok());
    w.t.prompts.expectMessage(u"The specified file is not available at this time."_s);
    openEntry();
    EXPECT_EQ(w.window.windowTitle(), prefix + u"first"_s);
    w.choose(u"mnuFile_Clear"_s);
    EXPECT_TRUE(w.window.menus().entries("mnuFile1").empty());
    EXPECT_FALSE(w.action(u"mnuFile_LastUsed"_s).isEnabled());
    EXPECT_FALSE(w.action(u"mnuFile_Clear"_s).isEnabled());
}

TEST(Window, FromGenerationToGenerationMenusToolsAndListsFollow)
{
    TestWindow w;
    w.choose(u"mnuFile_New"_s);
    ASSERT_EQ(w.t.run.gfxboot_var, 3);
    EXPECT_EQ(w.window.windowTitle(), prefix + u"@ZUK-MOSA@.gz"_s);
    EXPECT_EQ(w.field(3), u"@ZUK-MOSA@"_s);
    EXPECT_TRUE(shown(w, u"Frame5RDPanelTools"_s) && !shown(w, u"Frame7RDMessage"_s));
    EXPECT_GT(w.bench.params.tabCount(), 5);
    w.open(smallFile(w, u"old"_s));
    EXPECT_EQ(w.field(3), u"old version ?"_s);
    EXPECT_TRUE(!shown(w, u"Frame5RDPanelTools"_s) && shown(w, u"Frame7RDMessage"_s));
    EXPECT_EQ(w.bench.params.tabCount(), 5);
    EXPECT_FALSE(w.action(u"mnuEdit_ZUK"_s).isEnabled());
    EXPECT_TRUE(
        w.find<QLabel>(u"LabelINFO"_s)
            .text()
            .startsWith(
                u"This gfxboot is not @ZUK-MOSA@\nSo some features of the FENNEL-GFX (GUI)"_s));
}

TEST(Window, SaveAndReOpenBringTheFileBack)
{
    TestWindow w;
    const QString path = smallFile(w, u"good"_s);
    w.open(path);
    ASSERT_TRUE(w.t.files.write(w.t.run.Workspace + u"init"_s, "changed").ok());
    w.choose(u"mnuFile_Save"_s);
    ASSERT_TRUE(w.t.files.write(w.t.run.Workspace + u"init"_s, "dropped").ok());
    w.t.prompts.expectMessage(u"Your changes will be lost."_s, Answer::Yes);
    w.choose(u"mnuFile_ReOpen"_s);
    EXPECT_EQ(bytesOf(w.t.run.Workspace + u"init"_s), "changed");
    w.t.prompts.expectSave(w.t.path(u"copy"_s));
    w.t.prompts.expectMessage(u"To do this?"_s, Answer::Yes);
    w.choose(u"mnuFile_SaveAs"_s);
    EXPECT_EQ(w.window.windowTitle(), prefix + u"copy.gz"_s);
    EXPECT_EQ(w.window.menus().entries("mnuFile1").size(), 2U);
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
