// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CompanyDetails.h"

#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/values/TextStandard.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct TextPart
{
    const char16_t *key;
    QString CompanyDetails::*text;
};

constexpr std::array textParts{
    TextPart{u"name1", &CompanyDetails::name1},
    TextPart{u"name2", &CompanyDetails::name2},
    TextPart{u"nationalCode", &CompanyDetails::nationalCode},
    TextPart{u"economicCode", &CompanyDetails::economicCode},
    TextPart{u"registrationNumber", &CompanyDetails::registrationNumber},
    TextPart{u"manager", &CompanyDetails::manager},
    TextPart{u"telephone", &CompanyDetails::telephone},
    TextPart{u"mobile", &CompanyDetails::mobile},
    TextPart{u"province", &CompanyDetails::province},
    TextPart{u"city", &CompanyDetails::city},
    TextPart{u"address", &CompanyDetails::address},
    TextPart{u"postalCode", &CompanyDetails::postalCode},
    TextPart{u"areaCode", &CompanyDetails::areaCode},
    TextPart{u"taxKind", &CompanyDetails::taxKind},
    TextPart{u"taxZone", &CompanyDetails::taxZone},
    TextPart{u"provinceCode", &CompanyDetails::provinceCode},
    TextPart{u"cityCode", &CompanyDetails::cityCode},
};

QString kindKey()
{
    return u"kind"_s;
}

}

QString CompanyDetails::section()
{
    return u"Company"_s;
}

QList<CompanyDetails::Part> CompanyDetails::parts() const
{
    QList<Part> parts;
    for (const TextPart &part : textParts)
        parts.append({QString::fromUtf16(part.key), ConvertToStandard(this->*part.text)});
    parts.append({kindKey(), QString::number(kind)});
    return parts;
}

CompanyDetails CompanyDetails::of(const OfficeSettings &settings)
{
    CompanyDetails details;
    for (const TextPart &part : textParts)
        details.*part.text = settings.text(section(), QString::fromUtf16(part.key), {});
    if (const int kind = settings.integer(section(), kindKey(), 0); kind != 0)
        details.kind = kind;
    return details;
}

CompanyDetails CompanyDetails::read(int database)
{
    return of(OfficeSettings::read({section()}, database));
}

void CompanyDetails::write(int database) const
{
    KTransaction transaction(database);
    for (const Part &part : parts())
        CTblProperties::DBWriteSetting(section(), part.key, part.text, database);
    transaction.commit();
}

QString CompanyDetails::name() const
{
    return name2.isEmpty() ? name1 : name1.isEmpty() ? name2
                                                     : name1 + u' ' + name2;
}
