// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/ReceiptMethods.h"

using namespace Qt::StringLiterals;

QString ReceiptMethods::name(int method)
{
    switch (method) {
    case Cash: return u"نقدی"_s;
    case Bank: return u"بانکی"_s;
    case Card: return u"کارت"_s;
    case Cheque: return u"چک"_s;
    default: return {};
    }
}
