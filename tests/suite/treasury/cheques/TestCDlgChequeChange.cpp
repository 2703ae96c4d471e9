// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgChequeChange.h"

#include "suite/crm/persons/KPersonField.h"
#include "suite/treasury/cheques/CDlgChequeHistory.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/treasury/cheques/ChequeOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

// The window that changes a cheque's state, and the one that shows and takes back.
class TestCDlgChequeChange : public QObject
{
    Q_OBJECT

    ChequeOffice m_office;
    int m_cheque = 0;

    static void choose(QDialog &window, ChequeState state)
    {
        auto *box = named<QComboBox>(window, u"وضعیت جدید :"_s);
        box->setCurrentIndex(box->findData(static_cast<int>(state)));
        QVERIFY(box->currentIndex() >= 0);
    }
    static QComboBox *accounts(const QDialog &window) { return named<QComboBox>(window, u"حساب :"_s); }
    static KDateEdit *date(const QDialog &window) { return named<KDateEdit>(window, u"تاریخ :"_s); }
    int storedState() { return m_office.value(u"SELECT iState FROM Cheques WHERE iID=%1"_s.arg(m_cheque)).toInt(); }

private Q_SLOTS:
    void init()
    {
        m_office.clear();
        m_cheque = m_office.received();
    }

    void fieldsFollowTheState_data()
    {
        QTest::addColumn<ChequeState>("to");
        QTest::addColumn<bool>("account");
        QTest::addColumn<bool>("cash");
        QTest::addColumn<bool>("person");
        QTest::newRow("deposited") << ChequeState::Deposited << true << false << false;
        QTest::newRow("cleared") << ChequeState::Cleared << true << true << false;
        QTest::newRow("bounced") << ChequeState::Bounced << false << false << false;
        QTest::newRow("endorsed") << ChequeState::Endorsed << false << false << true;
    }

    void fieldsFollowTheState()
    {
        QFETCH(ChequeState, to);
        CDlgChequeChange window(m_cheque);
        window.show();
        choose(window, to);
        QTEST(accounts(window)->isVisible(), "account");
        QTEST(accounts(window)->isVisible() && accounts(window)->findData(Accounts::cash) >= 0, "cash");
        QTEST(named<KEdit>(window, u"به شخص :"_s)->isVisible(), "person");
    }

    void okChangesTheStateOnce()
    {
        CDlgChequeChange window(m_cheque);
        window.show();
        QCOMPARE(named<KEdit>(window, u"وضعیت کنونی :"_s)->text(), u"نزد صندوق"_s);
        QCOMPARE(date(window)->date(), GetDBSetting()->GetDBServerDate().date());
        choose(window, ChequeState::Cleared);
        accounts(window)->setCurrentIndex(accounts(window)->findData(Accounts::cash));
        date(window)->setText(u"1405/03/01"_s);
        named<KEdit>(window, u"شرح :"_s)->setText(u"نقد شد"_s);
        window.accept();
        window.accept();
        QVERIFY(!window.isVisible());
        QCOMPARE(m_office.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iToState,DATE(date),iAccount,sDesc)) FROM ChequeChanges"_s), u"2/2026-05-22/110101/نقد شد"_s);
        QCOMPARE(m_office.balance(Accounts::cash), 1500.0);
    }

    void wrongEntryIsToldAndFocused_data()
    {
        QTest::addColumn<QString>("date");
        QTest::newRow("no date") << QString();
        QTest::newRow("none of the calendar") << u"1405/13/01"_s;
        QTest::newRow("before the cheque came") << u"1405/02/01"_s;
        QTest::newRow("next fiscal year") << u"1406/02/01"_s;
    }

    void wrongEntryIsToldAndFocused()
    {
        QFETCH(QString, date);
        CDlgChequeChange window(m_cheque);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        named<KEdit>(window, u"شرح :"_s)->setText(u"به بانک"_s);
        TestCDlgChequeChange::date(window)->setText(date);
        window.accept();
        QVERIFY(window.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(window.focusWidget(), TestCDlgChequeChange::date(window));
        QCOMPARE(named<KEdit>(window, u"شرح :"_s)->text(), u"به بانک"_s);
        QCOMPARE(storedState(), int(ChequeState::InHand));
    }

    void endorsingAsksForThePerson()
    {
        CDlgChequeChange window(m_cheque);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        choose(window, ChequeState::Endorsed);
        window.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(window.focusWidget()->accessibleName(), u"به شخص :"_s);
        window.findChild<KPersonField *>()->setPersonID(m_office.endorsee);
        window.accept();
        QCOMPARE(storedState(), int(ChequeState::Endorsed));
        QCOMPARE(m_office.balance(Accounts::persons, m_office.endorsee), 1500.0);
    }

    // The oldest claim of the endorsee is proposed; what the cheque is more goes on to the next one.
    void endorsingPaysWhatTheEndorseeHasToGet()
    {
        m_office.owner.toPay = {{ChequeOffice::claim(1), 900, {}}, {ChequeOffice::claim(2), 400, {}}};
        CDlgChequeChange window(m_cheque);
        window.show();
        choose(window, ChequeState::Endorsed);
        auto *purpose = named<QComboBox>(window, u"بابت :"_s);
        QVERIFY(purpose->isVisible());
        QCOMPARE(purpose->count(), 1);
        auto *person = window.findChild<KPersonField *>();
        person->setPersonID(m_office.endorsee);
        Q_EMIT person->changed(m_office.endorsee);
        QCOMPARE(purpose->count(), 3);
        QCOMPARE(purpose->currentText(), u"بهای خودرو (مانده 900)"_s);
        window.accept();
        QCOMPARE(m_office.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',dAmount,iPaymentID) ORDER BY iID SEPARATOR ' ') FROM Receipts WHERE iKind=1"_s),
                 u"900/1 400/2 200/0"_s);
    }

    // The other desk's step is told, and the window then offers what follows from it, with what was typed.
    void whatAnotherDeskMovedIsToldAndShown()
    {
        CDlgChequeChange window(m_cheque);
        window.show();
        choose(window, ChequeState::Cleared);
        named<KEdit>(window, u"شرح :"_s)->setText(u"وصول"_s);
        KSecurity::setRights(m_office.office.clerk, ChequeChanging::rightsForm(), KSecurity::allRights);
        GetDBSetting()->Login(m_office.office.clerk);
        m_office.bring(m_cheque, ChequeState::Deposited);
        GetDBSetting()->Login(m_office.office.admin);
        window.accept();
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().startsWith(u"کاربر «clerk»"_s), qPrintable(told.constFirst()));
        QVERIFY(window.isVisible());
        QCOMPARE(named<KEdit>(window, u"وضعیت کنونی :"_s)->text(), u"در جریان وصول"_s);
        QCOMPARE(named<QComboBox>(window, u"وضعیت جدید :"_s)->currentData().toInt(), int(ChequeState::Cleared));
        QCOMPARE(named<KEdit>(window, u"شرح :"_s)->text(), u"وصول"_s);
        window.accept();
        QCOMPARE(storedState(), int(ChequeState::Cleared));
    }

    void databaseClosedMeanwhileIsTold()
    {
        CDlgChequeChange window(m_cheque);
        window.show();
        GetDBSetting()->SetClosedDB(true);
        window.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(window.isVisible());
        QCOMPARE(storedState(), int(ChequeState::InHand));
    }

    void keyboardAloneChangesTheState()
    {
        CDlgChequeChange window(m_cheque);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(Hand::focus()->accessibleName(), u"وضعیت جدید :"_s);
        Hand::press(Qt::Key_Down); // cleared
        Hand::press(Qt::Key_Down); // bounced
        Hand::press(Qt::Key_Return);
        QCOMPARE(Hand::focus()->accessibleName(), u"تاریخ :"_s);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(storedState(), int(ChequeState::Bounced));
    }

    void historyShowsEachStepAndTakesTheLastBack()
    {
        m_office.bring(m_cheque, ChequeState::Deposited);
        m_office.bring(m_cheque, ChequeState::Bounced);
        CDlgChequeHistory window(m_cheque);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        constexpr int what = 2;
        constexpr int document = 4;
        constexpr int status = 6;
        constexpr int voiding = 7;
        QCOMPARE(window.list()->count(), 3);
        QCOMPARE(window.list()->cellText(0, what), u"دریافت شماره %1"_s.arg(m_office.value(u"SELECT iID FROM Receipts"_s)));
        QCOMPARE(window.list()->cellText(1, what), u"در جریان وصول"_s);
        QCOMPARE(window.list()->cellText(2, what), u"برگشت خورده"_s);
        QCOMPARE(window.list()->cellText(2, document), u"3"_s);
        Hand::inNextWindow([](QDialog *asking) {
            QVERIFY(qobject_cast<CDlgVoiding *>(asking));
            Hand::type(u"اشتباه"_s);
            asking->accept();
        });
        window.undoButton()->click();
        QVERIFY(window.isChanged());
        QCOMPARE(storedState(), int(ChequeState::Deposited));
        QCOMPARE(window.list()->cellText(2, status), u"باطل"_s);
        QVERIFY(window.list()->cellText(2, voiding).contains(u"اشتباه"_s));
        QVERIFY(window.undoButton()->isEnabled());
        // Another desk undoes the rest: told, and shown.
        ChequeChanging::undoLast(ChequeChanging::seen(m_cheque), u"همین طور"_s);
        Hand::inNextWindow([](QDialog *asking) {
            Hand::type(u"باز هم"_s);
            asking->accept();
        });
        window.undoButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(!window.undoButton()->isEnabled());
        QCOMPARE(m_office.value(u"SELECT GROUP_CONCAT(sVoidReason ORDER BY iID) FROM ChequeChanges"_s), u"همین طور,اشتباه"_s);
    }

    void whoMayNotUndoIsNotOfferedIt_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("without the right") << false;
        QTest::newRow("closed database") << true;
    }

    void whoMayNotUndoIsNotOfferedIt()
    {
        QFETCH(bool, closed);
        m_office.bring(m_cheque, ChequeState::Deposited);
        if (closed) {
            GetDBSetting()->SetClosedDB(true);
        } else {
            KSecurity::setRights(m_office.office.clerk, ChequeChanging::rightsForm(), KSecurity::Access | KSecurity::Read);
            GetDBSetting()->Login(m_office.office.clerk);
        }
        CDlgChequeHistory window(m_cheque);
        QVERIFY(!window.undoButton()->isEnabled());
        QCOMPARE(window.list()->count(), 2);
    }
};

static const RegisteredTest<TestCDlgChequeChange, QApplication> registeredCDlgChequeChange;
#include "TestCDlgChequeChange.moc"
