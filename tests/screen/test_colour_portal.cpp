// SPDX-License-Identifier: MIT
// The pipette where the desktop picks: a portal of the test's own on a bus of the test's own.
#include "editor/colour/pipette.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

namespace fennel::test {

using namespace Qt::StringLiterals;

struct Colour {
    double red, green, blue;
};

QDBusArgument& operator<<(QDBusArgument& out, const Colour& colour)
{
    out.beginStructure();
    out << colour.red << colour.green << colour.blue;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, Colour& colour)
{
    in.beginStructure();
    in >> colour.red >> colour.green >> colour.blue;
    in.endStructure();
    return in;
}

} // namespace fennel::test

Q_DECLARE_METATYPE(fennel::test::Colour)

namespace fennel::test {

namespace {

// Answers PickColor with the path of a request and remembers it.
class FakePortal : public QDBusVirtualObject {
public:
    QString request;
    int closed = 0;
    bool refuse = false;

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        if (message.member() == u"Close"_s) {
            ++closed;
            return true;
        }
        if (message.member() != u"PickColor"_s || refuse) {
            bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"no picker"_s));
            return true;
        }
        QVariantMap options;
        message.arguments().at(1).value<QDBusArgument>() >> options;
        QString sender = message.service().mid(1);
        sender.replace(u'.', u'_');
        request = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(
            sender, options.value(u"handle_token"_s).toString());
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        return true;
    }
};

class Portal : public testing::Test {
protected:
    void SetUp() override
    {
        qDBusRegisterMetaType<Colour>();
        daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--print-address"_s, u"--nofork"_s});
        ASSERT_TRUE(daemon.waitForStarted() && daemon.waitForReadyRead());
        const QString address = QString::fromUtf8(daemon.readLine()).trimmed();
        server =
            std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, u"server"_s));
        client =
            std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, u"client"_s));
        ASSERT_TRUE(server->isConnected() && client->isConnected());
        ASSERT_TRUE(server->registerService(u"org.freedesktop.portal.Desktop"_s));
        ASSERT_TRUE(server->registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                                  QDBusConnection::SubPath));
    }
    void TearDown() override
    {
        QDBusConnection::disconnectFromBus(u"server"_s);
        QDBusConnection::disconnectFromBus(u"client"_s);
        daemon.terminate();
        daemon.waitForFinished();
    }
    void answer(uint response, const QVariantMap& results)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            portal.request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        signal << response << results;
        server->send(signal);
    }

    QProcess daemon;
    FakePortal portal;
    std::unique_ptr<QDBusConnection> server;
    std::unique_ptr<QDBusConnection> client;
};

TEST_F(Portal, GivesTheColourOrTheCancelOrTheReason)
{
    Pipette pipette(nullptr);
    pipette.usePortal(*client);
    QSignalSpy finished(&pipette, &Pipette::finished);
    QSignalSpy failed(&pipette, &Pipette::failed);
    struct {
        uint response;
        QVariantMap results;
        bool taken;
    } const answers[] = {
        {0, {{u"color"_s, QVariant::fromValue(Colour{1.0, 0.5, 0.0})}}, true},
        {1, {}, false},
        {0, {{u"color"_s, u"red"_s}}, false}, // an answer without a colour is none
    };
    for (const auto& given : answers) {
        portal.request.clear();
        finished.clear();
        pipette.start();
        EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.request.isEmpty(); }));
        answer(given.response, given.results);
        ASSERT_TRUE(QTest::qWaitFor([&] { return finished.size() == 1; }));
        EXPECT_EQ(finished[0][0].toBool(), given.taken);
        EXPECT_EQ(pipette.colour(), qRgb(255, 128, 0));
    }
    portal.refuse = true;
    pipette.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return failed.size() == 1; }));
    EXPECT_EQ(failed[0][0].toString(), u"no picker"_s);
    EXPECT_FALSE(pipette.working());
}

} // namespace

} // namespace fennel::test
