// SPDX-License-Identifier: MIT
// StatusBar1: eight fields, the progress bar over the second, and at the right end the count of
// problems and the button that hides the bottom panel. While long work goes on, the bar is wide,
// and what is going on and a button to call it off stand behind it.
#pragma once

#include <QElapsedTimer>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include <array>
#include <optional>

namespace fennel {

inline constexpr int statusFieldCount = 8;

class StatusBar : public QWidget {
    Q_OBJECT
public:
    explicit StatusBar(QWidget* parent);

    // Fields are counted from 1. A text without room is cut with three points and told by the tool
    // tip.
    void setField(int number, const QString& text);
    [[nodiscard]] QString field(int number) const;

    // In the coordinates of the line, with its frame.
    [[nodiscard]] QRect fieldPlace(int number) const;
    [[nodiscard]] QProgressBar& progressBar() { return *m_progress; }
    // What usually is done in a moment: the bar comes only if that lasts. `place` as
    // progressPlace().
    void beginSteps(const QRect& place);
    void setStep(int percent);
    void endSteps();
    [[nodiscard]] QToolButton& bottomButton() { return *m_bottomButton; }
    [[nodiscard]] QPushButton& cancelButton() { return *m_cancel; }
    [[nodiscard]] QToolButton& problemsButton() { return *m_problems; }

    // How many problems there are, before the button at the end; an empty count hides it.
    void setProblems(const QIcon& icon, const QString& count, const QString& tip);

    // `share` from 0 to 1; nothing shows that the end is not known.
    void showWork(const QString& what, std::optional<double> share);
    void hideWork();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layFields();
    void layWork();
    // Of the text of a field, after it or the font changed.
    void measure(std::size_t i);

    std::array<QLabel*, statusFieldCount> m_fields{};
    std::array<QString, statusFieldCount> m_texts; // whole; the labels may show less
    std::array<int, statusFieldCount> m_needed{};  // room for the text, logical pixels
    std::array<int, statusFieldCount> m_shown{};   // width that the label's text was cut for
    QProgressBar* m_progress;
    QElapsedTimer m_steps; // since their begin; invalid: there are none
    QWidget* m_work;
    QLabel* m_what;
    QPushButton* m_cancel;
    QToolButton* m_problems;
    QToolButton* m_bottomButton; // ComFrame2
};

} // namespace fennel
