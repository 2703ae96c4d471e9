// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/WindowTable.h"

#include "auto/cars/prices/CDlgPriceHistory.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/register/gallery/CarGallery.h"
#include "auto/cars/register/gallery/CarThumbnails.h"
#include "auto/cars/web/CDlgWebGallery.h"
#include "auto/cars/web/PublicCars.h"
#include "auto/catalog/CDlgAddCar.h"
#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/parameters/CDlgAddInputParameter.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "auto/contracts/cars/CDlgCarContracts.h"
#include "auto/contracts/cheques/CDlgContractCheques.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/CDlgPlanChoice.h"
#include "auto/contracts/printing/ContractPrinting.h"
#include "auto/contracts/printing/ContractTemplates.h"
#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/contracts/templates/CDlgContractTemplates.h"
#include "auto/contracts/whatif/CDlgDealWhatIf.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/reports/charts/CDlgCharts.h"
#include "auto/reports/season/CDlgPaymentAmount.h"
#include "host/keeping/BackupKeeper.h"
#include "host/keeping/CDlgBackupPassphrase.h"
#include "host/recovery/CDlgBackups.h"
#include "host/recovery/CDlgBackupUnlock.h"
#include "host/keeping/CDlgClosingBackup.h"
#include "host/administration/CDlgOfficeLogo.h"
#include "host/administration/CDlgUserRights.h"
#include "host/backup/BackupFiles.h"
#include "host/books/CDlgAddAccount.h"
#include "host/books/CDlgAddDocument.h"
#include "host/frame/HostOptions.h"
#include "host/manual/CDlgManual.h"
#include "host/tour/Tour.h"
#include "host/recovery/CDlgDamage.h"
#include "host/start/CDlgFirstStart.h"
#include "host/start/CDlgLogin.h"
#include "host/start/CDlgServerPassword.h"
#include "suite/accounting/attachments/CDlgCustomFieldDefinitions.h"
#include "suite/accounting/attachments/CDlgRecordFiles.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/treasury/cheques/CDlgChequeChange.h"
#include "suite/treasury/cheques/CDlgChequeHistory.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/accounting/lists/CDlgSavedFilters.h"
#include "suite/accounting/imported/CDlgImportedFiles.h"
#include "suite/accounting/importing/CDlgImport.h"
#include "suite/accounting/importing/ImportMapping.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/accounting/lists/CDlgSaveFilter.h"
#include "suite/accounting/lists/CDlgListColumns.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/recovery/CDlgBinEntry.h"
#include "suite/accounting/recovery/CDlgRecordDifferences.h"
#include "suite/accounting/recovery/CDlgRestoreRecords.h"
#include "suite/accounting/reports/CDlgReportLayout.h"
#include "suite/accounting/timeline/CDlgStory.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/crm/messages/CDlgAddMessageText.h"
#include "suite/crm/messages/CDlgMessageToPerson.h"
#include "suite/crm/messages/CTblMessageTexts.h"
#include "suite/crm/persons/CDlgAddCompanyProps.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/reminders/CDlgDueAlarms.h"
#include "suite/image/Thumbnails.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/image/CDlgCameraFolder.h"
#include "suite/image/CDlgPictureViewer.h"
#include "suite/treasury/cashbox/CDlgCashDay.h"
#include "suite/treasury/cheques/CDlgDueCheques.h"
#include "suite/treasury/followups/CDlgFollowUp.h"
#include "suite/treasury/followups/CDlgNote.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/accounting/invoices/InvoiceSheet.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/crm/importing/PersonImport.h"
#include "suite/crm/letters/CDlgEarlierLetters.h"
#include "suite/crm/letters/CDlgLetter.h"
#include "suite/crm/letters/LetterSheet.h"
#include "suite/crm/persons/PersonAddress.h"
#include "suite/treasury/receiving/ReceiptSheet.h"
#include "suite/treasury/receipts/CDlgShowReceipt.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/sheets/CsvText.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/look/LookOffice.h"
#include "tests/look/Showing.h"
#include "tests/support/Hand.h"

#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using namespace Showing;
using WindowTable::Entry;

const QString contracts = u"قرارداد"_s;
const QString demands = u"تقاضا"_s;
const QString cars = u"گالري اتومبيل"_s;
const QString persons = u"اشخاص"_s;
const QString documents = u"اسناد حسابداری"_s;
const QString invoices = u"فاکتورها"_s;
const QString services = u"خدمات"_s;
const QString receipts = u"دریافت‌ها و پرداخت‌ها"_s;
const QString users = u"کاربران و دسترسی‌ها"_s;
const QString reminders = u"یادآوری ها"_s;

// Nothing is entered yet, so that the first field is refused, with its reason beside it.
void refuse(QDialog &dialog)
{
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QVERIFY(!g_pDlgWarning->takeShown().isEmpty());
}

void chooseLegalPerson(QDialog &dialog)
{
    auto *kind = Hand::named<QComboBox>(&dialog, u"نوع شخص :"_s);
    QVERIFY(kind);
    kind->setCurrentIndex(kind->count() - 1);
}

Show rowConflict()
{
    return modal([] {
        CTblItems record;
        const QString sentence = u"تحویل خودرو پس از انتقال سند و تسویه کامل مبلغ قرارداد انجام خواهد شد. "_s;
        const QList<RowConflict> conflicts{{u"sName"_s, u"سفید"_s, u"سفید صدفی"_s, u"مشکی"_s},
                                           {u"iType"_s, 808, 809, 810},
                                           {u"sName"_s, QString(), sentence.repeated(3), sentence}};
        CDlgRowConflict::ask(RowChanged(RowChanged::Kind::Conflict, record, conflicts), record, {}, {}, nullptr);
    });
}

// Each step's card, and the window with the ring around what the first and the sixth speak of.
Show tour(LookOffice &office)
{
    return [&office](const Look &look) {
        office.clear();
        Tour tour(office.window());
        tour.start();
        for (int step = 1; step <= tour.count(); ++step) {
            if (step == 1)
                QTRY_VERIFY(tour.place().isControl());
            settle(*tour.card());
            look(*tour.card(), u"step%1"_s.arg(step));
            if (step == 1 || step == 6)
                look(office.window(), u"place%1"_s.arg(step));
            QVERIFY(QMetaObject::invokeMethod(tour.card(), "next"));
        }
        tour.end();
        office.clear();
    };
}

// Received by a cheque, of the person with the long name, and made void again; the key.
int voidReceipt(LookOffice &office)
{
    const QDateTime today = GetDBSetting()->GetDBServerDate();
    const Cheque cheque{.sayad = u"1234567890123456"_s, .number = u"102030"_s, .bank = u"ملت"_s, .branch = u"میدان ونک"_s, .branchCode = u"65432"_s, .due = today.addDays(40)};
    const int person = office.number(u"SELECT iPersonFirstID FROM AutomobilContracts WHERE iID%3=2 ORDER BY iID LIMIT 1"_s);
    const QString text = u"تحویل خودرو پس از انتقال سند و تسویه کامل مبلغ قرارداد انجام خواهد شد"_s;
    const int key = ReceiptPosting::save({.personID = person, .date = today, .method = CTblReceipts::cheque, .cheque = cheque, .parts = {{987654321000, text}}})
                        .constFirst()
                        .receiptID;
    ReceiptPosting::makeVoid(key, u"مبلغ چک اشتباه وارد شده بود"_s);
    return key;
}

void story(const QString &table, int key)
{
    KDialogHolder holder(new CDlgStory(table, key), nullptr, QString(), u"بازگشت"_s);
    holder.resize(1366, 720);
    holder.exec();
}

ListReport reportOf(LookOffice &office)
{
    ListReport report(u"Look"_s, u"Contracts"_s);
    report.setTable(u"Table"_s, office.list(contracts)->list());
    report.buildStandard(u"لیست قراردادها"_s);
    return report;
}

// The entries are built one after the other, so that a table of them stays one row for each window.
void addPages(LookOffice &office, std::vector<Entry> &entries)
{
    entries.push_back({"start", startPage(office)});
    entries.push_back({"search", search(office, u"احمدی"_s)});
    entries.push_back({"search-car", search(office, office.text(u"SELECT sNumOfPlates FROM AutomobilInformations WHERE sNumOfPlates<>'' ORDER BY iID DESC LIMIT 1"_s), 1)});
    entries.push_back({"search-nothing", search(office, u"زززز"_s)});
    entries.push_back({"menu", menus(office)});
    entries.push_back({"contracts", page(office, contracts)});
    entries.push_back({"contracts-none", page(office, contracts, [](KListPage &list) {
                           list.filters().set(u"description", u"گمشده"_s);
                           list.refill();
                       })});
    entries.push_back({"overdue", page(office, u"اقساط و سررسیدها"_s)});
    entries.push_back({"demands", page(office, demands)});
    entries.push_back({"cars", page(office, cars)});
    entries.push_back({"cars-gallery", page(office, cars, [](KListPage &list) {
                           Thumbnails::build(CarThumbnails::source());
                           static_cast<CDlgAutomobilInformations &>(list).gallery()->showCards(true);
                       })});
    entries.push_back({"persons", page(office, persons)});
    entries.push_back({"documents", page(office, documents)});
    entries.push_back({"invoices", page(office, invoices)});
    entries.push_back({"services", page(office, services)});
    entries.push_back({"message-texts", page(office, u"متن پیام‌ها"_s)});
    entries.push_back({"accounts", page(office, u"سرفصل حساب‌ها"_s)});
    entries.push_back({"cash-accounts", page(office, u"صندوق و بانک"_s)});
    entries.push_back({"receipts", page(office, receipts, [](KListPage &list) {
                           list.filters().set(u"voided", true);
                           list.refill();
                       })});
    entries.push_back({"users", page(office, users)});
    entries.push_back({"reminders", page(office, reminders)});
    entries.push_back({"history", page(office, u"تاریخچه"_s)});
    entries.push_back({"history-of-contract", modal([&office] {
                           CTblAutomobilContracts contract;
                           CDlgHistory::Show(contract.GetTableName(), office.number(u"SELECT MAX(iID) FROM AutomobilContracts"_s), nullptr);
                       })});
}

// Money of both sides, one receipt of it void.
void receiveFor(int contractID)
{
    ContractReceiptOwner::enter();
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, contractID));
    for (const int side : {1, 2, 2}) {
        const int person = side == 1 ? contract.m_iPersonFirstID : contract.m_iPersonSecondID;
        ReceiptPosting::save({.personID = person,
                              .date = GetDBSetting()->GetDBServerDate(),
                              .account = 110101,
                              .parts = {{2'818'800.0, ContractReceipts::commissionText(contract.number()), ContractReceipts::commission(contract, side)}}});
    }
    const QList<ContractReceipts::Entry> entries = ContractReceipts::list(contract);
    ContractReceipts::makeVoid(contractID, entries.constLast(), u"دوبار ثبت شده بود"_s);
}

// Further columns, rows that hold a word, some of them marked, and what was asked besides the filter.
Show narrowed(LookOffice &office)
{
    const QStringList further{u"code"_s, u"amount"_s, u"commission"_s, u"plate"_s};
    const auto set = [further](KListPage &list) {
        for (const QString &column : further)
            list.list()->setColumnShown(column, true);
        list.setRequest({.condition = "dAmount>0", .conditionText = u"قراردادهای تسویه‌نشده بیش از 30 روز"_s});
        list.bar()->quickFilter()->setText(u"تویوتا"_s);
        list.list()->selectRow(0);
        QTest::keyClick(list.list(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(list.list(), Qt::Key_Down, Qt::ShiftModifier);
    };
    const Show shown = page(office, contracts, set);
    return [&office, further, shown](const Look &look) {
        shown(look);
        office.list(contracts)->list()->resetColumns();
        office.clear();
    };
}

// The list with the columns that are off at first, and are off again afterwards.
Show withReceived(LookOffice &office)
{
    const auto set = [](KListPage &list, bool shown) {
        for (const QString &column : {u"receivedSeller"_s, u"receivedBuyer"_s})
            list.list()->setColumnShown(column, shown);
    };
    const Show shown = page(office, contracts, [set](KListPage &list) { set(list, true); });
    return [&office, set, shown](const Look &look) {
        shown(look);
        set(*office.list(contracts), false);
        office.clear();
    };
}

// One of the office's own, put into use, out of it and back.
void useTemplates()
{
    QFile form(QDir(ContractPrinting::defaultTemplateFolder()).filePath(ContractPrinting::templateName(0)));
    if (ContractTemplates::keyInUse(0) > 0 || !form.open(QIODevice::ReadOnly))
        return;
    const QByteArray file = form.readAll();
    const qint32 first = ContractTemplates::use(0, u"مبایعه‌نامه نمایشگاه با بندهای ویژه خودروهای وارداتی.docx"_s, file, u"از فایل"_s, 0);
    ContractTemplates::useSupplied(0, first);
    ContractTemplates::goBack(0, first, 0);
}

void addContracts(LookOffice &office, std::vector<Entry> &entries)
{
    const int contract = office.number(u"SELECT MAX(iID) FROM AutomobilContracts"_s);
    const int person = office.number(u"SELECT iPersonSecondID FROM AutomobilContracts WHERE iID=%1"_s.arg(contract));
    entries.push_back({"contract-new", contractTypes(office, contracts)});
    entries.push_back({"contract-refused", command(office, contracts, u"new"_s, &refuse)});
    entries.push_back({"contract-edit", command(office, contracts, u"edit"_s)});
    entries.push_back({"contract-show", command(office, contracts, u"show"_s)});
    entries.push_back({"contract-settings", command(office, contracts, u"settings"_s)});
    entries.push_back({"contract-templates", modal([] {
                           useTemplates();
                           CDlgContractTemplates().exec();
                       })});
    entries.push_back({"contract-instalments", window<CDlgCalcPayment>(contract, person, 123'456'789.0)});
    const CTblFollowUps::Subject call{CTblAutomobilContracts::recordKind, contract, 0, u"AutomobilPayments"_s};
    entries.push_back({"follow-up", window<CDlgFollowUp>(call, u"مریم کریمی     09121234567     قسط شماره 3 قرارداد 12     سررسید 1405/04/02     مانده 45,000,000"_s)});
    const CTblFollowUps::Subject note{CTblAutomobilContracts::recordKind, contract, 0, u"AutomobilContracts"_s};
    entries.push_back({"note", window<CDlgNote>(note, u"قرارداد 12، پژو 206"_s)});
    entries.push_back({"charts", modal([] { CDlgCharts().exec(); })});
    entries.push_back({"charts-demands", modal([] {
                           CDlgCharts charts;
                           charts.choose(CDlgCharts::Kind::DemandAndStock);
                           charts.exec();
                       })});
    entries.push_back({"story-of-car", modal([&office] { story(u"AutomobilInformations"_s, office.number(u"SELECT iRecordID FROM FollowUps WHERE iTable=68 ORDER BY iID LIMIT 1"_s)); })});
    entries.push_back({"story-of-person", modal([&office] { story(u"Persons"_s, office.number(u"SELECT iPersonSecondID FROM AutomobilContracts ORDER BY iID DESC LIMIT 1"_s)); })});
    const int planned = office.number(u"SELECT iAutomobilContractID FROM AutomobilPayments GROUP BY iAutomobilContractID ORDER BY MAX(iStatus) DESC,MAX(iID) DESC LIMIT 1"_s);
    entries.push_back({"contract-plan", window<CDlgCalcPayment>(planned, person, 0.0)});
    entries.push_back({"contract-plan-choice",
                       window<CDlgPlanChoice>(PlanFollowing::Facts{{true, 1'800'000'000, 2}, {1'200'000'000, 1, false, true, true}, {}})});
    entries.push_back({"contract-receipts", modal([contract] {
                           receiveFor(contract);
                           CDlgContractReceipts(contract).exec();
                       })});
    entries.push_back({"contracts-received", withReceived(office)});
    entries.push_back({"deal-what-if", window<CDlgDealWhatIf>(CDlgDealWhatIf::Facts{u"پژو 207 12 ب 345 ایران 67"_s, 12'500'000'000.0, 11'800'000'000.0, 45'000'000.0, 9'000'000.0})});
    entries.push_back({"contracts-narrowed", narrowed(office)});
    entries.push_back({"list-columns", modal([&office] { CDlgListColumns::Show(office.list(contracts)->list(), nullptr); })});
    entries.push_back({"filter-save", window<CDlgSaveFilter>(u"AutomobilContracts"_s, u"AutomobilContracts"_s, CTblSavedFilters::Entry{.filter = u"{}"_s})});
    entries.push_back({"filters-saved", window<CDlgSavedFilters>(u"AutomobilContracts"_s, u"AutomobilContracts"_s)});
    entries.push_back({"receipt", window<CDlgCashFromPerson>(person, 2'818'800.0, u"بابت تسویه قرارداد شماره 15"_s)});
    entries.push_back({"receipt-cheque", window<CDlgCashFromPerson>(CDlgCashFromPerson::Start{.method = CTblReceipts::cheque})});
    const ReceiptDetails voided = ReceiptDetails::read(voidReceipt(office)).value_or(ReceiptDetails());
    entries.push_back({"receipt-show", window<CDlgShowReceipt>(voided)});
    const InvoiceSheet::Source invoice{.invoice = {.num = 7, .date = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC), .lines = {{0, u"کارشناسی خودرو"_s, 2, 400000}, {0, u"انتقال سند"_s, 1, 2500000}}, .discount = 100000, .tax = 320000}, .person = u"مریم احمدی"_s, .nationalCode = u"0012345679"_s, .docNum = 45, .user = u"مدیر"_s, .moneyUnit = u"ریال"_s};
    entries.push_back({"letter", modal([] {
                           CDlgLetter letter({1, 2, 3, 4, 5}, &PersonAddress::read);
                           letter.takeWords({QDate::currentDate(), {}, u"تحویل خودرو و انتقال سند"_s, u"احتراماً به آگاهی می‌رساند خودروی مورد قرارداد آماده تحویل است.\nخواهشمند است تا پایان هفته با در دست داشتن اصل شناسنامه و کارت ملی به نمایشگاه مراجعه فرمایید."_s});
                           letter.exec();
                       })});
    const Letter earlier{QDate::currentDate(), u"1405/11"_s, u"یادآوری سررسید بیمه"_s, u"متن"_s};
    entries.push_back({"letter-earlier", window<CDlgEarlierLetters>(QList<LetterFiling::Filed>{{1, u"علی رضایی"_s, earlier}, {2, u"شرکت آریا"_s, earlier}})});
    entries.push_back({"record-files", window<CDlgRecordFiles>(int(RecordKind::Person), 1, false)});
    entries.push_back({"paper-letter", modal([earlier] {
                           CDlgPaper paper({LetterSheet::of(earlier, {1, u"علی رضایی"_s, LetterRecipient::Address::Man}, u"نمایشگاه آریا"_s)});
                           paper.offerFiling([](qsizetype, const QByteArray &) {}, u"%1"_s);
                           paper.exec();
                       })});
    entries.push_back({"paper-invoice", window<CDlgPaper>(QList<PaperSheet>{InvoiceSheet::of(invoice)})});
    entries.push_back({"paper", window<CDlgPaper>(QList<PaperSheet>{ReceiptSheet::of(voided, {}, u"ریال"_s), ReceiptSheet::of(voided, {}, u"ریال"_s)})});
    entries.push_back({"receipt-void", modal([] {
                           const QString text = u"دریافت شماره 137 به مبلغ 987,654,321,000 ریال (سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری) باطل می‌شود."_s;
                           CDlgVoiding::run(
                               u"ابطال دریافت"_s, text, [](const QString &) {}, nullptr);
                       })});
    entries.push_back({"clauses", window<CDlgMultiItems>(int(CTblItems::typeClause), u"توضیحات"_s)});
    entries.push_back({"custom-fields", window<CDlgCustomFieldDefinitions>(int(CTblAutomobilContracts::recordKind))});
    entries.push_back({"comprehensive-report", command(office, contracts, u"fullReport"_s)});
    entries.push_back({"report-preview", command(office, contracts, u"print"_s)});
    entries.push_back({"report-layout", modal([&office] { CDlgReportLayout(reportOf(office)).exec(); })});
    entries.push_back({"month", month(office, contracts, u"new"_s, u"تاريخ عقد :"_s)});
    entries.push_back({"seasons", menuEntry(office, u"گزارش فصلي"_s)});
    entries.push_back({"payable", window<CDlgPaymentAmount>(2, quint16(1405))});
}

// A kind of message with a text of the office's own.
void addMessageText()
{
    CTblMessageTexts text;
    text.AddNew();
    text.m_sKind = u"instalment"_s;
    text.m_sName = u"یادآوری دوستانه برای مشتریان همیشگی نمایشگاه"_s;
    text.m_sText = u"{نام}، قسط {شماره قسط} به مبلغ {مبلغ} سررسید {تاریخ سررسید} است.\n[{روز دیرکرد} روز دیر شده است.]\n{نمایشگاه}"_s;
    text.Update(true);
}

void addPersonMessages(LookOffice &office, std::vector<Entry> &entries)
{
    addMessageText();
    const int text = office.number(u"SELECT MAX(iID) FROM MessageTexts"_s);
    const int first = office.number(u"SELECT iID FROM AutomobilPayments WHERE iStatus=0 ORDER BY date,iID LIMIT 1"_s);
    const int second = office.number(u"SELECT iID FROM AutomobilPayments WHERE iStatus=0 ORDER BY date DESC,iID DESC LIMIT 1"_s);
    entries.push_back({"message-text-new", window<CDlgAddMessageText>(0)});
    entries.push_back({"message-text", window<CDlgAddMessageText>(text)});
    entries.push_back({"message-to-person", modal([=] { CDlgMessageToPerson::run(u"instalment"_s, {MessageAbout{first}, MessageAbout{second}}, nullptr); })});
    const int contract = office.number(u"SELECT MAX(iID) FROM AutomobilContracts WHERE iPersonFirstID>0"_s);
    entries.push_back({"message-copied", modal([=] { CDlgMessageToPerson::run(u"contract"_s, {MessageAbout{contract}}, nullptr); }, [](QDialog &dialog) { static_cast<CDlgMessageToPerson &>(dialog).copy(); })});
}

CTblAutomobilContracts &lastContract(LookOffice &office, CTblAutomobilContracts &contract)
{
    if (!contract.IsRecordExist(u"iID"_s, office.number(u"SELECT MAX(iID) FROM AutomobilContracts"_s)))
        qFatal("the contract is gone");
    return contract;
}

void addCheques(LookOffice &office, std::vector<Entry> &entries)
{
    const int first = office.number(u"SELECT MIN(iID) FROM Cheques WHERE iKind=0 AND iState=0"_s);
    const int moved = office.number(u"SELECT iChequeID FROM ChequeChanges ORDER BY iID DESC LIMIT 1"_s);
    entries.push_back({"cheques", page(office, u"چک‌ها"_s)});
    entries.push_back({"cheque-change", window<CDlgChequeChange>(first)});
    entries.push_back({"cheque-endorse", modal([=] { CDlgChequeChange(first).exec(); }, [](QDialog &dialog) {
                           auto *state = Hand::named<QComboBox>(&dialog, u"وضعیت جدید :"_s);
                           QVERIFY(state);
                           state->setCurrentIndex(state->count() - 1); })});
    entries.push_back({"cheque-history", window<CDlgChequeHistory>(moved)});
    entries.push_back({"cheque-show", modal([=] { CDlgShowCheque::Show(moved, nullptr); })});
    entries.push_back({"cheques-due", window<CDlgDueCheques>(QDate())});
    entries.push_back({"contract-cheques", modal([&office] {
                           CTblAutomobilContracts contract;
                           CDlgContractCheques(lastContract(office, contract), false).exec();
                       })});
}

// Dearer once, then cheaper.
void repriceCar(int carID)
{
    for (const double factor : {1.05, 0.9}) {
        CTblAutomobilInformations car;
        car.SetColumns({u"dAmount"_s});
        QVERIFY(car.IsRecordExist(u"iID"_s, carID));
        car.Edit();
        car.m_dAmount = std::round(car.m_dAmount * factor / 1'000'000) * 1'000'000;
        car.Update(true);
    }
}

void addCars(LookOffice &office, std::vector<Entry> &entries)
{
    const int tariff = office.number(u"SELECT MIN(iID) FROM AutomobilTariffs"_s);
    entries.push_back({"car-new", command(office, cars, u"new"_s)});
    entries.push_back({"car-edit", command(office, cars, u"edit"_s)});
    entries.push_back({"car-show", command(office, cars, u"show"_s)});
    entries.push_back({"car-demands", command(office, cars, u"matchingDemands"_s)});
    const int linked = office.number(u"SELECT COALESCE(MAX(iCarID),(SELECT MAX(iID) FROM AutomobilInformations)) FROM CarContracts"_s);
    entries.push_back({"car-contracts", window<CDlgCarContracts>(linked, CDlgCarContracts::Purpose::AskForAnother)});
    entries.push_back({"car-contracts-shown", window<CDlgCarContracts>(linked, CDlgCarContracts::Purpose::Show)});
    entries.push_back({"car-prices", modal([linked] {
                           repriceCar(linked);
                           CDlgPriceHistory(linked).exec();
                       })});
    entries.push_back({"car-picker", modal([] { CDlgAutomobilInformations::SelectCar(nullptr); })});
    entries.push_back({"demand-new", command(office, demands, u"new"_s)});
    entries.push_back({"demand-edit", command(office, demands, u"edit"_s)});
    entries.push_back({"demand-show", command(office, demands, u"show"_s)});
    entries.push_back({"demand-cars", command(office, demands, u"matchingCars"_s)});
    entries.push_back({"catalog", command(office, cars, u"catalog"_s)});
    entries.push_back({"catalog-picker", modal([] {
                           int brand = 0;
                           int model = 0;
                           int carClass = 0;
                           static_cast<void>(CDlgCarsAll::Pick(nullptr, brand, model, carClass));
                       })});
    entries.push_back({"catalog-entry", window<CDlgAddCar>(u"نوع"_s)});
    entries.push_back({"parameters", command(office, cars, u"inputParameters"_s)});
    entries.push_back({"parameter-picker", modal([] { static_cast<void>(CDlgInputParameters::Select(nullptr, 0)); })});
    entries.push_back({"parameter", window<CDlgAddInputParameter>(0, int(CTblItems::typeColor), QString(), u"رنگ"_s)});
    entries.push_back({"tariffs", modal([] { CDlgAutomobilTariffs::Open(nullptr); })});
    entries.push_back({"tariff-picker", modal([] { static_cast<void>(CDlgAutomobilTariffs::Select(nullptr)); })});
    entries.push_back({"tariff-new", window<CDlgAddAutomobilTariff>(0, false, false)});
    entries.push_back({"tariff-edit", window<CDlgAddAutomobilTariff>(tariff, true, false)});
    entries.push_back({"tariff-show", window<CDlgAddAutomobilTariff>(tariff, false, true)});
    entries.push_back({"picture", modal([&office] {
                           CDlgPictureViewer::Show(CTblAutomobilInformations::recordKind, office.number(u"SELECT iRecordID FROM Pictures ORDER BY iID LIMIT 1"_s), nullptr);
                       })});
    entries.push_back({"camera-folder", modal([&office] {
                           const QTemporaryDir camera;
                           const int car = office.number(u"SELECT iRecordID FROM Pictures ORDER BY iID LIMIT 1"_s);
                           for (const auto &picture : RecordPictures::all(CTblAutomobilInformations::recordKind, car)) {
                               QFile file(camera.filePath(u"IMG_20261%1.jpg"_s.arg(picture.id)));
                               QVERIFY(file.open(QIODevice::WriteOnly));
                               file.write(RecordPictures::bytes(CTblAutomobilInformations::recordKind, car, picture.id));
                           }
                           CDlgCameraFolder dialog;
                           dialog.setFolder(camera.path());
                           dialog.exec();
                       })});
}

// Of two ticked cars; written: into a folder that is there while the window is.
Show webGallery(LookOffice &office, bool written)
{
    const int car = office.number(u"SELECT MAX(iID) FROM AutomobilInformations WHERE bSold=0 AND iArchiveUserID=0 AND iStatus=0"_s);
    const int other = office.number(u"SELECT MIN(iID) FROM AutomobilInformations WHERE bSold=0 AND iArchiveUserID=0 AND iStatus=0"_s);
    return modal([car, other, written] {
        const QTemporaryDir folder;
        PublicCars::set({car, other}, true);
        CDlgWebGallery dialog;
        dialog.setFolder(folder.filePath(u"web"_s));
        if (written)
            dialog.accept();
        dialog.exec();
    });
}

// A file of persons, one of them with a wrong number and one who is there already, as far as that step.
Show importing(CDlgImport::Step step)
{
    return modal([step] {
        const QTemporaryDir folder;
        QFile file(folder.filePath(u"مشتریان نمایشگاه.csv"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(u"کد شخص,نام,نام خانوادگی,کد ملی,موبایل,معرف\n,علی,رضایی,0499370899,09121110000,دوست\n,زهرا,احمدی شهرستانی,0499370898,0912,\n1,مریم,کریمی,,,\n"_s.toUtf8());
        file.close();
        CDlgImport dialog(u"persons"_s);
        QVERIFY(dialog.openFile(file.fileName()));
        while (dialog.step() != step)
            dialog.OnOK();
        dialog.exec();
    });
}

// Two files came in; of the last one somebody has changed a person since.
Show importedFiles()
{
    return modal([] {
        const PersonImport kind;
        const auto import = [&kind](const QString &name, const QByteArray &text) {
            const Sheet sheet = CsvText::read(text);
            const QList<ImportRow> rows = ImportMapping::rows(sheet, 0, kind.fields(), ImportMapping::matched(kind.fields(), ImportMapping::titlesIn(sheet, 0)));
            const Importing::File file{name, name};
            Importing::write(kind, file, rows, Importing::check(kind, file, rows));
        };
        import(u"مشتریان تابستان.xlsx"_s, u"نام,نام خانوادگی\nپرویز,نیک‌پور\n"_s.toUtf8());
        import(u"مشتریان پاییز.xlsx"_s, u"نام,نام خانوادگی\nسیاوش,مهرآذر\nمینا,فرهمند\nکاوه,آهنگری\n"_s.toUtf8());
        CTblPersons person;
        person.m_sort = "iID DESC";
        person.SetLimit(1);
        person.Open(true, true, true);
        RowEdit edit(person, person.m_iID);
        edit.remember([] {});
        edit.save([&] { person.m_sTel = u"02188776655"_s; });
        CDlgImportedFiles dialog(kind);
        dialog.exec();
    });
}

void addPersonsAndBooks(LookOffice &office, std::vector<Entry> &entries)
{
    const int document = office.number(u"SELECT MAX(iNum) FROM Documents"_s);
    const int year = office.number(u"SELECT MAX(iFiscalYear) FROM Documents WHERE iNum=%1"_s.arg(document));
    const int account = office.number(u"SELECT MIN(iCode) FROM HesabKol"_s);
    const int payer = office.number(u"SELECT iPersonID FROM Docs WHERE iPersonID>0 GROUP BY iPersonID ORDER BY COUNT(*) DESC LIMIT 1"_s);
    const QDateTime from(ConvertToMiladi(1403, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime to(ConvertToMiladi(1405, 12, 29), QTime(0, 0), Qt::UTC);
    entries.push_back({"person-new", command(office, persons, u"new"_s)});
    entries.push_back({"person-legal", command(office, persons, u"new"_s, &chooseLegalPerson)});
    entries.push_back({"person-refused", command(office, persons, u"new"_s, &refuse)});
    entries.push_back({"person-edit", command(office, persons, u"edit"_s)});
    entries.push_back({"person-show", command(office, persons, u"show"_s)});
    entries.push_back({"person-picker", modal([] { static_cast<void>(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0)); })});
    entries.push_back({"web-gallery", webGallery(office, false)});
    entries.push_back({"web-gallery-written", webGallery(office, true)});
    entries.push_back({"import-file", importing(CDlgImport::File)});
    entries.push_back({"import-columns", importing(CDlgImport::Columns)});
    entries.push_back({"import-check", importing(CDlgImport::Check)});
    entries.push_back({"import-earlier", importedFiles()});
    entries.push_back({"company", window<CDlgAddCompanyProps>()});
    entries.push_back({"office-logo", window<CDlgOfficeLogo>()});
    entries.push_back({"document-new", command(office, documents, u"new"_s)});
    entries.push_back({"document-edit", modal([=] { CDlgAddDocument(ManualDocument::load(document, year)).exec(); })});
    entries.push_back({"document-show", window<CDlgShowDocument>(document, year)});
    entries.push_back({"invoice-sale", command(office, invoices, u"newSale"_s)});
    entries.push_back({"invoice-purchase", command(office, invoices, u"newPurchase"_s)});
    entries.push_back({"invoice-edit", command(office, invoices, u"edit"_s)});
    entries.push_back({"invoice-show", command(office, invoices, u"show"_s)});
    entries.push_back({"service-new", command(office, services, u"new"_s)});
    entries.push_back({"service-edit", command(office, services, u"edit"_s)});
    entries.push_back({"account-new", window<CDlgAddAccount>(AccountLevel::Kol, 0)});
    entries.push_back({"account-below", window<CDlgAddAccount>(AccountLevel::Moeen, account)});
    entries.push_back({"account-rename", window<CDlgAddAccount>(account)});
    entries.push_back({"account-documents", window<CDlgAccountDocs>(AccountLevel::Kol, account, from, to)});
    entries.push_back({"person-statement", window<CDlgAccountDocs>(AccountLedger::Scope::person(payer), from, to)});
    entries.push_back({"cash-day", window<CDlgCashDay>(int(Accounts::cash), QDate::currentDate())});
}

void addAdministration(LookOffice &office, std::vector<Entry> &entries)
{
    const int user = office.number(u"SELECT MAX(iID) FROM Users"_s);
    HostOptions options;
    options.host = u"server.office.lan"_s;
    options.database = u"showroom"_s;
    options.user = u"tzauto"_s;
    entries.push_back({"user-new", command(office, users, u"new"_s)});
    entries.push_back({"user-edit", command(office, users, u"edit"_s)});
    entries.push_back({"rights-administrator", command(office, users, u"rights"_s)});
    entries.push_back({"rights", window<CDlgUserRights>(user)});
    entries.push_back({"settings", menuEntry(office, u"تنظیمات"_s)});
    entries.push_back({"backup-passphrase", window<CDlgBackupPassphrase>(office.folder())});
    entries.push_back({"password", menuEntry(office, u"تغییر کلمه عبور"_s)});
    entries.push_back({"keys", menuEntry(office, u"کلیدها"_s)});
    entries.push_back({"manual", modal([] {
                           CDlgManual manual;
                           manual.showPage(u"main-window"_s);
                           manual.exec();
                       })});
    entries.push_back({"tour", tour(office)});
    entries.push_back({"about", menuEntry(office, u"درباره برنامه"_s)});
    entries.push_back({"reminder-new", command(office, reminders, u"new"_s)});
    entries.push_back({"reminder-edit", command(office, reminders, u"edit"_s)});
    entries.push_back({"reminder-postponed", commandMenu(office, reminders, u"postpone"_s)});
    entries.push_back({"reminders-due", modal([] { CDlgDueAlarms(CTblAlarm::dueAtLogin(GetDBSetting()->GetUserID()), nullptr).exec(); })});
    entries.push_back({"login", window<CDlgLogin>(u"نمایشگاه اتومبیل آریا"_s)});
    entries.push_back({"first-start", window<CDlgFirstStart>()});
    entries.push_back({"server-password", window<CDlgServerPassword>(options)});
}

// With a document, a plan and a file.
Bin::Entry deletedContract(LookOffice &office)
{
    const int like = office.number(u"SELECT MAX(iID) FROM AutomobilContracts WHERE iPersonFirstID>0"_s);
    CTblAutomobilContracts model;
    model.IsRecordExist(u"iID"_s, like);
    CTblAutomobilContracts contract;
    contract.AddNew();
    contract.setRowValues(model.rowValues());
    contract.m_iCode = CTblAutomobilContracts::nextCode();
    contract.m_iDocNum = 0;
    contract.Update(true);
    const int key = contract.m_iID;
    KConnection::forThread().run(KSql::formatted("INSERT INTO AutomobilPayments(iAutomobilContractID,iNum,date,dAmount) VALUES(%1,1,NOW(),987654321000),(%1,2,NOW(),1250000)", key));
    KConnection::forThread().run(KSql::formatted("INSERT INTO FileDocs(iTable,iRecordID,sName,oData,dateCreate) VALUES(69,%1,'قرارداد امضا شده.pdf',REPEAT('a',90000),NOW())", key));
    CTblAutomobilContracts asked;
    asked.IsRecordExist(u"iID"_s, key);
    ContractDeleting::run(asked);
    return Bin::entryOf(u"AutomobilContracts"_s, key).value_or(Bin::Entry());
}

void addBin(LookOffice &office, std::vector<Entry> &entries)
{
    const Bin::Entry entry = deletedContract(office);
    KConnection::forThread().run(KSql::formatted("UPDATE Bin SET date=date-INTERVAL 86 DAY WHERE iID=%1", entry.id));
    deletedContract(office);
    entries.push_back({"bin", page(office, u"سطل بازیافت"_s)});
    entries.push_back({"bin-entry", window<CDlgBinEntry>(entry)});
    entries.push_back({"restore-records", window<CDlgRestoreRecords>(0)});
    const QList<BackupRecords::Difference> differences{{u"مبلغ"_s, u"987,654,321,000"_s, u"1,250,000,000"_s}, {u"نام طرف اول"_s, u"سید محمدحسین طباطبایی‌نژاد اصفهانی رودباری"_s, {}}, {u"به همراه"_s, u"سند، 12 قسط، 3 پرونده"_s, u"سند"_s}};
    entries.push_back({"record-differences", window<CDlgRecordDifferences>(u"قرارداد 102"_s, differences)});
}

// A backup of that many days ago, of which only what is listed is there.
BackupFile backup(const LookOffice &office, int daysAgo, BackupManifest::Reason reason, BackupManifest::Verification::State state, bool encrypted = false)
{
    const QDateTime taken(QDate(2026, 11, 22).addDays(-daysAgo), QTime(14, 20), Qt::UTC);
    const auto format = encrypted ? BackupFile::Format::Encrypted : BackupFile::Format::Compressed;
    for (const QString &database : {KConnection::settings(0).database, u"tzauto"_s}) {
        QFile file(BackupFiles::freePath(office.folder().backupsPath(), database, format, taken));
        if (!file.open(QIODevice::WriteOnly))
            return {};
        file.write(QByteArray(734003, 'x'));
        file.close();
        BackupManifest manifest{.database = database, .takenUtc = taken, .taken = taken, .reason = reason, .program = u"1.0.0"_s};
        manifest.size = 734003;
        manifest.encrypted = encrypted;
        if (state != BackupManifest::Verification::State::None)
            manifest.verification = {state, taken.addSecs(180), u"جدول «اشخاص» کم است."_s};
        BackupFile(file.fileName()).setManifest(manifest);
    }
    return BackupFiles::in(office.folder().backupsPath(), u"tzauto"_s).constFirst();
}

void addBackups(LookOffice &office, std::vector<Entry> &entries)
{
    using Reason = BackupManifest::Reason;
    using State = BackupManifest::Verification::State;
    QDir().mkpath(office.folder().backupsPath());
    const QString what = u"جدول «اشخاص» (پرونده «/home/sara/TzAuto/database/tzauto/Persons.ibd») آسیب دیده یا گم شده است."_s;
    entries.push_back({"backups-none", window<CDlgBackups>(DataFolder(office.folder().path() + u"/empty"_s), nullptr)});
    backup(office, 9, Reason::BeforeUpgrade, State::Passed);
    backup(office, 2, Reason::Interval, State::Failed);
    backup(office, 1, Reason::ByHand, State::Passed, true);
    const BackupFile newest = backup(office, 0, Reason::Closing, State::None);
    entries.push_back({"backups", window<CDlgBackups>(office.folder(), nullptr)});
    entries.push_back({"backup-unlock", window<CDlgBackupUnlock>(newest)});
    entries.push_back({"backup-closing", modal([&office] {
                           BackupKeeper keeper(office.folder(), true);
                           CDlgClosingBackup(keeper).exec();
                       })});
    entries.push_back({"damage", window<CDlgDamage>(office.folder(), what)});
}

void addMessages(std::vector<Entry> &entries)
{
    const QString question = u"آنچه وارد کرده‌اید ذخیره نشده است. پنجره بدون ذخیره بسته شود؟"_s;
    entries.push_back({"splash", splash(false)});
    entries.push_back({"splash-give-up", splash(true)});
    entries.push_back({"wait", waitNotice()});
    entries.push_back({"progress", progress()});
    entries.push_back({"conflict", rowConflict()});
    entries.push_back({"warning", messageBox(*g_pDlgWarning, [] { g_pDlgWarning->Show(u"تاريخ قرارداد نمی‌تواند پس از تاریخ انقضاء باشد."_s); })});
    entries.push_back({"message-written", messageBox(*g_pDlgMessage, [] { static_cast<void>(g_pDlgMessage->ShowWritten(u"فایل «لیست قراردادها.pdf» نوشته شد."_s)); })});
    entries.push_back({"question", messageBox(*g_pDlgYesNo, [=] { static_cast<void>(g_pDlgYesNo->Ask(question)); })});
    entries.push_back({"question-cancel", messageBox(*g_pDlgYesNo, [=] { static_cast<void>(g_pDlgYesNo->AskOrCancel(question)); })});
}

}

std::vector<Entry> WindowTable::all(LookOffice &office)
{
    std::vector<Entry> entries;
    addPages(office, entries);
    addContracts(office, entries);
    addPersonMessages(office, entries);
    addCheques(office, entries);
    addCars(office, entries);
    addPersonsAndBooks(office, entries);
    addAdministration(office, entries);
    addBin(office, entries);
    addBackups(office, entries);
    addMessages(entries);
    return entries;
}
