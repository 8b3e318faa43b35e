// SPDX-License-Identifier: MIT
// Frame6ParamsEdit: the box that a value is typed into, beside its row. For text members it grows
// over the stage and becomes an editor with buttons of its own.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <array>

class QSequentialAnimationGroup;

namespace fennel {

class ValueEditor : public QGroupBox {
    Q_OBJECT
public:
    // Index of ComFr6ForTXT.
    enum TextButton { CloseText, SaveText, ReloadText, ConvertText };

    explicit ValueEditor(QWidget* parent);

    // Shows the text fully selected, with the colour tools if it is hexadecimal. The box that is
    // typed into lies over `cell` (the parent's coordinates), as far as the parent leaves room.
    void open(const QString& caption, const QString& text, const QRect& cell);
    // Shows a text member in TextEditMode: from where open() has put it the frame grows to the left
    // and upwards until it fills `area` (the parent's coordinates). Keys edit the text, and the
    // loss of the focus closes nothing.
    void openText(const QString& caption, const QString& text, const QRect& cell,
                  const QRect& area);
    // The stage is now there: an open text follows it at once. An area too small for the buttons is
    // overlapped.
    void moveText(const QRect& area);
    void close();
    [[nodiscard]] bool textEditMode() const { return m_textMode; }
    // As it was typed; line ends are LF.
    [[nodiscard]] QString text() const;
    // Replaces what was typed, as a colour tool does.
    void setText(const QString& text);
    [[nodiscard]] QPlainTextEdit& box() const { return *m_text; }   // TextValue
    [[nodiscard]] QPushButton& colourButton() { return *m_colour; } // ComColor
    [[nodiscard]] QCheckBox& pipette() { return *m_pipette; }       // Check2Pipetka

Q_SIGNALS:
    // Enter: text() is to be taken.
    void committed();
    // Escape, or the focus went elsewhere.
    void cancelled();
    void textButtonClicked(ValueEditor::TextButton button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildTextButtons();
    void setTextMode(bool on);
    void place(const QRect& cell);
    [[nodiscard]] QRect roomFor(const QRect& area) const;
    void grow(const QRect& area);

    QPlainTextEdit* m_text;
    QPushButton* m_colour;
    QCheckBox* m_pipette;
    QWidget* m_textButtons;
    QSequentialAnimationGroup* m_growth = nullptr;
    bool m_textMode = false;
};

} // namespace fennel
