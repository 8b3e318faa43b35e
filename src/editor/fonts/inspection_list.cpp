// SPDX-License-Identifier: MIT
#include "editor/fonts/inspection_list.h"

#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {
constexpr int listMargin = 4;
// Fixed colours: the list looks alike on every desktop.
constexpr QRgb listGround = qRgb(0xF0, 0xF0, 0xF0);
} // namespace

InspectionList::InspectionList(QWidget* parent)
    : QFrame(parent), m_heading(new QLabel(this)), m_close(new QToolButton(this)),
      m_list(new QListView(this))
{
    setObjectName(u"Frame_for_List1"_s);
    setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Raised);
    setAutoFillBackground(true);
    m_heading->setObjectName(u"LabelForList1"_s);
    m_heading->setTextFormat(Qt::PlainText);
    m_close->setObjectName(u"CommandList1Close"_s);
    m_close->setText(u"x"_s);
    sayTip(m_close, Words::mark("Close (Esc)"));
    // Focus would leave the list, which closes it before the click arrives.
    m_close->setFocusPolicy(Qt::NoFocus);
    m_list->setObjectName(u"List1"_s);
    sayName(m_list, Words::mark("Characters of the font file"));
    m_list->setModel(&m_rows);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setUniformItemSizes(true); // rows by the ten thousand
    m_list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QPalette colours = m_list->palette();
    colours.setColor(QPalette::Base, listGround);
    colours.setColor(QPalette::Text, Qt::black);
    m_list->setPalette(colours);
    m_list->setMouseTracking(true);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
    auto* top = new QHBoxLayout;
    top->addWidget(m_heading, 1);
    top->addWidget(m_close);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(listMargin, listMargin, listMargin, listMargin);
    column->setSpacing(listMargin);
    column->addLayout(top);
    column->addWidget(m_list, 1);
    connect(m_close, &QToolButton::clicked, this, [this] { ShowListPanel({}); });
    connect(m_list, &QListView::entered, this,
            [this](const QModelIndex& index) { Q_EMIT rowEntered(index.row()); });
    for (QTimer* timer : {&m_click, &m_leave})
        timer->setSingleShot(true);
    connect(&m_click, &QTimer::timeout, this, &InspectionList::listReleased);
    connect(&m_leave, &QTimer::timeout, this, &InspectionList::hideIfLeft);
    hide();
}

void InspectionList::setRows(const QStringList& rows)
{
    m_rows.setStringList(rows);
}

void InspectionList::ShowListPanel(const QString& heading)
{
    m_heading->setText(heading);
    setVisible(!heading.isEmpty());
    if (heading.isEmpty())
        return;
    raise();
    // Rows of another font may have been scrolled far down.
    m_list->scrollToTop();
    m_list->setFocus();
}

bool InspectionList::listKey(int key)
{
    if (key == Qt::Key_Escape) {
        ShowListPanel({});
        return true;
    }
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && currentRow() >= 0) {
        Q_EMIT rowClicked(currentRow());
        return true;
    }
    return false;
}

void InspectionList::listReleased()
{
    if (m_button == Qt::LeftButton && currentRow() >= 0)
        Q_EMIT rowClicked(currentRow());
    else if (m_button == Qt::RightButton)
        Q_EMIT rightClicked(currentRow());
    else if (m_button == Qt::MiddleButton)
        Q_EMIT middleClicked();
}

// A message above the window takes the focus too, and leaves the list where it is.
void InspectionList::hideIfLeft()
{
    const QWidget* now = QApplication::focusWidget();
    if (now != nullptr && now->window() == window() && !isAncestorOf(now))
        hide();
}

bool InspectionList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress)
        // Keys that are not ours go on to the list.
        return listKey(static_cast<QKeyEvent*>(event)->key());
    if (watched == m_list && event->type() == QEvent::FocusOut)
        // Queued: only then does the application know who has the focus now.
        m_leave.start(0);
    if (watched == m_list->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        // Queued: the view is to finish its own work before a message opens. Only the left button
        // asks for a row.
        if (mouse->button() != Qt::LeftButton ||
            m_list->indexAt(mouse->position().toPoint()).isValid()) {
            m_button = mouse->button();
            m_click.start(0);
        }
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace fennel
