// SPDX-License-Identifier: MIT
// Shows the pages of the guide. It reads nothing but files of one folder, whatever a link says, and
// shows a picture no wider than itself.
#pragma once

#include <QTextBrowser>
#include <QTimer>
#include <QUrl>

namespace fennel {

class GuideView : public QTextBrowser {
    Q_OBJECT
public:
    // Of the folder only what lies in it is shown; it ends in "/".
    GuideView(const QString& root, QWidget* parent);

    // A heading that the text begins with, or that begins the text; none: the page's top.
    void showPage(const QString& path, const QString& heading = {});
    // To the next place of the words, from the end on at the top again; false if there is none.
    bool findNext(const QString& words, bool backward);
    // The place of the heading at or above the view's upper edge among those of the page, -1 none.
    [[nodiscard]] int headingInView() const;
    void showHeading(int place);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QString fileOf(const QUrl& name) const; // empty: none of ours
    [[nodiscard]] int pictureWidth() const;
    void showBlock(const QTextBlock& block);
    void fitPictures();
    void airTables();

    QString m_root;
    QUrl m_page;
    QTimer m_rest;
    int m_laidWidth = 0; // of the pictures, when the page was laid out
};

} // namespace fennel
