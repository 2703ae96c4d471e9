// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/LookOffice.h"

#include "auto/bin/CarRecordParts.h"
#include "auto/messages/AutoMessages.h"
#include "auto/subjects/AutoFirstSteps.h"
#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoSubjects.h"
#include "auto/subjects/AutoWindows.h"
#include "auto/today/AutoToday.h"
#include "host/books/BookWindows.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmToday.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasuryToday.h"
#include "suite/treasury/subjects/TreasuryWindows.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/crm/persons/PersonParts.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/treasury/subjects/TreasurySubjects.h"
#include "auto/CAutoDBSetting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "host/demo/DemoData.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/ModuleTables.h"
#include "tests/suite/crm/reminders/Alarms.h"

#include <QAction>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

LookOffice::LookOffice()
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    prepareModuleTables(m_database);
    DemoData::fill(60);
    setSettingsFile(m_folder.filePath(u"settings.ini"_s));
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
        dialog->answerAll(true);
    GetDBSetting()->SetReceiptWindow(&CDlgCashFromPerson::receive);
    GetDBSetting()->Login(number(u"SELECT MIN(iID) FROM Users"_s));
    fill();
    makeSearchable();
    m_window = std::make_unique<MainWindow>(folder(), GetAutoDBSetting());
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        qFatal("the main window did not come up");
}

LookOffice::~LookOffice()
{
    m_window.reset();
    GetDBSetting()->Logout();
    setSettingsFile({});
}

void LookOffice::fill()
{
    constexpr int contracts = CTblAutomobilContracts::recordKind;
    CTblUsers::create(u"clerk"_s, u"clerk1"_s, u"نگار محمدی"_s, false);
    const int user = GetDBSetting()->GetUserID();
    Alarms::add(user, -90, u"تماس با خریدار برای تعیین وقت محضر"_s, Alarms::repeats);
    Alarms::add(user, -30, u"پیگیری چک شماره 102030 بانک ملت"_s);
    Alarms::add(user, 600, u"تمدید بیمه خودروهای نمایشگاه"_s);
    CTblCustomFields::define(contracts, u"نحوه آشنایی"_s, CTblCustomFields::Text);
    CTblCustomFields::define(contracts, u"شماره بایگانی کاغذی"_s, CTblCustomFields::Number);
    CTblCustomFields::define(contracts, u"تاریخ مراجعه"_s, CTblCustomFields::Date);
    CTblCustomFields::define(contracts, u"مدارک تحویل شد"_s, CTblCustomFields::YesNo);
    fillLong();
    fillCheques();
    QFile scan(m_folder.filePath(u"اسکن قرارداد.pdf"_s));
    if (!scan.open(QIODevice::WriteOnly) || scan.write("%PDF-1.4\n") < 0)
        qFatal("the folder of the test cannot be written to");
    scan.close();
    for (const CTblFileDocs::Scope scope : {CTblFileDocs::General, CTblFileDocs::Personal})
        CTblFileDocs::addFile(contracts, number(u"SELECT MAX(iID) FROM AutomobilContracts"_s), scope, user, scan.fileName());
}

void LookOffice::makeSearchable()
{
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    AutoSearch::enter();
    AutoMessages::enter();
    CrmWindows::enter();
    CrmToday::enter();
    TreasuryToday::enter();
    AutoToday::enter();
    AutoFirstSteps::enter();
    TreasuryWindows::enter();
    BookWindows::enter();
    AutoWindows::enter();
    SearchIndex::build(true);
}

// The longest that an office meets.
void LookOffice::fillLong()
{
    m_database.run(u"UPDATE Persons SET sName='سید محمدحسین', sFamily='طباطبایی‌نژاد اصفهانی رودباری', sName2='سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری', sFatherName='عبدالرحمن' "
                   "WHERE iID IN (SELECT iPersonFirstID FROM AutomobilContracts WHERE iID%3=2)"_s);
    m_database.run(u"UPDATE AutomobilContracts SET sName1='سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری', dAmount=987654321000, "
                   "dCommission=987654321, dTax=987654321, dTax2=987654321, dImposition=987654321, dImposition2=987654321, "
                   "dDiscountFirst=987654321, dDiscountSecond=987654321, dPayFirst=1987654321, dPaySecond=1987654321, "
                   "dPercentDiscount=99.99, dPercentDiscount2=99.99 WHERE iID%3=2"_s);
}

// Of the last contract: one that is overdue, one with the bank, one that came back.
void LookOffice::fillCheques()
{
    ContractReceiptOwner::enter();
    OfficeSubjects::enter();
    CrmSubjects::enter();
    TreasurySubjects::enter();
    AutoSubjects::enter();
    CarRecordParts::enter();
    PersonParts::enter();
    RecordHistory::setWindow(&CDlgHistory::Show);
    const int contract = number(u"SELECT MAX(iID) FROM AutomobilContracts"_s);
    const int buyer = number(u"SELECT MAX(iID) FROM Persons"_s);
    const QDateTime today = GetDBSetting()->GetDBServerDate();
    const auto receive = [&](const QString &sayad, const QString &bank, int days) {
        const ReceiptPosting::Part part{987'654'321,
                                        u"چک بابت بهای خودرو"_s,
                                        {.recordKind = CTblAutomobilContracts::recordKind, .recordID = contract, .what = ReceiptPurpose::Price, .side = 2, .text = u"بهای خودرو قرارداد 15، خریدار"_s}};
        return ReceiptPosting::save({.personID = buyer,
                                     .date = today.addDays(-40),
                                     .method = CTblReceipts::cheque,
                                     .cheque = Cheque{sayad, u"102030"_s, bank, u"شعبه مرکزی اصفهان"_s, u"65432"_s, today.addDays(days), u"سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری"_s},
                                     .parts = {part}})
            .constFirst()
            .chequeID;
    };
    const auto bring = [&](int cheque, ChequeState state, int days) {
        ChequeChanging::change({.seen = ChequeChanging::seen(cheque), .to = state, .date = today.addDays(days), .account = Accounts::bank});
    };
    receive(u"6102345678901236"_s, u"کشاورزی"_s, -10);
    bring(receive(u"6102345678901237"_s, u"ملی"_s, 20), ChequeState::Deposited, -30);
    const int bounced = receive(u"6102345678901238"_s, u"قرض‌الحسنه مهر ایران"_s, -5);
    bring(bounced, ChequeState::Deposited, -20);
    bring(bounced, ChequeState::Bounced, -4);
    ChequeChanging::undoLast(ChequeChanging::seen(bounced), u"برگشت در سامانه بانک ثبت نشده بود"_s);
    bring(bounced, ChequeState::Bounced, -3);
}

QAction *LookOffice::entry(const QString &text) const
{
    for (QAction *candidate : m_window->findChildren<QAction *>()) {
        if (candidate->iconText() == text && !candidate->menu())
            return candidate;
    }
    return nullptr;
}

KListPage *LookOffice::list(const QString &text) const
{
    QAction *opens = entry(text);
    if (!opens)
        return nullptr;
    opens->trigger();
    QCoreApplication::processEvents();
    auto *page = qobject_cast<KListPage *>(m_window->workArea()->currentPage());
    if (page)
        page->list()->selectRow(0);
    return page;
}

void LookOffice::clear() const
{
    m_window->workArea()->closeAll();
}
