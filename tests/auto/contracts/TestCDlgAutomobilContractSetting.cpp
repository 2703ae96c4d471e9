// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContractSetting.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString toText = u"تا :"_s;
const QString fromText = u"مبلغ معامله از :"_s;
const QString levyCaption = u"ماليات و عوارض جدا از پرداختي دريافت شود"_s;
const QString postCaption = u"فروش اقساطی در دفاتر ثبت شود"_s;
const QString feeLabel = u"جریمه دیرکرد هر قسط در روز :"_s;
const QString graceLabel = u"پس از سررسید، مهلت :"_s;

KEdit *field(const QWidget &dialog, const QString &name, const QString &description = {})
{
    const QList<KEdit *> edits = dialog.findChildren<KEdit *>();
    for (KEdit *edit : edits) {
        if (edit->accessibleName() == name && edit->accessibleDescription() == description)
            return edit;
    }
    return nullptr;
}

QString tier(int number)
{
    return u"پله %1 کمیسیون"_s.arg(number);
}

template <class Button>
Button *button(const QWidget &dialog, const QString &caption)
{
    const QList<Button *> buttons = dialog.findChildren<Button *>();
    for (Button *candidate : buttons) {
        if (candidate->text() == caption)
            return candidate;
    }
    return nullptr;
}

}

class TestCDlgAutomobilContractSetting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showsWhatIsStored();
    void lowerBoundsFollowTheCeilings();
    void thirdTierShowsOnlyWhenInUse();
    void savesWhatIsTyped();
    void savesWhatFollowsTheStatedFields();
    void whatChangedIsNotedByItsLabel();
    void graceOfMoreThanAYearIsRefused();
    void cancelWritesNothing();
    void secondTierBelowTheFirstIsRefused();
    void thirdTierBelowTheOthersIsRefusedAlsoWhenItIsOff();
    void percentageAboveHundredIsRefused();
    void closedDatabaseIsNotChanged();
    void userWhoMayOnlyLookOpensButDoesNotSave();
    void rightTakenAwayMeanwhileCounts();
    void twoDesks_data() { TwoDesks::addCases(false); }
    void twoDesks();
    void tiersAreTakenWholeFromOneSide();
    void everyFieldTellsItsName();
    void everyAmountShowsTheMoneyUnit();
    void everyGroupHasATitle();

private:
    // But for the one that the schema sets.
    QString count() { return m_database.value(u"SELECT COUNT(*) FROM Properties WHERE sSection='AutomobilContracts' AND sKey<>'bPostPlan'"_s); }

    TestDatabase m_database;
};

void TestCDlgAutomobilContractSetting::init()
{
    m_database.recreate();
    SuiteSchema::upgrade();
    KSecurity::setUser(1, true);
    g_pDlgWarning->answerAll(true);
}

void TestCDlgAutomobilContractSetting::cleanup()
{
    g_pDlgWarning->answerAll(false);
}

void TestCDlgAutomobilContractSetting::showsWhatIsStored()
{
    ContractSettings settings;
    settings.taxPercent = 9;
    settings.dutyPercent = 1.5;
    settings.tiers = {{1000, 2000, 3000}, {1, 2, 3}, true};
    settings.archiveDemands = true;
    settings.demandDays = 45;
    settings.levySeparate = true;
    settings.postPlan = true;
    settings.lateFeePercent = 0.1;
    settings.lateFeeGrace = 5;
    settings.save();
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    QCOMPARE(dialog.windowTitle(), u"تنظيمات"_s);
    QCOMPARE(dialog.layoutDirection(), Qt::RightToLeft);
    QCOMPARE(field(dialog, u"ماليات :"_s)->number(), 9.0);
    QCOMPARE(field(dialog, u"عوارض :"_s)->number(), 1.5);
    for (int number = 1; number <= 3; ++number) {
        QCOMPARE(field(dialog, toText, tier(number))->number(), number * 1000.0);
        QCOMPARE(field(dialog, u"%"_s, tier(number))->number(), double(number));
        QVERIFY(field(dialog, fromText, tier(number))->isReadOnly());
    }
    QCOMPARE(field(dialog, fromText, tier(2))->number(), 1001.0);
    QCOMPARE(field(dialog, fromText, tier(3))->number(), 2001.0);
    QVERIFY(button<QCheckBox>(dialog, fromText)->isChecked());
    QVERIFY(button<QCheckBox>(dialog, u"تقاضاهاي بيشتر از "_s)->isChecked());
    QCOMPARE(field(dialog, u"روز را بايگاني نمايد."_s)->integer(), 45);
    QVERIFY(button<QCheckBox>(dialog, levyCaption)->isChecked());
    QVERIFY(button<QCheckBox>(dialog, postCaption)->isChecked());
    QCOMPARE(field(dialog, feeLabel)->number(), 0.1);
    QCOMPARE(field(dialog, graceLabel)->integer(), 5);
}

void TestCDlgAutomobilContractSetting::savesWhatFollowsTheStatedFields()
{
    CDlgAutomobilContractSetting dialog;
    QVERIFY(!button<QCheckBox>(dialog, levyCaption)->isChecked());
    button<QCheckBox>(dialog, levyCaption)->setChecked(true);
    button<QCheckBox>(dialog, postCaption)->toggle();
    const bool posts = button<QCheckBox>(dialog, postCaption)->isChecked();
    field(dialog, feeLabel)->setText(u"0.25"_s);
    field(dialog, graceLabel)->setText(u"365"_s);
    dialog.accept();
    const ContractSettings saved = ContractSettings::load();
    QVERIFY(saved.levySeparate);
    QCOMPARE(saved.postPlan, posts);
    QCOMPARE(saved.lateFeePercent, 0.25);
    QCOMPARE(saved.lateFeeGrace, 365);
}

void TestCDlgAutomobilContractSetting::whatChangedIsNotedByItsLabel()
{
    OfficeSubjects::enter();
    GetDBSetting()->Login(CTblUsers::create(u"admin"_s, u"secret"_s, u"مدیر"_s, true));
    const auto save = [](const QString &tax, const QString &ceiling, const QString &fee) {
        CDlgAutomobilContractSetting dialog;
        dialog.show();
        field(dialog, u"ماليات :"_s)->setText(tax);
        field(dialog, toText, tier(1))->setText(ceiling);
        field(dialog, toText, tier(2))->setText(ceiling);
        field(dialog, feeLabel)->setText(fee);
        button<QCheckBox>(dialog, levyCaption)->toggle();
        dialog.accept();
        return dialog.result() == QDialog::Accepted;
    };
    QVERIFY(save(u"9"_s, u"500000"_s, u"0.1"_s));
    m_database.run(u"DELETE FROM Changes"_s);
    QVERIFY(save(u"10"_s, u"1500000"_s, u"0.3"_s));
    const QList<HistoryEntry> entries = HistoryRows::read("sTable='Properties:AutomobilContracts'");
    QCOMPARE(entries.size(), 1);
    QCOMPARE(HistoryWords::sentence(entries.constFirst()),
             u"ماليات : 9 ← 10؛ مبلغ پله 1 : 500,000 ← 1,500,000؛ مبلغ پله 2 : 500,000 ← 1,500,000؛ %1 : بلی ← خیر؛ درصد جریمه دیرکرد : 0.1 ← 0.3"_s
                 .arg(levyCaption));
    RecordHistory::setWindow(&CDlgHistory::Show);
    const CDlgAutomobilContractSetting dialog;
    RecordHistory::setWindow(nullptr);
    QVERIFY(button<QPushButton>(dialog, RecordHistory::caption()));
    GetDBSetting()->Logout();
}

void TestCDlgAutomobilContractSetting::graceOfMoreThanAYearIsRefused()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    const QString before = count();
    field(dialog, graceLabel)->setText(u"366"_s);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{graceLabel + u" مقدار باید بین 0 و 365 باشد."_s});
    QCOMPARE(dialog.focusWidget(), field(dialog, graceLabel));
    QCOMPARE(count(), before);
}

void TestCDlgAutomobilContractSetting::lowerBoundsFollowTheCeilings()
{
    CDlgAutomobilContractSetting dialog;
    KEdit *first = field(dialog, toText, tier(1));
    KEdit *second = field(dialog, toText, tier(2));
    first->setText(u"500"_s);
    QCOMPARE(field(dialog, fromText, tier(2))->number(), 501.0);
    second->setText(u"900"_s);
    QCOMPARE(field(dialog, fromText, tier(3))->number(), 901.0);
    first->setText(u"0"_s);
    QCOMPARE(field(dialog, fromText, tier(2))->number(), 501.0);
    dialog.accept();
    QCOMPARE(count(), u"14"_s);
}

void TestCDlgAutomobilContractSetting::thirdTierShowsOnlyWhenInUse()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    const QList<KEdit *> row{field(dialog, fromText, tier(3)), field(dialog, toText, tier(3)),
                             field(dialog, u"%"_s, tier(3))};
    for (KEdit *edit : row)
        QVERIFY(!edit->isVisible());
    auto *inUse = button<QCheckBox>(dialog, fromText);
    QVERIFY(inUse->isVisible());
    inUse->click();
    for (KEdit *edit : row)
        QVERIFY(edit->isVisible());
    inUse->click();
    for (KEdit *edit : row)
        QVERIFY(!edit->isVisible());
    QVERIFY(field(dialog, toText, tier(2))->isVisible());
}

void TestCDlgAutomobilContractSetting::savesWhatIsTyped()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, u"ماليات :"_s)->setText(u"۹"_s);
    field(dialog, u"عوارض :"_s)->setText(u"1.5"_s);
    field(dialog, toText, tier(1))->setText(u"1000"_s);
    field(dialog, u"%"_s, tier(1))->setText(u"2"_s);
    field(dialog, toText, tier(2))->setText(u"1000"_s);
    button<QCheckBox>(dialog, u"تقاضاهاي بيشتر از "_s)->click();
    field(dialog, u"روز را بايگاني نمايد."_s)->setText(u"60"_s);
    button<QPushButton>(dialog, u"تاييد"_s)->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    const ContractSettings settings = ContractSettings::load();
    QCOMPARE(settings.taxPercent, 9.0);
    QCOMPARE(settings.dutyPercent, 1.5);
    QCOMPARE(settings.tiers.ceilings[0], 1000.0);
    QCOMPARE(settings.tiers.ceilings[1], 1000.0);
    QCOMPARE(settings.tiers.percents[0], 2.0);
    QVERIFY(!settings.tiers.thirdInUse);
    QVERIFY(settings.archiveDemands);
    QCOMPARE(settings.demandDays, 60);
}

void TestCDlgAutomobilContractSetting::cancelWritesNothing()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, u"ماليات :"_s)->setText(u"9"_s);
    button<QPushButton>(dialog, u"انصراف"_s)->click();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(count(), u"0"_s);
}

void TestCDlgAutomobilContractSetting::secondTierBelowTheFirstIsRefused()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, toText, tier(1))->setText(u"100"_s);
    field(dialog, toText, tier(2))->setText(u"50"_s);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(u"لطفا مبلغ دوم را بیشتر از مبلغ اول وارد نماید."_s));
    QCOMPARE(dialog.focusWidget(), field(dialog, toText, tier(2)));
    QCOMPARE(count(), u"0"_s);
}

void TestCDlgAutomobilContractSetting::thirdTierBelowTheOthersIsRefusedAlsoWhenItIsOff()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, toText, tier(2))->setText(u"300"_s);
    field(dialog, toText, tier(3))->setText(u"200"_s);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(u"لطفا مبلغ سوم را بیشتر از تمامی مبلغ ها وارد نماید."_s));
    QCOMPARE(count(), u"0"_s);
    // The amount is out of sight; the box brings it back.
    QCOMPARE(dialog.focusWidget(), button<QCheckBox>(dialog, fromText));
    button<QCheckBox>(dialog, fromText)->setChecked(true);
    dialog.accept();
    QCOMPARE(dialog.focusWidget(), field(dialog, toText, tier(3)));
}

void TestCDlgAutomobilContractSetting::percentageAboveHundredIsRefused()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    KEdit *tax = field(dialog, u"ماليات :"_s);
    tax->setText(u"101"_s);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(u"ماليات : مقدار باید بین 0 و 100 باشد."_s));
    QCOMPARE(dialog.focusWidget(), tax);
    QCOMPARE(count(), u"0"_s);
}

void TestCDlgAutomobilContractSetting::closedDatabaseIsNotChanged()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.accept());
    QVERIFY(dialog.isVisible());
    QCOMPARE(count(), u"0"_s);
}

void TestCDlgAutomobilContractSetting::userWhoMayOnlyLookOpensButDoesNotSave()
{
    KSecurity::setRights(7, u"AutomobilContracts"_s, KSecurity::allRights & ~KSecurity::Modify);
    KSecurity::setUser(7, false);
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, u"ماليات :"_s)->setNumber(50);
    KErrorBoundary::guarded(&dialog, [&] { dialog.accept(); });
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه «ویرایش» در «قرارداد» را ندارید."_s});
    QVERIFY(dialog.isVisible());
    QCOMPARE(field(dialog, u"ماليات :"_s)->number(), 50.0);
    QCOMPARE(count(), u"0"_s);
}

void TestCDlgAutomobilContractSetting::rightTakenAwayMeanwhileCounts()
{
    KSecurity::setRights(7, u"AutomobilContracts"_s, KSecurity::allRights);
    KSecurity::setUser(7, false);
    CDlgAutomobilContractSetting dialog;
    QVERIFY(KSecurity::IsGranted(u"AutomobilContracts"_s, KSecurity::Modify));
    m_database.run(u"DELETE FROM UserRights"_s);
    KErrorBoundary::guarded(&dialog, [&] { dialog.accept(); });
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(count(), u"0"_s);
    KSecurity::setUser(1, true);
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(count(), u"14"_s);
}

void TestCDlgAutomobilContractSetting::everyFieldTellsItsName()
{
    CDlgAutomobilContractSetting dialog;
    const QList<QWidget *> widgets = dialog.findChildren<QWidget *>();
    int named = 0;
    for (QWidget *widget : widgets) {
        // A button's caption is its name.
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        if (button || qobject_cast<KEdit *>(widget)) {
            QVERIFY(!(button ? button->text() : widget->accessibleName()).isEmpty());
            ++named;
        }
    }
    QCOMPARE(named, 21);
}

void TestCDlgAutomobilContractSetting::everyAmountShowsTheMoneyUnit()
{
    GetDBSetting()->SetMoneyUnitName(u"تومان"_s);
    CDlgAutomobilContractSetting dialog;
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    QCOMPARE(std::count_if(labels.begin(), labels.end(), [](QLabel *label) { return label->text() == u"تومان"_s; }), 6);
}

void TestCDlgAutomobilContractSetting::everyGroupHasATitle()
{
    const CDlgAutomobilContractSetting dialog;
    const QList<QGroupBox *> groups = dialog.findChildren<QGroupBox *>();
    QCOMPARE(groups.size(), 4);
    for (const QGroupBox *group : groups)
        QVERIFY(!group->title().isEmpty());
    // No field stands outside.
    for (const KEdit *edit : dialog.findChildren<KEdit *>())
        QVERIFY2(qobject_cast<QGroupBox *>(edit->parentWidget()), qPrintable(edit->accessibleName()));
}

void TestCDlgAutomobilContractSetting::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    const auto other = [](void (*change)(ContractSettings &)) {
        ContractSettings settings = ContractSettings::load();
        change(settings);
        settings.save();
    };
    TwoDesks({
                 .reset = [&] { other([](ContractSettings &settings) { settings.taxPercent = 9; }); },
                 .open = [] { return std::make_unique<CDlgAutomobilContractSetting>(); },
                 .enter = [](KDialog &window) { field(window, u"ماليات :"_s)->setNumber(10); },
                 .changeOther = [&] { other([](ContractSettings &settings) { settings.dutyPercent = 3; }); },
                 .changeSame = [&] { other([](ContractSettings &settings) { settings.taxPercent = 8; }); },
                 .stored = [] { return u"%1/%2"_s.arg(ContractSettings::load().taxPercent).arg(ContractSettings::load().dutyPercent); },
                 .merged = u"10/3"_s,
                 .theirs = u"8/0"_s,
                 .mine = u"10/0"_s,
             })
        .check(what);
}

void TestCDlgAutomobilContractSetting::tiersAreTakenWholeFromOneSide()
{
    CDlgAutomobilContractSetting dialog;
    field(dialog, toText, tier(1))->setText(u"500"_s);
    ContractSettings theirs;
    theirs.tiers = {{100, 200, 0}, {1, 2, 0}, false};
    theirs.save();
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeTheirs);
    dialog.accept();
    QVERIFY(CDlgRowConflict::takeShown().size() >= 2);
    QCOMPARE(ContractSettings::load().tiers.ceilings[0], 100.0);
    QCOMPARE(ContractSettings::load().tiers.ceilings[1], 200.0);
}

static const RegisteredTest<TestCDlgAutomobilContractSetting, QApplication> registeredCDlgAutomobilContractSetting;
#include "TestCDlgAutomobilContractSetting.moc"
