// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QList>
#include <QString>

class OfficeSettings;

// The dealership itself, as contracts and reports name it. Kept in Properties, section "Company", each part under its
// member's name. A part that was never stored is empty.
struct TZCRMDATA_EXPORT CompanyDetails
{
    static constexpr int kindNatural = 1; // values of kind: the office of one person, or a company
    static constexpr int kindLegal = 2;

    QString name1;
    QString name2;
    int kind = kindNatural;
    QString nationalCode;
    QString economicCode;
    QString registrationNumber;
    QString manager;
    QString telephone;
    QString mobile;
    QString province;
    QString city;
    QString address;
    QString postalCode;
    QString areaCode; // of the telephone
    // Numbers of the tax authority, as typed.
    QString taxKind; // 5 to 8
    QString taxZone;
    QString provinceCode;
    QString cityCode;

    // A part as it stands in Properties.
    struct Part
    {
        QString key;
        QString text;
    };
    static QString section();
    // Every part, in a fixed order.
    QList<Part> parts() const;
    // Of settings that were read with that section.
    static CompanyDetails of(const OfficeSettings &settings);
    static CompanyDetails read(int database = 0);
    // Writes every part, all or none.
    void write(int database = 0) const;

    // Both parts of the name joined by a blank; no blank when one of them is empty.
    QString name() const;
    bool isEmpty() const { return name().isEmpty(); }

    friend bool operator==(const CompanyDetails &, const CompanyDetails &) = default;
};
