// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/SystemLook.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString portalSettings = u"org.freedesktop.portal.Settings"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString colorScheme = u"color-scheme"_s;

// The portal's own numbers.
enum Scheme : uint {
    PrefersDark = 1,
    PrefersLight = 2
};

// Without an address the library would start a bus of its own, and wait for it.
bool sessionHasBus()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFile::exists(runtime + u"/bus"_s);
}

}

SystemLook::SystemLook(const QDBusConnection &bus, HostColors::Look found, QObject *parent)
    : QObject(parent)
    , m_found(found)
{
    if (bus.isConnected())
        ask(bus);
}

QDBusConnection SystemLook::sessionBus()
{
    return sessionHasBus() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

// Calls are made by hand: an interface object of the library would first wait for the portal to describe itself.
void SystemLook::ask(QDBusConnection bus)
{
    bus.connect(portalService, portalPath, portalSettings, u"SettingChanged"_s, {appearance, colorScheme}, QString(), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage read = QDBusMessage::createMethodCall(portalService, portalPath, portalSettings, u"Read"_s);
    read << appearance << colorScheme;
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError())
            prefer(reply.value().variant());
    });
}

std::optional<HostColors::Look> SystemLook::fromScheme(const QVariant &scheme)
{
    QVariant bare = scheme;
    // Read wraps the value once more than the signal does.
    while (bare.metaType() == QMetaType::fromType<QDBusVariant>())
        bare = bare.value<QDBusVariant>().variant();
    bool isNumber = false;
    switch (bare.toUInt(&isNumber)) {
    case PrefersDark:
        return HostColors::Look::Dark;
    case PrefersLight:
        return HostColors::Look::Light;
    default:
        return std::nullopt;
    }
}

void SystemLook::settingChanged(const QString &space, const QString &key, const QDBusVariant &value)
{
    if (space == appearance && key == colorScheme)
        prefer(value.variant());
}

void SystemLook::prefer(const QVariant &scheme)
{
    const HostColors::Look before = look();
    m_preferred = fromScheme(scheme);
    if (look() != before)
        Q_EMIT changed();
}
