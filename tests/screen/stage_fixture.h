// SPDX-License-Identifier: MIT
// A stage on a real document, with a window that only remembers: status texts, menus asked for. The
// boot screen is 800 by 600 unless a test says otherwise.
#pragma once

#include "document/place_change.h"
#include "editor/stage/gestures.h"
#include "params/panel_values.h"
#include "support/test_shell.h"

#include <QPainter>

#include <map>
#include <set>
#include <type_traits>

namespace fennel::test {

using namespace Qt::StringLiterals;

class FakeHost : public StageHost {
public:
    int objectOfCurrentTab() override { return tabObject; }
    int selectTabOf(int index) override
    {
        tabObject = index;
        return 13;
    }
    void focusStage() override {}
    int pipettesOn() override { return pipettes; }
    void showColourControls(int index) override { colours = index; }
    void setStatus(int panel, const QString& text) override { status[panel] = text; }
    void refreshStatus() override { ++refreshes; }
    void panelMenu(int index, QPoint) override { menus.push_back(index); }
    void objectMenu(int index, QPoint) override { menus.push_back(100 + index); }
    void backgroundMenu(QPoint) override { menus.push_back(-1); }
    void setOnOffCaption(int item, const QString& text) override { captions[item] = text; }
    void prepareBackground() override { calls << u"prepare"_s; }
    void layOutWindow() override { calls << u"layout"_s; }
    void scaleApplied() override { calls << u"scaled"_s; }
    void beep(double hertz, int) override { tones.push_back(hertz); }

    std::vector<int> menus;
    std::vector<double> tones;
    std::map<int, QString> status;
    std::map<int, QString> captions;
    QStringList calls;
    int tabObject = -1;
    int colours = -2;
    int pipettes = 0;
    int refreshes = 0;
};

// A pixel that tells its own place: red x, green y, blue x + y, each modulo 256.
inline QImage placePicture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) % 256));
    }
    return image;
}

class StageTest : public testing::Test {
protected:
    StageTest()
    {
        fonts[0] = {u"DejaVu Sans"_s, 14, false, false, {}, 0, 0, 0, 0, 0};
        run().GfxOpened = true;
        run().BackWidth = 800;
        run().BackHeight = 600;
        stage.setBackground(placePicture({800, 600}));
    }
    RunState& run() { return shell.run; }
    const PanelRec& rec(int index) { return *document.object(index); }
    // A field of a record, whatever parameter it comes from.
    template <class T>
    void set(int index, T PanelRec::*field, std::type_identity_t<T> value)
    {
        Change change;
        change.objects[index] = rec(index);
        change.objects[index].*field = value;
        EXPECT_TRUE(document.apply(change, {}));
    }
    // The place of an object, and the parameters that say so.
    void setPlace(int index, int left, int top, int width, int height)
    {
        PanelRec wanted = rec(index);
        wanted.Left = clampToI16(left);
        wanted.Top = clampToI16(top);
        wanted.Width = clampToI16(width);
        wanted.Height = clampToI16(height);
        Change change;
        addRecord(document.state(), index, wanted, change);
        EXPECT_TRUE(document.apply(change, {}));
    }
    // What the object's list says of a parameter.
    qint64 value(int index, int param) { return GetPanelParam(document.state(), index, param); }
    // A line of gfxboot.cfg; nothing: no value stands behind the name.
    void setCfg(QStringView name, std::optional<qint64> number)
    {
        Change change;
        change.cfg = document.state().cfg;
        CfgLine& line = (*change.cfg)[cfgLineOf(*change.cfg, name)];
        line.value = {number.value_or(0), false, {}};
        line.valued = number.has_value();
        EXPECT_TRUE(document.apply(change, {}));
    }
    // The four objects of generation 1 or 2: menu and bar at (253, 170), bar of buttons, options.
    void openOld(int generation = 1)
    {
        run().gfxboot_var = generation;
        run().GfxHasCfg = generation == 2;
        run().ObjectCount = 4;
        shell.member(u"gfxboot.cfg"_s, "menu_start_x=253\r\nmenu_start_y=170\r\n"
                                       "menu_max_entries=8\r\nboot_show=1\r\nhide_poweroff=0");
        if (generation == 2)
            document.readConfigLines();
        document.buildObjects();
        show();
    }
    // The forty objects of generation 3, of which these have places: menu and bar (0, 1), logo (4),
    // Time (5), Date (6), the info line (7), the help panel (8), RunLine (22), the glasses (23).
    void openZuk()
    {
        run().gfxboot_var = 3;
        run().GfxHasZuk = true;
        run().ObjectCount = 40;
        shell.member(u"Logo_msk.jpg"_s, jpegOf({120, 60}));
        document.setMenuValues([](ZUKarr& table) {
            for (int file = 0; file < zukFileCount; ++file) {
                for (int param = 1; param <= zukParamCount; ++param) {
                    table.at(file, param).DefValue = 0;
                    table.at(file, param).LevelValue = 0;
                }
            }
            for (const auto& [file, param, number] : {std::tuple{0, 42, 100},
                                                      {0, 43, 200},
                                                      {0, 54, 500},
                                                      {0, 40, 3},
                                                      {0, 47, 255},
                                                      {0, 57, 255},
                                                      {0, 32, 650},
                                                      {0, 33, 20},
                                                      {0, 1, 1}, // switches
                                                      {0, 11, 1},
                                                      {2, 1, 1},
                                                      {3, 1, 1},
                                                      {4, 1, 1},
                                                      {5, 1, 1},
                                                      {0, 2, 20},
                                                      {0, 3, 30},
                                                      {0, 12, 728},
                                                      {0, 13, 100},
                                                      {0, 23, 550},
                                                      {0, 24, 800},
                                                      {2, 2, 200},
                                                      {2, 3, 400},
                                                      {2, 4, 300},
                                                      {2, 5, 40},
                                                      {2, 7, 255},
                                                      {3, 2, 700},
                                                      {3, 3, 450}})
                table.at(file, param).LevelValue = number;
        });
        document.buildObjects();
        document.listValues(false);
        show();
    }
    // Without words, which would lie over the pixels that are looked at.
    void show()
    {
        for (int row = 0; row < run().ObjectCount; ++row)
            document.setText(row, {});
        stage.adoptPanels();
        stage.RefreshPanels();
        document.beginHistory();
    }
    QImage painted()
    {
        QImage image(stage.pictureSize(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        stage.paint(painter, image.rect());
        return image;
    }
    void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse.press({from, button, button, Qt::NoModifier});
        mouse.move({(from + to) / 2, Qt::NoButton, button, Qt::NoModifier});
        mouse.move({to, Qt::NoButton, button, Qt::NoModifier});
        mouse.release({to, button, Qt::NoButton, Qt::NoModifier});
    }

    TestShell shell;
    FontTable fonts = FontTable(fontCount);
    Document document{shell.shell, fonts};
    FakeHost host;
    // What the stage asked of the resize tool: "WxH source target".
    QStringList resizes;
    std::function<void(int, int, const QString&, const QString&)> resize;
    Stage stage{StageData{
        shell.shell, document, fonts, host,
        [this](int w, int h, const QString& source, const QString& target) -> Result<void> {
            resizes << u"%1x%2 %3 %4"_s.arg(w).arg(h).arg(source, target);
            if (resize)
                resize(w, h, source, target);
            if (FileExists(target))
                return {};
            return Failure{FailureKind::ToolFailed, {}, true};
        }}};
    StageGestures mouse{stage};
};

} // namespace fennel::test
