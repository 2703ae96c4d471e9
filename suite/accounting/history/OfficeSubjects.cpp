// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/OfficeSubjects.h"

#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentValues.h"
#include "suite/accounting/books/chart/CTblHesabKol.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/books/chart/CTblHesabTafsily.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/SubjectWords.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/imported/CTblImportedFiles.h"
#include "suite/accounting/importing/CTblImportMappings.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/invoices/InvoiceValues.h"
#include "suite/accounting/lists/CTblSavedFilters.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/CTblReportLayouts.h"

using namespace Qt::StringLiterals;

namespace {

using SubjectWords::activity;
using SubjectWords::captions;
using SubjectWords::titleOf;
using SubjectWords::words;

const QString statusCaption = u"وضعیت"_s;

QString userTitle(KMySQL &record)
{
    const auto &user = static_cast<const CTblUsers &>(record);
    return user.m_sName.isEmpty() ? user.m_sUser : u"%1 (%2)"_s.arg(user.m_sName, user.m_sUser);
}

template <class Account>
RecordSubject accountSubject(const QString &kind)
{
    return {.table = Account().GetTableName(),
            .kind = kind,
            .form = u"ChartOfAccounts"_s,
            .make = RecordSubject::maker<Account>(),
            .title =
                [](KMySQL &record) {
                    const auto &account = static_cast<const Account &>(record);
                    return titleOf(account.m_iCode, account.m_sName);
                },
            .caption = captions({{u"iStatus"_s, statusCaption}}),
            .word = words(QHash<QString, QStringList>{{u"iStatus"_s, activity()}})};
}

// All rights that the bits hold, as the grid calls them.
QString rightsIn(int bits)
{
    QStringList rights;
    for (const KSecurity::Right right : {KSecurity::Access, KSecurity::Read, KSecurity::Write, KSecurity::Modify, KSecurity::Delete, KSecurity::PrintList}) {
        if (bits & right)
            rights.append(KSecurity::rightCaption(right));
    }
    return rights.isEmpty() ? u"هیچ"_s : rights.join(u"، "_s);
}

void enterUsers()
{
    RecordSubjects::enter({.table = u"Users"_s,
                           .kind = u"کاربر"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblUsers>(),
                           .title = &userTitle,
                           .caption = captions({{u"sPasswordHash"_s, u"کلمه عبور"_s}, {u"iStatus"_s, statusCaption}}),
                           .word = words(QHash<QString, QStringList>{{u"iStatus"_s, activity()}})});
    // The bits of each form of the user of that key.
    RecordSubjects::enter({.table = u"Rights"_s,
                           .kind = u"دسترسی‌های کاربر"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblUsers>(),
                           .title = &userTitle,
                           .caption = [](const QString &form) { return KSecurity::formCaption(form); },
                           .word = [](const QString &, const QVariant &bits) { return rightsIn(bits.toInt()); }});
}

// Sections of the settings that the whole office shares. A setting is noted by its caption.
void enterSettings()
{
    const std::pair<QString, QString> sections[] = {
        {u"Database"_s, u"تنظیمات"_s},
        {u"Money"_s, u"تنظیمات واحد پول"_s},
        {u"FiscalYear"_s, u"تنظیمات سال مالی"_s},
        {u"Backup"_s, u"تنظیمات پشتیبان‌گیری"_s},
        {u"Bin"_s, u"تنظیمات سطل بازیافت"_s},
        {u"Twins"_s, u"تنظیمات شماره‌های تکراری"_s},
        {u"Company"_s, u"مشخصات نمایشگاه"_s},
        {u"AutomobilContracts"_s, u"تنظیمات قرارداد"_s},
        {u"WebGallery"_s, u"تنظیمات خروجی وب"_s},
    };
    // One window changes the first six, which are one history.
    const auto ofTheOffice = [](qint32, int) {
        QList<RecordSubject::Part> parts;
        for (const QString &section : {u"Money"_s, u"FiscalYear"_s, u"Backup"_s, u"Bin"_s, u"Twins"_s})
            parts.append({u"Properties:"_s + section, 0});
        return parts;
    };
    for (const auto &[section, kind] : sections) {
        RecordSubject subject{.table = u"Properties:"_s + section, .kind = kind, .form = {}, .make = RecordSubject::maker<CTblProperties>()};
        if (section == "Database"_L1)
            subject.parts = ofTheOffice;
        RecordSubjects::enter(std::move(subject));
    }
}

void enterBooks()
{
    RecordSubjects::enter({.table = u"Documents"_s,
                           .kind = u"سند حسابداری"_s,
                           .form = u"Documents"_s,
                           .make = RecordSubject::maker<CTblDocuments>(),
                           .title =
                               [](KMySQL &record) {
                                   const auto &document = static_cast<const CTblDocuments &>(record);
                                   return u"%1 سال %2"_s.arg(document.m_iNum).arg(document.m_iFiscalYear);
                               },
                           .caption = captions({{u"iStatus"_s, statusCaption}, {u"rows"_s, u"ردیف‌ها"_s}}),
                           .word = SubjectWords::anyOf({words(QHash<QString, std::function<QString(int)>>{{u"iKind"_s, &DocumentKinds::name}}),
                                                        words(QHash<QString, QStringList>{{u"iStatus"_s, {u"معتبر"_s, u"باطل"_s}}}),
                                                        [](const QString &column, const QVariant &value) {
                                                            return column == "rows"_L1 ? DocumentValues::shown(column, value).value_or(QString()) : QString();
                                                        }}),
                           .recordKinds = {RecordKind::Document}});
    RecordSubjects::enter(accountSubject<CTblHesabKol>(u"حساب کل"_s));
    RecordSubjects::enter(accountSubject<CTblHesabMoeen>(u"حساب معین"_s));
    RecordSubjects::enter(accountSubject<CTblHesabTafsily>(u"حساب تفصیلی"_s));
}

void enterInvoices()
{
    RecordSubjects::enter({.table = u"Factors"_s,
                           .kind = u"فاکتور"_s,
                           .form = u"Factors"_s,
                           .make = RecordSubject::maker<CTblFactors>(),
                           .title = [](KMySQL &record) { return record.value(u"iID").toString(); },
                           .caption = captions({{u"iStatus"_s, statusCaption}, {u"lines"_s, u"ردیف‌ها"_s}}),
                           .word = [](const QString &column, const QVariant &value) {
                               if (column == "iType"_L1)
                                   return RecordKind::names().at(value.toInt() == CTblFactors::purchase ? RecordKind::PurchaseInvoice : RecordKind::SaleInvoice);
                               if (column == "lines"_L1)
                                   return InvoiceValues::shown(column, value).value_or(QString());
                               return column == "iStatus"_L1 ? (value.toInt() == CTblFactors::voided ? u"باطل"_s : u"معتبر"_s) : QString(); },
                           .recordKinds = {RecordKind::SaleInvoice, RecordKind::PurchaseInvoice}});
    RecordSubjects::enter({.table = u"Services"_s,
                           .kind = u"خدمت"_s,
                           .form = u"Services"_s,
                           .make = RecordSubject::maker<CTblServices>(),
                           .title = [](KMySQL &record) {
                               const auto &service = static_cast<const CTblServices &>(record);
                               return titleOf(service.m_iCode, service.m_sName);
                           }});
}

void enterLists()
{
    RecordSubjects::enter({.table = u"CustomFields"_s,
                           .kind = u"فیلد اضافی"_s,
                           .form = u"CustomFields"_s,
                           .make = RecordSubject::maker<CTblCustomFields>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblCustomFields &>(record).m_sName; },
                           .caption = {},
                           .word = words(QHash<QString, QStringList>{{u"iType"_s, CTblCustomFields::typeNames()}})});
    RecordSubjects::enter({.table = u"ReportLayouts"_s,
                           .kind = u"قالب گزارش"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblReportLayouts>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblReportLayouts &>(record).m_sName; },
                           .caption = captions({{u"sLayout"_s, u"قالب"_s}, {u"sReport"_s, u"گزارش"_s}})});
    // Only who may do everything sees what others keep for themselves.
    RecordSubjects::enter({.table = u"SavedFilters"_s,
                           .kind = u"فیلتر ذخیره شده"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblSavedFilters>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblSavedFilters &>(record).m_sName; }});
    RecordSubjects::enter({.table = u"ImportMappings"_s,
                           .kind = u"ستون‌های ورود از فایل"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblImportMappings>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblImportMappings &>(record).m_sName; }});
    RecordSubjects::enter({.table = u"ImportedFiles"_s,
                           .kind = u"ورود از فایل"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblImportedFiles>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblImportedFiles &>(record).m_sFile; },
                           .caption = captions({{u"sHash"_s, u"اثر انگشت فایل"_s}})});
    // What happens to the data as a whole; there is no row.
    RecordSubjects::enter({.table = u"Exports"_s, .kind = u"خروجی"_s, .form = {}, .make = RecordSubject::maker<CTblProperties>()});
    RecordSubjects::enter({.table = u"Backup"_s, .kind = u"پشتیبان"_s, .form = {}, .make = RecordSubject::maker<CTblProperties>()});
}

}

void OfficeSubjects::enter()
{
    if (RecordSubjects::of(u"Users"_s))
        return;
    enterUsers();
    enterSettings();
    enterBooks();
    enterInvoices();
    enterLists();
}
