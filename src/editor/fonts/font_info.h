// SPDX-License-Identifier: MIT
// Frame8FontINFO: over the thumbnails while the fonts' tab is selected, a sentence in the selected
// font and what is known of it.
#pragma once

#include "fonts/font_inspection.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

namespace fennel {

class FontInfo : public QGroupBox {
    Q_OBJECT
public:
    explicit FontInfo(QWidget* parent);

    void showSample(const FontSample& sample);
    [[nodiscard]] QPushButton& changeButton() { return *m_change; } // Font_change

private:
    QLabel* m_example; // FontExample
    QPushButton* m_change;
};

} // namespace fennel
