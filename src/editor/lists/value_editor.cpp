// SPDX-License-Identifier: MIT
#include "editor/lists/value_editor.h"

#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>

namespace fennel {

namespace {
constexpr int editorWidth = 200;
constexpr int textMargin = 4;
constexpr int growthMs = 90; // for each of its two directions
// A longer text takes longer to lay out than a step of the growth lasts.
constexpr qsizetype longestGrowing = 100'000;
} // namespace

ValueEditor::ValueEditor(QWidget* parent)
    : QGroupBox(parent), m_text(new QPlainTextEdit(this)), m_colour(new QPushButton(this)),
      m_pipette(new QCheckBox(this)), m_textButtons(nullptr)
{
    setObjectName(QStringLiteral("Frame6ParamsEdit"));
    retranslated(this, [this] { setTitle(Words::tr("Parameter")); });
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("TextValue"));
    sayName(m_text, Words::mark("Value"));
    // A value is one line: no tabs, no wrapping, no scroll bars.
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_text->document()->setDocumentMargin(textMargin - 1);
    m_text->installEventFilter(this);
    m_colour->setObjectName(QStringLiteral("ComColor"));
    m_colour->setText(QStringLiteral("..."));
    sayTip(m_colour, Words::mark("Choose a colour"));
    m_colour->setFixedWidth(28);
    m_pipette->setObjectName(QStringLiteral("Check2Pipetka"));
    sayText(m_pipette, Words::mark("Pick"));
    sayTip(m_pipette, Words::mark("Pick a colour from the screen"));
    buildTextButtons();
    auto* row = new QHBoxLayout;
    row->setSpacing(textMargin);
    row->addWidget(m_text, 1);
    row->addWidget(m_colour);
    row->addWidget(m_pipette);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(textMargin, textMargin, textMargin, textMargin);
    column->setSpacing(textMargin);
    column->addLayout(row, 1);
    column->addWidget(m_textButtons);
    setTextMode(false);
    hide();
}

void ValueEditor::buildTextButtons()
{
    m_textButtons = new QWidget(this);
    auto* row = new QHBoxLayout(m_textButtons);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    constexpr std::array<const char*, 4> captions = {Words::mark("Close"), Words::mark("Save"),
                                                     Words::mark("Reload"),
                                                     Words::mark("Read as UTF-8")};
    for (const int index : {ConvertText, ReloadText, SaveText, CloseText}) {
        auto* button = new QPushButton(m_textButtons);
        sayText(button, captions[static_cast<std::size_t>(index)]);
        button->setObjectName(QStringLiteral("ComFr6ForTXT(%1)").arg(index));
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this,
                [this, index] { Q_EMIT textButtonClicked(static_cast<TextButton>(index)); });
    }
}

// Between a line for a value and a window for a text.
void ValueEditor::setTextMode(bool on)
{
    m_textMode = on;
    m_text->setProperty("tag", on ? QStringLiteral("TextEditMode") : QString());
    m_text->setTabChangesFocus(!on);
    const Qt::ScrollBarPolicy bars = on ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    m_text->setHorizontalScrollBarPolicy(bars);
    m_text->setVerticalScrollBarPolicy(bars);
    const int line = fontMetrics().height() + 3 * textMargin;
    m_text->setMinimumHeight(line);
    m_text->setMaximumHeight(on ? QWIDGETSIZE_MAX : line);
    m_textButtons->setVisible(on);
}

void ValueEditor::place(const QRect& cell)
{
    resize(minimumSizeHint().expandedTo({editorWidth, 0}));
    show();
    layout()->activate();
    const QRect box = m_text->geometry();
    const QPoint wanted(cell.left() - box.left(), cell.center().y() - box.center().y());
    const QSize room = parentWidget()->size() - size();
    move(std::clamp(wanted.x(), 0, std::max(0, room.width())),
         std::clamp(wanted.y(), 0, std::max(0, room.height())));
    raise();
}

void ValueEditor::open(const QString& caption, const QString& text, const QRect& cell)
{
    setTextMode(false);
    delete m_growth;
    m_growth = nullptr;
    setTitle(caption);
    setText(text);
    // Values in hexadecimal are colours; the others have no use for a colour dialog.
    const bool isColour = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    m_colour->setEnabled(isColour);
    m_pipette->setEnabled(isColour);
    m_pipette->show();
    place(cell);
    m_text->selectAll();
    m_text->setFocus();
}

void ValueEditor::openText(const QString& caption, const QString& text, const QRect& cell,
                           const QRect& area)
{
    setTextMode(false);
    setTitle(caption);
    delete m_growth;
    m_growth = nullptr;
    m_colour->setEnabled(false);
    m_pipette->hide();
    place(cell);
    setTextMode(true);
    if (text.size() <= longestGrowing)
        grow(roomFor(area));
    else
        setGeometry(roomFor(area));
    setText(text);
    m_text->moveCursor(QTextCursor::Start);
    m_text->setFocus();
}

QRect ValueEditor::roomFor(const QRect& area) const
{
    return {area.topLeft(), area.size().expandedTo(minimumSizeHint())};
}

void ValueEditor::moveText(const QRect& area)
{
    if (!m_textMode)
        return;
    delete m_growth;
    m_growth = nullptr;
    setGeometry(roomFor(area));
    raise();
}

// To the left edge first, then over the whole area. A desktop without animations gets the end of it
// at once.
void ValueEditor::grow(const QRect& area)
{
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) <= 0 ||
        !window()->isVisible()) {
        setGeometry(area);
        return;
    }
    QRect wide = geometry();
    wide.setLeft(area.left());
    m_growth = new QSequentialAnimationGroup(this);
    QRect from = geometry();
    for (const QRect& to : {wide, area}) {
        auto* step = new QPropertyAnimation(this, "geometry", m_growth);
        step->setDuration(growthMs);
        step->setStartValue(from);
        step->setEndValue(to);
        step->setEasingCurve(QEasingCurve::OutCubic);
        m_growth->addAnimation(step);
        from = to;
    }
    m_growth->start();
}

void ValueEditor::close()
{
    delete m_growth;
    m_growth = nullptr;
    hide();
    // A long text would be laid out again at every later change of the frame's size.
    if (m_textMode)
        m_text->clear();
    setTextMode(false);
}

// Not toPlainText(), which makes blanks of no-break spaces.
QString ValueEditor::text() const
{
    QString text = m_text->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void ValueEditor::setText(const QString& text)
{
    m_text->setPlainText(text);
}

bool ValueEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (m_textMode)
        return QGroupBox::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // Before the text gets the key, as it would start a second line.
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Q_EMIT committed();
            return true;
        }
        if (key == Qt::Key_Escape) {
            Q_EMIT cancelled();
            return true;
        }
    }
    if (event->type() == QEvent::FocusOut && isVisible()) {
        const QWidget* next = QApplication::focusWidget();
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // A click elsewhere gives the value up. The dialogs that belong to the editor, a menu or
        // another program's window do not.
        const bool staysHere = next == m_colour || next == m_pipette ||
                               reason == Qt::PopupFocusReason ||
                               reason == Qt::ActiveWindowFocusReason;
        if (!staysHere)
            Q_EMIT cancelled();
    }
    return QGroupBox::eventFilter(watched, event);
}

} // namespace fennel
