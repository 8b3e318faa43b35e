// SPDX-License-Identifier: MIT
// Frame6ParamsEdit: the box that a value is typed into, beside its row.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>

namespace fennel {

class ValueEditor : public QGroupBox {
    Q_OBJECT
public:
    explicit ValueEditor(QWidget* parent);

    // Shows the text fully selected, with the colour tools if it is hexadecimal. `anchor` is the
    // point, in the parent's coordinates, that the right edge and the middle of the height go to.
    void open(const QString& caption, const QString& text, QPoint anchor);
    void close();
    [[nodiscard]] QString text() const;
    void setText(const QString& text);
    [[nodiscard]] QPlainTextEdit& box() { return *m_text; }         // TextValue
    [[nodiscard]] QPushButton& colourButton() { return *m_colour; } // ComColor
    [[nodiscard]] QCheckBox& pipette() { return *m_pipette; }       // Check2Pipetka

Q_SIGNALS:
    void committed();
    // Escape, or the focus went elsewhere.
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* m_text;
    QPushButton* m_colour;
    QCheckBox* m_pipette;
};

} // namespace fennel
