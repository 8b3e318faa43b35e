// SPDX-License-Identifier: MIT
// What an edit costs: drawing one panel, all panels, and a step of a drag from the mouse event to
// the painted frame, each at 1024x768 and 2560x1440.
#include "editor.h"
#include "params/panel_values.h"

#include <random>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// Forty objects, every one shown: the template's places for those that it names, a grid for the
// rest.
class Scene : public OpenGfxboot {
public:
    explicit Scene(QSize size) : OpenGfxboot(size)
    {
        std::mt19937 random(1);
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                picture.setPixel(x, y, static_cast<QRgb>(random()) | 0xff000000U);
        }
        fonts[0].FontName = u"Liberation Sans"_s;
        fonts[0].Size = 14;
        // A step of a drag pays for the parameters that it writes.
        document.setMenuValues([](ZUKarr& table) {
            for (int file = 0; file < zukFileCount; ++file) {
                for (int param = 1; param <= zukParamCount; ++param)
                    table.at(file, param).LevelValue = 3;
            }
        });
        document.buildObjects();
        document.listValues(false);
        fillPanels(size);
        stage.adoptPanels();
        stage.setBackground(picture);
        stage.RefreshPanels();
    }

    Stage stage{StageData{shell, document, fonts, host, {}}};

private:
    void fillPanels(QSize size)
    {
        Change change;
        for (int i = 0; i < 40; ++i) {
            PanelRec& rec = change.objects[i] = *document.object(i);
            rec.Left = static_cast<qint16>(i % 8 * 120);
            rec.Top = static_cast<qint16>(i / 8 * 120);
            rec.Width = 100;
            rec.Height = 50;
            rec.LeftParam = rec.LeftParam > 0 ? rec.LeftParam : qint16{2};
            rec.TopParam = rec.TopParam > 0 ? rec.TopParam : qint16{3};
            rec.BackColor = qRgb(i * 6, 200 - i, 90);
            rec.Transp = static_cast<qint16>(60 + i * 4);
            rec.Enabled = true;
            rec.OnlySelected = false;
        }
        const auto place = [&](int row, const QRect& rect) {
            PanelRec& rec = change.objects[row];
            rec.Left = clampToI16(rect.x());
            rec.Top = clampToI16(rect.y());
            rec.Width = clampToI16(rect.width());
            rec.Height = clampToI16(rect.height());
        };
        place(0, {253, 170, size.width() - 253, 340});
        place(1, {253, 170, size.width() - 253, 24});
        place(7, {0, size.height() - 24, size.width(), 24});
        place(8, {80, 60, size.width() - 160, size.height() - 120});
        place(9, {0, 0, size.width(), size.height()});
        place(35, {100, 100, 575, 375});
        (void)document.apply(change, {});
    }
};

void DrawPanelHelp(benchmark::State& state)
{
    Scene scene(sizeOf(state));
    for (auto _ : state)
        scene.stage.DrawPanel(8);
}

void AllPanels(benchmark::State& state)
{
    Scene scene(sizeOf(state));
    for (auto _ : state) {
        for (int i = 0; i < 40; ++i)
            scene.stage.ApplyPanel(i);
    }
}

// One mouse move of a drag with its rows and status, and the frame that shows it.
void DragStep(benchmark::State& state)
{
    Scene scene(sizeOf(state));
    measureDrag(state, scene.stage, static_cast<int>(state.range(2)));
}

} // namespace

BENCHMARK(DrawPanelHelp)->Args({1024, 768})->Args({2560, 1440})->Unit(benchmark::kMillisecond);
BENCHMARK(AllPanels)->Args({1024, 768})->Args({2560, 1440})->Unit(benchmark::kMillisecond);
// The menu with its bar (1), the help panel (8), a small object (5).
BENCHMARK(DragStep)
    ->Args({1024, 768, 5})
    ->Args({1024, 768, 1})
    ->Args({1024, 768, 8})
    ->Args({2560, 1440, 5})
    ->Args({2560, 1440, 1})
    ->Args({2560, 1440, 8})
    ->Unit(benchmark::kMillisecond);
