// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/editor/ContractAtWorkTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// The figures of a contract while somebody types them.
class TestContractEditorFigures : public ContractAtWorkTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- What is paid and what the document charges ---

    // A total that changes puts both payments back to it, while the document goes on charging what it is made of.
    void paymentThatTheDocumentDoesNotChargeIsAskedAbout_data()
    {
        QTest::addColumn<QByteArray>("column");
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<QString>("sentences");
        QTest::newRow("a typed commission with a standing discount")
            << QByteArray("dCommission") << QByteArray("30000")
            << u"پرداختي رضا احمدی 32,700 است، اما سند قرارداد برای او 30,700 ثبت می‌کند."_s;
        QTest::newRow("the shared total")
            << QByteArray("dPercentTax") << QByteArray("10")
            << u"پرداختي رضا احمدی 22,600 است، اما سند قرارداد برای او 19,800 ثبت می‌کند."_s;
        QTest::newRow("both parties")
            << QByteArray("dPercentTax2") << QByteArray("10")
            << u"پرداختي سارا کریمی 22,600 است، اما سند قرارداد برای او 21,800 ثبت می‌کند.\n"
               "پرداختي رضا احمدی 22,600 است، اما سند قرارداد برای او 20,600 ثبت می‌کند."_s;
        QTest::newRow("a typed payment")
            << QByteArray("dPayFirst") << QByteArray("5000")
            << u"پرداختي سارا کریمی 5,000 است، اما سند قرارداد برای او 21,800 ثبت می‌کند."_s;
    }

    void paymentThatTheDocumentDoesNotChargeIsAskedAbout()
    {
        QFETCH(QByteArray, column);
        QFETCH(QByteArray, typed);
        QFETCH(QString, sentences);
        auto dialog = filledNew();
        type(*dialog, column.constData(), typed.constData());
        g_pDlgYesNo->answerNext(KMessageDialog::Cancel);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{sentences + u"\nآیا مبلغ سند جایگزین پرداختي شود؟"_s});
        QVERIFY(dialog->focusWidget() == edit(*dialog, "dPayFirst") || dialog->focusWidget() == edit(*dialog, "dPaySecond"));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs"_s), u"0"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        for (const auto &[pays, person] : {std::pair(u"dPayFirst"_s, m_seller), std::pair(u"dPaySecond"_s, m_buyer)})
            QCOMPARE(value(u"SELECT %1 FROM AutomobilContracts"_s.arg(pays)),
                     value(u"SELECT SUM(dBed)-SUM(dBes) FROM Docs WHERE iPersonID=%1"_s.arg(person)));
        // Now they agree, and nothing is asked.
        g_pDlgYesNo->takeShown();
        auto again = opened(key(), Mode::Edit);
        again->accept();
        QVERIFY(!again->isVisible());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    }

    void paymentIsKeptWhenTheDocumentsIsNotTaken()
    {
        auto dialog = filledNew();
        type(*dialog, "dPayFirst", "5000");
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(u"SELECT dPayFirst FROM AutomobilContracts"_s), u"5000"_s);
    }

    void partyTypedByHandIsNotAskedAbout()
    {
        auto dialog = filledNew();
        dialog->basePage()->secondParty()->setKind(PartyKind::Other);
        dialog->basePage()->secondParty()->personField()->nameEdit()->setText(u"علی رضایی"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    }

    // --- Figures ---

    void commissionAboveTheLastTierIsTypedByHand()
    {
        auto dialog = filledNew();
        type(*dialog, "dAmount", "9000000");
        const double before = shown(*dialog, "dCommission");
        type(*dialog, "dAmount", "9000001");
        QCOMPARE(shown(*dialog, "dCommission"), before);
        type(*dialog, "dCommission", "100000");
        QCOMPARE(shown(*dialog, "dTax"), 6000.0);
        QCOMPARE(shown(*dialog, "dImposition2"), 3000.0);
        QCOMPARE(shown(*dialog, "dPayFirst"), 109000.0);
        dialog->accept();
        QCOMPARE(value(u"SELECT CONCAT_WS('|',dAmount,dCommission) FROM AutomobilContracts"_s),
                 u"9000001|100000"_s);
    }

    // The beginning of the amount lies in the tiers: none of what it costs may stay behind.
    void amountTypedKeyByKeyAboveTheLastTierLeavesTheCommissionOfBefore_data()
    {
        QTest::addColumn<QString>("amount");
        QTest::addColumn<int>("deleted"); // its last digits, again
        QTest::addColumn<double>("commission");
        QTest::addColumn<bool>("byHand");
        QTest::newRow("above the last tier") << u"60000000000"_s << 0 << 20000. << true;
        QTest::newRow("within the last tier") << u"5000000"_s << 0 << 50000. << false;
        QTest::newRow("above it and back") << u"50000001"_s << 1 << 50000. << false;
    }

    void amountTypedKeyByKeyAboveTheLastTierLeavesTheCommissionOfBefore()
    {
        QFETCH(QString, amount);
        QFETCH(int, deleted);
        QFETCH(double, commission);
        QFETCH(bool, byHand);
        auto dialog = filledNew();
        KEdit *commissionLine = edit(*dialog, "dCommission");
        endAmount(*dialog);
        edit(*dialog, "dAmount")->selectAll();
        QTest::keyClicks(edit(*dialog, "dAmount"), amount);
        for (int i = 0; i < deleted; ++i)
            QTest::keyClick(edit(*dialog, "dAmount"), Qt::Key_Backspace);
        QCOMPARE(shown(*dialog, "dCommission"), commission);
        QCOMPARE(shown(*dialog, "dTax"), commission * 0.06);
        QCOMPARE(shown(*dialog, "dDiscountSecond"), commission * 0.1);
        QCOMPARE(shown(*dialog, "dPaySecond"), commission * 0.99);
        QCOMPARE(commissionLine->notice(), byHand ? u"کمیسیون این مبلغ را وارد کنید"_s : QString());
        QVERIFY(commissionLine->isEntryValid());
        type(*dialog, "dCommission", "100000");
        QCOMPARE(commissionLine->notice(), QString());
    }

    void lookAtAnotherWindowDoesNotEndTheEntry()
    {
        auto dialog = filledNew();
        endAmount(*dialog);
        type(*dialog, "dAmount", "5000000");
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QTest::keyClicks(edit(*dialog, "dAmount"), u"0"_s);
        QCOMPARE(shown(*dialog, "dAmount"), 50000000.0);
        QCOMPARE(shown(*dialog, "dCommission"), 20000.0);
    }

    // What was typed by hand for this amount is what stands before the next entry.
    void amountAboveTheLastTierLeavesWhatWasTypedByHand()
    {
        auto dialog = filledNew();
        edit(*dialog, "dAmount")->setFocus();
        type(*dialog, "dAmount", "9000000");
        edit(*dialog, "dCommission")->setFocus();
        type(*dialog, "dCommission", "33000");
        edit(*dialog, "dAmount")->setFocus();
        type(*dialog, "dAmount", "8000000");
        QCOMPARE(shown(*dialog, "dCommission"), 33000.0);
        QCOMPARE(shown(*dialog, "dTax"), 1980.0);
    }

    void percentOfZeroMakesTheDiscountExactlyZero()
    {
        auto dialog = filledNew();
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 2000.0);
        type(*dialog, "dPercentDiscount2", "0");
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 0.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 21800.0);
        type(*dialog, "dPercentDiscount2", "100");
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 20000.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 1800.0);
    }

    void switchingTheKindThereAndBackEmptiesThePersonAndGivesTheDiscountBackToTheHand()
    {
        auto dialog = filledNew();
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        party->setKind(PartyKind::Showroom);
        QVERIFY(edit(*dialog, "dPercentDiscount2")->isReadOnly());
        party->setKind(PartyKind::Other);
        QVERIFY(party->name().isEmpty());
        QVERIFY(!edit(*dialog, "dPercentDiscount2")->isReadOnly());
        QVERIFY(!edit(*dialog, "sTel2")->isReadOnly());
        QCOMPARE(shown(*dialog, "dPaySecond"), 21800.0);
        const QString name = u"نام و نام خانوادگي : طرف دوم"_s;
        QVERIFY(!named<QPushButton>(*party, name + u" ..."_s)->isEnabled());
        QVERIFY(!named<QPushButton>(*party, name + u" حذف"_s)->isEnabled());
        party->setKind(PartyKind::Ordinary);
        QVERIFY(edit(*dialog, "sTel2")->isReadOnly());
        QVERIFY(party->personField()->nameEdit()->isReadOnly());
        QVERIFY(named<QPushButton>(*party, name + u" ..."_s)->isEnabled());
        QCOMPARE(party->personField()->personID(), 0);
        // The other party keeps all it had.
        QCOMPARE(dialog->basePage()->firstParty()->name(), u"سارا کریمی"_s);
        QCOMPARE(edit(*dialog, "sMobile1")->text(), u"0912"_s);
        party->takePerson(m_buyer);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 10.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 19800.0);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iPersonContract2,iPersonSecondID) FROM AutomobilContracts"_s),
                 u"0|%1"_s.arg(m_buyer));
    }

    // The percentage is the person's: whoever comes next does not inherit it.
    void personWhoIsTakenOutTakesTheDiscountAlong_data()
    {
        QTest::addColumn<int>("kind"); // -1: the clear button
        QTest::newRow("cleared") << -1;
        QTest::newRow("another person is typed by hand") << int(PartyKind::Other);
        QTest::newRow("the dealership itself") << int(PartyKind::Showroom);
    }

    void personWhoIsTakenOutTakesTheDiscountAlong()
    {
        QFETCH(int, kind);
        auto dialog = filledNew();
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 10.0);
        if (kind < 0)
            named<QPushButton>(*party, u"نام و نام خانوادگي : طرف دوم حذف"_s)->click();
        else
            party->setKind(static_cast<PartyKind>(kind));
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 0.0);
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 0.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), kind == int(PartyKind::Showroom) ? 1800.0 : 21800.0);
        party->setKind(PartyKind::Other);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 0.0);
        party->personField()->nameEdit()->setText(u"علی رضایی"_s);
        type(*dialog, "dPercentDiscount2", "5");
        party->setKind(PartyKind::Ordinary);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 0.0);
    }

    // --- The type ---

    void matterTabFollowsTheType()
    {
        auto dialog = opened(m_office->addContract(), Mode::Edit);
        QComboBox *types = dialog->basePage()->form()->comboBox(column("iContractType"));
        auto matterIsShown = [&] {
            const int tab = tabOf(*dialog, u"مشخصات فروش"_s);
            return tab >= 0 && !dialog->tabs()->button(tab)->isHidden();
        };
        QVERIFY(matterIsShown());
        types->setCurrentIndex(3);
        QVERIFY(!matterIsShown());
        types->setCurrentIndex(2);
        QVERIFY(matterIsShown());
        auto letter = opened(m_office->addContract([](auto &contract) { contract.m_iContractType = 3; }), Mode::Edit);
        QVERIFY(tabOf(*letter, u"مشخصات فروش"_s) < 0
                || letter->tabs()->button(tabOf(*letter, u"مشخصات فروش"_s))->isHidden());
        letter->basePage()->form()->comboBox(column("iContractType"))->setCurrentIndex(0);
        QVERIFY(!letter->tabs()->button(tabOf(*letter, u"مشخصات فروش"_s))->isHidden());
    }
};

static const RegisteredTest<TestContractEditorFigures, KApplication> registeredContractEditorFigures;

#include "TestContractEditorFigures.moc"
