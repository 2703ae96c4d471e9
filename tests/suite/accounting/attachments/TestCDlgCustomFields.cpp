// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/attachments/CDlgCustomFieldDefinitions.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
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

using namespace Qt::StringLiterals;

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
    void renameOfTwoDesksIsAskedAbout();
    void definitionsWindowAddsRenamesAndDeletes();
    void definingNeedsTheRight();
    void definingKeepsWhatWasTyped();
    void changedIsWhatTheUserChanged();
    void definingLeavesWhatTheUserSawOfAChangedField();

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
    m_office.database.run(u"DELETE FROM CustomFieldRecords"_s);
    m_office.database.run(u"DELETE FROM CustomFields"_s);
    m_text = CTblCustomFields::define(contracts, u"معرف"_s, CTblCustomFields::Text);
    m_number = CTblCustomFields::define(contracts, u"کارکرد"_s, CTblCustomFields::Number);
    m_date = CTblCustomFields::define(contracts, u"بیمه تا"_s, CTblCustomFields::Date);
    m_yesNo = CTblCustomFields::define(contracts, u"کارشناسی شده"_s, CTblCustomFields::YesNo);
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
        field<KEdit>(first.get(), u"معرف :"_s)->setText(u"علی 'رضا'"_s);
        field<KEdit>(first.get(), u"کارکرد :"_s)->setText(u"-۱۲۵۰۰٫۵"_s);
        field<KDateEdit>(first.get(), u"بیمه تا :"_s)->setText(u"1405/08/29"_s);
        field<QCheckBox>(first.get(), u"کارشناسی شده :"_s)->setChecked(true);
        QVERIFY(first->validate());
        store(*first);
    }
    const auto second = page();
    QCOMPARE(field<KEdit>(second.get(), u"معرف :"_s)->text(), u"علی 'رضا'"_s);
    QCOMPARE(field<KEdit>(second.get(), u"کارکرد :"_s)->number(), -12500.5);
    QCOMPARE(field<KDateEdit>(second.get(), u"بیمه تا :"_s)->date(), QDate(2026, 11, 20));
    QVERIFY(field<QCheckBox>(second.get(), u"کارشناسی شده :"_s)->isChecked());
}

void TestCDlgCustomFields::valuesAreStoredInTheirOwnForm()
{
    const auto one = page();
    field<KEdit>(one.get(), u"کارکرد :"_s)->setNumber(1234.5);
    field<KDateEdit>(one.get(), u"بیمه تا :"_s)->setDate(QDate(2026, 11, 20));
    field<QCheckBox>(one.get(), u"کارشناسی شده :"_s)->setChecked(true);
    store(*one);
    const QHash<int, QString> stored = CTblCustomFieldRecords::values(contracts, record);
    QCOMPARE(stored.size(), 3);
    QCOMPARE(stored.value(m_number), u"1234.5"_s);
    QCOMPARE(stored.value(m_date), u"2026-11-20"_s);
    QCOMPARE(stored.value(m_yesNo), u"1"_s);
}

void TestCDlgCustomFields::emptyValueHasNoRow()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}, {m_yesNo, u"1"_s}});
    const auto one = page();
    field<KEdit>(one.get(), u"معرف :"_s)->clear();
    field<QCheckBox>(one.get(), u"کارشناسی شده :"_s)->setChecked(false);
    store(*one);
    QCOMPARE(value("SELECT COUNT(*) FROM CustomFieldRecords"), u"0"_s);
}

void TestCDlgCustomFields::pageNeverShownReadsAndSavesNothing()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}});
    int statements = 0;
    KConnection::setStatementObserver([&statements](const QString &) { ++statements; });
    CDlgCustomFields hidden;
    hidden.bind(contracts, record);
    QVERIFY(hidden.validate());
    store(hidden);
    KConnection::setStatementObserver({});
    QCOMPARE(statements, 0);
    QVERIFY(!hidden.isOpened());
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).value(m_text), u"الف"_s);
}

void TestCDlgCustomFields::invalidDateIsRefusedAndFocused()
{
    const auto one = page();
    one->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(one.get()));
    auto *date = field<KDateEdit>(one.get(), u"بیمه تا :"_s);
    date->setText(u"1405/12/30"_s);
    QVERIFY(!one->validate());
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY(shown.constFirst().contains(u"بیمه تا"_s));
    QVERIFY(date->hasFocus());
}

void TestCDlgCustomFields::invalidNumberIsRefused()
{
    const auto one = page();
    field<KEdit>(one.get(), u"کارکرد :"_s)->setText(u"999999999999999"_s);
    QVERIFY(!one->validate());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgCustomFields::savingJoinsTheCallersTransaction()
{
    const auto one = page();
    field<KEdit>(one.get(), u"معرف :"_s)->setText(u"الف"_s);
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
    CTblCustomFieldRecords::setValues(contracts, record + 1, {{m_text, u"دیگری"_s}});
    const auto one = page();
    QVERIFY(field<KEdit>(one.get(), u"معرف :"_s)->text().isEmpty());
    store(*one);
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record + 1).value(m_text), u"دیگری"_s);
}

void TestCDlgCustomFields::readOnlyPageSavesNothing()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}});
    auto one = std::make_unique<CDlgCustomFields>();
    one->bind(contracts, record);
    one->setReadOnly(true);
    one->show();
    auto *text = field<KEdit>(one.get(), u"معرف :"_s);
    QVERIFY(text->isReadOnly());
    QVERIFY(!field<QCheckBox>(one.get(), u"کارشناسی شده :"_s)->isEnabled());
    QVERIFY(!FormDriver::button(one.get(), u"تعریف فیلدها"_s)->isVisible());
    text->setText(u"ب"_s);
    store(*one);
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).value(m_text), u"الف"_s);
}

void TestCDlgCustomFields::deletingARecordTakesItsValues()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}, {m_number, u"5"_s}});
    CTblCustomFieldRecords::setValues(contracts, record + 1, {{m_text, u"ب"_s}});
    const int ofCars = CTblCustomFields::define(68, u"معرف"_s, CTblCustomFields::Text);
    CTblCustomFieldRecords::setValues(68, record, {{ofCars, u"ج"_s}});
    CTblCustomFieldRecords::DeleteAllRelatedRecords(contracts, record, m_number);
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record).size(), 1);
    CTblCustomFieldRecords::DeleteAllRelatedRecords(contracts, record, 0);
    QVERIFY(CTblCustomFieldRecords::values(contracts, record).isEmpty());
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record + 1).size(), 1);
    QCOMPARE(CTblCustomFieldRecords::values(68, record).size(), 1);
}

void TestCDlgCustomFields::deletingAFieldTakesItsValues()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}, {m_number, u"5"_s}});
    CTblCustomFields::remove(m_text);
    const QHash<int, QString> left = CTblCustomFieldRecords::values(contracts, record);
    QCOMPARE(left.keys(), QList<int>{m_number});
    QCOMPARE(value("SELECT COUNT(*) FROM CustomFields"), u"3"_s);
}

void TestCDlgCustomFields::nameIsNeededAndUnique()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblCustomFields::define(contracts, u"  "_s, CTblCustomFields::Text));
    QVERIFY_THROWS_EXCEPTION(KAccountingError,
                             CTblCustomFields::define(contracts, u"معرف"_s, CTblCustomFields::Date));
    QVERIFY(CTblCustomFields::define(68, u"معرف"_s, CTblCustomFields::Text) > 0);
}

void TestCDlgCustomFields::renameOfTwoDesksIsAskedAbout()
{
    CDlgCustomFieldDefinitions window(contracts);
    auto *list = window.findChild<KExtListCtrl *>();
    auto *name = field<KEdit>(&window, u"نام :"_s);
    list->selectKey(m_text);
    const QString before = list->cellText(list->currentRow(), 1);
    m_office.database.run(u"UPDATE CustomFields SET sName='دیگری' WHERE iID=%1"_s.arg(m_text));
    name->setText(u"من"_s);
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
    window.renameField();
    QCOMPARE(CDlgRowConflict::takeShown(), QStringList{u"نام فیلد: %1 | دیگری | من"_s.arg(before)});
    QCOMPARE(list->cellText(list->currentRow(), 1), before);
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeMine);
    window.renameField();
    QCOMPARE(list->cellText(list->currentRow(), 1), u"من"_s);
    // One that is gone is told and no longer listed.
    list->selectKey(m_number);
    const int fields = list->count();
    CTblCustomFields::remove(m_number);
    name->setText(u"تازه"_s);
    window.renameField();
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().startsWith(u"کاربر «admin» در "_s), qPrintable(told.constFirst()));
    QCOMPARE(list->count(), fields - 1);
    QVERIFY_THROWS_EXCEPTION(RowChanged, CTblCustomFields::remove(m_number));
}

void TestCDlgCustomFields::definitionsWindowAddsRenamesAndDeletes()
{
    CDlgCustomFieldDefinitions window(contracts);
    window.show();
    QVERIFY(FormDriver::everyInputHasAName(&window));
    auto *list = window.findChild<KExtListCtrl *>();
    auto *name = field<KEdit>(&window, u"نام :"_s);
    QCOMPARE(list->count(), 4);
    name->setText(u"رنگ داخل"_s);
    field<QComboBox>(&window, u"نوع :"_s)->setCurrentText(u"عدد"_s);
    FormDriver::click(&window, u"افزودن"_s);
    QCOMPARE(list->count(), 5);
    QCOMPARE(list->cellText(list->currentRow(), 1), u"رنگ داخل"_s);
    QCOMPARE(list->cellText(list->currentRow(), 2), u"عدد"_s);
    FormDriver::click(&window, u"افزودن"_s);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    name->setText(u"رنگ صندلی"_s);
    FormDriver::click(&window, u"تغییر نام"_s);
    QCOMPARE(list->cellText(list->currentRow(), 1), u"رنگ صندلی"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    FormDriver::click(&window, u"حذف"_s);
    QCOMPARE(list->count(), 5);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    FormDriver::click(&window, u"حذف"_s);
    QCOMPARE(list->count(), 4);
}

void TestCDlgCustomFields::definingNeedsTheRight()
{
    GetDBSetting()->Login(m_office.clerk);
    const auto one = page();
    FormDriver::click(one.get(), u"تعریف فیلدها"_s);
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(u"CustomFields"_s, KSecurity::Modify)});
}

void TestCDlgCustomFields::definingKeepsWhatWasTyped()
{
    const auto one = page();
    field<KEdit>(one.get(), u"معرف :"_s)->setText(u"نیمه کاره"_s);
    QTimer::singleShot(50, [] {
        CTblCustomFields::define(contracts, u"تازه"_s, CTblCustomFields::Text);
        if (auto *window = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            window->reject();
    });
    one->defineFields();
    QVERIFY(field<KEdit>(one.get(), u"تازه :"_s));
    QCOMPARE(field<KEdit>(one.get(), u"معرف :"_s)->text(), u"نیمه کاره"_s);
}

void TestCDlgCustomFields::changedIsWhatTheUserChanged()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}, {m_number, u"1.50"_s}});
    const auto one = page();
    // The number is written otherwise than it was stored, which nobody entered.
    QVERIFY(one->changedValues().isEmpty());
    field<KEdit>(one.get(), u"معرف :"_s)->setText(u"ب"_s);
    QCOMPARE(one->changedValues(), (QHash<int, QString>{{m_text, u"ب"_s}}));
    QCOMPARE(one->openedValues().value(m_text), u"الف"_s);
    CTblCustomFieldRecords::changeValues(contracts, record, one->changedValues());
    QCOMPARE(CTblCustomFieldRecords::values(contracts, record), (QHash<int, QString>{{m_text, u"ب"_s}, {m_number, u"1.50"_s}}));
}

// What another desk changed in between is not as the user saw it.
void TestCDlgCustomFields::definingLeavesWhatTheUserSawOfAChangedField()
{
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"الف"_s}, {m_number, u"5"_s}});
    const auto one = page();
    field<KEdit>(one.get(), u"معرف :"_s)->setText(u"من"_s);
    CTblCustomFieldRecords::setValues(contracts, record, {{m_text, u"او"_s}, {m_number, u"6"_s}});
    one->load();
    QCOMPARE(field<KEdit>(one.get(), u"معرف :"_s)->text(), u"من"_s);
    QCOMPARE(one->openedValues().value(m_text), u"الف"_s);
    QCOMPARE(one->changedValues(), (QHash<int, QString>{{m_text, u"من"_s}}));
    QCOMPARE(field<KEdit>(one.get(), u"کارکرد :"_s)->number(), 6.0);
}

static const RegisteredTest<TestCDlgCustomFields, QApplication> registeredCDlgCustomFields;
#include "TestCDlgCustomFields.moc"
