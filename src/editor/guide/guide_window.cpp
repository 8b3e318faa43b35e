// SPDX-License-Identifier: MIT
#include "editor/guide/guide_window.h"

#include "base/run_state.h"
#include "base/user_store.h"
#include "base/words.h"
#include "editor/guide/guide_pages.h"
#include "editor/guide/guide_view.h"
#include "editor/window/retranslated.h"
#include "editor/window/window_place.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString placeName = u"Guide"_s;
constexpr QSize usualSize(940, 640);
constexpr int contentsWidth = 240;
constexpr int pageRole = Qt::UserRole;
constexpr int headingRole = Qt::UserRole + 1; // its place among those of the page

} // namespace

GuideWindow::GuideWindow(const RunState& run, UserStore& store)
    : m_run(run), m_store(store), m_tree(new QTreeWidget),
      m_view(new GuideView(guideRoot(run), this))
{
    setObjectName(u"GuideWindow"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(QIcon(u":/icons/fennel-gfx.svg"_s));
    m_tree->setObjectName(u"GuideContents"_s);
    m_tree->setHeaderHidden(true);
    m_view->setObjectName(u"GuideView"_s);
    sayName(m_tree, Words::mark("Contents of the guide"));
    sayName(m_view, Words::mark("Page of the guide"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(makeBar());
    auto* halves = new QSplitter(this);
    halves->addWidget(m_tree);
    halves->addWidget(m_view);
    halves->setStretchFactor(1, 1);
    halves->setSizes({contentsWidth, usualSize.width() - contentsWidth});
    column->addWidget(halves, 1);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &GuideWindow::showItem);
    connect(m_tree, &QTreeWidget::itemActivated, m_view, [this] { m_view->setFocus(); });
    connect(m_view, &GuideView::sourceChanged, this, &GuideWindow::markPage);
    retranslated(this, [this] {
        setWindowTitle(Words::tr("User's guide"));
        read();
    });
    addKey("Esc", [this] { close(); });
    addKey("Ctrl+F", [this] {
        m_words->setFocus();
        m_words->selectAll();
    });
    addKey("F3", [this] { search(false); });
    addKey("Shift+F3", [this] { search(true); });
}

GuideWindow::~GuideWindow() = default;

void GuideWindow::addKey(const char* keys, const std::function<void()>& does)
{
    connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this,
            does);
}

QToolButton* GuideWindow::makeButton(const QString& caption, const char* tip, const char* keys)
{
    auto* button = new QToolButton(this);
    button->setText(caption);
    button->setFocusPolicy(Qt::StrongFocus);
    sayTip(button, tip);
    button->setShortcut(QKeySequence(QLatin1String(keys)));
    return button;
}

QWidget* GuideWindow::makeBar()
{
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* back = makeButton(u"◀"_s, Words::mark("Back (Alt+Left)"), "Alt+Left");
    auto* forward = makeButton(u"▶"_s, Words::mark("Forward (Alt+Right)"), "Alt+Right");
    connect(back, &QToolButton::clicked, m_view, &GuideView::backward);
    connect(forward, &QToolButton::clicked, m_view, &GuideView::forward);
    connect(m_view, &GuideView::backwardAvailable, back, &QToolButton::setEnabled);
    connect(m_view, &GuideView::forwardAvailable, forward, &QToolButton::setEnabled);
    for (QToolButton* button : {back, forward})
        button->setEnabled(false);
    m_words = new QLineEdit(bar);
    m_words->setObjectName(u"GuideSearch"_s);
    m_words->setClearButtonEnabled(true);
    retranslated(m_words, [this] {
        const QString says = Words::tr("Search in the guide (Ctrl+F, then Enter or F3)");
        m_words->setPlaceholderText(says);
        m_words->setAccessibleName(says);
    });
    m_told = new QLabel(bar);
    m_told->setObjectName(u"GuideTold"_s);
    connect(m_words, &QLineEdit::returnPressed, this, [this] { search(false); });
    connect(m_words, &QLineEdit::textEdited, m_told, &QLabel::clear);
    row->addWidget(back);
    row->addWidget(forward);
    row->addWidget(m_words, 1);
    row->addWidget(m_told);
    return bar;
}

void GuideWindow::read()
{
    const QString page = m_view->source().fileName();
    const int heading = m_view->headingInView();
    m_contents = guideContents(guideFolder(m_run));
    {
        const QSignalBlocker quiet(m_tree);
        m_tree->clear();
        QTreeWidgetItem* title = nullptr;
        for (const GuideHeading& line : m_contents) {
            const bool top = line.level == 1 || title == nullptr;
            auto* item = top ? new QTreeWidgetItem(m_tree) : new QTreeWidgetItem(title);
            item->setText(0, line.text);
            item->setToolTip(0, line.text);
            item->setData(0, pageRole, line.page);
            item->setData(0, headingRole, top ? 0 : title->childCount());
            title = top ? item : title;
        }
    }
    if (page.isEmpty())
        return;
    m_view->clearHistory();
    m_view->showPage(guideFolder(m_run) + page);
    m_view->showHeading(heading);
}

void GuideWindow::showPlace(const GuidePlace& place)
{
    show(); // first, as a heading has a place only in a view of some size
    m_view->showPage(guideFolder(m_run) + place.page, place.heading);
    raise();
    activateWindow();
    m_view->setFocus();
}

void GuideWindow::showItem(const QTreeWidgetItem* item)
{
    if (item == nullptr)
        return;
    m_view->showPage(guideFolder(m_run) + item->data(0, pageRole).toString());
    m_view->showHeading(item->data(0, headingRole).toInt());
}

// The contents follow the page, and leave the reader where the keys are.
void GuideWindow::markPage(const QUrl& source)
{
    const QString page = source.fileName();
    const QSignalBlocker quiet(m_tree);
    const QTreeWidgetItem* current = m_tree->currentItem();
    if (current != nullptr && current->data(0, pageRole).toString() == page)
        return;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = m_tree->topLevelItem(i);
        const bool here = item->data(0, pageRole).toString() == page;
        item->setExpanded(here);
        if (here)
            m_tree->setCurrentItem(item);
    }
}

// In the page first, then in those that follow.
void GuideWindow::search(bool backward)
{
    const QString words = m_words->text();
    if (words.isEmpty())
        return;
    m_told->clear();
    if (m_view->findNext(words, backward))
        return;
    const int pages = m_tree->topLevelItemCount();
    const QString here = m_view->source().fileName();
    int at = 0;
    while (at < pages - 1 && m_tree->topLevelItem(at)->data(0, pageRole).toString() != here)
        ++at;
    for (int step = 1; step < pages; ++step) {
        const int next = (at + (backward ? pages - step : step)) % pages;
        const QString page = m_tree->topLevelItem(next)->data(0, pageRole).toString();
        const QString path = guideFolder(m_run) + page;
        if (!guideText(path).contains(words, Qt::CaseInsensitive))
            continue;
        m_view->showPage(path);
        if (m_view->findNext(words, backward))
            return;
    }
    m_told->setText(Words::tr("Not in the guide"));
}

void GuideWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    const WindowPlace place = readWindowPlace(m_store, placeName);
    const QRect desktop = screen()->availableGeometry();
    resize(place.size.value_or(usualSize).boundedTo(desktop.size()));
    if (place.corner)
        move(placeOnDesktop({*place.corner, size()}, desktop));
}

void GuideWindow::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous())
        storeWindowPlace(m_store, {pos(), size(), false}, placeName);
    QWidget::hideEvent(event);
}

} // namespace fennel
