// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgSettings.h"

#include "host/frame/HostLook.h"
#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/history/CDlgHistory.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/accounting/today/TodaySettings.h"
#include "suite/accounting/twins/TwinSettings.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestCDlgSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.fresh(); }
    void cleanup() { setDefaultMoneyDecimals(0); }
    void showsWhatIsStored();
    void storesEverything();
    void whatChangedIsNotedByItsLabel();
    void daysOfTheFirstPageAreTheOffices();
    void numbersThatAreTakenOnceAreTheOffices();
    void refused_data();
    void refused();
    void cancelChangesNothing();
    void anotherFiscalYearIsThatOfItsDays();
    void ofAClosedDatabaseOnlyTheMarkCanBeChanged();
    void twoDesks_data() { TwoDesks::addCases(false); }
    void twoDesks();
    void fiscalYearIsTakenWholeFromOneSide();
    void closedMeanwhileRefusesTheRest();
    void colourIsTheUsersOwn();

private:
    HostTestOffice m_office;
};

namespace {

struct Settings
{
    Settings()
        : unit(named<KEdit>(dialog, u"نام واحد پول :"_s))
        , decimals(named<QComboBox>(dialog, u"رقم‌های اعشار :"_s))
        , year(named<KEdit>(dialog, u"سال مالی :"_s))
        , opening(named<KDateEdit>(dialog, u"تاریخ افتتاح :"_s))
        , closing(named<KDateEdit>(dialog, u"تاریخ پایان :"_s))
        , catalogLocked(named<QCheckBox>(dialog, u"فهرست خودروها قفل است (فقط انتخاب)"_s))
        , closed(named<QCheckBox>(dialog, u"پایگاه داده بسته است (فقط مشاهده)"_s))
    {
    }

    CDlgSettings dialog{DataFolder(QDir::tempPath() + u"/no-office"_s)};
    KEdit *unit;
    QComboBox *decimals;
    KEdit *year;
    KDateEdit *opening;
    KDateEdit *closing;
    QCheckBox *catalogLocked;
    QCheckBox *closed;
};

}

void TestCDlgSettings::showsWhatIsStored()
{
    CDBSetting *setting = GetDBSetting();
    setting->SetMoneyUnitName(u"تومان"_s);
    setting->SetMoneyDecimals(2);
    setting->SetFiscalYear(1403);
    setting->SetCatalogLocked(true);
    setting->SetFiscalYearOpeningDate(QDateTime(ConvertToMiladi(1403, 1, 5), QTime(0, 0), Qt::UTC));
    const Settings settings;
    QCOMPARE(settings.unit->text(), u"تومان"_s);
    QCOMPARE(settings.decimals->currentText(), u"2"_s);
    QCOMPARE(settings.year->integer(), 1403);
    QCOMPARE(settings.opening->text(), u"1403/01/05"_s);
    QCOMPARE(settings.closing->text(), u"1403/12/30"_s);
    QVERIFY(settings.catalogLocked->isChecked());
    QVERIFY(!settings.closed->isChecked());
}

void TestCDlgSettings::storesEverything()
{
    Settings settings;
    settings.unit->setText(u"تومان"_s);
    settings.decimals->setCurrentIndex(3);
    settings.year->setNumber(1404);
    settings.opening->setDate(ConvertToMiladi(1404, 1, 2));
    settings.closing->setDate(ConvertToMiladi(1405, 1, 1));
    settings.catalogLocked->setChecked(true);
    settings.closed->setChecked(true);
    settings.dialog.accept();
    QCOMPARE(settings.dialog.result(), int(QDialog::Accepted));
    const CDBSetting *setting = GetDBSetting();
    QCOMPARE(setting->MoneyUnitName(), u"تومان"_s);
    QCOMPARE(setting->MoneyDecimals(), 3);
    QCOMPARE(DToMoney(1), u"1.000"_s);
    QCOMPARE(setting->FiscalYear(), 1404);
    QCOMPARE(setting->FiscalYearOpeningDate().date(), ConvertToMiladi(1404, 1, 2));
    QCOMPARE(setting->FiscalYearClosingDate().date(), ConvertToMiladi(1405, 1, 1));
    QVERIFY(setting->IsCatalogLocked());
    QVERIFY(setting->IsClosedDB());
}

void TestCDlgSettings::whatChangedIsNotedByItsLabel()
{
    OfficeSubjects::enter();
    const auto save = [](int year, int decimals, bool locked) {
        Settings settings;
        settings.unit->setText(u"تومان"_s);
        settings.decimals->setCurrentIndex(decimals);
        settings.year->setNumber(year);
        settings.opening->setDate(ConvertToMiladi(year, 1, 1));
        settings.closing->setDate(ConvertToMiladi(year, 12, 29));
        settings.catalogLocked->setChecked(locked);
        settings.dialog.accept();
        return settings.dialog.result() == QDialog::Accepted;
    };
    QVERIFY(save(1404, 0, false));
    m_office.database.run(u"DELETE FROM Changes"_s);
    QVERIFY(save(1405, 2, true));
    const QList<HistoryEntry> entries = HistoryRows::read(HistoryRows::ofRecord(u"Properties:Database"_s, 0));
    QCOMPARE(entries.size(), 1);
    QStringList lines;
    for (const HistoryEntry::Line &line : entries.constFirst().lines)
        lines.append(u"%1: %2 > %3"_s.arg(line.caption, line.before, line.after));
    lines.sort();
    QStringList expected{u"رقم‌های اعشار: 0 > 2"_s, u"سال مالی: 1404 > 1405"_s, u"تاریخ افتتاح: 1404/01/01 > 1405/01/01"_s,
                         u"تاریخ پایان: 1404/12/29 > 1405/12/29"_s, u"قفل فهرست خودروها: خیر > بلی"_s};
    expected.sort();
    QCOMPARE(lines, expected);
    RecordHistory::setWindow(&CDlgHistory::Show);
    const Settings administrators;
    m_office.loginClerk();
    const Settings clerks;
    RecordHistory::setWindow(nullptr);
    const auto hasHistory = [](const Settings &settings) {
        const QList<QPushButton *> buttons = settings.dialog.findChildren<QPushButton *>();
        return std::ranges::any_of(buttons, [](const QPushButton *button) { return button->text() == RecordHistory::caption(); });
    };
    QVERIFY(hasHistory(administrators));
    QVERIFY(!hasHistory(clerks));
}

void TestCDlgSettings::daysOfTheFirstPageAreTheOffices()
{
    const auto days = [](const CDlgSettings &dialog, const QString &label) { return named<KEdit>(dialog, label); };
    const QString unsettled = u"قرارداد تسویه نشده پس از چند روز :"_s;
    const QString standing = u"خودروی مانده پس از چند روز :"_s;
    const auto stored = [] { return OfficeSettings::read({TodaySettings::section()}); };
    {
        Settings settings;
        QCOMPARE(days(settings.dialog, unsettled)->integer(), 7);
        QCOMPARE(days(settings.dialog, standing)->integer(), 45);
    }
    Settings settings;
    days(settings.dialog, unsettled)->setNumber(0);
    days(settings.dialog, standing)->setNumber(60);
    settings.dialog.accept();
    QCOMPARE(settings.dialog.result(), int(QDialog::Accepted));
    QCOMPARE(TodaySettings::unsettledDays(stored()), 0);
    QCOMPARE(TodaySettings::standingDays(stored()), 60);
    QCOMPARE(days(Settings().dialog, standing)->integer(), 60);
}

void TestCDlgSettings::numbersThatAreTakenOnceAreTheOffices()
{
    const auto box = [](const CDlgSettings &dialog, const QString &number) { return named<QCheckBox>(dialog, u"نپذیرفتن %1 تکراری"_s.arg(number)); };
    {
        Settings settings;
        for (const TwinSettings::Named &number : TwinSettings::all())
            QVERIFY(!box(settings.dialog, number.caption)->isChecked());
        box(settings.dialog, u"VIN"_s)->setChecked(true);
        box(settings.dialog, u"موبایل"_s)->setChecked(true);
        settings.dialog.accept();
        QCOMPARE(settings.dialog.result(), int(QDialog::Accepted));
    }
    const OfficeSettings stored = OfficeSettings::read({TwinSettings::section()});
    QStringList refused;
    for (const TwinSettings::Named &number : TwinSettings::all()) {
        if (TwinSettings::isRefused(stored, number.key))
            refused.append(number.caption);
    }
    QCOMPARE(refused, (QStringList{u"VIN"_s, u"موبایل"_s}));
    QVERIFY(box(Settings().dialog, u"VIN"_s)->isChecked());
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
    QTest::newRow("no closing day") << "تاریخ پایان :"
                                    << "";
    QTest::newRow("closing day before the opening") << "تاریخ پایان :"
                                                    << "1390/12/29";
    QTest::newRow("no days of a contract") << "قرارداد تسویه نشده پس از چند روز :"
                                           << "";
    QTest::newRow("too many days of a car") << "خودروی مانده پس از چند روز :"
                                            << "1000";
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
    settings.unit->setText(u"تومان"_s);
    settings.closed->setChecked(true);
    settings.dialog.reject();
    QCOMPARE(GetDBSetting()->MoneyUnitName(), u"ریال"_s);
    QVERIFY(!GetDBSetting()->IsClosedDB());
}

void TestCDlgSettings::anotherFiscalYearIsThatOfItsDays()
{
    Settings settings;
    settings.year->setText(u"1406"_s);
    QCOMPARE(settings.opening->text(), u"1406/01/01"_s);
    QCOMPARE(settings.closing->text(), u"1406/12/29"_s);
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
    settings.unit->setText(u"تومان"_s);
    settings.closed->setChecked(false);
    settings.dialog.accept();
    QVERIFY(!GetDBSetting()->IsClosedDB());
    QCOMPARE(GetDBSetting()->MoneyUnitName(), u"ریال"_s);
}

void TestCDlgSettings::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    TwoDesks({
                 .reset = [] { GetDBSetting()->SetMoneyUnitName(u"ریال"_s); },
                 .open = [] { return std::make_unique<CDlgSettings>(DataFolder(QDir::tempPath() + u"/no-office"_s)); },
                 .enter = [](KDialog &window) { named<KEdit>(window, u"نام واحد پول :"_s)->setText(u"تومان"_s); },
                 .changeOther = [] { GetDBSetting()->SetCatalogLocked(true); },
                 .changeSame = [] { GetDBSetting()->SetMoneyUnitName(u"درهم"_s); },
                 .stored = [] { return GetDBSetting()->MoneyUnitName() + (GetDBSetting()->IsCatalogLocked() ? u" locked"_s : u""_s); },
                 .merged = u"تومان locked"_s,
                 .theirs = u"درهم"_s,
                 .mine = u"تومان"_s,
             })
        .check(what);
}

void TestCDlgSettings::fiscalYearIsTakenWholeFromOneSide()
{
    Settings settings;
    settings.dialog.show();
    settings.year->setText(u"1406"_s);
    // The other desk moves the closing day of the year that was open.
    GetDBSetting()->SetFiscalYearClosingDate(QDateTime(ConvertToMiladi(1407, 1, 5), QTime(0, 0), Qt::UTC));
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeMine);
    settings.dialog.accept();
    const QStringList shown = CDlgRowConflict::takeShown();
    QVERIFY2(shown.filter(u"تاریخ پایان: "_s).size() == 1, qPrintable(shown.join(u'\n')));
    QCOMPARE(GetDBSetting()->FiscalYear(), 1406);
    QCOMPARE(GetDBSetting()->FiscalYearClosingDate().date(), ConvertToMiladi(1406, 12, 29));
}

void TestCDlgSettings::closedMeanwhileRefusesTheRest()
{
    Settings settings;
    settings.dialog.show();
    settings.unit->setText(u"تومان"_s);
    Settings others;
    others.closed->setChecked(true);
    others.dialog.accept();
    settings.dialog.accept();
    QVERIFY(settings.dialog.isVisible());
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"«admin»"_s), qPrintable(told.constFirst()));
    QCOMPARE(GetDBSetting()->MoneyUnitName(), u"ریال"_s);
}

void TestCDlgSettings::colourIsTheUsersOwn()
{
    QCOMPARE(HostLook::choice(), HostLook::Choice::AsSystem);
    const auto colours = [](const Settings &settings) { return named<QComboBox>(settings.dialog, u"رنگ برنامه :"_s); };
    {
        Settings settings;
        QComboBox *look = colours(settings);
        QCOMPARE(look->currentText(), u"مانند سیستم"_s);
        look->setCurrentText(u"تیره"_s);
        QCOMPARE(HostLook::choice(), HostLook::Choice::AsSystem);
        settings.dialog.accept();
        QCOMPARE(settings.dialog.result(), int(QDialog::Accepted));
    }
    QCOMPARE(HostLook::choice(), HostLook::Choice::Dark);
    QCOMPARE(HostColors::look(), HostColors::Look::Dark);
    // Nothing of it is in what the office shares, so a closed database does not hinder it.
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Properties WHERE sSection LIKE '%Look%'"_s).toInt(), 0);
    GetDBSetting()->SetClosedDB(true);
    {
        Settings settings;
        QCOMPARE(colours(settings)->currentText(), u"تیره"_s);
        QVERIFY(colours(settings)->isEnabled());
        colours(settings)->setCurrentText(u"روشن"_s);
        settings.dialog.accept();
    }
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(HostLook::choice(), HostLook::Choice::Light);
    QCOMPARE(HostColors::look(), HostColors::Look::Light);
    {
        Settings settings;
        colours(settings)->setCurrentText(u"تیره"_s);
        settings.dialog.reject();
    }
    QCOMPARE(HostLook::choice(), HostLook::Choice::Light);
}

static const RegisteredTest<TestCDlgSettings, QApplication> registeredCDlgSettings;
#include "TestCDlgSettings.moc"
