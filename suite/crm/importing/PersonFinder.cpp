// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/importing/PersonFinder.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

PersonFinder::PersonFinder(int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT iID,iCode,sNationalCode,sName2 FROM Persons");
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const qint32 key = query.GetLongFieldValue(0);
        for (int column : {1, 2}) {
            const QString number = query.GetTextFieldValue(column);
            if (!number.isEmpty() && !m_byNumber[number].contains(key))
                m_byNumber[number].append(key);
        }
        m_byName[searchKey(query.GetTextFieldValue(3))].append(key);
    }
}

qint32 PersonFinder::find(const QString &text, QString *why) const
{
    const QString number = toAsciiDigits(text).trimmed();
    QList<qint32> found = m_byNumber.value(number);
    if (found.isEmpty() && number.size() >= 8) // a spreadsheet drops the noughts of a code
        found = m_byNumber.value(number.rightJustified(10, u'0'));
    if (found.isEmpty())
        found = m_byName.value(searchKey(text));
    if (found.size() == 1)
        return found.constFirst();
    if (why)
        *why = found.isEmpty() ? u"شخص «%1» در فهرست اشخاص نیست. نخست او را وارد کنید یا کد شخص را بنویسید."_s.arg(text)
                               : u"%1 شخص «%2» هست. کد شخص یا کد ملی را بنویسید."_s.arg(found.size()).arg(text);
    return 0;
}

void PersonFinder::settle(ImportRow &row, const QString &key, const QString &title) const
{
    if (!row.has(key))
        return;
    QString why;
    const qint32 person = find(row.text(key), &why);
    if (person == 0)
        row.refuse(title, why);
    row.values.insert(key, person);
}
