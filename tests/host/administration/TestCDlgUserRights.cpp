// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUserRights.h"

#include "host/administration/RightsGridModel.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>

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
    void formsThatTheGridDoesNotShowAreKept();

private:
    QModelIndex box(const CDlgUserRights &dialog, const QString &form, KSecurity::Right right) const;
    static void tick(const CDlgUserRights &dialog, const QModelIndex &index, bool on);

    HostTestOffice m_office;
    int m_clerk = 0;
};

void TestCDlgUserRights::init()
{
    m_office.fresh();
    m_clerk = CTblUsers::create(QStringLiteral("clerk"), QStringLiteral("clerk1"), QStringLiteral("کارمند"), false);
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
    grid.setRights({{QStringLiteral("Persons"), KSecurity::allRights}});
    grid.setAll(true);
    QVERIFY(grid.setData(grid.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(!grid.setData(grid.index(0, 0), QStringLiteral("text"), Qt::EditRole));
    QVERIFY(!grid.setData({}, Qt::Checked, Qt::CheckStateRole));
}

void TestCDlgUserRights::aRightOtherThanAccessGrantsAccessToo()
{
    const CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, QStringLiteral("Persons"), KSecurity::Write), true);
    QCOMPARE(dialog.grid()->rights().value(QStringLiteral("Persons")), KSecurity::Write | KSecurity::Access);
}

void TestCDlgUserRights::takingAccessOffTakesAllOff()
{
    KSecurity::setRights(m_clerk, QStringLiteral("Persons"), KSecurity::allRights);
    const CDlgUserRights dialog(m_clerk);
    QCOMPARE(box(dialog, QStringLiteral("Persons"), KSecurity::Delete).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    tick(dialog, box(dialog, QStringLiteral("Persons"), KSecurity::Access), false);
    QCOMPARE(dialog.grid()->rights().value(QStringLiteral("Persons")), 0);
}

void TestCDlgUserRights::aPermissionHasOneBoxOnly()
{
    const CDlgUserRights dialog(m_clerk);
    const QString archive = QStringLiteral("AutomobilContractArchive");
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
    const QModelIndex index = box(dialog, QStringLiteral("Persons"), KSecurity::Delete);
    const QString name = index.data(Qt::AccessibleTextRole).toString();
    QVERIFY(name.contains(KSecurity::formCaption(QStringLiteral("Persons"))));
    QVERIFY(name.contains(KSecurity::rightCaption(KSecurity::Delete)));
}

void TestCDlgUserRights::spaceTicksTheCurrentBox()
{
    CDlgUserRights dialog(m_clerk);
    auto *view = named<QTableView>(dialog, QStringLiteral("جدول دسترسی‌ها"));
    QVERIFY(view);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QModelIndex index = box(dialog, QStringLiteral("Persons"), KSecurity::Read);
    view->setCurrentIndex(index);
    QTest::keyClick(view, Qt::Key_Space);
    QCOMPARE(index.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void TestCDlgUserRights::okStoresAndRightsHoldAtOnce()
{
    GetDBSetting()->Login(m_clerk);
    QVERIFY(!KSecurity::IsGranted(QStringLiteral("Persons"), KSecurity::Read));
    CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, QStringLiteral("Persons"), KSecurity::Read), true);
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk),
             (QHash<QString, int>{{QStringLiteral("Persons"), KSecurity::Access | KSecurity::Read}}));
    QVERIFY(KSecurity::IsGranted(QStringLiteral("Persons"), KSecurity::Read));
    QVERIFY(!KSecurity::IsGranted(QStringLiteral("Persons"), KSecurity::Write));
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
    named<QPushButton>(dialog, QStringLiteral("انتخاب همه"))->click();
    for (const KSecurity::Form &form : KSecurity::forms())
        QCOMPARE(dialog.grid()->rights().value(form.name), form.single ? int(KSecurity::Access) : KSecurity::allRights);
    named<QPushButton>(dialog, QStringLiteral("هیچ کدام"))->click();
    dialog.accept();
    QVERIFY(KSecurity::storedRights(m_clerk).isEmpty());
}

void TestCDlgUserRights::copyFromAnotherUser()
{
    const int seller = CTblUsers::create(QStringLiteral("seller"), QStringLiteral("seller1"), {}, false);
    KSecurity::setRights(seller, QStringLiteral("AutomobilContracts"), KSecurity::Access | KSecurity::Write);
    KSecurity::setRights(m_clerk, QStringLiteral("Persons"), KSecurity::allRights);
    CDlgUserRights dialog(m_clerk);
    auto *source = named<QComboBox>(dialog, QStringLiteral("کپی از کاربر :"));
    QCOMPARE(source->findText(QStringLiteral("clerk")), -1);
    source->setCurrentIndex(source->findText(QStringLiteral("seller")));
    named<QPushButton>(dialog, QStringLiteral("کپی"))->click();
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk), KSecurity::storedRights(seller));
}

void TestCDlgUserRights::formsThatTheGridDoesNotShowAreKept()
{
    KSecurity::setRights(m_clerk, QStringLiteral("OfAnotherModule"), KSecurity::Access);
    CDlgUserRights dialog(m_clerk);
    tick(dialog, box(dialog, QStringLiteral("Persons"), KSecurity::Access), true);
    dialog.accept();
    QCOMPARE(KSecurity::storedRights(m_clerk).value(QStringLiteral("OfAnotherModule")), int(KSecurity::Access));
}

static const RegisteredTest<TestCDlgUserRights, QApplication> registered;
#include "TestCDlgUserRights.moc"
