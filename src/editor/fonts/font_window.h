// SPDX-License-Identifier: MIT
// frmFonts: the dialog in which a new boot-screen font is described: a font of the system, its size
// and spacings, and which of the 65,536 characters go into it.
#pragma once

#include "base/shell_context.h"
#include "editor/fonts/char_page.h"
#include "editor/fonts/font_views.h"
#include "editor/fonts/number_spin.h"
#include "editor/fonts/spacing_frame.h"
#include "fonts/font_dialog.h"
#include "fonts/font_making.h"
#include "fonts/installed_fonts.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>

namespace fennel {

class FontWindow : public QDialog {
    Q_OBJECT
public:
    // `set` changes with every click and stays changed when the dialog is cancelled. The shell's
    // run state gives the preview's scale and the Workspace that "Load From" reads.
    FontWindow(const Shell& shell, const FontDialogStart& start, CharSelected& set,
               const QString& defaultFontName, QWidget* parent);

    // What is chosen now; for the caller after Apply.
    [[nodiscard]] FontChoice choice() const;

Q_SIGNALS:
    void helpWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* makeFontFrame(int mostPoints);
    QLayout* makeSpacings();
    QLayout* makeEnd();
    void addScrolling(QWidget& upper);
    QCheckBox* addIndicator(const QString& name, const QString& caption);
    void connectParts();
    void chooseFont(int place);
    void showStyles();
    void loadFace(const FontFile& font);
    void setRanges(const Result<CharSelected>& set);
    void loadFromMember(const QString& member);
    void press(int code);
    void markRun(int first, int last, bool chosen);
    QLayout* makeTyping();
    void takeTyped(bool add);
    void showPixels();
    void showSet();
    [[nodiscard]] CharSelected tooWide(const CharSelected& wanted) const;
    void apply();

    const Shell& m_shell;
    CharSelected& m_set;
    const QString m_defaultFontName;
    const int m_logPixelsY;
    const std::vector<InstalledFont> m_installed;
    const std::vector<FontFile> m_fonts;
    CharSelected m_there; // characters of the chosen font
    QRawFont m_face;      // its file
    QFont m_shown;        // by which the system shows it
    QString m_family;     // that shows the font; empty: the system has none

    FontViews* m_views;     // Frame6
    QComboBox* m_list;      // Combo1
    QCheckBox* m_bold;      // CheckBold
    QCheckBox* m_italic;    // CheckItalic
    NumberSpin* m_size;     // UpDown1
    QLabel* m_note;         // on a font that cannot be shown
    SpacingFrame* m_space;  // Frame3
    SpacingFrame* m_line;   // Frame2
    SpacingFrame* m_letter; // Frame4
    CharPage* m_page;
    QLabel* m_pixels;   // how high the letters are on the boot screen
    QLineEdit* m_typed; // characters to be added or taken away
    QLabel* m_count;
    QPlainTextEdit* m_ranges; // LabelFNTSet
};

} // namespace fennel
