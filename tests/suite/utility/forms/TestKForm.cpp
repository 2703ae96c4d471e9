// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/FormTexts.h"
#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/frame/TabOrder.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/suite/utility/forms/FormColumns.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace FormColumns;

namespace {

using Kind = KFormField::Kind;

const QString user = u"iUserID"_s;

QList<KFormField> fields()
{
    KFormField money{amount, u"مبلغ :"_s, Kind::Money};
    money.inWords = true;
    KFormField choice{user, u"نوع :"_s, Kind::Choice};
    choice.choices = {u"یک"_s, u"دو"_s, u"سه"_s};
    KFormField shorter{note, u"یادداشت :"_s};
    shorter.maxLength = 50;
    return {{name, u"نام :"_s}, shorter, {date, u"تاريخ :"_s, Kind::Date}, money, {flag, u"پرچم"_s, Kind::Flag}, choice};
}

}

class TestKForm : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

private Q_SLOTS:
    void initTestCase() { SampleRecord::createTable(); }

    void everyFieldIsLabelledAndLimitedToItsColumn()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        QCOMPARE(form.edit(name)->maxLength(), 10);
        QCOMPARE(form.edit(note)->maxLength(), 50);
        QCOMPARE(form.label(name)->text(), u"نام :"_s);
        QCOMPARE(form.label(name)->buddy(), form.control(name));
        QCOMPARE(form.control(amount)->accessibleName(), u"مبلغ :"_s);
        QCOMPARE(form.edit(amount)->kind(), KEdit::Kind::Money);
        QCOMPARE(form.checkBox(flag)->text(), u"پرچم"_s);
        QVERIFY(!form.label(flag));
        QCOMPARE(form.comboBox(user)->count(), 3);
    }

    void fieldThatIsOnlyShownIsNotWritten()
    {
        KFormField shown{name, u"نام :"_s};
        shown.readOnly = true;
        SampleRecord record;
        QWidget page;
        KForm form({shown, {note, u"یادداشت :"_s}}, record, &page);
        record.setValue(name, u"الف"_s);
        form.load(record);
        QCOMPARE(form.edit(name)->text(), u"الف"_s);
        record.setValue(name, u"ب"_s);
        form.edit(note)->setText(u"ج"_s);
        form.store(record);
        QCOMPARE(record.value(name).toString(), u"ب"_s);
        QCOMPARE(record.value(note).toString(), u"ج"_s);
    }

    void valuesAreToldAsTheControlsShowThem_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("text");
        QTest::newRow("text") << name << QVariant(u"الف"_s) << u"نام"_s << u"الف"_s;
        QTest::newRow("date") << date << QVariant(QDateTime(QDate(2026, 3, 21), QTime(9, 0), Qt::UTC)) << u"تاريخ"_s << u"1405/01/01"_s;
        QTest::newRow("no date") << date << QVariant(QDateTime()) << u"تاريخ"_s << QString();
        QTest::newRow("amount") << amount << QVariant(1500000.0) << u"مبلغ"_s << u"1,500,000"_s;
        QTest::newRow("flag") << flag << QVariant(1) << u"پرچم"_s << u"بله"_s;
        QTest::newRow("choice") << user << QVariant(2) << u"نوع"_s << u"سه"_s;
    }

    void valuesAreToldAsTheControlsShowThem()
    {
        QFETCH(QString, column);
        QFETCH(QVariant, value);
        QFETCH(QString, caption);
        QFETCH(QString, text);
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        QCOMPARE(FormTexts::caption(form, column), caption);
        QCOMPARE(FormTexts::text(form, column, value), std::optional(text));
    }

    void whatTheFormDoesNotKnowIsNotTold()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        QCOMPARE(FormTexts::caption(form, u"sNothing"_s), QString());
        QVERIFY(!FormTexts::text(form, u"sNothing"_s, 1));
        // A key that the drop-down does not offer.
        QVERIFY(!FormTexts::text(form, user, 7));
    }

    void aLongNameDoesNotWidenADropDownOfNames()
    {
        const auto widthWith = [](const QString &entry) {
            SampleRecord record;
            QWidget page;
            KForm form({{user, u"کاربر :"_s, Kind::Lookup}}, record, &page);
            form.comboBox(user)->addItem(entry, 1);
            page.show();
            return form.comboBox(user)->sizeHint().width();
        };
        QCOMPARE(widthWith(QString(250, u'س')), widthWith(u"سارا"_s));
    }

    void whatIsLoadedIsStoredBackUnchanged()
    {
        SampleRecord record;
        record.m_sName = u"سارا"_s;
        record.m_date = QDateTime(QDate(2026, 3, 21), QTime(13, 5), Qt::UTC);
        record.m_dAmount = 1234.5678;
        record.m_bFlag = 1;
        record.m_iUserID = 2;
        QWidget page;
        KForm form(fields(), record, &page);
        form.load(record);
        QCOMPARE(form.dateEdit(date)->text(), u"1405/01/01"_s);
        QCOMPARE(form.comboBox(user)->currentText(), u"سه"_s);
        SampleRecord other;
        form.store(other);
        QCOMPARE(other.m_sName, record.m_sName);
        QCOMPARE(other.m_date, record.m_date);
        QCOMPARE(other.m_dAmount, record.m_dAmount);
        QCOMPARE(other.m_bFlag, 1);
        QCOMPARE(other.m_iUserID, 2);
    }

    void textLongerThanItsLineShowsItsBeginning()
    {
        SampleRecord record;
        record.m_sName = u"0123456789"_s;
        record.m_sNote = u"یادداشتی که از خط خود بلندتر است"_s;
        QWidget page;
        KForm form({{name, u"نام :"_s}, {note, u"یادداشت :"_s, Kind::EditableChoice}}, record, &page);
        form.load(record);
        QCOMPARE(form.edit(name)->cursorPosition(), 0);
        QCOMPARE(form.comboBox(note)->lineEdit()->cursorPosition(), 0);
        // Also when the entries are exchanged under it.
        form.setChoices(note, {u"یک"_s});
        QCOMPARE(form.comboBox(note)->lineEdit()->cursorPosition(), 0);
    }

    void storedTextsAreOfferedWhateverPartOfThemIsTyped()
    {
        SampleRecord record;
        QWidget page;
        KFormField paragraph{note, u"یادداشت :"_s, Kind::LongText};
        KForm form({{name, u"نام :"_s}, paragraph}, record, &page);
        const QStringList texts = {u"Alpha one"_s, u"beta two"_s, u"gamma one"_s};
        form.setCompletions(name, texts);
        form.setCompletions(note, texts);
        for (QCompleter *completer : {form.edit(name)->completer(), form.longText(note)->completer()}) {
            completer->setCompletionPrefix(u"ONE"_s);
            QCOMPARE(completer->completionCount(), 2);
            QCOMPARE(completer->currentCompletion(), texts.at(0));
        }
        // Filled anew, only the new texts are offered.
        form.setCompletions(note, {u"other one"_s});
        QCOMPARE(form.longText(note)->completer()->completionCount(), 1);
    }

    void emptyDateAndNoChoiceAreStoredAsEmptyAndZero()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        form.load(record);
        form.comboBox(user)->setCurrentIndex(-1);
        SampleRecord other;
        other.m_date = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
        other.m_iUserID = 2;
        form.store(other);
        QVERIFY(!other.m_date.isValid());
        QCOMPARE(other.m_iUserID, 0);
    }

    void lookupStoresTheKeyOfItsEntry()
    {
        SampleRecord record;
        QWidget page;
        KForm form({{user, u"رنگ :"_s, Kind::Lookup}}, record, &page);
        form.comboBox(user)->addItem(u"-"_s, 0);
        form.comboBox(user)->addItem(u"سفید"_s, 40);
        form.comboBox(user)->addItem(u"سیاه"_s, 7);
        record.m_iUserID = 7;
        form.load(record);
        QCOMPARE(form.comboBox(user)->currentText(), u"سیاه"_s);
        QCOMPARE(form.key(user), 7);
        form.setKey(user, 40);
        form.store(record);
        QCOMPARE(record.m_iUserID, 40);
        form.setKey(user, 0);
        QCOMPARE(form.comboBox(user)->currentText(), u"-"_s);
        form.comboBox(user)->setCurrentIndex(-1);
        form.store(record);
        QCOMPARE(record.m_iUserID, 0);
    }

    void lookupOfChoicesAndKeysStoresTheKeyOfTheChoice()
    {
        SampleRecord record;
        QWidget page;
        KFormField fuel{user, u"سوخت :"_s, Kind::Lookup};
        fuel.choices = {u"گاز"_s, u"گازوئیل"_s};
        fuel.keys = {4, 3};
        KForm form({fuel}, record, &page);
        form.load(record);
        QCOMPARE(form.comboBox(user)->currentIndex(), -1);
        form.comboBox(user)->setCurrentIndex(1);
        form.store(record);
        QCOMPARE(record.m_iUserID, 3);
        record.m_iUserID = 4;
        form.load(record);
        QCOMPARE(form.comboBox(user)->currentText(), u"گاز"_s);
    }

    void buttonStandsBehindItsControlAndGoesWithTheRightToEdit()
    {
        SampleRecord record;
        QWidget page;
        KFormField text{note, u"امکانات :"_s};
        text.hasButton = true;
        KForm form({{name, u"نام :"_s}, text}, record, &page);
        auto *grid = new FormGrid(&page);
        form.place(grid, name);
        form.place(grid, note);
        QVERIFY(!form.button(name));
        QPushButton *button = form.button(note);
        QCOMPARE(button->text(), u"..."_s);
        QCOMPARE(button->accessibleName(), u"امکانات : ..."_s);
        page.setLayoutDirection(Qt::RightToLeft);
        page.show();
        QVERIFY(button->isVisible());
        QVERIFY(button->x() < form.control(note)->x());
        form.setReadOnly(note, true);
        QVERIFY(!button->isVisible());
        form.setReadOnly(note, false);
        QVERIFY(button->isVisible());
        form.setShowMode(true);
        QVERIFY(!button->isVisible());
        form.setShowMode(false);
        form.setUsed(note, false);
        QVERIFY(!button->isVisible());
    }

    void arrowsStepAWholeNumberWithinItsRange()
    {
        SampleRecord record;
        QWidget page;
        KFormField year{user, u"سال توليد :"_s, Kind::Integer};
        year.maximum = 9999;
        year.hasArrows = true;
        KForm form({year}, record, &page);
        auto *grid = new FormGrid(&page);
        form.place(grid, user);
        page.show();
        KEdit *edit = form.edit(user);
        form.arrows(user)->setStart(1405);
        const QList<QToolButton *> arrows = form.arrows(user)->findChildren<QToolButton *>();
        QCOMPARE(arrows.size(), 2);
        QSignalSpy edited(edit, &KEdit::numberEdited);
        arrows.at(0)->click();
        QCOMPARE(edit->integer(), 1405);
        QCOMPARE(edited.size(), 1);
        arrows.at(0)->click();
        QCOMPARE(edit->integer(), 1406);
        arrows.at(1)->click();
        arrows.at(1)->click();
        QCOMPARE(edit->integer(), 1404);
        QTest::keyClick(edit, Qt::Key_Up);
        QCOMPARE(edit->integer(), 1405);
        QTest::keyClick(edit, Qt::Key_Down);
        QCOMPARE(edit->integer(), 1404);
        edit->setNumber(9999);
        arrows.at(0)->click();
        QCOMPARE(edit->integer(), 9999);
        form.setShowMode(true);
        QVERIFY(!form.arrows(user)->isVisible());
        QTest::keyClick(edit, Qt::Key_Down);
        QCOMPARE(edit->integer(), 9999);
    }

    void codeIsStoredWithoutTheMarksThatItIsShownWith()
    {
        SampleRecord record;
        QWidget page;
        KFormField plate{name, u"شماره پلاک :"_s};
        plate.leftToRight = true;
        KForm form({plate}, record, &page);
        record.m_sName = u"12ب345-67"_s;
        form.load(record);
        QCOMPARE(form.edit(name)->layoutDirection(), Qt::LeftToRight);
        SampleRecord other;
        form.store(other);
        QCOMPARE(other.m_sName, record.m_sName);
        // The column holds ten characters, whatever marks are shown.
        form.edit(name)->clear();
        form.edit(name)->setText(u"12ب345-6789"_s);
        form.store(other);
        QCOMPARE(other.m_sName, u"12ب345-678"_s);
    }

    void lookupKeepsAKeyThatItDoesNotOffer()
    {
        SampleRecord record;
        QWidget page;
        KForm form({{user, u"رنگ :"_s, Kind::Lookup}}, record, &page);
        form.comboBox(user)->addItem(u"-"_s, 0);
        record.m_iUserID = 99;
        form.load(record);
        QCOMPARE(form.comboBox(user)->currentText(), u"حذف شده"_s);
        SampleRecord other;
        form.store(other);
        QCOMPARE(other.m_iUserID, 99);
    }

    void longTextKeepsItsLinesAndIsLimitedToItsColumn()
    {
        SampleRecord record;
        QWidget page;
        KForm form({{name, u"توضيحات :"_s, Kind::LongText}}, record, &page);
        record.m_sName = u"یک\nدو"_s;
        form.load(record);
        QCOMPARE(form.longText(name)->toPlainText(), record.m_sName);
        SampleRecord other;
        form.store(other);
        QCOMPARE(other.m_sName, record.m_sName);
        QVERIFY(!form.firstInvalid());
        form.longText(name)->setPlainText(u"12345678901"_s);
        const auto problem = form.firstInvalid();
        QVERIFY(problem);
        QCOMPARE(problem->widget, form.control(name));
        QVERIFY(problem->message.contains(u"11"_s));
        form.longText(name)->setPlainText(u"1234567890"_s);
        QVERIFY(!form.firstInvalid());
        form.setShowMode(true);
        QVERIFY(form.longText(name)->isReadOnly());
    }

    void dropDownThatOnlyShowsItsValueStaysReadable()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        page.show();
        form.setShowMode(true);
        const auto isReadable = [&form] {
            const QPalette palette = form.comboBox(user)->palette();
            return palette.color(QPalette::Disabled, QPalette::ButtonText) == palette.color(QPalette::Active, QPalette::ButtonText);
        };
        QVERIFY(isReadable());
        // Also once the user has changed from a light look to a dark one.
        const QPalette before = QApplication::palette();
        QPalette dark(Qt::black);
        QApplication::setPalette(dark);
        // A running program hands it on to its windows.
        page.setPalette(dark);
        const bool readable = isReadable();
        const QColor text = form.comboBox(user)->palette().color(QPalette::Disabled, QPalette::ButtonText);
        QApplication::setPalette(before);
        QVERIFY(readable);
        QCOMPARE(text, dark.color(QPalette::Active, QPalette::ButtonText));
    }

    void showModeMakesEveryControlReadOnlyAndEndsAsTheFieldsSay()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        form.setReadOnly(note, true);
        form.setShowMode(true);
        QVERIFY(form.edit(name)->isReadOnly());
        QVERIFY(form.dateEdit(date)->isReadOnly());
        QVERIFY(!form.comboBox(user)->isEnabled());
        QVERIFY(!form.checkBox(flag)->isEnabled());
        form.setReadOnly(name, false);
        QVERIFY(form.edit(name)->isReadOnly());
        form.setShowMode(false);
        QVERIFY(!form.edit(name)->isReadOnly());
        QVERIFY(form.edit(note)->isReadOnly());
        QVERIFY(form.comboBox(user)->isEnabled());
    }

    void firstInvalidNamesTheFieldAndTheReason()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        QVERIFY(!form.firstInvalid());
        form.dateEdit(date)->setText(u"1404/12/30"_s);
        const auto problem = form.firstInvalid();
        QVERIFY(problem);
        QCOMPARE(problem->widget, form.control(date));
        QVERIFY(!problem->message.isEmpty());
    }

    void characterThatTheColumnDoesNotHoldIsInvalid()
    {
        SampleRecord record;
        QWidget page;
        KForm form({{note, u"شرح :"_s}, {name, u"توضيحات :"_s, Kind::LongText}}, record, &page);
        const auto invalid = [&form] { return form.firstInvalid() ? form.firstInvalid()->widget : nullptr; };
        form.edit(note)->setText(u"پژو 🚗"_s);
        QCOMPARE(invalid(), form.control(note));
        QCOMPARE(form.firstInvalid()->message, u"نویسه‌ای دارد که قابل ذخیره نیست."_s);
        form.edit(note)->setText(u"پژو می‌رود"_s);
        QVERIFY(!invalid());
        form.longText(name)->setPlainText(u"🚗"_s);
        QCOMPARE(invalid(), form.control(name));
        form.setUsed(name, false);
        QVERIFY(!invalid());
    }

    void amountIsToldInWordsBesideItsLabel()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        form.place(new FormGrid(&page), amount);
        const FieldNote *words = FieldNote::of(form.control(amount));
        form.edit(amount)->setNumber(21);
        QCOMPARE(words->text(), u"بیست و یک"_s);
        form.edit(amount)->setNumber(0);
        QVERIFY(words->text().isEmpty());
    }

    void amountIsToldInWordsBehindItsField()
    {
        SampleRecord record;
        QWidget page;
        KForm form(fields(), record, &page);
        form.place(new FormGrid(&page), amount, 2, 2);
        const auto *words = page.findChild<AmountWords *>();
        QVERIFY(words);
        form.edit(amount)->setNumber(21);
        QCOMPARE(words->text(), u"بیست و یک"_s);
        QVERIFY(FieldNote::of(form.control(amount))->text().isEmpty());
        form.setUsed(amount, false);
        QVERIFY(words->isHidden());
    }

    void fieldThatIsNotDisplayedKeepsItsValue()
    {
        SampleRecord record;
        record.m_sNote = u"پنهان"_s;
        QList<KFormField> hidden = fields();
        hidden[1].displayed = false;
        QWidget page;
        KForm form(hidden, record, &page);
        QVERIFY(form.control(note)->isHidden());
        QVERIFY(form.label(note)->isHidden());
        form.load(record);
        SampleRecord other;
        form.store(other);
        QCOMPARE(other.m_sNote, u"پنهان"_s);
    }

    void tabGoesThroughTheFieldsAsTheyAreLaidOut()
    {
        SampleRecord record;
        QWidget page;
        auto *grid = new FormGrid(&page);
        KForm form(fields(), record, &page);
        // Laid out against their order of creation.
        form.place(grid, amount);
        form.place(grid, date);
        form.place(grid, note);
        form.place(grid, name);
        tabInLayoutOrder(&page);
        QCOMPARE(form.control(amount)->nextInFocusChain(), form.control(date));
        // The date's own button takes no focus and may stand between.
        QWidget *next = form.control(date)->nextInFocusChain();
        while (next != form.control(note) && !(next->focusPolicy() & Qt::TabFocus))
            next = next->nextInFocusChain();
        QCOMPARE(next, form.control(note));
        QCOMPARE(form.control(note)->nextInFocusChain(), form.control(name));
    }
};

static const RegisteredTest<TestKForm, QApplication> registeredKForm;
#include "TestKForm.moc"
