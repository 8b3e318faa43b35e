// SPDX-License-Identifier: MIT
// A stage with a window that only remembers: settings of gfxboot.cfg in a map, rows written, status
// texts, menus asked for. The boot screen is 800 by 600 unless a test says otherwise.
#pragma once

#include "editor/stage/gestures.h"
#include "support/test_shell.h"

#include <QPainter>

#include <map>
#include <set>

namespace fennel::test {

using namespace Qt::StringLiterals;

class FakeHost : public StageHost {
public:
    void PanelParamsToRow(int index) override { rows.push_back(index); }
    qint64 GetPanelParam(int tab, int id) override
    {
        const auto found = params.find({tab, id});
        return found == params.end() ? -1 : found->second;
    }
    QString CfgValue(const QString& name) override
    {
        const auto found = cfg.find(name);
        return found != cfg.end() ? found->second : name == u"boot_show" ? u"1"_s : u"0"_s;
    }
    void SetCfgValue(const QString& name, const QString& value) override { cfg[name] = value; }
    void setBackgroundNumber(int number) override { backgrounds.push_back(number); }
    int objectOfCurrentTab() override { return tabObject; }
    void selectTabOf(int index) override { tabObject = index; }
    void focusStage() override {}
    bool menuLevelShown() override { return fromMenu; }
    int pipettesOn() override { return pipettes; }
    void showColourControls(int index) override { colours = index; }
    void setStatus(int panel, const QString& text) override { status[panel] = text; }
    void refreshStatus() override { ++refreshes; }
    void panelMenu(int index, QPoint) override { menus.push_back(index); }
    void backgroundMenu(QPoint) override { menus.push_back(-1); }
    void setOnOffCaption(int item, const QString& text) override { captions[item] = text; }
    void prepareBackground() override { calls << u"prepare"_s; }
    void layOutWindow() override { calls << u"layout"_s; }
    void scaleApplied() override { calls << u"scaled"_s; }
    void beep(double hertz, int) override { tones.push_back(hertz); }

    std::map<QString, QString> cfg;
    std::map<std::pair<int, int>, qint64> params;
    std::vector<int> rows;
    std::vector<int> backgrounds;
    std::vector<int> menus;
    std::vector<double> tones;
    std::map<int, QString> status;
    std::map<int, QString> captions;
    QStringList calls;
    int tabObject = -1;
    int colours = -2;
    int pipettes = 0;
    int refreshes = 0;
    bool fromMenu = false;
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
    PanelRec& rec(int index) { return panels[static_cast<std::size_t>(index)]; }
    void setPlace(int index, int left, int top, int width, int height)
    {
        rec(index).Left = static_cast<qint16>(left);
        rec(index).Top = static_cast<qint16>(top);
        rec(index).Width = static_cast<qint16>(width);
        rec(index).Height = static_cast<qint16>(height);
    }
    // Four objects as generation 1 has them: menu and bar at (253, 170), bar of buttons, options.
    void openOld(int generation = 1)
    {
        run().gfxboot_var = generation;
        run().GfxHasCfg = generation == 2;
        panels.assign(4, PanelRec());
        setPlace(0, 253, 170, 547, 163);
        setPlace(1, 253, 170, 547, 23);
        setPlace(2, 0, 555, 800, 45);
        setPlace(3, 263, 480, 537, 23);
        rec(2).Roll = rec(3).Roll = true;
        rec(0).BackColor = rec(2).BackColor = rec(3).BackColor = qRgb(128, 128, 128);
        rec(1).BackColor = qRgb(255, 255, 255);
        rec(1).Transp = 70;
        show();
    }
    // Forty objects of generation 3; those that the tests use have sizes and parameters.
    void openZuk()
    {
        run().gfxboot_var = 3;
        run().GfxHasZuk = true;
        panels.assign(40, PanelRec());
        for (int i = 0; i < 40; ++i) {
            rec(i).Enabled = false;
            rec(i).OnlySelected = true;
            rec(i).TabIndex = 0;
        }
        for (const int i : {0, 1, 4, 5, 7, 8, 22}) {
            rec(i).Enabled = true;
            rec(i).OnlySelected = i == 7 || i == 8;
            rec(i).TabIndex = i + 6;
            rec(i).LeftParam = 2;
            rec(i).TopParam = 3;
        }
        rec(2).OnlySelected = rec(3).OnlySelected = false;
        setPlace(0, 100, 200, 500, 140);
        setPlace(1, 100, 200, 500, 24);
        setPlace(4, 650, 20, 120, 60);
        setPlace(5, 20, 30, 72, 22);
        setPlace(7, 0, 550, 800, 24);
        setPlace(8, 80, 60, 640, 480);
        setPlace(22, 200, 400, 300, 40);
        rec(0).WidthParam = rec(1).WidthParam = 54;
        rec(8).LeftParam = -80;
        rec(8).TopParam = -60;
        rec(22).WidthParam = 4;
        rec(22).HeightParam = 5;
        rec(22).Name = u"RunLine"_s;
        host.params[{6, 40}] = 3;
        show();
    }
    void show()
    {
        run().ObjectCount = static_cast<int>(panels.size());
        stage.adoptPanels();
        stage.RefreshPanels();
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
    PanelArr panels;
    FontTable fonts = FontTable(fontCount);
    int menuSlit = 3;
    FakeHost host;
    // What the stage asked of the resize tool: "WxH source target".
    QStringList resizes;
    std::function<void(int, int, const QString&, const QString&)> resize;
    Stage stage{StageData{
        shell.shell, panels, fonts, menuSlit, host,
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
