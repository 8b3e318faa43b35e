// SPDX-License-Identifier: MIT
// Frame6: the examples of the font dialog. Four views share one place: a sample at the size of the
// font, the same at the preview's scale, the page of characters, all selected characters.
#pragma once

#include "fonts/char_sets.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>

namespace fennel {

// A long text in lines that break behind a `mark` after 512 characters, or anywhere without
// one: only the lines that are seen are laid out.
QString inLines(const QString& text, QChar mark = {});

class FontViews : public QGroupBox {
    Q_OBJECT
public:
    // `title` of the dialog decides what can be loaded. `set` outlives the views.
    FontViews(const QString& title, double previewScale, const CharSelected& set, QWidget* parent);

    void showView(int view); // one of DialogView
    void setFace(const QFont& face);
    void setSize(double points); // of 96 to the inch, as the stage has them
    void setExample(const QString& text);
    void setPage(int page);
    void setChanged(); // the set has changed

Q_SIGNALS:
    void loadFromMember(const QString& member);
    void loadDefault();

private:
    QPlainTextEdit* addText(const QString& name, const QString& text);
    void addSwitches(QLayout& row);
    void addLoaders(QLayout& row);
    void fillShown();
    void applyFace();

    const QString m_title;
    const double m_scale;
    const CharSelected& m_set;
    QButtonGroup* m_switches; // Perekluchatel
    QStackedWidget* m_stack;
    QPlainTextEdit* m_example;  // TextExample3
    QPlainTextEdit* m_uniCode;  // TEXTUniCode
    QPlainTextEdit* m_selected; // TextSelected
    QPushButton* m_fromFont;    // SetFromFNT
    QPushButton* m_fromDefault; // SetFromIni
    QFont m_face;
    double m_size = 14;
    int m_page = 0;
    // The long texts are made only when they are seen.
    bool m_pageStale = true;
    bool m_setStale = true;
};

} // namespace fennel
