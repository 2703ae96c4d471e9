// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/OfficeLetterhead.h"

#include "suite/crm/persons/CompanyLogo.h"

using namespace Qt::StringLiterals;

Letterhead OfficeLetterhead::of(const CompanyDetails &office)
{
    QStringList parts;
    for (const QString &part : {office.province, office.city, office.address}) {
        if (!part.isEmpty() && !parts.contains(part))
            parts.append(part);
    }
    return {.name = office.name(),
            .address = parts.join(u"، "_s),
            .telephone = office.telephone.isEmpty() ? office.mobile : office.areaCode + office.telephone,
            .logo = {}};
}

Letterhead OfficeLetterhead::read()
{
    Letterhead letterhead = of(CompanyDetails::read());
    letterhead.logo = CompanyLogo::read().bytes;
    return letterhead;
}
