// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/connection/KWaiter.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QtTest>

#include <new>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

class TestKErrorBoundary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachErrorGivesOneMessage_data();
    void eachErrorGivesOneMessage();
    void guardedWorkThatThrowsIsReportedAndHasNotSucceeded();
    void slotThatThrowsLeavesTheProgramRunning();
    void failedStatementReachesTheBoundaryWithItsCategory();
    void secondErrorDuringTheMessageIsLoggedOnly();
    void errorOfAnotherThreadShowsNothing();
    void errorWhileTheThreadWaitsForTheDatabaseShowsNothing();
    void unknownOutcomeIsLookedAtAgainUntilItIsKnown();
    void noErrorShowsNothing();
    void logHoldsNoValues_data();
    void logHoldsNoValues();
    void serverMessageHoldsNoValues_data();
    void serverMessageHoldsNoValues();
    void applicationIsRightToLeftAndFusion();
};

void TestKErrorBoundary::init()
{
    g_pDlgWarning->answerAll(false);
    g_pDlgWarning->answerAll(true);
}

void TestKErrorBoundary::eachErrorGivesOneMessage_data()
{
    QTest::addColumn<std::exception_ptr>("error");
    QTest::addColumn<QString>("message");
    const CMySQLException lost(CMySQLException::Category::ConnectionLost, 2006, u"server has gone away"_s);
    QTest::newRow("connection lost") << std::make_exception_ptr(lost) << lost.userMessage();
    const CMySQLException conflict(CMySQLException::Category::LockConflict, 1213, u"Deadlock"_s);
    QTest::newRow("lock conflict") << std::make_exception_ptr(conflict) << conflict.userMessage();
    QTest::newRow("rule of the books") << std::make_exception_ptr(KAccountingError(u"سند تراز نیست."_s))
                                       << u"سند تراز نیست."_s;
    QTest::newRow("memory") << std::make_exception_ptr(std::bad_alloc()) << QString();
    QTest::newRow("program") << std::make_exception_ptr(std::logic_error("index 7 of 3")) << QString();
    QTest::newRow("unknown kind") << std::make_exception_ptr(42) << QString();
}

void TestKErrorBoundary::eachErrorGivesOneMessage()
{
    QFETCH(std::exception_ptr, error);
    QFETCH(QString, message);
    KErrorBoundary::report(error, nullptr);
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    if (!message.isEmpty())
        QCOMPARE(shown.constFirst(), message);
    // The message is for a person: Persian, without the technical words.
    QVERIFY(!shown.constFirst().contains(QRegularExpression(u"[A-Za-z]{3}"_s)));
}

void TestKErrorBoundary::guardedWorkThatThrowsIsReportedAndHasNotSucceeded()
{
    int steps = 0;
    QVERIFY(KErrorBoundary::guarded(nullptr, [&] { ++steps; }));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY(!KErrorBoundary::guarded(nullptr, [&] {
        ++steps;
        throw KAccountingError(u"سند تراز نیست."_s);
    }));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"سند تراز نیست."_s});
    QCOMPARE(steps, 2);
}

void TestKErrorBoundary::slotThatThrowsLeavesTheProgramRunning()
{
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&clicks] {
        ++clicks;
        throw KAccountingError(u"نشد"_s);
    });
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks, 2);
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{u"نشد"_s, u"نشد"_s}));
}

void TestKErrorBoundary::failedStatementReachesTheBoundaryWithItsCategory()
{
    TestDatabase database;
    QTimer::singleShot(0, [&database] { database.run(u"SELECT noSuchColumn FROM noSuchTable"_s); });
    QStringList shown;
    QTRY_VERIFY(!(shown += g_pDlgWarning->takeShown()).isEmpty());
    QCOMPARE(shown.size(), 1);
}

void TestKErrorBoundary::secondErrorDuringTheMessageIsLoggedOnly()
{
    g_pDlgWarning->answerAll(false);
    int boxes = 0;
    QTimer::singleShot(50, [&boxes] {
        QWidget *box = QApplication::activeModalWidget();
        KErrorBoundary::report(std::make_exception_ptr(KAccountingError(u"دومی"_s)), nullptr);
        for (QWidget *widget : QApplication::topLevelWidgets())
            boxes += widget->inherits("CDlgMessage") ? 1 : 0;
        if (box)
            box->close();
    });
    KErrorBoundary::report(std::make_exception_ptr(KAccountingError(u"اولی"_s)), nullptr);
    QCOMPARE(boxes, 1);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"اولی"_s});
    g_pDlgWarning->answerAll(true);
    KErrorBoundary::report(std::make_exception_ptr(KAccountingError(u"سومی"_s)), nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"سومی"_s});
}

void TestKErrorBoundary::errorOfAnotherThreadShowsNothing()
{
    std::thread([] {
        KErrorBoundary::report(std::make_exception_ptr(KAccountingError(u"از نخ دیگر"_s)), nullptr);
    }).join();
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

// A paint or a timer that wants a row in the middle of a wait for another answer.
void TestKErrorBoundary::errorWhileTheThreadWaitsForTheDatabaseShowsNothing()
{
    const TestDatabase database;
    struct Waiter : KWaiter
    {
        bool goOn(std::chrono::milliseconds) noexcept override
        {
            done = KErrorBoundary::guarded(nullptr, [] { KConnection::forThread().run(QByteArrayLiteral("SELECT 1")); });
            return true;
        }
        void ended() noexcept override { }
        bool done = true;
    } waiter;
    KConnection::setWaiter(&waiter);
    KConnection::forThread().run(QByteArrayLiteral("SELECT SLEEP(1.2)"));
    KConnection::setWaiter(nullptr);
    QVERIFY(!waiter.done);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestKErrorBoundary::unknownOutcomeIsLookedAtAgainUntilItIsKnown()
{
    TestDatabase database;
    database.run(u"CREATE TABLE UnitTokens(sToken VARCHAR(36) PRIMARY KEY,dateCreate DATETIME,bRefused TINYINT NOT NULL DEFAULT 0) ENGINE=InnoDB"_s);
    database.run(u"CREATE TABLE Books(iID INT) ENGINE=InnoDB"_s);
    KTableSchema::forgetAll();
    FaultProxy proxy(database.settings());
    KConnection::configure(0, proxy.settings());
    g_pDlgWarning->answerNext(KMessageDialog::Yes);
    g_pDlgWarning->answerNext(KMessageDialog::No);
    proxy.failAtCommit(FaultProxy::Fault::CutAfterCommit, false);
    const auto book = [] { KTransaction::runReplayable([] { KConnection::forThread().run(QByteArrayLiteral("INSERT INTO Books VALUES(1)")); }); };
    QVERIFY(!KErrorBoundary::guarded(nullptr, book));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 3);
    QVERIFY(shown.at(0).startsWith(u"نامعلوم: پیش از تکرار نگاه کنید"_s));
    QCOMPARE(shown.at(1), shown.at(0));
    // The second try finds out that the first was saved, and books nothing.
    proxy.setReachable(true);
    QVERIFY(!KErrorBoundary::guarded(nullptr, book));
    QVERIFY(g_pDlgWarning->takeShown().constFirst().contains(u"انجام شده است"_s));
    QCOMPARE(database.value(u"SELECT COUNT(*) FROM Books"_s), u"1"_s);
    KConnection::configure(0, database.settings());
}

void TestKErrorBoundary::noErrorShowsNothing()
{
    KErrorBoundary::report(nullptr, nullptr);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestKErrorBoundary::logHoldsNoValues_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("masked");
    const auto row = [](const char *name, const char *statement, const char *masked) {
        QTest::newRow(name) << QString::fromUtf8(statement) << QString::fromUtf8(masked);
    };
    row("insert", "INSERT INTO Users(sUser,sPasswordHash) VALUES('ali','$argon2id$abc')",
        "INSERT INTO Users(sUser,sPasswordHash) VALUES(?,?)");
    row("escaped quote", "UPDATE T SET s='a\\'b', d=12.5 WHERE iID=7", "UPDATE T SET s=?, d=? WHERE iID=?");
    row("doubled quote", "SELECT 'it''s' FROM T", "SELECT ? FROM T");
    row("double quotes", "SELECT \"secret\" FROM T", "SELECT ? FROM T");
    row("never closed", "SELECT 'secret", "SELECT ?");
    row("apostrophe in a value", "INSERT INTO T VALUES('a\\'secret\\'')", "INSERT INTO T VALUES(?)");
    row("columns with digits", "SELECT sName1 FROM T2 LIMIT 10", "SELECT sName1 FROM T2 LIMIT ?");
}

void TestKErrorBoundary::logHoldsNoValues()
{
    QFETCH(QString, statement);
    QFETCH(QString, masked);
    QCOMPARE(KErrorText::maskedStatement(statement), masked);
    const CMySQLException error(CMySQLException::Category::DuplicateKey, 1062, u"Duplicate entry 'ali'"_s, statement);
    const QString log = KErrorText::logText(std::make_exception_ptr(error));
    QVERIFY(log.contains(masked));
    QVERIFY(log.contains(u"1062"_s));
    QVERIFY(!log.contains(u"ali'"_s));
    QVERIFY(!log.contains(u"secret"_s));
}

void TestKErrorBoundary::serverMessageHoldsNoValues_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("masked");
    QTest::newRow("duplicate") << u"Duplicate entry 'ali' for key 'user'"_s << u"Duplicate entry ?"_s;
    QTest::newRow("apostrophe in a word") << u"Table 'a.b' doesn't exist"_s
                                          << u"Table ? doesn't exist"_s;
    QTest::newRow("apostrophe in the value") << u"Duplicate entry 'o'neil secret' for key 'user'"_s
                                             << u"Duplicate entry ?"_s;
    QTest::newRow("no value") << u"Lost connection to server"_s << u"Lost connection to server"_s;
}

void TestKErrorBoundary::serverMessageHoldsNoValues()
{
    QFETCH(QString, message);
    QFETCH(QString, masked);
    const CMySQLException error(CMySQLException::Category::Other, 1, message);
    QCOMPARE(KErrorText::logText(std::make_exception_ptr(error)), u"database, other (1): "_s + masked);
}

void TestKErrorBoundary::applicationIsRightToLeftAndFusion()
{
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    QCOMPARE(QApplication::style()->objectName().toLower(), u"fusion"_s);
}

// The program's own application class is what is tested.
static const RegisteredTest<TestKErrorBoundary, KApplication> registeredKErrorBoundary;
#include "TestKErrorBoundary.moc"
