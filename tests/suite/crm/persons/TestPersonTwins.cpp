// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/twins/TwinSettings.h"
#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// The window of a person tells of another one with the same number or name, and takes a number once where the office says so.
class TestPersonTwins : public QObject
{
    Q_OBJECT

    Office m_office;

    static KEdit *edit(QWidget &window, const QString &name) { return Hand::named<KEdit>(&window, name); }
    static QString noteAfter(QWidget &window, const QString &name, const QString &text)
    {
        edit(window, name)->setText(text);
        Q_EMIT edit(window, name)->editingFinished();
        return FieldNote::of(edit(window, name))->text();
    }
    static void addAli()
    {
        Office::addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) {
            person.m_sNationalCode = u"0076229645"_s;
            person.m_sMobile = u"09121234567"_s;
            person.m_sFatherName = u"حسن"_s;
        });
    }
    QString count() { return m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s); }

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        CrmSearch::enter();
    }
    void init()
    {
        m_office.reset();
        m_office.db.run(u"DELETE FROM Properties WHERE sSection='Twins'"_s);
        addAli();
    }

    void noteNamesTheOther_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("told");
        QTest::newRow("national code in other digits") << u"کد ملی :"_s << u"۰۰۷۶۲۲۹۶۴۵"_s << true;
        QTest::newRow("mobile with its country") << u"موبایل :"_s << u"+989121234567"_s << true;
        QTest::newRow("another mobile") << u"موبایل :"_s << u"09121234568"_s << false;
        QTest::newRow("name and father's name") << u"نام پدر :"_s << u"حسن"_s << true;
        QTest::newRow("a namesake of another father") << u"نام پدر :"_s << u"حسین"_s << false;
    }

    void noteNamesTheOther()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
        dialog.show();
        edit(dialog, u"نام :"_s)->setText(u"علي"_s);
        edit(dialog, u"نام خانوادگی :"_s)->setText(u"رضايي"_s);
        const QString note = noteAfter(dialog, field, text);
        QTEST(note.contains(u"Ctrl+T"_s), "told");
        QVERIFY2(note.contains(u"علی رضایی"_s) || !note.contains(u"Ctrl+T"_s), qPrintable(note));
    }

    void savingAsksForEach()
    {
        CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
        dialog.show();
        edit(dialog, u"نام :"_s)->setText(u"علی"_s);
        edit(dialog, u"نام خانوادگی :"_s)->setText(u"رضایی"_s);
        edit(dialog, u"نام پدر :"_s)->setText(u"حسن"_s);
        edit(dialog, u"موبایل :"_s)->setText(u"09121234567"_s);
        g_pDlgYesNo->takeShown();
        QVERIFY(dialog.OnOK());
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 2);
        QCOMPARE(count(), u"2"_s);
    }

    void whatTheOfficeTakesOnceIsRefused_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::newRow("national code") << TwinSettings::nationalCode.key.toString() << u"کد ملی :"_s << u"0076229645"_s;
        QTest::newRow("mobile") << TwinSettings::mobile.key.toString() << u"موبایل :"_s << u"00989121234567"_s;
    }

    void whatTheOfficeTakesOnceIsRefused()
    {
        QFETCH(QString, key);
        QFETCH(QString, field);
        QFETCH(QString, text);
        CTblProperties::DBWriteSetting(TwinSettings::section(), key, u"1"_s);
        m_office.loginClerk();
        CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
        dialog.show();
        edit(dialog, u"نام :"_s)->setText(u"مینا"_s);
        edit(dialog, field)->setText(text);
        g_pDlgWarning->takeShown();
        g_pDlgYesNo->takeShown();
        QVERIFY(!dialog.OnOK());
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(u"دو بار نمی‌پذیرد"_s) && told.constFirst().contains(u"علی رضایی"_s), qPrintable(told.constFirst()));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
        QCOMPARE(edit(dialog, field)->plainText(), text);
        QCOMPARE(count(), u"1"_s);
        // The administrator is asked instead.
        m_office.loginAdmin();
        QVERIFY(dialog.OnOK());
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(count(), u"2"_s);
    }
};

static const RegisteredTest<TestPersonTwins, QApplication> registeredPersonTwins;
#include "TestPersonTwins.moc"
