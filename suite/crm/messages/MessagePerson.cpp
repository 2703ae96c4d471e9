// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessagePerson.h"

#include "suite/crm/messages/OfficeFields.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/MobileNumber.h"
#include "suite/db/records/CTblTemp.h"

namespace {

void addNumbers(QStringList &numbers, const QString &telephone)
{
    for (const QString &number : MobileNumber::allIn(telephone)) {
        if (!numbers.contains(number))
            numbers.append(number);
    }
}

}

QHash<int, MessagePerson> MessagePerson::read(const QList<int> &keys, int database)
{
    QHash<int, MessagePerson> persons;
    if (keys.isEmpty())
        return persons;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT iID,sName2,iKind,iSex,sMobile,sTel FROM Persons WHERE iID IN (" + KSql::list(keys) + ")");
    for (; query.HasResultRow(); query.MoveNextResult()) {
        MessagePerson person;
        person.name = query.GetTextFieldValue(1);
        const int kind = query.GetLongFieldValue(2);
        const bool isNatural = kind == CTblPersons::kindNatural || kind == CTblPersons::kindForeigner;
        person.addressed = OfficeFields::addressed(person.name, isNatural, query.GetLongFieldValue(3) == CTblPersons::sexWoman);
        addNumbers(person.numbers, query.GetTextFieldValue(4));
        addNumbers(person.numbers, query.GetTextFieldValue(5));
        persons.insert(query.GetLongFieldValue(0), person);
    }
    return persons;
}

MessagePerson MessagePerson::orElse(const QString &otherName, const QStringList &telephones) const
{
    MessagePerson person = *this;
    if (person.name.isEmpty()) {
        person.name = otherName;
        person.addressed = otherName;
    }
    for (const QString &telephone : telephones)
        addNumbers(person.numbers, telephone);
    return person;
}
