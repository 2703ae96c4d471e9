// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KRowValues.h"

#include <QDateTime>

namespace {

bool isNothing(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::QString:
        return value.toString().isEmpty();
    case QMetaType::QByteArray:
        return value.toByteArray().isEmpty();
    case QMetaType::QDateTime:
        return !value.toDateTime().isValid();
    default:
        return !value.isValid();
    }
}

}

bool isSameValue(const QVariant &left, const QVariant &right)
{
    const bool nothing = isNothing(left);
    return nothing == isNothing(right) && (nothing || left == right);
}
