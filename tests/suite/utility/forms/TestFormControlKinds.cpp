// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/forms/KForm.h"
#include "tests/suite/db/SampleRecord.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QTest>

namespace {

using Kind = KFormField::Kind;

const QString name = QStringLiteral("sName");
const QString note = QStringLiteral("sNote");
const QString date = QStringLiteral("date");
const QString amount = QStringLiteral("dAmount");
const QString flag = QStringLiteral("bFlag");
const QString number = QStringLiteral("iUserID");

KFormField field(const QString &column, Kind kind)
{
    return {column, QStringLiteral("عنوان :"), kind};
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
    made.choices = {QStringLiteral("یک"), QStringLiteral("دو"), QStringLiteral("سه")};
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
    return qobject_cast<const QCheckBox *>(control)->isChecked() ? QStringLiteral("x") : QString();
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
        row("text", field(name, Kind::Text), QStringLiteral("سارا"), QStringLiteral("سارا"));
        row("code", code(), QStringLiteral("12ب345-67"), QStringLiteral("12ب345-67"));
        row("long text", field(note, Kind::LongText), QStringLiteral("یک\nدو"), QStringLiteral("یک\nدو"));
        row("money", field(amount, Kind::Money), 1234567.0, QStringLiteral("1,234,567"));
        row("percent", field(amount, Kind::Percent), 12.5, QStringLiteral("12.5"));
        row("whole number", field(number, Kind::Integer), 1405, QStringLiteral("1405"));
        row("whole number of a range", year(), 1405, QStringLiteral("1405"));
        row("date", field(date, Kind::Date), QDateTime(QDate(2026, 3, 21), QTime(13, 5), Qt::UTC), QStringLiteral("1405/01/01"));
        row("choice", choice(number, Kind::Choice), 2, QStringLiteral("سه"));
        row("editable choice, of the choices", choice(note, Kind::EditableChoice), QStringLiteral("دو"), QStringLiteral("دو"));
        row("editable choice, free text", choice(note, Kind::EditableChoice), QStringLiteral("صد"), QStringLiteral("صد"));
        row("lookup", lookup(), 20, QStringLiteral("دو"));
        row("lookup of a deleted value", lookup(), 99, QStringLiteral("حذف شده"));
        row("flag", field(flag, Kind::Flag), 1, QStringLiteral("x"));
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
        QTest::newRow("text") << field(name, Kind::Text) << QVariant(QStringLiteral("x"));
        QTest::newRow("code") << code() << QVariant(QStringLiteral("x"));
        QTest::newRow("long text") << field(note, Kind::LongText) << QVariant(QStringLiteral("x"));
        QTest::newRow("money") << field(amount, Kind::Money) << QVariant(7.0);
        QTest::newRow("percent") << field(amount, Kind::Percent) << QVariant(7.0);
        QTest::newRow("whole number") << field(number, Kind::Integer) << QVariant(7);
        QTest::newRow("date") << field(date, Kind::Date) << QVariant(QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC));
        QTest::newRow("choice of none") << field(number, Kind::Choice) << QVariant(7);
        QTest::newRow("editable choice of none") << field(note, Kind::EditableChoice) << QVariant(QStringLiteral("x"));
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
        // NULL and an empty text are one to the user.
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
        QTest::addColumn<Qt::Alignment>("alignment");
        QTest::newRow("line") << field(name, Kind::Text) << true << Qt::Alignment();
        QTest::newRow("several lines") << field(note, Kind::LongText) << true << Qt::Alignment(Qt::AlignTop);
        QTest::newRow("date") << field(date, Kind::Date) << true << Qt::Alignment();
        QTest::newRow("drop-down") << lookup() << true << Qt::Alignment();
        QTest::newRow("check box") << field(flag, Kind::Flag) << false << Qt::Alignment();
    }

    void labelStandsBeforeTheControlUnlessItIsItsCaption()
    {
        QFETCH(KFormField, field);
        QFETCH(bool, before);
        SampleRecord record;
        QWidget page;
        auto *grid = new QGridLayout(&page);
        KForm form({field}, record, &page);
        form.place(grid, 0, 0, field.column);
        QCOMPARE(form.control(field.column)->accessibleName(), field.label);
        QCOMPARE(form.label(field.column) != nullptr, before);
        if (!before)
            return;
        QCOMPARE(form.label(field.column)->buddy(), form.control(field.column));
        QTEST(grid->itemAtPosition(0, 0)->alignment(), "alignment");
    }

    void entryThatCannotBeStoredIsFound_data()
    {
        QTest::addColumn<KFormField>("field");
        QTest::addColumn<QString>("wrong");
        QTest::addColumn<QString>("right");
        QTest::newRow("long text over its column")
            << field(name, Kind::LongText) << QStringLiteral("12345678901") << QStringLiteral("1234567890");
        QTest::newRow("percent above 100") << field(amount, Kind::Percent) << QStringLiteral("100.5") << QStringLiteral("100");
        QTest::newRow("whole number below its range") << year() << QStringLiteral("1299") << QStringLiteral("1300");
        QTest::newRow("whole number above its range") << year() << QStringLiteral("1501") << QStringLiteral("1500");
        QTest::newRow("day that is not") << field(date, Kind::Date) << QStringLiteral("1404/12/30") << QStringLiteral("1404/12/29");
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
        enter(form.control(date), QStringLiteral("1405/13/01"));
        QCOMPARE(form.firstInvalid()->widget, form.control(date));
        enter(form.control(amount), QStringLiteral("101"));
        QCOMPARE(form.firstInvalid()->widget, form.control(amount));
        form.setUsed(amount, false);
        QCOMPARE(form.firstInvalid()->widget, form.control(date));
    }
};

static const RegisteredTest<TestFormControlKinds, QApplication> registered;
#include "TestFormControlKinds.moc"
