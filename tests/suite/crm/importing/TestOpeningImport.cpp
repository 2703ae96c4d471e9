// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportMapping.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/importing/OpeningImport.h"
#include "suite/utility/sheets/CsvText.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// The balances of a new year: one document, balanced, of its first day.
class TestOpeningImport : public QObject
{
    Q_OBJECT

    Office m_office;
    OpeningImport m_kind;

    QList<ImportRow> rowsOf(const QString &csv) const
    {
        const Sheet sheet = CsvText::read((u"حساب,شخص,بدهکار,بستانکار,شرح\n"_s + csv).toUtf8());
        return ImportMapping::rows(sheet, 0, m_kind.fields(), ImportMapping::matched(m_kind.fields(), ImportMapping::titlesIn(sheet, 0)));
    }
    Importing::Checked check(const QString &csv) const { return Importing::check(m_kind, {u"a"_s, csv.left(60)}, rowsOf(csv)); }
    int write(const QString &csv, const Importing::Checked &agreed) const { return Importing::write(m_kind, {u"a"_s, csv.left(60)}, rowsOf(csv), agreed); }

private Q_SLOTS:
    void init()
    {
        m_office.reset();
        for (const QString &table : {u"Docs"_s, u"Documents"_s, u"ImportedFiles"_s})
            m_office.db.run(u"DELETE FROM "_s + table);
        Office::addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) { person.m_iCode = 7; });
    }

    void oneDocumentOfTheFirstDay()
    {
        const QString csv = u"110101,,1000,,صندوق\n,علی رضایی,500,,\n110301,7,,300,\n110201,,,1200,"_s;
        const Importing::Checked checked = check(csv);
        QCOMPARE(checked.bad(), 0);
        QCOMPARE(checked.problem, QString());
        QCOMPARE(checked.question, QString());
        QCOMPARE(write(csv, checked), 4);
        QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Documents"_s), u"1"_s);
        const OfficeSettings settings = OfficeSettings::read();
        QCOMPARE(m_office.db.value(u"SELECT CONCAT_WS('|',DATE(date),iFiscalYear,iKind,iStatus) FROM Documents"_s),
                 u"%1|%2|1|0"_s.arg(settings.fiscalYearOpeningDate().date().toString(Qt::ISODate)).arg(settings.fiscalYear()));
        QCOMPARE(m_office.db.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iHesabMoeenCode,iPersonID>0,dBed,dBes) ORDER BY iID SEPARATOR ' ') FROM Docs"_s),
                 u"110101/0/1000/0 110301/1/500/0 110301/1/0/300 110201/0/0/1200"_s);
        // A second one is asked about.
        QVERIFY(check(u"110101,,5,,\n110201,,,5,"_s).question.contains(u"سند 1"_s));
    }

    void whatDoesNotBalanceSaysByHowMuch()
    {
        const QString csv = u"110101,,1000,,\n110201,,,900,"_s;
        const Importing::Checked checked = check(csv);
        QCOMPARE(checked.problem, u"فایل تراز نیست: بدهکار 1,000، بستانکار 900، تفاوت 100."_s);
        QVERIFY_THROWS_EXCEPTION(Importing::Changed, write(csv, checked));
        QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
    }

    void problems_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("field");
        QTest::newRow("no account") << u",,5,,"_s << u"حساب"_s;
        QTest::newRow("an account that is none") << u"999999,,5,,"_s << u"حساب"_s;
        QTest::newRow("a general account") << u"1101,,5,,"_s << u"حساب"_s;
        QTest::newRow("nobody on the persons") << u"110301,,5,,"_s << u"شخص"_s;
        QTest::newRow("somebody on the cash box") << u"110101,7,5,,"_s << u"شخص"_s;
        QTest::newRow("a person nobody knows") << u"110301,99,5,,"_s << u"شخص"_s;
        QTest::newRow("both sides") << u"110101,,5,5,"_s << u"بدهکار"_s;
        QTest::newRow("no amount") << u"110101,,,,x"_s << u"بدهکار"_s;
    }
    void problems()
    {
        QFETCH(QString, row);
        const Importing::Checked checked = check(row);
        QCOMPARE(checked.bad(), 1);
        QTEST(checked.rows.constFirst().problems.constFirst().field, "field");
    }
};

static const RegisteredTest<TestOpeningImport, QApplication> registeredOpeningImport;
#include "TestOpeningImport.moc"
