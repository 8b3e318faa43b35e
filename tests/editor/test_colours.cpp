// SPDX-License-Identifier: MIT
// Colours by slider, key, dialogue, pipette and typing: controls, record, row, stage and saved
// bytes say the same.
#include "editor/colour/colour_link.h"
#include "editor/colour/colour_tools.h"
#include "editor/colour/pipette.h"
#include "editor/commands/handlers.h"
#include "editor/stage/stage_surface.h"
#include "window_fixture.h"

namespace fennel::test {

namespace {

constexpr int lineRow = 22; // the running line: fill, text and transparency have parameters

class Colours : public WindowTest {
protected:
    Colours()
    {
        openTemplate(lineRow);
        pipette().setScreen([this](QPointF) { return screen; }, [] { return QPointF(5, 5); });
    }
    ColourTools& tools() { return window.colourTools(); }
    Pipette& pipette() { return window.colourLink().pipette(); }
    void click() { QTest::mouseClick(&pipette(), Qt::LeftButton); }
    // What every place says of the fill.
    void expectFill(QRgb colour, const QString& text)
    {
        EXPECT_EQ(record(lineRow).BackColor, colour);
        EXPECT_EQ(stage().panel(lineRow).fill, colour);
        EXPECT_EQ(shown(lineRow, record(lineRow).BackParam), text);
        EXPECT_EQ(tools().sliderColour(), colour);
        EXPECT_EQ(tools().sample().text(), text);
        EXPECT_EQ(tools().box(0).text() + tools().box(1).text() + tools().box(2).text(),
                  text.mid(2));
        ASSERT_TRUE(writeParameters(window));
        const int file = levelFileOf(record(lineRow));
        EXPECT_EQ(recordsOf(bytesOf(shell.run.Workspace + levelFileName(file)))
                      .at(record(lineRow).BackParam),
                  int(colour & 0xFFFFFFU));
    }
    static QImage plain(QRgb colour)
    {
        QImage image(11, 11, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
    QImage screen = plain(qRgb(1, 2, 3));
};

TEST_F(Colours, SlidersAndTheirKeysChangeEverythingAtOnce)
{
    tools().slider(0).setValue(255);
    tools().slider(1).setValue(0);
    tools().slider(2).setValue(0);
    expectFill(qRgb(255, 0, 0), u"0xFF0000"_s);
    QTest::keyClick(&tools().box(0), Qt::Key_Down);
    QTest::keyClick(&tools().box(1), Qt::Key_Up);
    expectFill(qRgb(255, 0, 0), u"0xFF0000"_s);
    QTest::keyClick(&tools().box(0), Qt::Key_Up);
    QTest::keyClick(&tools().box(2), Qt::Key_Down);
    QTest::keyClicks(&tools().box(2), u"7F"_s);
    expectFill(qRgb(254, 0, 1), u"0xFE0001"_s);
}

TEST_F(Colours, TransparencyReachesRecordAndRow)
{
    tools().transparency().setValue(33);
    EXPECT_EQ(record(lineRow).Transp, 33);
    EXPECT_EQ(shown(lineRow, record(lineRow).TranspParam), u"33"_s);
    EXPECT_EQ(find<QLineEdit>(u"Text_Transp"_s).text(), u"33"_s);
    // Command1 brings the file's own values back.
    const qint64 before = cell(lineRow, record(lineRow).TranspParam).LevelValue;
    tools().slider(0).setValue(9);
    find<QPushButton>(u"Command1"_s).click();
    EXPECT_EQ(record(lineRow).Transp, before);
    EXPECT_NE(tools().slider(0).value(), 9);
}

TEST_F(Colours, AClickTakesTheColourUnderThePipette)
{
    tools().pipette().setChecked(true);
    EXPECT_EQ(window.colourLink().pipettesOn(), 1);
    EXPECT_EQ(tools().sample().text(), u"0x010203"_s);
    EXPECT_FALSE(window.surface().pulsing());
    screen = plain(qRgb(0, 0x80, 0xFF));
    ASSERT_TRUE(QTest::qWaitFor([&] { return tools().sample().text() == u"0x0080FF"_s; }));
    click();
    EXPECT_EQ(window.colourLink().pipettesOn(), 0);
    EXPECT_FALSE(pipette().working());
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    expectFill(qRgb(0, 0x80, 0xFF), u"0x0080FF"_s);
    // The box turned off by hand takes what is under the mouse, too.
    screen = plain(qRgb(0x12, 0x34, 0x56));
    tools().pipette().setChecked(true);
    tools().pipette().setChecked(false);
    expectFill(qRgb(0x12, 0x34, 0x56), u"0x123456"_s);
    // With another gfxboot there is no object to colour yet.
    open(shell.run.GfxPath);
    EXPECT_FALSE(tools().slider(0).isEnabled());
}

TEST_F(Colours, TheValueEditorHasAPipetteAndADialogueOfItsOwn)
{
    editRow(lineRow, record(lineRow).TextParam);
    ValueEditor& editor = window.rightPanel().editor();
    ASSERT_TRUE(editor.isVisible());
    const QString before = editor.text();
    screen = plain(qRgb(255, 255, 255));
    editor.pipette().setChecked(true);
    // A white sample with black text.
    EXPECT_EQ(editor.box().palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(editor.box().palette().color(QPalette::Text), QColor(Qt::black));
    QTest::keyClick(&pipette(), Qt::Key_Escape);
    EXPECT_EQ(shown(lineRow, record(lineRow).TextParam), before);
    EXPECT_NE(editor.box().palette().color(QPalette::Text),
              editor.box().palette().color(QPalette::Base));
    editor.pipette().setChecked(true);
    click();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(shown(lineRow, record(lineRow).TextParam), u"0xFFFFFF"_s);
    EXPECT_EQ(record(lineRow).TextColor, qRgb(255, 255, 255));

    editRow(lineRow, record(lineRow).BackParam);
    shell.prompts.expectColour(QColor(0xAA, 0xBB, 0xCC));
    editor.colourButton().click();
    expectFill(qRgb(0xAA, 0xBB, 0xCC), u"0xAABBCC"_s);

    // What the screen would understand as another number is not taken.
    editRow(lineRow, record(lineRow).TranspParam);
    editor.setText(u"-7"_s);
    shell.prompts.expectMessage(u"-7 cannot be stored"_s);
    EXPECT_FALSE(CommitValue(window));
    // Who clicks elsewhere goes on there.
    CloseEditor(window);
    editRow(lineRow, record(lineRow).BackParam);
    window.surface().setFocus();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_TRUE(window.surface().hasFocus());
    // What was typed for one row never reaches another.
    editRow(lineRow, record(lineRow).BackParam);
    editor.setText(u"0x112233"_s);
    editor.colourButton().setFocus();
    Q_EMIT window.rightPanel().rowSelected(bench.params.TabIndex(lineRow), 1, false);
    window.ShowBackground();
    EXPECT_FALSE(editor.isVisible());
    expectFill(qRgb(0xAA, 0xBB, 0xCC), u"0xAABBCC"_s);
}

} // namespace

} // namespace fennel::test
