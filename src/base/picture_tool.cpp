// SPDX-License-Identifier: MIT
#include "base/picture_tool.h"

#include "base/file_names.h"
#include "base/files.h"
#include "base/tool_runner.h"
#include "base/words.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstring>

namespace fennel {

namespace {

// What is shown: two screens of 5120 by 2880 have fewer.
constexpr std::uint32_t mostPixels = 32'000'000;
// Most pictures come within; the window need not paint itself meanwhile.
constexpr int shortWaitMs = 100;
// The bridge ends itself before.
constexpr int longWaitMs = (pictureSeconds + 5) * 1000;

} // namespace

PictureTool::~PictureTool()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->kill();
    m_process->waitForFinished(1000);
}

void PictureTool::start()
{
    (void)running();
}

bool PictureTool::running()
{
    if (m_process && m_process->state() != QProcess::NotRunning)
        return true;
    m_process = std::make_unique<QProcess>();
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &PictureTool::take);
    connect(m_process.get(), &QProcess::finished, this,
            [this] { endProcess("cannot be read: it takes too long, or too much memory."); });
    m_process->start(m_tool, {QStringLiteral("-serve")});
    return m_process->waitForStarted();
}

void PictureTool::send(Order& order)
{
    const QByteArray path = bytesOfPath(order.wish.path);
    PictureRequest request{order.wish.mode, static_cast<std::uint32_t>(order.wish.size.width()),
                           static_cast<std::uint32_t>(order.wish.size.height()), mostPixels,
                           static_cast<std::uint32_t>(path.size())};
    order.sent = true;
    m_came = 0;
    m_process->write(reinterpret_cast<const char*>(&request), sizeof request);
    m_process->write(path);
}

void PictureTool::work()
{
    const auto needless = [](const Order& order) { return !order.sent && order.receiver.isNull(); };
    std::erase_if(m_orders, needless);
    if (m_orders.empty() || m_orders.front().sent)
        return;
    if (running())
        send(m_orders.front());
    else
        answerFirst(Failure{FailureKind::NotFound, m_tool.toStdString() + " not found!"});
}

// True once the first order's answer is whole.
bool PictureTool::takeReply()
{
    constexpr qint64 head = sizeof(PictureReply);
    const auto fill = [this](char* to, qint64 from, qint64 size) {
        const qint64 had = m_came - from;
        const qint64 got = had < size ? m_process->read(to + had, size - had) : 0;
        m_came += std::max<qint64>(got, 0);
        return m_came >= from + size;
    };
    if (!fill(reinterpret_cast<char*>(&m_reply), 0, head))
        return false;
    if (m_came == head) {
        m_text.resize(m_reply.textBytes);
        m_image = m_reply.width == 0
                      ? QImage()
                      : QImage(static_cast<int>(m_reply.width), static_cast<int>(m_reply.height),
                               QImage::Format_RGB32);
    }
    return m_image.isNull()
               ? fill(m_text.data(), head, m_text.size())
               : fill(reinterpret_cast<char*>(m_image.bits()), head, m_image.sizeInBytes());
}

void PictureTool::take()
{
    while (!m_orders.empty() && m_orders.front().sent && takeReply()) {
        if (m_reply.failure != 0)
            answerFirst(
                Failure{static_cast<FailureKind>(m_reply.failure - 1), m_text.toStdString()});
        else
            answerFirst(FilePicture{QSize(static_cast<int>(m_reply.storedWidth),
                                          static_cast<int>(m_reply.storedHeight)),
                                    std::exchange(m_image, {})});
    }
}

void PictureTool::answerFirst(const Result<FilePicture>& result)
{
    const Order order = std::move(m_orders.front());
    m_orders.pop_front();
    // Before the answer, which may wish for more.
    if (order.receiver)
        order.answer(result);
    work();
}

// Whatever was under way is to blame, and is not tried again.
void PictureTool::endProcess(const std::string& why)
{
    if (m_process) {
        m_process->disconnect(this);
        m_process->kill();
        m_process->waitForFinished(1000);
        m_process.release()->deleteLater(); // it may be the sender
    }
    if (!m_orders.empty() && m_orders.front().sent)
        answerFirst(Failure{FailureKind::ToolFailed,
                            namePart(m_orders.front().wish.path).toStdString() + ' ' + why});
}

void PictureTool::ask(const PictureWish& wish, QObject* receiver, Answer answer)
{
    m_orders.push_back({wish, receiver, std::move(answer)});
    work();
}

void PictureTool::forget(const QObject* receiver)
{
    for (Order& order : m_orders)
        if (order.receiver == receiver)
            order.receiver.clear();
}

void PictureTool::waitInLoop(const bool& done, Progress& progress)
{
    QEventLoop loop;
    QTimer tick;
    connect(&tick, &QTimer::timeout, &loop, [&] {
        if (done)
            loop.quit();
    });
    connect(&progress, &Progress::cancelRequested, &loop, &QEventLoop::quit);
    QTimer::singleShot(longWaitMs, &loop, &QEventLoop::quit);
    constexpr int tickMs = 5;
    tick.start(tickMs);
    // What is typed during a short wait is not lost.
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
    patience.start(Progress::patienceMs);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!done && !progress.cancelled() && !patience.isActive())
        loop.exec();
}

Result<FilePicture> PictureTool::read(const PictureWish& wish, Progress* progress)
{
    QObject receiver;
    bool done = false;
    std::optional<Result<FilePicture>> answer;
    Order order{wish, &receiver, [&](const Result<FilePicture>& result) {
                    answer = result;
                    done = true;
                }};
    // Behind what is under way, before all that can wait.
    const bool busy = !m_orders.empty() && m_orders.front().sent;
    m_orders.insert(m_orders.begin() + (busy ? 1 : 0), std::move(order));
    work();
    const int limit = progress == nullptr ? longWaitMs : shortWaitMs;
    for (QDeadlineTimer left(limit); !done && m_process && !left.hasExpired();)
        if (!m_process->waitForReadyRead(static_cast<int>(left.remainingTime())))
            break;
    if (!done && progress != nullptr) {
        progress->begin(Words::tr("Reading ") + namePart(wish.path));
        waitInLoop(done, *progress);
        progress->end();
    }
    if (done)
        return *answer;
    forget(&receiver);
    endProcess("cannot be read in time.");
    work();
    return progress != nullptr && progress->cancelled()
               ? canceledByUser()
               : Failure{FailureKind::ToolFailed,
                         namePart(wish.path).toStdString() + " cannot be read in time."};
}

} // namespace fennel
