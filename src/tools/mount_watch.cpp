// SPDX-License-Identifier: MIT
#include "tools/mount_watch.h"

#include "tools/drive_source.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace fennel {

namespace {
// A stick with several partitions changes the table several times within a few milliseconds.
constexpr int calmMs = 20;
} // namespace

MountWatch::~MountWatch()
{
    stop();
}

bool MountWatch::start()
{
    // A second descriptor would tell every change twice.
    if (isOn())
        return true;
    m_table = ::open(QFile::encodeName(mountTablePath).constData(), O_RDONLY | O_CLOEXEC);
    if (m_table < 0)
        return false;
    m_calm.setSingleShot(true);
    m_calm.setInterval(calmMs);
    connect(&m_calm, &QTimer::timeout, this, &MountWatch::changed, Qt::UniqueConnection);
    // The kernel marks a changed mount table as "exceptional" (POLLPRI), once for each change.
    m_notifier = std::make_unique<QSocketNotifier>(m_table, QSocketNotifier::Exception);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { m_calm.start(); });
    return true;
}

void MountWatch::stop()
{
    // A change that waits to be told must not come after the watch was switched off.
    m_calm.stop();
    m_notifier.reset();
    if (m_table >= 0)
        ::close(m_table);
    m_table = -1;
}

} // namespace fennel
