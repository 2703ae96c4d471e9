// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/ActionHindrance.h"

#include <QAction>
#include <QVariant>

namespace {

constexpr char property[] = "hindrance";

}

void ActionHindrance::set(QAction &action, const QString &reason, const QString &tip)
{
    action.setProperty(property, reason);
    action.setStatusTip(reason);
    // Last: it tells those who show the entry.
    action.setToolTip(reason.isEmpty() ? tip : reason);
}

QString ActionHindrance::of(const QAction &action)
{
    return action.property(property).toString();
}
