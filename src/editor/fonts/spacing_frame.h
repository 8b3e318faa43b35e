// SPDX-License-Identifier: MIT
// One of the three spacings of a new font: its number, and words that stand as far apart as the
// boot screen will put them, in boot-screen pixels.
#pragma once

#include "editor/fonts/number_spin.h"

#include <QGroupBox>
#include <QLabel>

#include <vector>

namespace fennel {

class SpacingFrame : public QGroupBox {
    Q_OBJECT
public:
    // A word of the sample. It stands where the word before it ends, or in the line below, and
    // moves by `step` times the value.
    struct Word {
        QString name;
        QString text;
        QPoint step;
        bool newLine = false;
    };
    // The number is known as UpDown_`number`, the text in it as `number`.
    SpacingFrame(const QString& name, const QString& title, const QString& number,
                 const std::vector<Word>& words, QWidget* parent);

    // Pixels of the boot screen, -127 to 127; others count as the nearest of these.
    void setValue(int value);
    [[nodiscard]] qint16 value() const;
    // The words stand in the font that is made, in its size on the boot screen.
    void setFace(const QFont& face);
    // Pixels that another spacing adds to this one.
    void setExtra(int pixels);
    [[nodiscard]] const NumberSpin* number() const { return m_number; }

private:
    void addWord(const Word& word);
    void placeWords();
    void moveWords();

    struct Placed {
        QLabel* label;
        QPoint base; // where it stands for the value 0
        QPoint step;
        bool newLine;
    };
    NumberSpin* m_number;
    QWidget* m_sample;
    int m_extra = 0;
    std::vector<Placed> m_words;
};

} // namespace fennel
