// SPDX-License-Identifier: MIT
// Undo in the whole window: each action is one step or none, and back and forth brings parameters,
// records, gfxboot.cfg and the stage to what they were, to the bit.
#include "document/open_fixture.h"
#include "editor/colour/colour_tools.h"
#include "editor/stage/stage_surface.h"
#include "params/object_table.h"
#include "window_fixture.h"

namespace fennel::test {

namespace {

constexpr int timeRow = 5;
constexpr int lineRow = 22;

class Undo : public WindowTest {
protected:
    Document& document() { return bench.document; }
    // All that an undo has to bring back.
    struct Seen {
        PanelArr records;
        std::map<ParamKey, ParamValue> values;
        CfgLines cfg;
        QByteArray cfgBytes;
        std::vector<QRect> rects;
        bool modified = false;
        bool operator==(const Seen&) const = default;
    };
    Seen seen()
    {
        const ParamState& state = document().state();
        Seen all{state.PanelArr, {}, state.cfg, {}, {}, document().isModified()};
        for (int file = 0; file < zukFileCount; ++file) {
            for (int param = 1; param <= zukParamCount; ++param) {
                if (const auto& value = state.ZUKarr.at(file, param).Value)
                    all.values[{file, param}] = *value;
            }
        }
        if (FileExists(run().Workspace + u"gfxboot.cfg"_s))
            all.cfgBytes = bytesOf(run().Workspace + u"gfxboot.cfg"_s);
        for (int row = 0; row < run().ObjectCount; ++row)
            all.rects.push_back(stage().panel(row).rect);
        return all;
    }
    void expectStep(const QString& what, const std::function<void()>& act)
    {
        const Seen before = seen();
        act();
        const Seen after = seen();
        EXPECT_FALSE(before == after) << what.toStdString();
        EXPECT_EQ(document().undoText(), what);
        EXPECT_EQ(action(u"mnuEdit_Undo"_s).text(), u"Undo "_s + what);
        choose("mnuEdit_Undo");
        EXPECT_TRUE(seen() == before) << what.toStdString();
        EXPECT_FALSE(document().canUndo()) << what.toStdString();
        choose("mnuEdit_Redo");
        EXPECT_TRUE(seen() == after) << what.toStdString();
        choose("mnuEdit_Undo");
    }
    void expectNoStep(const char* what, const std::function<void()>& act)
    {
        const Seen before = seen();
        act();
        EXPECT_TRUE(seen() == before) << what;
        EXPECT_FALSE(document().canUndo() || document().inGesture()) << what;
    }
    // Drags the handle of an object.
    void pull(int object, QPoint by)
    {
        stage().ActivatePanel(object);
        drag(stage().marker().center(), stage().marker().center() + by);
    }
    void moveHeld(QPoint to)
    {
        QMouseEvent event(QEvent::MouseMove, to, window.surface().mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window.surface(), &event);
    }
    void escape(QPoint from, QPoint by)
    {
        QTest::mousePress(&window.surface(), Qt::LeftButton, {}, from);
        moveHeld(from + by);
        EXPECT_TRUE(document().inGesture());
        press(Qt::Key_Escape);
        QTest::mouseRelease(&window.surface(), Qt::LeftButton, {}, from + by);
    }
};

TEST_F(Undo, OfGenerationThree)
{
    openTemplate();
    const QPoint time = middleOf(timeRow);
    const QPoint line = middleOf(lineRow);
    expectStep(u"move of Time"_s, [&] { drag(time, time + QPoint(41, 33)); });
    expectStep(u"move of MenuPanel"_s, [&] {
        const QPoint low = stage().panel(MenuPanelRow).rect.bottomLeft() + QPoint(9, -9);
        drag(low, low + QPoint(7, 5));
    });
    expectStep(u"size of RunLine"_s, [&] { pull(lineRow, {-30, 12}); });
    expectStep(u"move of Time"_s, [&] {
        stage().ActivatePanel(timeRow);
        for (const int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down})
            press(key);
        press(Qt::Key_Down, Qt::ShiftModifier);
    });
    selectObject(lineRow);
    ColourTools& tools = window.colourTools();
    expectStep(u"colour of RunLine"_s, [&] {
        QSlider& slider = tools.slider(1);
        Q_EMIT slider.sliderPressed();
        for (const int value : {3, 77, 150, 12})
            slider.setValue(value);
        Q_EMIT slider.sliderReleased();
    });
    expectStep(u"transparency of RunLine"_s, [&] { tools.transparency().setValue(44); });
    tools.slider(1).setValue(99);
    tools.transparency().setValue(9);
    document().beginHistory();
    expectStep(u"colours of RunLine"_s, [&] { find<QPushButton>(u"Command1"_s).click(); });
    expectNoStep("selecting", [&] {
        click(time);
        press(Qt::Key_Tab);
        stage().ApplyPanel(lineRow);
        goToAllTabs();
        window.ShowBackground();
    });
    expectNoStep("escape from a drag", [&] { escape(time, {60, 60}); });
    expectNoStep("escape from a pull", [&] {
        stage().ActivatePanel(lineRow);
        escape(stage().marker().center(), {-30, 12});
    });
    expectNoStep("a drag that comes back", [&] {
        QTest::mousePress(&window.surface(), Qt::LeftButton, {}, line);
        moveHeld(line - QPoint(40, 40));
        moveHeld(line);
        QTest::mouseRelease(&window.surface(), Qt::LeftButton, {}, line);
    });
}

TEST_F(Undo, OfGenerationTwo)
{
    RawCpio archive = smallMessage(400, 300);
    archive.add({.name = "gfxboot.cfg",
                 .data = "menu_start_x=50\r\nmenu_start_y=60\r\nmenu_max_entries=5\r\nwelcome=1"});
    open(shell.file(u"old"_s, QByteArray::fromStdString(archive.close())));
    const QPoint bar = middleOf(MenuBarRow);
    expectStep(u"move of MenuBar"_s, [&] { drag(bar, bar + QPoint(41, 33)); });
    expectStep(u"size of MenuPanel"_s, [&] { pull(MenuPanelRow, {0, 45}); });
    expectStep(u"move of MenuBar"_s, [&] {
        stage().ActivatePanel(MenuBarRow);
        press(Qt::Key_Left);
        press(Qt::Key_Up, Qt::ShiftModifier);
    });
    expectNoStep("selecting", [&] {
        click(bar);
        press(Qt::Key_Tab);
        goToAllTabs();
        window.ShowBackground();
    });
    expectNoStep("escape", [&] { escape(bar, {30, 30}); });
    expectStep(u"value of menu_start_y"_s, [&] {
        goToTab(u"Config"_s);
        type(u"menu_start_y"_s, u"80"_s);
    });
}

} // namespace

} // namespace fennel::test
