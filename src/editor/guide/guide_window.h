// SPDX-License-Identifier: MIT
// The user's guide in a window of its own: contents at the left, a page at the right, search above.
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

namespace fennel {

class GuideView;
class UserStore;
struct GuideHeading;
struct GuidePlace;
struct RunState;

class GuideWindow : public QWidget {
    Q_OBJECT
public:
    // Run and store outlive the window. The store keeps its place and size.
    GuideWindow(const RunState& run, UserStore& store);
    ~GuideWindow() override;

    void showPlace(const GuidePlace& place);

protected:
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* makeBar();
    [[nodiscard]] QToolButton* makeButton(const QString& caption, const char* tip,
                                          const char* keys);
    void addKey(const char* keys, const std::function<void()>& does);
    // Contents and page in the language of the run, at the place where the reader was.
    void read();
    void showItem(const QTreeWidgetItem* item);
    void markPage(const QUrl& source);
    void search(bool backward);

    const RunState& m_run;
    UserStore& m_store;
    std::vector<GuideHeading> m_contents;
    QTreeWidget* m_tree;
    GuideView* m_view;
    QLineEdit* m_words = nullptr;
    QLabel* m_told = nullptr; // what the search has to say
};

} // namespace fennel
