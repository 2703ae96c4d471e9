// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/messages/CarFoundMessages.h"

#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/messages/MessageNotes.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/messages/MessagePerson.h"
#include "suite/crm/messages/OfficeFields.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"

using namespace Qt::StringLiterals;

namespace {

const QString demandTable = u"AutomobilDemands"_s;
const QString carTable = u"AutomobilInformations"_s;

const QList<MessageField> &carFoundFields()
{
    static const QList<MessageField> list{
        {u"نام"_s, u"نام متقاضی، با آقای یا خانم"_s},
        {u"خودرو"_s, u"نوع، مدل و تیپ خودرو"_s},
        {u"سال تولید"_s, u"سال تولید خودرو"_s},
        {u"رنگ"_s, u"رنگ خودرو"_s},
        {u"کارکرد"_s, u"کارکرد خودرو به کیلومتر"_s},
        {u"قیمت"_s, u"قیمت خودرو، با واحد پول"_s},
        {u"کد خودرو"_s, u"کد خودرو در گالری"_s},
        {u"کد تقاضا"_s, u"کد تقاضا"_s},
    };
    return list;
}

QString carName(CTblAutomobilInformations &car)
{
    QStringList parts;
    for (const QStringView column : {QStringView(u"iAutomobilType"), QStringView(u"iModel"), QStringView(u"iBrigade")}) {
        if (const QString part = KLookup::name(car, column); !part.isEmpty())
            parts.append(part);
    }
    return parts.join(u' ');
}

QHash<QString, QString> foundValues(CTblAutomobilInformations &car, const CTblAutomobilDemands &demand, const OfficeSettings &office)
{
    return {{u"خودرو"_s, carName(car)},
            {u"سال تولید"_s, OfficeFields::number(car.m_iYear)},
            {u"رنگ"_s, KLookup::name(car, u"iColor")},
            {u"کارکرد"_s, OfficeFields::number(car.m_iFunction)},
            {u"قیمت"_s, OfficeFields::money(car.m_dAmount, office)},
            {u"کد خودرو"_s, OfficeFields::number(car.m_iCode)},
            {u"کد تقاضا"_s, OfficeFields::number(demand.m_iCode)}};
}

QList<PersonMessage> readFound(const QList<MessageAbout> &about, int database)
{
    const OfficeSettings office = OfficeSettings::read({}, database);
    QList<PersonMessage> messages;
    for (const MessageAbout &one : about) {
        CTblAutomobilDemands demand(database);
        CTblAutomobilInformations car(database);
        if (!demand.IsRecordExist(u"iID"_s, one.key) || !car.IsRecordExist(u"iID"_s, one.other))
            continue;
        const MessagePerson person = MessagePerson::read({demand.m_iPersonID}, database).value(demand.m_iPersonID);
        QHash<QString, QString> filled = foundValues(car, demand, office);
        filled.insert(u"نام"_s, person.addressed);
        const QString sold = car.m_bSold != 0 ? u"، فروخته شده"_s : QString();
        messages.append({.of = one,
                         .person = person.name,
                         .about = u"تقاضای %1، خودروی %2: %3%4"_s.arg(QString::number(demand.m_iCode), QString::number(car.m_iCode), carName(car), sold),
                         .numbers = person.numbers,
                         .values = filled,
                         .note = MessageNotes::of(CTblFollowUps::subjectOf(demandTable, CTblAutomobilDemands::recordKind, demandTable, one.key))});
    }
    return messages;
}

qint32 newest(const QString &table, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT MAX(iID) FROM " + KSql::name(table) + " WHERE iArchiveUserID=0 AND " + Placeholders::none(table));
    return query.HasResultRow() ? query.GetLongFieldValue(0) : 0;
}

MessageAbout newestPair(int database)
{
    const MessageAbout about{newest(demandTable, database), newest(carTable, database)};
    return about.other == 0 ? MessageAbout() : about;
}

}

MessageKind CarFoundMessages::kind()
{
    return {.id = u"carFound"_s,
            .title = u"خودرو برای تقاضا"_s,
            .forms = {demandTable, carTable},
            .fields = carFoundFields(),
            .suppliedText = u"{نام}، با سلام\n"
                            "خودرویی که می‌خواستید رسیده است: {خودرو}[، سال {سال تولید}][، رنگ {رنگ}][، کارکرد {کارکرد} کیلومتر][، قیمت {قیمت}].\n"
                            "برای دیدن آن تماس بگیرید.\n"
                            "[{نمایشگاه}][ {تلفن نمایشگاه}]"_s,
            .read = &readFound,
            .sample = &newestPair};
}
