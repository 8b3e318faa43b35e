// SPDX-License-Identifier: MIT
// One boot-screen object: where it is, how it looks, and which parameters say so.
#pragma once

#include <QColor>
#include <QString>

#include <vector>

namespace fennel {

// Colours of the files have no opacity; an object's own is a parameter of its own.
constexpr QRgb opaque(qint64 colour)
{
    return 0xFF000000U | (static_cast<QRgb>(colour) & 0xFFFFFFU);
}

// A parameter that an object's tab lists.
struct PanelParam {
    int number = 0;
    bool hex = false; // shown in hexadecimal
    bool operator==(const PanelParam&) const = default;
};

// Lengths are boot-screen pixels, the origin is the top left corner of the background. A source
// field (…Param) above 0 is a parameter number of CfgFile; 0 or below is a constant, taken by its
// absolute value, that no parameter sets and no mouse changes.
struct PanelRec {
    QString Name; // "|" stands for a blank in the tab, for a line break on the stage
    qint16 Top = 0;
    qint16 Left = 0;
    qint16 Width = 100;
    qint16 Height = 50;
    qint16 On = 0;
    QRgb BackColor = 0xff000000;
    QRgb TextColor = 0xffffffff;
    qint16 Transp = 255; // 0 shows the pure fill, 255 only the background
    qint16 FontIndex = 0;
    qint16 TopParam = 0;
    qint16 LeftParam = 0;
    qint16 WidthParam = 0;
    qint16 HeightParam = 0;
    qint16 OnParam = 0;
    qint32 BackParam = 0;
    qint32 TextParam = 0;
    qint16 TranspParam = 0;
    qint16 FontParam = 0;
    bool Editable = false; // has level records; its rows get swatches
    QString Component;     // "|"-separated masks of the files that belong to it
    bool Shown = true;
    bool Enabled = true;         // can be selected, gets a tab
    bool Roll = false;           // cannot be moved or sized with the mouse
    QString CfgFile;             // such as "ZUK0004.CFG"
    bool OnlySelected = false;   // shown only while its tab is selected
    std::vector<PanelParam> Ids; // parameters that its tab lists, in its order
    std::vector<int> Ids2;       // further parameters whose change recomputes the object
    QString Text;                // the words printed on it, lines separated by "|"
    bool operator==(const PanelRec&) const = default;
};

using PanelArr = std::vector<PanelRec>;

} // namespace fennel
