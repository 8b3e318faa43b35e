// SPDX-License-Identifier: MIT
// Kvadrat: a page of 256 characters, 32 in a row, drawn by one widget. The glyphs are those of the
// font file itself, without a stand-in from another font: what is not in the file does not get into
// a boot-screen font either.
#pragma once

#include "fonts/char_sets.h"

#include <QRawFont>
#include <QWidget>

#include <array>
#include <optional>
#include <vector>

namespace fennel {

class CharGrid : public QWidget {
    Q_OBJECT
public:
    static constexpr int cellSide = 24; // logical pixels

    // `set` outlives the grid; refresh() after a change of it.
    CharGrid(const CharSelected& set, QWidget* parent);

    void setPage(int page); // 0 to 255
    [[nodiscard]] int page() const { return m_page; }
    // Empty (not valid) fonts show no glyphs.
    void setFace(const QRawFont& face);
    void refresh() { update(); }
    // Where a cell of the page stands.
    static QRect cellRect(int cell);
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void cellPressed(int code);
    // Shift and a click: the cells from the one pressed before to this one, on other pages too, are
    // to be as that one is. In order.
    void runMarked(int first, int last, bool chosen);
    void cellEntered(int code);       // the mouse or the keyboard's mark came to it
    void pagesTurned(int difference); // wheel and page keys

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] int codeOf(int cell) const { return m_page * cellCountOfPage + cell; }
    [[nodiscard]] bool chosen(int cell) const;
    void findGlyphs();
    void paintCells(QPainter& painter, const QRect& part) const;
    void paintGlyphs(QPainter& painter, bool ofChosen) const;
    void paintBetween(QPoint from, QPoint to);
    void moveMark(int cell);

    static constexpr int cellCountOfPage = 256;
    const CharSelected& m_set;
    int m_page = 0;
    int m_mark = 0;                    // the cell that keys work on
    int m_anchor = -1;                 // the code that was pressed last, -1 none yet
    int m_last = -1;                   // that the mouse or the mark came to, -1 none yet
    std::optional<QPoint> m_pressedAt; // the start of what may become a drag
    QPoint m_from;                     // of the mouse's last move
    bool m_painting = false;           // a drag takes further cells along
    bool m_paintTo = false;
    int m_turned = 0; // by the wheel, in eighths of a degree, less than a step
    QRawFont m_face;
    std::array<quint32, cellCountOfPage> m_glyphs{}; // 0: not in the font
    std::array<QPointF, cellCountOfPage> m_places{}; // of the pens
};

// Which of the 65,536 characters the font has.
CharSelected charactersOf(const QRawFont& face);
// Those of the set that a font file cannot hold in the size of the face, as their bitmaps or their
// advances with `letterSpace` are too long.
CharSelected charactersBeyond(const QRawFont& face, const CharSelected& set, int letterSpace);

} // namespace fennel
