// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/KTransaction.h"
#include "suite/accounting/attachments/CDlgCustomFieldDefinitions.h"
#include "suite/accounting/attachments/CDlgCustomFields.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QTimer>
#include <QtTest>

using FormDriver::field;

namespace {
constexpr int contracts = 69;
constexpr int record = 12;

void store(const CDlgCustomFields &page)
{
    if (const auto values = page.enteredValues())
        CTblCustomFieldRecords::setValues(contracts, record, *values);
}
}

class TestCDlgCustomFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void valuesOfEveryTypeComeBack();
    void valuesAreStoredInTheirOwnForm();
    void emptyValueHasNoRow();
    void pageNeverShownReadsAndSavesNothing();
    void invalidDateIsRefusedAndFocused();
    void invalidNumberIsRefused();
    void savingJoinsTheCallersTransaction();
    void otherRecordsKeepTheirValues();
    void readOnlyPageSavesNothing();
    void deletingARecordTakesItsValues();
    void deletingAFieldTakesItsValues();
    void nameIsNeededAndUnique();
    void definitionsWindowAddsRenamesAndDeletes();
    void definingNeedsTheRight();
    void definingKeepsWhatWasTyped();

private:
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }
    std::unique_ptr<CDlgCustomFields> page(int recordID = record);

    TestOffice m_office;
    int m_text = 0;
    int m_number = 0;
    int m_date = 0;
    int m_yesNo = 0;
};

void TestCDlgCustomFields::init()
{
    GetDBSetting()->Login(m_office.admin);
    m_office.database.run(QStringLiteral("DELETE FROM CustomFieldRecords"));
    m_office.database.run(QStringLiteral("DELETE FROM CustomFields"));
    m_text = CTblCustomFields::define(contracts, QStringLiteral("معرف"), CTblCustomFields::Text);
    m_number = CTblCustomFields::define(contracts, QStringLiteral("کارکرد"), CTblCustomFields::Number);
    m_date = CTblCustomFields::define(contracts, QStringLiteral("بیمه تا"), CTblCustomFields::Date);
    m_yesNo = CTblCustomFields::define(contracts, QStringLiteral("کارشناسی شده"), CTblCustomFields::YesNo);
    g_pDlgWarning->takeShown();
}

std::unique_ptr<CDlgCustomFields> TestCDlgCustomFields::page(int recordID)
{
    auto made = std::make_unique<CDlgCustomFields>();
    made->bind(contracts, recordID);
    made->show();
    return made;
}

void TestCDlgCustomFields::valuesOfEveryTypeComeBack()
{
    {
        const auto first = page();
        field<KEdit>(first.get(), QStringLiteral("معرف :"))->setText(QStringLiteral("علی 'رضا'"));
        field<KEdit>(first.get(), QStringLiteral("کارکرد :"))->setText(QStringLiteral("-۱۲۵۰۰٫۵"));
        field<KDateEdit>(first.get(), QStringLiteral("بیمه تا :"))->setText(QStringLiteral("1405/08/29"));
        field<QCheckBox>(first.get(), QStringLiteral("کارشناسی شده :"))->setChecked(true);
        QVERIFY(first->validate());
        store(*first);
    }
    const auto second = page();
    QCOMPARE(field<KEdit>(second.get(), QStringLiteral("معرف :"))->text(), QStringLiteral("علی 'رضا'"));
    QCOMPARE(field<KEdit>(second.get(), QStringLiteral("کارکرد :"))->number(), -12500.5);
    QCOMPARE(field<KDateEdit>(second.get(), QStringLiteral("بیمه تا :"))->date(), QDate(2026, 11, 20));
    QVERIFY(field<QCheckBox>(second.get(), QStringLiteral("کارشناسی شده :"))->isChecked());
}

void TestCDlgCustomFields::valuesAreStoredInTheirOwnForm()
{
    const auto one = page();
    field<KEdit>(one.get(), QStringLiteral("کارکرد :"))->setNumber(1234.5);
    field<KDateEdit>(one.get(), QStringLiteral("بیمه تا :"))->setDate(QDate(2026, 11, 20));
    field<QCheckBox>(one.get(), QStringLiteral("کارشناسی شده :"))->setChecked(true);
    store(*one);
    const QHash<int, QString> stored = CTblCustomFieldRecords::values(contracts, record);
    QCOMPARE(stored.size(), 3);
    QCOMPARE(stored.value(m_number), QStringLiteral("1234.5"));
    QCOMPARE(stored.value(m_date), QStringLiteral("2026-11-20"));
    QCOMPARE(stored.value(m_yesNo), QStringLiteral("1"));
}

void TestCDlgCustomFields::emptyValueHasNoRow()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, QStringLiteral("الف")}, {m_yesNo, QStringLiteral("1")}});
    const auto one = page();
    field<KEdit>(one.get(), QStringLiteral("معرف :"))->clear();
    field<QCheckBox>(one.get(), QStringLiteral("کارشناسی شده :"))->setChecked(false);
    store(*one);
    QCOMPARE(value("SELECT COUNT(*) FROM CustomFieldRecords"), QStringLiteral("0"));
}

void TestCDlgCustomFields::pageNeverShownReadsAndSavesNothing()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, QStringLiteral("الف")}});
    int statements = 0;
    KConnection::setStatementObserver([&statements](const QString &) { ++statements; });
    CDlgCustomFields hidden;
    hidden.bind(contracts, record);
    QVERIFY(hidden.validate());
    store(hidden);
    KConnection::setStatementObserver({});
    QCOMPARE(statements, 0);
    QVERIFY(!hidden.isOpened());
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).value(m_text), QStringLiteral("الف"));
}

void TestCDlgCustomFields::invalidDateIsRefusedAndFocused()
{
    const auto one = page();
    one->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(one.get()));
    auto *date = field<KDateEdit>(one.get(), QStringLiteral("بیمه تا :"));
    date->setText(QStringLiteral("1405/12/30"));
    QVERIFY(!one->validate());
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY(shown.constFirst().contains(QStringLiteral("بیمه تا")));
    QVERIFY(date->hasFocus());
}

void TestCDlgCustomFields::invalidNumberIsRefused()
{
    const auto one = page();
    field<KEdit>(one.get(), QStringLiteral("کارکرد :"))->setText(QStringLiteral("999999999999999"));
    QVERIFY(!one->validate());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgCustomFields::savingJoinsTheCallersTransaction()
{
    const auto one = page();
    field<KEdit>(one.get(), QStringLiteral("معرف :"))->setText(QStringLiteral("الف"));
    {
        KTransaction transaction;
        store(*one);
    }
    QVERIFY(CTblCustomFieldRecords::values(contracts, record).isEmpty());
    {
        KTransaction transaction;
        store(*one);
        transaction.commit();
    }
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).size(), 1);
}

void TestCDlgCustomFields::otherRecordsKeepTheirValues()
{
    CTblCustomFieldRecords::setValues(contracts, record + 1, {{m_text, QStringLiteral("دیگری")}});
    const auto one = page();
    QVERIFY(field<KEdit>(one.get(), QStringLiteral("معرف :"))->text().isEmpty());
    store(*one);
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record + 1).value(m_text), QStringLiteral("دیگری"));
}

void TestCDlgCustomFields::readOnlyPageSavesNothing()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, QStringLiteral("الف")}});
    auto one = std::make_unique<CDlgCustomFields>();
    one->bind(contracts, record);
    one->setReadOnly(true);
    one->show();
    auto *text = field<KEdit>(one.get(), QStringLiteral("معرف :"));
    QVERIFY(text->isReadOnly());
    QVERIFY(!field<QCheckBox>(one.get(), QStringLiteral("کارشناسی شده :"))->isEnabled());
    QVERIFY(!FormDriver::button(one.get(), QStringLiteral("تعریف فیلدها"))->isVisible());
    text->setText(QStringLiteral("ب"));
    store(*one);
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).value(m_text), QStringLiteral("الف"));
}

void TestCDlgCustomFields::deletingARecordTakesItsValues()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, QStringLiteral("الف")}, {m_number, QStringLiteral("5")}});
    CTblCustomFieldRecords::setValues(contracts, record + 1, {{m_text, QStringLiteral("ب")}});
    const int ofCars = CTblCustomFields::define(68, QStringLiteral("معرف"), CTblCustomFields::Text);
    CTblCustomFieldRecords::setValues(68, record, {{ofCars, QStringLiteral("ج")}});
    CTblCustomFieldRecords::DeleteAllRelatedRecords(contracts, record, m_number);
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).size(), 1);
    CTblCustomFieldRecords::DeleteAllRelatedRecords(contracts, record, 0);
    QVERIFY(CTblCustomFieldRecords::values(contracts, record).isEmpty());
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record + 1).size(), 1);
    QCOMPARE(CTblCustomFieldRecords::values(68, record).size(), 1);
}

void TestCDlgCustomFields::deletingAFieldTakesItsValues()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, QStringLiteral("الف")}, {m_number, QStringLiteral("5")}});
    CTblCustomFields::remove(m_text);
    const QHash<int, QString> left = CTblCustomFieldRecords::values(contracts, record);
    QCOMPARE(left.keys(), QList<int>{m_number});
    QCOMPARE(value("SELECT COUNT(*) FROM CustomFields"), QStringLiteral("3"));
}

void TestCDlgCustomFields::nameIsNeededAndUnique()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblCustomFields::define(contracts, QStringLiteral("  "), CTblCustomFields::Text));
    QVERIFY_THROWS_EXCEPTION(KAccountingError,
                             CTblCustomFields::define(contracts, QStringLiteral("معرف"), CTblCustomFields::Date));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblCustomFields::rename(m_number, QStringLiteral("معرف")));
    QVERIFY(CTblCustomFields::define(68, QStringLiteral("معرف"), CTblCustomFields::Text) > 0);
}

void TestCDlgCustomFields::definitionsWindowAddsRenamesAndDeletes()
{
    CDlgCustomFieldDefinitions window(contracts);
    window.show();
    QVERIFY(FormDriver::everyInputHasAName(&window));
    auto *list = window.findChild<KExtListCtrl *>();
    auto *name = field<KEdit>(&window, QStringLiteral("نام :"));
    QCOMPARE(list->count(), 4);
    name->setText(QStringLiteral("رنگ داخل"));
    field<QComboBox>(&window, QStringLiteral("نوع :"))->setCurrentText(QStringLiteral("عدد"));
    FormDriver::click(&window, QStringLiteral("افزودن"));
    QCOMPARE(list->count(), 5);
    QCOMPARE(list->cellText(list->currentRow(), 1), QStringLiteral("رنگ داخل"));
    QCOMPARE(list->cellText(list->currentRow(), 2), QStringLiteral("عدد"));
    FormDriver::click(&window, QStringLiteral("افزودن"));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    name->setText(QStringLiteral("رنگ صندلی"));
    FormDriver::click(&window, QStringLiteral("تغییر نام"));
    QCOMPARE(list->cellText(list->currentRow(), 1), QStringLiteral("رنگ صندلی"));
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    FormDriver::click(&window, QStringLiteral("حذف"));
    QCOMPARE(list->count(), 5);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    FormDriver::click(&window, QStringLiteral("حذف"));
    QCOMPARE(list->count(), 4);
}

void TestCDlgCustomFields::definingNeedsTheRight()
{
    GetDBSetting()->Login(m_office.clerk);
    const auto one = page();
    FormDriver::click(one.get(), QStringLiteral("تعریف فیلدها"));
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(QStringLiteral("CustomFields"), KSecurity::Modify)});
}

void TestCDlgCustomFields::definingKeepsWhatWasTyped()
{
    const auto one = page();
    field<KEdit>(one.get(), QStringLiteral("معرف :"))->setText(QStringLiteral("نیمه کاره"));
    QTimer::singleShot(50, [] {
        CTblCustomFields::define(contracts, QStringLiteral("تازه"), CTblCustomFields::Text);
        if (auto *window = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            window->reject();
    });
    one->defineFields();
    QVERIFY(field<KEdit>(one.get(), QStringLiteral("تازه :")));
    QCOMPARE(field<KEdit>(one.get(), QStringLiteral("معرف :"))->text(), QStringLiteral("نیمه کاره"));
}

static const RegisteredTest<TestCDlgCustomFields, QApplication> registered;
#include "TestCDlgCustomFields.moc"
