// SPDX-License-Identifier: MIT
// What our engine reads: the parameters of the level files, and the objects that they place.
#pragma once

#include "screen/boot_layout.h"

namespace fennel {

// The objects by the level file that holds their parameters.
enum OwnFile {
    GeneralFile,
    SparksFile,
    RunLineFile,
    GlassFile,
    LinearFile,
    CircleFile,
    NumberFile,
    WaitFile,
    AnimationFile,
    InfoFile = 15,
};

// An object's values as its sources in PanelRec name them. Lengths are at least 0.
struct OwnObject {
    int row = 0;
    bool on = false;
    QRect rect; // not cut at the screen's edges
    QRgb back = 0;
    QRgb text = 0;
    int transparency = 0;
    int font = 0;
};

class OwnValues {
public:
    explicit OwnValues(const BootRequest& request) : m_request(request) {}

    // 0 to 0xFFFFFF: what is listed, else what the file says, else the catalogue's default.
    [[nodiscard]] int at(int file, int number) const;
    [[nodiscard]] QRgb colour(int file, int number) const;
    [[nodiscard]] OwnObject object(int row) const;

private:
    [[nodiscard]] int source(int file, int source) const;

    const BootRequest& m_request;
};

} // namespace fennel
