// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgSettings.h"

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

class TestCDlgSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.fresh(); }
    void cleanup() { setDefaultMoneyDecimals(0); }
    void showsWhatIsStored();
    void storesEverything();
    void refused_data();
    void refused();
    void cancelChangesNothing();
    void anotherFiscalYearOpensOnItsFirstDay();
    void ofAClosedDatabaseOnlyTheMarkCanBeChanged();

private:
    HostTestOffice m_office;
};

namespace {

struct Settings
{
    Settings()
        : unit(named<KEdit>(dialog, QStringLiteral("نام واحد پول :")))
        , decimals(named<QComboBox>(dialog, QStringLiteral("رقم‌های اعشار :")))
        , year(named<KEdit>(dialog, QStringLiteral("سال مالی :")))
        , opening(named<KDateEdit>(dialog, QStringLiteral("تاریخ افتتاح :")))
        , catalogLocked(named<QCheckBox>(dialog, QStringLiteral("فهرست خودروها قفل است (فقط انتخاب)")))
        , closed(named<QCheckBox>(dialog, QStringLiteral("پایگاه داده بسته است (فقط مشاهده)")))
    {
    }

    CDlgSettings dialog;
    KEdit *unit;
    QComboBox *decimals;
    KEdit *year;
    KDateEdit *opening;
    QCheckBox *catalogLocked;
    QCheckBox *closed;
};

}

void TestCDlgSettings::showsWhatIsStored()
{
    CDBSetting *setting = GetDBSetting();
    setting->SetMoneyUnitName(QStringLiteral("تومان"));
    setting->SetMoneyDecimals(2);
    setting->SetFiscalYear(1403);
    setting->SetCatalogLocked(true);
    setting->SetFiscalYearOpeningDate(QDateTime(ConvertToMiladi(1403, 1, 5), QTime(0, 0), Qt::UTC));
    const Settings settings;
    QCOMPARE(settings.unit->text(), QStringLiteral("تومان"));
    QCOMPARE(settings.decimals->currentText(), QStringLiteral("2"));
    QCOMPARE(settings.year->integer(), 1403);
    QCOMPARE(settings.opening->text(), QStringLiteral("1403/01/05"));
    QVERIFY(settings.catalogLocked->isChecked());
    QVERIFY(!settings.closed->isChecked());
}

void TestCDlgSettings::storesEverything()
{
    Settings settings;
    settings.unit->setText(QStringLiteral("تومان"));
    settings.decimals->setCurrentIndex(3);
    settings.year->setNumber(1404);
    settings.opening->setDate(ConvertToMiladi(1404, 1, 2));
    settings.catalogLocked->setChecked(true);
    settings.closed->setChecked(true);
    settings.dialog.accept();
    QCOMPARE(settings.dialog.result(), int(QDialog::Accepted));
    const CDBSetting *setting = GetDBSetting();
    QCOMPARE(setting->MoneyUnitName(), QStringLiteral("تومان"));
    QCOMPARE(setting->MoneyDecimals(), 3);
    QCOMPARE(DToMoney(1), QStringLiteral("1.000"));
    QCOMPARE(setting->FiscalYear(), 1404);
    QCOMPARE(setting->FiscalYearOpeningDate().date(), ConvertToMiladi(1404, 1, 2));
    QVERIFY(setting->IsCatalogLocked());
    QVERIFY(setting->IsClosedDB());
}

void TestCDlgSettings::refused_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    QTest::newRow("no unit") << "نام واحد پول :"
                             << " ";
    QTest::newRow("no year") << "سال مالی :"
                             << "";
    QTest::newRow("no such year") << "سال مالی :"
                                  << "1100";
    QTest::newRow("no opening day") << "تاریخ افتتاح :"
                                    << "";
    QTest::newRow("no such day") << "تاریخ افتتاح :"
                                 << "1404/12/30";
}

void TestCDlgSettings::refused()
{
    QFETCH(QString, label);
    QFETCH(QString, value);
    Settings settings;
    settings.closed->setChecked(true);
    named<QLineEdit>(settings.dialog, label)->setText(value);
    settings.dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(settings.dialog.result(), int(QDialog::Rejected));
    QVERIFY(!GetDBSetting()->IsClosedDB());
}

void TestCDlgSettings::cancelChangesNothing()
{
    Settings settings;
    settings.unit->setText(QStringLiteral("تومان"));
    settings.closed->setChecked(true);
    settings.dialog.reject();
    QCOMPARE(GetDBSetting()->MoneyUnitName(), QStringLiteral("ریال"));
    QVERIFY(!GetDBSetting()->IsClosedDB());
}

void TestCDlgSettings::anotherFiscalYearOpensOnItsFirstDay()
{
    Settings settings;
    settings.year->setText(QStringLiteral("1406"));
    QCOMPARE(settings.opening->text(), QStringLiteral("1406/01/01"));
}

void TestCDlgSettings::ofAClosedDatabaseOnlyTheMarkCanBeChanged()
{
    GetDBSetting()->SetClosedDB(true);
    Settings settings;
    QVERIFY(settings.closed->isChecked());
    QVERIFY(settings.closed->isEnabled());
    for (const QWidget *field : {static_cast<QWidget *>(settings.unit), static_cast<QWidget *>(settings.decimals),
                                 static_cast<QWidget *>(settings.year), static_cast<QWidget *>(settings.opening),
                                 static_cast<QWidget *>(settings.catalogLocked)})
        QVERIFY(!field->isEnabled());
    settings.unit->setText(QStringLiteral("تومان"));
    settings.closed->setChecked(false);
    settings.dialog.accept();
    QVERIFY(!GetDBSetting()->IsClosedDB());
    QCOMPARE(GetDBSetting()->MoneyUnitName(), QStringLiteral("ریال"));
}

static const RegisteredTest<TestCDlgSettings, QApplication> registered;
#include "TestCDlgSettings.moc"
