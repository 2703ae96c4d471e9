// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CompanyDetails.h"

#include "suite/db/KTransaction.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/utility/values/TextStandard.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Part
{
    const char16_t *key;
    QString CompanyDetails::*text;
};

constexpr std::array parts{
    Part{u"name1", &CompanyDetails::name1},
    Part{u"name2", &CompanyDetails::name2},
    Part{u"nationalCode", &CompanyDetails::nationalCode},
    Part{u"economicCode", &CompanyDetails::economicCode},
    Part{u"registrationNumber", &CompanyDetails::registrationNumber},
    Part{u"manager", &CompanyDetails::manager},
    Part{u"telephone", &CompanyDetails::telephone},
    Part{u"mobile", &CompanyDetails::mobile},
    Part{u"province", &CompanyDetails::province},
    Part{u"city", &CompanyDetails::city},
    Part{u"address", &CompanyDetails::address},
    Part{u"postalCode", &CompanyDetails::postalCode},
    Part{u"areaCode", &CompanyDetails::areaCode},
    Part{u"taxKind", &CompanyDetails::taxKind},
    Part{u"taxZone", &CompanyDetails::taxZone},
    Part{u"provinceCode", &CompanyDetails::provinceCode},
    Part{u"cityCode", &CompanyDetails::cityCode},
};

QString companySection()
{
    return u"Company"_s;
}

QString kindKey()
{
    return u"kind"_s;
}

}

CompanyDetails CompanyDetails::read(int database)
{
    CompanyDetails details;
    const QHash<QString, QString> stored = CTblProperties::DBReadSection(companySection(), database);
    for (const Part &part : parts)
        details.*part.text = stored.value(QString::fromUtf16(part.key));
    if (const int kind = stored.value(kindKey()).toInt(); kind != 0)
        details.kind = kind;
    return details;
}

void CompanyDetails::write(int database) const
{
    KTransaction transaction(database);
    for (const Part &part : parts)
        CTblProperties::DBWriteSetting(companySection(), QString::fromUtf16(part.key), ConvertToStandard(this->*part.text),
                                       database);
    CTblProperties::DBWriteSettingInt(companySection(), kindKey(), kind, database);
    transaction.commit();
}

QString CompanyDetails::name() const
{
    return name2.isEmpty() ? name1 : name1.isEmpty() ? name2
                                                     : name1 + u' ' + name2;
}
