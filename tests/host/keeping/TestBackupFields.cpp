// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgSettings.h"
#include "host/keeping/BackupSettings.h"
#include "host/keeping/BackupsHere.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QTest>

using namespace Qt::StringLiterals;

// What the settings window says about backups, where it is kept, and who may change it.
class TestBackupFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutASettingAnHourIsLostAtMost();
    void numbersOutOfRangeAreNotTaken_data();
    void numbersOutOfRangeAreNotTaken();
    void officeAndComputerEachKeepTheirs();
    void refused_data();
    void refused();
    void secondFolderThatIsAwayAlreadyIsNoObstacle();
    void othersThanAdministratorsChangeNothing();
    void whoIsNoAdministratorAnyMoreIsRefused();
    void officeServerIsSavedWhereAnAdministratorWorks_data();
    void officeServerIsSavedWhereAnAdministratorWorks();

private:
    DataFolder folder() const { return DataFolder(m_folder->filePath(u"office"_s)); }

    HostTestOffice m_office;
    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

struct BackupWindow
{
    explicit BackupWindow(const DataFolder &folder)
        : dialog(folder)
        , hours(named<KEdit>(dialog, u"فاصله پشتیبان‌ها (ساعت) :"_s))
        , daily(named<KEdit>(dialog, u"روزانه‌های نگهداری شده :"_s))
        , atClosing(named<QCheckBox>(dialog, u"هنگام بستن برنامه، اگر چیزی تغییر کرده باشد"_s))
        , here(named<QCheckBox>(dialog, u"این رایانه خودکار پشتیبان می‌گیرد"_s))
        , second(named<KEdit>(dialog, u"پوشه دوم (دیسک جدا یا شبکه) :"_s))
        , binDays(named<KEdit>(dialog, u"روزهای سطل بازیافت :"_s))
    {
    }

    CDlgSettings dialog;
    KEdit *hours;
    KEdit *daily;
    QCheckBox *atClosing;
    QCheckBox *here;
    KEdit *second;
    KEdit *binDays;
};

}

void TestBackupFields::init()
{
    m_office.fresh();
    m_folder = std::make_unique<QTemporaryDir>();
    folder().create();
}

void TestBackupFields::withoutASettingAnHourIsLostAtMost()
{
    const BackupSettings settings = BackupSettings::read();
    QCOMPARE(settings.hours, 1);
    QVERIFY(settings.atClosing);
    QCOMPARE(settings.daily, 7);
    QCOMPARE(settings.weekly, 4);
    QCOMPARE(settings.monthly, 12);
    QCOMPARE(settings.binDays, 90);
    const BackupWindow window(folder());
    QCOMPARE(window.hours->integer(), 1);
    QVERIFY(window.atClosing->isChecked());
    QVERIFY(window.here->isChecked());
    QCOMPARE(window.binDays->integer(), 90);
}

void TestBackupFields::numbersOutOfRangeAreNotTaken_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("hours");
    QTest::newRow("off") << "0" << 0;
    QTest::newRow("a week") << "168" << 168;
    QTest::newRow("negative") << "-1" << 1;
    QTest::newRow("too many") << "169" << 1;
    QTest::newRow("no number") << "often" << 1;
}

void TestBackupFields::numbersOutOfRangeAreNotTaken()
{
    QFETCH(QString, stored);
    CTblProperties::DBWriteSetting(u"Backup"_s, u"iHours"_s, stored);
    QTEST(BackupSettings::read().hours, "hours");
}

void TestBackupFields::officeAndComputerEachKeepTheirs()
{
    BackupWindow window(folder());
    window.hours->setNumber(3);
    window.daily->setNumber(14);
    window.atClosing->setChecked(false);
    window.here->setChecked(false);
    window.binDays->setNumber(30);
    window.second->setText(m_folder->path());
    window.dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(window.dialog.result(), int(QDialog::Accepted));
    const BackupSettings stored = BackupSettings::read();
    QCOMPARE(stored.hours, 3);
    QCOMPARE(stored.daily, 14);
    QVERIFY(!stored.atClosing);
    QCOMPARE(stored.binDays, 30);
    QVERIFY(!BackupsHere::takesByItself(true, true));
    QCOMPARE(BackupsHere::secondFolder(), m_folder->path());
    for (const QString &value : CTblProperties::DBReadSection(u"Backup"_s))
        QVERIFY2(!value.contains(m_folder->path()), qPrintable(value));
}

void TestBackupFields::refused_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("says");
    QTest::newRow("no hours") << "فاصله پشتیبان‌ها (ساعت) :"
                              << ""
                              << "فاصله پشتیبان‌ها (ساعت)";
    QTest::newRow("too many hours") << "فاصله پشتیبان‌ها (ساعت) :"
                                    << "169"
                                    << "فاصله پشتیبان‌ها (ساعت)";
    QTest::newRow("none kept") << "روزانه‌های نگهداری شده :"
                               << "0"
                               << "روزانه‌های نگهداری شده";
    QTest::newRow("bin for no day") << "روزهای سطل بازیافت :"
                                    << "0"
                                    << "روزهای سطل بازیافت";
    QTest::newRow("missing folder") << "پوشه دوم (دیسک جدا یا شبکه) :"
                                    << "/no/such/folder"
                                    << "پیدا نشد";
    QTest::newRow("relative folder") << "پوشه دوم (دیسک جدا یا شبکه) :"
                                     << "."
                                     << "پیدا نشد";
    QTest::newRow("the folder itself") << "پوشه دوم (دیسک جدا یا شبکه) :"
                                       << "backups"
                                       << "همان پوشه";
}

void TestBackupFields::refused()
{
    QFETCH(QString, label);
    QFETCH(QString, value);
    QFETCH(QString, says);
    BackupWindow window(folder());
    auto *field = named<KEdit>(window.dialog, label);
    field->setText(value == u"backups" ? folder().backupsPath() : value);
    window.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&window.dialog));
    window.dialog.accept();
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(says), qPrintable(shown.constFirst()));
    QVERIFY(window.dialog.isVisible());
    QVERIFY(field->hasFocus());
    QVERIFY(BackupsHere::secondFolder().isEmpty());
}

// The disk that is not plugged in today does not keep anybody from changing the money unit.
void TestBackupFields::secondFolderThatIsAwayAlreadyIsNoObstacle()
{
    BackupsHere::setSecondFolder(u"/no/such/folder"_s);
    BackupWindow window(folder());
    window.hours->setNumber(2);
    window.dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(BackupSettings::read().hours, 2);
}

void TestBackupFields::othersThanAdministratorsChangeNothing()
{
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"Settings"_s, KSecurity::allRights);
    BackupWindow window(folder());
    QVERIFY(!window.hours->isEnabled());
    QVERIFY(!window.second->isEnabled());
    window.hours->setNumber(9);
    window.second->setText(m_folder->path());
    named<KEdit>(window.dialog, u"نام واحد پول :"_s)->setText(u"تومان"_s);
    window.dialog.accept();
    QCOMPARE(GetDBSetting()->MoneyUnitName(), u"تومان"_s);
    QCOMPARE(BackupSettings::read().hours, 1);
    QVERIFY(BackupsHere::secondFolder().isEmpty());
}

void TestBackupFields::whoIsNoAdministratorAnyMoreIsRefused()
{
    BackupWindow window(folder());
    window.hours->setNumber(9);
    m_office.database.run(u"UPDATE Users SET bAdmin=0"_s);
    window.dialog.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این کار فقط برای مدیر برنامه مجاز است."_s});
    QCOMPARE(window.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(BackupSettings::read().hours, 1);
}

void TestBackupFields::officeServerIsSavedWhereAnAdministratorWorks_data()
{
    QTest::addColumn<int>("choice"); // -1: none
    QTest::addColumn<bool>("privateServer");
    QTest::addColumn<bool>("administrator");
    QTest::addColumn<bool>("takes");
    QTest::newRow("own server") << -1 << true << false << true;
    QTest::newRow("office's, clerk") << -1 << false << false << false;
    QTest::newRow("office's, administrator") << -1 << false << true << true;
    QTest::newRow("chosen") << 1 << false << false << true;
    QTest::newRow("switched off") << 0 << true << true << false;
}

void TestBackupFields::officeServerIsSavedWhereAnAdministratorWorks()
{
    QFETCH(int, choice);
    QFETCH(bool, privateServer);
    QFETCH(bool, administrator);
    BackupsHere::setTakesByItself(choice < 0 ? std::nullopt : std::optional(choice != 0));
    QTEST(BackupsHere::takesByItself(privateServer, administrator), "takes");
}

static const RegisteredTest<TestBackupFields, QApplication> registeredBackupFields;
#include "TestBackupFields.moc"
