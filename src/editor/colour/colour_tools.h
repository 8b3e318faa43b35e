// SPDX-License-Identifier: MIT
// Frame5RDPanelTools: the colour tools at the lower right, which show and change the fill and the
// transparency of the object in work. The frame shows what it is told and passes on what the user
// does; it stores no value that is not on screen.
#pragma once

#include "screen/colour.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include <array>

class QGridLayout;

namespace fennel {

class ColourTools : public QGroupBox {
    Q_OBJECT
public:
    explicit ColourTools(QWidget* parent);

    // Shows a fill and a transparency (0 to 255, larger values as 255) and enables what has a
    // parameter behind it. Causes no signal.
    void showValues(ColourControls enabled, QRgb fill, int transp);
    void showNothing(); // no object is in work
    // The colour under the pipette; the sliders stay until the colour is taken.
    void showSample(QRgb colour);

    [[nodiscard]] QRgb sliderColour() const;
    // Changes of one number belong together: a slider that is pulled, or a run of its keys.
    [[nodiscard]] int journey() const { return m_journey; }
    void newJourney() { ++m_journey; }
    [[nodiscard]] QLineEdit& sample() { return *m_sample; }      // TextColor
    [[nodiscard]] QCheckBox& pipette() { return *m_pipette; }    // Check1Pipetka
    [[nodiscard]] QPushButton& colourButton() { return *m_ask; } // ComRGB
    [[nodiscard]] QPushButton& fileButton() { return *m_file; }  // Command1
    [[nodiscard]] QSlider& slider(int part) { return *m_sliders[static_cast<std::size_t>(part)]; }
    [[nodiscard]] QLineEdit& box(int part) { return *m_boxes[static_cast<std::size_t>(part)]; }
    [[nodiscard]] QSlider& transparency() { return *m_transparency; } // Transparency

    // In less room the controls would lie over each other.
    [[nodiscard]] QSize leastSize() const { return m_least; }

Q_SIGNALS:
    // A slider was moved or a box typed into by the user; the value is the one of all three, or the
    // new transparency.
    void fillChanged(QRgb colour);
    void transparencyChanged(int value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildTransparency();
    void buildFill();
    void layOut(bool low);
    void partMoved();
    void takeTyped(QLineEdit& box, QSlider& slider, int base);
    void takeColour();

    QLabel* m_label;
    QSlider* m_transparency;
    QLineEdit* m_transpText;
    QPushButton* m_file;
    QLineEdit* m_sample;
    QCheckBox* m_pipette;
    QPushButton* m_ask;
    std::array<QSlider*, 3> m_sliders{};
    std::array<QLineEdit*, 3> m_boxes{};
    QGridLayout* m_parts;
    int m_journey = 0;
    bool m_silent = false; // the sliders are being set by showValues
    QSize m_least;
    bool m_low = false; // the frame is too low for boxes under the sliders
};

} // namespace fennel
