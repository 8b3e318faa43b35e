// SPDX-License-Identifier: MIT
#include "editor/colour/colour_portal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
constexpr uint userAnswered = 0;

int part(double value)
{
    return std::isfinite(value) ? static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255))
                                : 0;
}

// The entry "color": red, green and blue from 0 to 1.
std::optional<QRgb> colourOf(const QVariantMap& results)
{
    const QVariant value = results.value(u"color"_s);
    if (!value.canConvert<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"(ddd)"_s)
        return std::nullopt;
    double red = 0;
    double green = 0;
    double blue = 0;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    return qRgb(part(red), part(green), part(blue));
}

} // namespace

PortalRequest::PortalRequest(const QDBusConnection& bus, const QString& path, QObject* parent)
    : QDBusAbstractInterface(portalService, path, "org.freedesktop.portal.Request", bus, parent)
{
}

ColourPortal::ColourPortal(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_bus(std::move(bus))
{
}

ColourPortal::~ColourPortal()
{
    cancel();
}

void ColourPortal::watch(const QString& path)
{
    delete m_request;
    m_request = new PortalRequest(m_bus, path, this);
    connect(m_request, &PortalRequest::Response, this, &ColourPortal::onResponse);
}

void ColourPortal::ask()
{
    cancel();
    // The path of the answer is known before the question is sent, so that no answer is missed.
    const QString token = u"fennel%1"_s.arg(++m_asked);
    QString sender = m_bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    watch(portalPath + u"/request/"_s + sender + u'/' + token);

    QDBusMessage call = QDBusMessage::createMethodCall(
        portalService, portalPath, u"org.freedesktop.portal.Screenshot"_s, u"PickColor"_s);
    call << QString() << QVariantMap{{u"handle_token"_s, token}};
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    const int number = m_asked;
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, number](QDBusPendingCallWatcher* done) {
                done->deleteLater();
                const QDBusPendingReply<QDBusObjectPath> reply = *done;
                if (m_request == nullptr || number != m_asked)
                    return;
                if (reply.isError()) {
                    cancel();
                    Q_EMIT unavailable(reply.error().message());
                } else if (reply.value().path() != m_request->path()) {
                    watch(reply.value().path()); // a portal of the time before tokens
                }
            });
}

void ColourPortal::cancel()
{
    if (m_request == nullptr)
        return;
    m_bus.asyncCall(QDBusMessage::createMethodCall(
        portalService, m_request->path(), u"org.freedesktop.portal.Request"_s, u"Close"_s));
    m_request->disconnect(this);
    m_request->deleteLater();
    m_request = nullptr;
}

void ColourPortal::onResponse(uint response, const QVariantMap& results)
{
    m_request->disconnect(this);
    m_request->deleteLater();
    m_request = nullptr;
    Q_EMIT answered(response == userAnswered ? colourOf(results) : std::nullopt);
}

} // namespace fennel
