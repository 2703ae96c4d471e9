// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractNotes.h"
#include "auto/contracts/editor/ContractTitle.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

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
        QTest::newRow("sale, new: no blank before the dash") << 0 << create << u"قرارداد مبایعه نامه- جدید"_s;
        QTest::newRow("rent, edit: no blank before the dash") << 1 << edit << u"قرارداد اجاره- ویرایش"_s;
        QTest::newRow("instalments, show: a blank") << 2 << show << u"قرارداد فروش اقساطی - نمایش"_s;
        QTest::newRow("letter") << 3 << create << u"قرارداد نامه- جدید"_s;
        QTest::newRow("unknown type has no name") << 4 << edit << u"قرارداد - ویرایش"_s;
        QTest::newRow("negative type has no name") << -1 << show << u"قرارداد  - نمایش"_s;
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
        contract.m_sNote9 = u"old"_s;
        ContractNotes::setNotes(contract, {u"یک"_s, u"دو"_s});
        QCOMPARE(contract.m_sNote1, u"یک"_s);
        QCOMPARE(contract.m_sNote2, u"دو"_s);
        QVERIFY(contract.m_sNote9.isEmpty());
        QCOMPARE(ContractNotes::notes(contract), (QStringList{u"یک"_s, u"دو"_s}));
        contract.m_sNote1.clear();
        contract.m_sNote10 = u"ده"_s;
        QCOMPARE(ContractNotes::notes(contract), (QStringList{u"دو"_s, u"ده"_s}));
    }
};

static const RegisteredTest<TestContractTitle> registeredContractTitle;
#include "TestContractTitle.moc"
