// SPDX-License-Identifier: MIT
#include "editor/lists/list_view.h"

#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>
#include <utility>

namespace fennel {

namespace {
constexpr QSize reportIcon(22, 16);
constexpr QSize largeIcon(144, 108);
constexpr QSize largeCell(164, 146);
// Logical pixels. A long comment in an inner column must not push the others out of sight, unless
// the user asks for it.
constexpr int widestColumn = 260;
} // namespace

ListView::ListView(const ParamLists& lists, int number, QWidget* parent)
    : QStackedWidget(parent), m_model(lists, reportIcon, this), m_report(new QTreeView(this)),
      m_icons(new QListView(this))
{
    // Lists are numbered from 1, as the tabs are.
    setObjectName(QStringLiteral("ListView1_%1").arg(number));
    m_report->setRootIsDecorated(false);
    m_report->setUniformRowHeights(true);
    m_report->setIconSize(reportIcon);
    // Some styles fill what has the focus with a colour, and over a whole row the swatch with it.
    m_report->setAllColumnsShowFocus(false);
    m_report->header()->setHighlightSections(false);
    m_icons->setViewMode(QListView::IconMode);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setMovement(QListView::Snap);
    m_icons->setIconSize(largeIcon);
    m_icons->setGridSize(largeCell);
    m_icons->setWordWrap(true);
    sayName(m_report, Words::mark("Rows of the tab"));
    sayName(m_icons, Words::mark("Pictures of the tab"));
    addWidget(m_report);
    addWidget(m_icons);
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(m_report), static_cast<QAbstractItemView*>(m_icons)})
        connectView(*view);
    connect(&m_model, &ListModel::checkAsked, this, &ListView::rowChecked);
    m_model.setGround(palette().color(QPalette::Base).rgb());
}

// The desktop may change between light and dark while the program runs.
void ListView::changeEvent(QEvent* event)
{
    QStackedWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        m_model.setGround(palette().color(QPalette::Base).rgb());
}

void ListView::connectView(QAbstractItemView& view)
{
    view.setModel(&m_model);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.viewport()->installEventFilter(this);
    view.installEventFilter(this);
    connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this, &view](const QModelIndex& now) {
                // Both views share one model and both hear of changes; only the one on top speaks.
                if (m_silent || !now.isValid() || &view != current())
                    return;
                m_moved = false;
                // A pop-up takes the release of the button away, so the flag ends here.
                Q_EMIT rowSelected(now.row() + 1, std::exchange(m_rightButton, false));
            });
    // The view marks the row that was clicked only after it has told of it: a row selected in
    // answer has to be marked once more.
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_silent && std::exchange(m_moved, false))
            select(selected());
    });
    connect(&view, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT rowActivated(index.row() + 1); });
}

QAbstractItemView* ListView::current() const
{
    return static_cast<QAbstractItemView*>(currentWidget());
}

// Silent: filling a list is no click of the user's.
void ListView::setRows(const ListRows* rows)
{
    const QScopedValueRollback<bool> silent(m_silent, true);
    const bool icons = rows != nullptr && rows->iconView;
    m_model.setIconSize(icons ? largeIcon : reportIcon);
    m_model.setRows(rows);
    setCurrentWidget(icons ? static_cast<QWidget*>(m_icons) : m_report);
    setFocusProxy(currentWidget());
    // Measuring each text takes longer than making the rows, and most lists are never looked at.
    m_due = Due::Fit;
    if (isVisible())
        measureDue();
    select(rows == nullptr ? 0 : rows->selected);
}

void ListView::refresh()
{
    m_model.refresh();
    m_due = std::max(m_due, Due::Growth);
    if (isVisible())
        measureDue();
}

void ListView::showEvent(QShowEvent* event)
{
    QStackedWidget::showEvent(event);
    measureDue();
}

void ListView::measureDue()
{
    switch (m_due) {
    case Due::Nothing:
        break;
    case Due::Growth:
        growColumns();
        break;
    case Due::Fit:
        fitWithin(widestColumn);
        break;
    }
    m_due = Due::Nothing;
}

void ListView::growColumns()
{
    if (current() != m_report)
        return;
    m_model.setMeasuring(true);
    // Not to what fits, as the user may have pulled a column narrower.
    for (int column = 0; column + 1 < static_cast<int>(m_fitted.size()); ++column) {
        const int width = contentWidth(column);
        int& fitted = m_fitted[static_cast<std::size_t>(column)];
        if (width <= fitted)
            continue;
        fitted = width;
        m_report->setColumnWidth(
            column, std::max(m_report->columnWidth(column), std::min(width, widestColumn)));
    }
    m_model.setMeasuring(false);
}

int ListView::contentWidth(int column) const
{
    return static_cast<const QAbstractItemView*>(m_report)->sizeHintForColumn(column);
}

void ListView::select(int row)
{
    const QScopedValueRollback<bool> silent(m_silent, true);
    const QModelIndex index = m_model.index(row - 1, 0);
    current()->setCurrentIndex(index);
    if (index.isValid())
        current()->scrollTo(index);
    m_moved = true;
}

int ListView::selected() const
{
    return current()->currentIndex().row() + 1;
}

void ListView::fitColumns()
{
    m_due = Due::Nothing;
    fitWithin(std::numeric_limits<int>::max());
}

void ListView::fitWithin(int widest)
{
    if (current() != m_report)
        return;
    m_model.setMeasuring(true);
    m_fitted.clear();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        m_fitted.push_back(contentWidth(column));
        const int wanted = std::max(m_fitted.back(), m_report->header()->sectionSizeHint(column));
        const bool last = column + 1 == m_model.columnCount();
        m_report->setColumnWidth(column, last ? wanted : std::min(wanted, widest));
    }
    m_model.setMeasuring(false);
}

void ListView::reorderItems()
{
    // Icons can be dragged about; this puts them back into their rows.
    m_icons->doItemsLayout();
}

QRect ListView::cellRect(int row, int column) const
{
    const QWidget& port = *current()->viewport();
    const QModelIndex index = m_model.index(row - 1, current() == m_report ? column : 0);
    const QRect rect = current()->visualRect(index) & port.rect();
    return rect.isEmpty() ? QRect() : QRect(port.mapTo(this, rect.topLeft()), rect.size());
}

void ListView::hideColumn(int column, bool hidden)
{
    m_report->setColumnHidden(column, hidden);
}

bool ListView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched == currentWidget()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_2 ||
            key == Qt::Key_Escape) {
            // The Enter of the number pad counts as the other one.
            Q_EMIT keyPressed(key == Qt::Key_Enter ? static_cast<int>(Qt::Key_Return) : key);
            return true;
        }
    }
    const auto* menu = static_cast<QContextMenuEvent*>(event);
    if (event->type() == QEvent::ContextMenu && watched == currentWidget() &&
        menu->reason() == QContextMenuEvent::Keyboard && selected() > 0) {
        Q_EMIT rowSelected(selected(), true);
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress && watched == current()->viewport()) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QModelIndex index = current()->indexAt(mouse->pos());
        m_rightButton = mouse->button() == Qt::RightButton;
        // A press on the row that is selected already moves nothing, but is a click all the same.
        if (index.isValid() && index.row() + 1 == selected())
            Q_EMIT rowSelected(index.row() + 1, std::exchange(m_rightButton, false));
    }
    // Selections by keyboard must not count as made with the button of the last click.
    if (event->type() == QEvent::MouseButtonRelease)
        m_rightButton = false;
    return QStackedWidget::eventFilter(watched, event);
}

} // namespace fennel
