// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GallerySettings.h"

#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/persons/CompanyDetails.h"

using namespace Qt::StringLiterals;

namespace {

const QString titleKey = u"sTitle"_s;
const QString telephoneKey = u"sTelephone"_s;
const QString addressKey = u"sAddress"_s;
const QString pricesKey = u"bPrices"_s;

}

QString GallerySettings::section()
{
    return u"WebGallery"_s;
}

QStringList GallerySettings::sections()
{
    return {section(), CompanyDetails::section()};
}

// A title is always there once a page was written, and then an empty telephone is meant.
GallerySettings GallerySettings::of(const OfficeSettings &settings)
{
    GallerySettings kept{settings.text(section(), titleKey, {}), settings.text(section(), telephoneKey, {}), settings.text(section(), addressKey, {}),
                         settings.integer(section(), pricesKey, 1) != 0};
    if (!kept.title.isEmpty())
        return kept;
    const CompanyDetails office = CompanyDetails::of(settings);
    // Many type the city into the address too.
    QStringList place{office.address.contains(office.city) ? QString() : office.city, office.address};
    place.removeAll(QString());
    kept.title = office.name();
    kept.telephone = office.telephone.isEmpty() ? office.mobile : office.telephone;
    kept.address = place.join(u"، "_s).left(longestAddress);
    return kept;
}

QList<SettingsEdit::Setting> GallerySettings::edited()
{
    return {{section(), titleKey, u"عنوان صفحه"_s},
            {section(), telephoneKey, u"تلفن"_s},
            {section(), addressKey, u"آدرس"_s},
            {.section = section(), .key = pricesKey, .caption = u"قیمت‌ها"_s, .words = {u"توافقی"_s, u"با قیمت"_s}}};
}

void GallerySettings::writeTo(SettingsEdit &edit) const
{
    edit.setText(section(), titleKey, title);
    edit.setText(section(), telephoneKey, telephone);
    edit.setText(section(), addressKey, address);
    edit.setText(section(), pricesKey, withPrices ? u"1"_s : u"0"_s);
}
