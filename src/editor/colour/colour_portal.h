// SPDX-License-Identifier: MIT
// The colour picker of the desktop portal: where no program may read the screen (Wayland), the
// desktop itself lets the user pick a pixel and tells the colour over D-Bus.
#pragma once

#include <QColor>
#include <QDBusAbstractInterface>
#include <QDBusConnection>
#include <QObject>

#include <optional>

namespace fennel {

// An object of org.freedesktop.portal.Request: one question on its way.
class PortalRequest : public QDBusAbstractInterface {
    Q_OBJECT
public:
    PortalRequest(const QDBusConnection& bus, const QString& path, QObject* parent);

Q_SIGNALS:
    void Response(uint response, const QVariantMap& results);
};

// Asks org.freedesktop.portal.Screenshot.PickColor, one question at a time.
class ColourPortal : public QObject {
    Q_OBJECT
public:
    explicit ColourPortal(QDBusConnection bus, QObject* parent = nullptr);
    ~ColourPortal() override;

    void ask();
    void cancel(); // the desktop takes its picker away; no answered()

Q_SIGNALS:
    // Nothing if the user cancelled.
    void answered(std::optional<QRgb> colour);
    // The desktop offers no picker.
    void unavailable(const QString& reason);

private:
    void watch(const QString& path);
    void onResponse(uint response, const QVariantMap& results);

    QDBusConnection m_bus;
    PortalRequest* m_request = nullptr;
    int m_asked = 0;
};

} // namespace fennel
