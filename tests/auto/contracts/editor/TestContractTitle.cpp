// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractNotes.h"
#include "auto/contracts/figures/ContractSettlement.h"
#include "auto/contracts/editor/ContractTitle.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

class TestContractTitle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titleIsTheTypesNameAndTheModesSuffix_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("title");
        const int create = int(ContractEditorMode::New);
        const int edit = int(ContractEditorMode::Edit);
        const int show = int(ContractEditorMode::Show);
        QTest::newRow("sale, new: no blank before the dash") << 0 << create << QStringLiteral("قرارداد مبایعه نامه- جدید");
        QTest::newRow("rent, edit: no blank before the dash") << 1 << edit << QStringLiteral("قرارداد اجاره- ویرایش");
        QTest::newRow("instalments, show: a blank") << 2 << show << QStringLiteral("قرارداد فروش اقساطی - نمایش");
        QTest::newRow("letter") << 3 << create << QStringLiteral("قرارداد نامه- جدید");
        QTest::newRow("unknown type has no name") << 4 << edit << QStringLiteral("قرارداد - ویرایش");
        QTest::newRow("negative type has no name") << -1 << show << QStringLiteral("قرارداد  - نمایش");
    }

    void titleIsTheTypesNameAndTheModesSuffix()
    {
        QFETCH(int, type);
        QFETCH(int, mode);
        QFETCH(QString, title);
        QCOMPARE(contractEditorTitle(type, static_cast<ContractEditorMode>(mode)), title);
    }

    void letterContractHasNoMatterPage()
    {
        QVERIFY(MatterVisibility::hasPage(0));
        QVERIFY(MatterVisibility::hasPage(1));
        QVERIFY(MatterVisibility::hasPage(2));
        QVERIFY(!MatterVisibility::hasPage(3));
        QVERIFY(!MatterVisibility::hasPage(-1));
    }

    void notesTakeOneColumnEachInOrder()
    {
        CTblAutomobilContracts contract;
        contract.m_sNote9 = QStringLiteral("old");
        ContractNotes::setNotes(contract, {QStringLiteral("یک"), QStringLiteral("دو")});
        QCOMPARE(contract.m_sNote1, QStringLiteral("یک"));
        QCOMPARE(contract.m_sNote2, QStringLiteral("دو"));
        QVERIFY(contract.m_sNote9.isEmpty());
        QCOMPARE(ContractNotes::notes(contract), (QStringList{QStringLiteral("یک"), QStringLiteral("دو")}));
        contract.m_sNote1.clear();
        contract.m_sNote10 = QStringLiteral("ده");
        QCOMPARE(ContractNotes::notes(contract), (QStringList{QStringLiteral("دو"), QStringLiteral("ده")}));
    }

    void settlementIsPaymentTaxAndDuty()
    {
        const ContractSettlement due = settlement(7, 100, 9, 10);
        QCOMPARE(due.personID, 7);
        QCOMPARE(due.amount, 119.0);
    }
};

static const RegisteredTest<TestContractTitle> registered;
#include "TestContractTitle.moc"
