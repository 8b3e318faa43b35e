// SPDX-License-Identifier: MIT
// ZUKarr: every parameter of a generation 3 boot screen, 16 level files of 99 parameters, each with
// its layers: catalogue default, value from the file, value that was set, value from a menu file.
#pragma once

#include "params/param_value.h"

#include <QString>

#include <optional>
#include <vector>

namespace fennel {

struct Shell;

inline constexpr int zukFileCount = 16;    // level files 0 to 15
inline constexpr int zukParamCount = 99;   // parameters 1 to 99
inline constexpr int backgroundParam = 99; // of file 0: number of the background in use

struct ZukCell {
    QString Name;                    // such as s.clock.x
    std::optional<qint64> DefValue;  // none: this version knows no such parameter
    bool IsHex = false;              // the catalogue wrote the default with 0x
    QString Comment;                 // in the run's language
    qint32 LevelValue = -1;          // from the file; -1: no record
    std::optional<ParamValue> Value; // as the lists show it, and a save writes it; none: in no list
    std::optional<qint64> EditValue; // of Value at the last gathering
    std::optional<qint64> LstValue;  // from the selected menu file
};

enum Layer : qint8 { LayerDefault = 1, LayerCfg = 4, LayerEdit = 5, LayerLst = 6 };

class ZUKarr {
public:
    ZUKarr() : m_cells(static_cast<std::size_t>(zukFileCount * zukParamCount)) {}

    // True for file 0 to 15 and parameter 1 to 99.
    [[nodiscard]] static bool inRange(int file, int param)
    {
        return file >= 0 && file < zukFileCount && param >= 1 && param <= zukParamCount;
    }
    // The cell; file and parameter must be in range.
    ZukCell& at(int file, int param) { return m_cells[index(file, param)]; }
    [[nodiscard]] const ZukCell& at(int file, int param) const
    {
        return m_cells[index(file, param)];
    }

    // The value as seen from a layer, falling through to the layers below. LayerLst gives nothing
    // where the others give -1: out of range, or not in the catalogue.
    [[nodiscard]] std::optional<qint64> GetLevelValue(int file, int param, Layer layer) const;

private:
    static std::size_t index(int file, int param)
    {
        return static_cast<std::size_t>(file * zukParamCount + param - 1);
    }
    std::vector<ZukCell> m_cells;
};

// "ZUK0004.CFG" for 4.
QString levelFileName(int file);

// The same, and the user is told if a parameter that the catalogue knows comes out as -1: then the
// catalogue and the file are of different ages.
std::optional<qint64> GetLevelValue(const Shell& shell, const ZUKarr& table, int file, int param,
                                    Layer layer);

} // namespace fennel
