// SPDX-License-Identifier: MIT
#include "editor/window/file_drop.h"

#include "base/file_names.h"
#include "editor/window/main_window.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace fennel {

namespace {

// The path of the one local file that is dragged; empty if it is anything else.
QString draggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return {};
    // The toolkit's own path of it loses what is no UTF-8.
    return pathOfBytes(
        QByteArray::fromPercentEncoding(urls.first().path(QUrl::FullyEncoded).toLatin1()));
}

} // namespace

FileDrop::FileDrop(MainWindow& window) : m_window(window)
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto& drop = static_cast<QDropEvent&>(*event);
    const QString path = draggedFile(drop);
    if (path.isEmpty())
        return false;
    drop.acceptProposedAction();
    // The program that the file comes from waits for the end of the drop.
    if (event->type() == QEvent::Drop)
        QTimer::singleShot(0, &m_window, [this, path] { m_window.openFromElsewhere(path); });
    return true;
}

} // namespace fennel
