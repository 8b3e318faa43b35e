// SPDX-License-Identifier: MIT
// What gfxboot.cfg says of a boot screen, in its flat form and in that with sections, which
// Debian's engine reads.
#pragma once

#include "params/cfg_lines.h"

#include <QColor>
#include <QPoint>
#include <QSize>

#include <vector>

namespace fennel {

// One hot key of the lowest rows: its key, its word, and what stands below.
struct CfgKey {
    QString key;
    QString word;
    QString below;
};

// Lengths and places in boot-screen pixels.
struct CfgLook {
    QSize screen{800, 600};
    int bits = 16;
    QString background = QStringLiteral("back.jpg");
    QPoint menu{253, 170};
    bool centred = false; // the menu stays in the middle, however wide its bar becomes
    int entries = 8;
    int barMinWidth = 300;
    int barBeside = 22; // the bar is at least so much wider than the widest entry
    int barTransparency = 70;
    QRgb bar = 0xffffffff;
    QRgb normal = 0xffffffff;
    QRgb selected = 0xff000000;
    QRgb key = 0xffffe050;
    QRgb word = 0xffffffff;
    QRgb title = 0xffffffff;   // of a word that has something below
    std::vector<CfgKey> left;  // hot keys, from the left
    std::vector<CfgKey> right; // and those at the right end
    bool options = false;      // there is a line for boot options
    QPoint caret{273, 489};
    QRgb optionsText = 0xffffffff;
    QRgb windowBack = 0xffd8deed; // of help and messages
    QRgb windowText = 0xff000000;
    QRgb progress = 0xff295202;
    QString optionsLabel; // left of the caret, and a line is below; empty: neither
};

// The flat form: only lines that are in force count, the others are as if they were not there.
CfgLook flatLook(const CfgLines& lines);
// The form with sections; `text` is the file. Of several values of a name the first one in the
// order of `layout` counts, the section `base` last.
CfgLook sectionedLook(const QString& text);
// By the form that the text has.
CfgLook cfgLook(const QString& text, const CfgLines& lines);

} // namespace fennel
