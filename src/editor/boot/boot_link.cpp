// SPDX-License-Identifier: MIT
#include "editor/boot/boot_link.h"

#include "base/failure_words.h"
#include "base/words.h"
#include "container/jpeg_check.h"
#include "editor/boot/boot_window.h"
#include "editor/commands/handlers.h"
#include "editor/window/flash_link.h"
#include "editor/window/main_window.h"
#include "editor/window/window_progress.h"
#include "menus/menu_list.h"
#include "tools/boot_stick.h"

#include <QCoreApplication>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString bootSection = QStringLiteral("Boot test");
const QString loaderKey = QStringLiteral("Loader");
constexpr double ticksPerSecond = 18.2;

} // namespace

BootLink::BootLink(MainWindow& window)
    : currentPreviewPicture([this] { return asItBoots(); }), m_window(window),
      m_test(window.shell())
{
    connect(&m_test, &BootTest::stateChanged, this, &BootLink::showState);
    connect(&m_test, &BootTest::pictureChanged, this, &BootLink::showPictures);
    connect(&m_test, &BootTest::rested, this, [this] {
        if (!m_standing.isValid() && m_test.state() == BootState::Standing)
            m_standing.start();
        showPictures();
    });
    const auto tell = [this](const Failure& failure) {
        m_window.progress().whenIdle([this, failure] { (void)m_window.shell().tell(failure); });
    };
    connect(&m_test, &BootTest::failed, this, [this, tell](const Failure& failure) {
        if (m_boot != nullptr)
            m_boot->hide();
        tell(failure);
    });
    connect(&m_test, &BootTest::watchFailed, this, tell);
    // The guest goes before the folders of the run do.
    connect(qApp, &QCoreApplication::aboutToQuit, &m_test, &BootTest::cancel);
}

BootLink::~BootLink()
{
    m_test.disconnect(this);
}

BootWindow& BootLink::shownWindow()
{
    if (m_boot == nullptr) {
        m_boot = new BootWindow(&m_window);
        connect(m_boot, &BootWindow::keyPressed, &m_test, &BootTest::press);
        connect(m_boot, &BootWindow::watchWanted, &m_test, &BootTest::watch);
        connect(m_boot, &BootWindow::againWanted, this, &BootLink::start);
        connect(m_boot, &BootWindow::closed, &m_test, &BootTest::cancel);
    }
    return *m_boot;
}

QString BootLink::loader() const
{
    return m_window.workbench().store.get(bootSection, loaderKey);
}

void BootLink::chooseLoader()
{
    FileQuestion question;
    question.title = Words::tr("Grub4DOS loader of the boot test (grldr)");
    question.folder = folderPart(loader());
    question.filter = Words::tr("Grub4DOS loader (grldr*)|grldr*|All files|*|");
    const QString path = m_window.shell().prompts.openFile(question);
    m_window.workbench().store.save(bootSection, loaderKey, path);
    m_window.shell().prompts.ShowMessage(path.isEmpty()
                                             ? Words::tr("The boot test boots with syslinux.")
                                             : Words::tr("The boot test boots with %1.").arg(path));
}

// Of the menu in force; empty for the embedded one.
Result<QString> BootLink::menuText() const
{
    const QString& file = m_window.workbench().params.CurrentMenuFile;
    return file.isEmpty() ? Result<QString>(QString())
                          : readMenu(m_window.flashLink().menuDrive(), file);
}

void BootLink::start()
{
    const Shell& shell = m_window.shell();
    if (!shell.run.GfxOpened)
        return;
    if (!CommitValue(m_window) || !commitText(m_window))
        return;
    m_test.cancel();
    const Result<QString> menu = menuText();
    if (!menu) {
        (void)shell.tell(menu.failure());
        return;
    }
    const Result<BootStick> stick =
        bootStick(shell, m_window.document(), {*menu, shell.run.GfxHasZuk, loader()});
    if (!stick) {
        (void)shell.tell(stick.failure());
        return;
    }
    m_titles = stick->titles;
    m_standing.invalidate();
    BootWindow& boot = shownWindow();
    boot.showBooted({}, false);
    boot.showPreview(currentPreviewPicture());
    if (!boot.isVisible())
        boot.fitToPictures();
    boot.show();
    boot.raise();
    boot.activateWindow();
    m_test.start(*stick);
}

QImage BootLink::asItBoots()
{
    Document& document = m_window.document();
    const QDateTime now = QDateTime::currentDateTimeUtc(); // the guest's clock
    BootRequest request{document.state(), m_window.shell().run.Workspace,
                        static_cast<int>(document.generation()), m_titles};
    request.menuValues = document.menuLevelShown();
    request.moment.clock = now.time();
    request.moment.date = now.date();
    if (m_standing.isValid())
        request.moment.ticks =
            static_cast<int>(static_cast<double>(m_standing.elapsed()) / 1000 * ticksPerSecond);
    (void)m_screen.update(request);
    return m_screen.picture().copy();
}

// Why the background that is in use stays black on the boot screen; empty if it does not.
QString BootLink::blackReason() const
{
    const QString& path = m_window.shell().run.BackFile;
    const Result<QByteArray> bytes = readBytes(path);
    if (!bytes)
        return {};
    const Result<JpegHead> head =
        readJpegHead({bytes->constData(), static_cast<std::size_t>(bytes->size())});
    const Result<void> boots = head ? checkBootable(*head) : head.failure();
    return boots ? QString()
                 : Words::tr("%1 stays black on the boot screen: %2")
                       .arg(namePart(path), failureWords(boots.failure()));
}

// With the preview of the same moment, for what moves. Before the menu stands there is nothing to
// compare.
void BootLink::showPictures()
{
    const bool stands = m_standing.isValid() && m_test.text().isEmpty();
    if (stands)
        shownWindow().showPreview(currentPreviewPicture());
    shownWindow().showBooted(m_test.picture(), stands);
}

void BootLink::showState()
{
    if (m_boot == nullptr)
        return;
    const BootState state = m_test.state();
    const QString black = state == BootState::Standing ? blackReason() : QString();
    const bool fault = !black.isEmpty() || state == BootState::Text || state == BootState::Hanging;
    m_boot->showWords(black.isEmpty() ? m_test.words() : black, fault);
    m_boot->enable(m_test.isAwake(), m_test.isAwake() && !m_test.isWatched(), m_test.isRunning());
}

} // namespace fennel
