// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/messages/InstalmentMessages.h"

#include "auto/contracts/instalments/InstalmentFollowUp.h"
#include "auto/contracts/instalments/LateFee.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilPayments.h"
#include "auto/messages/MessageNotes.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/messages/MessagePerson.h"
#include "suite/crm/messages/OfficeFields.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

const QList<MessageField> &instalmentFields()
{
    static const QList<MessageField> list{
        {u"نام"_s, u"نام بدهکار، با آقای یا خانم"_s},
        {u"مبلغ"_s, u"مانده قسط، با واحد پول"_s},
        {u"مبلغ قسط"_s, u"مبلغ کامل قسط، با واحد پول"_s},
        {u"تاریخ سررسید"_s, u"تاریخ سررسید قسط"_s},
        {u"روز دیرکرد"_s, u"روزهایی که از سررسید گذشته است؛ پیش از آن خالی"_s},
        {u"جریمه دیرکرد"_s, u"جریمه دیرکرد تا امروز، با واحد پول؛ خالی اگر نباشد"_s},
        {u"شماره قسط"_s, u"شماره قسط در برنامه"_s},
        {u"شماره قرارداد"_s, u"شماره قرارداد"_s},
        {u"خودرو"_s, u"نام خودروی قرارداد"_s},
        {u"پلاک"_s, u"پلاک خودروی قرارداد"_s},
    };
    return list;
}

// One look at the database: a contract with its plan is read once, whatever number of its instalments is asked for.
class Reading
{
public:
    explicit Reading(int database)
        : m_database(database)
        , m_office(OfficeSettings::read({ContractSettings::section()}, database))
        , m_settings(ContractSettings::of(m_office))
    {
    }

    QList<PersonMessage> messages(const QList<MessageAbout> &about)
    {
        QList<PersonMessage> list;
        for (const MessageAbout &one : about) {
            CTblAutomobilPayments payment(m_database);
            if (payment.IsRecordExist(u"iID"_s, one.key))
                add(list, one, payment);
        }
        return list;
    }

private:
    struct Plan
    {
        CTblAutomobilContracts contract;
        std::vector<StoredInstalments::Row> rows;
        bool isThere = false;

        explicit Plan(int database)
            : contract(database)
        {
        }
    };

    const Plan &planOf(int contractID)
    {
        const auto [place, isNew] = m_plans.try_emplace(contractID, m_database);
        Plan &plan = place->second;
        if (isNew && (plan.isThere = plan.contract.IsRecordExist(u"iID"_s, contractID)))
            plan.rows = StoredInstalments::load(contractID, StoredInstalments::Scope::AllDepartments);
        return plan;
    }

    void add(QList<PersonMessage> &list, const MessageAbout &about, const CTblAutomobilPayments &payment)
    {
        const Plan &plan = planOf(payment.m_iAutomobilContractID);
        const auto row = std::ranges::find(plan.rows, about.key, &StoredInstalments::Row::id);
        if (!plan.isThere || row == plan.rows.cend())
            return;
        const CTblAutomobilContracts &contract = plan.contract;
        const MessagePerson person = MessagePerson::read({row->personID}, m_database).value(row->personID).orElse(contract.m_sName2, {contract.m_sMobile2, contract.m_sTel2});
        const QString due = shamsiText(row->date.date());
        list.append({.of = about,
                     .person = person.name,
                     .about = u"قسط %1 قرارداد %2، سررسید %3"_s.arg(row->number).arg(contract.number()).arg(due),
                     .numbers = person.numbers,
                     .values = values(*row, contract, person.addressed),
                     .note = MessageNotes::of(InstalmentFollowUp::subject(contract.m_iID, row->id, row->number))});
    }

    QHash<QString, QString> values(const StoredInstalments::Row &row, const CTblAutomobilContracts &contract, const QString &addressed) const
    {
        const double rest = row.state().rest;
        const int late = rest > 0 ? std::max(0, static_cast<int>(row.date.date().daysTo(m_office.serverTime().date()))) : 0;
        const double fee = LateFee::of(rest, late, m_settings.lateFeePercent, m_settings.lateFeeGrace, m_office.moneyDecimals());
        return {{u"نام"_s, addressed},
                {u"مبلغ"_s, OfficeFields::money(rest, m_office)},
                {u"مبلغ قسط"_s, OfficeFields::money(row.due, m_office)},
                {u"تاریخ سررسید"_s, shamsiText(row.date.date())},
                {u"روز دیرکرد"_s, OfficeFields::number(late)},
                {u"جریمه دیرکرد"_s, OfficeFields::money(fee, m_office)},
                {u"شماره قسط"_s, OfficeFields::number(row.number)},
                {u"شماره قرارداد"_s, OfficeFields::number(contract.number())},
                {u"خودرو"_s, contract.m_sAutomobilName},
                {u"پلاک"_s, contract.m_sNumOfPlates}};
    }

    int m_database;
    OfficeSettings m_office;
    ContractSettings m_settings;
    std::map<int, Plan> m_plans; // by the contract's key
};

// The unpaid one that is due first.
MessageAbout earliestUnpaid(int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT ap.iID FROM AutomobilPayments ap JOIN AutomobilContracts ac ON ac.iID=ap.iAutomobilContractID WHERE ap.iStatus=0 AND ac.iStatus=0 ORDER BY ap.date,ap.iID LIMIT 1");
    return {query.HasResultRow() ? query.GetLongFieldValue(0) : 0};
}

}

MessageKind InstalmentMessages::kind()
{
    return {.id = u"instalment"_s,
            .title = u"یادآوری قسط"_s,
            .forms = {InstalmentFollowUp::form()},
            .fields = instalmentFields(),
            .suppliedText = u"{نام}، با سلام\n"
                            "قسط {شماره قسط} قرارداد {شماره قرارداد}[ ({خودرو})] به مبلغ {مبلغ} سررسید {تاریخ سررسید} است[ و {روز دیرکرد} روز از آن گذشته است].\n"
                            "لطفا پرداخت فرمایید. اگر پرداخت کرده‌اید سپاسگزاریم.\n"
                            "[{نمایشگاه}][ {تلفن نمایشگاه}]"_s,
            .read = [](const QList<MessageAbout> &about, int database) { return Reading(database).messages(about); },
            .sample = &earliestUnpaid};
}
