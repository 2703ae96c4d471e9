// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/look/FormGrid.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/suite/utility/forms/FormColumns.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace FormColumns;

namespace {

using Kind = KFormField::Kind;

const QString number = u"iUserID"_s;

KFormField field(const QString &column, Kind kind)
{
    return {column, u"عنوان :"_s, kind};
}

KFormField code()
{
    KFormField made = field(name, Kind::Text);
    made.leftToRight = true;
    return made;
}

KFormField choice(const QString &column, Kind kind)
{
    KFormField made = field(column, kind);
    made.choices = {u"یک"_s, u"دو"_s, u"سه"_s};
    return made;
}

KFormField lookup()
{
    KFormField made = choice(number, Kind::Lookup);
    made.keys = {10, 20, 30};
    return made;
}

KFormField year()
{
    KFormField made = field(number, Kind::Integer);
    made.minimum = 1300;
    made.maximum = 1500;
    return made;
}

// What the user sees in the control; of a check box whether it is ticked.
QString shownIn(const QWidget *control)
{
    if (const auto *edit = qobject_cast<const KEdit *>(control))
        return edit->plainText();
    if (const auto *edit = qobject_cast<const KDateEdit *>(control))
        return edit->text();
    if (const auto *area = qobject_cast<const KTextArea *>(control))
        return area->text();
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return combo->currentText();
    return qobject_cast<const QCheckBox *>(control)->isChecked() ? u"x"_s : QString();
}

void enter(QWidget *control, const QString &text)
{
    if (auto *area = qobject_cast<KTextArea *>(control))
        area->setText(text);
    else
        qobject_cast<QLineEdit *>(control)->setText(text);
}

}

Q_DECLARE_METATYPE(KFormField)

// What every kind of field does with its column, alike but for the kind.
class TestFormControlKinds : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

private Q_SLOTS:
    void initTestCase() { SampleRecord::createTable(); }

    void valueIsShownAndStoredBack_data()
    {
        QTest::addColumn<KFormField>("field");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *what, const KFormField &field, const QVariant &value, const QString &shown) {
            QTest::newRow(what) << field << value << shown;
        };
        row("text", field(name, Kind::Text), u"سارا"_s, u"سارا"_s);
        row("code", code(), u"12ب345-67"_s, u"12ب345-67"_s);
        row("long text", field(note, Kind::LongText), u"یک\nدو"_s, u"یک\nدو"_s);
        row("money", field(amount, Kind::Money), 1234567.0, u"1,234,567"_s);
        row("percent", field(amount, Kind::Percent), 12.5, u"12.5"_s);
        row("whole number", field(number, Kind::Integer), 1405, u"1405"_s);
        row("whole number of a range", year(), 1405, u"1405"_s);
        row("date", field(date, Kind::Date), QDateTime(QDate(2026, 3, 21), QTime(13, 5), Qt::UTC), u"1405/01/01"_s);
        row("choice", choice(number, Kind::Choice), 2, u"سه"_s);
        row("editable choice, of the choices", choice(note, Kind::EditableChoice), u"دو"_s, u"دو"_s);
        row("editable choice, free text", choice(note, Kind::EditableChoice), u"صد"_s, u"صد"_s);
        row("lookup", lookup(), 20, u"دو"_s);
        row("lookup of a deleted value", lookup(), 99, u"حذف شده"_s);
        row("flag", field(flag, Kind::Flag), 1, u"x"_s);
    }

    void valueIsShownAndStoredBack()
    {
        QFETCH(KFormField, field);
        QFETCH(QVariant, value);
        SampleRecord record;
        record.setValue(field.column, value);
        QWidget page;
        KForm form({field}, record, &page);
        form.load(record);
        QTEST(shownIn(form.control(field.column)), "shown");
        SampleRecord other;
        form.store(other);
        QCOMPARE(other.value(field.column), record.value(field.column));
    }

    void nothingEnteredIsStoredAsNothing_data()
    {
        QTest::addColumn<KFormField>("field");
        QTest::addColumn<QVariant>("before");
        QTest::newRow("text") << field(name, Kind::Text) << QVariant(u"x"_s);
        QTest::newRow("code") << code() << QVariant(u"x"_s);
        QTest::newRow("long text") << field(note, Kind::LongText) << QVariant(u"x"_s);
        QTest::newRow("money") << field(amount, Kind::Money) << QVariant(7.0);
        QTest::newRow("percent") << field(amount, Kind::Percent) << QVariant(7.0);
        QTest::newRow("whole number") << field(number, Kind::Integer) << QVariant(7);
        QTest::newRow("date") << field(date, Kind::Date) << QVariant(QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC));
        QTest::newRow("choice of none") << field(number, Kind::Choice) << QVariant(7);
        QTest::newRow("editable choice of none") << field(note, Kind::EditableChoice) << QVariant(u"x"_s);
        QTest::newRow("lookup of none") << field(number, Kind::Lookup) << QVariant(7);
        QTest::newRow("flag") << field(flag, Kind::Flag) << QVariant(1);
    }

    void nothingEnteredIsStoredAsNothing()
    {
        QFETCH(KFormField, field);
        QFETCH(QVariant, before);
        SampleRecord record;
        QWidget page;
        const KForm form({field}, record, &page);
        const QVariant nothing = record.value(field.column);
        record.setValue(field.column, before);
        QVERIFY(record.value(field.column) != nothing);
        form.store(record);
        // NULL and an empty text are the same to the user.
        if (nothing.typeId() == QMetaType::QString)
            QCOMPARE(record.value(field.column).toString(), QString());
        else
            QCOMPARE(record.value(field.column), nothing);
    }

    void showModeLocksTheControl_data()
    {
        QTest::addColumn<KFormField>("field");
        QTest::addColumn<bool>("readable");
        QTest::newRow("text") << field(name, Kind::Text) << true;
        QTest::newRow("code") << code() << true;
        QTest::newRow("long text") << field(note, Kind::LongText) << true;
        QTest::newRow("money") << field(amount, Kind::Money) << true;
        QTest::newRow("percent") << field(amount, Kind::Percent) << true;
        QTest::newRow("whole number") << year() << true;
        QTest::newRow("date") << field(date, Kind::Date) << true;
        QTest::newRow("choice") << choice(number, Kind::Choice) << false;
        QTest::newRow("editable choice") << choice(note, Kind::EditableChoice) << false;
        QTest::newRow("lookup") << lookup() << false;
        QTest::newRow("flag") << field(flag, Kind::Flag) << false;
    }

    // A line stays to be read and copied from; what has no such state is disabled.
    void showModeLocksTheControl()
    {
        QFETCH(KFormField, field);
        QFETCH(bool, readable);
        SampleRecord record;
        QWidget page;
        KForm form({field}, record, &page);
        const QWidget *control = form.control(field.column);
        const auto isLocked = [&] { return readable ? control->property("readOnly").toBool() : !control->isEnabled(); };
        QVERIFY(!isLocked());
        form.setShowMode(true);
        QVERIFY(isLocked());
        QCOMPARE(control->isEnabled(), readable);
        form.setShowMode(false);
        QVERIFY(!isLocked());
        form.setReadOnly(field.column, true);
        QVERIFY(isLocked());
    }

    void labelStandsBeforeTheControlUnlessItIsItsCaption_data()
    {
        QTest::addColumn<KFormField>("field");
        QTest::addColumn<bool>("before");
        QTest::newRow("line") << field(name, Kind::Text) << true;
        QTest::newRow("several lines") << field(note, Kind::LongText) << true;
        QTest::newRow("date") << field(date, Kind::Date) << true;
        QTest::newRow("drop-down") << lookup() << true;
        QTest::newRow("check box") << field(flag, Kind::Flag) << false;
    }

    void labelStandsBeforeTheControlUnlessItIsItsCaption()
    {
        QFETCH(KFormField, field);
        QFETCH(bool, before);
        SampleRecord record;
        QWidget page;
        KForm form({field}, record, &page);
        form.place(new FormGrid(&page), field.column);
        QCOMPARE(form.control(field.column)->accessibleName(), field.label);
        QCOMPARE(form.label(field.column) != nullptr, before);
        if (!before)
            return;
        QCOMPARE(form.label(field.column)->buddy(), form.control(field.column));
    }

    void entryThatCannotBeStoredIsFound_data()
    {
        QTest::addColumn<KFormField>("field");
        QTest::addColumn<QString>("wrong");
        QTest::addColumn<QString>("right");
        QTest::newRow("long text over its column")
            << field(name, Kind::LongText) << u"12345678901"_s << u"1234567890"_s;
        QTest::newRow("percent above 100") << field(amount, Kind::Percent) << u"100.5"_s << u"100"_s;
        QTest::newRow("whole number below its range") << year() << u"1299"_s << u"1300"_s;
        QTest::newRow("whole number above its range") << year() << u"1501"_s << u"1500"_s;
        QTest::newRow("day that is not") << field(date, Kind::Date) << u"1404/12/30"_s << u"1404/12/29"_s;
    }

    void entryThatCannotBeStoredIsFound()
    {
        QFETCH(KFormField, field);
        QFETCH(QString, wrong);
        QFETCH(QString, right);
        SampleRecord record;
        QWidget page;
        KForm form({field}, record, &page);
        QWidget *control = form.control(field.column);
        enter(control, wrong);
        const auto problem = form.firstInvalid();
        QVERIFY(problem);
        QCOMPARE(problem->widget, control);
        QVERIFY(!problem->message.isEmpty());
        enter(control, right);
        QVERIFY(!form.firstInvalid());
    }

    void firstOfSeveralWrongEntriesIsFound()
    {
        SampleRecord record;
        QWidget page;
        KForm form({field(name, Kind::Text), field(amount, Kind::Percent), field(date, Kind::Date)}, record, &page);
        enter(form.control(date), u"1405/13/01"_s);
        QCOMPARE(form.firstInvalid()->widget, form.control(date));
        enter(form.control(amount), u"101"_s);
        QCOMPARE(form.firstInvalid()->widget, form.control(amount));
        form.setUsed(amount, false);
        QCOMPARE(form.firstInvalid()->widget, form.control(date));
    }
};

static const RegisteredTest<TestFormControlKinds, QApplication> registeredFormControlKinds;
#include "TestFormControlKinds.moc"
