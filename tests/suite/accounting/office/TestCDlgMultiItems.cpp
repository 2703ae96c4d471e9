// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;

using FormDriver::field;

namespace {
constexpr int clauses = CTblItems::typeClause;
constexpr int colours = 808;
}

class TestCDlgMultiItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void valuesAreThoseOfTheTypeByName();
    void comboHoldsAnEmptyChoiceAndTheValues();
    void nameIsNeededAndUniqueInItsType();
    void tickedNamesComeBackInOrder();
    void selectGivesTheTextOfTheTickedNames();
    void cancelledSelectLeavesTheText();
    void valueIsAddedRenamedAndDeletedOnTheSpot();
    void ticksStayWhenValuesChange();
    void enterBehindANewNameAddsIt();
    void changingNeedsTheRights();
    void closedDatabaseChangesNothing();
    void everyInputHasItsName();

private:
    bool select(QString *text, const std::function<void(CDlgMultiItems *)> &work);

    TestOffice m_office;
    QString m_title = u"تبصره"_s;
    int m_first = 0;
    int m_second = 0;
};

void TestCDlgMultiItems::init()
{
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->Login(m_office.admin);
    m_office.database.run(u"DELETE FROM Items"_s);
    m_second = CTblMultiItems::addValue(clauses, u"بند دوم"_s);
    m_first = CTblMultiItems::addValue(clauses, u"بند اول"_s);
    CTblMultiItems::addValue(colours, u"سفید"_s);
    g_pDlgWarning->takeShown();
}

bool TestCDlgMultiItems::select(QString *text, const std::function<void(CDlgMultiItems *)> &work)
{
    QTimer::singleShot(50, [&work] {
        auto *dialog = qobject_cast<CDlgMultiItems *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        work(dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    return CDlgMultiItems::Select(clauses, m_title, text, nullptr);
}

void TestCDlgMultiItems::valuesAreThoseOfTheTypeByName()
{
    m_office.database.run(u"INSERT INTO Items(iType,sName,iStatus) VALUES(814,'غیر فعال',1)"_s);
    const QList<CTblMultiItems::Value> values = CTblMultiItems::values(clauses);
    QCOMPARE(values.size(), 2);
    QCOMPARE(values.at(0).id, m_first);
    QCOMPARE(values.at(1).id, m_second);
}

void TestCDlgMultiItems::comboHoldsAnEmptyChoiceAndTheValues()
{
    QComboBox combo;
    CTblMultiItems::FillComboBox(&combo, clauses, m_second);
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.itemText(0), u"-"_s);
    QCOMPARE(combo.itemData(0).toInt(), 0);
    QCOMPARE(combo.currentText(), u"بند دوم"_s);
    CTblMultiItems::FillComboBox(&combo, clauses, 9999);
    QCOMPARE(combo.currentIndex(), 0);
}

void TestCDlgMultiItems::nameIsNeededAndUniqueInItsType()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblMultiItems::addValue(clauses, u" "_s));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblMultiItems::addValue(clauses, u"بند  اول"_s));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblMultiItems::renameValue(m_second, u"بند اول"_s));
    CTblMultiItems::renameValue(m_second, u"بند دوم"_s);
    QVERIFY(CTblMultiItems::addValue(colours, u"بند اول"_s) > 0);
}

void TestCDlgMultiItems::tickedNamesComeBackInOrder()
{
    CDlgMultiItems dialog(clauses, m_title);
    QCOMPARE(dialog.windowTitle(), m_title);
    QVERIFY(dialog.selectedNames().isEmpty());
    dialog.setSelectedNames({u"بند دوم"_s, u"بند اول"_s, u"ناشناس"_s});
    QCOMPARE(dialog.selectedNames(), (QStringList{u"بند اول"_s, u"بند دوم"_s}));
    QCOMPARE(dialog.selectedIDs(), (QList<int>{m_first, m_second}));
}

void TestCDlgMultiItems::selectGivesTheTextOfTheTickedNames()
{
    QString text = u"دست نویس، بند دوم"_s;
    QVERIFY(select(&text, [](CDlgMultiItems *dialog) {
        QCOMPARE(dialog->selectedNames(), QStringList{u"بند دوم"_s});
        auto *view = dialog->findChild<QListView *>();
        view->setFocus();
        view->setCurrentIndex(view->model()->index(0, 0));
        QTest::keyClick(view, Qt::Key_Space);
        FormDriver::click(dialog, u"تاييد"_s);
    }));
    QCOMPARE(text, u"دست نویس، بند اول، بند دوم"_s);
}

void TestCDlgMultiItems::cancelledSelectLeavesTheText()
{
    QString text = u"بند دوم"_s;
    QVERIFY(!select(&text, [](CDlgMultiItems *dialog) {
        dialog->setSelectedNames({u"بند اول"_s});
        FormDriver::click(dialog, u"انصراف"_s);
    }));
    QCOMPARE(text, u"بند دوم"_s);
}

void TestCDlgMultiItems::valueIsAddedRenamedAndDeletedOnTheSpot()
{
    CDlgMultiItems dialog(clauses, m_title);
    dialog.show();
    auto *name = field<KEdit>(&dialog, u"نام :"_s);
    auto *view = dialog.findChild<QListView *>();
    QVERIFY(!FormDriver::button(&dialog, u"ويرايش"_s)->isEnabled());
    name->setText(u"بند سوم"_s);
    FormDriver::click(&dialog, u"جديد"_s);
    QCOMPARE(view->model()->rowCount(), 3);
    QCOMPARE(view->currentIndex().data().toString(), u"بند سوم"_s);
    FormDriver::click(&dialog, u"جديد"_s);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    name->setText(u"بند چهارم"_s);
    FormDriver::click(&dialog, u"ويرايش"_s);
    QCOMPARE(view->currentIndex().data().toString(), u"بند چهارم"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    FormDriver::click(&dialog, u"حذف"_s);
    QCOMPARE(view->model()->rowCount(), 3);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    FormDriver::click(&dialog, u"حذف"_s);
    QCOMPARE(CTblMultiItems::values(clauses).size(), 2);
}

void TestCDlgMultiItems::ticksStayWhenValuesChange()
{
    CDlgMultiItems dialog(clauses, m_title);
    dialog.setSelectedNames({u"بند دوم"_s});
    field<KEdit>(&dialog, u"نام :"_s)->setText(u"بند سوم"_s);
    dialog.addValue();
    QCOMPARE(dialog.selectedIDs(), QList<int>{m_second});
}

void TestCDlgMultiItems::enterBehindANewNameAddsIt()
{
    CDlgMultiItems dialog(clauses, m_title);
    dialog.show();
    auto *name = field<KEdit>(&dialog, u"نام :"_s);
    name->setFocus();
    QTest::keyClicks(name, u"abc"_s);
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(CTblMultiItems::values(clauses).size(), 3);
    QVERIFY(dialog.isVisible());
    // The name now stands in the list, so a second Enter goes on to it instead of adding again.
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(CTblMultiItems::values(clauses).size(), 3);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgMultiItems::changingNeedsTheRights()
{
    GetDBSetting()->Login(m_office.clerk);
    CDlgMultiItems dialog(clauses, m_title);
    field<KEdit>(&dialog, u"نام :"_s)->setText(u"بند سوم"_s);
    dialog.addValue();
    dialog.findChild<QListView *>()->setCurrentIndex(dialog.findChild<QListView *>()->model()->index(0, 0));
    dialog.renameValue();
    dialog.deleteValue();
    const QString form = u"InputParameters"_s;
    QCOMPARE(g_pDlgWarning->takeShown(),
             (QStringList{KSecurity::refusalText(form, KSecurity::Write), KSecurity::refusalText(form, KSecurity::Modify),
                          KSecurity::refusalText(form, KSecurity::Delete)}));
    QCOMPARE(CTblMultiItems::values(clauses).size(), 2);
}

void TestCDlgMultiItems::closedDatabaseChangesNothing()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgMultiItems dialog(clauses, m_title);
    field<KEdit>(&dialog, u"نام :"_s)->setText(u"بند سوم"_s);
    dialog.addValue();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(CTblMultiItems::values(clauses).size(), 2);
}

void TestCDlgMultiItems::everyInputHasItsName()
{
    CDlgMultiItems dialog(clauses, m_title);
    QVERIFY(FormDriver::everyInputHasAName(&dialog));
}

static const RegisteredTest<TestCDlgMultiItems, QApplication> registeredCDlgMultiItems;
#include "TestCDlgMultiItems.moc"
