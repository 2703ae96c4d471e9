// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/KForm.h"
#include "suite/utility/look/FormGrid.h"

#include "suite/db/records/KMySQL.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/RegisteredTest.h"
#include "tests/suite/utility/forms/FormColumns.h"
#include "tests/support/TestDatabase.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace FormColumns;

namespace {

class Record : public KMySQL
{
public:
    qint32 m_iID = 0;
    QString m_sName;
    QString m_sCity;
    double m_dAmount = 0;
    double m_dComputed = 0;
    QDateTime m_date;

    Record()
        : KMySQL(0)
    {
    }
    QString GetTableName() const override { return u"FormRows"_s; }

protected:
    void DoFieldExchange() override
    {
        RFX_Long(u"iID", m_iID, {});
        RFX_Text(u"sName", m_sName, {});
        RFX_Text(u"sCity", m_sCity, {});
        RFX_Double(u"dAmount", m_dAmount, {});
        RFX_Double(u"dComputed", m_dComputed, {});
        RFX_Date(u"date", m_date, {});
    }
};

const QString city = u"sCity"_s;
const QString computed = u"dComputed"_s;

QList<KFormField> fieldsInUse()
{
    using Kind = KFormField::Kind;
    KFormField nameField{name, u"نام :"_s};
    nameField.accessibleName = u"نام : اول"_s;
    KFormField cityField{city, u"شهر :"_s, Kind::EditableChoice};
    cityField.choices = {u"تهران"_s, u"قم"_s};
    KFormField amountField{amount, u"مبلغ :"_s, Kind::Money};
    amountField.inWords = true;
    KFormField computedField{computed, u"جمع :"_s, Kind::Money};
    computedField.displayed = false;
    return {nameField, cityField, amountField, computedField, {date, u"VIN :"_s, Kind::Date}};
}

}

class TestKFormInUse : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    std::unique_ptr<QWidget> m_page;
    KForm *m_form = nullptr;
    Record m_record;

private Q_SLOTS:
    void initTestCase()
    {
        m_database.run(u"CREATE TABLE FormRows (iID INT AUTO_INCREMENT PRIMARY KEY, sName VARCHAR(10), "
                       "sCity VARCHAR(5), dAmount DOUBLE, dComputed DOUBLE, date DATETIME)"_s);
    }

    void init()
    {
        m_page = std::make_unique<QWidget>();
        m_form = new KForm(fieldsInUse(), m_record, m_page.get());
        auto *grid = new FormGrid(m_page.get());
        for (const KFormField &field : m_form->fields())
            m_form->place(grid, field.column);
        m_record.m_sName = u"سارا"_s;
        m_record.m_sCity = u"قم"_s;
        m_record.m_dAmount = 1200;
        m_record.m_dComputed = 77;
        m_record.m_date = QDateTime(QDate(2026, 5, 1), QTime(14, 30), Qt::UTC);
        m_form->load(m_record);
        m_page->show();
    }

    void cleanup() { m_page.reset(); }

    void loadedValuesAreStoredAgainAsTheyWere()
    {
        Record other;
        m_form->store(other);
        QCOMPARE(other.m_sName, m_record.m_sName);
        QCOMPARE(other.m_sCity, m_record.m_sCity);
        QCOMPARE(other.m_dAmount, 1200.0);
        QCOMPARE(other.m_dComputed, 77.0);
        QCOMPARE(other.m_date, m_record.m_date);
    }

    void fieldThatIsNotUsedIsNotShownAndComesBack()
    {
        QWidget *words = nullptr;
        for (QLabel *label : m_page->findChildren<QLabel *>()) {
            if (label->text() == u"یک هزار و دویست"_s || label->text() == u"هزار و دویست"_s)
                words = label;
        }
        QVERIFY(words);
        m_form->setUsed(amount, false);
        QVERIFY(!m_form->isUsed(amount));
        QVERIFY(!m_form->control(amount)->isVisible());
        QVERIFY(!m_form->label(amount)->isVisible());
        QVERIFY(!words->isVisible());
        m_form->setUsed(amount, true);
        QVERIFY(m_form->isUsed(amount));
        QVERIFY(m_form->control(amount)->isVisible());
        QVERIFY(m_form->label(amount)->isVisible());
        QVERIFY(words->isVisible());
    }

    void fieldThatIsNotUsedKeepsWhatTheRecordHolds()
    {
        m_form->edit(name)->setText(u"رضا"_s);
        m_form->edit(amount)->setNumber(5);
        m_form->setUsed(amount, false);
        m_form->store(m_record);
        QCOMPARE(m_record.m_sName, u"رضا"_s);
        QCOMPARE(m_record.m_dAmount, 1200.0);
        m_form->setUsed(amount, true);
        m_form->store(m_record);
        QCOMPARE(m_record.m_dAmount, 5.0);
    }

    void fieldThatIsNeverDisplayedIsStoredAndNotShownByBeingUsed()
    {
        m_form->edit(computed)->setNumber(88);
        m_form->setUsed(computed, true);
        QVERIFY(!m_form->control(computed)->isVisible());
        m_form->store(m_record);
        QCOMPARE(m_record.m_dComputed, 88.0);
    }

    void invalidEntryCountsOnlyWhereTheFieldIsUsed()
    {
        QVERIFY(!m_form->firstInvalid());
        m_form->dateEdit(date)->setText(u"1405/13/01"_s);
        QVERIFY(m_form->firstInvalid());
        QCOMPARE(m_form->firstInvalid()->widget, m_form->control(date));
        m_form->setUsed(date, false);
        QVERIFY(!m_form->firstInvalid());
    }

    void anotherLabelIsShownAndReadOutUntilItIsTakenBack()
    {
        m_form->setLabel(amount, u"بها :"_s);
        QCOMPARE(m_form->label(amount)->text(), u"بها :"_s);
        QCOMPARE(m_form->control(amount)->accessibleName(), u"بها :"_s);
        m_form->setLabel(amount, {});
        QCOMPARE(m_form->label(amount)->text(), u"مبلغ :"_s);
        QCOMPARE(m_form->control(amount)->accessibleName(), u"مبلغ :"_s);
        m_form->setLabel(name, u"نامی دیگر :"_s);
        m_form->setLabel(name, {});
        QCOMPARE(m_form->control(name)->accessibleName(), u"نام : اول"_s);
    }

    void latinLabelIsReadFromTheRightToo()
    {
        QVERIFY(m_form->label(date)->text().endsWith(u"VIN :"_s));
        QVERIFY(m_form->label(date)->text().isRightToLeft());
        QCOMPARE(m_form->control(date)->accessibleName(), u"VIN :"_s);
    }

    void entryLineOfAnEditableChoiceBearsItsName()
    {
        const QLineEdit *line = m_form->comboBox(city)->lineEdit();
        QCOMPARE(line->accessibleName(), u"شهر :"_s);
        m_form->setLabel(city, u"شهرستان :"_s);
        QCOMPARE(line->accessibleName(), u"شهرستان :"_s);
        m_form->setLabel(city, QString());
        QCOMPARE(line->accessibleName(), u"شهر :"_s);
    }

    void choicesChangeAroundTheText()
    {
        QComboBox *combo = m_form->comboBox(city);
        QCOMPARE(combo->currentText(), u"قم"_s);
        QCOMPARE(combo->currentIndex(), 1);
        const QSignalSpy changes(combo, &QComboBox::currentTextChanged);
        m_form->setChoices(city, {u"قم"_s, u"یزد"_s, u"ری"_s});
        QCOMPARE(combo->currentText(), u"قم"_s);
        QCOMPARE(combo->currentIndex(), 0);
        QCOMPARE(combo->count(), 3);
        m_form->setChoices(city, {});
        QCOMPARE(combo->currentText(), u"قم"_s);
        QCOMPARE(combo->count(), 0);
        QCOMPARE(changes.size(), 0);
    }

    void wheelChoosesOnlyInTheDropDownThatHasTheFocus_data()
    {
        QTest::addColumn<bool>("focused");
        QTest::addColumn<QString>("text");
        QTest::newRow("without the focus") << false << u"تهران"_s;
        QTest::newRow("with the focus") << true << u"قم"_s;
    }

    void wheelChoosesOnlyInTheDropDownThatHasTheFocus()
    {
        QFETCH(bool, focused);
        QFETCH(QString, text);
        QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
        QComboBox *combo = m_form->comboBox(city);
        combo->setCurrentIndex(0);
        m_form->control(focused ? city : name)->setFocus();
        const QPointF middle = combo->rect().center();
        QWheelEvent wheel(middle, combo->mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(combo, &wheel);
        QCOMPARE(combo->currentText(), text);
        QCOMPARE(combo->hasFocus(), focused);
        // An event that is not taken goes on to the page, which scrolls.
        QCOMPARE(wheel.isAccepted(), focused);
    }

    void freeTextOfAChoiceStaysAsTypedAndIsLimitedToItsColumn()
    {
        QComboBox *combo = m_form->comboBox(city);
        combo->lineEdit()->selectAll();
        // The beginning of an entry is not made into the entry.
        for (const QChar character : u"تهر"_s) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, character);
            QCoreApplication::sendEvent(combo->lineEdit(), &press);
        }
        QCOMPARE(combo->currentText(), u"تهر"_s);
        combo->completer()->popup()->hide();
        QCOMPARE(combo->lineEdit()->maxLength(), 5);
        QCOMPARE(m_form->edit(name)->maxLength(), 10);
    }
};

static const RegisteredTest<TestKFormInUse, QApplication> registeredKFormInUse;

#include "TestKFormInUse.moc"
