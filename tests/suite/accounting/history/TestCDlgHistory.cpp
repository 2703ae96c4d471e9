// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/CDlgHistory.h"

#include "suite/accounting/changes/ChangedLines.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KNextRows.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class TestCDlgHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void wordsOfValues_data();
    void wordsOfValues();
    void sentences_data();
    void sentences();
    void listShowsWhoDidWhat();
    void detailsFollowTheSelection();
    void everythingIsForAdministrators();
    void othersReadWhatTheirListsShow();
    void olderEntriesSayThatNothingIsKnown();
    void limitCutsNoSaveInTwo();
    void settingsHaveOneHistory();
    void filtersLeaveOut();
    void failedSignInsAreLimited();
    void signInIsTheUsersOwn();
    void exportIsNoted();
    void buttonIsForSavedRecordsOfReaders();
    void changedLinesAreOnlyThose();

private:
    int addService(const QString &name);
    void renameService(int key, const QString &name);

    std::unique_ptr<TestOffice> m_office;
};

void TestCDlgHistory::initTestCase()
{
    m_office = std::make_unique<TestOffice>();
    OfficeSubjects::enter();
    RecordHistory::setWindow(&CDlgHistory::Show);
}

void TestCDlgHistory::init()
{
    GetDBSetting()->Login(m_office->admin);
    m_office->database.run(u"DELETE FROM Services"_s);
    m_office->database.run(u"DELETE FROM UserRights"_s);
    m_office->database.run(u"DELETE FROM Changes"_s);
    KSecurity::forgetRights();
}

void TestCDlgHistory::cleanupTestCase()
{
    RecordHistory::setWindow(nullptr);
    GetDBSetting()->Logout();
    m_office.reset();
}

int TestCDlgHistory::addService(const QString &name)
{
    CTblServices service;
    service.AddNew();
    service.m_iCode = 12;
    service.m_sName = name;
    service.Update(true);
    return service.m_iID;
}

// Later than what one save takes, so that it is an entry of its own.
void TestCDlgHistory::renameService(int key, const QString &name)
{
    m_office->database.run(u"UPDATE Changes SET date=date-INTERVAL 1 MINUTE"_s);
    CTblServices service;
    QVERIFY(service.IsRecordExist(u"iID"_s, key));
    service.Edit();
    service.m_sName = name;
    service.Update(true);
}

void TestCDlgHistory::wordsOfValues_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("word");
    const auto row = [](const char *name, const QString &table, const QString &column, const QVariant &value, const QString &caption, const QString &word) {
        QTest::newRow(name) << table << column << value << caption << word;
    };
    row("amount", u"Factors"_s, u"dAmount"_s, 1200000.0, u"مبلغ"_s, u"1,200,000"_s);
    row("date", u"Documents"_s, u"date"_s, u"2026-11-22T00:00:00"_s, u"تاریخ سند"_s, u"1405/09/01"_s);
    row("moment", u"Documents"_s, u"date"_s, u"2026-11-22T10:15:00"_s, u"تاریخ سند"_s, u"1405/09/01 10:15"_s);
    row("flag", u"Users"_s, u"bAdmin"_s, 1, u"مدیر"_s, u"بلی"_s);
    row("word of a number", u"Users"_s, u"iStatus"_s, 1, u"وضعیت"_s, u"غیرفعال"_s);
    row("kind of document", u"Documents"_s, u"iKind"_s, 1, u"نوع سند"_s, u"دستی"_s);
    row("number", u"Services"_s, u"iCode"_s, 1200.0, u"کد خدمت"_s, u"1200"_s);
    row("text", u"Services"_s, u"sName"_s, u"شستشو"_s, u"نام خدمت"_s, u"شستشو"_s);
    row("emptied", u"Services"_s, u"sName"_s, QVariant(), u"نام خدمت"_s, {});
    row("setting by its caption", u"Properties:Money"_s, u"قفل فهرست خودروها"_s, true, u"قفل فهرست خودروها"_s, u"بلی"_s);
    row("day of a setting", u"Properties:FiscalYear"_s, u"تاریخ افتتاح"_s, u"2026-03-21"_s, u"تاریخ افتتاح"_s, u"1405/01/01"_s);
    row("kept size", u"Services"_s, u"sName"_s, u"120 B"_s, u"نام خدمت"_s, u"120 B"_s);
}

void TestCDlgHistory::wordsOfValues()
{
    QFETCH(QString, table);
    QFETCH(QString, column);
    QFETCH(QVariant, value);
    HistoryWords words;
    const QList<HistoryEntry::Line> lines = words.lines(table, {{column, {}, value}});
    QCOMPARE(lines.size(), 1);
    QTEST(lines.constFirst().caption, "caption");
    QTEST(lines.constFirst().after, "word");
}

void TestCDlgHistory::sentences_data()
{
    using Kind = KChange::Kind;
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("changed") << int(Kind::Changed) << u"120,000"_s << u"100,000"_s << u"قیمت : 120,000 ← 100,000"_s;
    QTest::newRow("first") << int(Kind::Changed) << QString() << u"100"_s << u"قیمت : (خالی) ← 100"_s;
    QTest::newRow("emptied") << int(Kind::Changed) << u"100"_s << QString() << u"قیمت : 100 ← (خالی)"_s;
    QTest::newRow("added") << int(Kind::Added) << QString() << u"100"_s << u"قیمت : 100"_s;
    QTest::newRow("deleted") << int(Kind::Deleted) << u"100"_s << QString() << u"قیمت : 100"_s;
    QTest::newRow("latin") << int(Kind::Changed) << u"ab"_s << u"cd"_s << u"قیمت : \u2068ab\u2069 ← \u2068cd\u2069"_s;
    QTest::newRow("long") << int(Kind::Added) << QString() << QString(200, u'آ') << u"قیمت : "_s + QString(59, u'آ') + u'…';
}

void TestCDlgHistory::sentences()
{
    QFETCH(int, kind);
    QFETCH(QString, before);
    QFETCH(QString, after);
    HistoryEntry entry;
    entry.change.kind = static_cast<KChange::Kind>(kind);
    entry.hasValues = true;
    entry.lines = {{u"قیمت"_s, before, after}};
    QTEST(HistoryWords::sentence(entry), "sentence");
}

void TestCDlgHistory::listShowsWhoDidWhat()
{
    const int key = addService(u"شستشو"_s);
    renameService(key, u"نظافت"_s);
    CDlgHistory page(u"Services"_s, key);
    page.open();
    QCOMPARE(page.title(), u"تاریخچه: خدمت 12 - نظافت"_s);
    QCOMPARE(page.list()->count(), 2);
    QCOMPARE(page.list()->cellText(0, u"action"), u"ویرایش"_s);
    QCOMPARE(page.list()->cellText(0, u"user"), u"admin"_s);
    QCOMPARE(page.list()->cellText(0, u"kind"), u"خدمت"_s);
    QCOMPARE(page.list()->cellText(0, u"title"), u"12 - نظافت"_s);
    QCOMPARE(page.list()->cellText(0, u"changes"), u"نام خدمت : شستشو ← نظافت"_s);
    QCOMPARE(page.list()->cellText(1, u"action"), u"ثبت"_s);
}

void TestCDlgHistory::detailsFollowTheSelection()
{
    const int key = addService(u"شستشو"_s);
    renameService(key, u"نظافت"_s);
    CDlgHistory page(u"Services"_s, key);
    page.open();
    page.list()->selectRow(0);
    QCOMPARE(page.details()->count(), 1);
    QCOMPARE(page.details()->cellText(0, 0), u"نام خدمت"_s);
    QCOMPARE(page.details()->cellText(0, 1), u"شستشو"_s);
    QCOMPARE(page.details()->cellText(0, 2), u"نظافت"_s);
    page.list()->selectRow(1);
    QCOMPARE(page.details()->count(), 2);
}

void TestCDlgHistory::everythingIsForAdministrators()
{
    CDlgHistory page;
    QVERIFY(page.OnAccess());
    GetDBSetting()->Login(m_office->clerk);
    QVERIFY(!page.OnAccess());
}

void TestCDlgHistory::othersReadWhatTheirListsShow()
{
    const int key = addService(u"شستشو"_s);
    KSecurity::setRights(m_office->clerk, u"Persons"_s, KSecurity::Read);
    GetDBSetting()->Login(m_office->clerk);
    QVERIFY(!RecordHistory::isOffered(u"Services"_s));
    QVERIFY(!RecordHistory::isOffered(u"Users"_s));
    QVERIFY(HistoryRows::read("TRUE").isEmpty());
    GetDBSetting()->Login(m_office->admin);
    KSecurity::setRights(m_office->clerk, u"Services"_s, KSecurity::Read);
    GetDBSetting()->Login(m_office->clerk);
    QVERIFY(RecordHistory::isOffered(u"Services"_s));
    const QList<HistoryEntry> read = HistoryRows::read("TRUE");
    QCOMPARE(read.size(), 1);
    QCOMPARE(read.constFirst().key, key);
    QVERIFY(read.constFirst().change.computer.isEmpty());
    CDlgHistory page(u"Services"_s, key);
    page.open();
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(page.list()->columnOf(u"computer"), -1);
    // The rights' own entries are there for the administrator.
    GetDBSetting()->Login(m_office->admin);
    QCOMPARE(HistoryRows::read("sTable='Rights'").size(), 1);
}

void TestCDlgHistory::olderEntriesSayThatNothingIsKnown()
{
    const int key = addService(u"شستشو"_s);
    m_office->database.run(u"UPDATE Changes SET sValues=NULL"_s);
    CDlgHistory page(u"Services"_s, key);
    page.open();
    QCOMPARE(page.list()->cellText(0, u"changes"), u"جزئیات ثبت نشده است"_s);
    QCOMPARE(page.details()->count(), 0);
}

void TestCDlgHistory::limitCutsNoSaveInTwo()
{
    const int key = addService(u"نظافت"_s);
    // Two steps of one save: the row, then its code.
    renameService(key, u"نظافت کامل"_s);
    CTblServices service;
    QVERIFY(service.IsRecordExist(u"iID"_s, key));
    service.Edit();
    service.m_iCode = 13;
    service.Update(true);
    m_office->database.run(u"UPDATE Changes SET date=NOW() ORDER BY iID DESC LIMIT 2"_s);
    const QString whole = HistoryWords::sentence(HistoryRows::read("TRUE").constFirst());
    QVERIFY2(whole.contains(u"نظافت کامل"_s) && whole.contains(u"13"_s), qPrintable(whole));
    const QList<HistoryEntry> read = HistoryRows::read("TRUE", 1);
    QCOMPARE(read.size(), 1);
    QCOMPARE(HistoryWords::sentence(read.constFirst()), whole);
    CDlgHistory page;
    page.open();
    page.setRowLimit(1);
    page.refill();
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(page.list()->cellText(0, u"changes"), whole);
    // Nor is its older half listed once more among the next ones.
    while (page.nextRows()->isVisibleTo(&page))
        page.nextRows()->click();
    QStringList changes;
    for (int row = 0; row < page.list()->count(); ++row)
        changes << page.list()->cellText(row, u"changes");
    QCOMPARE(changes.filter(u"13"_s), QStringList{whole});
    page.setRowLimit(1000);
    page.refill();
    QCOMPARE(page.list()->count(), changes.size());
}

void TestCDlgHistory::settingsHaveOneHistory()
{
    KChangeLog::note(u"Properties:Money"_s, 0, KChange::Kind::Changed, 0, {{u"نام واحد پول"_s, u"ریال"_s, u"تومان"_s}, {u"سقف"_s, 500000.0, 1500000.0}, {u"درصد"_s, 0.1, 0.3}, {u"سال"_s, u"1404"_s, u"1405"_s}});
    KChangeLog::note(u"Properties:Company"_s, 0, KChange::Kind::Changed, 0, {{u"نام"_s, u"الف"_s, u"ب"_s}});
    CDlgHistory page(u"Properties:Database"_s, 0);
    QCOMPARE(page.title(), u"تاریخچه: تنظیمات"_s);
    page.open();
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(page.list()->cellText(0, u"changes"), u"نام واحد پول : ریال ← تومان؛ سقف : 500,000 ← 1,500,000؛ درصد : 0.1 ← 0.3؛ سال : 1404 ← 1405"_s);
}

void TestCDlgHistory::filtersLeaveOut()
{
    const int key = addService(u"شستشو"_s);
    renameService(key, u"نظافت"_s);
    CDlgHistory page;
    page.open();
    QCOMPARE(page.list()->count(), 2);
    page.filters().set(u"action", int(KChange::Kind::Changed) + 1);
    page.refill();
    QCOMPARE(page.list()->count(), 1);
    page.resetFilter();
    page.filters().set(u"user", m_office->clerk);
    page.refill();
    QCOMPARE(page.list()->count(), 0);
    page.resetFilter();
    page.filters().set(u"from", QDate::currentDate().addDays(2));
    page.refill();
    QCOMPARE(page.list()->count(), 0);
    page.resetFilter();
    page.refill();
    QCOMPARE(page.list()->count(), 2);
}

void TestCDlgHistory::failedSignInsAreLimited()
{
    for (int i = 0; i < OfficeEvents::failedSignInsAMinute + 5; ++i)
        OfficeEvents::noteFailedSignIn(i == 0 ? u"admin"_s : QString());
    const QList<HistoryEntry> read = HistoryRows::read("iKind=7");
    QCOMPARE(read.size(), OfficeEvents::failedSignInsAMinute);
    QCOMPARE(read.constLast().action, u"ورود ناموفق"_s);
    QCOMPARE(HistoryWords::sentence(read.constLast()), u"نام کاربری : \u2068admin\u2069"_s);
    QCOMPARE(HistoryWords::sentence(read.constFirst()), u"نام کاربری : نام ناشناخته"_s);
}

void TestCDlgHistory::signInIsTheUsersOwn()
{
    OfficeEvents::noteSignIn(m_office->clerk);
    const QList<HistoryEntry> read = HistoryRows::read("iKind=6");
    QCOMPARE(read.size(), 1);
    QCOMPARE(read.constFirst().user, u"clerk"_s);
    QCOMPARE(KChangeLog::author(), m_office->admin);
}

void TestCDlgHistory::exportIsNoted()
{
    OfficeEvents::noteExport(u"اشخاص"_s, u"PDF"_s, 12);
    const QList<HistoryEntry> read = HistoryRows::read("iKind=8");
    QCOMPARE(read.size(), 1);
    QCOMPARE(read.constFirst().kind, u"خروجی"_s);
    QCOMPARE(HistoryWords::sentence(read.constFirst()), u"خروجی : اشخاص؛ به صورت : \u2068PDF\u2069؛ تعداد ردیف : 12"_s);
}

void TestCDlgHistory::buttonIsForSavedRecordsOfReaders()
{
    const auto isThere = [](int key) {
        QWidget window;
        auto *footer = new QHBoxLayout(&window);
        HistoryButton::addTo(&window, footer, u"Services"_s, key);
        return window.findChild<QPushButton *>() != nullptr;
    };
    QVERIFY(isThere(5));
    QVERIFY(!isThere(0));
    GetDBSetting()->Login(m_office->clerk);
    QVERIFY(!isThere(5));
}

void TestCDlgHistory::changedLinesAreOnlyThose()
{
    QVERIFY(!ChangedLines::between(u"rows"_s, {u"a"_s, u"b"_s}, {u"b"_s, u"a"_s}));
    const auto changed = ChangedLines::between(u"rows"_s, {u"a"_s, u"b"_s, u"b"_s}, {u"b"_s, u"c"_s, u"a"_s});
    QVERIFY(changed);
    QCOMPARE(changed->before.toString(), u"b"_s);
    QCOMPARE(changed->after.toString(), u"c"_s);
}

static const RegisteredTest<TestCDlgHistory, QApplication> registeredDlgHistory;
#include "TestCDlgHistory.moc"
