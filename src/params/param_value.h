// SPDX-License-Identifier: MIT
// The value of one parameter: the number that a file stores, and how it is written.
#pragma once

#include <QString>
#include <QStringView>

namespace fennel {

struct ParamValue {
    // What counts. Any size: a level file has room for levelValueLimit.
    qint64 number = 0;
    bool hex = false; // written as "0x" and six digits; a colour is 0xRRGGBB
    // What was typed or read, where it is more than a spelling of the number: "12.5", "0x00GG00".
    QString spelling;

    // As lists show it and gfxboot.cfg gets it.
    [[nodiscard]] QString text() const;
    bool operator==(const ParamValue&) const = default;
};

// The largest value of a record of a level file; the smallest is 0.
inline constexpr qint64 levelValueLimit = 0xFFFFFF;
[[nodiscard]] inline bool fitsLevelFile(const ParamValue& value)
{
    return value.number >= 0 && value.number <= levelValueLimit;
}

// A value as people type it: behind "0x" the last six characters, padded with zeros and in upper
// case; any other text as the decimal number that it begins with, of any size and with its
// fraction. A text without a number is 0.
ParamValue typedValue(QStringView text);
// A value that is written as this text, as typedValue() and CfgNormalise() leave it.
ParamValue valueOf(const QString& text);

} // namespace fennel
