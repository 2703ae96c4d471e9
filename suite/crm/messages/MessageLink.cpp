// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageLink.h"

#include "suite/crm/persons/MobileNumber.h"

QUrl MessageLink::sms(const QString &number, const QString &text)
{
    return QUrl::fromEncoded("sms:" + MobileNumber::international(number).toLatin1() + "?body=" + QUrl::toPercentEncoding(text), QUrl::StrictMode);
}
