// SPDX-License-Identifier: MIT
// Joins the colour controls to object, row and file: the frame at the lower right for the fill of
// the object in work, the two colour controls of the value editor, and the pipette of both. What
// one of them shows, the others show too.
#pragma once

#include <QObject>
#include <QRgb>

namespace fennel {

class MainWindow;
class Pipette;
struct PanelRec;
struct ParamValue;

class ColourLink : public QObject {
    Q_OBJECT
public:
    // The window outlives the link.
    explicit ColourLink(MainWindow& window);

    // Once the areas of the window stand.
    void connectControls();
    // Fill and transparency of the object go to the controls; -1: none.
    void showControls(int index);
    [[nodiscard]] int pipettesOn() const;
    [[nodiscard]] Pipette& pipette() { return *m_pipette; }
    // Asks for the colour of the object in work, or of its text.
    void askFill();
    void askText();

private:
    [[nodiscard]] const PanelRec* record() const;
    void setFill(QRgb colour);
    void setTransparency(int value);
    void setFileValues();
    // A parameter of the object in work gets the value.
    void writeParam(int param, const ParamValue& value, const QString& what);
    void askValue();
    void onPipette(bool on);
    void onSample(QRgb colour);
    void onPicked(bool taken);
    void takeValue(QRgb colour);
    void showValueSample(const QRgb* colour);

    MainWindow& m_window;
    Pipette* m_pipette = nullptr;
    // What the picking that goes on is for.
    bool m_forFill = false;
    bool m_forValue = false;
    bool m_ending = false; // the check boxes are being turned off by the end of a picking
};

} // namespace fennel
