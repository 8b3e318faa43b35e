// SPDX-License-Identifier: MIT
#include "editor/lists/list_view.h"

#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>
#include <QtMath>

#include <algorithm>
#include <array>
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
constexpr int measuredRows = 1000; // nobody waits for the others

// Of texts in one font, logical pixels.
class TextWidths {
public:
    TextWidths(QFont font, bool bold) : m_metrics(withBold(font, bold)) {}
    [[nodiscard]] int width(const QString& text) const
    {
        return qCeil(m_metrics.horizontalAdvance(text));
    }
    // Quickly, a width that the text does not pass: letters side by side only move closer.
    [[nodiscard]] int most(const QString& text)
    {
        double sum = 0;
        for (const QChar letter : text) {
            const auto known = m_letters.find(letter);
            sum += known != m_letters.end()
                       ? *known
                       : *m_letters.insert(letter, m_metrics.horizontalAdvance(letter));
        }
        return qCeil(sum);
    }

private:
    static QFont withBold(QFont& font, bool bold)
    {
        font.setBold(bold);
        return font;
    }

    QFontMetricsF m_metrics;
    QHash<QChar, double> m_letters;
};
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
    // Not to what fits, as the user may have pulled a column narrower.
    const std::vector<int> widths = contentWidths();
    for (std::size_t i = 0; i + 1 < std::min(m_fitted.size(), widths.size()); ++i) {
        if (widths[i] <= m_fitted[i])
            continue;
        m_fitted[i] = widths[i];
        const int column = static_cast<int>(i);
        m_report->setColumnWidth(
            column, std::max(m_report->columnWidth(column), std::min(widths[i], widestColumn)));
    }
}

// By the letters alone. The style's own hints lay out every text as for painting, and take ten
// times as long.
std::vector<int> ListView::contentWidths() const
{
    const QStyle& look = *m_report->style();
    const int margin = look.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_report) + 1;
    const int check = look.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, m_report) + 2 * margin;
    const int picture = m_report->iconSize().width() + 2 * margin;
    std::array<TextWidths, 2> fonts{TextWidths(m_report->font(), false),
                                    TextWidths(m_report->font(), true)};
    const int rows = std::min(m_model.rowCount(), measuredRows);
    std::vector<int> widths(static_cast<std::size_t>(m_model.columnCount()));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < m_model.columnCount(); ++column) {
            const QModelIndex cell = m_model.index(row, column);
            int room = 2 * margin;
            if (column == 0 && m_model.data(cell, Qt::CheckStateRole).isValid())
                room += check;
            if (column == 0 && m_model.hasDecoration(cell))
                room += picture;
            TextWidths& font =
                fonts[m_model.data(cell, Qt::FontRole).value<QFont>().bold() ? 1 : 0];
            const QString text = m_model.data(cell, Qt::DisplayRole).toString();
            int& widest = widths[static_cast<std::size_t>(column)];
            if (room + font.most(text) > widest)
                widest = std::max(widest, room + font.width(text));
        }
    }
    return widths;
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
    m_fitted = contentWidths();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const int wanted = std::max(m_fitted[static_cast<std::size_t>(column)],
                                    m_report->header()->sectionSizeHint(column));
        const bool last = column + 1 == m_model.columnCount();
        m_report->setColumnWidth(column, last ? wanted : std::min(wanted, widest));
    }
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
    if (event->type() == QEvent::ContextMenu && watched == currentWidget() && selected() > 0 &&
        static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
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
