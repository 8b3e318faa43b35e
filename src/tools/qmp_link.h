// SPDX-License-Identifier: MIT
// The control socket of a QEMU process: orders go out and answers come back as JSON, one object a
// line. Answers come in the order of the orders.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace fennel {

class QmpLink : public QObject {
    Q_OBJECT
public:
    // `error` is empty where the order was carried out.
    using Answer = std::function<void(const QJsonValue& returned, const QString& error)>;

    // Our end of a connected stream socket, which is closed with the link.
    explicit QmpLink(int socket, QObject* parent = nullptr);
    ~QmpLink() override;

    // Nothing is heard of the other end any more, no answer and no event.
    void hangUp();
    // An answer comes only as long as the link is there.
    void order(const QString& command, const QJsonObject& arguments = {}, Answer answer = {});

Q_SIGNALS:
    void ready(); // QEMU takes orders now
    void happened(const QString& name, const QJsonObject& data);

private:
    void readable();
    void take(const QJsonObject& line);

    int m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_text; // an unfinished line
    std::deque<Answer> m_waiting;
};

} // namespace fennel
