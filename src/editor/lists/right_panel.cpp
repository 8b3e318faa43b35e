// SPDX-License-Identifier: MIT
#include "editor/lists/right_panel.h"

#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace fennel {

namespace {
constexpr int margin = 3;
constexpr int buttonSide = 25;
} // namespace

RightPanel::RightPanel(ParamLists& lists, QWidget* parent)
    : QGroupBox(parent), m_lists(lists), m_tabs(new TabStrip(this)),
      m_tabRoom(new TabRoom(*m_tabs, this)), m_stack(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("Frame1Vkladki"));
    setTitle(QStringLiteral("         GFXBOOT"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addWidget(m_tabRoom);
    // However many tabs there are, a few rows stay to be seen.
    m_stack->setMinimumHeight(4 * fontMetrics().height());
    column->addWidget(m_stack, 1);
    buildButtons();
    connect(m_tabs, &TabStrip::clicked, this, &RightPanel::tabClicked);
    connect(m_tabs, &TabStrip::menuAsked, this,
            [this](QPoint place) { Q_EMIT tabMenuAsked(m_lists.CurrentTab, place); });
}

QToolButton* RightPanel::fileButton(const char* name, const QString& caption, const char* toolTip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(caption);
    sayTip(button, toolTip);
    const int side = std::max(buttonSide, fontMetrics().height() + 6);
    button->setFixedSize(side, side);
    // Until a row of a member is selected there is nothing to act on.
    button->setEnabled(false);
    return button;
}

void RightPanel::buildButtons()
{
    m_fromMenu = new QCheckBox(this);
    sayText(m_fromMenu, Words::mark("MenuLevel data"));
    m_fromMenu->setObjectName(QStringLiteral("CheckFromMenu"));
    // Only object tabs have values that a menu can lie over.
    m_fromMenu->setVisible(false);
    m_widthSpin = new QSpinBox(this);
    m_widthSpin->setObjectName(QStringLiteral("UpDown1"));
    sayTip(m_widthSpin, Words::mark("Width of the right panel"));
    // Otherwise the panel would jump at every digit that is typed.
    m_widthSpin->setKeyboardTracking(false);
    m_widthSpin->setFocusPolicy(Qt::ClickFocus);
    m_rowSpin = new QSpinBox(this);
    m_rowSpin->setObjectName(QStringLiteral("UpDown3"));
    sayTip(m_rowSpin, Words::mark("Number of the file"));
    m_rowSpin->setRange(-1000, 1000);
    m_rowSpin->setKeyboardTracking(false);
    m_rowSpin->setEnabled(false);
    m_rowSpin->setFocusPolicy(Qt::ClickFocus);
    m_rowSpin->setFixedWidth(
        std::max(46, fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 18));
    m_add = fileButton("ComADD", QStringLiteral("+"), Words::mark("Add a file"));
    m_delete = fileButton("ComDEL", QStringLiteral("−"), Words::mark("Delete the file"));
    m_edit = fileButton("ComEdit", QStringLiteral("✎"), Words::mark("Edit the file"));
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    row->addWidget(m_widthSpin);
    row->addWidget(m_fromMenu);
    row->addStretch(1);
    row->addWidget(m_rowSpin);
    row->addWidget(m_add);
    row->addWidget(m_delete);
    row->addWidget(m_edit);
    layout()->addItem(row);
    m_editor = new ValueEditor(this);
}

void RightPanel::addView(int number)
{
    auto* list = new ListView(m_lists, number, m_stack);
    m_stack->addWidget(list);
    m_views.push_back(list);
    connect(list, &ListView::rowSelected, this, [this, number](int row, bool rightButton) {
        Q_EMIT rowSelected(number, row, rightButton);
    });
    connect(list, &ListView::rowActivated, this,
            [this, number](int row) { Q_EMIT rowActivated(number, row); });
    connect(list, &ListView::rowChecked, this,
            [this, number](int row, bool checked) { Q_EMIT rowChecked(number, row, checked); });
    connect(list, &ListView::keyPressed, this,
            [this, number](int key) { Q_EMIT keyPressed(number, key); });
}

void RightPanel::rebuild()
{
    const auto count = static_cast<std::size_t>(m_lists.tabCount());
    for (ListView* list : m_views)
        // The models point into the lists, which have been replaced: no view may look at them in
        // between.
        list->setRows(nullptr);
    while (m_views.size() > count) {
        m_stack->removeWidget(m_views.back());
        // A signal of this very view may be the reason for the rebuild.
        m_views.back()->deleteLater();
        m_views.pop_back();
    }
    std::vector<TabStrip::Tab> tabs;
    for (std::size_t i = 0; i < count; ++i) {
        if (i == m_views.size())
            addView(static_cast<int>(i) + 1);
        const ParamTab& tab = m_lists.tabs[i + 1];
        tabs.push_back({tab.caption, tab.toolTip});
        fillList(static_cast<int>(i) + 1);
    }
    m_tabs->setTabs(tabs);
    // A gfxboot with fewer objects may not have the tab that was open.
    selectTab(std::min(m_lists.CurrentTab, m_lists.tabCount()));
}

void RightPanel::fillList(int tab)
{
    ListView* list = view(tab);
    if (list == nullptr)
        return;
    list->setRows(m_lists.list(tab));
    list->hideColumn(NameColumn, tab >= FirstObjectTab && !m_namesShown);
}

void RightPanel::showNames(bool shown)
{
    m_namesShown = shown;
    for (int tab = FirstObjectTab; tab <= m_lists.tabCount(); ++tab) {
        if (ListView* list = view(tab))
            list->hideColumn(NameColumn, !shown);
    }
}

void RightPanel::refreshList(int tab)
{
    if (ListView* list = view(tab))
        list->refresh();
}

ListView* RightPanel::view(int tab) const
{
    return tab >= 1 && tab <= static_cast<int>(m_views.size())
               ? m_views[static_cast<std::size_t>(tab - 1)]
               : nullptr;
}

void RightPanel::selectTab(int tab)
{
    ListView* list = view(tab);
    if (list == nullptr)
        return;
    m_lists.CurrentTab = tab;
    m_tabs->mark(tab);
    m_tabRoom->showMarked();
    m_stack->setCurrentWidget(list);
    // Icons are laid out for the width that the panel has now.
    list->reorderItems();
    m_fromMenu->setVisible(tab >= FirstObjectTab);
}

// The value of the selected row, in the coordinates of the widget that the editor floats on.
QRect RightPanel::editorCell(QWidget& host, const ListView& list)
{
    if (m_editor->parentWidget() != &host)
        m_editor->setParent(&host);
    const ListRow* row = m_lists.currentRow();
    const bool level = m_lists.objectOfTab(m_lists.CurrentTab) >= 0 ||
                       (row != nullptr && row->kind == RowKind::Parameter);
    const int column = level ? int{LevelColumn} : CfgValueColumn;
    const QRect cell = list.cellRect(list.selected(), column);
    return {list.mapTo(&host, cell.topLeft()), cell.size()};
}

void RightPanel::openEditor(QWidget& host, const QString& caption, const QString& text)
{
    if (const ListView* list = view(m_lists.CurrentTab))
        m_editor->open(caption, text, editorCell(host, *list));
}

void RightPanel::openTextEditor(QWidget& host, const QString& caption, const QString& text,
                                const QRect& stage)
{
    if (const ListView* list = view(m_lists.CurrentTab))
        m_editor->openText(caption, text, editorCell(host, *list), stage);
}

} // namespace fennel
