// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonAddress.h"

#include "suite/crm/persons/CTblPersons.h"

using namespace Qt::StringLiterals;

QList<LetterRecipient> PersonAddress::read(const QList<qint32> &persons)
{
    using Address = LetterRecipient::Address;
    CTblPersons person;
    person.SetColumns({u"sName2"_s, u"iSex"_s, u"iKind"_s, u"iStatus"_s});
    QList<LetterRecipient> recipients;
    for (const qint32 id : persons) {
        if (id <= 0 || !person.IsRecordExist(u"iID"_s, id))
            continue;
        const Address ofPeople = person.m_iSex == CTblPersons::sexWoman ? Address::Woman : Address::Man;
        recipients.append({id, person.m_sName2, person.isNatural() ? ofPeople : Address::Company, person.m_iStatus == CTblPersons::statusActive});
    }
    return recipients;
}
