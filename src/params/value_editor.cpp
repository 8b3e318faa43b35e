// SPDX-License-Identifier: MIT
#include "params/value_editor.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace fennel {

namespace {
constexpr int editorWidth = 168;
constexpr int textMargin = 4;
} // namespace

ValueEditor::ValueEditor(QWidget* parent)
    : QGroupBox(parent), m_text(new QPlainTextEdit(this)), m_colour(new QPushButton(this)),
      m_pipette(new QCheckBox(this))
{
    setObjectName(QStringLiteral("Frame6ParamsEdit"));
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("TextValue"));
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_text->setFixedHeight(fontMetrics().height() + 3 * textMargin);
    m_text->document()->setDocumentMargin(textMargin - 1);
    m_text->installEventFilter(this);
    m_colour->setObjectName(QStringLiteral("ComColor"));
    m_colour->setText(QStringLiteral("..."));
    m_colour->setToolTip(tr("Choose a colour"));
    m_colour->setFixedWidth(28);
    m_pipette->setObjectName(QStringLiteral("Check2Pipetka"));
    m_pipette->setToolTip(tr("Pick a colour from the screen"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(textMargin, textMargin, textMargin, textMargin);
    row->setSpacing(textMargin);
    row->addWidget(m_text, 1);
    row->addWidget(m_colour);
    row->addWidget(m_pipette);
    hide();
}

void ValueEditor::open(const QString& caption, const QString& text, QPoint anchor)
{
    setTitle(caption);
    setText(text);
    const bool isColour = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    m_colour->setVisible(isColour);
    m_pipette->setVisible(isColour);
    const int height = sizeHint().height();
    const int room = parentWidget()->height() - height;
    setGeometry(std::max(0, anchor.x() - editorWidth), std::clamp(anchor.y() - height / 2, 0, room),
                editorWidth, height);
    show();
    raise();
    m_text->selectAll();
    m_text->setFocus();
}

void ValueEditor::close()
{
    hide();
}

QString ValueEditor::text() const
{
    return m_text->toPlainText();
}

void ValueEditor::setText(const QString& text)
{
    m_text->setPlainText(text);
}

bool ValueEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
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
        const bool staysHere = next == m_colour || next == m_pipette ||
                               reason == Qt::PopupFocusReason ||
                               reason == Qt::ActiveWindowFocusReason;
        if (!staysHere)
            Q_EMIT cancelled();
    }
    return QGroupBox::eventFilter(watched, event);
}

} // namespace fennel
