// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/IdentityHints.h"

#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/MobileNumber.h"
#include "suite/crm/persons/NationalCode.h"
#include "suite/utility/entries/FieldNote.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

NationalCode::State check(const QString &code, int personKind)
{
    switch (personKind) {
    case CTblPersons::kindNatural:
        return NationalCode::checkPerson(code);
    case CTblPersons::kindForeigner:
        return NationalCode::checkForeigner(code);
    default:
        return NationalCode::checkCompany(code);
    }
}

QString lengthHint(int personKind)
{
    switch (personKind) {
    case CTblPersons::kindNatural:
        return u"کد ملی ده رقم دارد."_s;
    case CTblPersons::kindForeigner:
        return u"کد فراگیر هشت تا شانزده رقم دارد."_s;
    default:
        return u"شناسه ملی یازده رقم دارد."_s;
    }
}

}

QString IdentityHints::nationalCode(const QString &code, int personKind)
{
    switch (check(code, personKind)) {
    case NationalCode::State::NotANumber:
        return u"تنها رقم پذیرفته است."_s;
    case NationalCode::State::WrongLength:
        return lengthHint(personKind);
    case NationalCode::State::WrongCheckDigit:
        return u"رقم کنترل درست نیست."_s;
    case NationalCode::State::Empty:
    case NationalCode::State::Good:
        break;
    }
    return {};
}

QString IdentityHints::mobile(const QString &number)
{
    if (number.trimmed().isEmpty() || MobileNumber::isGood(number))
        return {};
    return u"شماره موبایل مانند 09121234567 است."_s;
}

void IdentityHints::show(const QString &hint, QWidget *control)
{
    if (FieldNote *note = FieldNote::of(control))
        note->showHint(hint);
    control->setAccessibleDescription(hint);
}
