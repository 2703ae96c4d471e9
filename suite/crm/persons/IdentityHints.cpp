// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/IdentityHints.h"

#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/MobileNumber.h"
#include "suite/crm/persons/NationalCode.h"

#include <QLabel>

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
        return QStringLiteral("کد ملی ده رقم دارد.");
    case CTblPersons::kindForeigner:
        return QStringLiteral("کد فراگیر هشت تا شانزده رقم دارد.");
    default:
        return QStringLiteral("شناسه ملی یازده رقم دارد.");
    }
}

}

QString IdentityHints::nationalCode(const QString &code, int personKind)
{
    switch (check(code, personKind)) {
    case NationalCode::State::NotANumber:
        return QStringLiteral("تنها رقم پذیرفته است.");
    case NationalCode::State::WrongLength:
        return lengthHint(personKind);
    case NationalCode::State::WrongCheckDigit:
        return QStringLiteral("رقم کنترل درست نیست.");
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
    return QStringLiteral("شماره موبایل مانند 09121234567 است.");
}

QLabel *IdentityHints::createLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void IdentityHints::show(const QString &hint, QLabel *label, QWidget *control)
{
    label->setText(hint);
    control->setAccessibleDescription(hint);
}
