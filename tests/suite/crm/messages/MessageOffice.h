// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/messages/CTblMessageTexts.h"
#include "suite/crm/messages/MessageFilling.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/crm/messages/MessagePerson.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/PersonParts.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/db/records/CTblTemp.h"
#include "tests/suite/crm/Office.h"

// An office with a kind of message of the tests' own: about persons, whose names and codes it says. The notes that are written are counted.
class MessageOffice
{
public:
    MessageOffice()
    {
        CrmSubjects::enter();
        MessageKinds::enter({.id = u"test"_s,
                             .title = u"یادآوری"_s,
                             .forms = {u"Services"_s},
                             .fields = {{u"نام"_s, u"نام شخص"_s}, {u"کد"_s, u"کد شخص"_s}},
                             .suppliedText = u"{نام}، با سلام[ از {نمایشگاه}] کد {کد}"_s,
                             .read = [this](const QList<MessageAbout> &about, int database) { return read(about, database); },
                             .sample = [](int) { return MessageAbout{sampleKey()}; }});
    }
    ~MessageOffice() { MessageKinds::remove(u"test"_s); }

    void reset()
    {
        office.reset();
        for (const char *table : {"MessageTexts", "Bin", "BinRows", "Changes", "UserRights"})
            office.db.run(u"DELETE FROM "_s + QLatin1String(table));
        setSettingsFile(m_settings.filePath(u"%1.ini"_s.arg(++m_count)));
        CompanyDetails details;
        details.name1 = u"نمایشگاه آریا"_s;
        details.write();
        notes.clear();
        refusal.clear();
        ali = Office::addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) {
            person.m_sMobile = u"0912 123 4567"_s;
            person.m_sTel = u"02188776655، 09351112233"_s;
        });
        mina = Office::addPerson(u"مینا"_s, u"کریمی"_s, [](CTblPersons &person) {
            person.m_iSex = CTblPersons::sexWoman;
            person.m_sTel = u"02188776655"_s;
        });
        g_pDlgWarning->takeShown();
        g_pDlgMessage->answerAll(true);
        g_pDlgMessage->takeShown();
        g_pDlgYesNo->takeShown();
    }
    int addText(const QString &name, const QString &text)
    {
        CTblMessageTexts row;
        row.Open(true, false, true);
        row.AddNew();
        row.m_sKind = u"test"_s;
        row.m_sName = name;
        row.m_sText = text;
        row.Update(true);
        return static_cast<int>(row.GetLastInsertedID());
    }
    QString value(const QString &query) { return office.db.value(query); }
    static const MessageKind &kind() { return *MessageKinds::of(u"test"_s); }

    Office office;
    int ali = 0;
    int mina = 0;
    QStringList notes;
    QString refusal; // thrown by a note instead of its being written

private:
    static int sampleKey()
    {
        CTblTemp query;
        query.ExecuteQuery("SELECT COALESCE(MIN(iID),0) FROM Persons");
        return query.GetLongFieldValue(0);
    }
    QList<PersonMessage> read(const QList<MessageAbout> &about, int database)
    {
        QList<PersonMessage> messages;
        for (const MessageAbout &one : about) {
            const QHash<int, MessagePerson> persons = MessagePerson::read({one.key}, database);
            if (!persons.contains(one.key))
                continue;
            const MessagePerson person = persons.value(one.key);
            messages.append({.of = one,
                             .person = person.name,
                             .about = u"شخص %1"_s.arg(one.key),
                             .numbers = person.numbers,
                             .values = {{u"نام"_s, person.addressed}, {u"کد"_s, QString::number(one.key)}},
                             .note = [this](const QString &said) {
                                 if (!refusal.isEmpty())
                                     throw KAccountingError(refusal);
                                 notes.append(said);
                             }});
        }
        return messages;
    }

    QTemporaryDir m_settings;
    int m_count = 0;
};
