// SPDX-License-Identifier: MIT
#include "editor/guide/guide_view.h"

#include "editor/guide/guide_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QImage>
#include <QList>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <functional>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 16;
constexpr int cellPadding = 4;
constexpr int tableMargin = 8;
constexpr int restMs = 50; // a window that is pulled is laid out when it rests

QList<QTextBlock> headingsOf(const QTextDocument& document)
{
    QList<QTextBlock> headings;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0)
            headings.append(block);
    }
    return headings;
}

QTextBlock headingThat(const QTextDocument& document,
                       const std::function<bool(const QString&)>& fits)
{
    const QList<QTextBlock> headings = headingsOf(document);
    const auto found = std::ranges::find_if(
        headings, [&](const QTextBlock& heading) { return fits(heading.text()); });
    return found == headings.end() ? QTextBlock() : *found;
}

} // namespace

GuideView::GuideView(const QString& root, QWidget* parent)
    : QTextBrowser(parent), m_root(QFileInfo(root).canonicalFilePath() + u'/')
{
    setOpenExternalLinks(false);
    // A bar that came with a long page would make the view narrower while the page is laid out.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restMs);
    // The way back comes with no call of doSetSource().
    connect(this, &QTextBrowser::sourceChanged, this, &GuideView::airTables);
    connect(&m_rest, &QTimer::timeout, this, &GuideView::fitPictures);
    document()->setDocumentMargin(margin);
    // Links that have the keyboard's focus are seen as the selection is.
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
}

QString GuideView::fileOf(const QUrl& name) const
{
    const QUrl full = m_page.resolved(name);
    const QString path = QFileInfo(full.toLocalFile()).canonicalFilePath();
    return full.isLocalFile() && path.startsWith(m_root) ? path : QString();
}

QVariant GuideView::loadResource(int type, const QUrl& name)
{
    const QString path = fileOf(name);
    if (path.isEmpty())
        return {};
    if (type == QTextDocument::ImageResource) {
        QImage picture(path);
        if (picture.width() > pictureWidth())
            picture = picture.scaledToWidth(pictureWidth(), Qt::SmoothTransformation);
        return picture;
    }
    m_page = QUrl::fromLocalFile(path); // what the names in it begin at
    return guideText(path);
}

void GuideView::doSetSource(const QUrl& name, QTextDocument::ResourceType /*type*/)
{
    const QString path = fileOf(name);
    if (!path.endsWith(u".md"_s))
        return;
    QUrl page = QUrl::fromLocalFile(path);
    page.setFragment(name.fragment());
    m_laidWidth = pictureWidth();
    QTextBrowser::doSetSource(page, QTextDocument::MarkdownResource);
    airTables();
    if (name.hasFragment())
        showBlock(headingThat(*document(), [&](const QString& heading) {
            return headingAnchor(heading) == name.fragment(QUrl::FullyDecoded);
        }));
}

void GuideView::airTables()
{
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr)
            continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setCellPadding(cellPadding);
        format.setTopMargin(tableMargin);
        format.setBottomMargin(tableMargin);
        table->setFormat(format);
    }
}

void GuideView::showPage(const QString& path, const QString& heading)
{
    setSource(QUrl::fromLocalFile(path));
    if (!heading.isEmpty())
        showBlock(headingThat(*document(),
                              [&](const QString& text) { return heading.startsWith(text); }));
}

void GuideView::showBlock(const QTextBlock& block)
{
    if (!block.isValid())
        return;
    setTextCursor(QTextCursor(block));
    const QRectF place = document()->documentLayout()->blockBoundingRect(block);
    verticalScrollBar()->setValue(static_cast<int>(place.top()));
}

bool GuideView::findNext(const QString& words, bool backward)
{
    const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (find(words, flags))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (find(words, flags))
        return true;
    setTextCursor(before);
    return false;
}

int GuideView::headingInView() const
{
    int place = -1;
    for (const QTextBlock& heading : headingsOf(*document())) {
        const QRectF rect = document()->documentLayout()->blockBoundingRect(heading);
        if (rect.top() > verticalScrollBar()->value() + rect.height())
            break;
        ++place;
    }
    return place;
}

void GuideView::showHeading(int place)
{
    showBlock(headingsOf(*document()).value(place));
}

int GuideView::pictureWidth() const
{
    return std::max(1, viewport()->width() - 2 * margin);
}

void GuideView::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    if (m_laidWidth != pictureWidth() && !source().isEmpty())
        m_rest.start();
}

// Pictures are scaled when they are read.
void GuideView::fitPictures()
{
    const int heading = headingInView();
    reload();
    showHeading(heading);
}

} // namespace fennel
