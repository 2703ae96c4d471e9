// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/office/TestOffice.h"

#include "auto/CAutoDBSetting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/crm/persons/PersonParts.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/treasury/receiving/InvoiceReceiptOwner.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasurySubjects.h"
#include "suite/treasury/subjects/TreasuryWindows.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/values/KSettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

template <class Record, class Set>
int add(const Set &set)
{
    Record record;
    record.Open(false, false, true);
    record.AddNew();
    set(record);
    record.Update(true);
    return static_cast<int>(record.GetLastInsertedID());
}

}

TestOffice::TestOffice()
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    SuiteSchema::upgrade();
    double reached = 0;
    if (GetAutoDBSetting()->UpdateDB(0, 0, reached, false) != 1)
        qFatal("the module's tables could not be created");
    SuiteSchema::raiseModuleVersion(reached);
    SuiteSchema::afterModuleUpgrade();
    GetDBSetting()->SetReceiptWindow(&CDlgCashFromPerson::receive);
    InvoiceReceiptOwner::enter();
    OfficeSubjects::enter();
    CrmSubjects::enter();
    PersonParts::enter();
    TreasurySubjects::enter();
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    CrmWindows::enter();
    TreasuryWindows::enter();
    m_adminID = CTblUsers::create(u"مدیر"_s, u"secret"_s, u"مدیر دفتر"_s, true);
    clear();
}

TestOffice::~TestOffice()
{
    GetDBSetting()->Logout();
    setSettingsFile({});
}

void TestOffice::clear()
{
    for (const char *table :
         {"AutomobilContracts", "AutomobilPayments", "AutomobilInformations", "AutomobilDemands", "AutomobilTariffs", "CarBrands",
          "CarModels", "CarClasses", "Items", "Persons", "Documents", "Docs", "Receipts", "FileDocs", "CustomFieldRecords", "Alarms",
          "Factors", "FactorStuffs", "Services", "Placeholders", "PublicCars", "SearchKeys"})
        m_database.run(u"DELETE FROM "_s + QLatin1String(table));
    m_database.run(u"DELETE FROM Properties WHERE sSection NOT IN ('Schema','Documents')"_s);
    const QString file = m_settings.filePath(u"user.ini"_s);
    setSettingsFile({});
    QFile::remove(file);
    setSettingsFile(file);
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo}) {
        dialog->answerAll(false);
        dialog->answerAll(true);
    }
    logInAsAdmin();
}

void TestOffice::logInAsAdmin()
{
    if (!GetDBSetting()->Login(m_adminID))
        qFatal("the administrator could not log in");
    KSecurity::forgetRights();
}

int TestOffice::logInAs(const QString &user, const QString &form, int rights)
{
    const QString known =
        m_database.value(u"SELECT iID FROM Users WHERE sUser='%1'"_s.arg(user));
    const int id = known.isEmpty() ? CTblUsers::create(user, u"secret"_s, user, false) : known.toInt();
    KSecurity::setRights(id, form, rights);
    if (!GetDBSetting()->Login(id))
        qFatal("the user could not log in");
    KSecurity::forgetRights();
    return id;
}

int TestOffice::addPerson(const QString &name, const QString &family, const std::function<void(CTblPersons &)> &more)
{
    CTblPersons person;
    person.Open(false, false, true);
    person.AddNew();
    person.m_iCode = CTblPersons::nextCode();
    person.m_sName = name;
    person.m_sFamily = family;
    if (more)
        more(person);
    person.Update(true);
    return static_cast<int>(person.GetLastInsertedID());
}

int TestOffice::addContract(const std::function<void(CTblAutomobilContracts &)> &set)
{
    CTblAutomobilContracts contract;
    contract.Open(false, false, true);
    contract.AddNew();
    contract.m_iCode = CTblAutomobilContracts::nextCode();
    contract.m_dateContract = QDateTime(QDate(2026, 5, 1), QTime(0, 0), Qt::UTC);
    // What a contract on a vehicle cannot be saved without.
    contract.m_sAutomobilName = u"پراید"_s;
    contract.m_sModel = u"1400"_s;
    contract.m_sColor = u"سفید"_s;
    contract.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
    if (set)
        set(contract);
    contract.Update(true);
    return static_cast<int>(contract.GetLastInsertedID());
}

int TestOffice::addCar(const std::function<void(CTblAutomobilInformations &)> &set)
{
    return add<CTblAutomobilInformations>([&](CTblAutomobilInformations &car) {
        car.m_iCode = CTblAutomobilInformations::nextCode();
        if (set)
            set(car);
    });
}

int TestOffice::addDemand(const std::function<void(CTblAutomobilDemands &)> &set)
{
    return add<CTblAutomobilDemands>([&](CTblAutomobilDemands &demand) {
        demand.m_iCode = CTblAutomobilDemands::nextCode();
        if (set)
            set(demand);
    });
}

int TestOffice::addBrand(const QString &name)
{
    return add<CTblCarBrands>([&](CTblCarBrands &brand) { brand.m_sName = name; });
}

int TestOffice::addModel(int brand, const QString &name)
{
    return add<CTblCarModels>([&](CTblCarModels &model) {
        model.m_iClassID = brand;
        model.m_sName = name;
    });
}

int TestOffice::addClass(int model, const QString &name)
{
    return add<CTblCarClasses>([&](CTblCarClasses &carClass) {
        carClass.m_iBrandID = model;
        carClass.m_sName = name;
    });
}

int TestOffice::addItem(int type, const QString &name)
{
    return add<CTblItems>([&](CTblItems &item) {
        item.m_iType = type;
        item.m_sName = name;
    });
}

void TestOffice::setFiscalYearOpening(const QDate &date)
{
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(date, QTime(0, 0), Qt::UTC));
}

void TestOffice::whenModal(const char *className, const std::function<void(QWidget *)> &work)
{
    auto *timer = new QTimer(qApp);
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, clock, work, name = QByteArray(className)] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && modal->inherits(name.constData())) {
            timer->deleteLater();
            timer->stop();
            const QPointer<QWidget> window(modal);
            work(modal);
            // A window that stays would hold the test for good.
            if (window && window->isVisible()) {
                QTest::qFail("the window did not close", __FILE__, __LINE__);
                window->close();
            }
        } else if (clock->elapsed() > 5000) {
            timer->deleteLater();
            timer->stop();
            QTest::qFail("the window that was waited for did not come up", __FILE__, __LINE__);
            if (modal)
                modal->close();
        }
    });
    timer->start(5);
}
