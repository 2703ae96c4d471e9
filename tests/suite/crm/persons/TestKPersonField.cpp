// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/KPersonField.h"

#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class TestKPersonField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init();
    void cleanup() { m_field.reset(); }
    void partsAreFoundByTheirNames();
    void clearButtonCaptionMayBeAnother();
    void clearButtonOnlyWhilePicked();
    void pickingReportsTheChange();
    void cancelledPickingKeepsThePerson();
    void clearingByTheUserReportsTheChange();
    void settingAndClearingByCodeIsSilent();
    void vanishedPersonKeepsTheKeyAndTheStoredName();
    void aNameOfNobodyIsShown();
    void nameIsReadOnlyUnlessEditable();
    void withoutPickingBothButtonsAreOff();
    void keysOpenThePicker_data();
    void keysOpenThePicker();
    void deleteKeyEmpties();

private:
    QPushButton *pickButton() { return Hand::named<QPushButton>(m_field.get(), u"فروشنده : ..."_s); }
    QPushButton *clearButton() { return Hand::named<QPushButton>(m_field.get(), u"فروشنده : حذف"_s); }

    Office m_office;
    std::unique_ptr<KPersonField> m_field;
    int m_ali = 0;
    int m_maryam = 0;
};

void TestKPersonField::init()
{
    m_office.reset();
    m_ali = Office::addPerson(u"علی"_s, u"رضایی"_s);
    m_maryam = Office::addPerson(u"مریم"_s, u"کریمی"_s);
    m_field = std::make_unique<KPersonField>(u"فروشنده :"_s);
    m_field->show();
    QVERIFY(QTest::qWaitForWindowActive(m_field.get()));
    m_field->setFocus();
}

void TestKPersonField::partsAreFoundByTheirNames()
{
    QCOMPARE(Hand::named<KEdit>(m_field.get(), u"فروشنده :"_s), m_field->nameEdit());
    QCOMPARE(pickButton()->text(), u"..."_s);
    QCOMPARE(clearButton()->text(), u"حذف"_s);
}

void TestKPersonField::clearButtonCaptionMayBeAnother()
{
    KPersonField field(u"خريدار :"_s, u"..."_s);
    field.show();
    QCOMPARE(Hand::named<QPushButton>(&field, u"خريدار : حذف"_s)->text(), u"..."_s);
}

void TestKPersonField::clearButtonOnlyWhilePicked()
{
    QVERIFY(pickButton()->isEnabled());
    QVERIFY(!clearButton()->isEnabled());
    m_field->setPersonID(m_ali);
    QVERIFY(clearButton()->isEnabled());
    clearButton()->click();
    QVERIFY(!clearButton()->isEnabled());
    QCOMPARE(m_field->personID(), 0);
    QCOMPARE(m_field->name(), QString());
}

void TestKPersonField::pickingReportsTheChange()
{
    QSignalSpy changed(m_field.get(), &KPersonField::changed);
    Hand::inNextWindow([](QDialog *) {
        Hand::type(u"مریم"_s);
        Hand::press(Qt::Key_Return);
    });
    pickButton()->click();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), m_maryam);
    QCOMPARE(m_field->personID(), m_maryam);
    QCOMPARE(m_field->name(), u"مریم کریمی"_s);
}

void TestKPersonField::cancelledPickingKeepsThePerson()
{
    m_field->setPersonID(m_ali);
    QSignalSpy changed(m_field.get(), &KPersonField::changed);
    int preselected = 0;
    Hand::inNextWindow([&preselected](QDialog *window) {
        preselected = window->findChild<KExtListCtrl *>()->currentKey();
        Hand::press(Qt::Key_Escape);
    });
    pickButton()->click();
    QCOMPARE(preselected, m_ali);
    QCOMPARE(m_field->personID(), m_ali);
    QCOMPARE(changed.size(), 0);
}

void TestKPersonField::clearingByTheUserReportsTheChange()
{
    m_field->setPersonID(m_ali);
    QSignalSpy changed(m_field.get(), &KPersonField::changed);
    clearButton()->click();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 0);
}

void TestKPersonField::settingAndClearingByCodeIsSilent()
{
    QSignalSpy changed(m_field.get(), &KPersonField::changed);
    m_field->setPersonID(m_ali);
    m_field->setName(u"نمایشگاه"_s);
    m_field->clear();
    QCOMPARE(changed.size(), 0);
}

void TestKPersonField::vanishedPersonKeepsTheKeyAndTheStoredName()
{
    m_field->setPersonID(999999, u"نام قدیمی"_s);
    QCOMPARE(m_field->personID(), 999999);
    QCOMPARE(m_field->name(), u"نام قدیمی"_s);
    m_field->setPersonID(m_ali, u"نام قدیمی"_s);
    QCOMPARE(m_field->name(), u"علی رضایی"_s);
}

void TestKPersonField::aNameOfNobodyIsShown()
{
    m_field->setPersonID(m_ali);
    m_field->setName(u"نمایشگاه البرز"_s);
    QCOMPARE(m_field->personID(), 0);
    QCOMPARE(m_field->name(), u"نمایشگاه البرز"_s);
    QVERIFY(!clearButton()->isEnabled());
}

void TestKPersonField::nameIsReadOnlyUnlessEditable()
{
    QSignalSpy edited(m_field.get(), &KPersonField::nameEdited);
    Hand::type(u"ح"_s);
    QCOMPARE(m_field->name(), QString());
    m_field->setPickEnabled(false);
    m_field->setNameEditable(true);
    Hand::type(u"حسن "_s);
    QCOMPARE(m_field->name(), u"حسن "_s);
    QCOMPARE(edited.size(), 4);
}

void TestKPersonField::withoutPickingBothButtonsAreOff()
{
    m_field->setPersonID(m_ali);
    m_field->setPickEnabled(false);
    QVERIFY(!pickButton()->isEnabled());
    QVERIFY(!clearButton()->isEnabled());
    m_field->pick();
    QVERIFY(!QApplication::activeModalWidget());
    m_field->setPickEnabled(true);
    QVERIFY(pickButton()->isEnabled());
    QVERIFY(clearButton()->isEnabled());
}

void TestKPersonField::keysOpenThePicker_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("F4") << Qt::Key_F4 << Qt::KeyboardModifiers();
    QTest::newRow("Alt+Down") << Qt::Key_Down << Qt::KeyboardModifiers(Qt::AltModifier);
    QTest::newRow("space") << Qt::Key_Space << Qt::KeyboardModifiers();
}

void TestKPersonField::keysOpenThePicker()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    Hand::inNextWindow([](QDialog *) {
        Hand::type(u"علی"_s);
        Hand::press(Qt::Key_Return);
    });
    Hand::press(key, modifiers);
    QCOMPARE(m_field->personID(), m_ali);
}

void TestKPersonField::deleteKeyEmpties()
{
    m_field->setPersonID(m_ali);
    QSignalSpy changed(m_field.get(), &KPersonField::changed);
    Hand::press(Qt::Key_Delete);
    QCOMPARE(m_field->personID(), 0);
    QCOMPARE(changed.size(), 1);
    Hand::press(Qt::Key_Delete);
    QCOMPARE(changed.size(), 1);
}

static const RegisteredTest<TestKPersonField, QApplication> registeredKPersonField;
#include "TestKPersonField.moc"
