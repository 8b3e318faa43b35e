// SPDX-License-Identifier: MIT
#include "editor/fonts/font_views.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/window/retranslated.h"
#include "fonts/font_dialog.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeight = 120;

} // namespace

QString inLines(const QString& text, QChar mark)
{
    constexpr qsizetype lineLength = 512;
    QString lines;
    qsizetype from = 0;
    while (text.size() - from > lineLength) {
        const qsizetype end =
            mark.isNull() ? from + lineLength : text.indexOf(mark, from + lineLength) + 1;
        if (end == 0)
            break;
        lines += QStringView(text).mid(from, end - from);
        lines += u'\n';
        from = end;
    }
    return lines + text.mid(from);
}

FontViews::FontViews(const QString& title, double previewScale, const CharSelected& set,
                     QWidget* parent)
    : QGroupBox(Words::tr("Examples"), parent), m_title(title), m_scale(previewScale), m_set(set),
      m_switches(new QButtonGroup(this)), m_stack(new QStackedWidget(this)),
      m_example(addText(u"TextExample3"_s, Words::tr("Example text"))),
      m_uniCode(addText(u"TEXTUniCode"_s, {})), m_selected(addText(u"TextSelected"_s, {}))
{
    setObjectName(u"Frame6"_s);
    m_example->setReadOnly(false);
    m_example->setToolTip(Words::tr("Type words of your own to see them in this font"));
    m_uniCode->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_selected->setWordWrapMode(QTextOption::WrapAnywhere);
    m_stack->setMinimumHeight(leastHeight);
    auto* column = new QVBoxLayout(this);
    auto* switches = new QHBoxLayout;
    auto* loaders = new QHBoxLayout;
    addSwitches(*switches);
    addLoaders(*loaders);
    column->addLayout(switches);
    column->addWidget(m_stack, 1);
    column->addLayout(loaders);
    connect(m_switches, &QButtonGroup::idClicked, this, &FontViews::showView);
    showView(WindowsView);
}

QPlainTextEdit* FontViews::addText(const QString& name, const QString& text)
{
    auto* edit = new QPlainTextEdit(text, m_stack);
    edit->setObjectName(name);
    sayName(edit, Words::mark("Example in the chosen font"));
    edit->setReadOnly(true);
    edit->setTabChangesFocus(true);
    // Undo would keep every set that was ever shown.
    edit->setUndoRedoEnabled(false);
    m_stack->addWidget(edit);
    return edit;
}

void FontViews::addSwitches(QLayout& row)
{
    for (int view = 0; view < viewCount; ++view) {
        auto* button = new QPushButton(viewCaption(view, m_page, m_scale), this);
        button->setObjectName(u"Perekluchatel_%1"_s.arg(view));
        button->setCheckable(true);
        // Enter belongs to the dialog's own button.
        button->setAutoDefault(false);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        m_switches->addButton(button, view);
        row.addWidget(button);
    }
}

void FontViews::addLoaders(QLayout& row)
{
    m_fromFont = new QPushButton(fromFontCaption(m_title), this);
    m_fromFont->setObjectName(u"SetFromFNT"_s);
    m_fromFont->setToolTip(plainTip(fromFontHint(m_title)));
    m_fromDefault = new QPushButton(Words::tr("Load Default"), this);
    m_fromDefault->setObjectName(u"SetFromIni"_s);
    m_fromDefault->setToolTip(Words::tr("Load Character Set from FENNEL.ini"));
    for (QPushButton* button : {m_fromFont, m_fromDefault}) {
        button->setAutoDefault(false);
        // The views keep their place when the buttons come and go.
        QSizePolicy policy = button->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        button->setSizePolicy(policy);
        row.addWidget(button);
    }
    static_cast<QHBoxLayout&>(row).addStretch(1);
    connect(m_fromFont, &QPushButton::clicked, this,
            [this] { Q_EMIT loadFromMember(memberOfCaption(m_fromFont->text())); });
    connect(m_fromDefault, &QPushButton::clicked, this, &FontViews::loadDefault);
}

void FontViews::showView(int view)
{
    QAbstractButton* chosen = m_switches->button(view);
    if (chosen == nullptr)
        return;
    chosen->setChecked(true);
    QPlainTextEdit* const text = view == PageView       ? m_uniCode
                                 : view == SelectedView ? m_selected
                                                        : m_example;
    m_stack->setCurrentWidget(text);
    m_fromFont->setVisible(offersFromFont(view, m_title));
    m_fromDefault->setVisible(offersDefault(view));
    applyFace();
    fillShown();
}

// Only the view in front is filled: the text of a large set takes long to lay out.
void FontViews::fillShown()
{
    const int view = m_switches->checkedId();
    if (view == PageView && m_pageStale) {
        m_uniCode->setPlainText(pageText(m_page));
        m_pageStale = false;
    } else if (view == SelectedView && m_setStale) {
        // Marked fresh only after it is filled.
        m_selected->setPlainText(inLines(selectedCharacters(m_set)));
        m_setStale = false;
    }
}

void FontViews::applyFace()
{
    const int view = m_switches->checkedId();
    QFont face = m_face;
    const double points = viewFontSize(view, m_size, m_scale);
    face.setPixelSize(facePixels(points));
    m_example->setFont(face);
    // These two show what the font itself has.
    face.setStyleStrategy(QFont::NoFontMerging);
    m_uniCode->setFont(face);
    m_selected->setFont(face);
}

void FontViews::setFace(const QFont& face)
{
    m_face = face;
    applyFace();
}

void FontViews::setSize(double points)
{
    m_size = points;
    applyFace();
}

void FontViews::setExample(const QString& text)
{
    m_example->setPlainText(text);
}

void FontViews::setPage(int page)
{
    m_page = page;
    m_pageStale = true;
    m_switches->button(PageView)->setText(viewCaption(PageView, page, m_scale));
    fillShown();
}

void FontViews::setChanged()
{
    m_setStale = true;
    fillShown();
}

} // namespace fennel
