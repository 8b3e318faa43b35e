// SPDX-License-Identifier: MIT
#include "support/test_window.h"

#include "frame/status_bar.h"

#include <QTest>

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

// The program's data lie beside it.
const Shell& prepared(TestShell& t)
{
    t.install();
    t.run.CurrentLang = u"0409"_s;
    return t.shell;
}

} // namespace

TestWindow::TestWindow()
    : store(t.path(u"settings.ini"_s)), bench(prepared(t), store), window(bench)
{
    window.show();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("the window did not come up");
}

QAction& TestWindow::action(const QString& name)
{
    QAction* found = window.menus().action(name);
    if (found == nullptr)
        qFatal("no %s", qPrintable(name));
    return *found;
}

void TestWindow::choose(const QString& item)
{
    action(item).trigger();
    QCoreApplication::processEvents();
}

void TestWindow::click(QWidget& widget)
{
    QTest::mouseClick(&widget, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void TestWindow::open(const QString& path, const QString& message)
{
    if (!t.run.GfxOpened)
        t.prompts.expectMessage(u"You can choose any of the variants."_s);
    t.prompts.expectOpen(path);
    if (!message.isEmpty())
        t.prompts.expectMessage(message);
    choose(u"mnuFile_Open"_s);
}

QString TestWindow::field(int number)
{
    return window.statusFields().field(number);
}

} // namespace fennel::test
