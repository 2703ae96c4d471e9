// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/WindowTable.h"

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/catalog/CDlgAddCar.h"
#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/parameters/CDlgAddInputParameter.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/reports/season/CDlgAutomobilReportSeasons.h"
#include "auto/reports/season/CDlgPaymentAmount.h"
#include "host/administration/CDlgUserRights.h"
#include "host/books/CDlgAddAccount.h"
#include "host/books/CDlgAddDocument.h"
#include "host/desk/CommandMenu.h"
#include "host/frame/HostOptions.h"
#include "host/start/CDlgFirstStart.h"
#include "host/start/CDlgLogin.h"
#include "host/start/CDlgServerPassword.h"
#include "host/start/SplashWindow.h"
#include "suite/accounting/attachments/CDlgCustomFieldDefinitions.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/books/CDlgCashFromPerson.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/reports/CDlgReportLayout.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/crm/persons/CDlgAddCompanyProps.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/reminders/CDlgDueAlarms.h"
#include "suite/image/KStaticImage.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/frame/KWaitNotice.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/look/LookOffice.h"
#include "tests/support/Hand.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

using WindowTable::Entry;
using WindowTable::Look;
using Show = std::function<void(const Look &)>;
using Open = std::function<void()>;
// What is done in a window before its views are looked at.
using Prepare = std::function<void(QDialog &)>;

const QString contracts = u"قرارداد"_s;
const QString demands = u"تقاضا"_s;
const QString cars = u"گالري اتومبيل"_s;
const QString persons = u"اشخاص"_s;
const QString documents = u"اسناد حسابداری"_s;
const QString invoices = u"فاکتورها"_s;
const QString services = u"خدمات"_s;
const QString users = u"کاربران و دسترسی‌ها"_s;
const QString reminders = u"یادآوری ها"_s;

constexpr int contractTypes = 4;

// As a user sees it: what the window does after it has come up is done.
void settle(QWidget &window)
{
    if (const auto *report = qobject_cast<CDlgAutomobilReportSeasons *>(&window))
        QTRY_VERIFY_WITH_TIMEOUT(!report->isBusy(), 20'000);
    // A text that wraps tells its height only when its width is known, and its page lays itself out once more then.
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

// Each page that the window's tabs lead to, or the window as it is.
void lookAtViews(QWidget &window, const Look &look, const QString &first = {})
{
    auto *tabs = window.findChild<KTabPageButtons *>();
    if (!tabs || tabs->count() < 2) {
        settle(window);
        look(window, first);
        return;
    }
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (!tabs->button(tab)->isEnabled())
            continue;
        tabs->setCurrentIndex(tab);
        settle(window);
        look(window, first + u"tab"_s + QString::number(tab + 1));
    }
    tabs->setCurrentIndex(0);
}

// A window that its opener waits for.
Show modal(const Open &open, const Prepare &prepare = {})
{
    return [open, prepare](const Look &look) {
        const auto isWaiting = std::make_shared<bool>(true);
        Hand::inNextWindow([look, prepare, waits = std::weak_ptr(isWaiting)](QDialog *dialog) {
            if (waits.expired())
                return;
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            if (prepare)
                prepare(*dialog);
            lookAtViews(*dialog, look);
        });
        open();
    };
}

template <class Dialog, class... Arguments>
Show window(Arguments... arguments)
{
    return modal([=] {
        Dialog dialog(arguments...);
        dialog.exec();
    });
}

// A page of the main window.
Show page(LookOffice &office, const QString &entry, const std::function<void(KListPage &)> &prepare = {})
{
    return [&office, entry, prepare](const Look &look) {
        office.clear();
        KListPage *list = office.list(entry);
        if (prepare)
            prepare(*list);
        settle(office.window());
        look(office.window(), {});
        office.clear();
    };
}

// What a command of a list opens, on its first row.
Show command(LookOffice &office, const QString &entry, const QString &id, const Prepare &prepare = {})
{
    return modal([&office, entry, id] { QVERIFY(office.list(entry)->runCommand(id)); }, prepare);
}

Show menuEntry(LookOffice &office, const QString &entry)
{
    return modal([&office, entry] { office.entry(entry)->trigger(); });
}

// The contract's editor with each of the types that its first page offers.
Show contractTypesOf(LookOffice &office)
{
    return [&office](const Look &look) {
        Hand::inNextWindow([look](QDialog *dialog) {
            const auto *editor = qobject_cast<CDlgAddAutomobilContract *>(dialog);
            QVERIFY(editor);
            QComboBox *type = editor->basePage()->form()->comboBox(u"iContractType"_s);
            QCOMPARE(type->count(), contractTypes);
            for (int index = 0; index < contractTypes; ++index) {
                editor->tabs()->setCurrentIndex(0);
                type->setCurrentIndex(index);
                lookAtViews(*dialog, look, u"type%1-"_s.arg(index + 1));
            }
        });
        QVERIFY(office.list(contracts)->runCommand(u"new"));
    };
}

Show messageBox(KMessageDialog &dialog, const Open &open)
{
    return [&dialog, open](const Look &look) {
        dialog.answerAll(false);
        modal(open)(look);
        dialog.takeShown();
        dialog.answerAll(true);
    };
}

// A window without a user's input.
Show splash(bool mayGiveUp)
{
    return [mayGiveUp](const Look &look) {
        SplashWindow window;
        if (mayGiveUp)
            QVERIFY(window.showWaitingOrGiveUp(u"برنامه دیگری پایگاه داده را ارتقا می‌دهد"_s));
        else
            window.showWaiting(u"راه‌اندازی پایگاه داده"_s);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        look(window, {});
    };
}

Show waitNotice()
{
    return [](const Look &look) {
        KWaitNotice notice;
        QVERIFY(notice.goOn(std::chrono::seconds(2)));
        QTRY_VERIFY(QApplication::activeModalWidget());
        look(*QApplication::activeModalWidget(), {});
        notice.ended();
    };
}

Show menus(LookOffice &office)
{
    return [&office](const Look &look) {
        int number = 0;
        for (CommandMenu *menu : office.window().findChildren<CommandMenu *>()) {
            menu->popup(office.window().mapToGlobal(QPoint(200, 60)));
            QVERIFY(QTest::qWaitForWindowExposed(menu));
            look(*menu, QString::number(++number));
            menu->close();
        }
        QVERIFY(number > 0);
    };
}

Show month(LookOffice &office)
{
    return [&office](const Look &look) {
        Hand::inNextWindow([look](QDialog *dialog) {
            auto *date = Hand::named<KDateEdit>(dialog, u"تاريخ عقد :"_s);
            QVERIFY(date);
            date->setDate(ConvertToMiladi(1405, 8, 29));
            date->showPopup();
            QWidget *popup = QApplication::activePopupWidget();
            QVERIFY(popup);
            look(*popup, {});
            popup->close();
        });
        QVERIFY(office.list(contracts)->runCommand(u"new"));
    };
}

Show postponing(LookOffice &office)
{
    return [&office](const Look &look) {
        KListPage *list = office.list(reminders);
        QTimer::singleShot(0, &office.window(), [look] {
            QWidget *menu = QApplication::activePopupWidget();
            QVERIFY(menu);
            look(*menu, {});
            menu->close();
        });
        QVERIFY(list->runCommand(u"postpone"));
    };
}

Show progress()
{
    return [](const Look &look) {
        ReportProgressWindow window(u"ساختن گزارش..."_s, nullptr, 0);
        QVERIFY(window.callback()(40, 100));
        QTRY_VERIFY(QApplication::activeModalWidget());
        look(*QApplication::activeModalWidget(), {});
    };
}

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
    entries.push_back({"start", [&office](const Look &look) {
                           office.clear();
                           settle(office.window());
                           look(office.window(), {});
                       }});
    entries.push_back({"menu", menus(office)});
    entries.push_back({"contracts", page(office, contracts)});
    entries.push_back({"contracts-none", page(office, contracts, [](KListPage &list) {
                           list.filters().set(u"description", u"گمشده"_s);
                           list.refill();
                       })});
    entries.push_back({"demands", page(office, demands)});
    entries.push_back({"cars", page(office, cars)});
    entries.push_back({"persons", page(office, persons)});
    entries.push_back({"documents", page(office, documents)});
    entries.push_back({"invoices", page(office, invoices)});
    entries.push_back({"services", page(office, services)});
    entries.push_back({"accounts", page(office, u"سرفصل حساب‌ها"_s)});
    entries.push_back({"users", page(office, users)});
    entries.push_back({"reminders", page(office, reminders)});
}

void addContracts(LookOffice &office, std::vector<Entry> &entries)
{
    const int contract = office.number(u"SELECT MAX(iID) FROM AutomobilContracts"_s);
    const int person = office.number(u"SELECT iPersonSecondID FROM AutomobilContracts WHERE iID=%1"_s.arg(contract));
    entries.push_back({"contract-new", contractTypesOf(office)});
    entries.push_back({"contract-refused", command(office, contracts, u"new"_s, &refuse)});
    entries.push_back({"contract-edit", command(office, contracts, u"edit"_s)});
    entries.push_back({"contract-show", command(office, contracts, u"show"_s)});
    entries.push_back({"contract-settings", command(office, contracts, u"settings"_s)});
    entries.push_back({"contract-instalments", window<CDlgCalcPayment>(contract, person, 123'456'789.0)});
    entries.push_back({"contract-receipts", window<CDlgContractReceipts>(contract)});
    entries.push_back({"receipt", window<CDlgCashFromPerson>(person, 2'818'800.0, u"بابت تسویه قرارداد شماره 15"_s)});
    entries.push_back({"clauses", window<CDlgMultiItems>(int(CTblItems::typeClause), u"توضیحات"_s)});
    entries.push_back({"custom-fields", window<CDlgCustomFieldDefinitions>(int(CTblAutomobilContracts::recordKind))});
    entries.push_back({"comprehensive-report", command(office, contracts, u"fullReport"_s)});
    entries.push_back({"report-preview", command(office, contracts, u"print"_s)});
    entries.push_back({"report-layout", modal([&office] { CDlgReportLayout(reportOf(office)).exec(); })});
    entries.push_back({"month", month(office)});
    entries.push_back({"seasons", menuEntry(office, u"گزارش فصلي"_s)});
    entries.push_back({"payable", window<CDlgPaymentAmount>(2, quint16(1405))});
}

void addCars(LookOffice &office, std::vector<Entry> &entries)
{
    const int tariff = office.number(u"SELECT MIN(iID) FROM AutomobilTariffs"_s);
    entries.push_back({"car-new", command(office, cars, u"new"_s)});
    entries.push_back({"car-edit", command(office, cars, u"edit"_s)});
    entries.push_back({"car-show", command(office, cars, u"show"_s)});
    entries.push_back({"car-demands", command(office, cars, u"matchingDemands"_s)});
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
    entries.push_back({"picture", modal([] {
                           QImage image(900, 600, QImage::Format_RGB32);
                           image.fill(Qt::darkCyan);
                           QMimeData copied;
                           copied.setImageData(image);
                           KStaticImage box;
                           box.setAccessibleName(u"تصویر خودرو"_s);
                           QVERIFY(box.takeMimeData(&copied));
                           box.showLarge();
                       })});
}

void addPersonsAndBooks(LookOffice &office, std::vector<Entry> &entries)
{
    const int document = office.number(u"SELECT MAX(iNum) FROM Documents"_s);
    const int year = office.number(u"SELECT MAX(iFiscalYear) FROM Documents WHERE iNum=%1"_s.arg(document));
    const int account = office.number(u"SELECT MIN(iCode) FROM HesabKol"_s);
    const QDateTime from(ConvertToMiladi(1403, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime to(ConvertToMiladi(1405, 12, 29), QTime(0, 0), Qt::UTC);
    entries.push_back({"person-new", command(office, persons, u"new"_s)});
    entries.push_back({"person-legal", command(office, persons, u"new"_s, &chooseLegalPerson)});
    entries.push_back({"person-refused", command(office, persons, u"new"_s, &refuse)});
    entries.push_back({"person-edit", command(office, persons, u"edit"_s)});
    entries.push_back({"person-show", command(office, persons, u"show"_s)});
    entries.push_back({"person-picker", modal([] { static_cast<void>(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0)); })});
    entries.push_back({"company", window<CDlgAddCompanyProps>()});
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
    entries.push_back({"password", menuEntry(office, u"تغییر کلمه عبور"_s)});
    entries.push_back({"about", menuEntry(office, u"درباره برنامه"_s)});
    entries.push_back({"reminder-new", command(office, reminders, u"new"_s)});
    entries.push_back({"reminder-edit", command(office, reminders, u"edit"_s)});
    entries.push_back({"reminder-postponed", postponing(office)});
    entries.push_back({"reminders-due", modal([] { CDlgDueAlarms(CTblAlarm::dueAtLogin(GetDBSetting()->GetUserID()), nullptr).exec(); })});
    entries.push_back({"login", window<CDlgLogin>(u"نمایشگاه اتومبیل آریا"_s)});
    entries.push_back({"first-start", window<CDlgFirstStart>()});
    entries.push_back({"server-password", window<CDlgServerPassword>(options)});
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
    addCars(office, entries);
    addPersonsAndBooks(office, entries);
    addAdministration(office, entries);
    addMessages(entries);
    return entries;
}
