// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractFilter.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

Q_DECLARE_METATYPE(ContractCriteria)

// The text of every clause; what the clauses select is tested on rows in TestContractFilterRows.
class TestContractFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clause_data();
    void clause();
    void clausesStandInTheirOrder();
};

void TestContractFilter::clause_data()
{
    QTest::addColumn<ContractCriteria>("criteria");
    QTest::addColumn<QString>("filter");
    const auto row = [](const char *name, const ContractCriteria &criteria, const char *filter) {
        QTest::newRow(name) << criteria << QString::fromUtf8(filter);
    };
    row("nothing asked", {}, "");
    row("no criterion but the status clause is that clause alone", {.activeOnly = true}, "iStatus = 0");
    row("first party", {.firstPersonID = 12}, "iPersonFirstID=12");
    row("second party", {.secondPersonID = 7}, "iPersonSecondID=7");
    row("return filter: all", {.returnState = 0}, "");
    row("return filter: not returned", {.returnState = 1}, "bReturn=0");
    row("return filter: returned", {.returnState = 2}, "bReturn=1");
    row("archive filter: all", {.archiveState = 0, .currentUserID = 5}, "");
    row("archive filter: not archived", {.archiveState = 1, .currentUserID = 5}, "iArchiveUserID=0");
    row("archive filter: archived by oneself", {.archiveState = 2, .currentUserID = 5}, "iArchiveUserID=5");
    row("archive filter: archived by others", {.archiveState = 3, .currentUserID = 5},
        "iArchiveUserID<>0 AND iArchiveUserID<>5");
    row("type filter: all", {.contractType = 0}, "");
    row("type filter: sale", {.contractType = 1}, "iContractType = 0");
    row("type filter: letter", {.contractType = 4}, "iContractType = 3");
    row("contract date from", {.contractFrom = day(2026, 11, 20, 13)}, "dateContract>='2026-11-20'");
    row("contract date to, widened by one day", {.contractTo = day(2026, 11, 20)}, "dateContract<='2026-11-21'");
    row("contract date to, over the end of the year", {.contractTo = day(2026, 12, 31)}, "dateContract<='2027-01-01'");
    row("contract date to, on a leap day", {.contractTo = day(2028, 2, 28)}, "dateContract<='2028-02-29'");
    row("description", {.descriptionPart = QStringLiteral("سند")}, "sDesc LIKE '%سند%'");
    row("explanation", {.explanationPart = QStringLiteral("سند")}, "sExplain LIKE '%سند%'");
    row("escaped text stands as it was escaped", {.descriptionPart = QStringLiteral("5\\%\\_\\'%d%1")},
        "sDesc LIKE '%5\\%\\_\\'%d%1%'");
    row("expiry date from", {.expirationFrom = day(2026, 3, 21)}, "dateExpiration>='2026-03-21'");
    row("expiry date to has blanks around its operator", {.expirationTo = day(2026, 3, 20)},
        "dateExpiration <= '2026-03-21'");
}

void TestContractFilter::clause()
{
    QFETCH(ContractCriteria, criteria);
    QFETCH(QString, filter);
    QCOMPARE(contractFilter(criteria), filter);
}

void TestContractFilter::clausesStandInTheirOrder()
{
    const ContractCriteria everything{
        .activeOnly = true,
        .firstPersonID = 1,
        .secondPersonID = 2,
        .returnState = 1,
        .archiveState = 3,
        .currentUserID = 9,
        .contractType = 2,
        .contractFrom = day(2026, 1, 1),
        .contractTo = day(2026, 1, 2),
        .expirationFrom = day(2026, 1, 3),
        .expirationTo = day(2026, 1, 4),
        .descriptionPart = QStringLiteral("d"),
        .explanationPart = QStringLiteral("e"),
    };
    QCOMPARE(contractFilter(everything),
             QStringLiteral("iStatus = 0 AND iPersonFirstID=1 AND bReturn=0 AND iArchiveUserID<>0 AND iArchiveUserID<>9"
                            " AND iPersonSecondID=2 AND iContractType = 1 AND dateContract>='2026-01-01'"
                            " AND dateContract<='2026-01-03' AND sDesc LIKE '%d%' AND sExplain LIKE '%e%'"
                            " AND dateExpiration>='2026-01-03' AND dateExpiration <= '2026-01-05'"));
}

static const RegisteredTest<TestContractFilter> registered;
#include "TestContractFilter.moc"
