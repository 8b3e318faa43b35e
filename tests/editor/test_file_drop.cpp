// SPDX-License-Identifier: MIT
// Message files from the file manager: dropped on the window, or named by a second start while
// something is in work.
#include "base/file_names.h"
#include "document/open_fixture.h"
#include "editor/window/file_drop.h"
#include "support/story.h"

#include <QDialog>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(FileDrop, OpensWhatIsDroppedAndWaitsForADialogToEnd)
{
    Story w;
    const FileDrop drops(w.window);
    const QByteArray bytes = QByteArray::fromStdString(smallMessage().close());
    const QString first = w.shell.file(u"first"_s, bytes);
    const auto drop = [&](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&w.window, &enter);
        QDropEvent event(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(&w.window, &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(drop({QUrl(u"https://localhost/message"_s)}));
    EXPECT_TRUE(drop({QUrl::fromLocalFile(first)}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return w.shell.run.GfxFileName == u"first"_s; }));
    EXPECT_TRUE(w.bench.lastUsed.entries().front().caption.endsWith(u"first"_s));

    // A name of an old code page opens and is saved under the same bytes.
    const QByteArray old = w.shell.path(u"\u043a"_s).chopped(1).toUtf8() + "\xEA\xF3.gz";
    const QString path = pathOfBytes(old);
    EXPECT_EQ(bytesOfPath(path), old);
    ASSERT_TRUE(w.shell.files.write(path, bytes).ok());
    EXPECT_TRUE(drop({QUrl::fromEncoded("file://" + old.toPercentEncoding("/"))}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return w.shell.run.GfxPath == path; }));
    EXPECT_TRUE(w.window.windowTitle().contains(u"\u043a\u0443.gz"_s));
    w.choose("mnuFile_Save");
    EXPECT_EQ(plainFiles(folderPart(path)).count("\xEA\xF3.gz"), 1);

    QDialog dialog(&w.window);
    dialog.setModal(true);
    dialog.show();
    w.window.openFromElsewhere(w.shell.file(u"second"_s, bytes));
    QTest::qWait(400);
    EXPECT_NE(w.shell.run.GfxFileName, u"second"_s);
    dialog.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return w.shell.run.GfxFileName == u"second"_s; }));
}
