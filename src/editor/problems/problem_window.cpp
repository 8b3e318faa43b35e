// SPDX-License-Identifier: MIT
#include "editor/problems/problem_window.h"

#include "base/text.h"
#include "base/words.h"

#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

enum ProblemColumn { SentenceColumn, WhereColumn, MendColumn };
constexpr int adviceRole = Qt::UserRole;
constexpr QSize startSize(680, 260);
constexpr int iconGap = 24;   // around the icon of a row
constexpr int rowGap = 6;     // between sentences
constexpr int tallest = 4000; // that a sentence can be
constexpr int gap = 6;        // between the windows
constexpr int titleBar = 30;  // about; it is not known before the window shows

QString countOf(qsizetype count, const QString& one, const QString& several)
{
    return count == 0 ? QString() : QString::number(count) + u' ' + (count == 1 ? one : several);
}

} // namespace

QIcon severityIcon(const QWidget& widget, std::optional<Severity> severity)
{
    const auto picture = !severity                        ? QStyle::SP_DialogApplyButton
                         : *severity == Severity::Error   ? QStyle::SP_MessageBoxCritical
                         : *severity == Severity::Warning ? QStyle::SP_MessageBoxWarning
                                                          : QStyle::SP_MessageBoxInformation;
    return widget.style()->standardIcon(picture, nullptr, &widget);
}

QString countText(const std::vector<Problem>& problems)
{
    const auto count = [&](Severity severity) {
        return std::ranges::count(problems, severity, &Problem::severity);
    };
    QStringList parts{
        countOf(count(Severity::Error), Words::tr("error"), Words::tr("errors")),
        countOf(count(Severity::Warning), Words::tr("warning"), Words::tr("warnings")),
        countOf(count(Severity::Note), Words::tr("note"), Words::tr("notes"))};
    parts.removeAll(QString());
    return parts.isEmpty() ? Words::tr("No problem found") : parts.join(u", "_s);
}

ProblemWindow::ProblemWindow(QWidget* parent)
    : QWidget(parent, Qt::Tool), m_list(new QTreeWidget(this)), m_advice(new QLabel(this))
{
    setObjectName(u"ProblemWindow"_s);
    m_list->setObjectName(u"ProblemList"_s);
    m_list->setColumnCount(MendColumn + 1);
    m_list->setHeaderLabels({Words::tr("Problem"), Words::tr("Where"), Words::tr("Mend")});
    m_list->setRootIsDecorated(false);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_list->setIconSize({icon, icon});
    m_list->setWordWrap(true);
    connect(m_list->header(), &QHeaderView::sectionResized, this, &ProblemWindow::fitRows,
            Qt::QueuedConnection);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(SentenceColumn, QHeaderView::Stretch);
    for (const int column : {int{WhereColumn}, int{MendColumn}})
        m_list->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    m_advice->setObjectName(u"ProblemAdvice"_s);
    m_advice->setTextFormat(Qt::PlainText);
    m_advice->setWordWrap(true);
    m_advice->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_advice->setAlignment(Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_list, 1);
    column->addWidget(m_advice);
    resize(startSize);
    const auto choose = [this](const QTreeWidgetItem* item) {
        Q_EMIT chosen(m_list->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item)));
    };
    connect(m_list, &QTreeWidget::itemClicked, this, choose);
    connect(m_list, &QTreeWidget::itemActivated, this, choose);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &ProblemWindow::showAdvice);
}

void ProblemWindow::addRow(const ShownProblem& problem)
{
    auto* item = new QTreeWidgetItem(m_list, {problem.sentence, problem.where});
    item->setIcon(SentenceColumn, severityIcon(*this, problem.severity));
    item->setToolTip(SentenceColumn, plainTip(problem.sentence));
    item->setToolTip(WhereColumn, plainTip(problem.where));
    item->setData(SentenceColumn, adviceRole, problem.advice);
    if (problem.mend.isEmpty())
        return;
    auto* button = new QPushButton(QString(problem.mend).replace(u'&', u"&&"_s), m_list);
    button->setFocusPolicy(Qt::NoFocus); // it goes with its row, and would take the focus along
    button->setToolTip(Words::tr("Space; Ctrl+Z takes it back"));
    connect(button, &QPushButton::clicked, this, [this, item] {
        m_list->setCurrentItem(item);
        mendCurrent();
    });
    m_list->setItemWidget(item, MendColumn, button);
}

void ProblemWindow::showProblems(const std::vector<ShownProblem>& problems)
{
    const QTreeWidgetItem* before = m_list->currentItem();
    const QString sentence = before == nullptr ? QString() : before->text(SentenceColumn);
    const int place = m_list->currentIndex().row();
    m_list->clear();
    for (const ShownProblem& problem : problems)
        addRow(problem);
    const auto same = m_list->findItems(sentence, Qt::MatchExactly, SentenceColumn);
    if (!same.isEmpty())
        m_list->setCurrentItem(same.first());
    else if (place >= 0 && m_list->topLevelItemCount() > 0)
        m_list->setCurrentItem(
            m_list->topLevelItem(std::min(place, m_list->topLevelItemCount() - 1)));
    fitRows();
    showAdvice();
}

// A row is as high as its sentence asks for in the width of the column; the list would cut it.
void ProblemWindow::fitRows()
{
    const int room = m_list->columnWidth(SentenceColumn) - m_list->iconSize().width() - iconGap;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = m_list->topLevelItem(i);
        const QRect words = m_list->fontMetrics().boundingRect(
            QRect(0, 0, room, tallest), Qt::TextWordWrap, item->text(SentenceColumn));
        item->setSizeHint(SentenceColumn, QSize(0, words.height() + rowGap));
    }
}

void ProblemWindow::showAdvice()
{
    const QTreeWidgetItem* item = m_list->currentItem();
    if (m_list->topLevelItemCount() == 0)
        m_advice->setText(Words::tr("Nothing keeps this boot screen from being as it was meant."));
    else if (item == nullptr)
        m_advice->setText(Words::tr("A click on a problem goes to where it is."));
    else
        m_advice->setText(item->data(SentenceColumn, adviceRole).toString());
}

void ProblemWindow::mendCurrent()
{
    if (m_list->itemWidget(m_list->currentItem(), MendColumn) != nullptr)
        Q_EMIT mendWanted(m_list->currentIndex().row());
}

void ProblemWindow::setCurrent(bool current)
{
    for (QPushButton* button : m_list->findChildren<QPushButton*>())
        button->setEnabled(current);
}

void ProblemWindow::placeBeside()
{
    const QRect desktop = screen()->availableGeometry();
    const QRect owner = parentWidget()->frameGeometry();
    const QSize frame = size() + QSize(2 * gap, titleBar);
    QPoint place(owner.left() + gap, owner.bottom() - frame.height() - titleBar);
    if (desktop.right() - owner.right() >= frame.width())
        place = {owner.right() + gap, owner.top()};
    else if (desktop.bottom() - owner.bottom() >= frame.height())
        place = {owner.left(), owner.bottom() + gap};
    move(place);
}

void ProblemWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Space)
        mendCurrent();
    else
        QWidget::keyPressEvent(event);
}

} // namespace fennel
