// SPDX-License-Identifier: MIT
// A box for a number with its two arrows. The box and the text in it are known by names of their
// own.
#pragma once

#include <QDoubleSpinBox>
#include <QLineEdit>

namespace fennel {

struct NumberRange {
    double least = 0;
    double most = 0;
    int decimals = 0;
};

class NumberSpin : public QDoubleSpinBox {
public:
    NumberSpin(const QString& name, const QString& textName, NumberRange range, QWidget* parent)
        : QDoubleSpinBox(parent)
    {
        setObjectName(name);
        lineEdit()->setObjectName(textName);
        setDecimals(range.decimals);
        setRange(range.least, range.most);
        setAlignment(Qt::AlignRight);
    }
    // "14" and "14.5", not "14.0".
    [[nodiscard]] QString textFromValue(double value) const override
    {
        return QString::number(value);
    }
};

} // namespace fennel
