// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContractSetting.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

const QString toText = QStringLiteral("تا :");
const QString fromText = QStringLiteral("مبلغ معامله از :");

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
    return QStringLiteral("پله %1 کمیسیون").arg(number);
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
    void cancelWritesNothing();
    void secondTierBelowTheFirstIsRefused();
    void thirdTierBelowTheOthersIsRefusedAlsoWhenItIsOff();
    void percentageAboveHundredIsRefused();
    void closedDatabaseIsNotChanged();
    void everyFieldTellsItsName();
    void everyAmountShowsTheMoneyUnit();

private:
    QString count() { return m_database.value(QStringLiteral("SELECT COUNT(*) FROM Properties WHERE sSection='AutomobilContracts'")); }

    TestDatabase m_database;
};

void TestCDlgAutomobilContractSetting::init()
{
    m_database.recreate();
    SuiteSchema::upgrade();
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
    settings.save();
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("تنظيمات"));
    QCOMPARE(dialog.layoutDirection(), Qt::RightToLeft);
    QCOMPARE(field(dialog, QStringLiteral("ماليات :"))->number(), 9.0);
    QCOMPARE(field(dialog, QStringLiteral("عوارض :"))->number(), 1.5);
    for (int number = 1; number <= 3; ++number) {
        QCOMPARE(field(dialog, toText, tier(number))->number(), number * 1000.0);
        QCOMPARE(field(dialog, QStringLiteral("%"), tier(number))->number(), double(number));
        QVERIFY(field(dialog, fromText, tier(number))->isReadOnly());
    }
    QCOMPARE(field(dialog, fromText, tier(2))->number(), 1001.0);
    QCOMPARE(field(dialog, fromText, tier(3))->number(), 2001.0);
    QVERIFY(button<QCheckBox>(dialog, fromText)->isChecked());
    QVERIFY(button<QCheckBox>(dialog, QStringLiteral("تقاضاهاي بيشتر از "))->isChecked());
    QCOMPARE(field(dialog, QStringLiteral("روز را بايگاني نمايد."))->integer(), 45);
}

void TestCDlgAutomobilContractSetting::lowerBoundsFollowTheCeilings()
{
    CDlgAutomobilContractSetting dialog;
    KEdit *first = field(dialog, toText, tier(1));
    KEdit *second = field(dialog, toText, tier(2));
    first->setText(QStringLiteral("500"));
    QCOMPARE(field(dialog, fromText, tier(2))->number(), 501.0);
    second->setText(QStringLiteral("900"));
    QCOMPARE(field(dialog, fromText, tier(3))->number(), 901.0);
    first->setText(QStringLiteral("0"));
    QCOMPARE(field(dialog, fromText, tier(2))->number(), 501.0);
    dialog.accept();
    QCOMPARE(count(), QStringLiteral("11"));
}

void TestCDlgAutomobilContractSetting::thirdTierShowsOnlyWhenInUse()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    const QList<KEdit *> row{field(dialog, fromText, tier(3)), field(dialog, toText, tier(3)),
                             field(dialog, QStringLiteral("%"), tier(3))};
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
    field(dialog, QStringLiteral("ماليات :"))->setText(QStringLiteral("۹"));
    field(dialog, QStringLiteral("عوارض :"))->setText(QStringLiteral("1.5"));
    field(dialog, toText, tier(1))->setText(QStringLiteral("1000"));
    field(dialog, QStringLiteral("%"), tier(1))->setText(QStringLiteral("2"));
    field(dialog, toText, tier(2))->setText(QStringLiteral("1000"));
    button<QCheckBox>(dialog, QStringLiteral("تقاضاهاي بيشتر از "))->click();
    field(dialog, QStringLiteral("روز را بايگاني نمايد."))->setText(QStringLiteral("60"));
    button<QPushButton>(dialog, QStringLiteral("تاييد"))->click();
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
    field(dialog, QStringLiteral("ماليات :"))->setText(QStringLiteral("9"));
    button<QPushButton>(dialog, QStringLiteral("انصراف"))->click();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(count(), QStringLiteral("0"));
}

void TestCDlgAutomobilContractSetting::secondTierBelowTheFirstIsRefused()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, toText, tier(1))->setText(QStringLiteral("100"));
    field(dialog, toText, tier(2))->setText(QStringLiteral("50"));
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(QStringLiteral("لطفا مبلغ دوم را بیشتر از مبلغ اول وارد نماید.")));
    QCOMPARE(dialog.focusWidget(), field(dialog, toText, tier(2)));
    QCOMPARE(count(), QStringLiteral("0"));
}

void TestCDlgAutomobilContractSetting::thirdTierBelowTheOthersIsRefusedAlsoWhenItIsOff()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    field(dialog, toText, tier(2))->setText(QStringLiteral("300"));
    field(dialog, toText, tier(3))->setText(QStringLiteral("200"));
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(QStringLiteral("لطفا مبلغ سوم را بیشتر از تمامی مبلغ ها وارد نماید.")));
    QCOMPARE(count(), QStringLiteral("0"));
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
    KEdit *tax = field(dialog, QStringLiteral("ماليات :"));
    tax->setText(QStringLiteral("101"));
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList(QStringLiteral("ماليات : مقدار باید بین 0 و 100 باشد.")));
    QCOMPARE(dialog.focusWidget(), tax);
    QCOMPARE(count(), QStringLiteral("0"));
}

void TestCDlgAutomobilContractSetting::closedDatabaseIsNotChanged()
{
    CDlgAutomobilContractSetting dialog;
    dialog.show();
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.accept());
    QVERIFY(dialog.isVisible());
    QCOMPARE(count(), QStringLiteral("0"));
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
    QCOMPARE(named, 16);
}

void TestCDlgAutomobilContractSetting::everyAmountShowsTheMoneyUnit()
{
    GetDBSetting()->SetMoneyUnitName(QStringLiteral("تومان"));
    CDlgAutomobilContractSetting dialog;
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    QCOMPARE(std::count_if(labels.begin(), labels.end(), [](QLabel *label) { return label->text() == QStringLiteral("تومان"); }), 6);
}

static const RegisteredTest<TestCDlgAutomobilContractSetting, QApplication> registered;
#include "TestCDlgAutomobilContractSetting.moc"
