// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/look/HostColors.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <optional>

// Whether the desktop is light or dark, by its settings portal. It is asked without waiting, and says itself when it changes.
// A desktop that has no portal, or none of the two as its preference, leaves it to the lightness that the program found at
// its start.
class SystemLook final : public QObject
{
    Q_OBJECT

public:
    // found: what holds while the desktop prefers nothing.
    SystemLook(const QDBusConnection &bus, HostColors::Look found, QObject *parent = nullptr);

    // The session's bus; one that is not connected where the session has none.
    static QDBusConnection sessionBus();
    // What the portal calls a colour scheme. Nothing for "no preference", and for what this program does not know.
    static std::optional<HostColors::Look> fromScheme(const QVariant &scheme);

    HostColors::Look look() const { return m_preferred.value_or(m_found); }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void settingChanged(const QString &space, const QString &key, const QDBusVariant &value);

private:
    void ask(QDBusConnection bus);
    void prefer(const QVariant &scheme);

    HostColors::Look m_found;
    std::optional<HostColors::Look> m_preferred;
};
