// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageField.h"
#include "suite/crm/TzCRMDataExport.h"

#include <QHash>
#include <QList>

class OfficeSettings;

// What every message may say: who writes it, and when. And how values are written in a message.
namespace OfficeFields {

const QList<MessageField> &fields();
// Throws CMySQLException.
QHash<QString, QString> read(int database);

// "آقای علی رضایی": how a natural person is addressed; any other one by the name. Empty for no name.
TZCRMDATA_EXPORT QString addressed(const QString &name, bool isNatural, bool isWoman);
// "1,250,000 ریال"; empty for nothing.
TZCRMDATA_EXPORT QString money(double amount, const OfficeSettings &office);
// Empty for 0.
TZCRMDATA_EXPORT QString number(int number);

}
