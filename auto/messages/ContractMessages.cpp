// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/messages/ContractMessages.h"

#include "auto/contracts/parties/ContractSide.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/messages/MessageNotes.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/messages/MessagePerson.h"
#include "suite/crm/messages/OfficeFields.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

const QString contractTable = u"AutomobilContracts"_s;

const QList<MessageField> &contractFields()
{
    static const QList<MessageField> list{
        {u"نام"_s, u"نام طرف قرارداد، با آقای یا خانم"_s},
        {u"طرف دیگر"_s, u"نام طرف دیگر قرارداد"_s},
        {u"نوع قرارداد"_s, u"نوع قرارداد"_s},
        {u"شماره قرارداد"_s, u"شماره قرارداد"_s},
        {u"تاریخ قرارداد"_s, u"تاریخ عقد قرارداد"_s},
        {u"خودرو"_s, u"نام خودروی قرارداد"_s},
        {u"پلاک"_s, u"پلاک خودرو"_s},
        {u"مبلغ"_s, u"مبلغ قرارداد، با واحد پول"_s},
    };
    return list;
}

MessagePerson partyOf(const CTblAutomobilContracts &contract, int side, int database)
{
    const ContractSide &columns = ContractSide::of(side);
    const int key = contract.*columns.personID;
    return MessagePerson::read({key}, database).value(key).orElse(contract.*columns.name, {contract.*columns.mobile, contract.*columns.telephone});
}

QHash<QString, QString> contractValues(const CTblAutomobilContracts &contract, const OfficeSettings &office)
{
    return {{u"نوع قرارداد"_s, WordLists::textAt(WordLists::contractTypes(), contract.m_iContractType)},
            {u"شماره قرارداد"_s, OfficeFields::number(contract.number())},
            {u"تاریخ قرارداد"_s, shamsiText(contract.m_dateContract.date())},
            {u"خودرو"_s, contract.m_sAutomobilName},
            {u"پلاک"_s, contract.m_sNumOfPlates},
            {u"مبلغ"_s, OfficeFields::money(contract.m_dAmount, office)}};
}

QList<PersonMessage> readContracts(const QList<MessageAbout> &about, int database)
{
    const OfficeSettings office = OfficeSettings::read({}, database);
    QList<PersonMessage> messages;
    for (const MessageAbout &one : about) {
        CTblAutomobilContracts contract(database);
        if (!contract.IsRecordExist(u"iID"_s, one.key))
            continue;
        const auto note = MessageNotes::of(CTblFollowUps::subjectOf(contractTable, CTblAutomobilContracts::recordKind, contractTable, one.key));
        for (const int side : {ContractSide::buyer, ContractSide::seller}) {
            const MessagePerson person = partyOf(contract, side, database);
            if (person.name.isEmpty())
                continue;
            QHash<QString, QString> filled = contractValues(contract, office);
            filled.insert(u"نام"_s, person.addressed);
            filled.insert(u"طرف دیگر"_s, partyOf(contract, ContractSide::of(side).other().number, database).name);
            messages.append({.of = one,
                             .person = person.name,
                             .about = u"%1 قرارداد %2"_s.arg(ContractSide::nameOf(side)).arg(contract.number()),
                             .numbers = person.numbers,
                             .values = filled,
                             .note = note});
        }
    }
    return messages;
}

MessageAbout newestContract(int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT MAX(iID) FROM AutomobilContracts WHERE iStatus=0 AND (sName1<>'' OR sName2<>'') AND " + Placeholders::none(contractTable));
    return {query.HasResultRow() ? query.GetLongFieldValue(0) : 0};
}

}

MessageKind ContractMessages::kind()
{
    return {.id = u"contract"_s,
            .title = u"آماده شدن قرارداد"_s,
            .forms = {contractTable},
            .fields = contractFields(),
            .suppliedText = u"{نام}، با سلام\n"
                            "قرارداد شماره {شماره قرارداد}[ ({خودرو})] آماده است. لطفا برای امضا تشریف بیاورید.\n"
                            "[{نمایشگاه}][ {تلفن نمایشگاه}]\n"
                            "[{نشانی نمایشگاه}]"_s,
            .read = &readContracts,
            .sample = &newestContract};
}
