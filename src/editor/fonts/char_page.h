// SPDX-License-Identifier: MIT
// FrameUNICODE: a page of characters at a time, found by its number or by the name of a block, with
// a large view of the one under the mouse.
#pragma once

#include "editor/fonts/char_grid.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

namespace fennel {

class CharPage : public QGroupBox {
    Q_OBJECT
public:
    // `set` outlives the page; setChanged() after a change of it.
    CharPage(const CharSelected& set, QWidget* parent);

    // `face` draws the cells, `shown` the large view; `there` are the characters of the face.
    void setFace(const QRawFont& face, const QFont& shown, const CharSelected& there);
    void setChanged() { m_grid->refresh(); }
    void setPage(int page);

Q_SIGNALS:
    void pageChanged(int page);
    void cellPressed(int code);
    void runMarked(int first, int last, bool chosen);

private:
    QLayout* makeChoice();
    QLayout* makeView();
    void showPage(int page);
    void showCharacter(int code);

    CharSelected m_there;
    CharGrid* m_grid;
    QScrollBar* m_scroll; // VScrollUnicode
    QComboBox* m_blocks;  // ComboSets
    QLabel* m_large;      // Obrazec
    QLabel* m_code;       // TextCode
    int m_shownCode = -1;
};

} // namespace fennel
