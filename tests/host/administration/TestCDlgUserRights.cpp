// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUserRights.h"

#include "host/administration/RightsGridModel.h"
#include "suite/accounting/office/RightsRoles.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestCDlgUserRights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void gridHasARowPerFormAndAColumnPerRight();
    void gridKeepsTheRulesOfAModel();
    void aRightOtherThanAccessGrantsAccessToo();
    void takingAccessOffTakesAllOff();
    void aPermissionHasOneBoxOnly();
    void everyBoxIsNamedForAScreenReader();
    void spaceTicksTheCurrentBox();
    void okStoresAndRightsHoldAtOnce();
    void cancelStoresNothing();
    void allAndNone();
    void copyFromAnotherUser();
    void aRoleFillsTheGridAndOkStoresIt();
    void whatWasTickedByHandIsAskedAbout();
    void aUserWithoutRightsIsOfferedARole();
    void formsThatTheGridDoesNotShowAreKept();
    void cellsOfTwoDesksAreMerged();
    void formClosedByAnotherDeskStaysClosed();
    void userWhoIsGoneIsTold();

private:
    QModelIndex box(const CDlgUserRights &dialog, const QString &form, KSecurity::Right right) const;
    static void tick(const CDlgUserRights &dialog, const QModelIndex &index, bool on);

    HostTestOffice m_office;
    int m_clerk = 0;
};

void TestCDlgUserRights::init()
{
    m_office.fresh();
    m_clerk = CTblUsers::create(u"clerk"_s, u"clerk1"_s, u"کارمند"_s, false);
}

QModelIndex TestCDlgUserRights::box(const CDlgUserRights &dialog, const QString &form, KSecurity::Right right) const
{
    const QList<KSecurity::Form> &forms = KSecurity::forms();
    for (int row = 0; row < forms.size(); ++row)
        for (int column = 0; forms.at(row).name == form && column < dialog.grid()->columnCount(); ++column)
            if (dialog.grid()->headerData(column, Qt::Horizontal).toString() == KSecurity::rightCaption(right))
                return dialog.grid()->index(row, column);
    return {};
}

void TestCDlgUserRights::tick(const CDlgUserRights &dialog, const QModelIndex &index, bool on)
{
    QVERIFY(dialog.grid()->setData(index, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole));
}

void TestCDlgUserRights::gridHasARowPerFormAndAColumnPerRight()
{
    const RightsGridModel grid;
    QCOMPARE(grid.rowCount(), int(KSecurity::forms().size()));
    QCOMPARE(grid.columnCount(), 6);
    QCOMPARE(grid.headerData(0, Qt::Vertical).toString(), KSecurity::forms().constFirst().caption);
    QStringList rights;
    for (int column = 0; column < grid.columnCount(); ++column)
        rights.append(grid.headerData(column, Qt::Horizontal).toString());
    QCOMPARE(QSet<QString>(rights.begin(), rights.end()).size(), 6);
}

void TestCDlgUserRights::gridKeepsTheRulesOfAModel()
{
    RightsGridModel grid;
    const QAbstractItemModelTester tester(&grid, QAbstractItemModelTester::FailureReportingMode::QtTest);
    grid.setRights({{u"Persons"_s, KSecurity::allRights}});
    grid.setAll(true);
    QVERIFY(grid.setData(grid.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(!grid.setData(grid.index(0, 0), u"text"_s, Qt::EditRole));
    QVERIFY(!grid.setData({}, Qt::Checked, Qt::CheckStateRole));
}

void TestCDlgUserRights::aRightOtherThanAccessGrantsAccessToo()
{
    const CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, u"Persons"_s, KSecurity::Write), true);
    QCOMPARE(dialog.grid()->rights().value(u"Persons"_s), KSecurity::Write | KSecurity::Access);
}

void TestCDlgUserRights::takingAccessOffTakesAllOff()
{
    KSecurity::setRights(m_clerk, u"Persons"_s, KSecurity::allRights);
    const CDlgUserRights dialog(m_clerk);
    QCOMPARE(box(dialog, u"Persons"_s, KSecurity::Delete).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    tick(dialog, box(dialog, u"Persons"_s, KSecurity::Access), false);
    QCOMPARE(dialog.grid()->rights().value(u"Persons"_s), 0);
}

void TestCDlgUserRights::aPermissionHasOneBoxOnly()
{
    const CDlgUserRights dialog(m_clerk);
    const QString archive = u"AutomobilContractArchive"_s;
    QVERIFY(box(dialog, archive, KSecurity::Access).flags() & Qt::ItemIsUserCheckable);
    const QModelIndex other = box(dialog, archive, KSecurity::Write);
    QVERIFY(other.isValid());
    QCOMPARE(other.flags(), Qt::ItemFlags(Qt::NoItemFlags));
    QVERIFY(!other.data(Qt::CheckStateRole).isValid());
    QVERIFY(!dialog.grid()->setData(other, Qt::Checked, Qt::CheckStateRole));
}

void TestCDlgUserRights::everyBoxIsNamedForAScreenReader()
{
    const CDlgUserRights dialog(m_clerk);
    const QModelIndex index = box(dialog, u"Persons"_s, KSecurity::Delete);
    const QString name = index.data(Qt::AccessibleTextRole).toString();
    QVERIFY(name.contains(KSecurity::formCaption(u"Persons"_s)));
    QVERIFY(name.contains(KSecurity::rightCaption(KSecurity::Delete)));
}

void TestCDlgUserRights::spaceTicksTheCurrentBox()
{
    CDlgUserRights dialog(m_clerk);
    auto *view = named<QTableView>(dialog, u"جدول دسترسی‌ها"_s);
    QVERIFY(view);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QModelIndex index = box(dialog, u"Persons"_s, KSecurity::Read);
    view->setCurrentIndex(index);
    QTest::keyClick(view, Qt::Key_Space);
    QCOMPARE(index.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void TestCDlgUserRights::okStoresAndRightsHoldAtOnce()
{
    GetDBSetting()->Login(m_clerk);
    QVERIFY(!KSecurity::IsGranted(u"Persons"_s, KSecurity::Read));
    CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, u"Persons"_s, KSecurity::Read), true);
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk),
             (QHash<QString, int>{{u"Persons"_s, KSecurity::Access | KSecurity::Read}}));
    QVERIFY(KSecurity::IsGranted(u"Persons"_s, KSecurity::Read));
    QVERIFY(!KSecurity::IsGranted(u"Persons"_s, KSecurity::Write));
}

void TestCDlgUserRights::cancelStoresNothing()
{
    CDlgUserRights dialog(m_clerk);
    dialog.grid()->setAll(true);
    dialog.reject();
    QVERIFY(KSecurity::storedRights(m_clerk).isEmpty());
}

void TestCDlgUserRights::allAndNone()
{
    CDlgUserRights dialog(m_clerk);
    named<QPushButton>(dialog, u"انتخاب همه"_s)->click();
    for (const KSecurity::Form &form : KSecurity::forms())
        QCOMPARE(dialog.grid()->rights().value(form.name), form.single ? int(KSecurity::Access) : KSecurity::allRights);
    named<QPushButton>(dialog, u"هیچ کدام"_s)->click();
    dialog.accept();
    QVERIFY(KSecurity::storedRights(m_clerk).isEmpty());
}

void TestCDlgUserRights::copyFromAnotherUser()
{
    const int seller = CTblUsers::create(u"seller"_s, u"seller1"_s, {}, false);
    KSecurity::setRights(seller, u"AutomobilContracts"_s, KSecurity::Access | KSecurity::Write);
    KSecurity::setRights(m_clerk, u"Persons"_s, KSecurity::allRights);
    CDlgUserRights dialog(m_clerk);
    auto *source = named<QComboBox>(dialog, u"کپی از کاربر :"_s);
    QCOMPARE(source->findText(u"clerk"_s), -1);
    source->setCurrentIndex(source->findText(u"seller"_s));
    named<QPushButton>(dialog, u"کپی"_s)->click();
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk), KSecurity::storedRights(seller));
}

void TestCDlgUserRights::aRoleFillsTheGridAndOkStoresIt()
{
    KSecurity::setRights(m_clerk, u"OfAnotherModule"_s, KSecurity::Access);
    KSecurity::setRights(m_clerk, u"Settings"_s, KSecurity::allRights);
    CDlgUserRights dialog(m_clerk);
    auto *role = named<QComboBox>(dialog, u"نقش آماده :"_s);
    QCOMPARE(role->count(), RightsRoles::names().size());
    role->setCurrentText(u"صندوقدار"_s);
    named<QPushButton>(dialog, u"اعمال نقش"_s)->click();
    QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    // Nothing is stored before OK, and the role is a starting point.
    QVERIFY(!KSecurity::storedRights(m_clerk).contains(u"Receipts"_s));
    tick(dialog, box(dialog, u"Cheques"_s, KSecurity::Access), false);
    dialog.accept();
    QHash<QString, int> expected = RightsRoles::rightsOf(u"صندوقدار"_s);
    expected.insert(u"Cheques"_s, 0);
    expected.insert(u"OfAnotherModule"_s, KSecurity::Access);
    const QHash<QString, int> stored = KSecurity::storedRights(m_clerk);
    for (auto form = expected.cbegin(); form != expected.cend(); ++form)
        QVERIFY2(stored.value(form.key()) == form.value(), qPrintable(form.key()));
    QVERIFY(!stored.contains(u"Settings"_s));
}

void TestCDlgUserRights::whatWasTickedByHandIsAskedAbout()
{
    CDlgUserRights dialog(m_clerk);
    QPushButton *apply = named<QPushButton>(dialog, u"اعمال نقش"_s);
    apply->click();
    named<QComboBox>(dialog, u"نقش آماده :"_s)->setCurrentText(u"بیننده"_s);
    apply->click();
    QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    const QHash<QString, int> viewer = dialog.grid()->rights();
    tick(dialog, box(dialog, u"Persons"_s, KSecurity::Write), true);
    const QHash<QString, int> ticked = dialog.grid()->rights();
    QVERIFY(ticked != viewer);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    apply->click();
    QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
    QCOMPARE(dialog.grid()->rights(), ticked);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    apply->click();
    QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
    QCOMPARE(dialog.grid()->rights(), viewer);
}

void TestCDlgUserRights::aUserWithoutRightsIsOfferedARole()
{
    const auto isOffered = [this] {
        const CDlgUserRights dialog(m_clerk);
        const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
        return std::ranges::any_of(labels, [](const QLabel *label) { return label->text().contains(u"نقش آماده برگزینید"_s); });
    };
    QVERIFY(isOffered());
    KSecurity::setRights(m_clerk, u"Persons"_s, KSecurity::Access);
    QVERIFY(!isOffered());
}

void TestCDlgUserRights::formsThatTheGridDoesNotShowAreKept()
{
    KSecurity::setRights(m_clerk, u"OfAnotherModule"_s, KSecurity::Access);
    CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, u"Persons"_s, KSecurity::Access), true);
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk).value(u"OfAnotherModule"_s), int(KSecurity::Access));
}

// A cell has two states: whatever both desks change, they change to the same.
void TestCDlgUserRights::cellsOfTwoDesksAreMerged()
{
    const QString form = u"Persons"_s;
    KSecurity::setRights(m_clerk, form, KSecurity::Access | KSecurity::Read | KSecurity::Delete);
    CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, form, KSecurity::Write), true);
    tick(dialog, box(dialog, form, KSecurity::Read), false);
    KSecurity::setRights(m_clerk, form, KSecurity::Access | KSecurity::Modify);
    KSecurity::setRights(m_clerk, u"Factors"_s, KSecurity::Access);
    dialog.accept();
    dialog.accept();
    QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    const QHash<QString, int> stored = KSecurity::storedRights(m_clerk);
    QCOMPARE(stored.value(form), KSecurity::Access | KSecurity::Modify | KSecurity::Write);
    QCOMPARE(stored.value(u"Factors"_s), int(KSecurity::Access));
}

void TestCDlgUserRights::formClosedByAnotherDeskStaysClosed()
{
    const QString form = u"Persons"_s;
    KSecurity::setRights(m_clerk, form, KSecurity::Access | KSecurity::Read);
    CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, form, KSecurity::Write), true);
    KSecurity::setRights(m_clerk, form, 0);
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk).value(form), 0);
    const QStringList told = g_pDlgMessage->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().endsWith(u"ثبت - اشخاص"_s), qPrintable(told.constFirst()));
}

void TestCDlgUserRights::userWhoIsGoneIsTold()
{
    CDlgUserRights dialog(m_clerk);
    dialog.show();
    tick(dialog, box(dialog, u"Persons"_s, KSecurity::Write), true);
    m_office.database.run(u"DELETE FROM Users WHERE iID=%1"_s.arg(m_clerk));
    dialog.accept();
    QVERIFY(dialog.isVisible());
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"حذف کرده است"_s), qPrintable(told.constFirst()));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM UserRights"_s), u"0"_s);
}

static const RegisteredTest<TestCDlgUserRights, QApplication> registeredCDlgUserRights;
#include "TestCDlgUserRights.moc"
