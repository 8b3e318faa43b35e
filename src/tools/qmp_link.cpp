// SPDX-License-Identifier: MIT
#include "tools/qmp_link.h"

#include <QJsonDocument>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace fennel {

namespace {
using namespace Qt::StringLiterals;
} // namespace

QmpLink::QmpLink(int socket, QObject* parent)
    : QObject(parent), m_socket(socket),
      m_notifier(std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read))
{
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &QmpLink::readable);
}

QmpLink::~QmpLink()
{
    m_notifier.reset();
    ::close(m_socket);
}

void QmpLink::hangUp()
{
    m_notifier->setEnabled(false);
    m_waiting.clear();
    m_text.clear();
}

void QmpLink::order(const QString& command, const QJsonObject& arguments, Answer answer)
{
    QJsonObject order{{u"execute"_s, command}};
    if (!arguments.isEmpty())
        order[u"arguments"_s] = arguments;
    m_waiting.push_back(std::move(answer));
    const QByteArray line = QJsonDocument(order).toJson(QJsonDocument::Compact) + '\n';
    // Orders are far shorter than the socket's buffer. A QEMU that is gone is noticed by its end.
    (void)::send(m_socket, line.constData(), static_cast<std::size_t>(line.size()), MSG_NOSIGNAL);
}

void QmpLink::readable()
{
    std::array<char, 4096> buffer{};
    const ssize_t count = ::recv(m_socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) {
        m_notifier->setEnabled(false);
        return;
    }
    m_text.append(buffer.data(), std::max<ssize_t>(0, count));
    // Whoever hears of a line may hang up, which empties the text.
    for (qsizetype end = m_text.indexOf('\n'); end >= 0; end = m_text.indexOf('\n')) {
        const QByteArray line = m_text.left(end);
        m_text.remove(0, end + 1);
        take(QJsonDocument::fromJson(line).object());
    }
}

void QmpLink::take(const QJsonObject& line)
{
    if (line.contains(u"QMP"_s)) {
        order(u"qmp_capabilities"_s, {}, [this](const QJsonValue&, const QString& error) {
            if (error.isEmpty())
                Q_EMIT ready();
        });
    } else if (line.contains(u"event"_s)) {
        Q_EMIT happened(line[u"event"_s].toString(), line[u"data"_s].toObject());
    } else if (!m_waiting.empty()) {
        const Answer answer = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (answer)
            answer(line[u"return"_s], line[u"error"_s].toObject()[u"desc"_s].toString());
    }
}

} // namespace fennel
